// Moves the relative references of an A1 formula by a number of rows and columns, as a formula
// shared by a block of cells reads from each cell of the block.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kxc::fileio {

// "=A1+$B$2+C$3" moved by 2 rows and 1 column is "=B3+$B$2+D$3". Parts anchored with "$"
// stay; whole columns ("A:C") move only by columns and whole rows ("1:3") only by rows. A
// reference moved off the grid becomes "#REF!". String literals, quoted sheet names,
// bracketed parts, function names ("LOG10(") and defined names are left alone. Never throws.
std::string shiftFormula(std::string_view formula, int32_t rows, int32_t columns);

}  // namespace kxc::fileio
