// Opens an .xlsx or .ods file as a new workbook of the in-memory application.
#pragma once

#include <string>

#include "platform/fileio/file_result.h"
#include "platform/fileio/spreadsheet_reader.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::fileio {

// The largest file opened, in bytes.
inline constexpr std::size_t kMaxFileBytes = std::size_t{512} << 20;

// Reads the file at `path` (its format is told by its content, not its name) into a new
// workbook named after the file ("Book1.xlsx"): one sheet per sheet of the file in their
// order, texts, numbers, dates as numbers, booleans, formulas (converted to A1 syntax where
// the file writes them otherwise) and the defined names that name one range. Cached formula
// results are not read: the workbook recalculates once everything is in (calculation is
// running afterwards, whatever it was before), and the file's first sheet is active. Names that are
// expressions and other parts the workbook cannot hold are left out with a note in the result.
//
// When the file is missing, unreadable, empty, damaged, no spreadsheet, has sheet names the
// workbook does not allow, or a workbook of that name is open, the result carries the
// problem and the application is left exactly as it was. Never throws. Calls come from the
// thread that owns the application.
//
// The file is read in a child process (child_process_reader.h): the import library can crash
// or stop on an assertion with crafted files, and that must not end the program with the
// user's open workbooks. A file that ends the child is refused as damaged.
LoadResult loadWorkbook(workbook::InMemoryApplication& app, const std::string& path);

// The second half of loadWorkbook: makes the workbook from what was read from `path` (a failed
// read, sheet names the workbook does not allow and an open workbook of that name give the
// problem and change nothing). For callers that read the bytes themselves, such as the fuzz
// targets, which need the reader in their own process.
LoadResult openReadResult(workbook::InMemoryApplication& app, const std::string& path,
                          SpreadsheetReadResult read);

}  // namespace kxc::fileio
