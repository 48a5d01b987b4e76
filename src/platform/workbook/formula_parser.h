// Parses the text of a cell formula ("=A1*2") into its tree.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/workbook/formula_ast.h"

namespace kxc::workbook {

// The longest formula text accepted, and the deepest nesting of operations and parentheses.
inline constexpr std::size_t kMaxFormulaLength = 8192;
inline constexpr int kMaxFormulaDepth = 200;

// Parses `text`, which starts with "=". Never throws: text that is no formula gives a result
// whose `failure` holds #NAME? (bad syntax: unbalanced quotes or parentheses, stray
// characters) or #VALUE! (longer than kMaxFormulaLength or nested deeper than
// kMaxFormulaDepth).
ParsedFormula parseFormula(std::string_view text);

}  // namespace kxc::workbook
