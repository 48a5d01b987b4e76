// Conversions between twips (1/1440 inch), in which the control model measures, and pixels at
// a screen's logical DPI (15 twips per pixel at 96 DPI).
#pragma once

#include <cstdint>

class QWidget;

namespace kxc::qt {

inline constexpr double kTwipsPerInch = 1440.0;

double twipsPerPixel(double logicalDpi);  // a DPI of 0 or less counts as 96
int pixelsFromTwips(int32_t twips, double logicalDpi);
int32_t twipsFromPixels(int pixels, double logicalDpi);

// The logical DPI of the screen `widget` is on (the primary screen's without a widget).
double logicalDpi(const QWidget* widget);

}  // namespace kxc::qt
