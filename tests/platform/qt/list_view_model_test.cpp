// The list model over a list view's rows, checked with Qt's model tester.
#include "platform/qt/list_view_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "platform/controls/form.h"
#include "qt_application.h"

namespace kxc::qt {
namespace {

using controls::ListChange;

// A form whose list forwards its notices to the model under test, as the form view does.
class ListModelFixture : public ::testing::Test, public controls::FormView {
 protected:
  ListModelFixture() : list_(form_.add<controls::ListView>("lvList")) {
    list_.columnHeaders().add(0, "1a", "Name");
    list_.columnHeaders().add(0, "2a", "Description", 2000, controls::kAlignRight);
    model_ = std::make_unique<ListViewModel>(list_);
    tester_ = std::make_unique<QAbstractItemModelTester>(
        model_.get(), QAbstractItemModelTester::FailureReportingMode::Warning);
    form_.setView(this);
  }
  ~ListModelFixture() override { form_.setView(nullptr); }

  void listChanged(controls::ListView&, const ListChange& change) override {
    model_->rowsChanged(change);
  }
  void propertyChanged(controls::Control*, controls::Property property) override {
    if (property == controls::Property::Columns) model_->columnsChanged();
  }

  void addRows(int n, const char* prefix = "M") {
    for (int i = 1; i <= n; ++i) {
      list_.listItems()
          .add(0, {}, prefix + std::to_string(i))
          .setSubItem(1, "d" + std::to_string(i));
    }
  }
  QString cell(int row, int column) { return model_->data(model_->index(row, column)).toString(); }

  testing::ModelTesterLog log_;
  controls::Form form_{"frmLookup"};
  controls::ListView& list_;
  std::unique_ptr<ListViewModel> model_;
  std::unique_ptr<QAbstractItemModelTester> tester_;
};

TEST_F(ListModelFixture, ReadsTextsAndSubItemsStraightFromTheList) {
  addRows(3);
  model_->flush();
  ASSERT_EQ(model_->rowCount(), 3);
  ASSERT_EQ(model_->columnCount(), 2);
  EXPECT_EQ(cell(0, 0), "M1");
  EXPECT_EQ(cell(2, 1), "d3");
  EXPECT_EQ(model_->headerData(1, Qt::Horizontal).toString(), "Description");
  EXPECT_EQ(model_->data(model_->index(0, 1), Qt::TextAlignmentRole).value<Qt::Alignment>() &
                Qt::AlignHorizontal_Mask,
            Qt::AlignRight);
  list_.listItems().item(2).setText("changed");
  EXPECT_EQ(cell(1, 0), "changed");
  EXPECT_TRUE(log_.complaints().isEmpty()) << log_.complaints().join('\n').toStdString();
}

TEST_F(ListModelFixture, AppendedRowsAreAnnouncedTogetherByOneInsert) {
  QSignalSpy inserted(model_.get(), &QAbstractItemModel::rowsInserted);
  addRows(1000);
  EXPECT_EQ(model_->rowCount(), 0);  // not yet announced
  EXPECT_TRUE(model_->hasPendingRows());
  testing::processEvents();  // the queued flush
  EXPECT_EQ(model_->rowCount(), 1000);
  ASSERT_EQ(inserted.count(), 1);
  EXPECT_EQ(inserted.at(0).at(1).toInt(), 0);
  EXPECT_EQ(inserted.at(0).at(2).toInt(), 999);
}

TEST_F(ListModelFixture, InsertsRemovesAndClearsStayConsistentWithTheTester) {
  QSignalSpy reset(model_.get(), &QAbstractItemModel::modelReset);
  QSignalSpy removed(model_.get(), &QAbstractItemModel::rowsRemoved);
  addRows(5);
  list_.listItems().add(2, "k", "inserted");  // in the middle: a reset
  EXPECT_EQ(model_->rowCount(), 6);
  EXPECT_EQ(cell(1, 0), "inserted");
  EXPECT_EQ(reset.count(), 1);
  list_.listItems().remove(6);  // at the end: a removal
  EXPECT_EQ(model_->rowCount(), 5);
  EXPECT_EQ(removed.count(), 1);
  list_.listItems().remove(1);
  EXPECT_EQ(model_->rowCount(), 4);
  EXPECT_EQ(cell(0, 0), "inserted");
  addRows(2, "N");
  list_.listItems().remove(6);  // held back: never announced
  EXPECT_EQ(model_->rowCount(), 4);
  model_->flush();
  EXPECT_EQ(model_->rowCount(), 5);
  EXPECT_EQ(cell(4, 0), "N1");
  list_.listItems().clear();
  EXPECT_EQ(model_->rowCount(), 0);
  addRows(2);
  model_->flush();
  EXPECT_EQ(model_->rowCount(), 2);
  EXPECT_TRUE(log_.complaints().isEmpty()) << log_.complaints().join('\n').toStdString();
}

TEST_F(ListModelFixture, FollowsTheColumnHeaders) {
  addRows(2);
  model_->flush();
  list_.columnHeaders().clear();
  EXPECT_EQ(model_->columnCount(), 1);  // a list without headers still shows its texts
  EXPECT_EQ(cell(1, 0), "M2");
  list_.columnHeaders().add(0, "1a", "Index");
  list_.columnHeaders().add(0, "2a", "Name");
  list_.columnHeaders().add(0, "3a", "Value");
  EXPECT_EQ(model_->columnCount(), 3);
  EXPECT_EQ(model_->headerData(2, Qt::Horizontal).toString(), "Value");
  EXPECT_EQ(cell(0, 2), "");
  EXPECT_TRUE(log_.complaints().isEmpty()) << log_.complaints().join('\n').toStdString();
}

TEST_F(ListModelFixture, RowsTheListNoLongerHasReadEmpty) {
  addRows(3);
  model_->flush();
  form_.setView(nullptr);  // the model misses the removal
  list_.listItems().remove(3);
  EXPECT_FALSE(model_->data(model_->index(2, 0)).isValid());
}

}  // namespace
}  // namespace kxc::qt
