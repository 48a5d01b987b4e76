// The list widget: a million rows, selection both ways, clicks and keys raised as events.
#include "platform/qt/list_view_widget.h"

#include <gtest/gtest.h>

#include <QTest>
#include <cstdio>

#include "platform/controls/form.h"
#include "platform/qt/qt_form_view.h"
#include "qt_application.h"

namespace kxc::qt {
namespace {

class ListWidgetFixture : public ::testing::Test {
 protected:
  ListWidgetFixture() : list_(form_.add<controls::ListView>("lvList")) {
    list_.columnHeaders().add(0, "1a", "Name");
    list_.setMultiSelect(true);
  }

  void fill(int rows) {
    auto& items = list_.listItems();
    items.reserve(rows);
    char text[16];
    for (int i = 1; i <= rows; ++i) {
      std::snprintf(text, sizeof text, "M%07d", i);
      items.add(0, {}, text);
    }
  }
  void open() {
    view_ = std::make_unique<QtFormView>(form_);
    form_.show(0);
    testing::processEvents();
    widget_ = dynamic_cast<ListViewWidget*>(view_->widget("lvList"));
    ASSERT_NE(widget_, nullptr);
  }
  QPoint rowCenter(int row) {
    return widget_->visualRect(widget_->model()->index(row, 0)).center();
  }
  std::vector<int32_t> selectedRows() {
    std::vector<int32_t> rows;
    for (int32_t i = 1; i <= list_.listItems().count(); ++i) {
      if (list_.listItems().selected(i)) rows.push_back(i);
    }
    return rows;
  }

  controls::Form form_{"frmLookup"};
  controls::ListView& list_;
  std::unique_ptr<QtFormView> view_;
  ListViewWidget* widget_ = nullptr;
};

TEST_F(ListWidgetFixture, AMillionRowsOpenAndShiftEndSelectsTheBlock) {
  fill(1'000'000);
  open();
  EXPECT_EQ(widget_->model()->rowCount(), 1'000'000);
  QTest::mouseClick(widget_->viewport(), Qt::LeftButton, {}, rowCenter(9));
  EXPECT_EQ(list_.listItems().focusIndex(), 10);
  QTest::keyClick(widget_, Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(list_.listItems().selectedCount(), 1'000'000 - 9);
  EXPECT_TRUE(list_.listItems().selected(10));
  EXPECT_FALSE(list_.listItems().selected(9));
  EXPECT_TRUE(list_.listItems().selected(1'000'000));
  EXPECT_EQ(list_.listItems().focusIndex(), 1'000'000);
  QTest::keyClick(widget_, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(list_.listItems().selectedCount(), 1'000'000);
}

TEST_F(ListWidgetFixture, ClicksSelectThroughTheModelAndRaiseItemClick) {
  fill(6);
  std::vector<int32_t> clicked;
  int clicks = 0;
  list_.onItemClick = [&](controls::ListItem item) { clicked.push_back(item.index()); };
  list_.onClick = [&] { ++clicks; };
  open();
  QTest::mouseClick(widget_->viewport(), Qt::LeftButton, {}, rowCenter(1));
  QTest::mouseClick(widget_->viewport(), Qt::LeftButton, Qt::ControlModifier, rowCenter(3));
  EXPECT_EQ(selectedRows(), (std::vector<int32_t>{2, 4}));
  QTest::mouseClick(widget_->viewport(), Qt::LeftButton, Qt::ShiftModifier, rowCenter(5));
  EXPECT_EQ(selectedRows(), (std::vector<int32_t>{4, 5, 6}));
  EXPECT_EQ(clicked, (std::vector<int32_t>{2, 4, 6}));
  EXPECT_EQ(clicks, 3);
  // Qt shows exactly what the model holds.
  const auto shown = widget_->selectionModel()->selectedRows();
  ASSERT_EQ(shown.size(), 3);
  EXPECT_TRUE(widget_->selectionModel()->isRowSelected(3, {}));
}

TEST_F(ListWidgetFixture, SelectionMadeByCodeReachesQt) {
  fill(100);
  open();
  list_.listItems().setSelected(20, true);
  list_.listItems().setSelected(21, true);
  list_.listItems().setSelected(50, true);
  testing::processEvents();
  const QItemSelection shown = widget_->selectionModel()->selection();
  ASSERT_EQ(shown.size(), 2);  // one range per run of rows
  EXPECT_EQ(shown.at(0).top(), 19);
  EXPECT_EQ(shown.at(0).bottom(), 20);
  EXPECT_EQ(widget_->currentIndex().row(), 49);
  list_.listItems().unselectAllBut(0);
  testing::processEvents();
  EXPECT_FALSE(widget_->selectionModel()->hasSelection());
}

TEST_F(ListWidgetFixture, RightButtonAndDoubleClickRaiseTheirEvents) {
  fill(3);
  std::vector<int> downs, ups;
  int doubleClicks = 0;
  list_.onMouseDown = [&](int button, int, double, double) { downs.push_back(button); };
  list_.onMouseUp = [&](int button, int shift, double, double) {
    ups.push_back(button + 10 * shift);
  };
  list_.onDblClick = [&] { ++doubleClicks; };
  open();
  QTest::mouseClick(widget_->viewport(), Qt::RightButton, Qt::ShiftModifier, rowCenter(0));
  QTest::mouseDClick(widget_->viewport(), Qt::LeftButton, {}, rowCenter(2));
  EXPECT_EQ(downs.front(), 2);
  EXPECT_EQ(ups.front(), 2 + 10 * 1);
  EXPECT_EQ(doubleClicks, 1);
}

TEST_F(ListWidgetFixture, AKeyTheHandlerConsumesDoesNotMoveTheSelection) {
  fill(5);
  list_.onKeyDown = [](int& keyCode, int) {
    if (keyCode == 40) keyCode = 0;  // Down
  };
  open();
  QTest::mouseClick(widget_->viewport(), Qt::LeftButton, {}, rowCenter(0));
  QTest::keyClick(widget_, Qt::Key_Down);
  EXPECT_EQ(selectedRows(), (std::vector<int32_t>{1}));
  QTest::keyClick(widget_, Qt::Key_End);
  EXPECT_EQ(selectedRows(), (std::vector<int32_t>{5}));
}

}  // namespace
}  // namespace kxc::qt
