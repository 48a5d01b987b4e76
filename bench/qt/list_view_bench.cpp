// A million-row list view shown through the Qt binding: how long it takes to open, to select a
// block with Shift+End and to show a selection the logic made. Runs on the offscreen platform
// unless QT_QPA_PLATFORM says otherwise.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <cstdio>
#include <memory>

#include "platform/controls/form.h"
#include "platform/controls/list_view.h"
#include "platform/qt/list_view_widget.h"
#include "platform/qt/qt_form_view.h"

namespace {

using kxc::controls::Form;
using kxc::controls::ListView;
using kxc::qt::ListViewWidget;
using kxc::qt::QtFormView;

constexpr int kRows = 1'000'000;

void fill(ListView& list, int rows) {
  list.columnHeaders().add(0, "1a", "Name");
  list.setMultiSelect(true);
  auto& items = list.listItems();
  items.reserve(rows);
  char text[16];
  for (int i = 1; i <= rows; ++i) {
    std::snprintf(text, sizeof text, "M%07d", i);
    items.add(0, {}, text);
  }
}

void settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

// Building the window and announcing the rows, with the list already filled.
void BM_OpenMillionRowList(benchmark::State& state) {
  Form form("frmLookup");
  fill(form.add<ListView>("lvList"), kRows);
  for (auto _ : state) {
    auto view = std::make_unique<QtFormView>(form);
    form.show(0);
    settle();
    benchmark::DoNotOptimize(view->widget("lvList"));
    state.PauseTiming();
    form.hide();
    view.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_OpenMillionRowList)->Unit(benchmark::kMillisecond);

// Shift+End from the first row: Qt selects the block and the binding writes it into the list.
void BM_ShiftEndSelectsMillionRows(benchmark::State& state) {
  Form form("frmLookup");
  auto& list = form.add<ListView>("lvList");
  fill(list, kRows);
  QtFormView view(form);
  form.show(0);
  settle();
  auto* widget = static_cast<ListViewWidget*>(view.widget("lvList"));
  for (auto _ : state) {
    state.PauseTiming();
    widget->scrollToTop();
    const QPoint first = widget->visualRect(widget->model()->index(0, 0)).center();
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, first);
    state.ResumeTiming();
    QTest::keyClick(widget, Qt::Key_End, Qt::ShiftModifier);
    if (list.listItems().selectedCount() != kRows) {
      state.SkipWithError("block not selected");
      break;
    }
  }
}
BENCHMARK(BM_ShiftEndSelectsMillionRows)->Unit(benchmark::kMillisecond);

// Every other run of a thousand rows selected by the logic, then shown in Qt.
void BM_ShowSelectionMadeByLogic(benchmark::State& state) {
  Form form("frmLookup");
  auto& list = form.add<ListView>("lvList");
  fill(list, kRows);
  QtFormView view(form);
  form.show(0);
  settle();
  auto* widget = static_cast<ListViewWidget*>(view.widget("lvList"));
  for (int row = 1; row <= kRows; ++row) {
    if ((row / 1000) % 2 == 0) list.listItems().setSelected(row, true);
  }
  for (auto _ : state) widget->syncSelection();
}
BENCHMARK(BM_ShowSelectionMadeByLogic)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
