// How a message-box style number (buttons + icon + default button) becomes a QMessageBox, and
// how the button pressed becomes the answer number.
#pragma once

#include <QMessageBox>
#include <vector>

namespace kxc::qt {

struct MessageBoxSpec {
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  std::vector<QMessageBox::StandardButton> buttons;
  QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
  QMessageBox::StandardButton escapeButton = QMessageBox::NoButton;
  bool operator==(const MessageBoxSpec&) const = default;
};

// Buttons (style & 7): 0 OK, 1 OK Cancel, 2 Abort Retry Ignore, 3 Yes No Cancel, 4 Yes No,
// 5 Retry Cancel; anything else OK. Icon (style & 0x70): 16 Critical, 32 Question, 48 Warning,
// 64 Information, else none. Default button (style & 0x300): 0 the first, 256 the second,
// 512 the third (falling back to the first when there are fewer). Escape answers Cancel where
// there is one, else No, else the only button; Abort Retry Ignore has none.
MessageBoxSpec messageBoxSpec(int style);

// The answer number of a pressed button: OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6,
// No 7; anything else (the box closed without a button) answers Cancel.
int messageBoxAnswer(QMessageBox::StandardButton button);

}  // namespace kxc::qt
