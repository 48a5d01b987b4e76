// Writes references the way the spreadsheet writes them: "$B$3", "B$3", "$A$1:$C$3", "$A:$C",
// "$2:$4", and qualified forms such as "[Book1.xlsx]Sheet1!$B$3" or "'[Book 1.xlsx]My Sheet'!".
#pragma once

#include <string>
#include <string_view>

#include "platform/workbook/grid.h"

namespace kxc::workbook {

// One cell: "$B$3" with both anchors, "B3" with none. Row and column must be valid.
std::string cellAddress(int32_t row, int32_t column, bool rowAbsolute = true,
                        bool columnAbsolute = true);

// An area: a single cell as above, whole columns "$A:$C", whole rows "$2:$4", else "$A$1:$C$3".
std::string areaAddress(const Area& area, bool rowAbsolute = true, bool columnAbsolute = true);

// Whether a sheet or workbook name must stand between single quotes in a reference: when it is
// empty, holds anything but name characters, starts with a digit or reads as a cell reference.
bool nameNeedsQuotes(std::string_view name);

// "Sheet1!" or "'My Sheet'!" (quotes doubled inside).
std::string sheetQualifier(std::string_view sheet);

// "[Book1.xlsx]Sheet1!" or, when either name needs quotes, "'[Book 1.xlsx]My Sheet'!".
std::string externalQualifier(std::string_view workbook, std::string_view sheet);

}  // namespace kxc::workbook
