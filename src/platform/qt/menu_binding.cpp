#include "platform/qt/menu_binding.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>

#include "platform/qt/caption_text.h"
#include "platform/qt/guarded_call.h"
#include "platform/qt/qt_text.h"

namespace kxc::qt {

MenuBinding::MenuBinding(const std::vector<controls::Menu*>& topLevel, QMenuBar& bar,
                         QWidget& owner)
    : bar_(bar), owner_(owner), topLevel_(topLevel) {
  for (controls::Menu* menu : topLevel_) {
    auto* qmenu = new QMenu(&owner_);
    menus_[menu] = qmenu;
    actions_[menu] = qmenu->menuAction();
    addItems(*menu, *qmenu);
    bar_.addMenu(qmenu);
    showState(*menu);
  }
  updateBar();
}

void MenuBinding::addItems(controls::Menu& menu, QMenu& qmenu) {
  for (controls::Menu* item : menu.items()) {
    QAction* action = nullptr;
    if (!item->items().empty()) {
      auto* sub = qmenu.addMenu(QString());
      menus_[item] = sub;
      action = sub->menuAction();
      addItems(*item, *sub);
    } else {
      action = qmenu.addAction(QString());
      QObject::connect(action, &QAction::triggered, &owner_,
                       [item] { guarded(*item, [&] { item->click(); }); });
    }
    actions_[item] = action;
    showState(*item);
  }
}

void MenuBinding::showState(controls::Menu& menu) {
  QAction* action = actions_.at(&menu);
  const bool separator = menu.parentMenu() && menu.isSeparator();
  action->setSeparator(separator);
  action->setText(separator ? QString() : mnemonicText(toQString(menu.caption())));
  if (auto it = menus_.find(&menu); it != menus_.end()) it->second->setTitle(action->text());
  action->setEnabled(menu.enabled());
  action->setVisible(menu.visible());
}

void MenuBinding::updateBar() {
  bool any = false;
  for (controls::Menu* menu : topLevel_) any = any || menu->visible();
  bar_.setVisible(any);
}

void MenuBinding::propertyChanged(controls::Menu& menu, controls::Property property) {
  if (!actions_.contains(&menu)) return;
  using controls::Property;
  if (property != Property::Caption && property != Property::Enabled &&
      property != Property::Visible) {
    return;
  }
  showState(menu);
  if (property == Property::Visible && !menu.parentMenu()) updateBar();
}

void MenuBinding::popup(controls::Menu& menu) {
  auto it = menus_.find(&menu);
  if (it == menus_.end()) return;
  it->second->exec(QCursor::pos());
}

QAction* MenuBinding::action(const controls::Menu& menu) const {
  auto it = actions_.find(&menu);
  return it == actions_.end() ? nullptr : it->second;
}

QMenu* MenuBinding::qmenu(const controls::Menu& menu) const {
  auto it = menus_.find(&menu);
  return it == menus_.end() ? nullptr : it->second;
}

}  // namespace kxc::qt
