#include "facade/add_in_setup.h"

#include <cstdint>
#include <memory>
#include <string>

#include "facade/facade_hooks.h"
#include "facade/tm_globals.h"
#include "formula/formula_flows.h"
#include "host/cache_write_back.h"
#include "host/tm_command_bars.h"
#include "host/tm_excel.h"
#include "platform/error_report.h"

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

void installAddIn() {
  installFormulaFlows();
  facadeHooks().createWriteBack = []() -> std::shared_ptr<WriteBackObject> {
    return std::make_shared<CacheWriteBack>();
  };
}

void createAddInMenus() {
  CreateMenu(barOf(std::string("Cell")));
  CreateMenu(barOf(int32_t{1}));
}

}  // namespace kxc
