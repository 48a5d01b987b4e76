// How a number shows in a cell of a given width: the spreadsheet's "General" look.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kxc::workbench {

// Tells whether a text fits the cell.
using FitsCell = std::function<bool(std::string_view text)>;

// The longest text of `value` that fits: up to 15 significant digits in plain notation, then
// fewer decimals (rounded, trailing zeros dropped), then scientific notation ("1.23E+10") with
// fewer mantissa digits (a number that is not zero never rounds to "0"), and when nothing fits, as
// many "#" as fit (at least one). Values too large or too small for plain notation go straight to
// scientific; NaN and infinities show
// "#NUM!".
std::string fitNumberText(double value, const FitsCell& fits);

}  // namespace kxc::workbench
