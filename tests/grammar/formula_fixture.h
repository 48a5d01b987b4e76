// The common set-up of the formula tests: an add-in context with a recording engine as
// gCacheEngine, an in-memory workbook as the host application in gExcelSink, and recorded
// message boxes.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "platform/workbook/in_memory_application.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"
#include "support/recording_context.h"
#include "support/recording_engine.h"

namespace kxc::testing {

class FormulaFixture : public ::testing::Test {
 protected:
  FormulaFixture() {
    app->addWorkbook("Book1.xlsx");
    gCacheEngine = engine;
    gExcelSink->Initialise(app);
  }

  std::string formulaOf(const std::string& reference) { return app->range(reference)->formula(); }

  RecordingContext recording;
  RecordingServices* services = &recording.services();
  std::shared_ptr<RecordingEngine> engine = std::make_shared<RecordingEngine>();
  std::shared_ptr<workbook::InMemoryApplication> app = workbook::InMemoryApplication::create();
};

}  // namespace kxc::testing
