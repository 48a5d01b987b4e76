// The syntax of reference texts: an optional workbook and sheet qualifier, then a cell, an area,
// whole columns, whole rows or a defined name. Only the text is read here; workbooks, sheets
// and names are looked up by the spreadsheet.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/workbook/grid.h"

namespace kxc::workbook {

// The longest defined name, in bytes.
inline constexpr std::size_t kMaxNameLength = 255;

struct ReferenceSyntax {
  std::optional<std::string> workbook;  // the text between [ and ], when given
  std::optional<std::string> sheet;     // unquoted, with '' turned back into '
  bool isName = false;                  // a defined name rather than cells
  std::string name;                     // the name as written, when isName
  Area area;                            // the cells, when !isName
};

// Reads the reference that starts `text`, taking as much as belongs to it. Returns the number
// of bytes taken, or 0 when no reference starts there (a name longer than kMaxNameLength is
// none). Cells and areas never run into a
// following letter, digit or "(" (so "LOG10(" is a function name and "A1B" a name). Never
// throws; safe on any input.
std::size_t scanReference(std::string_view text, ReferenceSyntax& out);

// The reference that is exactly `text` (blanks around it allowed), or nullopt.
std::optional<ReferenceSyntax> parseReference(std::string_view text);

// Characters of unquoted sheet names and defined names: ASCII letters and digits, "_", ".",
// "\" and every byte of a multi-byte character.
bool isNameChar(char c);
bool isNameStart(char c);

// Whether a text reads as a cell of the A1 or R1C1 style ("Q1", "AB12", "R1C1", "R", "C3").
bool looksLikeCellReference(std::string_view text);

// A name that may be defined: starts with a letter, "_" or "\", continues with name characters,
// is at most 255 bytes, and does not read as a cell reference or as TRUE or FALSE.
bool isValidDefinedName(std::string_view name);

}  // namespace kxc::workbook
