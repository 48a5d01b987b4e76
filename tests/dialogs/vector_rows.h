// Rows for the selection codec tests: texts and flags in vectors, with an optional failure.
#pragma once

#include <string>
#include <vector>

#include "dialogs/selection_codec.h"
#include "platform/runtime_error.h"

namespace kxc::testing {

class VectorRows : public SelectionRows {
 public:
  VectorRows(std::vector<std::string> texts, std::vector<bool> flags = {})
      : texts_(std::move(texts)), flags_(std::move(flags)) {
    flags_.resize(texts_.size(), false);
  }
  // From a pattern: 'x' marks a selected row ("-x-x").
  VectorRows(std::vector<std::string> texts, std::string_view pattern) : VectorRows(texts) {
    for (std::size_t i = 0; i < pattern.size() && i < flags_.size(); ++i) {
      flags_[i] = pattern[i] == 'x';
    }
  }

  int32_t count() const override { return static_cast<int32_t>(texts_.size()); }
  std::string_view text(int32_t row) const override { return texts_.at(row - 1); }
  bool selected(int32_t row) const override { return flags_.at(row - 1); }
  void setSelected(int32_t row, bool on) override {
    if (row == failOnSelect) throw RuntimeError(err::kTypeMismatch);
    flags_.at(row - 1) = on;
  }

  std::string pattern() const {
    std::string out;
    for (bool f : flags_) out += f ? 'x' : '-';
    return out;
  }
  const std::vector<bool>& flags() const { return flags_; }

  int32_t failOnSelect = 0;  // selecting this row raises 13

 private:
  std::vector<std::string> texts_;
  std::vector<bool> flags_;
};

}  // namespace kxc::testing
