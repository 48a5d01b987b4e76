// A command button: a caption and a click event.
#pragma once

#include <functional>

#include "platform/controls/control.h"

namespace kxc::controls {

class CommandButton : public Control {
 public:
  CommandButton() : Control(Traits{.caption = true}) {}
  std::string_view typeName() const override { return "CommandButton"; }

  // The user clicked the button: raises onClick when the button is enabled and visible, and
  // does nothing otherwise. A view also calls it for Enter on the default button and Escape on
  // the cancel button.
  void click();

  // Enter presses the default button, Escape the cancel button (hints for the view).
  bool isDefault() const { return default_; }
  void setDefault(bool on) { default_ = on; }
  bool isCancel() const { return cancel_; }
  void setCancel(bool on) { cancel_ = on; }

  std::function<void()> onClick;

 private:
  bool default_ = false;
  bool cancel_ = false;
};

}  // namespace kxc::controls
