// A form view for tests: records every notice and answers popup menus from a script.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/form_view.h"
#include "platform/controls/menu.h"

namespace kxc::testing {

class RecordingFormView : public controls::FormView {
 public:
  void propertyChanged(controls::Control* control, controls::Property property) override {
    properties.emplace_back(control ? control->name() : std::string(), property);
  }
  void listChanged(controls::ListView&, const controls::ListChange& change) override {
    listChanges.push_back(change);
  }
  void gridChanged(controls::Grid&, const controls::GridChange& change) override {
    gridChanges.push_back(change);
  }
  // Records the menu shown, then lets `onPopup` act as the user (for example click an item).
  void popupMenu(controls::Menu& menu) override {
    popups.push_back(menu.name());
    if (onPopup) onPopup(menu);
  }

  std::vector<std::pair<std::string, controls::Property>> properties;  // "" for the form
  std::vector<controls::ListChange> listChanges;
  std::vector<controls::GridChange> gridChanges;
  std::vector<std::string> popups;
  std::function<void(controls::Menu&)> onPopup;
};

}  // namespace kxc::testing
