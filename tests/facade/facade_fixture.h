// The common set-up of the facade and drill-down tests: an add-in context with a recording
// engine, a manager registered under its ProgID, a fake host, a fake transactions form, an
// event sink that counts what reaches it, and recorded message boxes.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "dialogs/transactions_view.h"
#include "facade/cache_ui.h"
#include "platform/workbook/in_memory_application.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"
#include "support/recording_context.h"
#include "support/recording_engine.h"

namespace kxc::testing {

class FakeTransactionsView : public TransactionsView {
 public:
  ObjectRef vasTrans() override { return grid; }
  void sizeColumns() override { steps.push_back("sizeColumns"); }
  void show() override { steps.push_back("show"); }

  std::shared_ptr<RecordingEngine> grid = std::make_shared<RecordingEngine>();
  std::vector<std::string> steps;
};

// The event sink the tests install in gExcelSink: counts the events that reach it.
class CountingExcelSink : public TmExcel {
 public:
  void oExcel_SheetBeforeDoubleClick(host::Worksheet&, const host::RangeRef&, bool&) override {
    ++doubleClicks;
  }
  void oExcel_WorkbookAddinUninstall(host::Workbook&) override { ++uninstalls; }
  int doubleClicks = 0;
  int uninstalls = 0;
};

class FacadeFixture : public ::testing::Test {
 protected:
  FacadeFixture() {
    app->addWorkbook("Book1.xlsx");
    context().objects().registerCreator(kCacheManagerProgId, [this] {
      managers.push_back(std::make_shared<RecordingEngine>());
      return managers.back();
    });
    context().provide<TransactionsView>([this] { return view; });
    context().provide<TmExcel>([this] {
      auto created = std::make_shared<CountingExcelSink>();
      sink = created;
      return created;
    });
  }

  AddInContext& context() { return recording.context(); }

  // CacheUI::Initialise with the fake host and the recording engine.
  void initialise() {
    host::ApplicationRef xExcel = app;
    ObjectRef mCache = engine;
    ui.Initialise(xExcel, mCache);
  }

  RecordingContext recording;
  RecordingServices* services = &recording.services();
  std::shared_ptr<RecordingEngine> engine = std::make_shared<RecordingEngine>();
  std::shared_ptr<workbook::InMemoryApplication> app = workbook::InMemoryApplication::create();
  std::shared_ptr<FakeTransactionsView> view = std::make_shared<FakeTransactionsView>();
  std::weak_ptr<CountingExcelSink> sink;                   // the sink gExcelSink created
  std::vector<std::shared_ptr<RecordingEngine>> managers;  // every manager created, in order
  CacheUI ui;
};

}  // namespace kxc::testing
