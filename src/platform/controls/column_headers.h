// The column headers of a report-style list view: key, text, width in twips, alignment, tag.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kxc::controls {

class ListView;

inline constexpr int kAlignLeft = 0;
inline constexpr int kAlignRight = 1;
inline constexpr int kAlignCenter = 2;
inline constexpr int32_t kDefaultColumnWidth = 1440;

class ColumnHeader {
 public:
  int32_t index() const;  // 1-based position
  const std::string& key() const { return key_; }
  const std::string& text() const { return text_; }
  void setText(std::string text);
  int32_t width() const { return width_; }
  void setWidth(int32_t twips);
  int alignment() const { return alignment_; }
  void setAlignment(int alignment);
  const std::string& tag() const { return tag_; }
  void setTag(std::string tag) { tag_ = std::move(tag); }

 private:
  friend class ColumnHeaders;
  ColumnHeader(ListView& list, std::string key, std::string text, int32_t width, int alignment)
      : list_(list),
        key_(std::move(key)),
        text_(std::move(text)),
        width_(width),
        alignment_(alignment) {}
  ListView& list_;
  std::string key_;
  std::string text_;
  int32_t width_;
  int alignment_;
  std::string tag_;
};

// The collection, 1-based. References to headers stay valid until the header is removed.
class ColumnHeaders {
 public:
  explicit ColumnHeaders(ListView& list) : list_(list) {}

  int32_t count() const { return static_cast<int32_t>(headers_.size()); }
  // Adds a header at `index` (1..count+1; 0 appends). A key already used raises 35602 "Key is
  // not unique in collection"; an index out of range raises 35600 "Index out of bounds"; an
  // alignment other than left, right or centre raises 380 "Invalid property value".
  ColumnHeader& add(int32_t index = 0, std::string key = {}, std::string text = {},
                    int32_t width = kDefaultColumnWidth, int alignment = kAlignLeft);
  ColumnHeader& item(int32_t index) const;         // 35600 out of range
  ColumnHeader& item(std::string_view key) const;  // 35601 "Element not found"
  void remove(int32_t index);                      // 35600 out of range
  void clear();

  auto begin() const { return headers_.begin(); }
  auto end() const { return headers_.end(); }

 private:
  friend class ColumnHeader;
  ListView& list_;
  std::vector<std::unique_ptr<ColumnHeader>> headers_;
};

}  // namespace kxc::controls
