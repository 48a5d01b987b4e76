#include "platform/controls/key_index.h"

#include <functional>

namespace kxc::controls {

std::size_t KeyIndex::slotOf(std::string_view key) const {
  return std::hash<std::string_view>{}(key) & (slots_.size() - 1);
}

int32_t KeyIndex::find(std::string_view key, const Keys& keys) const {
  if (slots_.empty() || key.empty()) return -1;
  for (std::size_t s = slotOf(key);; s = (s + 1) & (slots_.size() - 1)) {
    int32_t row = slots_[s];
    if (row < 0) return -1;
    if (keys[row] == key) return row;
  }
}

void KeyIndex::insert(int32_t row, const Keys& keys) {
  // Kept at most half full so that probe runs stay short.
  if ((size_ + 1) * 2 > slots_.size()) grow(keys);
  std::size_t s = slotOf(keys[row]);
  while (slots_[s] >= 0) s = (s + 1) & (slots_.size() - 1);
  slots_[s] = row;
  ++size_;
}

void KeyIndex::shift(int32_t row, int32_t delta) {
  for (int32_t& slot : slots_) {
    if (slot >= row) slot += delta;
  }
}

void KeyIndex::rebuild(const Keys& keys) {
  slots_.clear();
  size_ = 0;
  for (std::size_t row = 0; row < keys.size(); ++row) {
    if (!keys[row].empty()) insert(static_cast<int32_t>(row), keys);
  }
}

void KeyIndex::clear() {
  slots_.clear();
  slots_.shrink_to_fit();
  size_ = 0;
}

void KeyIndex::grow(const Keys& keys) {
  std::vector<int32_t> old = std::move(slots_);
  slots_.assign(old.empty() ? 16 : old.size() * 2, -1);
  for (int32_t row : old) {
    if (row < 0) continue;
    std::size_t s = slotOf(keys[row]);
    while (slots_[s] >= 0) s = (s + 1) & (slots_.size() - 1);
    slots_[s] = row;
  }
}

}  // namespace kxc::controls
