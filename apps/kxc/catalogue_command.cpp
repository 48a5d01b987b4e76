// kxc catalogue check: compares the catalogue files with the keys the library uses.
#include <cstdio>
#include <string>
#include <vector>

#include "command_registry.h"
#include "language/catalogue_check.h"
#include "language/catalogue_folder.h"
#include "language/used_keys.h"
#include "platform/catalogue/catalogue_reader.h"

namespace kxc::cli {
namespace {

constexpr const char* kUsage =
    "Usage: kxc catalogue check [FOLDER]\n"
    "Checks TmBvCacheLanguages.xml and TmBvCacheLanguageFontDetails.xml in FOLDER (default:\n"
    "the catalogue folder beside the program) against the keys the library uses: missing keys\n"
    "and translations, dropped placeholders, access keys that cannot be placed, languages\n"
    "without name and font rows, and files that cannot be read. Exits with 1 when it finds any.";

std::shared_ptr<const CatalogueTable> read(const std::string& folder, const char* name,
                                           int& problems) {
  auto result = readCatalogueFile(cataloguePath(folder, name));
  if (result.problem) {
    ++problems;
    const auto& p = *result.problem;
    if (p.line > 0) {
      std::printf("%s:%zu: %s\n", p.file.c_str(), p.line, p.reason.c_str());
    } else {
      std::printf("%s: %s\n", p.file.c_str(), p.reason.c_str());
    }
  }
  return result.table;
}

int check(const std::string& folder) {
  int problems = 0;
  auto languages = read(folder, kCatalogueFileName, problems);
  auto details = read(folder, kLanguageDetailsFileName, problems);
  for (const auto& finding : checkCatalogues(languages.get(), details.get())) {
    std::printf("%s\n", finding.c_str());
    ++problems;
  }
  if (problems > 0) {
    std::printf("%d problem%s in the catalogues of %s\n", problems, problems == 1 ? "" : "s",
                folder.c_str());
    return 1;
  }
  std::printf("catalogues of %s: all %zu keys in use are translated in 16 languages\n",
              folder.c_str(), usedKeys().size());
  return 0;
}

int run(const std::vector<std::string>& args) {
  if (args.empty() || args[0] != "check" || args.size() > 2) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  return check(args.size() == 2 ? args[1] : catalogueFolder());
}

const KxcCommand kCommand({"catalogue", "check the translation catalogues", kUsage, run});

}  // namespace
}  // namespace kxc::cli
