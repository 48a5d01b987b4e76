// Choosing Qt fonts for the model's font names, sizes and character sets.
#include "platform/qt/font_mapping.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace kxc::qt {
namespace {

using WS = QFontDatabase::WritingSystem;

// A desktop with the catalogue's fonts: DejaVu for Latin, Greek and Cyrillic, and the CJK
// families, each of which can show all four East Asian writing systems.
class FakeCatalog : public FontCatalog {
 public:
  struct Family {
    bool fixed;
    std::set<WS> systems;
  };
  FakeCatalog() {
    const std::set<WS> western{WS::Latin, WS::Greek, WS::Cyrillic};
    const std::set<WS> eastern{WS::Latin, WS::Japanese, WS::Korean, WS::SimplifiedChinese,
                               WS::TraditionalChinese};
    families_ = {
        {"DejaVu Sans", {false, western}},          {"DejaVu Sans Mono", {true, western}},
        {"Noto Sans CJK JP", {false, eastern}},     {"Noto Sans CJK KR", {false, eastern}},
        {"Noto Sans CJK SC", {false, eastern}},     {"Noto Sans CJK TC", {false, eastern}},
        {"Noto Sans Mono CJK JP", {true, eastern}}, {"Noto Serif CJK JP", {false, eastern}},
    };
  }
  bool hasFamily(const QString& family) const override { return families_.contains(family); }
  bool isFixedPitch(const QString& family) const override {
    auto it = families_.find(family);
    return it != families_.end() && it->second.fixed;
  }
  QStringList families(WS system) const override {
    QStringList out;
    for (const auto& [name, family] : families_) {
      if (system == WS::Any || family.systems.contains(system)) out << name;
    }
    return out;
  }
  QString sansFamily() const override { return "DejaVu Sans"; }
  QString monoFamily() const override { return "DejaVu Sans Mono"; }
  double basePointSize() const override { return base; }

  double base = kDesignFontSize;

 private:
  std::map<QString, Family> families_;
};

struct FontCase {
  const char* name;
  int charset;
  const char* family;
  WS system;
};

TEST(ChooseFont, PicksAFamilyThatCanShowTheCharacterSet) {
  const FontCase cases[] = {
      {"MS Sans Serif", 0, "DejaVu Sans", WS::Any},
      {"Courier New", 0, "DejaVu Sans Mono", WS::Any},
      {"courier new", 0, "DejaVu Sans Mono", WS::Any},
      {"DejaVu Sans", 238, "DejaVu Sans", WS::Latin},
      {"DejaVu Sans", 162, "DejaVu Sans", WS::Latin},
      {"DejaVu Sans", 204, "DejaVu Sans", WS::Cyrillic},
      {"Noto Sans CJK JP", 128, "Noto Sans CJK JP", WS::Japanese},
      {"Noto Sans Mono CJK JP", 128, "Noto Sans Mono CJK JP", WS::Japanese},
      // The design-time face cannot show the script: the region's own CJK family can.
      {"MS Sans Serif", 128, "Noto Sans CJK JP", WS::Japanese},
      {"MS Sans Serif", 129, "Noto Sans CJK KR", WS::Korean},
      {"MS Sans Serif", 130, "Noto Sans CJK KR", WS::Korean},
      {"MS Sans Serif", 134, "Noto Sans CJK SC", WS::SimplifiedChinese},
      {"MS Sans Serif", 136, "Noto Sans CJK TC", WS::TraditionalChinese},
      {"Courier New", 128, "Noto Sans Mono CJK JP", WS::Japanese},
      // A missing family falls back to the desktop's face of its pitch.
      {"MS Gothic", 0, "DejaVu Sans", WS::Any},
      {"Liberation Mono", 0, "DejaVu Sans Mono", WS::Any},
      {"", 0, "DejaVu Sans", WS::Any},
      // Nothing can show Thai here: the family stays what it would otherwise be.
      {"DejaVu Sans", 222, "DejaVu Sans", WS::Thai},
  };
  FakeCatalog catalog;
  for (const auto& c : cases) {
    const FontChoice choice = chooseFont({c.name, 8.25, c.charset}, catalog);
    EXPECT_EQ(choice.family, QString::fromUtf8(c.family)) << c.name << " / " << c.charset;
    EXPECT_EQ(choice.writingSystem, c.system) << c.name << " / " << c.charset;
  }
}

TEST(ChooseFont, SizesKeepTheirRatioToTheDesignSize) {
  FakeCatalog catalog;
  catalog.base = 10;
  EXPECT_DOUBLE_EQ(chooseFont({"MS Sans Serif", 8.25, 0}, catalog).pointSize, 10);
  EXPECT_DOUBLE_EQ(chooseFont({"MS Sans Serif", 16.5, 0}, catalog).pointSize, 20);
  EXPECT_DOUBLE_EQ(chooseFont({"MS Sans Serif", 9, 0}, catalog).pointSize, 11);  // 10.9 -> 11
  EXPECT_DOUBLE_EQ(chooseFont({"MS Sans Serif", 0, 0}, catalog).pointSize, 10);
  EXPECT_DOUBLE_EQ(chooseFont({"MS Sans Serif", -3, 0}, catalog).pointSize, 10);
  catalog.base = kDesignFontSize;
  EXPECT_DOUBLE_EQ(chooseFont({"MS Sans Serif", 12, 0}, catalog).pointSize, 12);
}

TEST(WritingSystemForCharset, KnowsTheEastAsianAndEuropeanSets) {
  EXPECT_EQ(writingSystemForCharset(128), WS::Japanese);
  EXPECT_EQ(writingSystemForCharset(129), WS::Korean);
  EXPECT_EQ(writingSystemForCharset(134), WS::SimplifiedChinese);
  EXPECT_EQ(writingSystemForCharset(136), WS::TraditionalChinese);
  EXPECT_EQ(writingSystemForCharset(204), WS::Cyrillic);
  EXPECT_EQ(writingSystemForCharset(161), WS::Greek);
  EXPECT_EQ(writingSystemForCharset(0), WS::Any);
  EXPECT_EQ(writingSystemForCharset(1), WS::Any);
}

TEST(SystemFontCatalog, ShowsJapaneseWithAnInstalledJapaneseFamily) {
  SystemFontCatalog catalog;
  if (catalog.families(WS::Japanese).isEmpty()) GTEST_SKIP() << "no Japanese fonts installed";
  const FontChoice choice = chooseFont({"MS Sans Serif", 9, 128}, catalog);
  EXPECT_TRUE(catalog.families(WS::Japanese).contains(choice.family))
      << choice.family.toStdString();
}

}  // namespace
}  // namespace kxc::qt
