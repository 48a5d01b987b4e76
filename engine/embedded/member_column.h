// One dimension's member numbers for every transaction, stored 1, 2 or 4 bytes wide as the
// dimension's member count allows, so the columns probed while aggregating stay in cache.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

namespace kxc::engine {

class MemberColumn {
 public:
  // Bytes per entry: 1 up to 256 members, 2 up to 65,536, else 4.
  static int widthFor(size_t memberCount) {
    return memberCount <= 0x100 ? 1 : memberCount <= 0x10000 ? 2 : 4;
  }

  explicit MemberColumn(int width = 4) : width_(width) {}

  int width() const { return width_; }
  size_t size() const { return bytes_.size() / static_cast<size_t>(width_); }
  void reserve(size_t rows) { bytes_.reserve(rows * static_cast<size_t>(width_)); }
  void resize(size_t rows) { bytes_.resize(rows * static_cast<size_t>(width_)); }

  // `member` must fit the width (the store checks member numbers against the member count).
  void push_back(int32_t member) {
    size_t at = bytes_.size();
    bytes_.resize(at + static_cast<size_t>(width_));
    switch (width_) {
      case 1:
        bytes_[at] = static_cast<uint8_t>(member);
        break;
      case 2: {
        uint16_t v = static_cast<uint16_t>(member);
        std::memcpy(&bytes_[at], &v, 2);
        break;
      }
      default:
        std::memcpy(&bytes_[at], &member, 4);
        break;
    }
  }

  int32_t operator[](size_t row) const { return at(bytes_.data(), width_, row); }

  const uint8_t* raw() const { return bytes_.data(); }

  // The entry `row` of raw storage of the given width.
  static int32_t at(const uint8_t* raw, int width, size_t row) {
    switch (width) {
      case 1:
        return raw[row];
      case 2: {
        uint16_t v;
        std::memcpy(&v, raw + row * 2, 2);
        return v;
      }
      default: {
        int32_t v;
        std::memcpy(&v, raw + row * 4, 4);
        return v;
      }
    }
  }

 private:
  int width_;
  std::vector<uint8_t> bytes_;
};

}  // namespace kxc::engine
