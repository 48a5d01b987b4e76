#include "language/catalogue_check.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "language/language.h"
#include "language/used_keys.h"
#include "platform/catalogue_table.h"

namespace kxc {
namespace {

TEST(UsedKeys, CodesAndHintsSplitAtTheBlankAmpersand) {
  struct Case {
    const char* key;
    const char* code;
    const char* hint;
  };
  for (auto c : {Case{"@HELP &H", "HELP", "H"}, Case{"@SELECT_ALL&", "SELECT_ALL&", ""},
                 Case{"@MANAGER% &M", "MANAGER%", "M"}, Case{"@&COPY", "&COPY", ""},
                 Case{"@NAME", "NAME", ""}}) {
    EXPECT_EQ(keyCode(c.key), c.code) << c.key;
    EXPECT_EQ(keyHint(c.key), c.hint) << c.key;
  }
}

TEST(UsedKeys, EveryKeyIsAKeyAndListedOnce) {
  std::vector<std::string_view> keys;
  for (const auto& used : usedKeys()) {
    EXPECT_EQ(used.key.front(), '@') << used.key;
    keys.push_back(used.key);
  }
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end());
}

// A complete pair of tables for the keys in use, which each test then spoils in one way.
class CatalogueCheckTest : public ::testing::Test {
 protected:
  CatalogueCheckTest() {
    for (const auto& used : usedKeys()) {
      std::string code = keyCode(used.key);
      std::string value = "Text " + code;  // holds every hint letter used, upper-cased
      for (int n = 1; n <= used.placeholders; ++n) value += " %%" + std::to_string(n);
      texts[code] = std::vector<std::optional<std::string>>(16, value);
    }
    for (int l = 0; l < 16; ++l) {
      for (const char* suffix : {"_UserName", "_Font", "_FontFixed", "_F1CharSet"}) {
        char key[32];
        std::snprintf(key, sizeof key, "%02d%s", l, suffix);
        details[key] = "x";
      }
    }
  }
  std::vector<std::string> check(int columns = 18) {
    std::vector<std::string> names{"ID", "Code"};
    for (int c = 2; c < columns; ++c) names.push_back("L" + std::to_string(c - 2));
    std::vector<CatalogueRow> rows;
    for (const auto& [code, values] : texts) {
      CatalogueRow row{"1", code};
      row.insert(row.end(), values.begin(), values.end());
      rows.push_back(row);
    }
    std::vector<CatalogueRow> detailRows;
    for (const auto& [key, value] : details) detailRows.push_back({"1", key, value});
    MemoryCatalogueTable languages(names, rows);
    MemoryCatalogueTable detailTable({"ID", "KeyID", "Value"}, detailRows);
    return checkCatalogues(&languages, &detailTable);
  }
  std::map<std::string, std::vector<std::optional<std::string>>> texts;
  std::map<std::string, std::optional<std::string>> details;
};

TEST_F(CatalogueCheckTest, ACompleteCatalogueHasNoFindings) {
  EXPECT_EQ(check(), std::vector<std::string>{});
}

TEST_F(CatalogueCheckTest, ReportsEachKindOfGap) {
  texts.erase("KES_CACHE");
  texts["NAME"][3] = std::nullopt;
  texts["INDEX"][4] = "";
  texts["WB_OPEN_FAILED"][5] = "Cannot open %%1";
  texts["HELP"][6] = "Aide";
  details.erase("07_Font");
  details["08_UserName"] = std::nullopt;
  details["00_UserName"] = "English";
  auto findings = check();
  std::vector<std::string> expected = {
      "TmBvCacheLanguages.xml: key @KES_CACHE (code KES_CACHE) is missing",
      "TmBvCacheLanguages.xml: language 3 (x): lacks @NAME",
      "TmBvCacheLanguages.xml: language 4 (x): lacks @INDEX",
      "TmBvCacheLanguages.xml: language 5 (x): @WB_OPEN_FAILED drops %%2 in \"Cannot open %%1\"",
      "TmBvCacheLanguages.xml: language 6 (x): access key H of HELP cannot be placed in \"Aide\"",
      "TmBvCacheLanguageFontDetails.xml: language 7 has no 07_Font row",
      "TmBvCacheLanguageFontDetails.xml: the 08_UserName row has no value",
  };
  for (const auto& line : expected) {
    EXPECT_NE(std::find(findings.begin(), findings.end(), line), findings.end()) << line;
  }
  EXPECT_EQ(findings.size(), expected.size()) << ::testing::PrintToString(findings);
}

TEST_F(CatalogueCheckTest, MissingLanguageColumnsAreReportedOncePerLanguage) {
  auto findings = check(16);
  EXPECT_EQ(findings,
            (std::vector<std::string>{"TmBvCacheLanguages.xml: language 14 (x) has no column",
                                      "TmBvCacheLanguages.xml: language 15 (x) has no column"}));
}

TEST(CatalogueCheck, ATableWithoutACodeColumnIsOneFinding) {
  MemoryCatalogueTable languages({"ID", "Key"}, {});
  EXPECT_EQ(checkCatalogues(&languages, nullptr),
            std::vector<std::string>{"TmBvCacheLanguages.xml: there is no Code column"});
  EXPECT_TRUE(checkCatalogues(nullptr, nullptr).empty());
}

}  // namespace
}  // namespace kxc
