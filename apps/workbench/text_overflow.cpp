#include "text_overflow.h"

namespace kxc::workbench {

int overflowSpan(int textWidth, int room, const std::vector<int>& neighbourWidths) {
  int span = 0;
  long reach = room;
  for (int width : neighbourWidths) {
    if (textWidth <= reach) break;
    reach += width > 0 ? width : 0;
    ++span;
  }
  return span;
}

}  // namespace kxc::workbench
