// A worksheet of the in-memory workbook: its name, its cells and its selection.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/host/worksheet.h"
#include "platform/workbook/cell_store.h"
#include "platform/workbook/grid.h"

namespace kxc::workbook {

class Book;

class Sheet : public host::Worksheet {
 public:
  Sheet(SheetId id, std::string name, std::weak_ptr<Book> book)
      : id_(id), name_(std::move(name)), book_(std::move(book)) {}

  std::string name() const override { return name_; }
  std::shared_ptr<host::Workbook> parent() const override;

  SheetId id() const { return id_; }
  std::shared_ptr<Book> book() const { return book_.lock(); }
  CellStore& cells() { return cells_; }
  const CellStore& cells() const { return cells_; }

  // The sheet remembers its own selection, as each sheet of the spreadsheet does; it starts
  // as A1. The active cell is the top-left cell of the selection's first area.
  const std::vector<Area>& selection() const { return selection_; }
  void setSelection(std::vector<Area> areas) { selection_ = std::move(areas); }

 private:
  SheetId id_;
  std::string name_;
  std::weak_ptr<Book> book_;
  CellStore cells_;
  std::vector<Area> selection_{Area::cell(1, 1)};
};

}  // namespace kxc::workbook
