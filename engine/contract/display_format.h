// Display formats of measures, in the spreadsheet's number-format notation: "#,##0.00",
// "0", "$#,##0", "0.0%", "#,##0,\"k\"", "0.00E+00", sections "pos;neg;zero".
#pragma once

#include <string>
#include <string_view>

namespace kxc::engine {

// Formats `value` by `format`. Supported: digit placeholders 0 (always shown) and # or ?
// (shown when significant); "." decimal point; "," between placeholders for thousands
// grouping, after them for dividing by 1000; "%" (multiplies by 100); E+ / E- exponents; quoted
// "literals", \x escapes, _x (a blank), *x (ignored), [$sym-...] currency symbols and other
// [...] codes (ignored); up to three ";"-separated sections for positive, negative and zero.
// Decimals round half away from zero on the value's 15 significant digits. An empty format or
// "General" gives the plain number; NaN gives "".
std::string formatDisplay(double value, std::string_view format);

}  // namespace kxc::engine
