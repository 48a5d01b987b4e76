// How far a cell's text runs into the empty cells on its right, as in a spreadsheet.
#pragma once

#include <vector>

namespace kxc::workbench {

// The number of neighbouring cells a left-aligned text reaches into: `textWidth` is the text's
// width, `room` what its own cell holds, `neighbourWidths` the widths of the empty cells that
// follow it (the first non-empty cell ends the list, as it stops the text). 0 when the text fits
// its own cell; at most the number of neighbours given, where the text is then cut.
int overflowSpan(int textWidth, int room, const std::vector<int>& neighbourWidths);

}  // namespace kxc::workbench
