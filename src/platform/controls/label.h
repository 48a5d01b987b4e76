// A label: a caption the user cannot edit.
#pragma once

#include "platform/controls/control.h"

namespace kxc::controls {

class Label : public Control {
 public:
  Label() : Control(Traits{.caption = true, .focus = false}) {}
  std::string_view typeName() const override { return "Label"; }
};

}  // namespace kxc::controls
