#include "command_bar_menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include "platform/error_report.h"
#include "platform/qt/qt_text.h"

namespace kxc::workbench {

namespace {

void connectRun(QAction* action, const host::ControlRef& control, const ControlRunner& run) {
  QObject::connect(action, &QAction::triggered, action,
                   [control, run] { QTimer::singleShot(0, [control, run] { run(control); }); });
}

// Menus and menu bars both take submenus and actions by caption.
template <typename MenuLike>
void fillWith(MenuLike& target, host::CommandBarControls& controls, const ControlRunner& run) {
  for (int32_t i = 1; i <= controls.count(); ++i) {
    host::ControlRef control;
    ignoringErrors([&] { control = controls.item(i); });
    if (!control) continue;
    const QString caption = qt::toQString(control->caption());
    if (control->type() == host::ControlType::Popup) {
      fillWith(*target.addMenu(caption), control->controls(), run);
    } else {
      connectRun(target.addAction(caption), control, run);
    }
  }
}

}  // namespace

void fillMenu(QMenu& menu, host::CommandBarControls& controls, const ControlRunner& run) {
  fillWith(menu, controls, run);
}

void fillMenuBar(QMenuBar& bar, host::CommandBarControls& controls, const ControlRunner& run) {
  fillWith(bar, controls, run);
}

std::string barSignature(host::CommandBarControls& controls) {
  std::string signature = "[";
  for (int32_t i = 1; i <= controls.count(); ++i) {
    host::ControlRef control;
    ignoringErrors([&] { control = controls.item(i); });
    if (!control) continue;
    // Lengths first, so no caption can imitate a boundary.
    const std::string caption = control->caption();
    const std::string tag = control->tag();
    const std::string action = control->onAction();
    signature += std::to_string(caption.size()) + ":" + caption + std::to_string(tag.size()) + ":" +
                 tag + std::to_string(action.size()) + ":" + action;
    if (control->type() == host::ControlType::Popup) signature += barSignature(control->controls());
    signature += ";";
  }
  return signature + "]";
}

}  // namespace kxc::workbench
