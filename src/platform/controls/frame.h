// A frame: a captioned group box around other controls.
#pragma once

#include "platform/controls/control.h"

namespace kxc::controls {

class Frame : public Control {
 public:
  Frame() : Control(Traits{.caption = true, .focus = false}) {}
  std::string_view typeName() const override { return "Frame"; }
};

}  // namespace kxc::controls
