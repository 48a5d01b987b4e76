#include "events/tm_command_bars.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "events_fixture.h"

namespace kxc::testing {
namespace {

class CommandBarsTest : public HostFixture {
 protected:
  host::BarRef bar(const std::string& name) { return app->commandBars().item(name); }
  host::BarRef menuBar() { return app->commandBars().item(1); }
  static int32_t kxcControls(const host::BarRef& b) {
    int32_t n = 0;
    for (int32_t i = 1; i <= b->controls().count(); ++i) n += b->controls().item(i)->tag() == "kxc";
    return n;
  }
};

TEST_F(CommandBarsTest, CreateMenuPlacesOnePopupWithTheFourCommands) {
  CreateMenu(bar("Cell"));
  CreateMenu(bar("Cell"));  // a second start does not double the menu
  ASSERT_EQ(bar("Cell")->controls().count(), 1);
  host::ControlRef popup = bar("Cell")->controls().item(1);
  EXPECT_EQ(popup->type(), host::ControlType::Popup);
  EXPECT_EQ(popup->tag(), "kxc");
  EXPECT_EQ(popup->caption(), "C&ache");
  std::vector<std::string> items;
  for (int32_t i = 1; i <= popup->controls().count(); ++i) {
    host::ControlRef c = popup->controls().item(i);
    EXPECT_EQ(c->type(), host::ControlType::Button);
    EXPECT_EQ(c->tag(), "kxc");
    items.push_back(c->caption() + "|" + c->parameter() + "|" + c->onAction());
  }
  EXPECT_EQ(items, (std::vector<std::string>{
                       " &Formula|ddFormulaEditor|FormulaEditor",
                       "Transaction &Drilldown|ddTrans|DrillTrans",
                       "Cache &Manager|ddCacheManager|CacheManager",
                       "&Language|ddCacheLanguage|ChangeLanguage",
                   }));
  EXPECT_TRUE(messages().empty());
}

TEST_F(CommandBarsTest, ChoosingAnItemRunsItsCommand) {
  createAddInMenus();
  std::vector<std::string> commands;
  app->setCommandHandler([&](const std::string& c) { commands.push_back(c); });
  app->runControl(menuBar()->controls().item(1)->controls().item(2));
  EXPECT_EQ(commands, std::vector<std::string>{"DrillTrans"});
}

TEST_F(CommandBarsTest, UninstallingTheAddInRemovesOneMenuFromEachBar) {
  createAddInMenus();
  host::ControlRef other = bar("Cell")->controls().add(host::ControlType::Button);
  other->setTag("kxc");
  app->uninstallAddin("Kestra Cache.xla");
  EXPECT_EQ(kxcControls(bar("Cell")), 1);
  EXPECT_EQ(bar("Cell")->controls().item(1), other);
  EXPECT_EQ(kxcControls(menuBar()), 0);
}

TEST_F(CommandBarsTest, OtherAddInsLeaveTheMenus) {
  createAddInMenus();
  for (const char* name : {"kestra cache.xla", "Kestra Cache.xlam", "Book1.xlsx"}) {
    app->uninstallAddin(name);
    EXPECT_EQ(kxcControls(bar("Cell")), 1) << name;
    EXPECT_EQ(kxcControls(menuBar()), 1) << name;
  }
}

TEST_F(CommandBarsTest, DeleteMenuOnABarWithoutTheMenuIsSilent) {
  host::BarRef b = menuBar();
  DeleteMenu(b);
  EXPECT_EQ(b->controls().count(), 0);
  EXPECT_TRUE(messages().empty());
}

TEST_F(CommandBarsTest, DeleteMenuWithoutABarWorksOnTheCellBar) {
  createAddInMenus();
  host::BarRef none;
  DeleteMenu(none);
  EXPECT_EQ(none, bar("Cell"));
  EXPECT_EQ(kxcControls(bar("Cell")), 0);
  EXPECT_EQ(kxcControls(menuBar()), 1);
}

TEST_F(CommandBarsTest, FailuresAreReportedWithTheirLocations) {
  CreateMenu(nullptr);
  gExcelSink->Initialise(nullptr);
  host::BarRef none;
  DeleteMenu(none);
  createAddInMenus();  // no application: neither bar can be had
  const std::string notSet = standardDescription(err::kObjectNotSet);
  EXPECT_EQ(messages(), (std::vector<MessageRecord>{
                            {notSet + " TmCommandBars CreateMenu", "Error", 48},
                            {notSet + " TmCommandBars DeleteMenu", "Error", 48},
                            {notSet + " TmCommandBars CreateMenu", "Error", 48},
                            {notSet + " TmCommandBars CreateMenu", "Error", 48},
                        }));
}

}  // namespace
}  // namespace kxc::testing
