// Cell capture: the reference that a click on a workbook cell writes into the formula builder.
#pragma once

#include <string>

#include "platform/host/range.h"

namespace kxc {

// The reference to the first cell C of `target` as seen from the cell being edited E: in E's
// row the column is fixed ($A5), else in E's column the row is fixed (A$1), else both ($A$1).
// On E's sheet the address alone; on another sheet of E's workbook the sheet name in single
// quotes (every "'" doubled) and "!" before it; in another workbook the host's external
// address. Sheets and workbooks are compared by name, case-sensitively. Raises what the host
// raises (91 when a range has no worksheet).
std::string capturedReference(const host::Range& target, const host::Range& edited);

}  // namespace kxc
