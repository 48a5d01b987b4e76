#include "platform/controls/control_errors.h"

namespace kxc::controls {

RuntimeError controlError(int number) {
  switch (number) {
    case errc::kInvalidPropertyValue:
      return RuntimeError(number, "Invalid property value");
    case errc::kAlreadyShown:
      return RuntimeError(number, "Form already displayed; can't show modally");
    case errc::kControlNotFound:
      return RuntimeError(number, "Control not found");
    case errc::kIndexOutOfBounds:
      return RuntimeError(number, "Index out of bounds");
    case errc::kElementNotFound:
      return RuntimeError(number, "Element not found");
    case errc::kKeyNotUnique:
      return RuntimeError(number, "Key is not unique in collection");
    default:
      return RuntimeError(number);
  }
}

}  // namespace kxc::controls
