#include "platform/fileio/odf_formula.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace kxc::fileio {
namespace {

struct Conversion {
  const char* odf;
  const char* a1;
};

class OdfFormulaConverts : public ::testing::TestWithParam<Conversion> {};

TEST_P(OdfFormulaConverts, ToTheA1Form) {
  EXPECT_EQ(odfFormulaToA1(GetParam().odf), std::optional<std::string>(GetParam().a1));
}

INSTANTIATE_TEST_SUITE_P(
    Formulas, OdfFormulaConverts,
    ::testing::Values(Conversion{"of:=[.A1]+[.B2]", "=A1+B2"}, Conversion{"=[.A1]", "=A1"},
                      Conversion{"[.$A$1]*2", "=$A$1*2"}, Conversion{"oooc:=[.A1]", "=A1"},
                      Conversion{"of:=SUM([.A1:.B2];[.C3])", "=SUM(A1:B2,C3)"},
                      Conversion{"of:=[$'O''Neil'.$B$3]", "='O''Neil'!$B$3"},
                      Conversion{"of:=[$Sheet2.A1:.B2]", "=Sheet2!A1:B2"},
                      Conversion{"of:=[Sheet2.A1:Sheet2.B2]", "=Sheet2!A1:B2"},
                      Conversion{"of:=['My Data'.B1]", "='My Data'!B1"},
                      Conversion{"of:=SUM([.A:.A])", "=SUM(A:A)"},
                      Conversion{"of:=SUM([.$2:.$4])", "=SUM($2:$4)"},
                      Conversion{"of:=bv_KxcSum(\"Sales\";2;;\"<ALL>\";[.A1])",
                                 "=bv_KxcSum(\"Sales\",2,,\"<ALL>\",A1)"},
                      Conversion{"of:=BV_KXCSUM(\"a;b[.A1]\";\"say \"\"hi\"\"\")",
                                 "=BV_KXCSUM(\"a;b[.A1]\",\"say \"\"hi\"\"\")"},
                      Conversion{"of:=-BV_KXCSUM(\"Sales\";1)", "=-BV_KXCSUM(\"Sales\",1)"},
                      Conversion{"of:=IF([.A1]=#N/A;#DIV/0!;1)", "=IF(A1=#N/A,#DIV/0!,1)"},
                      Conversion{"of:=[.#REF!]+1", "=#REF!+1"},
                      Conversion{"of:=Region*2", "=Region*2"},
                      Conversion{"of:=[.A1:.B2]![.B1:.C3]", "=A1:B2 B1:C3"},
                      Conversion{"of:=[$'Sheet 1.2'.A1]", "='Sheet 1.2'!A1"},
                      Conversion{"of:=1.5E+3", "=1.5E+3"}));

TEST(OdfFormula, RefusesWhatHasNoA1Form) {
  for (const char* odf : {
           "of:=\"open",                        // a string left open
           "of:=[.A1",                          // a bracket left open
           "of:=A1]",                           // a bracket never opened
           "of:=[$Sheet1.A1:$Sheet2.B2]",       // across sheets
           "of:=['file:///x.ods'#$Sheet1.A1]",  // another file
           "of:=[.A1:.B]",                      // a cell with a whole column
           "of:=[.XFE1]",                       // beyond the last column
           "of:=[.A1048577]",                   // beyond the last row
           "of:=[.]",
       }) {
    EXPECT_EQ(odfFormulaToA1(odf), std::nullopt) << odf;
  }
}

TEST(OdfRange, ConvertsNamedRangeAddresses) {
  EXPECT_EQ(odfRangeToA1("$Sheet1.$A$1:.$B$2"), "Sheet1!$A$1:$B$2");
  EXPECT_EQ(odfRangeToA1("$'O''Neil'.$B$3"), "'O''Neil'!$B$3");
  EXPECT_EQ(odfRangeToA1(".B3"), "B3");
  EXPECT_EQ(odfRangeToA1("$Sheet1.$A$1 $Sheet1.$B$1"), std::nullopt);
  EXPECT_EQ(odfRangeToA1(""), std::nullopt);
}

}  // namespace
}  // namespace kxc::fileio
