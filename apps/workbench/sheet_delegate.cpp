#include "sheet_delegate.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTableView>

#include "number_fit.h"
#include "sheet_model.h"
#include "text_overflow.h"

namespace kxc::workbench {

namespace {

bool isEmpty(const QModelIndex& index) { return index.data(Qt::DisplayRole).toString().isEmpty(); }

bool isLeftAligned(const QModelIndex& index) {
  const QVariant alignment = index.data(Qt::TextAlignmentRole);
  return !alignment.isValid() ||
         (Qt::Alignment(alignment.toInt()) & Qt::AlignHorizontal_Mask) == Qt::AlignLeft;
}

int textMargin(const QStyleOptionViewItem& option) {
  const QWidget* widget = option.widget;
  QStyle* style = widget ? widget->style() : QApplication::style();
  // The item view leaves this margin on each side of a cell's text.
  return style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, widget) + 1;
}

}  // namespace

// A text cell's run: how many empty cells it reaches into and its own text width.
struct SheetDelegate::Overflow {
  int span = 0;
  int textWidth = 0;
};

SheetDelegate::SheetDelegate(QTableView* view) : QStyledItemDelegate(view), view_(view) {}

SheetDelegate::Overflow SheetDelegate::overflowOf(const QModelIndex& source,
                                                  const QStyleOptionViewItem& option) const {
  Overflow run;
  if (isEmpty(source) || !isLeftAligned(source) || source.data(SheetModel::kNumberRole).isValid()) {
    return run;
  }
  const QFontMetrics metrics(option.font);
  run.textWidth = metrics.horizontalAdvance(source.data(Qt::DisplayRole).toString());
  const int room = view_->columnWidth(source.column()) - 2 * textMargin(option);
  if (run.textWidth <= room) return run;
  std::vector<int> neighbours;
  const int columns = source.model()->columnCount();
  for (int column = source.column() + 1; column < columns; ++column) {
    const QModelIndex next = source.siblingAtColumn(column);
    if (!isEmpty(next)) break;
    neighbours.push_back(view_->columnWidth(column));
    if (static_cast<int>(neighbours.size()) >= kMaxOverflowCells) break;
  }
  run.span = overflowSpan(run.textWidth, room, neighbours);
  return run;
}

void SheetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const QWidget* widget = item.widget;
  QStyle* style = widget ? widget->style() : QApplication::style();
  const int margin = textMargin(item);
  const QVariant number = index.data(SheetModel::kNumberRole);

  // The cell whose text is drawn here, and where that text starts.
  QModelIndex source;
  int sourceLeft = item.rect.left();
  bool runsOn = false;  // the text continues past this cell's right edge
  if (number.isValid()) {
    const int room = item.rect.width() - 2 * margin;
    const QFontMetrics metrics(item.font);
    item.text = QString::fromStdString(fitNumberText(number.toDouble(), [&](std::string_view t) {
      return metrics.horizontalAdvance(QString::fromUtf8(t.data(), static_cast<int>(t.size()))) <=
             room;
    }));
  } else if (!item.text.isEmpty()) {
    const Overflow run = overflowOf(index, item);
    if (run.span > 0) {
      source = index;
      runsOn = true;
    }
  } else {
    for (int column = index.column() - 1, seen = 0; column >= 0 && seen < kMaxOverflowCells;
         --column, ++seen) {
      const QModelIndex left = index.siblingAtColumn(column);
      sourceLeft -= view_->columnWidth(column);
      if (isEmpty(left)) continue;
      const Overflow run = overflowOf(left, item);
      if (run.span > index.column() - column - 1) {
        source = left;
        runsOn = run.span > index.column() - column;
      }
      break;
    }
  }

  if (!source.isValid()) {
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);
  } else {
    // Background, selection and focus as usual, then the run's text clipped to this cell.
    const QString text = source.data(Qt::DisplayRole).toString();
    item.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);
    painter->save();
    painter->setClipRect(item.rect);
    painter->setFont(item.font);
    const bool selected = item.state & QStyle::State_Selected;
    painter->setPen(item.palette.color(QPalette::Normal,
                                       selected ? QPalette::HighlightedText : QPalette::Text));
    const QRect line(sourceLeft + margin, item.rect.top(), 1 << 20, item.rect.height());
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    painter->restore();
  }
  drawGridLines(painter, item, !runsOn);
}

void SheetDelegate::drawGridLines(QPainter* painter, const QStyleOptionViewItem& option,
                                  bool rightLine) const {
  // The colour the table view itself would draw its grid in.
  const int hint = view_->style()->styleHint(QStyle::SH_Table_GridLineColor, &option, view_);
  const QRect& rect = option.rect;
  painter->save();
  painter->setPen(QColor::fromRgba(static_cast<QRgb>(hint)));
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  if (rightLine) painter->drawLine(rect.topRight(), rect.bottomRight());
  painter->restore();
}

}  // namespace kxc::workbench
