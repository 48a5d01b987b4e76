#include "platform/qt/caption_button.h"

#include <algorithm>

namespace kxc::qt {

bool CaptionButton::compact() const { return text().size() <= 3; }

QSize CaptionButton::sizeHint() const {
  QSize hint = QPushButton::sizeHint();
  if (!compact()) return hint;
  const int width = fontMetrics().horizontalAdvance(text()) + 2 * fontMetrics().averageCharWidth();
  return {std::max(width, hint.height()), hint.height()};
}

QSize CaptionButton::minimumSizeHint() const {
  return compact() ? sizeHint() : QPushButton::minimumSizeHint();
}

}  // namespace kxc::qt
