#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPixmap>
#include <QScrollBar>
#include <QStyle>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include "flows/formula_builder.h"
#include "formula_bar.h"
#include "gui_environment.h"
#include "language/language.h"
#include "language_dialog.h"
#include "number_fit.h"
#include "platform/qt/caption_text.h"
#include "platform/qt/qt_text.h"
#include "platform/services.h"
#include "platform/workbook/address_writer.h"
#include "sheet_model.h"
#include "sheet_view.h"
#include "state/tm_globals.h"

namespace kxc::testing {
namespace {

using workbench::SheetModel;

using WorkbenchWindow = WorkbenchTest;

QStringList menuTitles(QMenuBar& bar) {
  QStringList titles;
  for (QAction* action : bar.actions()) titles << action->text();
  return titles;
}

// Replaces what a box holds with `text` and presses Enter, as a user would.
void typeAndEnter(QLineEdit& box, const char* text) {
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, text);
  QTest::keyClick(&box, Qt::Key_Return);
  processEvents();
}

QString translated(const char* key) {
  return qt::mnemonicText(qt::toQString(gLanguage->TransMes(key)));
}

TEST_F(WorkbenchWindow, SampleReportShowsCacheValuesAndTotals) {
  for (const char* cell : {"Sheet1!B5", "Sheet1!E9", "Budget!B6", "Sheet1!C15"}) {
    const std::string text = app().displayText(cell);
    EXPECT_FALSE(text.empty()) << cell;
    EXPECT_NE(text[0], '#') << cell << " shows " << text;
  }
  EXPECT_EQ(app().displayText("Sheet1!F10"), app().displayText("Sheet1!F10"));
  EXPECT_NE(app().displayText("Sheet1!F10"), "0");
}

TEST_F(WorkbenchWindow, OpensOnTheSheetsTopLeftCornerWithTheFirstFormulaSelected) {
  auto& view = window().sheetView();
  EXPECT_EQ(view.horizontalScrollBar()->value(), 0);
  EXPECT_EQ(view.verticalScrollBar()->value(), 0);
  EXPECT_EQ(view.currentIndex().row(), 4);
  EXPECT_EQ(view.currentIndex().column(), 1);
  EXPECT_EQ(window().focusWidget(), &view) << "keys must reach the grid first";
}

TEST_F(WorkbenchWindow, NameBoxFollowsTheSelectionUnlessSomethingIsTypedInIt) {
  QLineEdit& box = window().formulaBar().nameBox();
  box.setFocus();
  app().select("Sheet1!C7");
  window().refreshNow();
  EXPECT_EQ(box.text(), "$C$7") << "focus alone must not freeze the box";
  QTest::keyClicks(&box, "D");
  app().select("Sheet1!C8");
  window().refreshNow();
  EXPECT_EQ(box.text(), "$C$7D");
}

TEST_F(WorkbenchWindow, NarrowColumnsShowTheirNumbersFittedNotCut) {
  auto& view = window().sheetView();
  app().select("Sheet1!A1");  // B5 unselected, so its text is the only ink in it
  window().refreshNow();
  view.setColumnWidth(1, 48);
  const QModelIndex cell = view.model()->index(4, 1);
  ASSERT_TRUE(cell.data(SheetModel::kNumberRole).isValid());
  const QRect rect = view.visualRect(cell);
  QPixmap picture(view.viewport()->size());
  picture.fill(Qt::white);
  view.viewport()->render(&picture);
  const QImage image = picture.toImage();
  int inkLeft = rect.right();
  int inkRight = rect.left();
  for (int x = rect.left() + 1; x < rect.right(); ++x) {
    for (int y = rect.top() + 1; y < rect.bottom(); ++y) {
      if (qGray(image.pixel(x, y)) >= 128) continue;
      inkLeft = std::min(inkLeft, x);
      inkRight = std::max(inkRight, x);
    }
  }
  ASSERT_LT(inkLeft, inkRight) << "nothing drawn";
  // The drawn text is as wide as the fitted text: not elided, not the full number cut off.
  const QFontMetrics metrics(view.font());
  const int margin = view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1;
  const std::string fitted = workbench::fitNumberText(
      cell.data(SheetModel::kNumberRole).toDouble(), [&](std::string_view text) {
        return metrics.horizontalAdvance(QString::fromUtf8(text.data(), text.size())) <=
               rect.width() - 2 * margin;
      });
  EXPECT_NE(fitted, cell.data(Qt::DisplayRole).toString().toStdString()) << "column too wide";
  EXPECT_NEAR(inkRight - inkLeft + 1, metrics.horizontalAdvance(QString::fromStdString(fitted)), 3)
      << fitted;
}

TEST_F(WorkbenchWindow, MenuBarHoldsTheAddInMenuAndLosesItOnUninstall) {
  const QString addIn = translated("@KES_CACHE &A");
  EXPECT_TRUE(menuTitles(*window().menuBar()).contains(addIn))
      << menuTitles(*window().menuBar()).join("|").toStdString();
  app().uninstallAddin(workbench::kAddInWorkbook);
  window().refreshNow();
  EXPECT_FALSE(menuTitles(*window().menuBar()).contains(addIn));
}

TEST_F(WorkbenchWindow, ClickingACellSelectsItAndShowsItsFormula) {
  QTest::mouseClick(window().sheetView().viewport(), Qt::LeftButton, {}, cellCentre(6, 3));
  processEvents();
  EXPECT_EQ(app().selectionAddress(), "$C$6");
  EXPECT_EQ(window().formulaBar().nameBox().text(), "$C$6");
  EXPECT_EQ(qt::fromQString(window().formulaBar().formulaBox().text()),
            "=BV_KXCSUM($B$2,1,$A6,\"<ALL>\",\"<ALL>\",\"<ALL>\",C$4)");
}

TEST_F(WorkbenchWindow, FormulaBarEnterTypesIntoTheActiveCell) {
  app().select("Sheet1!A20");
  window().refreshNow();
  typeAndEnter(window().formulaBar().formulaBox(), "=B10+1");
  EXPECT_EQ(app().cellFormula("Sample Report", "Sheet1", 20, 1), "=B10+1");
  EXPECT_EQ(window().sheetView().model()->index(19, 0).data().toString().toStdString(),
            app().displayText("Sheet1!A20"));
}

TEST_F(WorkbenchWindow, NameBoxSelectsWhatIsTypedThere) {
  typeAndEnter(window().formulaBar().nameBox(), "B6:C7");
  EXPECT_EQ(app().selectionAddress(), "$B$6:$C$7");
  const auto selected = window().sheetView().selectionModel()->selectedIndexes();
  EXPECT_EQ(selected.size(), 4);
}

TEST_F(WorkbenchWindow, TypingInTheGridEntersTheCell) {
  auto& view = window().sheetView();
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCentre(22, 4));
  processEvents();
  // Keys go where the keyboard would send them: the first opens the editor, the rest go to it.
  for (const char key : std::string("42")) QTest::keyClick(QApplication::focusWidget(), key);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  processEvents();
  EXPECT_EQ(app().displayText("Sheet1!D22"), "42");
  EXPECT_EQ(app().selectionAddress(), "$D$23") << "Enter moves one cell down";
  QTest::keyClick(QApplication::focusWidget(), '7');
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  processEvents();
  EXPECT_EQ(app().displayText("Sheet1!D23"), "7");
  EXPECT_EQ(app().selectionAddress(), "$E$23") << "Tab moves one cell right";
  EXPECT_EQ(QApplication::focusWidget(), &view) << "no editor opens on the next cell";
}

TEST_F(WorkbenchWindow, DeleteEmptiesTheSelectedCellsAndTheTotalsFollow) {
  const std::string total = app().displayText("Sheet1!F5");
  auto& view = window().sheetView();
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCentre(5, 2));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, cellCentre(5, 3));
  processEvents();
  EXPECT_EQ(app().selectionAddress(), "$B$5:$C$5");
  QTest::keyClick(&view, Qt::Key_Delete);
  processEvents();
  EXPECT_EQ(app().cellFormula("Sample Report", "Sheet1", 5, 2), "");
  EXPECT_EQ(app().cellFormula("Sample Report", "Sheet1", 5, 3), "");
  EXPECT_EQ(view.model()->index(4, 1).data().toString(), "");
  EXPECT_NE(app().displayText("Sheet1!F5"), total);
}

TEST_F(WorkbenchWindow, DoubleClickEditsPlainCellsButOpensTheBuilderOnCacheFormulas) {
  auto& view = window().sheetView();
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, cellCentre(25, 1));
  processEvents();
  auto editorOpen = [&view] {
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && view.viewport()->isAncestorOf(focus);
  };
  EXPECT_TRUE(editorOpen());
  QTest::keyClick(view.focusWidget(), Qt::Key_Escape);
  processEvents();

  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, cellCentre(5, 2));
  processEvents();
  EXPECT_FALSE(editorOpen());
  EXPECT_TRUE(frmCacheFormula().form().visible());
  frmCacheFormula().form().hide();
}

TEST_F(WorkbenchWindow, SheetTabsSwitchTheActiveSheet) {
  QTabBar& tabs = window().sheetTabs();
  ASSERT_EQ(tabs.count(), 2);
  EXPECT_EQ(tabs.tabText(1), "Budget");
  tabs.setCurrentIndex(1);
  processEvents();
  EXPECT_EQ(app().activeSheetName(), "Budget");
  EXPECT_EQ(window().sheetView().model()->index(0, 0).data().toString(),
            "Budget by department and quarter");
}

TEST_F(WorkbenchWindow, WriteBackActionTogglesTheAddInsWriteBack) {
  QAction& action = window().writeBackAction();
  action.trigger();
  EXPECT_TRUE(session().writeBackOn());
  EXPECT_TRUE(action.isChecked());
  action.trigger();
  EXPECT_FALSE(session().writeBackOn());
  EXPECT_FALSE(action.isChecked());
}

TEST_F(WorkbenchWindow, UndoWriteBackRestoresTheCacheValue) {
  const std::string before = app().displayText("Sheet1!B5");
  window().writeBackAction().trigger();
  app().typeInto("Sheet1!$B$5", "12345");
  window().refreshNow();
  const std::string written = app().displayText("Sheet1!B5");
  EXPECT_NE(written, before);
  window().undoWriteBackAction().trigger();
  EXPECT_EQ(app().displayText("Sheet1!B5"), before);
  window().writeBackAction().trigger();
}

TEST_F(WorkbenchWindow, ChangingLanguageRetranslatesTheWholeMenuBar) {
  const QStringList english = menuTitles(*window().menuBar());
  session().changeLanguage(2);
  window().retranslate();
  const QStringList german = menuTitles(*window().menuBar());
  ASSERT_EQ(german.size(), english.size());
  EXPECT_NE(german.front(), english.front());
  EXPECT_TRUE(german.contains(translated("@KES_CACHE &A")));
  for (const QString& title : german) EXPECT_FALSE(title.startsWith("!!")) << title.toStdString();
  session().changeLanguage(0);
}

TEST_F(WorkbenchWindow, LanguageCommandOpensThePickerAndTheChoiceSticks) {
  QAction* command = nullptr;
  for (QAction* top : window().menuBar()->actions()) {
    if (!top->menu()) continue;
    for (QAction* item : top->menu()->actions()) {
      if (item->text().remove('&') == qt::plainCaptionText(translated("@LANGUAGE &L"))) {
        command = item;
      }
    }
  }
  ASSERT_NE(command, nullptr);
  bool pickerShown = false;
  QTimer::singleShot(100, [&] {
    auto* picker = qobject_cast<workbench::LanguageDialog*>(QApplication::activeModalWidget());
    if (!picker) return;
    pickerShown = true;
    QListWidget& list = picker->list();
    for (int row = 0; row < list.count(); ++row) {
      if (list.item(row)->text() == "Deutsch") list.setCurrentRow(row);
    }
    QTest::keyClick(&list, Qt::Key_Return);
  });
  command->trigger();
  for (int i = 0; i < 20 && !pickerShown; ++i) QTest::qWait(50);
  processEvents();
  EXPECT_TRUE(pickerShown);
  EXPECT_EQ(gLanguage->CurrentLanguage(), 2);
  EXPECT_TRUE(menuTitles(*window().menuBar()).contains("&Datei"));
  session().changeLanguage(0);
  window().retranslate();
}

TEST_F(WorkbenchWindow, TypingANumberOverACacheFormulaWritesItBack) {
  window().writeBackAction().trigger();
  auto& view = window().sheetView();
  const std::string formula = app().cellFormula("Sample Report", "Sheet1", 6, 3);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cellCentre(6, 3));
  processEvents();
  for (const char key : std::string("1000")) QTest::keyClick(QApplication::focusWidget(), key);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  processEvents();
  EXPECT_EQ(app().cellFormula("Sample Report", "Sheet1", 6, 3), formula);
  EXPECT_EQ(app().displayText("Sheet1!C6"), "1000");
  window().undoWriteBackAction().trigger();
  EXPECT_NE(app().displayText("Sheet1!C6"), "1000");
  window().writeBackAction().trigger();
}

TEST_F(WorkbenchWindow, ASavedReportOpensAgainWithItsCacheFormulasAndValues) {
  const std::string file = (scratchFolder() / "report-copy.xlsx").string();
  ASSERT_TRUE(window().saveActiveAs(file));
  ASSERT_TRUE(window().openFile(file));
  EXPECT_TRUE(services().messages.empty());
  EXPECT_EQ(app().activeWorkbookName(), "report-copy.xlsx");
  for (int32_t row : {5, 9, 14}) {
    for (int32_t column : {2, 3}) {
      const std::string cell = "Sheet1!" + workbook::cellAddress(row, column);
      EXPECT_EQ(app().cellFormula("report-copy.xlsx", "Sheet1", row, column),
                app().cellFormula("Sample Report", "Sheet1", row, column))
          << cell;
      EXPECT_EQ(app().cellText("report-copy.xlsx", "Sheet1", row, column),
                app().cellText("Sample Report", "Sheet1", row, column))
          << cell;
    }
  }
  EXPECT_EQ(window().sheetTabs().count(), 2);
}

TEST_F(WorkbenchWindow, ClosingAfterAnEditAsksFirstAndCancelKeepsTheWindow) {
  EXPECT_TRUE(window().confirmClose()) << "nothing edited yet";
  EXPECT_TRUE(services().messages.empty());
  app().typeInto("Sheet1!A20", "note");
  services().answers = {mb::kIdCancel};
  EXPECT_FALSE(window().close());
  ASSERT_EQ(services().messages.size(), 1u);
  EXPECT_NE(services().messages[0].text.find("Sample Report"), std::string::npos);
  EXPECT_EQ(services().messages[0].style, 3 | mb::kQuestion);
  EXPECT_TRUE(window().isVisible());
  services().answers = {mb::kIdNo};
  EXPECT_TRUE(window().close());
}

TEST_F(WorkbenchWindow, SaveWritesBackToTheFileTheWorkbookCameFrom) {
  const std::filesystem::path first = scratchFolder() / "kept.xlsx";
  ASSERT_TRUE(window().saveActiveAs(first.string()));
  app().typeInto("Sheet1!A20", "added later");
  window().saveAction().trigger();
  EXPECT_TRUE(services().messages.empty());
  EXPECT_TRUE(window().confirmClose()) << "saved, so nothing to ask";
  // A copy under another name opens beside the sample and shows the later edit.
  const std::filesystem::path copy = scratchFolder() / "kept-copy.xlsx";
  std::filesystem::copy_file(first, copy, std::filesystem::copy_options::overwrite_existing);
  ASSERT_TRUE(window().openFile(copy.string()));
  EXPECT_EQ(app().cellText("kept-copy.xlsx", "Sheet1", 20, 1), "added later");
}

TEST_F(WorkbenchWindow, SavingForgetsTheEditsSoClosingDoesNotAsk) {
  app().typeInto("Sheet1!A20", "note");
  ASSERT_TRUE(window().saveActiveAs((scratchFolder() / "saved.xlsx").string()));
  EXPECT_TRUE(window().confirmClose());
  EXPECT_TRUE(services().messages.empty());
}

TEST_F(WorkbenchWindow, OpeningAMissingFileSaysWhichAndWhy) {
  EXPECT_FALSE(window().openFile((scratchFolder() / "missing.xlsx").string()));
  ASSERT_EQ(services().messages.size(), 1u);
  EXPECT_NE(services().messages[0].text.find("missing.xlsx"), std::string::npos);
  EXPECT_NE(services().messages[0].text.find("does not exist"), std::string::npos)
      << services().messages[0].text;
  EXPECT_EQ(services().messages[0].style, 48);
  EXPECT_EQ(app().activeWorkbookName(), "Sample Report");
}

TEST_F(WorkbenchWindow, SavingIntoAMissingFolderSaysWhichAndWhy) {
  EXPECT_FALSE(window().saveActiveAs((scratchFolder() / "no" / "such" / "out.xlsx").string()));
  ASSERT_EQ(services().messages.size(), 1u);
  EXPECT_NE(services().messages[0].text.find("out.xlsx"), std::string::npos);
}

}  // namespace
}  // namespace kxc::testing
