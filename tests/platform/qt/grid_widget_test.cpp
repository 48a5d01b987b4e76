// The grid widget: the selected block and the current cell both ways, clicks and copying.
#include "platform/qt/grid_widget.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/controls/form.h"
#include "platform/qt/qt_form_view.h"
#include "qt_application.h"
#include "support/recording_services.h"

namespace kxc::qt {
namespace {

TEST(GridWidget, BlocksCellsAndClicksTravelBothWays) {
  testing::ScopedRecordingServices services;
  controls::Form form("frmTransactions");
  auto& grid = form.add<controls::Grid>("vasTrans");
  grid.setBlock(1, 0, "Date\tAmount\nMon\t1\nTue\t2\nWed\t3");
  std::vector<int> rightButtons;
  grid.onMouseDown = [&](int button, int, double, double) { rightButtons.push_back(button); };
  QtFormView view(form);
  form.show(0);
  testing::processEvents();
  auto* widget = dynamic_cast<GridWidget*>(view.widget("vasTrans"));
  ASSERT_NE(widget, nullptr);
  ASSERT_EQ(widget->model()->rowCount(), 3);

  QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);  // the user selects everything
  EXPECT_EQ(grid.selection(), (controls::Grid::Block{1, 1, 2, 3}));
  QTest::keyClick(widget, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(services->clipboard, "Mon\t1\r\nTue\t2\r\nWed\t3");

  grid.setSelection(2, 2, 2, 3);  // the logic selects a block
  testing::processEvents();
  const QItemSelection shown = widget->selectionModel()->selection();
  ASSERT_EQ(shown.size(), 1);
  EXPECT_EQ(shown.at(0).topLeft(), widget->model()->index(1, 1));
  EXPECT_EQ(shown.at(0).bottomRight(), widget->model()->index(2, 1));

  const QModelIndex tue = widget->model()->index(1, 0);
  QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, widget->visualRect(tue).center());
  EXPECT_EQ(grid.col(), 1);
  EXPECT_EQ(grid.row(), 2);
  QTest::mouseClick(widget->viewport(), Qt::RightButton, {}, widget->visualRect(tue).center());
  EXPECT_EQ(rightButtons.back(), 2);
  grid.setColWidth(2, 20);
  EXPECT_GT(widget->columnWidth(1), widget->columnWidth(0));
}

}  // namespace
}  // namespace kxc::qt
