#include "platform/workbook/reference_syntax.h"

#include <gtest/gtest.h>

#include <string>

namespace kxc::workbook {
namespace {

TEST(ReferenceSyntax, ReadsCellsAndAreasInEveryAnchoring) {
  struct Case {
    std::string text;
    Area area;
  };
  for (const auto& c : std::initializer_list<Case>{
           {"A1", {1, 1, 1, 1}},
           {"$A$1", {1, 1, 1, 1}},
           {"A$1", {1, 1, 1, 1}},
           {"$A1", {1, 1, 1, 1}},
           {"b3", {3, 2, 3, 2}},
           {"A1:C3", {1, 1, 3, 3}},
           {"$A$1:$C$3", {1, 1, 3, 3}},
           {"C3:A1", {1, 1, 3, 3}},
           {"Q1", {1, 17, 1, 17}},
           {"AB12", {12, 28, 12, 28}},
           {"XFD1048576", {1048576, 16384, 1048576, 16384}},
           {"A:C", {1, 1, kMaxRows, 3}},
           {"$B:$B", {1, 2, kMaxRows, 2}},
           {"2:4", {2, 1, 4, kMaxColumns}},
       }) {
    auto ref = parseReference(c.text);
    ASSERT_TRUE(ref) << c.text;
    EXPECT_FALSE(ref->isName) << c.text;
    EXPECT_EQ(ref->area, c.area) << c.text;
    EXPECT_FALSE(ref->sheet) << c.text;
  }
}

TEST(ReferenceSyntax, ReadsSheetAndWorkbookQualifiers) {
  struct Case {
    std::string text;
    std::optional<std::string> workbook, sheet;
  };
  for (const auto& c : std::initializer_list<Case>{
           {"Sheet1!B2", std::nullopt, "Sheet1"},
           {"'My Sheet'!B2", std::nullopt, "My Sheet"},
           {"'O''Neil'!$B$3", std::nullopt, "O'Neil"},
           {"[Book1.xlsx]Sheet1!A1", "Book1.xlsx", "Sheet1"},
           {"'[Book 1.xlsx]My Sheet'!A1", "Book 1.xlsx", "My Sheet"},
           {"'[Book1.xlsx]O''Neil'!A1", "Book1.xlsx", "O'Neil"},
           {"'Sales'!$B$3", std::nullopt, "Sales"},
       }) {
    auto ref = parseReference(c.text);
    ASSERT_TRUE(ref) << c.text;
    EXPECT_EQ(ref->workbook, c.workbook) << c.text;
    EXPECT_EQ(ref->sheet, c.sheet) << c.text;
  }
}

TEST(ReferenceSyntax, NamesAreReadAsNames) {
  for (std::string text : {"North", "Region", "A1B", "_total", "XFE1", "A0"}) {
    auto ref = parseReference(text);
    ASSERT_TRUE(ref) << text;
    EXPECT_TRUE(ref->isName) << text;
    EXPECT_EQ(ref->name, text);
  }
}

TEST(ReferenceSyntax, RejectsTextsThatAreNoReference) {
  std::string huge(100000, 'A');
  std::string hugeQuoted = "'" + std::string(100000, 'x');
  for (const std::string& text :
       {std::string(), std::string("   "), std::string("<ALL>"), std::string("1A"),
        std::string("'My Sheet!A1"), std::string("'Sheet1'A1"), std::string("A1:"),
        std::string("A1:C"), std::string("Sheet1!"), std::string("[Book1.xlsx"),
        std::string("A1 B2"), std::string("=A1"), std::string("#REF!"), std::string("\"A1\""),
        std::string("A-1"), huge + "1", hugeQuoted}) {
    EXPECT_FALSE(parseReference(text)) << text.substr(0, 40);
  }
}

TEST(ReferenceSyntax, ScanStopsWhereTheReferenceEnds) {
  ReferenceSyntax ref;
  EXPECT_EQ(scanReference("A1+B2", ref), 2u);
  EXPECT_EQ(scanReference("Sheet2!$A$1:$B$2)", ref), 16u);
  EXPECT_EQ(scanReference("LOG10(", ref), 5u);
  EXPECT_TRUE(ref.isName);  // a function name, not the cell LOG10
  EXPECT_EQ(scanReference("+A1", ref), 0u);
}

TEST(ReferenceSyntax, DefinedNamesMustNotReadAsCells) {
  for (std::string ok : {"Region", "North_2", "_x", "\\path", "Sales.Total", "XFE1"}) {
    EXPECT_TRUE(isValidDefinedName(ok)) << ok;
  }
  for (std::string bad : {"", "Q1", "ab12", "R1C1", "R", "c", "RC", "R2", "C3", "1abc", "has space",
                          "TRUE", "false", "A1:B2", "x!"}) {
    EXPECT_FALSE(isValidDefinedName(bad)) << bad;
  }
  EXPECT_FALSE(isValidDefinedName(std::string(256, 'n')));
}

}  // namespace
}  // namespace kxc::workbook
