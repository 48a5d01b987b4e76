// A workbook of the in-memory spreadsheet: its name, its sheets in order and its defined names.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/worksheet.h"
#include "platform/workbook/grid.h"
#include "platform/workbook/sheet.h"

namespace kxc::workbook {

struct DefinedName {
  std::string name;  // as defined; looked up without regard to letter case
  Block block;
};

class Book : public host::Workbook, public std::enable_shared_from_this<Book> {
 public:
  explicit Book(std::string name) : name_(std::move(name)) {}

  std::string name() const override { return name_; }

  const std::vector<std::shared_ptr<Sheet>>& sheets() const { return sheets_; }
  void appendSheet(std::shared_ptr<Sheet> sheet) { sheets_.push_back(std::move(sheet)); }
  // The sheet of that name (any letter case), or null.
  std::shared_ptr<Sheet> findSheet(std::string_view name) const;
  // 0-based position of the sheet in this workbook, or -1.
  int indexOf(SheetId sheet) const;

  const std::vector<DefinedName>& names() const { return names_; }
  // The defined name of that text (any letter case), or null.
  const DefinedName* findName(std::string_view name) const;
  // Defines or redefines a name.
  void setName(const std::string& name, const Block& block);

 private:
  std::string name_;
  std::vector<std::shared_ptr<Sheet>> sheets_;
  std::vector<DefinedName> names_;
};

// Letter-case-blind comparison of names, as the spreadsheet compares sheet, workbook and
// defined names.
bool sameName(std::string_view a, std::string_view b);

}  // namespace kxc::workbook
