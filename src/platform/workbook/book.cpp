#include "platform/workbook/book.h"

#include "platform/text_rules.h"

namespace kxc::workbook {

bool sameName(std::string_view a, std::string_view b) {
  return a == b || upperCase(a) == upperCase(b);
}

std::shared_ptr<Sheet> Book::findSheet(std::string_view name) const {
  for (const auto& s : sheets_) {
    if (sameName(s->name(), name)) return s;
  }
  return nullptr;
}

int Book::indexOf(SheetId sheet) const {
  for (size_t i = 0; i < sheets_.size(); ++i) {
    if (sheets_[i]->id() == sheet) return static_cast<int>(i);
  }
  return -1;
}

const DefinedName* Book::findName(std::string_view name) const {
  for (const auto& n : names_) {
    if (sameName(n.name, name)) return &n;
  }
  return nullptr;
}

void Book::setName(const std::string& name, const Block& block) {
  for (auto& n : names_) {
    if (sameName(n.name, name)) {
      n.block = block;
      return;
    }
  }
  names_.push_back({name, block});
}

}  // namespace kxc::workbook
