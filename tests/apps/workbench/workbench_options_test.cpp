#include "workbench_options.h"

#include <gtest/gtest.h>

namespace kxc::workbench {
namespace {

struct Rejected {
  std::vector<std::string> args;
  std::string reason;
};

class RejectedOptions : public ::testing::TestWithParam<Rejected> {};

TEST_P(RejectedOptions, NameTheirProblem) {
  const ParsedOptions parsed = parseOptions(GetParam().args);
  EXPECT_EQ(parsed.error, GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, RejectedOptions,
    ::testing::Values(Rejected{{"--lang"}, "--lang takes a number from 0 to 15"},
                      Rejected{{"--lang", "16"}, "--lang takes a number from 0 to 15"},
                      Rejected{{"--lang", "-1"}, "--lang takes a number from 0 to 15"},
                      Rejected{{"--lang", "2x"}, "--lang takes a number from 0 to 15"},
                      Rejected{{"--db"}, "--db takes a database file"},
                      Rejected{{"--db", ""}, "--db takes a database file"},
                      Rejected{{"--screenshot"}, "--screenshot takes a PNG file"},
                      Rejected{{"--screenshot", "a.png", "--open", "menu"},
                               "--open takes builder, lookup, transactions or manager"},
                      Rejected{{"--open", "builder"}, "--open works with --screenshot"},
                      Rejected{{"--frobnicate"}, "unknown option --frobnicate"},
                      Rejected{{"a.xlsx", "b.xlsx"}, "only one workbook can be opened"}));

TEST(WorkbenchOptions, ReadsEveryOptionTogether) {
  const ParsedOptions parsed = parseOptions(
      {"--db", "c.db", "--lang", "15", "--screenshot", "s.png", "--open", "lookup", "book.ods"});
  ASSERT_EQ(parsed.error, "");
  EXPECT_EQ(parsed.options.databasePath, "c.db");
  EXPECT_EQ(parsed.options.language, int16_t{15});
  EXPECT_EQ(parsed.options.screenshot, "s.png");
  EXPECT_EQ(parsed.options.open, ScreenshotDialog::Lookup);
  EXPECT_EQ(parsed.options.file, "book.ods");
}

TEST(WorkbenchOptions, NoArgumentsStartOnTheSampleInTheSavedLanguage) {
  const ParsedOptions parsed = parseOptions({});
  EXPECT_EQ(parsed.error, "");
  EXPECT_FALSE(parsed.options.language.has_value());
  EXPECT_TRUE(parsed.options.file.empty());
  EXPECT_EQ(parsed.options.open, ScreenshotDialog::None);
}

TEST(WorkbenchOptions, LanguageZeroIsAChoiceNotAnAbsence) {
  const ParsedOptions parsed = parseOptions({"--lang", "0"});
  ASSERT_TRUE(parsed.options.language.has_value());
  EXPECT_EQ(*parsed.options.language, 0);
}

}  // namespace
}  // namespace kxc::workbench
