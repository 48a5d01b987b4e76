// A single-line text box: its text, with change and key-down events.
#pragma once

#include <functional>
#include <string>

#include "platform/controls/control.h"
#include "platform/controls/input_codes.h"

namespace kxc::controls {

class TextBox : public Control {
 public:
  TextBox();
  std::string_view typeName() const override { return "TextBox"; }

  const std::string& text() const { return text_; }
  // Sets the text and raises onChange, unless the text is unchanged. Used by the logic and by
  // a view for what the user typed.
  void setText(std::string text);

  // The user pressed a key: raises onKeyDown and returns the key code the handler left (0 when
  // the handler consumed the key; the view then drops it).
  int keyDown(int keyCode, int shift);

  std::function<void()> onChange;
  std::function<void(int& keyCode, int shift)> onKeyDown;

 private:
  std::string text_;
};

}  // namespace kxc::controls
