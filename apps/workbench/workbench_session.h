// WorkbenchSession: the program's start-up and shut-down wiring, as the add-in workbook does it
// in the spreadsheet: engine, workbook application, worksheet function, add-in, menus.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/contract/cache_engine.h"
#include "engine/contract/csv_import.h"
#include "engine/contract/engine_options.h"
#include "facade/cache_ui.h"
#include "platform/dispatch.h"
#include "platform/services.h"
#include "platform/workbook/in_memory_application.h"
#include "state/add_in_context.h"

namespace kxc::workbench {

class FormViews;

inline constexpr const char* kWorkbenchCaption = "Kestra Workbench";
inline constexpr const char* kAddInWorkbook = "Kestra Cache.xla";

// Made once per run after the QApplication. The constructor makes the add-in context (file-backed
// settings, the catalogue reader, the Qt services and modal loop), registers the engine objects
// under their ProgIDs (the database opens on first use), creates the engine by ProgID, the
// in-memory application, BV_KXCSUM, installs the add-in, calls CacheUI::Initialise, puts the
// add-in's menus on bar 1 and the "Cell" bar, and sets the command handler. The destructor
// uninstalls the add-in workbook (its menus go), calls Shutdown and ends the context, which
// releases the dialogs and globals. Failures while wiring are reported through the services and
// leave that part out; nothing throws. User-interface thread only; one session at a time.
class WorkbenchSession {
 public:
  // `services` replaces the Qt services (tests pass recording ones); null installs QtServices.
  explicit WorkbenchSession(engine::EngineOptions options = {},
                            std::shared_ptr<Services> services = nullptr);
  ~WorkbenchSession();
  WorkbenchSession(const WorkbenchSession&) = delete;
  WorkbenchSession& operator=(const WorkbenchSession&) = delete;

  workbook::InMemoryApplication& app() const { return *app_; }
  const std::shared_ptr<workbook::InMemoryApplication>& appRef() const { return app_; }
  CacheUI& ui() { return ui_; }
  const ObjectRef& engineObject() const { return engine_; }
  engine::CacheEngine& engineCore() const { return *core_; }
  FormViews& formViews() const { return *views_; }

  // Opens the database now (generating the sample caches on a first run).
  void prepareCaches();

  // Runs a command of the add-in's menus: "FormulaEditor" opens the builder on the active
  // cell's formula, "DrillTrans" drills into the selection, "CacheManager" opens the manager
  // window, "ChangeLanguage" calls onChangeLanguage. Others are ignored. Then afterCommand.
  void runCommand(const std::string& command);
  std::function<void()> onChangeLanguage;
  std::function<void()> afterCommand;

  // Sets the add-in's language and puts its menus up again in that language.
  void changeLanguage(int16_t language);
  // Reverts the newest write-back; false when there was none. Recalculates either way.
  bool undoWriteBack();
  bool writeBackOn() const;

  // Imports a CSV file as a new cache (for the manager window's progress dialog).
  int32_t importCsv(const std::string& file, const std::string& cacheName,
                    const engine::ImportProgress& progress);

 private:
  struct Windows;
  AddInContext context_;  // first made, last ended
  std::unique_ptr<Windows> windows_;
  std::shared_ptr<engine::CacheEngine> core_;
  ObjectRef engine_;
  std::shared_ptr<workbook::InMemoryApplication> app_;
  CacheUI ui_;
  std::unique_ptr<FormViews> views_;
};

}  // namespace kxc::workbench
