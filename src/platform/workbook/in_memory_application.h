// The in-memory spreadsheet application: workbooks, sheets, cells, formulas, command bars and
// the four application events, behind the host port the add-in talks to.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/host/application.h"
#include "platform/host/worksheet_functions.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/cell_range.h"
#include "platform/workbook/command_bar_set.h"
#include "platform/workbook/event_hub.h"
#include "platform/workbook/grid.h"
#include "platform/workbook/spreadsheet.h"

namespace kxc::workbook {

// Owned through shared_ptr (ranges it hands out keep it alive). Single-threaded: every call
// comes from the user-interface thread. Reference texts that name nothing raise
// RuntimeError(1004, "Method 'Range' of object '_Application' failed"); a workbook or sheet
// name that is not open raises 9; with no workbook open, activeCell() and the selections
// raise 91.
class InMemoryApplication : public host::Application,
                            public host::FunctionRegistry,
                            public std::enable_shared_from_this<InMemoryApplication>,
                            private RangeOwner {
 public:
  // Events raised from inside event handlers (a SheetChange handler writing the cell it was
  // told about, which raises SheetChange again) stop at this nesting depth; the actions
  // themselves still happen.
  static constexpr int kMaxEventNesting = 8;

  static std::shared_ptr<InMemoryApplication> create(std::string caption = "Kestra Workbench");
  ~InMemoryApplication() override;

  // Workbooks and sheets. addWorkbook creates a workbook with one sheet (named `firstSheet`)
  // and activates it; a name that is not allowed or taken raises 1004 and adds nothing.
  // addSheet appends a sheet without activating it.
  std::shared_ptr<host::Workbook> addWorkbook(const std::string& name,
                                              const std::string& firstSheet = "Sheet1");
  std::shared_ptr<host::Worksheet> addSheet(const std::string& workbookName,
                                            const std::string& sheetName);
  void activateSheet(const std::string& workbookName, const std::string& sheetName);
  // A workbook-level name in the active workbook; `reference` is read relative to the active
  // sheet. A name that reads as a cell reference raises 1004.
  void defineName(const std::string& name, const std::string& reference);

  // User-like actions, each raising the events the spreadsheet raises.
  // Selects a cell or block (activating its sheet); raises SheetSelectionChange.
  void select(const std::string& reference);
  // Types into the active cell; raises SheetChange after storing and recalculating.
  void type(const std::string& text);
  void typeInto(const std::string& reference, const std::string& text);
  // Empties every cell of the selection (the Delete key); raises one SheetChange whose target
  // is the whole selection.
  void clearSelection();
  // Selects the cell and raises SheetBeforeDoubleClick; returns the Cancel the sinks left.
  bool doubleClick(const std::string& reference);
  // Raises WorkbookAddinUninstall with a workbook of that name.
  void uninstallAddin(const std::string& workbookName);

  // Direct cell access without events (test set-up, loading files). setCell enters the text
  // as typed into every cell of the reference.
  void setCell(const std::string& reference, const std::string& text);
  // What the reference's first cell shows ("12.5", "#NAME?", "North").
  std::string displayText(const std::string& reference);
  void recalculate();
  // While suspended, setCell stores without recalculating; resuming recalculates everything.
  void setCalculationSuspended(bool suspended);

  // For the window that shows and edits the sheets.
  std::vector<std::string> workbookNames() const;
  std::vector<std::string> sheetNames(const std::string& workbookName) const;
  std::string activeWorkbookName() const;  // "" when none is open
  std::string activeSheetName() const;     // "" when none is open
  // The smallest area holding every non-empty cell of the sheet; nullopt when it is empty.
  std::optional<Area> usedRange(const std::string& workbookName,
                                const std::string& sheetName) const;
  std::string cellFormula(const std::string& workbookName, const std::string& sheetName,
                          int32_t row, int32_t column) const;
  Variant cellValue(const std::string& workbookName, const std::string& sheetName, int32_t row,
                    int32_t column) const;
  std::string cellText(const std::string& workbookName, const std::string& sheetName, int32_t row,
                       int32_t column) const;
  // The active sheet's selection as "$B$2:$C$4" (areas joined by ","); "" when none.
  std::string selectionAddress() const;
  // Grows with every change of content, values, structure or selection.
  uint64_t revision() const;
  // Called after every change made through this object (content, selection, structure).
  void setChangeObserver(std::function<void()> observer);
  // Receives the descriptions of exceptions that event sinks let escape; they are dropped
  // otherwise and never stop delivery to the other sinks.
  void setEventFailureHandler(std::function<void(const std::string& description)> handler);
  const Spreadsheet& model() const { return model_; }

  // Command bars. runControl hands the control's OnAction command to the handler.
  void setCommandHandler(std::function<void(const std::string& command)> handler);
  void runControl(const host::ControlRef& control);

  // host::Application
  host::RangeRef activeCell() override;
  host::RangeRef rangeSelection() override;
  host::RangeRef selection() override;
  host::RangeRef range(const std::string& reference) override;
  std::string caption() const override { return caption_; }
  host::CommandBars& commandBars() override { return bars_; }
  void subscribe(const std::shared_ptr<host::ApplicationEvents>& sink) override;
  void unsubscribe(const host::ApplicationEvents* sink) override;

  // host::FunctionRegistry
  void registerFunction(const std::string& name, host::WorksheetFunction function) override;

 private:
  explicit InMemoryApplication(std::string caption);

  // RangeOwner
  Spreadsheet& spreadsheet() override { return model_; }
  void writeFromCode(const std::vector<Block>& blocks, const Variant& value) override;

  std::shared_ptr<Book> bookNamed(const std::string& name) const;  // raises 9
  std::shared_ptr<Sheet> sheetNamed(const std::string& workbookName,
                                    const std::string& sheetName) const;  // raises 9
  Sheet& requireActiveSheet() const;                                      // raises 91
  std::vector<Block> resolveOrFail(const std::string& reference) const;
  std::vector<Block> selectionBlocks(const Sheet& sheet) const;
  host::RangeRef rangeOf(std::vector<Block> blocks);
  void raise(const std::function<void(host::ApplicationEvents&)>& event);
  void raiseChange(const std::vector<Block>& blocks);
  void changed();

  std::string caption_;
  Spreadsheet model_;
  MenuBarSet bars_;
  EventHub events_;
  std::shared_ptr<Sheet> activeSheet_;
  std::function<void(const std::string&)> commandHandler_;
  std::function<void()> observer_;
  int eventDepth_ = 0;
  uint64_t selectionRevision_ = 0;
};

}  // namespace kxc::workbook
