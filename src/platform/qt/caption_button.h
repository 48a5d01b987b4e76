// A push button whose short captions ("...") get a compact width instead of the style's
// minimum button width, so browse buttons sit snugly beside their text boxes.
#pragma once

#include <QPushButton>

namespace kxc::qt {

class CaptionButton : public QPushButton {
 public:
  using QPushButton::QPushButton;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 private:
  bool compact() const;
};

}  // namespace kxc::qt
