#include "platform/qt/widget_colors.h"

#include <QWidget>

namespace kxc::qt {

QColor colorFromBgr(int32_t bgr) {
  if (bgr < 0 || bgr > 0xFFFFFF) return {};
  return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

QColor contrastingText(const QColor& background) {
  // Relative luminance with the usual channel weights.
  const double luma =
      0.299 * background.redF() + 0.587 * background.greenF() + 0.114 * background.blueF();
  return luma >= 0.5 ? QColor(Qt::black) : QColor(Qt::white);
}

void applyBackColor(QWidget& widget, int32_t bgr, int32_t defaultBgr, QPalette::ColorRole role) {
  const QColor color = colorFromBgr(bgr);
  if (bgr == defaultBgr || !color.isValid()) {
    widget.setPalette(QPalette());
    if (role == QPalette::Window) widget.setAutoFillBackground(false);
    return;
  }
  QPalette palette = widget.palette();
  palette.setColor(role, color);
  const QPalette::ColorRole textRole = role == QPalette::Base     ? QPalette::Text
                                       : role == QPalette::Button ? QPalette::ButtonText
                                                                  : QPalette::WindowText;
  palette.setColor(textRole, contrastingText(color));
  widget.setPalette(palette);
  if (role == QPalette::Window) widget.setAutoFillBackground(true);
}

}  // namespace kxc::qt
