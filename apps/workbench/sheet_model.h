// SheetModel: one sheet of the in-memory workbook as a Qt table model.
#pragma once

#include <QAbstractTableModel>
#include <memory>
#include <optional>
#include <string>

#include "platform/workbook/in_memory_application.h"

namespace kxc::workbench {

// Column letters ("A", "AA") for a 1-based column number; "" outside 1..kMaxColumns.
std::string columnLetters(int32_t column);

// Rows and columns are the sheet's, 0-based in the model. Display is what the cell shows,
// EditRole its formula (or typed text); setData types into the cell through the application,
// so the workbook's change events fire as they would for a user. The model covers the used
// range plus a margin and grows (never shrinks) on refresh(); only visible cells are asked
// for, so large sheets stay fast. Holds the application; user-interface thread only.
class SheetModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  static constexpr int32_t kMarginRows = 30;
  static constexpr int32_t kMarginColumns = 8;
  // The cell's number as a double, for cells that hold one; nothing for other cells. The view
  // uses it to show numbers fitted to the column's width.
  static constexpr int kNumberRole = Qt::UserRole + 1;

  SheetModel(std::shared_ptr<workbook::InMemoryApplication> app, std::string workbookName,
             std::string sheetName, QObject* parent = nullptr);

  const std::string& workbookName() const { return workbook_; }
  const std::string& sheetName() const { return sheet_; }
  // "Sheet1!$B$3" for a model index: the reference the application understands.
  std::string reference(int row, int column) const;
  std::string reference(int top, int left, int bottom, int right) const;

  // Re-reads the size and announces every visible cell as changed.
  void refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void measure(int32_t& rows, int32_t& columns) const;
  std::optional<double> numberAt(int32_t row, int32_t column) const;

  std::shared_ptr<workbook::InMemoryApplication> app_;
  std::string workbook_;
  std::string sheet_;
  int32_t rows_ = 0;
  int32_t columns_ = 0;
};

}  // namespace kxc::workbench
