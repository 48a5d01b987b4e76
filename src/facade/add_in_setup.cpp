#include "facade/add_in_setup.h"

#include <cstdint>
#include <memory>
#include <string>

#include "events/tm_command_bars.h"
#include "events/tm_excel_events.h"
#include "platform/error_report.h"
#include "state/add_in_context.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

// The bar, or empty when the host cannot give it; CreateMenu reports the empty bar.
template <typename Key>
host::BarRef barOf(const Key& key) {
  host::BarRef bar;
  ignoringErrors([&] {
    const host::ApplicationRef& app = gExcelSink->oExcel();
    if (app) bar = app->commandBars().item(key);
  });
  return bar;
}

}  // namespace

void installAddIn(AddInContext& context) {
  context.provide<TmExcel>([] { return std::make_shared<TmExcelEvents>(); });
}

void createAddInMenus() {
  CreateMenu(barOf(std::string("Cell")));
  CreateMenu(barOf(int32_t{1}));
}

}  // namespace kxc
