#include "platform/qt/qt_services.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>
#include <QWidget>

#include "platform/qt/message_box_style.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/window_registry.h"

namespace kxc::qt {

int QtServices::messageBox(std::string_view text, int style, std::string_view title) {
  const MessageBoxSpec wanted = messageBoxSpec(style);
  QWidget* parent = QApplication::activeModalWidget();
  if (!parent) parent = QApplication::activeWindow();
  QMessageBox box(parent);
  box.setIcon(wanted.icon);
  box.setWindowTitle(title.empty() ? QApplication::applicationName() : toQString(title));
  box.setText(toQString(text));
  box.setTextFormat(Qt::PlainText);
  for (QMessageBox::StandardButton button : wanted.buttons) box.addButton(button);
  box.setDefaultButton(wanted.defaultButton);
  if (wanted.escapeButton != QMessageBox::NoButton) box.setEscapeButton(wanted.escapeButton);
  box.exec();
  return messageBoxAnswer(box.standardButton(box.clickedButton()));
}

void QtServices::clipboardClear() { QGuiApplication::clipboard()->clear(); }

void QtServices::clipboardSetText(std::string_view text) {
  QGuiApplication::clipboard()->setText(toQString(text));
}

std::string QtServices::clipboardText() {
  return fromQString(QGuiApplication::clipboard()->text());
}

void QtServices::doEvents() { QCoreApplication::processEvents(); }

WindowHandle QtServices::findWindowByTitle(std::string_view prefix) {
  const QString wanted = toQString(prefix);
  const QWidgetList windows = QApplication::topLevelWidgets();
  for (bool visiblePass : {true, false}) {
    for (QWidget* window : windows) {
      if (!window->isWindow() || window->isVisible() != visiblePass) continue;
      if (window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip) continue;
      if (window->windowTitle().startsWith(wanted, Qt::CaseSensitive)) {
        return windowRegistry().handleOf(window);
      }
    }
  }
  return 0;
}

bool QtServices::openWithDesktop(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(toQString(path)));
}

}  // namespace kxc::qt
