// The member lookup at scale: filling a list view with a million rows the way the lookup flow
// does, and encoding and decoding a selection over it. Besides the time, each fill reports
// the bytes per row, counted from the list's storage and measured as resident memory.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <memory>
#include <string>

#include "dialogs/list_view_rows.h"
#include "dialogs/selection_codec.h"
#include "platform/controls/grid.h"
#include "platform/controls/list_view.h"

namespace kxc {
namespace {

constexpr int32_t kRows = 1'000'000;

// Resident set size in bytes, from /proc/self/statm, after handing freed memory back so that
// one fill's memory is not reused by the next.
long residentBytes() {
  malloc_trim(0);
  long pages = 0, resident = 0;
  if (FILE* f = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = 0;
    std::fclose(f);
  }
  return resident * 4096;
}

std::string memberText(int32_t j) {
  std::string digits = std::to_string(j);
  return "M" + std::string(7 - digits.size(), '0') + digits;  // "M0000042": sorted
}

// As the lookup flow fills a dimension: keyed rows with a caption sub-item, then "<ALL>"
// inserted at row 1. `captions` and `keys` switch the optional columns on.
void fill(controls::ListView& list, bool keys, bool captions) {
  list.columnHeaders().add(0, "1a", "Name", 2000);
  list.columnHeaders().add(0, "2a", "Description", 3000);
  auto& items = list.listItems();
  items.reserve(kRows + 1);
  for (int32_t j = 1; j <= kRows; ++j) {
    auto item = items.add(j, keys ? "dim" + std::to_string(j) : std::string(), memberText(j));
    if (captions) item.setSubItem(1, "Member number " + std::to_string(j));
  }
  items.add(1, keys ? "1all" : "", "<ALL>");
}

void fillBenchmark(benchmark::State& state) {
  const bool keys = state.range(0) != 0;
  const bool captions = state.range(1) != 0;
  std::size_t layoutBytes = 0;
  long rssBytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const long before = residentBytes();
    state.ResumeTiming();
    auto list = std::make_unique<controls::ListView>();
    fill(*list, keys, captions);
    state.PauseTiming();
    rssBytes = residentBytes() - before;
    layoutBytes = list->listItems().memoryBytes();
    list.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kRows);
  state.counters["layout_bytes_per_row"] = double(layoutBytes) / kRows;
  state.counters["rss_bytes_per_row"] = double(rssBytes) / kRows;
}
BENCHMARK(fillBenchmark)
    ->ArgNames({"keys", "captions"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({1, 1})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// A selection of runs: 3 selected rows out of every 100, so 30,000 selected rows (the
// selection count is 16-bit) in 10,000 range pieces.
struct SelectedList {
  SelectedList() {
    list.setMultiSelect(true);
    fill(list, true, false);
    for (int32_t i = 2; i <= list.listItems().count(); ++i) {
      if ((i - 2) % 100 < 3) list.listItems().setSelected(i, true);
    }
  }
  controls::ListView list;
};

SelectedList& selectedList() {
  static SelectedList shared;
  return shared;
}

void encodeBenchmark(benchmark::State& state) {
  ListViewRows rows(selectedList().list);
  std::size_t length = 0;
  for (auto _ : state) {
    std::string first, last;
    bool single = false, isRange = false;
    std::string text = encodeSelection(rows, first, last, single, isRange);
    length = text.size();
    benchmark::DoNotOptimize(text);
  }
  state.SetItemsProcessed(state.iterations() * rows.count());
  state.counters["text_bytes"] = double(length);
}
BENCHMARK(encodeBenchmark)->Unit(benchmark::kMillisecond);

void decodeBenchmark(benchmark::State& state) {
  ListViewRows rows(selectedList().list);
  std::string first, last;
  bool single = false, isRange = false;
  const std::string text = encodeSelection(rows, first, last, single, isRange);
  for (auto _ : state) decodeSelection(rows, text);
  state.SetItemsProcessed(state.iterations() * rows.count());
}
BENCHMARK(decodeBenchmark)->Unit(benchmark::kMillisecond);

// The engine's drill-down fill: 100,000 rows of 10 columns through SetBlock in chunks.
void gridBlockBenchmark(benchmark::State& state) {
  constexpr int32_t kGridRows = 100'000, kCols = 10, kChunk = 1000;
  std::string chunk;
  for (int32_t r = 0; r < kChunk; ++r) {
    for (int32_t c = 1; c <= kCols; ++c) chunk += (c > 1 ? "\t" : "") + memberText(r * c);
    chunk += '\n';
  }
  for (auto _ : state) {
    controls::Grid grid;
    grid.setMaxCols(kCols);
    for (int32_t row = 1; row <= kGridRows; row += kChunk) grid.setBlock(1, row, chunk);
    benchmark::DoNotOptimize(grid.maxRows());
  }
  state.SetItemsProcessed(state.iterations() * kGridRows);
}
BENCHMARK(gridBlockBenchmark)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kxc

BENCHMARK_MAIN();
