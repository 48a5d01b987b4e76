#include "command_bar_menus.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>

#include "gui_environment.h"
#include "platform/workbook/command_bar_set.h"

namespace kxc::workbench {
namespace {

class CommandBarMenusTest : public ::testing::Test {
 protected:
  void SetUp() override {
    bar_ = bars_.item(std::string("Cell"));
    popup_ = bar_->controls().add(host::ControlType::Popup);
    popup_->setCaption("&Cache");
    popup_->setTag("kxc");
    button_ = popup_->controls().add(host::ControlType::Button);
    button_->setCaption("&Formula");
    button_->setOnAction("FormulaEditor");
  }
  workbook::MenuBarSet bars_;
  host::BarRef bar_;
  host::ControlRef popup_;
  host::ControlRef button_;
};

TEST_F(CommandBarMenusTest, PopupsBecomeSubmenusAndButtonsRunAfterTheMenuCloses) {
  QMenu menu;
  std::vector<std::string> ran;
  fillMenu(menu, bar_->controls(),
           [&](const host::ControlRef& control) { ran.push_back(control->onAction()); });
  ASSERT_EQ(menu.actions().size(), 1);
  QMenu* sub = menu.actions().front()->menu();
  ASSERT_NE(sub, nullptr);
  EXPECT_EQ(menu.actions().front()->text(), "&Cache");
  ASSERT_EQ(sub->actions().size(), 1);
  sub->actions().front()->trigger();
  EXPECT_TRUE(ran.empty()) << "the command must not run inside the menu";
  testing::processEvents();
  EXPECT_EQ(ran, std::vector<std::string>{"FormulaEditor"});
}

TEST_F(CommandBarMenusTest, SignatureFollowsEveryChangeThatShowsInAMenu) {
  const std::string start = barSignature(bar_->controls());
  EXPECT_EQ(barSignature(bar_->controls()), start);
  button_->setCaption("&Formel");
  const std::string renamed = barSignature(bar_->controls());
  EXPECT_NE(renamed, start);
  popup_->controls().add(host::ControlType::Button);
  const std::string grown = barSignature(bar_->controls());
  EXPECT_NE(grown, renamed);
  popup_->deleteControl();
  EXPECT_EQ(barSignature(bar_->controls()), "[]");
}

TEST_F(CommandBarMenusTest, CaptionsCannotImitateTwoControls) {
  workbook::MenuBarSet other;
  host::BarRef a = other.item(std::string("Cell"));
  a->controls().add(host::ControlType::Button)->setCaption("x;y");
  workbook::MenuBarSet another;
  host::BarRef b = another.item(std::string("Cell"));
  b->controls().add(host::ControlType::Button)->setCaption("x");
  b->controls().add(host::ControlType::Button)->setCaption("y");
  EXPECT_NE(barSignature(a->controls()), barSignature(b->controls()));
}

}  // namespace
}  // namespace kxc::workbench
