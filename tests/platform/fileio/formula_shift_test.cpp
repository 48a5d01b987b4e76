#include "platform/fileio/formula_shift.h"

#include <gtest/gtest.h>

namespace kxc::fileio {
namespace {

struct Shift {
  const char* formula;
  int rows;
  int columns;
  const char* shifted;
};

class FormulaShifts : public ::testing::TestWithParam<Shift> {};

TEST_P(FormulaShifts, MovesOnlyTheRelativeParts) {
  const Shift& s = GetParam();
  EXPECT_EQ(shiftFormula(s.formula, s.rows, s.columns), s.shifted);
}

INSTANTIATE_TEST_SUITE_P(
    Formulas, FormulaShifts,
    ::testing::Values(Shift{"=A1+$B$2+C$3+$D4", 2, 1, "=B3+$B$2+D$3+$D6"},
                      Shift{"=SUM(A1:B2)", 1, 0, "=SUM(A2:B3)"},
                      Shift{"=Sheet1!A1+'O''Neil'!B2", 1, 1, "=Sheet1!B2+'O''Neil'!C3"},
                      Shift{"=\"A1\"&A1", 1, 0, "=\"A1\"&A2"},
                      Shift{"=LOG10(A1)", 1, 0, "=LOG10(A2)"},
                      Shift{"=Region+ABC1D+TRUE", 5, 5, "=Region+ABC1D+TRUE"},
                      Shift{"=1.5E3+A1*2", 1, 0, "=1.5E3+A2*2"},
                      Shift{"=SUM(A:B)+SUM($C:D)", 3, 1, "=SUM(B:C)+SUM($C:E)"},
                      Shift{"=SUM(1:2)", 1, 3, "=SUM(2:3)"}, Shift{"=A1", -1, 0, "=#REF!"},
                      Shift{"=XFD1", 0, 1, "=#REF!"},
                      Shift{"=bv_KxcSum(\"Sales\",2,,\"<ALL>\",A1)", 1, 0,
                            "=bv_KxcSum(\"Sales\",2,,\"<ALL>\",A2)"},
                      Shift{"=#DIV/0!+A1", 1, 0, "=#DIV/0!+A2"},
                      Shift{"=Table1[Col A1]+A1", 1, 0, "=Table1[Col A1]+A2"},
                      Shift{"=\"open", 1, 0, "=\"open"}));

}  // namespace
}  // namespace kxc::fileio
