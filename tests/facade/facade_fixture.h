// The common set-up of the facade and drill-down tests: clean globals, a recording engine, a
// manager registered under its ProgID, a fake host, a fake transactions form and recorded
// message boxes. Everything installed is removed again afterwards.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "dialogs/transactions_view.h"
#include "facade/cache_ui.h"
#include "facade/facade_hooks.h"
#include "facade/tm_globals.h"
#include "formula/fake_host.h"
#include "host/tm_excel.h"
#include "platform/object_factory.h"
#include "support/recording_engine.h"
#include "support/recording_services.h"

namespace kxc::testing {

class FakeTransactionsView : public TransactionsView {
 public:
  ObjectRef vasTrans() override { return grid; }
  void sizeColumns() override { steps.push_back("sizeColumns"); }
  void show() override { steps.push_back("show"); }

  std::shared_ptr<RecordingEngine> grid = std::make_shared<RecordingEngine>();
  std::vector<std::string> steps;
};

class FacadeFixture : public ::testing::Test {
 protected:
  FacadeFixture() {
    resetGlobals();
    ObjectFactory::instance().registerCreator(kCacheManagerProgId, [this] {
      managers.push_back(std::make_shared<RecordingEngine>());
      return managers.back();
    });
    setTransactionsViewProvider([this] { return view; });
  }
  ~FacadeFixture() override {
    resetGlobals();
    ObjectFactory::instance().unregister(kCacheManagerProgId);
    setTransactionsViewProvider(nullptr);
    facadeHooks() = FacadeHooks();
  }

  // CacheUI::Initialise with the fake host and the recording engine.
  void initialise() {
    host::ApplicationRef xExcel = app;
    ObjectRef mCache = engine;
    ui.Initialise(xExcel, mCache);
  }

  ScopedRecordingServices services;
  std::shared_ptr<RecordingEngine> engine = std::make_shared<RecordingEngine>();
  std::shared_ptr<FakeApplication> app = std::make_shared<FakeApplication>();
  std::shared_ptr<FakeTransactionsView> view = std::make_shared<FakeTransactionsView>();
  std::vector<std::shared_ptr<RecordingEngine>> managers;  // every manager created, in order
  CacheUI ui;
};

}  // namespace kxc::testing
