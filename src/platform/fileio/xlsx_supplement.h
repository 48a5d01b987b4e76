// What the import library's reading of .xlsx sheets leaves out, read again from the sheet
// parts: texts written inside a cell (t="inlineStr") and error constants (t="e" without a
// formula).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fileio/workbook_image.h"

namespace kxc::fileio {

struct XlsxSupplement {
  struct Value {
    std::string sheet;  // the sheet's name as the workbook part gives it
    int64_t row = 1;    // 1-based, may lie outside the grid
    int64_t column = 1;
    std::string entry;  // as in CellEntries: "'text" or "#N/A"
  };
  std::vector<Value> values;
  // What could not be read, one line each, in the form of WorkbookImage::notes.
  std::vector<std::string> notes;
};

// Reads the workbook part, its relationships and every worksheet it lists, in workbook order.
// A damaged archive or workbook part leaves the supplement empty with one note; a damaged
// sheet part loses only that sheet's values, with a note naming it. Throws only
// std::bad_alloc.
XlsxSupplement readXlsxSupplement(std::string_view bytes);

// Enters each value into the cell of the sheet of that name, only where the import library
// left the cell empty. Values outside the grid are left out with one note a sheet (none when
// the import already noted that sheet); the supplement's own notes are added. Calls
// `countCell` for every cell it adds, which may throw to stop at a limit.
void applyXlsxSupplement(const XlsxSupplement& supplement, WorkbookImage& image,
                         const std::function<void()>& countCell);

}  // namespace kxc::fileio
