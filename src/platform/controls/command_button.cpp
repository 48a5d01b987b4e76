#include "platform/controls/command_button.h"

namespace kxc::controls {

void CommandButton::click() {
  if (enabled() && visible() && onClick) onClick();
}

}  // namespace kxc::controls
