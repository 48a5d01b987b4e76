#include "sheet_model.h"

#include <algorithm>

#include "platform/error_report.h"
#include "platform/qt/qt_text.h"
#include "platform/workbook/address_writer.h"

namespace kxc::workbench {

namespace {

constexpr int32_t kMinRows = 100;
constexpr int32_t kMinColumns = 26;

bool isNumber(const Variant& value) {
  return value.type() == VarType::Double || value.type() == VarType::Int32 ||
         value.type() == VarType::Int16;
}

}  // namespace

std::string columnLetters(int32_t column) {
  if (column < 1 || column > workbook::kMaxColumns) return "";
  std::string letters;
  for (int32_t n = column; n > 0; n = (n - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (n - 1) % 26));
  }
  return letters;
}

SheetModel::SheetModel(std::shared_ptr<workbook::InMemoryApplication> app, std::string workbookName,
                       std::string sheetName, QObject* parent)
    : QAbstractTableModel(parent),
      app_(std::move(app)),
      workbook_(std::move(workbookName)),
      sheet_(std::move(sheetName)) {
  measure(rows_, columns_);
}

std::string SheetModel::reference(int row, int column) const {
  return workbook::sheetQualifier(sheet_) + workbook::cellAddress(row + 1, column + 1);
}

std::string SheetModel::reference(int top, int left, int bottom, int right) const {
  workbook::Area area{top + 1, left + 1, bottom + 1, right + 1};
  return workbook::sheetQualifier(sheet_) + workbook::areaAddress(area);
}

void SheetModel::measure(int32_t& rows, int32_t& columns) const {
  rows = kMinRows;
  columns = kMinColumns;
  std::optional<workbook::Area> used;
  ignoringErrors([&] { used = app_->usedRange(workbook_, sheet_); });
  if (used) {
    rows = std::max(rows, std::min(used->bottom + kMarginRows, workbook::kMaxRows));
    columns = std::max(columns, std::min(used->right + kMarginColumns, workbook::kMaxColumns));
  }
}

void SheetModel::refresh() {
  int32_t rows = 0;
  int32_t columns = 0;
  measure(rows, columns);
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  }
  if (columns > columns_) {
    beginInsertColumns({}, columns_, columns - 1);
    columns_ = columns;
    endInsertColumns();
  }
  // The view repaints only what it shows, whatever the announced block.
  emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1), {Qt::DisplayRole, Qt::EditRole});
}

int SheetModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int SheetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int32_t row = index.row() + 1;
  const int32_t column = index.column() + 1;
  std::string text;
  switch (role) {
    case Qt::DisplayRole:
      ignoringErrors([&] { text = app_->cellText(workbook_, sheet_, row, column); });
      return qt::toQString(text);
    case Qt::EditRole:
      ignoringErrors([&] { text = app_->cellFormula(workbook_, sheet_, row, column); });
      return qt::toQString(text);
    case Qt::TextAlignmentRole: {
      // As a spreadsheet lines them up: numbers right, error values and booleans centred.
      Variant value;
      ignoringErrors([&] { value = app_->cellValue(workbook_, sheet_, row, column); });
      Qt::Alignment horizontal = Qt::AlignLeft;
      if (isNumber(value)) horizontal = Qt::AlignRight;
      if (value.type() == VarType::Error || value.type() == VarType::Bool) {
        horizontal = Qt::AlignHCenter;
      }
      return QVariant::fromValue(Qt::AlignVCenter | horizontal);
    }
    case kNumberRole:
      if (auto number = numberAt(row, column)) return *number;
      return {};
    default:
      return {};
  }
}

std::optional<double> SheetModel::numberAt(int32_t row, int32_t column) const {
  Variant value;
  ignoringErrors([&] { value = app_->cellValue(workbook_, sheet_, row, column); });
  if (!isNumber(value)) return std::nullopt;
  return value.toDouble();
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  const std::string text = qt::fromQString(value.toString());
  bool done = false;
  reportingErrors("Workbench SetCell", [&] {
    app_->typeInto(reference(index.row(), index.column()), text);
    done = true;
  });
  return done;
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
  if (orientation == Qt::Horizontal) return qt::toQString(columnLetters(section + 1));
  return section + 1;
}

}  // namespace kxc::workbench
