#include "events/tm_command_bars.h"

#include <string>

#include "language/language.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

const std::string kTag(kMenuTag);

std::string translated(std::string_view key) { return gLanguage->TransMes(std::string(key)); }

// A menu left behind (the host keeps its bars between sessions) would otherwise be doubled.
void removeOwnTopLevelControls(host::CommandBarControls& controls) {
  for (int32_t i = controls.count(); i >= 1; --i) {
    host::ControlRef control = controls.item(i);
    if (control->tag() == kTag) control->deleteControl();
  }
}

}  // namespace

void CreateMenu(const host::BarRef& bar) {
  reportingErrors("TmCommandBars CreateMenu", [&] {
    if (!bar) throw RuntimeError(err::kObjectNotSet);
    removeOwnTopLevelControls(bar->controls());
    host::ControlRef popup = bar->controls().add(host::ControlType::Popup);
    popup->setTag(kTag);
    popup->setCaption(translated(kMenuCaptionKey));
    for (const MenuItemSpec& entry : kMenuItems) {
      host::ControlRef item = popup->controls().add(host::ControlType::Button);
      item->setTag(kTag);
      item->setCaption(translated(entry.captionKey));
      item->setParameter(std::string(entry.controlName));
      item->setOnAction(std::string(entry.command));
    }
  });
}

void DeleteMenu(host::BarRef& bar) {
  reportingErrors("TmCommandBars DeleteMenu", [&] {
    if (!bar) {
      const host::ApplicationRef& app = gExcelSink->oExcel();
      if (!app) throw RuntimeError(err::kObjectNotSet);
      bar = app->commandBars().item("Cell");
      if (!bar) throw RuntimeError(err::kObjectNotSet);
    }
    ignoringErrors([&] {
      host::ControlRef control = bar->findControl(kTag);
      if (control) control->deleteControl();
    });
  });
}

}  // namespace kxc
