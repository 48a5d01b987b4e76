#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/workbook/in_memory_application.h"
#include "support/error_number.h"

namespace kxc::workbook {
namespace {

using testing::errorNumber;

using host::ControlType;

class CommandBarsTest : public ::testing::Test {
 protected:
  host::ControlRef addTagged(host::CommandBarControls& list, ControlType type,
                             const std::string& tag, const std::string& caption) {
    auto c = list.add(type);
    c->setTag(tag);
    c->setCaption(caption);
    return c;
  }
  std::shared_ptr<InMemoryApplication> app = InMemoryApplication::create();
};

TEST_F(CommandBarsTest, StartsWithTheMenuBarAndTheCellMenu) {
  auto& bars = app->commandBars();
  EXPECT_EQ(bars.item(1)->name(), "Worksheet Menu Bar");
  EXPECT_EQ(bars.item(2)->name(), "Cell");
  EXPECT_EQ(bars.item("cell"), bars.item(2));
  EXPECT_EQ(bars.item("WORKSHEET MENU BAR"), bars.item(1));
  EXPECT_EQ(bars.item(1)->controls().count(), 0);
  EXPECT_EQ(errorNumber([&] { bars.item("Chart"); }), 5);
  EXPECT_EQ(errorNumber([&] { bars.item(0); }), 5);
  EXPECT_EQ(errorNumber([&] { bars.item(3); }), 5);
}

TEST_F(CommandBarsTest, AddsButtonsAndPopupsInPlace) {
  auto& controls = app->commandBars().item("Cell")->controls();
  auto a = addTagged(controls, ControlType::Button, "", "A");
  auto c = addTagged(controls, ControlType::Button, "", "C");
  auto b = controls.add(ControlType::Popup, 2);
  b->setCaption("B");
  std::vector<std::string> captions;
  for (int i = 1; i <= controls.count(); ++i) captions.push_back(controls.item(i)->caption());
  EXPECT_EQ(captions, (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(b->type(), ControlType::Popup);
  EXPECT_EQ(b->controls().count(), 0);
  EXPECT_EQ(errorNumber([&] { a->controls(); }), 438) << "a button has no children";
  EXPECT_EQ(errorNumber([&] { controls.add(ControlType::Button, 9); }), 5);
  EXPECT_EQ(errorNumber([&] { controls.item(4); }), 5);
}

TEST_F(CommandBarsTest, FindControlSearchesTheBarThenTheChildren) {
  auto bar = app->commandBars().item(1);
  EXPECT_EQ(bar->findControl("kxc"), nullptr);
  auto popup = addTagged(bar->controls(), ControlType::Popup, "other", "File");
  auto nested = addTagged(popup->controls(), ControlType::Button, "kxc", "Nested");
  EXPECT_EQ(bar->findControl("kxc"), nested);
  auto top = addTagged(bar->controls(), ControlType::Popup, "kxc", "Top");
  EXPECT_EQ(bar->findControl("kxc"), top) << "the bar's own controls come first";
  EXPECT_EQ(bar->findControl("KXC"), nullptr) << "tags match exactly";
}

TEST_F(CommandBarsTest, DeleteRemovesAControlWithItsChildren) {
  auto bar = app->commandBars().item("Cell");
  auto keep = addTagged(bar->controls(), ControlType::Button, "", "Copy");
  auto menu = addTagged(bar->controls(), ControlType::Popup, "kxc", "Cache");
  auto child = addTagged(menu->controls(), ControlType::Button, "kxc", "Builder");
  bar->findControl("kxc")->deleteControl();
  EXPECT_EQ(bar->controls().count(), 1);
  EXPECT_EQ(bar->controls().item(1), keep);
  EXPECT_EQ(bar->findControl("kxc"), nullptr);
  EXPECT_NO_THROW(menu->deleteControl()) << "deleting again does nothing";
  EXPECT_EQ(bar->controls().count(), 1);
  menu.reset();
  EXPECT_NO_THROW(child->deleteControl()) << "a child outliving its pop-up stays safe";
}

TEST_F(CommandBarsTest, DeletingAChildLeavesItsParent) {
  auto bar = app->commandBars().item(1);
  auto menu = addTagged(bar->controls(), ControlType::Popup, "kxc", "Cache");
  addTagged(menu->controls(), ControlType::Button, "a", "One");
  addTagged(menu->controls(), ControlType::Button, "b", "Two");
  bar->findControl("a")->deleteControl();
  EXPECT_EQ(menu->controls().count(), 1);
  EXPECT_EQ(menu->controls().item(1)->caption(), "Two");
}

TEST_F(CommandBarsTest, RunControlHandsItsCommandToTheHandler) {
  std::vector<std::string> run;
  auto button = app->commandBars().item(1)->controls().add(ControlType::Button);
  button->setOnAction("FormulaEditor");
  button->setParameter("p");
  app->runControl(button);  // no handler yet: nothing happens
  app->setCommandHandler([&](const std::string& command) { run.push_back(command); });
  app->runControl(button);
  app->runControl(nullptr);
  app->runControl(app->commandBars().item(1)->controls().add(ControlType::Button));
  EXPECT_EQ(run, (std::vector<std::string>{"FormulaEditor"}));
  EXPECT_EQ(button->parameter(), "p");
}

}  // namespace
}  // namespace kxc::workbook
