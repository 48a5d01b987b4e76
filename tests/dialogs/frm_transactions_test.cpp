#include "dialogs/frm_transactions.h"

#include <gtest/gtest.h>

#include "fake_translator.h"
#include "support/recording_form_view.h"
#include "support/recording_services.h"

namespace kxc {
namespace {

using controls::mouse::kRight;

class FrmTransactionsTest : public ::testing::Test {
 protected:
  FrmTransactionsTest() { dialog.form().setView(&view); }
  ~FrmTransactionsTest() override { dialog.form().setView(nullptr); }

  // What the engine does: fills the grid by member name.
  void engineFills(const std::string& block) {
    ObjectRef grid = dialog.vasTransObject();
    invoke(grid, "ClearAll");
    invoke(grid, "MaxCols", {Argument::byValue(int32_t{2})}, CallKind::PropertyPut);
    invoke(
        grid, "SetBlock",
        {Argument::byValue(int32_t{1}), Argument::byValue(int32_t{0}), Argument::byValue(block)});
  }

  void popupCommand(const std::string& name) {
    view.onPopup = [&](controls::Menu& menu) {
      for (auto* item : menu.items()) {
        if (item->name() == name) item->click();
      }
    };
    dialog.vasTrans().mouseUp(kRight, 0, 10, 10);
  }

  testing::ScopedRecordingServices services;
  testing::FakeTranslator translator;
  FrmTransactions dialog{translator};
  testing::RecordingFormView view;
};

TEST_F(FrmTransactionsTest, LoadTranslatesTheFormThenItsCaptions) {
  dialog.form().load();
  EXPECT_EQ(translator.translatedForms, std::vector<std::string>{"frmTransactions"});
  EXPECT_EQ(dialog.form().caption(), "T:@TRANS_DRILLDWN");
  EXPECT_EQ(dialog.form().control<controls::Menu>("Copy").caption(), "T:@&COPY");
  EXPECT_EQ(dialog.form().control<controls::Menu>("SelectAll").caption(), "T:@SELECT_ALL&");
}

TEST_F(FrmTransactionsTest, ResizeSnapsSmallWindowsBackAndFitsTheGrid) {
  struct Case {
    int32_t width, height;
    bool minimized;
    int32_t formWidth, formHeight, gridWidth, gridHeight;
  };
  const Case cases[] = {
      {9000, 5000, false, 9000, 5000, 8700, 4300},  {4300, 4300, false, 4300, 4300, 4000, 3600},
      {4299, 8000, false, 10050, 6795, 9750, 6095}, {8000, 4299, false, 10050, 6795, 9750, 6095},
      {100, 100, true, 100, 100, 9750, 6095},  // nothing while minimised
  };
  for (const Case& c : cases) {
    dialog.form().setWindowState(controls::WindowState::Normal);
    dialog.form().resize(10050, 6795);
    if (c.minimized) dialog.form().setWindowState(controls::WindowState::Minimized);
    dialog.form().resize(c.width, c.height);
    EXPECT_EQ(dialog.form().width(), c.formWidth) << c.width << "x" << c.height;
    EXPECT_EQ(dialog.form().height(), c.formHeight);
    EXPECT_EQ(dialog.vasTrans().width(), c.gridWidth);
    EXPECT_EQ(dialog.vasTrans().height(), c.gridHeight);
  }
}

TEST_F(FrmTransactionsTest, SelectAllThenCopyPutsEveryDataRowOnTheClipboard) {
  engineFills("Region\tAmount\nNorth\t10\nSouth\t20\n");
  popupCommand("SelectAll");
  EXPECT_EQ(dialog.vasTrans().selection(), (controls::Grid::Block{1, 1, 2, 2}));
  popupCommand("Copy");
  EXPECT_EQ(services->clipboard, "North\t10\r\nSouth\t20");
}

TEST_F(FrmTransactionsTest, CopyWithoutABlockLeavesTheClipboardEmpty) {
  engineFills("Region\nNorth\n");
  services->clipboard = "old";
  popupCommand("Copy");
  EXPECT_EQ(services->clipboard, "");
}

TEST_F(FrmTransactionsTest, SelectAllOnAnEmptyGridSelectsNothing) {
  popupCommand("SelectAll");
  EXPECT_FALSE(dialog.vasTrans().selection().has_value());
}

TEST_F(FrmTransactionsTest, ColumnsAreSizedToTheirLongestTextWithinLimits) {
  std::string longText(80, 'x');
  engineFills("Région\tReference\nÉté\t" + longText + "\n");
  invoke(dialog.vasTransObject(), "MaxCols", {Argument::byValue(int32_t{3})},
         CallKind::PropertyPut);
  dialog.sizeColumns();
  auto& grid = dialog.vasTrans();
  EXPECT_DOUBLE_EQ(grid.colWidth(1), 8);  // "Région" is 6 characters, plus 2
  EXPECT_DOUBLE_EQ(grid.colWidth(2), FrmTransactions::kMaxColWidth);
  EXPECT_DOUBLE_EQ(grid.colWidth(3), FrmTransactions::kMinColWidth);
}

TEST_F(FrmTransactionsTest, SizingLooksOnlyAtTheFirstRows) {
  auto& grid = dialog.vasTrans();
  grid.setCellText(1, 0, "H");
  grid.setCellText(1, FrmTransactions::kSizingRows + 1, std::string(30, 'y'));
  dialog.sizeColumns();
  EXPECT_DOUBLE_EQ(grid.colWidth(1), FrmTransactions::kMinColWidth);
}

TEST_F(FrmTransactionsTest, CancelClosesTheForm) {
  dialog.form().show();
  dialog.cmdCancel().click();
  EXPECT_FALSE(dialog.form().loaded());
  EXPECT_FALSE(dialog.form().visible());
}

TEST(FrmTransactions, GridHandedToTheEngineOutlivesTheDialog) {
  testing::FakeTranslator translator;
  ObjectRef grid;
  {
    FrmTransactions dialog(translator);
    grid = dialog.vasTransObject();
  }
  invoke(grid, "SetText",
         {Argument::byValue(int32_t{1}), Argument::byValue(int32_t{1}), Argument::byValue("x")});
  EXPECT_EQ(invoke(grid, "GetText", {Argument::byValue(int32_t{1}), Argument::byValue(int32_t{1})}),
            Variant("x"));
}

}  // namespace
}  // namespace kxc
