#include "platform/qt/form_window.h"

#include <QCloseEvent>
#include <QResizeEvent>

namespace kxc::qt {

FormWindow::FormWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint) {
  setSizeGripEnabled(false);
}

void FormWindow::reject() {
  if (onEscape) onEscape();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (onCloseRequested) onCloseRequested();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (onResized) onResized(event->size());
}

void FormWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && onStateChanged) onStateChanged(windowState());
}

bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) {
    deactivated_ = true;
  } else if (event->type() == QEvent::WindowActivate && deactivated_) {
    deactivated_ = false;
    if (onActivated) onActivated();
  }
  return QDialog::event(event);
}

}  // namespace kxc::qt
