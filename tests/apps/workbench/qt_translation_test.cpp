#include "qt_translation.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <fstream>
#include <sstream>

#include "gui_environment.h"

namespace kxc::workbench {
namespace {

// Qt writes a language's region with "_", the catalogue's column codes with "-", and names
// Chinese by region rather than by script.
std::string qtNameOfColumn(std::string column) {
  if (column == "zh-Hans") return "zh_CN";
  if (column == "zh-Hant") return "zh_TW";
  for (char& c : column) c = c == '-' ? '_' : c;
  return column;
}

TEST(QtTranslation, LocalesFollowTheCataloguesLanguageOrder) {
  std::ifstream table(std::string(KXC_SOURCE_DIR) + "/data/languages.tsv");
  ASSERT_TRUE(table) << "languages.tsv";
  std::string line;
  int languages = 0;
  while (std::getline(table, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    std::string number, column;
    std::getline(fields, number, '\t');
    std::getline(fields, column, '\t');
    EXPECT_EQ(qtLocaleName(static_cast<int16_t>(std::stoi(number))), qtNameOfColumn(column))
        << line;
    ++languages;
  }
  EXPECT_EQ(languages, 16);
  EXPECT_EQ(qtLocaleName(-1), "");
  EXPECT_EQ(qtLocaleName(16), "");
}

TEST(QtTranslation, QtsOwnButtonsSpeakTheChosenLanguage) {
  const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
  QtTranslation translation;
  EXPECT_TRUE(translation.follow(2));
  EXPECT_EQ(cancel(), "Abbrechen");
  EXPECT_TRUE(translation.follow(3));
  EXPECT_EQ(cancel(), "Annuler") << "the earlier translation is replaced, not stacked";
  EXPECT_FALSE(translation.follow(0));
  EXPECT_EQ(cancel(), "Cancel");
  EXPECT_TRUE(translation.follow(1));
  EXPECT_FALSE(translation.follow(99));
  EXPECT_EQ(cancel(), "Cancel");
}

}  // namespace
}  // namespace kxc::workbench
