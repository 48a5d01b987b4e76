#include "platform/workbook/command_bar_set.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc::workbook {

MenuControlList::~MenuControlList() {
  for (auto& c : items_) c->detach();
}

host::ControlRef MenuControlList::item(int32_t index) const {
  if (index < 1 || index > count()) throw RuntimeError(err::kInvalidCall);
  return items_[index - 1];
}

host::ControlRef MenuControlList::add(host::ControlType type, int32_t before) {
  if (before < 0 || before > count() + 1) throw RuntimeError(err::kInvalidCall);
  auto control = std::make_shared<MenuControl>(type, this);
  auto at = before == 0 ? items_.end() : items_.begin() + (before - 1);
  items_.insert(at, control);
  return control;
}

void MenuControlList::remove(const MenuControl* control) {
  auto it =
      std::find_if(items_.begin(), items_.end(), [&](const auto& c) { return c.get() == control; });
  if (it == items_.end()) return;
  (*it)->detach();
  items_.erase(it);
}

MenuControl::MenuControl(host::ControlType type, MenuControlList* owner)
    : type_(type), owner_(owner) {
  if (type == host::ControlType::Popup) children_ = std::make_unique<MenuControlList>();
}

host::CommandBarControls& MenuControl::controls() {
  if (!children_) throw RuntimeError(err::kNoSuchMember);
  return *children_;
}

void MenuControl::deleteControl() {
  if (owner_) owner_->remove(this);
}

host::ControlRef MenuControl::findInChildren(const std::string& tag) const {
  if (!children_) return nullptr;
  for (const auto& c : children_->items()) {
    if (c->tag() == tag) return c;
  }
  for (const auto& c : children_->items()) {
    if (auto found = c->findInChildren(tag)) return found;
  }
  return nullptr;
}

host::ControlRef MenuBar::findControl(const std::string& tag) {
  for (const auto& c : controls_.items()) {
    if (c->tag() == tag) return c;
  }
  for (const auto& c : controls_.items()) {
    if (auto found = c->findInChildren(tag)) return found;
  }
  return nullptr;
}

MenuBarSet::MenuBarSet() {
  bars_.push_back(std::make_shared<MenuBar>("Worksheet Menu Bar"));
  bars_.push_back(std::make_shared<MenuBar>("Cell"));
}

host::BarRef MenuBarSet::item(const std::string& name) {
  std::string wanted = upperCase(name);
  for (const auto& bar : bars_) {
    if (upperCase(bar->name()) == wanted) return bar;
  }
  throw RuntimeError(err::kInvalidCall);
}

host::BarRef MenuBarSet::item(int32_t index) {
  if (index < 1 || index > count()) throw RuntimeError(err::kInvalidCall);
  return bars_[index - 1];
}

}  // namespace kxc::workbook
