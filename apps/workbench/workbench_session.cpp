#include "workbench_session.h"

#include <QPointer>

#include "cache_manager_window.h"
#include "engine/contract/cache_function.h"
#include "engine/contract/manager_object.h"
#include "engine/engine_registration.h"
#include "facade/add_in_setup.h"
#include "form_views.h"
#include "platform/catalogue/catalogue_reader.h"
#include "platform/catalogue_table.h"
#include "platform/error_report.h"
#include "platform/object_factory.h"
#include "platform/qt/qt_services.h"
#include "platform/settings/file_settings_store.h"
#include "platform/settings_store.h"
#include "platform/tm_win_reg.h"
#include "state/tm_globals.h"

namespace kxc::workbench {

namespace {

AddInContext::Setup sessionSetup(std::shared_ptr<Services> services) {
  AddInContext::Setup setup;
  setup.services = services ? std::move(services) : std::make_shared<qt::QtServices>();
  setup.settings = FileSettingsStore::fromEnvironment();
  setup.catalogues = openCatalogueFile;
  return setup;
}

}  // namespace

// The windows the session opens itself; Qt may delete them first, hence the guarded pointer.
struct WorkbenchSession::Windows {
  QPointer<CacheManagerWindow> managerWindow;
};

WorkbenchSession::WorkbenchSession(engine::EngineOptions options,
                                   std::shared_ptr<Services> services)
    : context_(sessionSetup(std::move(services))), windows_(std::make_unique<Windows>()) {
  // The add-in only writes into an existing settings key (an installation makes it); on a fresh
  // account the workbench makes it, or the chosen language would not be kept.
  CreateRegKey(HKEY_CURRENT_USER, "Software\\", "Kestra\\Cache");
  installAddIn(context_);
  views_ = std::make_unique<FormViews>();
  views_->installModalLoop();

  core_ = engine::registerEngineObjects(context_.objects(), std::move(options));
  reportingErrors("Workbench Start", [&] { engine_ = createObject(engine::kEngineProgId); });
  app_ = workbook::InMemoryApplication::create(kWorkbenchCaption);
  if (engine_) engine::registerCacheFunction(*app_, engine_);

  engine::setManagerWindowOpener([this](ObjectRef engine) {
    Windows& w = *windows_;
    if (!w.managerWindow) {
      w.managerWindow = new CacheManagerWindow(
          std::move(engine), [this](const std::string& file, const std::string& name,
                                    const engine::ImportProgress& progress) {
            return importCsv(file, name, progress);
          });
    }
    w.managerWindow->refresh();
    w.managerWindow->show();
    w.managerWindow->raise();
    w.managerWindow->activateWindow();
  });

  host::ApplicationRef host = app_;
  ObjectRef engine = engine_;
  ui_.Initialise(host, engine);
  createAddInMenus();
  reportingErrors("Workbench Start", [&] { views_->attachDialogs(); });
  app_->setCommandHandler([this](const std::string& command) { runCommand(command); });
}

WorkbenchSession::~WorkbenchSession() {
  app_->setCommandHandler(nullptr);
  app_->setChangeObserver(nullptr);
  ignoringErrors([&] { app_->uninstallAddin(kAddInWorkbook); });
  ui_.Shutdown();
  engine::setManagerWindowOpener(nullptr);
  delete windows_->managerWindow.data();
  views_.reset();
  engine_.reset();
}

void WorkbenchSession::prepareCaches() {
  reportingErrors("Workbench Start", [&] { core_->cacheCount(); });
}

void WorkbenchSession::runCommand(const std::string& command) {
  if (command == "FormulaEditor") {
    std::string formula;
    ignoringErrors([&] {
      host::RangeRef cell = app_->activeCell();
      if (cell) formula = cell->formula();
    });
    ui_.ShowFormulaBuilder(formula);
  } else if (command == "DrillTrans") {
    ui_.StartDrillDownTrans();
  } else if (command == "CacheManager") {
    ui_.CacheManager();
  } else if (command == "ChangeLanguage") {
    if (onChangeLanguage) onChangeLanguage();
  }
  if (afterCommand) afterCommand();
}

void WorkbenchSession::changeLanguage(int16_t language) {
  int16_t chosen = language;
  ui_.ChangeCurrentLang(chosen);
  createAddInMenus();
}

bool WorkbenchSession::undoWriteBack() {
  bool undone = false;
  reportingErrors("Workbench UndoWriteBack",
                  [&] { undone = invoke(engine_, "UndoWriteBack").toBool(); });
  app_->recalculate();
  return undone;
}

bool WorkbenchSession::writeBackOn() const { return gWriteBack != nullptr; }

int32_t WorkbenchSession::importCsv(const std::string& file, const std::string& cacheName,
                                    const engine::ImportProgress& progress) {
  return core_->importCsv(file, cacheName, progress);
}

}  // namespace kxc::workbench
