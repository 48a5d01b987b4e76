#include "platform/fileio/xlsx_supplement.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/fileio/spreadsheet_reader.h"
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
using testing::xlsxPackage;
using testing::ZipBuilder;

std::string inlineCell(const std::string& ref, const std::string& is) {
  return "<c r=\"" + ref + "\" t=\"inlineStr\"><is>" + is + "</is></c>";
}

class XlsxSupplementLoad : public ::testing::Test {
 protected:
  LoadResult load(const std::string& bytes) {
    std::string path = folder.file("Other.xlsx");
    writeFile(path, bytes);
    return loadWorkbook(*app, path);
  }
  Variant value(const char* sheet, int row, int column) {
    return app->cellValue("Other.xlsx", sheet, row, column);
  }
  std::string text(const std::string& address) { return app->displayText(address); }

  std::shared_ptr<workbook::InMemoryApplication> app = appWithCacheFunction();
  TempFolder folder;
};

TEST_F(XlsxSupplementLoad, InlineStringsBecomeTextsAsWritten) {
  struct Case {
    const char* is;
    std::string expected;
  } cases[] = {
      {"<t>North</t>", "North"},
      {"<r><rPr><b/></rPr><t>Nor</t></r><r><t>th</t></r>", "North"},
      {"<t>R&amp;D &lt;1&gt; &quot;q&quot; &#65;</t>", "R&D <1> \"q\" A"},
      {"<t xml:space=\"preserve\">  two words </t>", "  two words "},
      {"<r><t xml:space=\"preserve\">a </t></r><r><t>b</t></r>", "a b"},
      {"<t>Zürich – 東京</t>", "Zürich – 東京"},
      {"<t>123</t>", "123"},  // stays a text
      {"<t>=1+1</t>", "=1+1"},
      {"<t>#N/A</t>", "#N/A"},
      {"<t>line_x000A_two</t>", "line\ntwo"},
      {"<t>東京</t><rPh sb=\"0\" eb=\"2\"><t>トウキョウ</t></rPh><phoneticPr fontId=\"1\"/>",
       "東京"},
  };
  std::string rows;
  for (size_t i = 0; i < std::size(cases); ++i) {
    std::string row = std::to_string(i + 1);
    rows += "<row r=\"" + row + "\">" + inlineCell("B" + row, cases[i].is) + "</row>";
  }
  LoadResult result = load(xlsxFile({{"Data", rows}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_TRUE(result.notes.empty());
  for (size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(value("Data", static_cast<int>(i + 1), 2), Variant(cases[i].expected)) << cases[i].is;
  }
}

TEST_F(XlsxSupplementLoad, ErrorConstantsBecomeErrorValues) {
  struct Case {
    const char* text;
    CellError error;
  } cases[] = {{"#N/A", cellerr::kNA},       {"#DIV/0!", cellerr::kDiv0},
               {"#VALUE!", cellerr::kValue}, {"#REF!", cellerr::kRef},
               {"#NAME?", cellerr::kName},   {"#NUM!", cellerr::kNum},
               {"#NULL!", cellerr::kNull},   {" #N/A ", cellerr::kNA}};
  std::string rows;
  for (size_t i = 0; i < std::size(cases); ++i) {
    std::string row = std::to_string(i + 1);
    rows += "<row r=\"" + row + "\"><c r=\"A" + row + "\" t=\"e\"><v>" + cases[i].text +
            "</v></c><c r=\"B" + row + "\"><f>A" + row + "</f></c></row>";
  }
  LoadResult result = load(xlsxFile({{"Data", rows}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_TRUE(result.notes.empty());
  for (size_t i = 0; i < std::size(cases); ++i) {
    int row = static_cast<int>(i + 1);
    EXPECT_EQ(value("Data", row, 1), Variant(cases[i].error)) << cases[i].text;
    EXPECT_EQ(value("Data", row, 2), Variant(cases[i].error)) << "a formula sees " << cases[i].text;
  }
}

TEST_F(XlsxSupplementLoad, FormulaCellsKeepTheirFormulaWhateverTheirCachedResult) {
  LoadResult result = load(xlsxFile({{"Data", R"(<row r="1">
    <c r="A1" t="e"><f>1/0</f><v>#DIV/0!</v></c>
    <c r="B1" t="str"><f>"x"&amp;"y"</f><v>stale</v></c>
    <c r="C1" t="inlineStr"><f>2+3</f><is><t>stale</t></is></c></row>)"}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(app->cellFormula("Other.xlsx", "Data", 1, 1), "=1/0");
  EXPECT_EQ(value("Data", 1, 2), Variant("xy"));
  EXPECT_EQ(value("Data", 1, 3), Variant(5.0));
}

TEST_F(XlsxSupplementLoad, UnknownErrorsStayTextsAndCellsWithoutContentStayEmpty) {
  LoadResult result = load(xlsxFile({{"Data", R"(<row r="2"><c r="C2" t="e"><v>#SPILL!</v></c>
    <c r="D2" t="e"><v/></c><c r="E2" t="inlineStr"/><c r="F2" t="e"/></row>)"}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(value("Data", 2, 3), Variant("#SPILL!"));
  for (int column : {4, 5, 6}) {
    EXPECT_TRUE(
        app->model().findWorkbook("Other.xlsx")->findSheet("Data")->cells().find(2, column) ==
        nullptr)
        << column;
  }
  EXPECT_EQ(result.notes, std::vector<std::string>{"Data!C2: error value #SPILL! kept as a text"});
}

TEST_F(XlsxSupplementLoad, CellsWithoutAddressFollowThePreviousOne) {
  LoadResult result = load(xlsxFile({{"Data", R"(
<row r="4"><c t="inlineStr"><is><t>a4</t></is></c><c t="e"><v>#REF!</v></c><c r="D4"><v>1</v></c>
  <c t="inlineStr"><is><t>e4</t></is></c></row>
<row><c r="B5" t="inlineStr"><is><t>b5</t></is></c><c t="inlineStr"><is><t>c5</t></is></c></row>
<row><c t="inlineStr"><is><t>a6</t></is></c></row>)"}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  struct Expected {
    const char* address;
    const char* text;
  } expected[] = {{"A4", "a4"}, {"B4", "#REF!"}, {"D4", "1"},  {"E4", "e4"},
                  {"B5", "b5"}, {"C5", "c5"},    {"A6", "a6"}, {"A5", ""}};
  for (const Expected& e : expected) {
    EXPECT_EQ(text(std::string("Data!") + e.address), e.text) << e.address;
  }
}

TEST_F(XlsxSupplementLoad, WhatTheImportReadIsNeverOverwritten) {
  LoadResult result = load(xlsxFile({{"Data", R"(<row r="1"><c r="A1"><v>5</v></c>
    <c r="A1" t="inlineStr"><is><t>late</t></is></c><c r="B1" t="s"><v>0</v></c>
    <c r="B1" t="e"><v>#N/A</v></c></row>)"}},
                                    {"North"}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(value("Data", 1, 1), Variant(5.0));
  EXPECT_EQ(value("Data", 1, 2), Variant("North"));
}

TEST_F(XlsxSupplementLoad, SheetsAreFoundThroughTheWorkbookRelationships) {
  LoadResult result = load(xlsxPackage({
      {"Second", "xl/worksheets/sheet2.xml", "/xl/worksheets/sheet2.xml",
       "<row r=\"1\">" + inlineCell("A1", "<t>in two</t>") + "</row>"},
      {"First", "xl/worksheets/sheet1.xml", "worksheets/sheet1.xml",
       "<row r=\"1\">" + inlineCell("A1", "<t>in one</t>") + "</row>"},
      {"Third", "xl/sheets/third.xml", "./sheets/../sheets/third.xml",
       R"(<row r="1"><c r="A1" t="e"><v>#NUM!</v></c></row>)"},
  }));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(app->sheetNames("Other.xlsx"), (std::vector<std::string>{"Second", "First", "Third"}));
  EXPECT_EQ(text("Second!A1"), "in two");
  EXPECT_EQ(text("First!A1"), "in one");
  EXPECT_EQ(text("Third!A1"), "#NUM!");
}

TEST_F(XlsxSupplementLoad, CellsOutsideTheGridAreLeftOutWithOneNote) {
  LoadResult result = load(xlsxFile({{"Data", R"(<row r="1">
    <c r="A1" t="inlineStr"><is><t>kept</t></is></c>
    <c t="inlineStr"><is><t>next</t></is></c></row>
<row r="1048577"><c t="e"><v>#N/A</v></c><c t="inlineStr"><is><t>x</t></is></c></row>)"}}));
  ASSERT_TRUE(result.ok()) << result.problem->message;
  EXPECT_EQ(text("Data!A1"), "kept");
  EXPECT_EQ(text("Data!B1"), "next");
  EXPECT_EQ(result.notes,
            std::vector<std::string>{"Data!R1048577C1: cells outside the grid left out"});
}

TEST_F(XlsxSupplementLoad, InlineCellsCountTowardsTheCellLimit) {
  std::string bytes = xlsxFile({{"Data", R"(<row r="1"><c r="A1"><v>1</v></c>
    <c r="B1" t="inlineStr"><is><t>b</t></is></c><c r="C1" t="e"><v>#N/A</v></c></row>)"}});
  EXPECT_TRUE(readSpreadsheet(bytes, 3).image);
  SpreadsheetReadResult refused = readSpreadsheet(bytes, 2);
  EXPECT_FALSE(refused.image);
  EXPECT_EQ(refused.failure, "it holds more than 2 cells, too many to open");
}

TEST_F(XlsxSupplementLoad, ADamagedSheetRefusesTheFileAndAMissingOneIsNoted) {
  std::string good = "<row r=\"1\">" + inlineCell("A1", "<t>fine</t>") + "</row>";
  LoadResult damaged = load(xlsxPackage(
      {{"Good", "xl/worksheets/sheet1.xml", "worksheets/sheet1.xml", good},
       {"Bad", "xl/worksheets/sheet2.xml", "worksheets/sheet2.xml", good + "<row r=\"2\" <x"}}));
  ASSERT_FALSE(damaged.ok());
  EXPECT_EQ(damaged.problem->reason.rfind("the file is damaged (", 0), 0u)
      << damaged.problem->reason;
  EXPECT_TRUE(app->workbookNames().empty());

  LoadResult missing =
      load(xlsxPackage({{"Good", "xl/worksheets/sheet1.xml", "worksheets/sheet1.xml", good},
                        {"Missing", "xl/worksheets/sheet2.xml", "worksheets/nowhere.xml", good}}));
  ASSERT_TRUE(missing.ok()) << missing.problem->message;
  EXPECT_EQ(text("Good!A1"), "fine");
  EXPECT_EQ(missing.notes,
            std::vector<std::string>{"Missing: its content is missing from the file"});
}

// The supplement alone, for damage the import itself may let through.
TEST(XlsxSupplementRead, DamageLosesOnlyWhatItTouchesAndIsNoted) {
  std::string good = "<row r=\"1\">" + inlineCell("A1", "<t>fine</t>") + "</row>";
  XlsxSupplement damagedSheet = readXlsxSupplement(xlsxPackage({
      {"Good", "xl/worksheets/sheet1.xml", "worksheets/sheet1.xml", good},
      {"Bad", "xl/worksheets/sheet2.xml", "worksheets/sheet2.xml",
       "<row r=\"1\">" + inlineCell("A1", "<t>lost</t>") + "<c r=\"B1\" <broken"},
      {"Cut", "xl/worksheets/sheet4.xml", "worksheets/sheet4.xml",
       "<?xml version=\"1.0\"?><worksheet><sheetData><row r=\"1\">" +
           inlineCell("A1", "<t>lost</t>") + "<c r=\"B1"},
      {"Missing", "xl/worksheets/sheet3.xml", "worksheets/nowhere.xml", good},
  }));
  ASSERT_EQ(damagedSheet.values.size(), 1u);
  EXPECT_EQ(damagedSheet.values[0].sheet, "Good");
  EXPECT_EQ(damagedSheet.values[0].entry, "'fine");
  ASSERT_EQ(damagedSheet.notes.size(), 3u);
  EXPECT_EQ(damagedSheet.notes[0].rfind("Bad: inline texts and error values left out (", 0), 0u)
      << damagedSheet.notes[0];
  EXPECT_EQ(damagedSheet.notes[1].rfind("Cut: inline texts and error values left out (", 0), 0u)
      << damagedSheet.notes[1];
  EXPECT_EQ(damagedSheet.notes[2], "Missing: its content is missing from the file");

  for (std::string bytes : {std::string("not a zip"), ZipBuilder().add("a.txt", "x").bytes(),
                            ZipBuilder().add("xl/workbook.xml", "<workbook><sheets").bytes()}) {
    XlsxSupplement none = readXlsxSupplement(bytes);
    EXPECT_TRUE(none.values.empty());
    ASSERT_EQ(none.notes.size(), 1u);
    EXPECT_EQ(none.notes[0].rfind("inline texts and error values left out (", 0), 0u)
        << none.notes[0];
  }
}

}  // namespace
}  // namespace kxc::fileio
