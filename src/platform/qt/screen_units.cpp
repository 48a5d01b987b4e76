#include "platform/qt/screen_units.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

namespace kxc::qt {

double twipsPerPixel(double logicalDpi) {
  return kTwipsPerInch / (logicalDpi > 0 ? logicalDpi : 96.0);
}

int pixelsFromTwips(int32_t twips, double logicalDpi) {
  return static_cast<int>(std::lround(twips / twipsPerPixel(logicalDpi)));
}

int32_t twipsFromPixels(int pixels, double logicalDpi) {
  return static_cast<int32_t>(std::lround(pixels * twipsPerPixel(logicalDpi)));
}

double logicalDpi(const QWidget* widget) {
  if (widget) return widget->logicalDpiX();
  if (const QScreen* screen = QGuiApplication::primaryScreen())
    return screen->logicalDotsPerInchX();
  return 96.0;
}

}  // namespace kxc::qt
