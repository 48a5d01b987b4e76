#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::workbook {
namespace {

// Records every event as "<event> <sheet> <target address>".
class RecordingSink : public host::ApplicationEvents {
 public:
  explicit RecordingSink(std::string id, std::vector<std::string>& log)
      : id_(std::move(id)), log_(log) {}
  void sheetBeforeDoubleClick(host::Worksheet& sheet, const host::RangeRef& target,
                              bool& cancel) override {
    log_.push_back(id_ + " doubleClick " + sheet.name() + " " + target->address() +
                   (cancel ? " cancelled" : ""));
    if (onDoubleClick) onDoubleClick(cancel);
  }
  void sheetSelectionChange(host::Worksheet& sheet, const host::RangeRef& target) override {
    log_.push_back(id_ + " selection " + sheet.name() + " " + target->address());
    if (onSelection) onSelection();
  }
  void sheetChange(host::Worksheet& sheet, const host::RangeRef& target) override {
    log_.push_back(id_ + " change " + sheet.name() + " " + target->address() + " " +
                   target->formula());
    if (onChange) onChange(target);
  }
  void workbookAddinUninstall(host::Workbook& workbook) override {
    log_.push_back(id_ + " uninstall " + workbook.name());
  }

  std::function<void(bool&)> onDoubleClick;
  std::function<void()> onSelection;
  std::function<void(const host::RangeRef&)> onChange;

 private:
  std::string id_;
  std::vector<std::string>& log_;
};

class ApplicationEvents : public ::testing::Test {
 protected:
  void SetUp() override {
    app->addWorkbook("Book1.xlsx");
    app->addSheet("Book1.xlsx", "Data");
    app->subscribe(first);
    app->subscribe(second);
  }
  std::vector<std::string> log;
  std::shared_ptr<InMemoryApplication> app = InMemoryApplication::create();
  std::shared_ptr<RecordingSink> first = std::make_shared<RecordingSink>("1", log);
  std::shared_ptr<RecordingSink> second = std::make_shared<RecordingSink>("2", log);
};

TEST_F(ApplicationEvents, SelectionRaisesSelectionChangeWithTheSelectedBlock) {
  app->select("Data!B2:C4");
  EXPECT_EQ(log,
            (std::vector<std::string>{"1 selection Data $B$2:$C$4", "2 selection Data $B$2:$C$4"}));
  EXPECT_EQ(app->activeSheetName(), "Data");
  EXPECT_EQ(app->activeCell()->address(), "$B$2");
  EXPECT_EQ(app->rangeSelection()->address(), "$B$2:$C$4");
  EXPECT_EQ(app->selection()->address(), "$B$2:$C$4");
  EXPECT_EQ(app->selectionAddress(), "$B$2:$C$4");
}

TEST_F(ApplicationEvents, TypingRaisesChangeAfterStoringAndRecalculating) {
  app->setCell("B1", "=A1*2");
  std::string seenByHandler;
  first->onChange = [&](const host::RangeRef&) { seenByHandler = app->displayText("B1"); };
  app->typeInto("A1", "21");
  EXPECT_EQ(log, (std::vector<std::string>{"1 selection Sheet1 $A$1", "2 selection Sheet1 $A$1",
                                           "1 change Sheet1 $A$1 21", "2 change Sheet1 $A$1 21"}));
  EXPECT_EQ(seenByHandler, "42");
}

TEST_F(ApplicationEvents, ClearingTheSelectionEmptiesItAndRaisesOneChangeForAllOfIt) {
  app->setCell("A1", "5");
  app->setCell("B2", "=A1*2");
  app->setCell("C3", "keep");
  app->select("A1:B2");
  log.clear();
  app->clearSelection();
  EXPECT_EQ(log,
            (std::vector<std::string>{"1 change Sheet1 $A$1:$B$2 ", "2 change Sheet1 $A$1:$B$2 "}));
  EXPECT_EQ(app->displayText("A1"), "");
  EXPECT_EQ(app->displayText("B2"), "");
  EXPECT_EQ(app->displayText("C3"), "keep");
}

TEST_F(ApplicationEvents, DoubleClickReturnsTheCancelASinkSets) {
  first->onDoubleClick = [](bool& cancel) { cancel = true; };
  EXPECT_TRUE(app->doubleClick("C3"));
  EXPECT_EQ(log.back(), "2 doubleClick Sheet1 $C$3 cancelled") << "later sinks see the Cancel";
  first->onDoubleClick = nullptr;
  EXPECT_FALSE(app->doubleClick("C3"));
}

TEST_F(ApplicationEvents, CodeWritingAFormulaRaisesChange) {
  app->range("Data!D4")->setFormula("=1+1");
  EXPECT_EQ(log, (std::vector<std::string>{"1 change Data $D$4 =1+1", "2 change Data $D$4 =1+1"}));
  EXPECT_EQ(app->displayText("Data!D4"), "2");
}

TEST_F(ApplicationEvents, UninstallDeliversAWorkbookOfThatName) {
  app->uninstallAddin("Kestra Cache.xla");
  EXPECT_EQ(log, (std::vector<std::string>{"1 uninstall Kestra Cache.xla",
                                           "2 uninstall Kestra Cache.xla"}));
}

TEST_F(ApplicationEvents, ReleasedAndUnsubscribedSinksReceiveNothing) {
  second.reset();
  app->select("A1");
  EXPECT_EQ(log, (std::vector<std::string>{"1 selection Sheet1 $A$1"}));
  app->unsubscribe(first.get());
  app->select("A2");
  EXPECT_EQ(log.size(), 1u);
}

TEST_F(ApplicationEvents, ASinkMayUnsubscribeOthersDuringDelivery) {
  first->onSelection = [&] { app->unsubscribe(second.get()); };
  app->select("A1");
  EXPECT_EQ(log, (std::vector<std::string>{"1 selection Sheet1 $A$1"}));
}

TEST_F(ApplicationEvents, ASinkAddedDuringDeliveryWaitsForTheNextEvent) {
  auto third = std::make_shared<RecordingSink>("3", log);
  first->onSelection = [&] {
    app->subscribe(third);
    app->unsubscribe(first.get());
  };
  app->select("A1");
  app->select("A2");
  EXPECT_EQ(log, (std::vector<std::string>{"1 selection Sheet1 $A$1", "2 selection Sheet1 $A$1",
                                           "2 selection Sheet1 $A$2", "3 selection Sheet1 $A$2"}));
}

TEST_F(ApplicationEvents, SubscribingTwiceDeliversOnce) {
  app->subscribe(first);
  app->uninstallAddin("x.xla");
  EXPECT_EQ(log.size(), 2u);
}

TEST_F(ApplicationEvents, HookupEndsItsSubscriptionWhenReset) {
  auto third = std::make_shared<RecordingSink>("3", log);
  {
    host::EventHookup hookup;
    hookup.hook(app, third);
    app->uninstallAddin("a.xla");
  }
  app->uninstallAddin("b.xla");
  EXPECT_EQ(std::count(log.begin(), log.end(), "3 uninstall a.xla"), 1);
  EXPECT_EQ(std::count(log.begin(), log.end(), "3 uninstall b.xla"), 0);
}

TEST_F(ApplicationEvents, AHandlerWritingItsOwnCellDoesNotRecurseForever) {
  app->unsubscribe(second.get());
  int calls = 0;
  first->onChange = [&](const host::RangeRef& target) {
    ++calls;
    target->setFormula(std::to_string(calls));
  };
  app->typeInto("A1", "0");
  EXPECT_EQ(calls, InMemoryApplication::kMaxEventNesting);
  EXPECT_EQ(app->displayText("A1"), std::to_string(calls));
}

TEST_F(ApplicationEvents, AFailingSinkDoesNotStopDelivery) {
  std::vector<std::string> failures;
  app->setEventFailureHandler([&](const std::string& d) { failures.push_back(d); });
  first->onSelection = [] { throw RuntimeError(err::kTypeMismatch); };
  app->select("A1");
  EXPECT_EQ(log.back(), "2 selection Sheet1 $A$1");
  EXPECT_EQ(failures, (std::vector<std::string>{"13 Type mismatch"}));
}

TEST_F(ApplicationEvents, NoWorkbookMeansNoActiveCell) {
  auto empty = InMemoryApplication::create();
  EXPECT_THROW(empty->activeCell(), RuntimeError);
  EXPECT_THROW(empty->type("x"), RuntimeError);
  EXPECT_THROW(empty->range("A1"), RuntimeError);
  EXPECT_EQ(empty->caption(), "Kestra Workbench");
  EXPECT_EQ(InMemoryApplication::create("Book1 - Sheets")->caption(), "Book1 - Sheets");
}

}  // namespace
}  // namespace kxc::workbook
