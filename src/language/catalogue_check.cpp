#include "language/catalogue_check.h"

#include <algorithm>
#include <map>
#include <set>

#include "language/catalogue_folder.h"
#include "language/font_settings.h"
#include "language/language.h"
#include "language/used_keys.h"
#include "platform/catalogue_table.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

constexpr const char* kDetailSuffixes[] = {"_UserName", "_Font", "_FontFixed", "_F1CharSet"};

std::string languageLabel(const CatalogueTable* details, int language) {
  std::string label = "language " + std::to_string(language);
  if (!details) return label;
  if (auto row = details->findFirst("KeyID", detailsKey(language, "_UserName"))) {
    if (auto name = details->value(*row, 2)) label += " (" + *name + ")";
  }
  return label;
}

void checkDetails(const CatalogueTable& details, std::vector<std::string>& findings) {
  for (int language = 0; language < kLanguageCount; ++language) {
    for (const char* suffix : kDetailSuffixes) {
      std::string key = detailsKey(language, suffix);
      auto row = details.findFirst("KeyID", key);
      if (!row) {
        findings.push_back(std::string(kLanguageDetailsFileName) + ": language " +
                           std::to_string(language) + " has no " + key + " row");
      } else if (!details.value(*row, 2) || details.value(*row, 2)->empty()) {
        findings.push_back(std::string(kLanguageDetailsFileName) + ": the " + key +
                           " row has no value");
      }
    }
  }
}

void checkTranslations(const CatalogueTable& languages, const CatalogueTable* details,
                       std::vector<std::string>& findings) {
  const std::string file = kCatalogueFileName;
  const auto& columns = languages.columnNames();
  if (std::find(columns.begin(), columns.end(), "Code") == columns.end()) {
    findings.push_back(file + ": there is no Code column");
    return;
  }
  int present = std::min<int>(kLanguageCount, static_cast<int>(columns.size()) - 2);
  for (int language = std::max(present, 0); language < kLanguageCount; ++language) {
    findings.push_back(file + ": " + languageLabel(details, language) + " has no column");
  }
  // Several keys may share a code; each code is required once, with the most placeholders any
  // of its keys needs, and every hint of its keys.
  std::map<std::string, std::pair<int, std::set<std::string>>> codes;
  std::map<std::string, std::string> firstKey;
  for (const auto& used : usedKeys()) {
    std::string code = keyCode(used.key);
    auto& [placeholders, hints] = codes[code];
    placeholders = std::max(placeholders, used.placeholders);
    if (std::string hint = keyHint(used.key); !hint.empty()) hints.insert(hint);
    firstKey.try_emplace(code, std::string(used.key));
  }
  for (const auto& [code, needs] : codes) {
    const auto& [placeholders, hints] = needs;
    const std::string& key = firstKey[code];
    auto row = languages.findFirst("Code", code);
    if (!row) {
      findings.push_back(file + ": key " + key + " (code " + code + ") is missing");
      continue;
    }
    for (int language = 0; language < present; ++language) {
      std::string where = file + ": " + languageLabel(details, language) + ": ";
      auto text = languages.value(*row, static_cast<std::size_t>(language) + 2);
      if (!text || text->empty()) {
        findings.push_back(where + "lacks " + key);
        continue;
      }
      for (int n = 1; n <= placeholders; ++n) {
        std::string mark = "%%" + std::to_string(n);
        if (text->find(mark) == std::string::npos) {
          findings.push_back(where + key + " drops " + mark + " in \"" + *text + "\"");
        }
      }
      std::string plain = upperCase(replaceAll(*text, "&", ""));
      for (const auto& hint : hints) {
        if (plain.find(upperCase(hint)) == std::string::npos) {
          findings.push_back(where + "access key " + hint + " of " + code +
                             " cannot be placed in \"" + *text + "\"");
        }
      }
    }
  }
}

}  // namespace

std::vector<std::string> checkCatalogues(const CatalogueTable* languages,
                                         const CatalogueTable* details) {
  std::vector<std::string> findings;
  if (languages) checkTranslations(*languages, details, findings);
  if (details) checkDetails(*details, findings);
  return findings;
}

}  // namespace kxc
