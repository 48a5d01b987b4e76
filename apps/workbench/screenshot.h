// Pictures of the workbench: the main window and the dialogs open over it, in one image.
#pragma once

#include <QImage>
#include <QString>
#include <vector>

class QWidget;

namespace kxc::workbench {

// The visible top-level windows other than `main` (menus and tooltips left out), in the order
// they were shown.
std::vector<QWidget*> openDialogs(const QWidget& main);

// `main` at the top left and each dialog over it, cascading from its centre, each window
// drawn with a thin frame and a title bar holding its title (the picture has no window manager
// to draw them). The image is large enough for every window.
QImage composeWindows(QWidget& main, const std::vector<QWidget*>& dialogs);

// composeWindows(main, openDialogs(main)) written as PNG; false when it could not be written.
bool saveScreenshot(QWidget& main, const QString& file);

}  // namespace kxc::workbench
