#include "platform/controls/list_items.h"

#include <algorithm>

#include "platform/controls/control_errors.h"
#include "platform/controls/list_view.h"

namespace kxc::controls {

namespace {
const std::string kNoText;

// Heap bytes a string holds beyond its own object (short texts live inside it).
std::size_t outOfLine(const std::string& s) { return s.capacity() > 15 ? s.capacity() + 1 : 0; }

template <class T>
void freeAll(std::vector<T>& v) {
  std::vector<T>().swap(v);
}
}  // namespace

const std::string& ListItem::text() const { return items_->text(index()); }

void ListItem::setText(std::string text) {
  items_->setRowText(items_->row0(index()), std::move(text));
}

const std::string& ListItem::key() const { return items_->rowKey(items_->row0(index())); }

bool ListItem::selected() const { return items_->selected(index()); }

void ListItem::setSelected(bool on) { items_->setSelected(index(), on); }

const std::string& ListItem::subItem(int32_t n) const { return items_->subItem(index(), n); }

void ListItem::setSubItem(int32_t n, std::string text) {
  items_->setRowSubItem(items_->row0(index()), n, std::move(text));
}

int32_t ListItems::row0(int32_t index) const {
  if (index < 1 || index > count()) throw controlError(errc::kIndexOutOfBounds);
  return index - 1;
}

ListItem ListItems::add(int32_t index, std::string_view key, std::string text) {
  const int32_t n = count();
  if (index < 0 || index > n + 1) throw controlError(errc::kIndexOutOfBounds);
  if (!key.empty() && containsKey(key)) throw controlError(errc::kKeyNotUnique);
  const int32_t row = index == 0 ? n : index - 1;
  if (row == n) {
    texts_.push_back(std::move(text));
    selected_.push_back(0);
    for (auto& column : subItems_) {
      if (!column.empty()) column.emplace_back();
    }
  } else {
    texts_.insert(texts_.begin() + row, std::move(text));
    selected_.insert(selected_.begin() + row, 0);
    for (auto& column : subItems_) {
      if (!column.empty()) column.emplace(column.begin() + row);
    }
    if (focus_ >= row) ++focus_;
  }
  if (!key.empty() || !keys_.empty()) {
    keys_.resize(n);  // the first key gives every earlier row an empty one
    if (row != n) keyIndex_.shift(row, 1);
    keys_.emplace(keys_.begin() + row, key);
    if (!key.empty()) keyIndex_.insert(row, keys_);
  }
  list_.notifyRows({ListChange::Kind::Inserted, row + 1, row + 1});
  return ListItem(*this, row);
}

void ListItems::remove(int32_t index) {
  const int32_t row = row0(index);
  if (selected_[row]) --selectedCount_;
  texts_.erase(texts_.begin() + row);
  selected_.erase(selected_.begin() + row);
  for (auto& column : subItems_) {
    if (!column.empty()) column.erase(column.begin() + row);
  }
  if (!keys_.empty()) {
    keys_.erase(keys_.begin() + row);
    keyIndex_.rebuild(keys_);
  }
  if (focus_ == row) {
    focus_ = -1;
  } else if (focus_ > row) {
    --focus_;
  }
  list_.notifyRows({ListChange::Kind::Removed, index, index});
}

void ListItems::clear() {
  freeAll(texts_);
  freeAll(selected_);
  freeAll(subItems_);
  freeAll(keys_);
  keyIndex_.clear();
  selectedCount_ = 0;
  focus_ = -1;
  list_.notifyRows({ListChange::Kind::Reset, 0, 0});
}

void ListItems::reserve(int32_t rows) {
  if (rows <= 0) return;
  texts_.reserve(rows);
  selected_.reserve(rows);
}

ListItem ListItems::item(int32_t index) { return ListItem(*this, row0(index)); }

ListItem ListItems::item(std::string_view key) {
  int32_t row = keyIndex_.find(key, keys_);
  if (row < 0) throw controlError(errc::kElementNotFound);
  return ListItem(*this, row);
}

bool ListItems::containsKey(std::string_view key) const { return keyIndex_.find(key, keys_) >= 0; }

const std::string& ListItems::text(int32_t index) const { return texts_[row0(index)]; }

bool ListItems::selected(int32_t index) const { return selected_[row0(index)] != 0; }

void ListItems::setSelected(int32_t index, bool on) { setRowSelected(row0(index), on); }

const std::string& ListItems::subItem(int32_t index, int32_t n) const {
  const int32_t row = row0(index);
  checkSubItem(n);
  if (static_cast<std::size_t>(n) > subItems_.size() || subItems_[n - 1].empty()) return kNoText;
  return subItems_[n - 1][row];
}

void ListItems::checkSubItem(int32_t n) const {
  if (n < 1 || n > list_.columnHeaders().count() - 1) {
    throw controlError(errc::kInvalidPropertyValue);
  }
}

void ListItems::setRowText(int32_t row, std::string text) {
  texts_[row] = std::move(text);
  list_.notifyRows({ListChange::Kind::Row, row + 1, row + 1});
}

void ListItems::setRowSubItem(int32_t row, int32_t n, std::string text) {
  checkSubItem(n);
  if (subItems_.size() < static_cast<std::size_t>(n)) subItems_.resize(n);
  auto& column = subItems_[n - 1];
  if (column.empty()) column.resize(texts_.size());
  column[row] = std::move(text);
  list_.notifyRows({ListChange::Kind::Row, row + 1, row + 1});
}

const std::string& ListItems::rowKey(int32_t row) const {
  return keys_.empty() ? kNoText : keys_[row];
}

void ListItems::setRowSelected(int32_t row, bool on) {
  if ((selected_[row] != 0) == on) {
    if (on) focus_ = row;
    return;
  }
  // Without multiple selection at most one row is selected; unselect it first.
  if (on && !list_.multiSelect() && selectedCount_ > 0) unselectAllBut(0);
  if (on) focus_ = row;
  selected_[row] = on ? 1 : 0;
  selectedCount_ += on ? 1 : -1;
  list_.notifyRows({ListChange::Kind::Selection, row + 1, row + 1});
}

void ListItems::setFocusIndex(int32_t index) { focus_ = index == 0 ? -1 : row0(index); }

void ListItems::unselectAllBut(int32_t keep) {
  if (selectedCount_ == 0) return;
  const int32_t keepRow = keep - 1;
  if (keepRow >= 0) row0(keep);
  int32_t first = -1;
  int32_t last = -1;
  // The focused row is the usual single selected one: look there before walking every row.
  if (selectedCount_ == 1 && focus_ >= 0 && selected_[focus_]) {
    if (focus_ == keepRow) return;
    selected_[focus_] = 0;
    first = last = focus_;
  } else {
    for (int32_t row = 0; row < count(); ++row) {
      if (!selected_[row] || row == keepRow) continue;
      selected_[row] = 0;
      if (first < 0) first = row;
      last = row;
    }
  }
  selectedCount_ = (keepRow >= 0 && selected_[keepRow]) ? 1 : 0;
  if (first >= 0) list_.notifyRows({ListChange::Kind::Selection, first + 1, last + 1});
}

std::size_t ListItems::memoryBytes() const {
  std::size_t bytes = texts_.capacity() * sizeof(std::string) + selected_.capacity() +
                      keys_.capacity() * sizeof(std::string);
  for (const auto& s : texts_) bytes += outOfLine(s);
  for (const auto& s : keys_) bytes += outOfLine(s);
  for (const auto& column : subItems_) {
    bytes += column.capacity() * sizeof(std::string);
    for (const auto& s : column) bytes += outOfLine(s);
  }
  return bytes + keyIndex_.slotCount() * sizeof(int32_t);
}

}  // namespace kxc::controls
