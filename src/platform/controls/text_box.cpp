#include "platform/controls/text_box.h"

namespace kxc::controls {

TextBox::TextBox() : Control(Traits{.backColor = kColorWhite}) {}

void TextBox::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  notify(Property::Text);
  if (onChange) onChange();
}

int TextBox::keyDown(int keyCode, int shift) {
  if (onKeyDown) onKeyDown(keyCode, shift);
  return keyCode;
}

}  // namespace kxc::controls
