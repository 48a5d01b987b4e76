// SheetDelegate: paints the sheet's cells the way a spreadsheet shows them.
#pragma once

#include <QStyledItemDelegate>

class QTableView;

namespace kxc::workbench {

// Numbers (SheetModel::kNumberRole) are drawn with fitNumberText against the cell's room, so a
// narrow column shows fewer decimals or scientific notation instead of a cut-off text. A text
// too long for its cell runs on into the empty cells to its right; each cell draws its own part
// of it, so repainting one cell alone stays right. The delegate draws the grid lines itself
// (the view's grid must be off) and leaves out the lines a running text crosses. Editing is the
// standard delegate's.
class SheetDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  // How many cells to the left an empty cell looks for a text running into it.
  static constexpr int kMaxOverflowCells = 12;

  explicit SheetDelegate(QTableView* view);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  struct Overflow;
  Overflow overflowOf(const QModelIndex& source, const QStyleOptionViewItem& option) const;
  void drawGridLines(QPainter* painter, const QStyleOptionViewItem& option, bool rightLine) const;

  QTableView* view_;
};

}  // namespace kxc::workbench
