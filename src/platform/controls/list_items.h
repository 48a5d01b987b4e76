// The rows of a list view, stored as column arrays so that a list holds a million rows leanly,
// and the ListItem handle through which one row is read and written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/key_index.h"

namespace kxc::controls {

class ListView;
class ListItems;

// A handle to one row, by position: inserting or removing rows before it moves the row it
// designates (take a fresh handle after such changes). Cheap to copy; valid while the list
// lives. Every member raises 35600 "Index out of bounds" once the row no longer exists.
class ListItem {
 public:
  int32_t index() const { return row_ + 1; }  // 1-based
  const std::string& text() const;
  void setText(std::string text);
  const std::string& key() const;
  bool selected() const;
  // Selects or unselects the row; in a list without multiple selection, selecting a row
  // unselects the one selected before.
  void setSelected(bool on);
  // Sub-item n is the text of column n + 1; n runs from 1 to the number of column headers
  // less one, else 380 "Invalid property value".
  const std::string& subItem(int32_t n) const;
  void setSubItem(int32_t n, std::string text);

 private:
  friend class ListItems;
  ListItem(ListItems& items, int32_t row) : items_(&items), row_(row) {}
  ListItems* items_;
  int32_t row_;  // 0-based
};

// The rows. Appending is amortised O(1); inserting or removing at a position is O(rows). Keys
// are optional, unique and case-sensitive; the key index exists only once a key is used. Row
// texts returned by reference stay valid until that row's text changes or rows are inserted,
// removed or cleared.
class ListItems {
 public:
  explicit ListItems(ListView& list) : list_(list) {}

  int32_t count() const { return static_cast<int32_t>(texts_.size()); }

  // Adds a row at `index` (1..count+1; 0 appends) with `key` ("" for none) and `text`.
  // A key already used raises 35602 "Key is not unique in collection"; an index out of range
  // raises 35600 "Index out of bounds". Nothing changes when it raises.
  ListItem add(int32_t index = 0, std::string_view key = {}, std::string text = {});
  void remove(int32_t index);  // 35600 out of range
  void clear();
  void reserve(int32_t rows);

  ListItem item(int32_t index);         // 35600 out of range
  ListItem item(std::string_view key);  // 35601 "Element not found"
  bool containsKey(std::string_view key) const;

  // Row access by 1-based index, for views and bulk walks (35600 out of range).
  const std::string& text(int32_t index) const;
  bool selected(int32_t index) const;
  void setSelected(int32_t index, bool on);
  const std::string& subItem(int32_t index, int32_t n) const;
  int32_t selectedCount() const { return selectedCount_; }

  // The focused row: the row last selected or clicked (0 for none). It stays when that row is
  // unselected and goes when the row is removed or the list is cleared.
  int32_t focusIndex() const { return focus_ + 1; }
  void setFocusIndex(int32_t index);  // 0 for none; 35600 out of range

  // Unselects every row except `keep` (1-based; 0 keeps none).
  void unselectAllBut(int32_t keep);

  // Bytes held by the row storage (containers and out-of-line texts), for diagnostics.
  std::size_t memoryBytes() const;

 private:
  friend class ListItem;
  int32_t row0(int32_t index) const;  // 1-based index to 0-based row, 35600 out of range
  void checkSubItem(int32_t n) const;
  void setRowText(int32_t row, std::string text);
  void setRowSubItem(int32_t row, int32_t n, std::string text);
  const std::string& rowKey(int32_t row) const;
  void setRowSelected(int32_t row, bool on);

  ListView& list_;
  std::vector<std::string> texts_;
  std::vector<std::vector<std::string>> subItems_;  // [n - 1][row]; a column exists once set
  std::vector<uint8_t> selected_;
  std::vector<std::string> keys_;  // empty until a row gets a key, then one per row
  KeyIndex keyIndex_;
  int32_t selectedCount_ = 0;
  int32_t focus_ = -1;  // 0-based
};

}  // namespace kxc::controls
