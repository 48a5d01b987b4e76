#include "grid_double.h"

#include "platform/runtime_error.h"

namespace kxc::engine::testing {

GridDouble::GridDouble() {
  // Like the real grid, ClearAll empties the cells but keeps the size.
  table_.method("ClearAll", [this](Arguments) {
    columns_.clear();
    return Variant();
  });
  table_.property(
      "MaxCols", [this](Arguments) { return Variant(maxCols_); },
      [this](Arguments a) {
        maxCols_ = a.back().value().toInt32();
        return Variant();
      });
  table_.property(
      "MaxRows", [this](Arguments) { return Variant(maxRows_); },
      [this](Arguments a) {
        maxRows_ = a.back().value().toInt32();
        return Variant();
      });
  table_.method("SetText", [this](Arguments a) {
    put(argAt(a, 0).toInt32(), argAt(a, 1).toInt32(), argAt(a, 2).toText());
    return Variant();
  });
  table_.method("GetText", [this](Arguments a) {
    return Variant(cell(argAt(a, 0).toInt32(), argAt(a, 1).toInt32()));
  });
  table_.method("SetBlock", [this](Arguments a) {
    ++setBlockCalls_;
    int32_t col0 = argAt(a, 0).toInt32(), row = argAt(a, 1).toInt32();
    const std::string& text = argAt(a, 2).text();
    int32_t col = col0;
    std::string cellText;
    for (size_t i = 0; i <= text.size(); ++i) {
      char c = i < text.size() ? text[i] : '\n';
      if (c == '\t' || c == '\n') {
        put(col, row, std::move(cellText));
        cellText.clear();
        if (c == '\t') {
          ++col;
        } else {
          col = col0;
          ++row;
        }
      } else {
        cellText += c;
      }
    }
    return Variant();
  });
}

Variant GridDouble::invoke(std::string_view member, Arguments args, CallKind kind) {
  return table_.invoke(member, args, kind);
}

void GridDouble::put(int32_t col, int32_t row, std::string text) {
  if (col < 1 || row < 0) throw RuntimeError(err::kInvalidCall);
  if (col > maxCols_) maxCols_ = col;
  if (row > maxRows_) maxRows_ = row;
  if (columns_.size() < static_cast<size_t>(col)) columns_.resize(col);
  auto& column = columns_[col - 1];
  if (column.size() <= static_cast<size_t>(row)) column.resize(row + 1);
  column[row] = std::move(text);
}

std::string GridDouble::cell(int32_t col, int32_t row) const {
  if (col < 1 || static_cast<size_t>(col) > columns_.size() || row < 0) return "";
  const auto& column = columns_[col - 1];
  return static_cast<size_t>(row) < column.size() ? column[row] : "";
}

std::vector<std::string> GridDouble::row(int32_t r) const {
  std::vector<std::string> out;
  for (int32_t c = 1; c <= maxCols_; ++c) out.push_back(cell(c, r));
  return out;
}

}  // namespace kxc::engine::testing
