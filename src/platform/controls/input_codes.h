// Key codes, shift flags and mouse buttons as the key and mouse events carry them.
#pragma once

namespace kxc::controls {

namespace keys {
inline constexpr int kF4 = 115;
inline constexpr int kShift = 1;  // shift flags: 1 Shift, 2 Ctrl, 4 Alt
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;
}  // namespace keys

namespace mouse {
inline constexpr int kLeft = 1;
inline constexpr int kRight = 2;
inline constexpr int kMiddle = 4;
}  // namespace mouse

}  // namespace kxc::controls
