// The common set-up of the formula tests: clean globals, a recording engine as gCacheEngine,
// an in-memory workbook as the host application in gExcelSink, and recorded message boxes.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "facade/tm_globals.h"
#include "host/tm_excel.h"
#include "platform/workbook/in_memory_application.h"
#include "support/recording_engine.h"
#include "support/recording_services.h"

namespace kxc::testing {

class FormulaFixture : public ::testing::Test {
 protected:
  FormulaFixture() {
    resetGlobals();
    app->addWorkbook("Book1.xlsx");
    gCacheEngine = engine;
    gExcelSink->Initialise(app);
  }
  ~FormulaFixture() override { resetGlobals(); }

  std::string formulaOf(const std::string& reference) { return app->range(reference)->formula(); }

  ScopedRecordingServices services;
  std::shared_ptr<RecordingEngine> engine = std::make_shared<RecordingEngine>();
  std::shared_ptr<workbook::InMemoryApplication> app = workbook::InMemoryApplication::create();
};

}  // namespace kxc::testing
