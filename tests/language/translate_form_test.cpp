#include "language_fixture.h"
#include "platform/controls/command_button.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/list_view.h"
#include "platform/controls/text_box.h"

namespace kxc {
namespace {

using testing::LanguageTest;
using namespace controls;

TEST(FontSizeRule, EveryBranch) {
  struct Case {
    bool doubleByte;
    int16_t charSet;
    double size;
    std::optional<double> out;
  };
  for (auto c : {Case{true, 0, 8, 9}, Case{true, 0, 8.25, 9}, Case{true, 134, 8.9, 9},
                 Case{true, 0, 9, std::nullopt}, Case{true, 0, 12, std::nullopt},
                 Case{false, 128, 8, 10}, Case{false, 130, 9.75, 10}, Case{false, 134, 9.75, 10},
                 Case{false, 136, 9, 10}, Case{false, 134, 12, std::nullopt},
                 Case{false, 134, 10, std::nullopt}, Case{false, 0, 9, 8}, Case{false, 0, 9.75, 8},
                 Case{false, 238, 9.5, 8}, Case{false, 0, 8.25, std::nullopt},
                 Case{false, 0, 10, std::nullopt}, Case{false, 129, 8, std::nullopt}}) {
    FontSettings fonts;
    fonts.doubleByte = c.doubleByte;
    fonts.charSet = c.charSet;
    EXPECT_EQ(translatedFontSize(c.size, fonts), c.out)
        << c.doubleByte << " " << c.charSet << " " << c.size;
  }
}

class FontsTest : public LanguageTest {
 protected:
  FontsTest() {
    detail("00_Font", "Sans 0");
    detail("00_FontFixed", "Mono 0");
    detail("00_F1CharSet", "0");
    detail("06_Font", "CJK Sans");
    detail("06_FontFixed", "CJK Mono");
    detail("06_F1CharSet", "134");
    detail("09_F1CharSet", "abc");
    textAll("OK&", "&OK");
    textAll("NAME", "Name");
    textAll("INDEX", "Index");
    textAll("HELP", "Help");
    textAll("TITLE", "Formula");
  }
};

TEST_F(FontsTest, NamesAreCrossedOverAndDefaultsFillMissingRows) {
  auto lang = make();
  EXPECT_EQ(lang->FontPropName(), "Mono 0");
  EXPECT_EQ(lang->FontFixedName(), "Sans 0");
  lang->CurrentLanguage(int16_t{6});
  EXPECT_EQ(lang->FontPropName(), "CJK Mono");
  EXPECT_EQ(lang->FontFixedName(), "CJK Sans");
  EXPECT_EQ(lang->FontCharSet(), 134);
  EXPECT_TRUE(lang->FontIsDoubleByte());
  lang->CurrentLanguage(int16_t{3});
  EXPECT_EQ(lang->FontPropName(), "Courier New");
  EXPECT_EQ(lang->FontFixedName(), "MS Sans Serif");
  EXPECT_EQ(lang->FontCharSet(), 0);
  EXPECT_FALSE(lang->FontIsDoubleByte());
  lang->CurrentLanguage(int16_t{9});
  EXPECT_EQ(lang->FontCharSet(), 0);  // "abc" is no character set
}

TEST_F(FontsTest, DoubleByteLanguagesAreOneSixAndSeven) {
  auto lang = make();
  for (int16_t l = 0; l < 16; ++l) {
    lang->CurrentLanguage(l);
    EXPECT_EQ(lang->FontIsDoubleByte(), l == 1 || l == 6 || l == 7) << l;
  }
}

TEST_F(FontsTest, ClosedDetailsGiveTheDefaults) {
  auto lang = make(true, false);
  EXPECT_EQ(lang->FontPropName(), "Courier New");
  EXPECT_EQ(lang->FontFixedName(), "MS Sans Serif");
}

TEST_F(FontsTest, ACourierButtonBecomesTheFixedFontAtNinePointsForLanguageSix) {
  userSetting("CurrentLanguage", "6");
  Form form("frmTest");
  auto& button = form.add<CommandButton>("cmdOk");
  button.setFontName("Courier New");
  button.setFontSize(8);
  auto& label = form.add<Label>("lblName");
  label.setFontName("MS Sans Serif");
  label.setFontSize(9.75);
  make()->TranslateForm(form);
  EXPECT_EQ(button.fontName(), "CJK Mono");
  EXPECT_EQ(button.fontSize(), 9);
  EXPECT_EQ(label.fontName(), "CJK Sans");
  EXPECT_EQ(label.fontSize(), 9.75);
  EXPECT_EQ(label.font().charset(), 0);  // the FontName path leaves the character set
}

TEST_F(FontsTest, ANinePointLabelShrinksForLanguageZero) {
  Form form("frmTest");
  auto& label = form.add<Label>("lblName");
  label.setFontName("MS Sans Serif");
  label.setFontSize(9);
  auto& courier = form.add<TextBox>("txtCode");
  courier.setFontName("courier");
  courier.setFontSize(12);
  make()->TranslateForm(form);
  EXPECT_EQ(label.fontName(), "Sans 0");
  EXPECT_EQ(label.fontSize(), 8);
  EXPECT_EQ(courier.fontName(), "Mono 0");
  EXPECT_EQ(courier.fontSize(), 12);
}

TEST_F(FontsTest, ControlsWithOnlyAFontObjectGetTheProportionalFontAndCharacterSet) {
  userSetting("CurrentLanguage", "6");
  Form form("frmTest");
  auto& list = form.add<ListView>("lvList");
  list.font().setName("Courier New");  // not consulted on this path
  list.font().setSize(9.75);
  make()->TranslateForm(form);
  EXPECT_EQ(list.font().name(), "CJK Sans");
  EXPECT_EQ(list.font().size(), 9.75);  // double-byte: only sizes under 9 grow
  EXPECT_EQ(list.font().charset(), 134);
}

TEST_F(FontsTest, ACharacterSetOfZeroIsNotWritten) {
  Form form("frmTest");
  auto& list = form.add<ListView>("lvList");
  list.font().setCharset(238);
  make()->TranslateForm(form);
  EXPECT_EQ(list.font().charset(), 238);
  EXPECT_EQ(list.font().name(), "Sans 0");
}

TEST_F(FontsTest, CaptionsComeFromTagsOfButtonsLabelsHeadersAndTheForm) {
  Form form("frmTest");
  form.setTag("@TITLE");
  form.setCaption("design");
  auto& ok = form.add<CommandButton>("cmdOk");
  ok.setTag("@OK&");
  auto& help = form.add<CommandButton>("cmdHelp");
  help.setTag("@HELP &H");
  auto& untagged = form.add<Label>("lblKeep");
  untagged.setCaption("kept");
  auto& plain = form.add<Label>("lblPlain");
  plain.setTag("Plain words");
  auto& missing = form.add<Label>("lblMissing");
  missing.setTag("@VALUE");
  auto& box = form.add<TextBox>("txtName");
  box.setTag("@NAME");
  auto& list = form.add<ListView>("lvList");
  list.columnHeaders().add(0, "a", "design a").setTag("@NAME");
  list.columnHeaders().add(0, "b", "design b").setTag("@INDEX");
  list.columnHeaders().add(0, "c", "design c");
  make()->TranslateForm(form);
  EXPECT_EQ(form.caption(), "Formula");
  EXPECT_EQ(ok.caption(), "&OK");
  EXPECT_EQ(help.caption(), "&Help");
  EXPECT_EQ(untagged.caption(), "kept");
  EXPECT_EQ(plain.caption(), "Plain words");
  EXPECT_EQ(missing.caption(), "!!VALUE");
  EXPECT_EQ(list.columnHeaders().item(1).text(), "Name");
  EXPECT_EQ(list.columnHeaders().item(2).text(), "Index");
  EXPECT_EQ(list.columnHeaders().item(3).text(), "design c");  // empty tag: empty result
  EXPECT_EQ(box.tag(), "@NAME");
}

TEST_F(FontsTest, AnEmptyTranslationKeepsTheCaption) {
  Form form("frmTest");
  auto& ok = form.add<CommandButton>("cmdOk");
  ok.setCaption("OK");
  ok.setTag("@OK&");
  make(false)->TranslateForm(form);  // closed catalogue: every key translates to ""
  EXPECT_EQ(ok.caption(), "OK");
}

TEST_F(FontsTest, TranslateFormFollowsTheStoredLanguage) {
  textAll("NAME", "Name");
  text("NAME", 2, "Bezeichnung");
  Form form("frmTest");
  auto& label = form.add<Label>("lblName");
  label.setTag("@NAME");
  auto lang = make();
  userSetting("CurrentLanguage", "2");
  lang->TranslateForm(form);
  EXPECT_EQ(label.caption(), "Bezeichnung");
  EXPECT_EQ(lang->CurrentLanguage(), 2);
}

}  // namespace
}  // namespace kxc
