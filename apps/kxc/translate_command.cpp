// kxc translate: shows the translation of a key, as the library would show it.
#include <cstdio>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "command_registry.h"
#include "language/catalogue_folder.h"
#include "language/language.h"
#include "platform/catalogue/catalogue_reader.h"
#include "platform/memory_settings_store.h"
#include "platform/settings/file_settings_store.h"
#include "platform/text_rules.h"
#include "platform/tm_win_reg.h"
#include "state/add_in_context.h"

namespace kxc::cli {
namespace {

constexpr const char* kUsage =
    "Usage: kxc translate KEY [--lang N] [P1 [P2 [P3 [P4]]]]\n"
    "Prints the text of KEY (for example \"@HELP &H\" or \"@NAME+ @INDEX\") in the stored\n"
    "language, or in language N (0 to 15), with the parameters filled in. The settings are\n"
    "read but never changed. The catalogues are looked for beside the program, or in\n"
    "$KXC_LIBRARY_DIR.";

// Reads through to the real store and keeps every change in memory, so that translating
// changes no setting.
class ReadOnlyOverlay : public SettingsStore {
 public:
  explicit ReadOnlyOverlay(std::shared_ptr<SettingsStore> base) : base_(std::move(base)) {}

  bool keyExists(SettingsRoot root, std::string_view key) override {
    return changes_.keyExists(root, key) || base_->keyExists(root, key);
  }
  bool createKey(SettingsRoot root, std::string_view key) override {
    return changes_.createKey(root, key);
  }
  std::optional<std::string> readValue(SettingsRoot root, std::string_view key,
                                       std::string_view name) override {
    if (auto value = changes_.readValue(root, key, name)) return value;
    return base_->readValue(root, key, name);
  }
  bool writeValue(SettingsRoot root, std::string_view key, std::string_view name,
                  std::string_view value) override {
    if (!keyExists(root, key)) return false;
    changes_.createKey(root, key);
    return changes_.writeValue(root, key, name, value);
  }

 private:
  std::shared_ptr<SettingsStore> base_;
  MemorySettingsStore changes_;
};

int run(const std::vector<std::string>& args) {
  std::optional<int> language;
  std::vector<std::string> words;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--lang" && i + 1 < args.size()) {
      double n = 0;
      if (!parseNumber(args[++i], n) || n < 0 || n > 15 || n != static_cast<int>(n)) {
        std::fprintf(stderr, "kxc translate: --lang takes a language number from 0 to 15\n");
        return 2;
      }
      language = static_cast<int>(n);
    } else {
      words.push_back(args[i]);
    }
  }
  if (words.empty() || words.size() > 5) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  auto overlay = std::make_shared<ReadOnlyOverlay>(FileSettingsStore::fromEnvironment());
  if (language) {
    overlay->createKey(SettingsRoot::User, kCacheSettingsKey);
    overlay->writeValue(SettingsRoot::User, kCacheSettingsKey, "CurrentLanguage",
                        std::to_string(*language));
  }
  AddInContext::Setup setup;
  setup.settings = overlay;
  setup.catalogues = openCatalogueFile;
  AddInContext context(std::move(setup));
  int status = 0;
  {
    Language lang;
    if (!lang.catalogueOpen()) {
      auto read = readCatalogueFile(cataloguePath(catalogueFolder(), kCatalogueFileName));
      if (read.problem && read.problem->line > 0) {
        std::fprintf(stderr, "%s:%zu: %s\n", read.problem->file.c_str(), read.problem->line,
                     read.problem->reason.c_str());
      } else if (read.problem) {
        std::fprintf(stderr, "%s: %s\n", read.problem->file.c_str(), read.problem->reason.c_str());
      }
      status = 1;
    }
    TransParam params[4];
    for (std::size_t i = 1; i < words.size(); ++i) params[i - 1] = Variant(words[i]);
    std::string text = lang.TransMesPlus(words[0], params[0], params[1], params[2], params[3]);
    std::printf("%s\n", text.c_str());
  }
  return status;
}

const KxcCommand kCommand({"translate", "show the translation of a key", kUsage, run});

}  // namespace
}  // namespace kxc::cli
