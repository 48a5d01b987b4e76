#include "language_fixture.h"

namespace kxc {
namespace {

using testing::LanguageTest;

class BrandingTest : public LanguageTest {
 protected:
  BrandingTest() {
    textAll("TITLE", "Kestra Cache Manager");
    textAll("PLAIN", "Kestra Manager");
  }
};

TEST_F(BrandingTest, OnlyYesSwitchesBrandingOn) {
  for (const char* enabled : {"yes", "YES", "Yes ", "1", ""}) {
    branding(enabled, "Acme");
    EXPECT_EQ(make()->TransMes("@TITLE"), "Kestra Cache Manager") << enabled;
  }
  branding("Yes", "Acme");
  EXPECT_EQ(make()->TransMes("@TITLE"), "Acme Cache Manager");
}

TEST_F(BrandingTest, TheBrandWordAlsoRenamesMissingKeys) {
  branding("Yes", "Acme");
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@Kestra_Title"), "!!Acme_Title");
  EXPECT_EQ(lang->TransMes("@KESTRA"), "!!KESTRA");  // case-sensitive
  EXPECT_EQ(lang->TransMes("Kestra"), "Kestra");     // plain texts are left alone
}

TEST_F(BrandingTest, AMissingNameInAnExistingKeyLeavesTheReaderFiller) {
  machineSetting("Software\\Kestra\\TmBvInstall\\Branding", "Enabled", "Yes");
  EXPECT_EQ(make()->TransMes("@PLAIN"), std::string(512, '*') + " Manager");
}

TEST_F(BrandingTest, RulesRewriteMatchingTextsBeforeTheBrandWord) {
  branding("Yes", "Acme");
  machineSetting(kBrandingRenameKey, "Count", "1");
  rule(1, "Pattern", "*Cache*");
  rule(1, "Replace", "Cache");
  rule(1, "With", "Store");
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@TITLE"), "Acme Store Manager");
  EXPECT_EQ(lang->TransMes("@PLAIN"), "Acme Manager");
}

TEST_F(BrandingTest, TheStateIsReadOncePerObject) {
  branding("Yes", "Acme");
  auto lang = make();
  EXPECT_EQ(lang->TransMes("OK"), "OK");  // any first call reads the state
  branding("No", "Other");
  EXPECT_EQ(lang->TransMes("@TITLE"), "Acme Cache Manager");
}

TEST_F(BrandingTest, ASkippedMiddleRuleLeavesAnEmptySlot) {
  branding("Yes", "Acme");
  machineSetting(kBrandingRenameKey, "Count", "3");
  rule(1, "Pattern", "*Cache*");
  rule(1, "Replace", "Cache");
  rule(1, "With", "Store");
  rule(2, "Pattern", "*");
  rule(2, "Replace", "Manager");  // no With: skipped
  rule(3, "Pattern", "*Manager");
  rule(3, "Replace", "Manager");
  rule(3, "With", "Console");
  auto lang = make();
  const auto& rules = lang->branding().rules();
  ASSERT_EQ(rules.size(), 3u);
  EXPECT_EQ(rules[1].Pattern, "");
  EXPECT_EQ(rules[1].With, "");
  EXPECT_EQ(lang->branding().ruleCount(), 3);
  EXPECT_EQ(lang->TransMes("@TITLE"), "Acme Store Console");
  EXPECT_EQ(lang->TransMes("@TITLE"), "Acme Store Console");  // later calls too
}

TEST_F(BrandingTest, InvalidRulesAreSkipped) {
  machineSetting(kBrandingRenameKey, "Count", "5");
  struct Rule {
    const char* pattern;
    const char* replace;
    const char* with;
  };
  const Rule rules[] = {
      {"  ", "a", "b"}, {"*", " ", "b"}, {"*", "a", ""}, {"*", "a", " "}, {"", "a", "b"}};
  for (int k = 1; k <= 5; ++k) {
    rule(k, "Pattern", rules[k - 1].pattern);
    rule(k, "Replace", rules[k - 1].replace);
    rule(k, "With", rules[k - 1].with);
  }
  auto lang = make();
  ASSERT_EQ(lang->branding().rules().size(), 4u);  // only rule 4 is valid: a blank With is one
  EXPECT_EQ(lang->branding().rules()[3].With, " ");
  EXPECT_EQ(lang->branding().rules()[0].Pattern, "");
}

TEST_F(BrandingTest, ACountPastTheLastValidRuleFailsOnlyAfterTheFirstCall) {
  branding("Yes", "Acme");
  textAll("MGR", "Kestra Cache Manager");
  machineSetting(kBrandingRenameKey, "Count", "3");
  rule(1, "Pattern", "*Cache*");
  rule(1, "Replace", "Cache");
  rule(1, "With", "Store");
  auto lang = make();
  ASSERT_EQ(lang->branding().rules().size(), 1u);
  // First call: the missing rules are skipped, the brand word and the access key follow.
  EXPECT_EQ(lang->TransMes("@MGR &S"), "Acme &Store Manager");
  // Later calls end at rule 2 with the text rewritten so far.
  EXPECT_EQ(lang->TransMes("@MGR &S"), "Kestra Store Manager");
}

TEST_F(BrandingTest, NoValidRuleAtAllAlsoFailsLaterCalls) {
  branding("Yes", "Acme");
  machineSetting(kBrandingRenameKey, "Count", "2");
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@TITLE"), "Acme Cache Manager");
  EXPECT_EQ(lang->TransMes("@TITLE"), "Kestra Cache Manager");
}

TEST_F(BrandingTest, CountsThatAreNoNumberGiveNoRules) {
  branding("Yes", "Acme");
  for (const char* count : {"abc", "", "99999999"}) {
    machineSetting(kBrandingRenameKey, "Count", count);
    auto lang = make();
    EXPECT_EQ(lang->branding().ruleCount(), 0) << count;
    lang->TransMes("@TITLE");
    EXPECT_EQ(lang->TransMes("@TITLE"), "Acme Cache Manager") << count;
  }
}

TEST_F(BrandingTest, AMalformedPatternEndsLaterCalls) {
  branding("Yes", "Acme");
  machineSetting(kBrandingRenameKey, "Count", "1");
  rule(1, "Pattern", "[Kestra");
  rule(1, "Replace", "Cache");
  rule(1, "With", "Store");
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@TITLE"), "Acme Cache Manager");
  EXPECT_EQ(lang->TransMes("@TITLE"), "Kestra Cache Manager");
}

TEST_F(BrandingTest, FindersHandBackTheDefaultWhenNotFound) {
  machineSetting(kBrandingKey, "Enabled", "Yes");
  auto lang = make();
  std::string value = "old";
  EXPECT_FALSE(lang->SystemBrandingFind("Enabled", value, "dflt"));
  EXPECT_EQ(value, "Yes");
  EXPECT_TRUE(lang->SystemBrandingFind("Name", value, "dflt"));
  EXPECT_EQ(value, "dflt");
  EXPECT_TRUE(lang->SystemBrandingRenameFind("Count", value, "0"));
  EXPECT_EQ(value, "0");
}

}  // namespace
}  // namespace kxc
