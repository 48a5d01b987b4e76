#include "engine/contract/drilldown.h"

#include "engine/contract/display_format.h"
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

void clearGrid(const ObjectRef& grid) {
  if (!grid) throw RuntimeError(err::kObjectRequired);
  invoke(grid, "ClearAll");
  setProperty(grid, "MaxCols", 0);
  setProperty(grid, "MaxRows", 0);
}

GridFiller::GridFiller(const CacheModel& cache, ObjectRef grid)
    : cache_(cache), grid_(std::move(grid)) {
  if (!grid_) throw RuntimeError(err::kObjectRequired);
}

void GridFiller::begin(size_t rows) {
  const auto& def = cache_.definition();
  clearGrid(grid_);
  setProperty(grid_, "MaxCols", cache_.dimensionCount() + cache_.measureCount() + 2);
  setProperty(grid_, "MaxRows", static_cast<int32_t>(rows));

  std::string header;
  for (const auto& d : def.dimensions) appendCell(header, d.caption), header += '\t';
  for (const auto& m : def.measures) appendCell(header, m.caption), header += '\t';
  header += "Date\tReference";
  setBlock(grid_, 0, std::move(header));
  block_.clear();
  pending_ = written_ = 0;
}

void GridFiller::row(std::span<const int32_t> members, std::span<const double> values,
                     std::string_view date, std::string_view reference) {
  const auto& def = cache_.definition();
  if (pending_ > 0) block_ += '\n';
  for (size_t d = 0; d < members.size(); ++d) {
    appendCell(block_, def.dimensions[d].members[members[d]].value);
    block_ += '\t';
  }
  for (size_t m = 0; m < values.size(); ++m) {
    appendCell(block_, formatDisplay(values[m], def.measures[m].format));
    block_ += '\t';
  }
  appendCell(block_, date);
  block_ += '\t';
  appendCell(block_, reference);
  if (++pending_ == kGridChunkRows) flush();
}

void GridFiller::flush() {
  if (pending_ == 0) return;
  setBlock(grid_, static_cast<int32_t>(written_ + 1), block_);
  written_ += pending_;
  pending_ = 0;
  block_.clear();
}

size_t GridFiller::finish() {
  flush();
  return written_;
}

}  // namespace kxc::engine
