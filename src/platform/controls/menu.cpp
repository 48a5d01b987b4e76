#include "platform/controls/menu.h"

namespace kxc::controls {

void Menu::click() {
  if (enabled() && visible() && !isSeparator() && onClick) onClick();
}

}  // namespace kxc::controls
