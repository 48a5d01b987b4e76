#include "platform/controls/column_headers.h"

#include "platform/controls/control_errors.h"
#include "platform/controls/list_view.h"

namespace kxc::controls {

namespace {
void checkAlignment(int alignment) {
  if (alignment != kAlignLeft && alignment != kAlignRight && alignment != kAlignCenter) {
    throw controlError(errc::kInvalidPropertyValue);
  }
}
}  // namespace

int32_t ColumnHeader::index() const {
  const auto& all = list_.columns_.headers_;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i].get() == this) return static_cast<int32_t>(i + 1);
  }
  return 0;
}

void ColumnHeader::setText(std::string text) {
  text_ = std::move(text);
  list_.notifyColumns();
}

void ColumnHeader::setWidth(int32_t twips) {
  if (twips < 0) throw controlError(errc::kInvalidPropertyValue);
  width_ = twips;
  list_.notifyColumns();
}

void ColumnHeader::setAlignment(int alignment) {
  checkAlignment(alignment);
  alignment_ = alignment;
  list_.notifyColumns();
}

ColumnHeader& ColumnHeaders::add(int32_t index, std::string key, std::string text, int32_t width,
                                 int alignment) {
  if (index < 0 || index > count() + 1) throw controlError(errc::kIndexOutOfBounds);
  if (!key.empty()) {
    for (const auto& header : headers_) {
      if (header->key() == key) throw controlError(errc::kKeyNotUnique);
    }
  }
  if (width < 0) throw controlError(errc::kInvalidPropertyValue);
  checkAlignment(alignment);
  std::unique_ptr<ColumnHeader> header(
      new ColumnHeader(list_, std::move(key), std::move(text), width, alignment));
  ColumnHeader& added = *header;
  auto at = index == 0 ? headers_.end() : headers_.begin() + (index - 1);
  headers_.insert(at, std::move(header));
  list_.notifyColumns();
  return added;
}

ColumnHeader& ColumnHeaders::item(int32_t index) const {
  if (index < 1 || index > count()) throw controlError(errc::kIndexOutOfBounds);
  return *headers_[index - 1];
}

ColumnHeader& ColumnHeaders::item(std::string_view key) const {
  for (const auto& header : headers_) {
    if (!key.empty() && header->key() == key) return *header;
  }
  throw controlError(errc::kElementNotFound);
}

void ColumnHeaders::remove(int32_t index) {
  if (index < 1 || index > count()) throw controlError(errc::kIndexOutOfBounds);
  headers_.erase(headers_.begin() + (index - 1));
  list_.notifyColumns();
}

void ColumnHeaders::clear() {
  headers_.clear();
  list_.notifyColumns();
}

}  // namespace kxc::controls
