// The menus of a form as Qt menus: visible top-level menus in the window's menu bar, each
// item a QAction whose trigger raises Menu::click, and any menu shown as a popup.
#pragma once

#include <unordered_map>

#include "platform/controls/form_view.h"
#include "platform/controls/menu.h"

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace kxc::qt {

// Built once from the form's menus (menus added later are not shown). Top-level menus whose
// Visible is false stay out of the menu bar but can still pop up; the bar hides itself when no
// menu in it is visible. The form and its menus must outlive the binding.
class MenuBinding {
 public:
  MenuBinding(const std::vector<controls::Menu*>& topLevel, QMenuBar& bar, QWidget& owner);

  // Caption, Enabled or Visible of `menu` changed.
  void propertyChanged(controls::Menu& menu, controls::Property property);
  // Shows `menu`'s items at the mouse position; returns when the popup closes, after the
  // chosen item's click.
  void popup(controls::Menu& menu);

  QAction* action(const controls::Menu& menu) const;
  QMenu* qmenu(const controls::Menu& menu) const;

 private:
  void addItems(controls::Menu& menu, QMenu& qmenu);
  void showState(controls::Menu& menu);
  void updateBar();

  QMenuBar& bar_;
  QWidget& owner_;
  std::vector<controls::Menu*> topLevel_;
  std::unordered_map<const controls::Menu*, QAction*> actions_;
  std::unordered_map<const controls::Menu*, QMenu*> menus_;
};

}  // namespace kxc::qt
