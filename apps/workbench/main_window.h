// MainWindow: the workbench's window over the in-memory workbook: menus from the command bars,
// formula bar, sheet grid, sheet tabs and status bar.
#pragma once

#include <QMainWindow>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/application.h"
#include "qt_translation.h"

class QAction;
class QLabel;
class QTabBar;

namespace kxc::workbench {

class FormulaBar;
class SheetModel;
class SheetView;
class UnsavedChanges;
class WorkbenchSession;

// Shows the active sheet of the active workbook and follows every change the application
// reports (coalesced into one refresh per event-loop turn). The menu bar holds the workbench's
// own File and Edit menus, then the controls of command bar 1 (the add-in's menu appears there
// after CreateMenu); it is rebuilt whenever the command bars change. File > Open, Save and Save As
// report failures with "@WB_OPEN_FAILED" / "@WB_SAVE_FAILED". The session must outlive the
// window. User-interface thread only.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(WorkbenchSession& session, QWidget* parent = nullptr);
  ~MainWindow() override;

  // Brings the grid, tabs, formula bar, menus and title up to date now.
  void refreshNow();
  // Opens a workbook file; false (after telling the user) when it could not be read.
  bool openFile(const std::string& path);
  // Saves the active workbook as .xlsx; false (after telling the user) on failure.
  bool saveActiveAs(const std::string& path);
  bool saveWorkbookAs(const std::string& workbook, const std::string& path);
  // Asks, for each workbook edited since it was opened or saved, whether to save it first
  // (Yes opens the save dialog, No drops the edits, Cancel keeps the window); true when the
  // window may close.
  bool confirmClose();
  // Shows the language picker; on OK the add-in and the window change language.
  void chooseLanguage();
  // Puts the workbench's menus up in the current language and the add-in's menus again.
  void retranslate();

  SheetView& sheetView() const { return *view_; }
  FormulaBar& formulaBar() const { return *formulaBar_; }
  QTabBar& sheetTabs() const { return *tabs_; }
  QAction& saveAction() const { return *save_; }
  QAction& writeBackAction() const { return *writeBack_; }
  QAction& undoWriteBackAction() const { return *undoWriteBack_; }

 signals:
  // The window has closed for good (after confirmClose); the program ends then.
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void scheduleRefresh();
  void rebuildMenus();
  void showSheet(const std::string& workbook, const std::string& sheet);
  void refreshTabs();
  void updateStatus();
  void openDialog();
  void saveAsDialog();
  bool saveWorkbookWithDialog(const std::string& workbook);
  // Saves to the workbook's own .xlsx file, or asks for one when it has none.
  bool saveWorkbook(const std::string& workbook);
  void showLeftOut(const std::string& path, const std::vector<std::string>& notes);
  void undoWriteBack();
  void toggleWriteBack();

  WorkbenchSession& session_;
  std::shared_ptr<UnsavedChanges> unsaved_;
  QtTranslation qtTranslation_;
  host::EventHookup unsavedHookup_;
  FormulaBar* formulaBar_;
  SheetView* view_;
  QTabBar* tabs_;
  QLabel* status_;
  QAction* open_;
  QAction* save_;
  QAction* saveAs_;
  QAction* exit_;
  QAction* undoWriteBack_;
  QAction* writeBack_;
  std::map<std::pair<std::string, std::string>, SheetModel*> models_;
  // The .xlsx file each workbook was opened from or last saved as: where File > Save writes.
  std::map<std::string, std::string> files_;
  std::string menuSignature_;
  bool refreshPending_ = false;
  bool updatingTabs_ = false;
};

}  // namespace kxc::workbench
