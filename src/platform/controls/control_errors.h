// The numbered errors that the controls raise, with the descriptions their users know.
#pragma once

#include "platform/runtime_error.h"

namespace kxc::controls {

namespace errc {
inline constexpr int kInvalidPropertyValue = 380;  // "Invalid property value"
inline constexpr int kAlreadyShown = 400;          // "Form already displayed; can't show modally"
inline constexpr int kControlNotFound = 730;       // "Control not found"
inline constexpr int kIndexOutOfBounds = 35600;    // "Index out of bounds"
inline constexpr int kElementNotFound = 35601;     // "Element not found"
inline constexpr int kKeyNotUnique = 35602;        // "Key is not unique in collection"
}  // namespace errc

// The error `number` with the controls' description for it (the runtime's standard description
// for numbers that are not the controls' own).
RuntimeError controlError(int number);

}  // namespace kxc::controls
