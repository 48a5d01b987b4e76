#include "screenshot.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace kxc::workbench {

namespace {

constexpr int kFrame = 1;
constexpr int kTitleHeight = 26;
constexpr int kCascade = 36;

QImage framed(QWidget& window) {
  const QPixmap content = window.grab();
  const QSize size(content.width() + 2 * kFrame, content.height() + kTitleHeight + 2 * kFrame);
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(QColor(90, 96, 110));
  QPainter painter(&image);
  QRect title(kFrame, kFrame, content.width(), kTitleHeight);
  painter.fillRect(title, QColor(226, 230, 238));
  QFont font = QApplication::font();
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(QColor(30, 30, 30));
  painter.drawText(title.adjusted(10, 0, -10, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   window.windowTitle());
  painter.drawPixmap(kFrame, kFrame + kTitleHeight, content);
  return image;
}

}  // namespace

std::vector<QWidget*> openDialogs(const QWidget& main) {
  std::vector<QWidget*> windows;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget == &main || !widget->isVisible() || !widget->isWindow()) continue;
    if (qobject_cast<QMenu*>(widget) || widget->windowType() == Qt::ToolTip) continue;
    if (widget->width() < 2 || widget->height() < 2) continue;
    windows.push_back(widget);
  }
  // The active window is the newest; it goes last so it is drawn on top.
  std::stable_partition(windows.begin(), windows.end(),
                        [](QWidget* w) { return !w->isActiveWindow(); });
  return windows;
}

QImage composeWindows(QWidget& main, const std::vector<QWidget*>& dialogs) {
  const QImage base = framed(main);
  std::vector<QImage> pictures;
  std::vector<QPoint> places;
  QRect extent(QPoint(0, 0), base.size());
  for (size_t i = 0; i < dialogs.size(); ++i) {
    pictures.push_back(framed(*dialogs[i]));
    const QSize size = pictures.back().size();
    const int offset = static_cast<int>(i) * kCascade;
    QPoint place(std::max(8, (base.width() - size.width()) / 2 + offset),
                 std::max(40, (base.height() - size.height()) / 2 + offset));
    places.push_back(place);
    extent = extent.united(QRect(place, size));
  }
  QImage image(extent.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(QColor(200, 204, 212));
  QPainter painter(&image);
  painter.drawImage(0, 0, base);
  for (size_t i = 0; i < pictures.size(); ++i) {
    // A soft shadow sets the dialog apart from the sheet under it.
    painter.fillRect(QRect(places[i] + QPoint(4, 4), pictures[i].size()), QColor(0, 0, 0, 60));
    painter.drawImage(places[i], pictures[i]);
  }
  return image;
}

bool saveScreenshot(QWidget& main, const QString& file) {
  return composeWindows(main, openDialogs(main)).save(file, "PNG");
}

}  // namespace kxc::workbench
