// Drawing one screenful of the sheet grid (about 45 rows by 16 columns at 1600 x 1000): the
// workbench's delegate, which fits numbers and lets long texts run on, against Qt's plain
// delegate on the same model. Sheets of 100,000 rows: every third row a long title followed by
// empty cells (the case that makes cells look left for a text), the others numbers with many
// decimals. Runs on the offscreen platform unless QT_QPA_PLATFORM says otherwise.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <memory>
#include <string>

#include "platform/workbook/in_memory_application.h"
#include "sheet_model.h"
#include "sheet_view.h"

namespace {

using kxc::workbench::SheetModel;
using kxc::workbench::SheetView;
using kxc::workbook::InMemoryApplication;

constexpr int kRows = 100'000;
constexpr int kColumns = 12;

std::shared_ptr<InMemoryApplication> filledApplication() {
  auto app = InMemoryApplication::create();
  app->addWorkbook("Bench");
  app->setCalculationSuspended(true);
  for (int row = 1; row <= kRows; ++row) {
    if (row % 3 == 0) {
      app->setCell("Sheet1!A" + std::to_string(row),
                   "A long heading for row " + std::to_string(row) + " that runs far across");
      continue;
    }
    for (int column = 0; column < kColumns; ++column) {
      const std::string address =
          std::string(1, static_cast<char>('A' + column)) + std::to_string(row);
      app->setCell("Sheet1!" + address, std::to_string(row * 1234.56789 + column / 7.0));
    }
  }
  app->setCalculationSuspended(false);
  return app;
}

struct Sheet {
  std::shared_ptr<InMemoryApplication> app = filledApplication();
  SheetView view{app};
  SheetModel model{app, "Bench", "Sheet1"};
  QPixmap canvas{1600, 1000};

  Sheet() {
    view.setSheetModel(&model);
    view.resize(1600, 1000);
    view.show();
    QCoreApplication::processEvents();
    view.verticalScrollBar()->setValue(kRows / 2);
    QCoreApplication::processEvents();
  }
  void draw() { view.viewport()->render(&canvas); }
};

// Made in main, after the application and gone before it.
Sheet* gSheet = nullptr;

Sheet& sheet() { return *gSheet; }

void BM_DrawScreenfulWorkbenchDelegate(benchmark::State& state) {
  Sheet& s = sheet();
  for (auto _ : state) s.draw();
}
BENCHMARK(BM_DrawScreenfulWorkbenchDelegate)->Unit(benchmark::kMillisecond);

void BM_DrawScreenfulPlainDelegate(benchmark::State& state) {
  Sheet& s = sheet();
  QAbstractItemDelegate* own = s.view.itemDelegate();
  QStyledItemDelegate plain;
  s.view.setItemDelegate(&plain);
  s.view.setShowGrid(true);
  for (auto _ : state) s.draw();
  s.view.setShowGrid(false);
  s.view.setItemDelegate(own);
}
BENCHMARK(BM_DrawScreenfulPlainDelegate)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  Sheet shared;
  gSheet = &shared;
  benchmark::RunSpecifiedBenchmarks();
  gSheet = nullptr;
  benchmark::Shutdown();
  return 0;
}
