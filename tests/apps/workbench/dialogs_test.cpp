// The add-in's dialogs driven through their real widgets on the sample report.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "dialogs/transactions_form.h"
#include "flows/formula_builder.h"
#include "flows/show_lookup.h"
#include "gui_environment.h"
#include "platform/qt/qt_form_view.h"
#include "sheet_view.h"
#include "state/tm_globals.h"

namespace kxc::testing {
namespace {

using AddInDialogs = WorkbenchTest;

template <typename Widget>
Widget* widgetOf(controls::Form& form, const char* name) {
  qt::QtFormView* view = qt::QtFormView::of(form);
  return view ? qobject_cast<Widget*>(view->widget(name)) : nullptr;
}

QAction* addInAction(QMenuBar& bar, const QString& command) {
  for (QAction* top : bar.actions()) {
    if (!top->menu()) continue;
    for (QAction* item : top->menu()->actions()) {
      if (item->text().remove('&').contains(command, Qt::CaseInsensitive)) return item;
    }
  }
  return nullptr;
}

TEST_F(AddInDialogs, BuilderChangesTheMeasureOfTheClickedFormula) {
  QTest::mouseDClick(window().sheetView().viewport(), Qt::LeftButton, {}, cellCentre(5, 2));
  processEvents();
  controls::Form& builder = frmCacheFormula().form();
  ASSERT_TRUE(builder.visible());
  auto* measure = widgetOf<QLineEdit>(builder, "txtMeasureIndex");
  auto* ok = widgetOf<QPushButton>(builder, "cmdOk");
  ASSERT_TRUE(measure && ok);
  measure->setFocus();
  measure->selectAll();
  QTest::keyClicks(measure, "2");
  QTest::mouseClick(ok, Qt::LeftButton);
  processEvents();
  EXPECT_FALSE(builder.visible());
  EXPECT_EQ(app().cellFormula("Sample Report", "Sheet1", 5, 2),
            "=BV_KXCSUM($B$2,2,$A5,\"<ALL>\",\"<ALL>\",\"<ALL>\",B$4)");
}

TEST_F(AddInDialogs, LookupPicksMembersWithTheKeyboard) {
  QTest::mouseDClick(window().sheetView().viewport(), Qt::LeftButton, {}, cellCentre(5, 2));
  processEvents();
  controls::Form& builder = frmCacheFormula().form();
  ASSERT_TRUE(builder.visible());
  auto* dimensions = widgetOf<QAbstractItemView>(builder, "lvDimensions");
  auto* lookupButton = widgetOf<QPushButton>(builder, "cmdDimension");
  ASSERT_TRUE(dimensions && lookupButton);
  // The Product row: the second dimension of "Sales".
  QTest::mouseClick(dimensions->viewport(), Qt::LeftButton, {},
                    dimensions->visualRect(dimensions->model()->index(1, 0)).center());
  processEvents();

  bool lookupShown = false;
  QTimer::singleShot(100, [&] {
    controls::Form& lookup = frmLookup().form();
    lookupShown = lookup.visible();
    auto* list = widgetOf<QAbstractItemView>(lookup, "lvList");
    auto* ok = widgetOf<QPushButton>(lookup, "cmdOk");
    if (!list || !ok) {
      lookup.hide();
      return;
    }
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::mouseClick(ok, Qt::LeftButton);
  });
  QTest::mouseClick(lookupButton, Qt::LeftButton);
  processEvents();
  EXPECT_TRUE(lookupShown);
  EXPECT_FALSE(frmLookup().form().visible());
  ASSERT_GE(gCurrentFormula.DimCount, 2);
  const std::string chosen = gCurrentFormula.Dims(2);
  EXPECT_NE(chosen, "<ALL>");
  EXPECT_NE(chosen, "");

  QTest::mouseClick(widgetOf<QPushButton>(builder, "cmdOk"), Qt::LeftButton);
  processEvents();
  const std::string formula = app().cellFormula("Sample Report", "Sheet1", 5, 2);
  EXPECT_NE(formula.find(chosen), std::string::npos) << formula << " lacks " << chosen;
}

TEST_F(AddInDialogs, CellContextMenuOpensTheBuilderOnTheClickedFormula) {
  auto& view = window().sheetView();
  const QPoint at = cellCentre(6, 3);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at);
  processEvents();
  QString seen;
  QTimer::singleShot(100, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return;
    QAction* formula = nullptr;
    for (QAction* top : menu->actions()) {
      seen += top->text().remove('&') + "|";
      if (!top->menu()) continue;
      for (QAction* item : top->menu()->actions()) {
        if (item->text().remove(QChar(u'&')).contains("Formula")) formula = item;
      }
    }
    if (formula) formula->trigger();
    menu->close();
  });
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, view.viewport()->mapToGlobal(at));
  QApplication::sendEvent(view.viewport(), &event);
  processEvents();
  EXPECT_NE(seen.indexOf("Kestra"), -1) << seen.toStdString();
  controls::Form& builder = frmCacheFormula().form();
  ASSERT_TRUE(builder.visible());
  auto* measure = widgetOf<QLineEdit>(builder, "txtMeasureIndex");
  ASSERT_NE(measure, nullptr);
  EXPECT_EQ(measure->text(), "1");
  QTest::mouseClick(widgetOf<QPushButton>(builder, "cmdCancel"), Qt::LeftButton);
  processEvents();
  EXPECT_FALSE(builder.visible());
  EXPECT_EQ(app().cellFormula("Sample Report", "Sheet1", 6, 3),
            "=BV_KXCSUM($B$2,1,$A6,\"<ALL>\",\"<ALL>\",\"<ALL>\",C$4)");
}

TEST_F(AddInDialogs, DrillDownFromTheMenuFillsTheTransactionsGrid) {
  const std::string formula = app().cellFormula("Sample Report", "Sheet1", 5, 2);
  app().select("Sheet1!$B$5:$C$6");
  window().refreshNow();
  QAction* drill = addInAction(*window().menuBar(), "Drill");
  ASSERT_NE(drill, nullptr);
  drill->trigger();
  processEvents();
  controls::Form& transactions = frmTransactions().form();
  ASSERT_TRUE(transactions.visible());
  auto* grid = widgetOf<QAbstractItemView>(transactions, "vasTrans");
  ASSERT_NE(grid, nullptr);
  EXPECT_GT(grid->model()->rowCount(), 1);
  auto* close = widgetOf<QPushButton>(transactions, "cmdCancel");
  ASSERT_NE(close, nullptr);
  QTest::mouseClick(close, Qt::LeftButton);
  processEvents();
  EXPECT_FALSE(transactions.visible());
  EXPECT_EQ(app().cellFormula("Sample Report", "Sheet1", 5, 2), formula)
      << "drilling changes nothing";
}

}  // namespace
}  // namespace kxc::testing
