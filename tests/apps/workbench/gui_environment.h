// Test helpers for the workbench: the QApplication every test runs in, a scratch folder with
// settings and a small cache database shared by the program's tests, and a running workbench.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "main_window.h"
#include "support/recording_services.h"
#include "workbench_session.h"

namespace kxc::testing {

// Lets queued calls, timers at 0 ms and posted events run.
void processEvents();

// The scratch folder: settings (KXC_CONFIG_HOME) and caches.db live here; KXC_LIBRARY_DIR
// points at the source tree's catalogues.
const std::filesystem::path& scratchFolder();

// Options of an engine over the shared database with a small "Sales" sample.
engine::EngineOptions smallEngineOptions();

// A session on recording services with the sample report loaded and its window shown.
class WorkbenchTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  workbook::InMemoryApplication& app() { return session_->app(); }
  workbench::WorkbenchSession& session() { return *session_; }
  workbench::MainWindow& window() { return *window_; }
  RecordingServices& services() { return *services_; }
  // The on-screen centre of the cell (1-based row and column) in the sheet view.
  QPoint cellCentre(int32_t row, int32_t column);

  std::shared_ptr<RecordingServices> services_;
  std::unique_ptr<workbench::WorkbenchSession> session_;
  std::unique_ptr<workbench::MainWindow> window_;
};

}  // namespace kxc::testing
