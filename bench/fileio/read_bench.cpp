// Reading an .xlsx file in a child process against reading it in this process, for files of
// 10, 1,000 and 100,000 cells (one sheet, numbers and texts in turn). The difference is what
// the crash containment costs each File > Open.
#include <benchmark/benchmark.h>

#include <string>

#include "platform/fileio/child_process_reader.h"
#include "platform/fileio/spreadsheet_reader.h"
#include "zip_builder.h"

namespace {

std::string fileOfCells(int cells) {
  std::string rows;
  const int columns = 10;
  for (int row = 1; row <= (cells + columns - 1) / columns; ++row) {
    rows += "<row r=\"" + std::to_string(row) + "\">";
    for (int column = 0; column < columns && (row - 1) * columns + column < cells; ++column) {
      const std::string ref = std::string(1, static_cast<char>('A' + column)) + std::to_string(row);
      rows += column % 2 ? "<c r=\"" + ref + "\"><v>" + std::to_string(row * 1.5) + "</v></c>"
                         : "<c r=\"" + ref + "\" t=\"inlineStr\"><is><t>Region " +
                               std::to_string(row) + "</t></is></c>";
    }
    rows += "</row>";
  }
  return kxc::fileio::testing::xlsxFile({{"Data", rows}});
}

template <kxc::fileio::SpreadsheetReadResult (*Read)(std::string_view, std::size_t)>
void readFile(benchmark::State& state) {
  const std::string bytes = fileOfCells(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    kxc::fileio::SpreadsheetReadResult read = Read(bytes, kxc::fileio::kMaxLoadedCells);
    if (!read.image) state.SkipWithError(read.failure.c_str());
    benchmark::DoNotOptimize(read);
  }
  state.SetLabel(std::to_string(bytes.size() / 1024) + " kB");
}

void BM_ReadInProcess(benchmark::State& state) { readFile<kxc::fileio::readSpreadsheet>(state); }
void BM_ReadInChild(benchmark::State& state) {
  readFile<kxc::fileio::readSpreadsheetInChild>(state);
}

BENCHMARK(BM_ReadInProcess)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadInChild)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
