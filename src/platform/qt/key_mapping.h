// Key codes, shift flags and mouse buttons of Qt's input events translated into the codes the
// control model's key and mouse events carry (F4 = 115, shift flags 1/2/4, buttons 1/2/4).
#pragma once

#include <Qt>

namespace kxc::qt {

// The host key code of `key` (Qt::Key), or 0 for keys that have none. `modifiers` only tells
// keypad digits and operators apart from the main keyboard's.
int hostKeyCode(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

// Shift 1, Ctrl 2, Alt 4, added together; other modifiers are ignored.
int hostShiftFlags(Qt::KeyboardModifiers modifiers);

// Left 1, right 2, middle 4; 0 for other buttons. Several buttons add up.
int hostMouseButtons(Qt::MouseButtons buttons);

}  // namespace kxc::qt
