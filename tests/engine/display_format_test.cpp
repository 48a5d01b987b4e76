// Display formats of measures.
#include "engine/contract/display_format.h"

#include <gtest/gtest.h>

#include <limits>

namespace kxc::engine {
namespace {

TEST(DisplayFormat, FormatsLikeTheSpreadsheet) {
  struct Case {
    double value;
    const char* format;
    const char* expected;
  };
  const Case cases[] = {
      {1234.5, "#,##0.00", "1,234.50"},
      {-1234.5, "#,##0.00", "-1,234.50"},
      {1234567.891, "#,##0", "1,234,568"},
      {0, "#,##0.00", "0.00"},
      {2.5, "0", "3"},  // halves away from zero
      {-2.5, "0", "-3"},
      {2.675, "0.00", "2.68"},  // on the value's 15 digits, not its binary form
      {0.5, "#.##", ".5"},
      {5, "0.#", "5."},
      {1234.5, "$#,##0", "$1,235"},
      {-3.456, "$#,##0.00", "-$3.46"},
      {0.256, "0.0%", "25.6%"},
      {1500000, "#,##0,\"k\"", "1,500k"},
      {12345, "0.00E+00", "1.23E+04"},
      {0.000123, "0.0E-0", "1.2E-4"},
      {9.999, "0.00E+00", "1.00E+01"},
      {-5, "0;(0)", "(5)"},
      {0, "0;-0;\"zero\"", "zero"},
      {-0.004, "0.00", "0.00"},  // rounds to zero: no minus sign
      {42, "[$EUR-407] #,##0.00", "EUR 42.00"},
      {42, "[Red]0", "42"},
      {7, "00000", "00007"},
      {3.14159, "", "3.14159"},
      {3.14159, "General", "3.14159"},
      {1e20, "#,##0", "100,000,000,000,000,000,000"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(formatDisplay(c.value, c.format), c.expected) << c.value << " " << c.format;
  }
}

TEST(DisplayFormat, MissingValueIsBlank) {
  EXPECT_EQ(formatDisplay(std::numeric_limits<double>::quiet_NaN(), "#,##0.00"), "");
}

}  // namespace
}  // namespace kxc::engine
