#include "platform/workbook/address_writer.h"

#include <gtest/gtest.h>

#include <string>

namespace kxc::workbook {
namespace {

TEST(AddressWriter, WritesEachAnchoring) {
  struct Case {
    Area area;
    bool rowAbsolute, columnAbsolute;
    std::string expected;
  };
  for (const auto& c : std::initializer_list<Case>{
           {Area::cell(3, 2), true, true, "$B$3"},
           {Area::cell(3, 2), true, false, "B$3"},
           {Area::cell(3, 2), false, true, "$B3"},
           {Area::cell(3, 2), false, false, "B3"},
           {{1, 1, 3, 3}, true, true, "$A$1:$C$3"},
           {{1, 1, 3, 3}, false, false, "A1:C3"},
           {{1, 1, 3, 3}, true, false, "A$1:C$3"},
           {{1, 1, kMaxRows, 3}, true, true, "$A:$C"},
           {{2, 1, 4, kMaxColumns}, true, true, "$2:$4"},
           {{1, 1, kMaxRows, kMaxColumns}, true, true, "$1:$1048576"},
           {Area::cell(1048576, 16384), false, false, "XFD1048576"},
       }) {
    EXPECT_EQ(areaAddress(c.area, c.rowAbsolute, c.columnAbsolute), c.expected);
  }
}

TEST(AddressWriter, ColumnLettersRoundTrip) {
  struct Case {
    int32_t column;
    std::string letters;
  };
  for (const auto& c : std::initializer_list<Case>{{1, "A"},
                                                   {26, "Z"},
                                                   {27, "AA"},
                                                   {52, "AZ"},
                                                   {53, "BA"},
                                                   {702, "ZZ"},
                                                   {703, "AAA"},
                                                   {16384, "XFD"}}) {
    EXPECT_EQ(columnLetters(c.column), c.letters);
    EXPECT_EQ(columnNumber(c.letters), c.column);
  }
  EXPECT_EQ(columnNumber("XFE"), 0);
  EXPECT_EQ(columnNumber("AAAA"), 0);
  EXPECT_EQ(columnNumber("xfd"), 16384);
}

TEST(AddressWriter, QuotesQualifiersOnlyWhenNeeded) {
  struct Case {
    std::string workbook, sheet, expected;
  };
  for (const auto& c : std::initializer_list<Case>{
           {"Book1.xlsx", "Sheet1", "[Book1.xlsx]Sheet1!"},
           {"Book 1.xlsx", "Sheet 1", "'[Book 1.xlsx]Sheet 1'!"},
           {"Book1.xlsx", "O'Neil", "'[Book1.xlsx]O''Neil'!"},
           {"Book 1.xlsx", "Sheet1", "'[Book 1.xlsx]Sheet1'!"},
           {"Book1.xlsx", "2024", "'[Book1.xlsx]2024'!"},
           {"Book1.xlsx", "A1", "'[Book1.xlsx]A1'!"},
       }) {
    EXPECT_EQ(externalQualifier(c.workbook, c.sheet), c.expected);
  }
  EXPECT_EQ(sheetQualifier("Sales"), "Sales!");
  EXPECT_EQ(sheetQualifier("My Sheet"), "'My Sheet'!");
  EXPECT_EQ(sheetQualifier("O'Neil"), "'O''Neil'!");
}

}  // namespace
}  // namespace kxc::workbook
