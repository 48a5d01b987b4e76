#include "sheet_model.h"

#include <gtest/gtest.h>

#include "gui_environment.h"
#include "sheet_view.h"

namespace kxc::workbench {
namespace {

TEST(ColumnLetters, FollowTheSpreadsheetsNaming) {
  const std::vector<std::pair<int32_t, std::string>> cases = {
      {1, "A"},    {26, "Z"},    {27, "AA"},     {52, "AZ"}, {53, "BA"},
      {702, "ZZ"}, {703, "AAA"}, {16384, "XFD"}, {0, ""},    {16385, ""}};
  for (const auto& [column, letters] : cases) {
    EXPECT_EQ(columnLetters(column), letters) << column;
  }
}

TEST(SelectionAddress, SplitsAreasButNotQuotedSheetNames) {
  struct Case {
    std::string address;
    std::vector<workbook::Area> areas;
  };
  const std::vector<Case> cases = {
      {"$B$2:$C$4", {{2, 2, 4, 3}}},
      {"$B$2,$D$5:$E$6", {{2, 2, 2, 2}, {5, 4, 6, 5}}},
      {"'My, Sheet'!$A$1", {{1, 1, 1, 1}}},
      {"", {}},
      {"not a reference!!", {}},
      {"$A$1,,$B$2", {{1, 1, 1, 1}, {2, 2, 2, 2}}},
  };
  for (const Case& c : cases) {
    const auto areas = parseSelectionAddress(c.address);
    ASSERT_EQ(areas.size(), c.areas.size()) << c.address;
    for (size_t i = 0; i < areas.size(); ++i) {
      EXPECT_EQ(areas[i].top, c.areas[i].top) << c.address;
      EXPECT_EQ(areas[i].left, c.areas[i].left) << c.address;
      EXPECT_EQ(areas[i].bottom, c.areas[i].bottom) << c.address;
      EXPECT_EQ(areas[i].right, c.areas[i].right) << c.address;
    }
  }
}

class SheetModelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    app_->addWorkbook("Book");
    app_->setCell("Sheet1!A1", "2");
    app_->setCell("Sheet1!B1", "=A1*3");
    app_->setCell("Sheet1!C1", "North");
  }
  std::shared_ptr<workbook::InMemoryApplication> app_ = workbook::InMemoryApplication::create();
  SheetModel model_{app_, "Book", "Sheet1"};
};

TEST_F(SheetModelTest, ShowsValuesAndEditsFormulas) {
  const QModelIndex b1 = model_.index(0, 1);
  EXPECT_EQ(model_.data(b1, Qt::DisplayRole).toString(), "6");
  EXPECT_EQ(model_.data(b1, Qt::EditRole).toString(), "=A1*3");
  EXPECT_EQ(model_.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "B");
  EXPECT_EQ(model_.headerData(4, Qt::Vertical, Qt::DisplayRole).toInt(), 5);
}

TEST_F(SheetModelTest, CellsLineUpAsInASpreadsheet) {
  app_->setCell("Sheet1!D1", "=1/0");
  app_->setCell("Sheet1!E1", "TRUE");
  app_->setCell("Sheet1!F1", "'42");
  const std::vector<std::pair<int, Qt::Alignment>> cases = {
      {1, Qt::AlignRight},    // a number
      {2, Qt::AlignLeft},     // a text
      {3, Qt::AlignHCenter},  // an error value
      {4, Qt::AlignHCenter},  // a boolean
      {5, Qt::AlignLeft},     // a number typed as text
      {6, Qt::AlignLeft},     // an empty cell
  };
  for (const auto& [column, expected] : cases) {
    const auto alignment =
        model_.data(model_.index(0, column), Qt::TextAlignmentRole).value<Qt::Alignment>();
    EXPECT_EQ(alignment & Qt::AlignHorizontal_Mask, expected) << "column " << column;
    EXPECT_EQ(model_.data(model_.index(0, column), SheetModel::kNumberRole).isValid(), column == 1)
        << "column " << column;
  }
}

TEST_F(SheetModelTest, EditingTypesIntoTheCellAndRaisesTheChange) {
  int changes = 0;
  app_->setChangeObserver([&] { ++changes; });
  ASSERT_TRUE(model_.setData(model_.index(0, 0), QString("5"), Qt::EditRole));
  EXPECT_EQ(app_->displayText("Sheet1!B1"), "15");
  EXPECT_GT(changes, 0);
  app_->setChangeObserver(nullptr);
}

TEST_F(SheetModelTest, GrowsWithTheUsedRangeAndNeverShrinks) {
  const int before = model_.rowCount();
  app_->setCell("Sheet1!D1000000", "far");
  model_.refresh();
  EXPECT_GE(model_.rowCount(), 1000000);
  EXPECT_EQ(model_.data(model_.index(999999, 3), Qt::DisplayRole).toString(), "far");
  app_->setCell("Sheet1!D1000000", "");
  model_.refresh();
  EXPECT_GE(model_.rowCount(), 1000000);
  EXPECT_GT(model_.rowCount(), before);
}

TEST_F(SheetModelTest, ReferencesQuoteSheetNamesThatNeedIt) {
  app_->addSheet("Book", "My Sheet");
  SheetModel quoted(app_, "Book", "My Sheet");
  EXPECT_EQ(quoted.reference(1, 2), "'My Sheet'!$C$2");
  EXPECT_EQ(quoted.reference(0, 0, 2, 1), "'My Sheet'!$A$1:$B$3");
}

}  // namespace
}  // namespace kxc::workbench
