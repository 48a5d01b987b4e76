// The control model's mouse-pointer numbers as Qt cursor shapes.
#pragma once

#include <Qt>
#include <optional>

namespace kxc::qt {

// The cursor a form's MousePointer asks for, or nullopt for the default pointer (0) and
// numbers without a matching shape. 11 (hourglass) is the busy cursor.
std::optional<Qt::CursorShape> cursorForPointer(int pointer);

}  // namespace kxc::qt
