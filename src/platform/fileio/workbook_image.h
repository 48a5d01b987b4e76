// What a spreadsheet file holds, read into plain data before anything reaches a workbook: its
// sheets with each cell as the text a user would type, and its defined names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kxc::fileio {

// Cells by (row, column), both 1-based, so walking the map goes row by row. Each entry is the
// text that enters the cell's content: "=..." a formula, "'North" a text, "12.5" a number,
// "TRUE" a boolean, "#N/A" an error value.
using CellEntries = std::map<std::pair<int32_t, int32_t>, std::string>;

struct SheetImage {
  std::string name;
  CellEntries cells;
};

struct NameImage {
  std::string name;
  std::string reference;      // in A1 syntax without "=", e.g. "'O''Neil'!$B$3"
  std::size_t baseSheet = 0;  // the sheet unqualified references belong to
};

struct WorkbookImage {
  std::vector<SheetImage> sheets;
  std::vector<NameImage> names;
  // What could not be carried over, one line each ("Sheet1!D4: ...").
  std::vector<std::string> notes;
};

}  // namespace kxc::fileio
