// How the spreadsheet reads what a user types into a cell.
#pragma once

#include <string>
#include <string_view>

#include "platform/variant.h"

namespace kxc::workbook {

struct TypedEntry {
  bool isFormula = false;  // the text starts with "="
  Variant value;           // the constant otherwise: Empty, Double, Bool, Error or Text
};

// "=..." is a formula; "" clears; a number ("12", "-3.5", "1e3", " 7 ", "50%") is a Double;
// TRUE or FALSE in any letter case a Bool; an error literal ("#N/A") that error value; a
// leading "'" makes the rest a text; anything else is a text as typed.
TypedEntry readTypedEntry(std::string_view text);

// The text that stands for a constant in a cell's formula: "12.5", "TRUE", "#N/A", the text.
std::string constantFormulaText(const Variant& value);

}  // namespace kxc::workbook
