// Colours of the control model (0x00BBGGRR) as Qt colours and palettes.
#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

class QWidget;

namespace kxc::qt {

// The colour 0x00BBGGRR; an invalid QColor for values outside 0..0xFFFFFF (system colours).
QColor colorFromBgr(int32_t bgr);

// Black or white, whichever reads better on `background`.
QColor contrastingText(const QColor& background);

// Gives `widget` the background `bgr` in `role` (with a readable text colour), or gives it back
// the desktop's palette when `bgr` is the control's default colour or not a plain colour.
void applyBackColor(QWidget& widget, int32_t bgr, int32_t defaultBgr, QPalette::ColorRole role);

}  // namespace kxc::qt
