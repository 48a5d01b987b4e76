#include "main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>
#include <filesystem>

#include "command_bar_menus.h"
#include "formula_bar.h"
#include "language/language.h"
#include "language_dialog.h"
#include "platform/error_report.h"
#include "platform/qt/caption_text.h"
#include "platform/qt/qt_text.h"
#include "platform/services.h"
#include "sheet_model.h"
#include "sheet_view.h"
#include "state/tm_globals.h"
#include "translated_text.h"
#include "unsaved_changes.h"
#include "workbench_session.h"
#include "workbook_files.h"

namespace kxc::workbench {

MainWindow::MainWindow(WorkbenchSession& session, QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      unsaved_(std::make_shared<UnsavedChanges>()),
      formulaBar_(new FormulaBar(session.appRef(), this)),
      view_(new SheetView(session.appRef(), this)),
      tabs_(new QTabBar(this)),
      status_(new QLabel(this)),
      open_(new QAction(this)),
      save_(new QAction(this)),
      saveAs_(new QAction(this)),
      exit_(new QAction(this)),
      undoWriteBack_(new QAction(this)),
      writeBack_(new QAction(this)) {
  setObjectName("workbench");
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(formulaBar_);
  layout->addWidget(view_, 1);
  layout->addWidget(tabs_);
  setCentralWidget(central);
  tabs_->setShape(QTabBar::RoundedSouth);
  tabs_->setExpanding(false);
  tabs_->setDocumentMode(true);
  statusBar()->addWidget(status_, 1);

  open_->setShortcut(QKeySequence::Open);
  save_->setShortcut(QKeySequence::Save);
  saveAs_->setShortcut(QKeySequence::SaveAs);
  exit_->setShortcut(QKeySequence::Quit);
  undoWriteBack_->setShortcut(QKeySequence::Undo);
  writeBack_->setCheckable(true);
  connect(open_, &QAction::triggered, this, &MainWindow::openDialog);
  connect(save_, &QAction::triggered, this,
          [this] { saveWorkbook(session_.app().activeWorkbookName()); });
  connect(saveAs_, &QAction::triggered, this, &MainWindow::saveAsDialog);
  connect(exit_, &QAction::triggered, this, &QWidget::close);
  connect(undoWriteBack_, &QAction::triggered, this, &MainWindow::undoWriteBack);
  connect(writeBack_, &QAction::triggered, this, &MainWindow::toggleWriteBack);
  connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
    if (updatingTabs_ || index < 0) return;
    const std::string workbook = session_.app().activeWorkbookName();
    const std::string sheet = qt::fromQString(tabs_->tabText(index));
    reportingErrors("Workbench Sheet", [&] { session_.app().activateSheet(workbook, sheet); });
    refreshNow();
  });
  connect(formulaBar_, &FormulaBar::committed, this, [this] { view_->setFocus(); });

  auto refreshSoon = [this] { scheduleRefresh(); };
  view_->afterCommand = refreshSoon;
  session_.afterCommand = refreshSoon;
  session_.onChangeLanguage = [this] { chooseLanguage(); };
  session_.app().setChangeObserver(refreshSoon);
  unsavedHookup_.hook(session_.appRef(), unsaved_);

  resize(1000, 640);
  retranslate();
  refreshNow();
  // Keys go to the grid first, as in a spreadsheet: arrows move, typing enters the cell.
  view_->setFocus();
}

MainWindow::~MainWindow() {
  unsavedHookup_.reset();
  session_.app().setChangeObserver(nullptr);
  session_.afterCommand = nullptr;
  session_.onChangeLanguage = nullptr;
}

void MainWindow::scheduleRefresh() {
  if (refreshPending_) return;
  refreshPending_ = true;
  QTimer::singleShot(0, this, [this] {
    if (refreshPending_) refreshNow();
  });
}

void MainWindow::refreshNow() {
  refreshPending_ = false;
  auto& app = session_.app();
  const std::string workbook = app.activeWorkbookName();
  const std::string sheet = app.activeSheetName();
  setWindowTitle(QString::fromUtf8(kWorkbenchCaption) +
                 (workbook.empty() ? QString() : " - " + qt::toQString(workbook)));
  refreshTabs();
  if (!workbook.empty()) showSheet(workbook, sheet);
  if (SheetModel* model = view_->sheetModel()) model->refresh();
  view_->showApplicationSelection();
  formulaBar_->refresh();
  std::string signature;
  ignoringErrors([&] { signature = barSignature(app.commandBars().item(int32_t{1})->controls()); });
  if (signature != menuSignature_) rebuildMenus();
  writeBack_->setChecked(session_.writeBackOn());
  updateStatus();
}

void MainWindow::showSheet(const std::string& workbook, const std::string& sheet) {
  SheetModel*& model = models_[{workbook, sheet}];
  if (!model) model = new SheetModel(session_.appRef(), workbook, sheet, this);
  if (view_->sheetModel() != model) view_->setSheetModel(model);
}

void MainWindow::refreshTabs() {
  auto& app = session_.app();
  const std::string workbook = app.activeWorkbookName();
  std::vector<std::string> sheets;
  if (!workbook.empty()) ignoringErrors([&] { sheets = app.sheetNames(workbook); });
  updatingTabs_ = true;
  bool same = tabs_->count() == static_cast<int>(sheets.size());
  for (int i = 0; same && i < tabs_->count(); ++i) {
    same = qt::fromQString(tabs_->tabText(i)) == sheets[static_cast<size_t>(i)];
  }
  if (!same) {
    while (tabs_->count() > 0) tabs_->removeTab(0);
    for (const std::string& sheet : sheets) tabs_->addTab(qt::toQString(sheet));
  }
  const std::string active = app.activeSheetName();
  for (int i = 0; i < tabs_->count(); ++i) {
    if (qt::fromQString(tabs_->tabText(i)) == active) tabs_->setCurrentIndex(i);
  }
  updatingTabs_ = false;
}

void MainWindow::rebuildMenus() {
  QMenuBar* bar = menuBar();
  const QList<QMenu*> old = bar->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
  bar->clear();
  for (QMenu* menu : old) menu->deleteLater();

  QMenu* file = bar->addMenu(qt::mnemonicText(textOf("@FILE&")));
  file->addAction(open_);
  file->addAction(save_);
  file->addAction(saveAs_);
  file->addSeparator();
  file->addAction(exit_);
  QMenu* edit = bar->addMenu(qt::mnemonicText(textOf("@WB_EDIT&")));
  edit->addAction(undoWriteBack_);
  edit->addSeparator();
  edit->addAction(writeBack_);

  auto& app = session_.app();
  ignoringErrors([&] {
    host::BarRef worksheetBar = app.commandBars().item(int32_t{1});
    fillMenuBar(*bar, worksheetBar->controls(), [this](const host::ControlRef& control) {
      reportingErrors("Workbench RunControl", [&] { session_.app().runControl(control); });
      scheduleRefresh();
    });
    menuSignature_ = barSignature(worksheetBar->controls());
  });
}

void MainWindow::retranslate() {
  int16_t language = 0;
  ignoringErrors([&] { language = gLanguage->CurrentLanguage(); });
  qtTranslation_.follow(language);
  open_->setText(qt::mnemonicText(textOf("@WB_OPEN&")));
  save_->setText(qt::mnemonicText(textOf("@WB_SAVE&")));
  saveAs_->setText(qt::mnemonicText(textOf("@WB_SAVE_AS&")));
  exit_->setText(qt::mnemonicText(textOf("@EXIT&")));
  undoWriteBack_->setText(qt::mnemonicText(textOf("@WB_UNDO_WRITE_BACK&")));
  writeBack_->setText(qt::mnemonicText(textOf("@WB_WRITE_BACK&")));
  menuSignature_.clear();
  rebuildMenus();
  updateStatus();
}

void MainWindow::updateStatus() {
  QString text = textOf("@WB_READY");
  std::string address;
  ignoringErrors([&] { address = session_.app().selectionAddress(); });
  if (!address.empty()) text += "    " + qt::toQString(address);
  if (session_.writeBackOn())
    text += "    " + qt::plainCaptionText(textOf("@WB_WRITE_BACK&")) + " \u2713";
  status_->setText(text);
}

bool MainWindow::openFile(const std::string& path) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  FileOutcome outcome = openWorkbookFile(session_.app(), path);
  QApplication::restoreOverrideCursor();
  if (!outcome.ok) {
    services().messageBox(outcome.message, mb::kExclamation, kWorkbenchCaption);
    return false;
  }
  if (!outcome.notes.empty()) showLeftOut(path, outcome.notes);
  // Only .xlsx is written back in place; an .ods file is saved as .xlsx under a name asked for.
  if (QString::fromStdString(path).endsWith(".xlsx", Qt::CaseInsensitive)) {
    files_[outcome.workbookName] = path;
  }
  if (!outcome.workbookName.empty()) {
    reportingErrors("Workbench Open", [&] {
      auto sheets = session_.app().sheetNames(outcome.workbookName);
      if (!sheets.empty()) session_.app().activateSheet(outcome.workbookName, sheets.front());
    });
  }
  refreshNow();
  return true;
}

bool MainWindow::saveActiveAs(const std::string& path) {
  return saveWorkbookAs(session_.app().activeWorkbookName(), path);
}

bool MainWindow::saveWorkbookAs(const std::string& workbook, const std::string& path) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  FileOutcome outcome = saveWorkbookFile(session_.app(), workbook, path);
  QApplication::restoreOverrideCursor();
  if (!outcome.ok) {
    services().messageBox(outcome.message, mb::kExclamation, kWorkbenchCaption);
    return false;
  }
  unsaved_->markSaved(workbook);
  files_[workbook] = path;
  statusBar()->showMessage(qt::toQString(path), 4000);
  return true;
}

void MainWindow::showLeftOut(const std::string& path, const std::vector<std::string>& notes) {
  constexpr size_t kMostListed = 12;
  const std::string name = std::filesystem::path(path).filename().string();
  std::string text;
  ignoringErrors([&] { text = gLanguage->TransMes("@WB_LEFT_OUT", Variant(name)); });
  for (size_t i = 0; i < notes.size() && i < kMostListed; ++i) text += "\n- " + notes[i];
  if (notes.size() > kMostListed) {
    text += "\n- \u2026 (+" + std::to_string(notes.size() - kMostListed) + ")";
  }
  services().messageBox(text, mb::kInformation, kWorkbenchCaption);
}

bool MainWindow::confirmClose() {
  constexpr int kYesNoCancel = 3;
  std::vector<std::string> workbooks;
  ignoringErrors([&] { workbooks = session_.app().workbookNames(); });
  for (const std::string& workbook : workbooks) {
    if (!unsaved_->edited(workbook)) continue;
    std::string question;
    ignoringErrors([&] { question = gLanguage->TransMes("@WB_SAVE_CHANGES", Variant(workbook)); });
    if (question.empty()) question = workbook + "?";
    const int answer =
        services().messageBox(question, kYesNoCancel | mb::kQuestion, kWorkbenchCaption);
    if (answer == mb::kIdNo) continue;
    if (answer != mb::kIdYes || !saveWorkbook(workbook)) return false;
  }
  return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!confirmClose()) {
    event->ignore();
    return;
  }
  event->accept();
  emit closed();
}

void MainWindow::openDialog() {
  const QString path = QFileDialog::getOpenFileName(
      this, qt::plainCaptionText(textOf("@WB_OPEN&")).remove(QChar(0x2026)), {},
      "Spreadsheets (*.xlsx *.ods);;* (*)");
  if (!path.isEmpty()) openFile(qt::fromQString(path));
}

void MainWindow::saveAsDialog() { saveWorkbookWithDialog(session_.app().activeWorkbookName()); }

bool MainWindow::saveWorkbook(const std::string& workbook) {
  auto file = files_.find(workbook);
  if (file == files_.end()) return saveWorkbookWithDialog(workbook);
  return saveWorkbookAs(workbook, file->second);
}

bool MainWindow::saveWorkbookWithDialog(const std::string& workbook) {
  // A workbook opened from "Book1.xlsx" is offered as "Book1.xlsx", the sample as "Sample
  // Report.xlsx".
  QString suggested = qt::toQString(workbook);
  if (!suggested.endsWith(".xlsx", Qt::CaseInsensitive)) suggested += ".xlsx";
  QString path = QFileDialog::getSaveFileName(
      this, qt::plainCaptionText(textOf("@WB_SAVE_AS&")).remove(QChar(0x2026)), suggested,
      "Spreadsheet (*.xlsx)");
  if (path.isEmpty()) return false;
  if (!path.endsWith(".xlsx", Qt::CaseInsensitive)) path += ".xlsx";
  return saveWorkbookAs(workbook, qt::fromQString(path));
}

void MainWindow::undoWriteBack() {
  session_.undoWriteBack();
  refreshNow();
}

void MainWindow::toggleWriteBack() {
  session_.ui().ToggleWriteBack();
  refreshNow();
}

void MainWindow::chooseLanguage() {
  std::vector<std::string> names;
  int16_t current = 0;
  ignoringErrors([&] {
    names = gLanguage->GetLanguageList();
    current = gLanguage->CurrentLanguage();
  });
  LanguageDialog dialog(languageChoices(names), current, this);
  if (dialog.exec() != QDialog::Accepted || dialog.chosen() < 0) return;
  session_.changeLanguage(dialog.chosen());
  retranslate();
  refreshNow();
}

}  // namespace kxc::workbench
