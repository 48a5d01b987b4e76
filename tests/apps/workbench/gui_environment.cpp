#include "gui_environment.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEventLoop>
#include <cstdlib>

#include "sample_report.h"
#include "sheet_model.h"
#include "sheet_view.h"

namespace kxc::testing {

namespace {

class WorkbenchEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto& folder = scratchFolder();
    ::setenv("KXC_CONFIG_HOME", (folder / "config").c_str(), 1);
    ::setenv("KXC_LIBRARY_DIR", (std::filesystem::path(KXC_SOURCE_DIR) / "data").c_str(), 1);
    app_ = std::make_unique<QApplication>(argc_, argv_);
  }
  void TearDown() override {
    app_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(scratchFolder(), ignored);
  }

 private:
  int argc_ = 1;
  char name_[24] = "kxc_workbench_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> app_;
};

[[maybe_unused]] ::testing::Environment* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new WorkbenchEnvironment);

}  // namespace

void processEvents() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

const std::filesystem::path& scratchFolder() {
  static const std::filesystem::path folder = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "kxc-workbench-XXXXXX");
    char* made = ::mkdtemp(pattern.data());
    return std::filesystem::path(made ? made : pattern);
  }();
  return folder;
}

engine::EngineOptions smallEngineOptions() {
  engine::EngineOptions options;
  options.databasePath = (scratchFolder() / "caches.db").string();
  options.sampleSalesRows = 3000;
  return options;
}

void WorkbenchTest::SetUp() {
  services_ = std::make_shared<RecordingServices>();
  session_ = std::make_unique<workbench::WorkbenchSession>(smallEngineOptions(), services_);
  session_->prepareCaches();
  workbench::addSampleReport(session_->app());
  window_ = std::make_unique<workbench::MainWindow>(*session_);
  window_->show();
  processEvents();
}

void WorkbenchTest::TearDown() {
  window_.reset();
  session_.reset();
  services_.reset();
}

QPoint WorkbenchTest::cellCentre(int32_t row, int32_t column) {
  auto& view = window_->sheetView();
  const QModelIndex index = view.model()->index(row - 1, column - 1);
  view.scrollTo(index);
  return view.visualRect(index).center();
}

}  // namespace kxc::testing
