// The application's command bars: named bars holding buttons and pop-ups, pop-ups holding
// their own controls, found by tag and removed by the add-in.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/host/command_bars.h"

namespace kxc::workbook {

class MenuControl;

// An ordered list of controls: a bar's own or a pop-up's children. Destroying the list detaches
// its controls, so a control kept elsewhere never points at a list that is gone.
class MenuControlList : public host::CommandBarControls {
 public:
  MenuControlList() = default;
  MenuControlList(const MenuControlList&) = delete;
  MenuControlList& operator=(const MenuControlList&) = delete;
  ~MenuControlList() override;

  int32_t count() const override { return static_cast<int32_t>(items_.size()); }
  host::ControlRef item(int32_t index) const override;
  // `before` 0 appends; 1 to count()+1 inserts before that position; anything else raises 5.
  host::ControlRef add(host::ControlType type, int32_t before = 0) override;

  const std::vector<std::shared_ptr<MenuControl>>& items() const { return items_; }
  void remove(const MenuControl* control);

 private:
  std::vector<std::shared_ptr<MenuControl>> items_;
};

class MenuControl : public host::CommandBarControl {
 public:
  MenuControl(host::ControlType type, MenuControlList* owner);

  host::ControlType type() const override { return type_; }
  std::string caption() const override { return caption_; }
  void setCaption(const std::string& caption) override { caption_ = caption; }
  std::string tag() const override { return tag_; }
  void setTag(const std::string& tag) override { tag_ = tag; }
  std::string onAction() const override { return onAction_; }
  void setOnAction(const std::string& command) override { onAction_ = command; }
  std::string parameter() const override { return parameter_; }
  void setParameter(const std::string& parameter) override { parameter_ = parameter; }
  // A pop-up's children; raises 438 for a button.
  host::CommandBarControls& controls() override;
  // Removes the control from its list; a control already removed stays as it is.
  void deleteControl() override;

  bool attached() const { return owner_ != nullptr; }
  void detach() { owner_ = nullptr; }
  // Depth-first search of a pop-up's children for a tag.
  host::ControlRef findInChildren(const std::string& tag) const;

 private:
  host::ControlType type_;
  MenuControlList* owner_;  // the list holding this control; null once removed
  std::unique_ptr<MenuControlList> children_;
  std::string caption_, tag_, onAction_, parameter_;
};

class MenuBar : public host::CommandBar {
 public:
  explicit MenuBar(std::string name) : name_(std::move(name)) {}
  std::string name() const override { return name_; }
  host::CommandBarControls& controls() override { return controls_; }
  // The bar's own controls first, then each pop-up's children in order; null when none.
  host::ControlRef findControl(const std::string& tag) override;

 private:
  std::string name_;
  MenuControlList controls_;
};

class MenuBarSet : public host::CommandBars {
 public:
  // Starts with the empty bars "Worksheet Menu Bar" (1) and "Cell" (2).
  MenuBarSet();
  // Letter case of the name does not matter; an unknown name raises 5.
  host::BarRef item(const std::string& name) override;
  // 1-based; out of range raises 5.
  host::BarRef item(int32_t index) override;
  int32_t count() const { return static_cast<int32_t>(bars_.size()); }

 private:
  std::vector<std::shared_ptr<MenuBar>> bars_;
};

}  // namespace kxc::workbook
