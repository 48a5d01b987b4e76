#include "number_fit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kxc::workbench {
namespace {

FitsCell width(size_t characters) {
  return [characters](std::string_view text) { return text.size() <= characters; };
}

TEST(NumberFit, ShowsAsManyDigitsAsTheCellHolds) {
  struct Case {
    double value;
    size_t room;
    std::string shown;
  };
  const std::vector<Case> cases = {
      {3551425.4912345, 20, "3551425.4912345"},
      {3551425.4912345, 10, "3551425.49"},
      {3551425.4912345, 8, "3551425"},
      {3551425.5, 7, "3551426"},  // rounded, not cut
      {3551425.4912345, 6, "4E+06"},
      {35514254912345.0, 8, "3.55E+13"},
      {3551425.4912345, 4, "####"},
      {0.1 + 0.2, 20, "0.3"},  // 15 significant digits hide the binary residue
      {2.50, 10, "2.5"},
      {-0.0004, 6, "-4E-04"},  // not "0": the only digit would be lost
      {-0.0004, 5, "#####"},
      {-0.04, 4, "####"},
      {0.04, 3, "###"},
      {0.125, 4, "0.13"},  // halves round away from zero, as the sheet rounds
      {-0.125, 5, "-0.13"},
      {99.96, 4, "100"},
      {-99.96, 4, "-100"},
      {0.99999, 3, "1"},
      {2023, 11, "2023"},
      {-12.75, 5, "-12.8"},
      {9.999, 2, "10"},
      {1e20, 11, "1E+20"},
      {1.5e-12, 11, "1.5E-12"},
      {123456789012345678.0, 11, "1.23457E+17"},
      {0, 1, "0"},
      {-0.0, 5, "0"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(fitNumberText(c.value, width(c.room)), c.shown) << c.value << " in " << c.room;
  }
}

TEST(NumberFit, NeverOverflowsAndNeverComesBackEmpty) {
  const std::vector<double> values = {1,     -1,   1e308, -1e308, 5e-324, 123.456,
                                      -99.5, 1e15, 1e-9,  0.5,    -0.5,   7.0 / 3.0};
  for (double value : values) {
    for (size_t room = 1; room <= 24; ++room) {
      const std::string shown = fitNumberText(value, width(room));
      EXPECT_FALSE(shown.empty()) << value << " in " << room;
      EXPECT_LE(shown.size(), room) << value << " in " << room;
    }
  }
}

TEST(NumberFit, NotANumberShowsTheErrorValue) {
  EXPECT_EQ(fitNumberText(std::nan(""), width(20)), "#NUM!");
  EXPECT_EQ(fitNumberText(std::numeric_limits<double>::infinity(), width(20)), "#NUM!");
}

}  // namespace
}  // namespace kxc::workbench
