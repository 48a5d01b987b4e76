// A transaction grid for tests: the dispatch members the engine fills (ClearAll, MaxCols,
// MaxRows, SetText, SetBlock, GetText) over a plain table of cells, row 0 being the headers.
#pragma once

#include <string>
#include <vector>

#include "platform/dispatch.h"

namespace kxc::engine::testing {

class GridDouble : public DispatchObject {
 public:
  GridDouble();
  Variant invoke(std::string_view member, Arguments args, CallKind kind) override;

  int32_t maxCols() const { return maxCols_; }
  int32_t maxRows() const { return maxRows_; }
  // The text at a 1-based column and a row (0 = headers); "" outside.
  std::string cell(int32_t col, int32_t row) const;
  std::vector<std::string> row(int32_t row) const;  // columns 1..maxCols
  int setBlockCalls() const { return setBlockCalls_; }

 private:
  void put(int32_t col, int32_t row, std::string text);

  DispatchTable table_;
  int32_t maxCols_ = 0;
  int32_t maxRows_ = 0;
  std::vector<std::vector<std::string>> columns_;  // [col - 1][row]
  int setBlockCalls_ = 0;
};

}  // namespace kxc::engine::testing
