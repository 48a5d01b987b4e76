// A menu or menu item: a caption, tag, enabled and visible flags, its items and a click event.
#pragma once

#include <functional>
#include <vector>

#include "platform/controls/control.h"

namespace kxc::controls {

// Menus are controls of their form (Form::addMenu). A top-level menu with Visible false is not
// shown in the menu bar but can still be shown as a popup (Form::popupMenu). An item whose
// caption is "-" is a separator.
class Menu : public Control {
 public:
  Menu() : Control(Traits{.font = FontAccess::None, .caption = true, .focus = false}) {}
  std::string_view typeName() const override { return "Menu"; }

  bool isSeparator() const { return caption() == "-"; }
  Menu* parentMenu() const { return parent_; }
  const std::vector<Menu*>& items() const { return items_; }

  // The user chose this item: raises onClick unless the item is disabled, hidden or a
  // separator.
  void click();

  std::function<void()> onClick;

 private:
  friend class Form;
  Menu* parent_ = nullptr;
  std::vector<Menu*> items_;
};

}  // namespace kxc::controls
