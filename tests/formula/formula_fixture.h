// The common set-up of the formula tests: clean globals, a recording engine as gCacheEngine,
// a fake host application in gExcelSink, and recorded message boxes.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "facade/tm_globals.h"
#include "fake_host.h"
#include "host/tm_excel.h"
#include "support/recording_engine.h"
#include "support/recording_services.h"

namespace kxc::testing {

class FormulaFixture : public ::testing::Test {
 protected:
  FormulaFixture() {
    resetGlobals();
    gCacheEngine = engine;
    gExcelSink->Initialise(app);
  }
  ~FormulaFixture() override { resetGlobals(); }

  ScopedRecordingServices services;
  std::shared_ptr<RecordingEngine> engine = std::make_shared<RecordingEngine>();
  std::shared_ptr<FakeApplication> app = std::make_shared<FakeApplication>();
};

}  // namespace kxc::testing
