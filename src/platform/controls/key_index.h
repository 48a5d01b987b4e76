// A lean hash index from a row's key to its row number, for lists of a million rows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kxc::controls {

// Open addressing over row numbers: the keys themselves stay in the caller's column of keys,
// so the index costs a few bytes per keyed row. Rows with an empty key are not indexed. The
// caller passes the same column of keys to every call and keeps the index in step with it.
class KeyIndex {
 public:
  using Keys = std::vector<std::string>;

  // The row holding `key`, or -1.
  int32_t find(std::string_view key, const Keys& keys) const;
  // Indexes row `row` (its key must be non-empty and not yet indexed).
  void insert(int32_t row, const Keys& keys);
  // Every indexed row at or after `row` moves by `delta` (rows inserted or removed before it).
  void shift(int32_t row, int32_t delta);
  // Re-indexes every non-empty key of `keys`.
  void rebuild(const Keys& keys);
  void clear();
  std::size_t size() const { return size_; }
  std::size_t slotCount() const { return slots_.size(); }

 private:
  void grow(const Keys& keys);
  std::size_t slotOf(std::string_view key) const;

  std::vector<int32_t> slots_;  // row numbers, -1 for a free slot; size a power of two
  std::size_t size_ = 0;
};

}  // namespace kxc::controls
