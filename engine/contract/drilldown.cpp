#include "engine/drilldown.h"

#include "engine/aggregation.h"
#include "engine/display_format.h"
#include "platform/runtime_error.h"

namespace kxc::engine {

namespace {

void appendCell(std::string& out, std::string_view text) {
  for (char c : text) out += (c == '\t' || c == '\n' || c == '\r') ? ' ' : c;
}

void setProperty(const ObjectRef& grid, std::string_view name, int32_t value) {
  std::vector<Argument> args{Argument::byValue(Variant(value))};
  grid->invoke(name, Arguments(args), CallKind::PropertyPut);
}

void setBlock(const ObjectRef& grid, int32_t row, std::string text) {
  invoke(grid, "SetBlock",
         {Argument::byValue(Variant(int32_t{1})), Argument::byValue(Variant(row)),
          Argument::byValue(Variant(std::move(text)))});
}

}  // namespace

std::vector<RowId> unionOfMatches(const LoadedCache& cache,
                                  std::span<const std::vector<MemberFilter>> criteria) {
  std::vector<uint8_t> hit(cache.rowCount(), 0);
  for (const auto& filters : criteria) {
    forEachMatchingRow(cache, filters, [&](RowId r) { hit[r] = 1; });
  }
  std::vector<RowId> rows;
  for (RowId r = 0; r < hit.size(); ++r) {
    if (hit[r]) rows.push_back(r);
  }
  return rows;
}

void clearGrid(const ObjectRef& grid) {
  if (!grid) throw RuntimeError(err::kObjectRequired);
  invoke(grid, "ClearAll");
  setProperty(grid, "MaxCols", 0);
  setProperty(grid, "MaxRows", 0);
}

void fillGrid(const LoadedCache& cache, std::span<const RowId> rows, const ObjectRef& grid) {
  if (!grid) throw RuntimeError(err::kObjectRequired);
  const auto& def = cache.definition();
  const int nd = cache.dimensionCount();
  const int nm = cache.measureCount();
  const int32_t cols = nd + nm + 2;

  clearGrid(grid);
  setProperty(grid, "MaxCols", cols);
  setProperty(grid, "MaxRows", static_cast<int32_t>(rows.size()));

  std::string header;
  for (const auto& d : def.dimensions) appendCell(header, d.caption), header += '\t';
  for (const auto& m : def.measures) appendCell(header, m.caption), header += '\t';
  header += "Date\tReference";
  setBlock(grid, 0, std::move(header));

  const auto& columns = cache.columns();
  std::string block;
  size_t first = 0;
  while (first < rows.size()) {
    size_t last = std::min(rows.size(), first + kGridChunkRows);
    block.clear();
    for (size_t i = first; i < last; ++i) {
      RowId r = rows[i];
      if (i > first) block += '\n';
      for (int d = 0; d < nd; ++d) {
        appendCell(block, def.dimensions[d].members[columns.members[d][r]].value);
        block += '\t';
      }
      for (int m = 0; m < nm; ++m) {
        appendCell(block, formatDisplay(columns.values[m][r], def.measures[m].format));
        block += '\t';
      }
      appendCell(block, columns.dates.at(r));
      block += '\t';
      appendCell(block, columns.references.at(r));
    }
    setBlock(grid, static_cast<int32_t>(first + 1), block);
    first = last;
  }
}

}  // namespace kxc::engine
