#include "platform/controls/text_box.h"

#include <gtest/gtest.h>

#include "platform/controls/command_button.h"

namespace kxc::controls {
namespace {

TEST(TextBox, ChangeFiresOnlyWhenTheTextDiffers) {
  TextBox box;
  std::vector<std::string> seen;
  box.onChange = [&] { seen.push_back(box.text()); };
  box.setText("A1");
  box.setText("A1");
  box.setText("");
  EXPECT_EQ(seen, (std::vector<std::string>{"A1", ""}));
}

TEST(TextBox, KeyDownHandlerConsumesAKeyByZeroingIt) {
  TextBox box;
  box.onKeyDown = [](int& key, int shift) {
    if (key == keys::kF4 && shift == 0) key = 0;
  };
  EXPECT_EQ(box.keyDown(keys::kF4, 0), 0);
  EXPECT_EQ(box.keyDown(keys::kF4, keys::kShift), keys::kF4);
  TextBox bare;  // without a handler every key passes
  EXPECT_EQ(bare.keyDown(65, 0), 65);
}

TEST(CommandButton, ClickIsIgnoredWhileDisabledOrHidden) {
  CommandButton button;
  int clicks = 0;
  button.onClick = [&] { ++clicks; };
  button.click();
  button.setEnabled(false);
  button.click();
  button.setEnabled(true);
  button.setVisible(false);
  button.click();
  EXPECT_EQ(clicks, 1);
  CommandButton noHandler;
  noHandler.click();
}

}  // namespace
}  // namespace kxc::controls
