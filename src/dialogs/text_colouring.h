// Colouring of the builder's text boxes: yellow for a cell reference or a defined name, white
// for anything else.
#pragma once

#include <cstdint>

#include "platform/controls/text_box.h"

namespace kxc {

// A text designating a range that carries a defined name turns yellow and is replaced by that
// name (so a named cell's address becomes the name; a name stays as it is); any other cell
// reference turns yellow; everything else white. Tests go through gExcelSink's reference tests.
// Does nothing for a null box; raises what the box raises.
void recolour(controls::TextBox* box);

}  // namespace kxc
