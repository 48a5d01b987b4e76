#include <gtest/gtest.h>

#include <string>

#include "platform/fileio/workbook_loader.h"
#include "temp_folder.h"
#include "workbook_compare.h"
#include "zip_builder.h"

namespace kxc::fileio {
namespace {

using testing::appWithCacheFunction;
using testing::odsFile;
using testing::TempFolder;
using testing::writeFile;

const char* const kTwoSheets = R"ods(
<table:table table:name="Summary">
  <table:table-row>
    <table:table-cell office:value-type="float" office:value="12.5"><text:p>12.5</text:p></table:table-cell>
    <table:table-cell office:value-type="string"><text:p>North</text:p></table:table-cell>
    <table:table-cell office:value-type="string"><text:p>123</text:p></table:table-cell>
    <table:table-cell office:value-type="date" office:date-value="2004-03-01T12:00:00"/>
  </table:table-row>
  <table:table-row>
    <table:table-cell table:formula="of:=bv_KxcSum(&quot;Sales&quot;;2;;&quot;&lt;ALL&gt;&quot;;[$'O''Neil'.$B$3])" office:value-type="float" office:value="99"/>
    <table:table-cell table:formula="of:=[.A1]*2+SUM([.A1:.A2])" office:value-type="float" office:value="99"/>
    <table:table-cell table:formula="of:=Region&amp;&quot;!&quot;" office:value-type="string" office:string-value="stale"/>
    <table:table-cell table:formula="of:=[$'O''Neil'.A1:$Summary.B2]"/>
  </table:table-row>
  <table:table-row table:number-rows-repeated="2">
    <table:table-cell table:number-columns-repeated="2"/>
    <table:table-cell office:value-type="float" office:value="7"/>
  </table:table-row>
</table:table>
<table:table table:name="O'Neil">
  <table:table-row><table:table-cell/></table:table-row>
  <table:table-row><table:table-cell/></table:table-row>
  <table:table-row>
    <table:table-cell/>
    <table:table-cell office:value-type="string"><text:p>Sales</text:p></table:table-cell>
  </table:table-row>
</table:table>
<table:named-expressions>
  <table:named-range table:name="Region" table:base-cell-address="$Summary.$A$1" table:cell-range-address="$'O''Neil'.$B$3"/>
  <table:named-range table:name="Block" table:base-cell-address="$Summary.$A$1" table:cell-range-address="$Summary.$A$1:.$B$2"/>
  <table:named-expression table:name="Twice" table:base-cell-address="$Summary.$A$1" table:expression="of:=[.$A$1]*2"/>
</table:named-expressions>
)ods";

class OdsLoad : public ::testing::Test {
 protected:
  LoadResult load(const std::string& name, const std::string& bytes) {
    std::string path = folder.file(name);
    writeFile(path, bytes);
    return loadWorkbook(*app, path);
  }

  std::string formula(const char* sheet, int row, int column) {
    return app->cellFormula("Report.ods", sheet, row, column);
  }

  std::shared_ptr<workbook::InMemoryApplication> app = appWithCacheFunction();
  TempFolder folder;
};

TEST_F(OdsLoad, ReadsValuesAndConvertsFormulasToA1) {
  LoadResult result = load("Report.ods", odsFile(kTwoSheets));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(result.workbookName, "Report.ods");
  EXPECT_EQ(app->sheetNames("Report.ods"), (std::vector<std::string>{"Summary", "O'Neil"}));

  EXPECT_EQ(app->cellValue("Report.ods", "Summary", 1, 1), Variant(12.5));
  EXPECT_EQ(app->cellValue("Report.ods", "Summary", 1, 2), Variant("North"));
  EXPECT_EQ(app->cellValue("Report.ods", "Summary", 1, 3), Variant("123"));    // stays a text
  EXPECT_EQ(app->cellValue("Report.ods", "Summary", 1, 4), Variant(38047.5));  // a serial date
  EXPECT_EQ(app->cellValue("Report.ods", "O'Neil", 3, 2), Variant("Sales"));

  EXPECT_EQ(formula("Summary", 2, 1), "=bv_KxcSum(\"Sales\",2,,\"<ALL>\",'O''Neil'!$B$3)");
  EXPECT_EQ(formula("Summary", 2, 2), "=A1*2+SUM(A1:A2)");
  EXPECT_EQ(formula("Summary", 2, 3), "=Region&\"!\"");
  // Values are calculated here, not taken from the file.
  EXPECT_EQ(app->displayText("Summary!A2"), "4");
  EXPECT_EQ(app->displayText("Summary!B2"), "41.5");
  EXPECT_EQ(app->displayText("Summary!C2"), "Sales!");
}

TEST_F(OdsLoad, EveryKindOfValueIsRead) {
  LoadResult result = load("Report.ods", odsFile(R"ods(
<table:table table:name="Kinds"><table:table-row>
  <table:table-cell office:value-type="boolean" office:boolean-value="true"><text:p>TRUE</text:p></table:table-cell>
  <table:table-cell office:value-type="boolean" office:boolean-value="false"/>
  <table:table-cell office:value-type="percentage" office:value="0.25"><text:p>25%</text:p></table:table-cell>
  <table:table-cell office:value-type="currency" office:currency="EUR" office:value="1234.5"/>
  <table:table-cell office:value-type="time" office:time-value="PT18H00M00S"/>
  <table:table-cell office:value-type="time" office:time-value="PT36H"/>
  <table:table-cell office:value-type="string"><text:p>first <text:span>line</text:span></text:p><text:p>second<text:s text:c="2"/>line<text:tab/>end</text:p><office:annotation><text:p>a comment</text:p></office:annotation></table:table-cell>
  <table:table-cell office:value-type="string"><text:p>one paragraph</text:p><office:annotation><text:p>ignored</text:p></office:annotation></table:table-cell>
</table:table-row></table:table>)ods"));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  auto value = [&](int column) { return app->cellValue("Report.ods", "Kinds", 1, column); };
  EXPECT_EQ(value(1), Variant(true));
  EXPECT_EQ(value(2), Variant(false));
  EXPECT_EQ(value(3), Variant(0.25));
  EXPECT_EQ(value(4), Variant(1234.5));
  EXPECT_EQ(value(5), Variant(0.75));
  EXPECT_EQ(value(6), Variant(1.5));
  EXPECT_EQ(value(7), Variant("first line\nsecond  line\tend"));
  EXPECT_EQ(value(8), Variant("one paragraph"));
}

TEST_F(OdsLoad, RepeatedRowsAndCellsAreAllFilled) {
  LoadResult result = load("Report.ods", odsFile(R"ods(
<table:table table:name="Rep">
  <table:table-row table:number-rows-repeated="3">
    <table:table-cell table:number-columns-repeated="2" office:value-type="float" office:value="7"/>
    <table:table-cell table:number-columns-repeated="2" table:formula="of:=[.A1]+[$Rep.$A$1]"/>
  </table:table-row>
  <table:table-row table:number-rows-repeated="1048570"><table:table-cell table:number-columns-repeated="16384"/></table:table-row>
</table:table>)ods"));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(app->usedRange("Report.ods", "Rep"), (workbook::Area{1, 1, 3, 4}));
  for (int row = 1; row <= 3; ++row) {
    SCOPED_TRACE(row);
    EXPECT_EQ(app->cellValue("Report.ods", "Rep", row, 2), Variant(7.0));
    // Each copy of a formula reads from its own place, as copied formulas do.
    EXPECT_EQ(app->cellFormula("Report.ods", "Rep", row, 3),
              "=A" + std::to_string(row) + "+Rep!$A$1");
    EXPECT_EQ(app->cellFormula("Report.ods", "Rep", row, 4),
              "=B" + std::to_string(row) + "+Rep!$A$1");
  }
}

TEST_F(OdsLoad, NamesThatAreRangesAreDefinedAndOthersNoted) {
  LoadResult result = load("Report.ods", odsFile(kTwoSheets));
  ASSERT_TRUE(result.ok());
  auto book = app->model().findWorkbook("Report.ods");
  ASSERT_EQ(book->names().size(), 2u);
  EXPECT_EQ(app->range("Region")->address(true, true, true), "'[Report.ods]O''Neil'!$B$3");
  EXPECT_EQ(app->range("Block")->address(true, true, true), "[Report.ods]Summary!$A$1:$B$2");
  std::string notes;
  for (const auto& n : result.notes) notes += n + "\n";
  EXPECT_NE(notes.find("name Twice left out"), std::string::npos) << notes;
  // A reference across two sheets has no A1 form: the cell keeps the text and says so.
  EXPECT_NE(notes.find("Summary!D2: formula kept as written"), std::string::npos) << notes;
  EXPECT_EQ(app->displayText("Summary!D2"), "#NAME?");
}

TEST_F(OdsLoad, TheFormatIsToldByTheContentNotTheName) {
  LoadResult result = load("Report.xlsx", odsFile(kTwoSheets));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(app->cellFormula("Report.xlsx", "Summary", 2, 2), "=A1*2+SUM(A1:A2)");
}

}  // namespace
}  // namespace kxc::fileio
