#include <gtest/gtest.h>

#include <string>

#include "platform/fileio/workbook_loader.h"
#include "temp_folder.h"
#include "workbook_compare.h"
#include "zip_builder.h"

namespace kxc::fileio {
namespace {

using testing::appWithCacheFunction;
using testing::TempFolder;
using testing::writeFile;
using testing::xlsxFile;

// Files as other programs write them: shared formulas, names that belong to a sheet, names
// the format keeps for itself, cached results that are out of date.
class XlsxLoad : public ::testing::Test {
 protected:
  LoadResult load(const std::string& bytes) {
    std::string path = folder.file("Made.xlsx");
    writeFile(path, bytes);
    return loadWorkbook(*app, path);
  }
  std::string formula(const char* sheet, int row, int column) {
    return app->cellFormula("Made.xlsx", sheet, row, column);
  }
  Variant value(const char* sheet, int row, int column) {
    return app->cellValue("Made.xlsx", sheet, row, column);
  }

  std::shared_ptr<workbook::InMemoryApplication> app = appWithCacheFunction();
  TempFolder folder;
};

TEST_F(XlsxLoad, SharedFormulasAreSpreadWithTheirReferencesMoved) {
  LoadResult result = load(xlsxFile({{"Data", R"(
<row r="1"><c r="A1"><v>1</v></c><c r="B1"><f t="shared" ref="B1:C3" si="0">A1*2+$A$1</f><v>0</v></c>
  <c r="C1"><f t="shared" si="0"/><v>0</v></c></row>
<row r="2"><c r="A2"><v>2</v></c><c r="B2"><f t="shared" si="0"/><v>0</v></c></row>
<row r="3"><c r="A3"><v>3</v></c><c r="B3"><f t="shared" si="0"/></c><c r="C3"><f t="shared" si="7"/></c></row>)"}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(formula("Data", 1, 2), "=A1*2+$A$1");
  EXPECT_EQ(formula("Data", 1, 3), "=B1*2+$A$1");
  EXPECT_EQ(formula("Data", 2, 2), "=A2*2+$A$1");
  EXPECT_EQ(formula("Data", 3, 2), "=A3*2+$A$1");
  EXPECT_EQ(app->displayText("Data!B3"), "7");  // calculated, the file has no result
  EXPECT_EQ(formula("Data", 3, 3), "");         // its shared formula is missing: left out and noted
  ASSERT_EQ(result.notes.size(), 1u);
  EXPECT_EQ(result.notes[0], "Data!C3: shared formula missing from the file");
}

TEST_F(XlsxLoad, CellsOfEachTypeAreReadAndCachedResultsIgnored) {
  LoadResult result =
      load(xlsxFile({{"Data", R"(
<row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" t="b"><v>0</v></c>
  <c r="C1" t="b"><v>1</v></c><c r="D1"><v>-2.5E-3</v></c>
  <c r="E1" t="str"><f>bv_KxcSum("Sales",2,,"&lt;ALL&gt;",'O''Neil'!$B$3)</f><v>stale</v></c>
  <c r="F1" t="s"><v>1</v></c></row>)"},
                     {"O'Neil", R"(<row r="3"><c r="B3" t="s"><v>0</v></c></row>)"}},
                    {"North", "=not a formula"}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(value("Data", 1, 1), Variant("North"));
  EXPECT_EQ(value("Data", 1, 2), Variant(false));
  EXPECT_EQ(value("Data", 1, 3), Variant(true));
  EXPECT_EQ(value("Data", 1, 4), Variant(-0.0025));
  EXPECT_EQ(formula("Data", 1, 5), "=bv_KxcSum(\"Sales\",2,,\"<ALL>\",'O''Neil'!$B$3)");
  EXPECT_EQ(value("Data", 1, 5), Variant(4.0));
  EXPECT_EQ(value("Data", 1, 6), Variant("=not a formula"));
}

TEST_F(XlsxLoad, AnArrayFormulaIsKeptInItsFirstCell) {
  LoadResult result = load(xlsxFile({{"Data", R"(
<row r="1"><c r="A1" t="e"><v>#N/A</v></c><c r="B1"><f t="array" ref="B1:B2">A3:A4*2</f><v>1</v></c></row>
<row r="3"><c r="A3"><v>5</v></c></row>)"}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(formula("Data", 1, 2), "=A3:A4*2");
  ASSERT_EQ(result.notes.size(), 1u);
  EXPECT_EQ(result.notes[0],
            "Data!B1: array formula kept as an ordinary formula in its first cell");
  EXPECT_EQ(formula("Data", 2, 2), "");
}

TEST_F(XlsxLoad, NamesOfSheetsAndBuiltInNamesAreHandled) {
  LoadResult result = load(xlsxFile(
      {{"Data", R"(<row r="1"><c r="A1"><f>SUM(Block)</f></c><c r="B1"><v>4</v></c></row>)"},
       {"Other", ""}},
      {},
      R"(<definedName name="Block">Data!$B$1:$B$2</definedName>
         <definedName name="Local" localSheetId="1">Other!$A$1</definedName>
         <definedName name="_xlnm.Print_Area" localSheetId="0">Data!$A$1:$C$9</definedName>
         <definedName name="Rate">0.96</definedName>
         <definedName name="block">Data!$C$1</definedName>)"));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  std::vector<std::string> names;
  for (const auto& n : app->model().findWorkbook("Made.xlsx")->names()) names.push_back(n.name);
  EXPECT_EQ(names, (std::vector<std::string>{"Block", "Local"}));
  EXPECT_EQ(app->displayText("Data!A1"), "4");
  std::string notes;
  for (const auto& n : result.notes) notes += n + "\n";
  EXPECT_NE(notes.find("name Rate left out: it does not name one range (0.96)"), std::string::npos)
      << notes;
  EXPECT_NE(notes.find("name block left out: it is defined twice"), std::string::npos) << notes;
}

}  // namespace
}  // namespace kxc::fileio
