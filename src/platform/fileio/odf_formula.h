// Turns formulas and cell ranges written in the OpenDocument formula syntax into the A1 syntax
// the workbook reads: "of:=SUM([.A1:.B2];[$'O''Neil'.$B$3])" becomes
// "=SUM(A1:B2,'O''Neil'!$B$3)".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kxc::fileio {

// A formula with or without its namespace prefix ("of:=", "oooc:=") or its "="; the result
// always starts with "=". String literals, function names (in their letter case), numbers and
// operators are kept as written; bracketed references lose their brackets and dots, sheet
// names are quoted as the A1 syntax needs, ";" separates arguments as ",", and "!"
// (intersection) becomes a blank. nullopt when a quote or bracket is left open or a
// reference is of a kind the A1 syntax cannot express (another file, a reference across
// sheets). Never throws.
std::optional<std::string> odfFormulaToA1(std::string_view formula);

// One cell range address as named ranges hold it ("$Sheet1.$A$1:.$B$2",
// "$'O''Neil'.$B$3"), as "Sheet1!$A$1:$B$2"; nullopt when it is none.
std::optional<std::string> odfRangeToA1(std::string_view range);

}  // namespace kxc::fileio
