// The transactions of a loaded cache as columns: one member number (0-based) per dimension, one
// value (double, NaN for none) per measure, and the date and reference texts.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/embedded/member_column.h"

namespace kxc::engine {

// Many short texts in one buffer: far less memory and allocation than one string per row.
class TextColumn {
 public:
  void push(std::string_view text) {
    chars_.append(text);
    ends_.push_back(chars_.size());
  }
  std::string_view at(size_t row) const {
    size_t begin = row == 0 ? 0 : ends_[row - 1];
    return std::string_view(chars_).substr(begin, ends_[row] - begin);
  }
  size_t size() const { return ends_.size(); }
  void truncate(size_t rows) {
    if (rows >= ends_.size()) return;
    ends_.resize(rows);
    chars_.resize(rows == 0 ? 0 : ends_.back());
  }
  void reserve(size_t rows, size_t chars) {
    ends_.reserve(rows);
    chars_.reserve(chars);
  }

 private:
  std::string chars_;
  std::vector<uint64_t> ends_;
};

struct CacheColumns {
  std::vector<MemberColumn> members;        // [dimension][row]
  std::vector<std::vector<double>> values;  // [measure][row]
  TextColumn dates;
  TextColumn references;

  CacheColumns() = default;
  // One column per dimension, as wide as its member count needs.
  CacheColumns(const std::vector<size_t>& memberCounts, size_t measures) : values(measures) {
    for (size_t n : memberCounts) members.emplace_back(MemberColumn::widthFor(n));
  }

  size_t rowCount() const { return dates.size(); }

  void appendRow(std::span<const int32_t> rowMembers, std::span<const double> rowValues,
                 std::string_view date, std::string_view reference) {
    for (size_t d = 0; d < members.size(); ++d) members[d].push_back(rowMembers[d]);
    for (size_t m = 0; m < values.size(); ++m) values[m].push_back(rowValues[m]);
    dates.push(date);
    references.push(reference);
  }

  void truncate(size_t rows) {
    for (auto& c : members) c.resize(std::min(c.size(), rows));
    for (auto& c : values) c.resize(std::min(c.size(), rows));
    dates.truncate(rows);
    references.truncate(rows);
  }
};

}  // namespace kxc::engine
