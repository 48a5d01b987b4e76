// Reference toggling: F4 in a builder text box moves a cell reference to the next anchoring of
// the cycle $A$1, A$1, $A1, A1 and back to $A$1.
#pragma once

#include <string>

#include "platform/controls/text_box.h"
#include "platform/host/range.h"

namespace kxc {

// The reference `text` (which designates `range`) in the next anchoring. The current one is
// found by comparing the text after its last "!" with range.address() in each anchoring of the
// cycle, case-sensitively; the next one's address is returned with the text up to and
// including that "!" in front. "" when the text matches none of the four. Raises what the
// host raises.
std::string nextAnchoring(const host::Range& range, const std::string& text);

// The key handler shared by txtCache, txtMeasureIndex and txtDimensions: F4 (115) without a
// shift key on a text that is a cell reference (TmExcel::IsCellRef) replaces the box's text by
// nextAnchoring() and consumes the key. Other keys are left to the box. Errors are ignored.
void toggleReference(controls::TextBox& box, int& keyCode, int shift);

}  // namespace kxc
