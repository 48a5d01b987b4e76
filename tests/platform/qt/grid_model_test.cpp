// The grid model over the grid control, checked with Qt's model tester.
#include "platform/qt/grid_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "platform/controls/form.h"
#include "qt_application.h"

namespace kxc::qt {
namespace {

class GridModelFixture : public ::testing::Test, public controls::FormView {
 protected:
  GridModelFixture() : grid_(form_.add<controls::Grid>("vasTrans")) {
    model_ = std::make_unique<GridModel>(grid_);
    tester_ = std::make_unique<QAbstractItemModelTester>(
        model_.get(), QAbstractItemModelTester::FailureReportingMode::Warning);
    form_.setView(this);
  }
  ~GridModelFixture() override { form_.setView(nullptr); }
  void gridChanged(controls::Grid&, const controls::GridChange& change) override {
    model_->gridChanged(change);
  }
  QString cell(int row, int column) { return model_->data(model_->index(row, column)).toString(); }

  testing::ModelTesterLog log_;
  controls::Form form_{"frmTransactions"};
  controls::Grid& grid_;
  std::unique_ptr<GridModel> model_;
  std::unique_ptr<QAbstractItemModelTester> tester_;
};

TEST_F(GridModelFixture, ShowsCellsWithRowZeroAsHeadings) {
  grid_.setBlock(1, 0, "Date\tAmount\n2024-01-02\t10\n2024-01-03\t20");
  model_->flush();
  ASSERT_EQ(model_->rowCount(), 2);
  ASSERT_EQ(model_->columnCount(), 2);
  EXPECT_EQ(model_->headerData(1, Qt::Horizontal).toString(), "Amount");
  EXPECT_EQ(cell(1, 0), "2024-01-03");
  EXPECT_EQ(model_->headerData(0, Qt::Vertical).toString(), "1");
  grid_.setCellText(0, 2, "second");
  model_->flush();
  EXPECT_EQ(model_->headerData(1, Qt::Vertical).toString(), "second");
  EXPECT_TRUE(log_.complaints().isEmpty()) << log_.complaints().join('\n').toStdString();
}

TEST_F(GridModelFixture, EmptyHeadingsAreColumnLetters) {
  grid_.setMaxCols(28);
  model_->flush();
  EXPECT_EQ(model_->headerData(0, Qt::Horizontal).toString(), "A");
  EXPECT_EQ(model_->headerData(25, Qt::Horizontal).toString(), "Z");
  EXPECT_EQ(model_->headerData(26, Qt::Horizontal).toString(), "AA");
  EXPECT_EQ(columnLetters(703), "AAA");
}

TEST_F(GridModelFixture, CellWritesAreCoalescedIntoGrowthAndOneDataChange) {
  QSignalSpy rowsInserted(model_.get(), &QAbstractItemModel::rowsInserted);
  QSignalSpy changed(model_.get(), &QAbstractItemModel::dataChanged);
  for (int row = 1; row <= 500; ++row) {
    for (int col = 1; col <= 3; ++col) grid_.setCellText(col, row, std::to_string(row * col));
  }
  testing::processEvents();
  EXPECT_EQ(model_->rowCount(), 500);
  EXPECT_EQ(model_->columnCount(), 3);
  EXPECT_EQ(rowsInserted.count(), 1);
  EXPECT_EQ(changed.count(), 1);
  EXPECT_EQ(cell(499, 2), "1500");
  EXPECT_TRUE(log_.complaints().isEmpty()) << log_.complaints().join('\n').toStdString();
}

TEST_F(GridModelFixture, ShrinkingAndClearingResetTheModel) {
  grid_.setMaxCols(4);
  grid_.setMaxRows(100);
  model_->flush();
  QSignalSpy reset(model_.get(), &QAbstractItemModel::modelReset);
  grid_.setMaxRows(10);
  model_->flush();
  EXPECT_EQ(model_->rowCount(), 10);
  grid_.clearAll();
  model_->flush();
  EXPECT_EQ(reset.count(), 2);
  EXPECT_EQ(cell(0, 0), "");
  EXPECT_TRUE(log_.complaints().isEmpty()) << log_.complaints().join('\n').toStdString();
}

}  // namespace
}  // namespace kxc::qt
