#include "platform/qt/message_box_style.h"

#include <algorithm>

namespace kxc::qt {

MessageBoxSpec messageBoxSpec(int style) {
  using B = QMessageBox;
  MessageBoxSpec box;
  switch (style & 7) {
    case 1:
      box.buttons = {B::Ok, B::Cancel};
      break;
    case 2:
      box.buttons = {B::Abort, B::Retry, B::Ignore};
      break;
    case 3:
      box.buttons = {B::Yes, B::No, B::Cancel};
      break;
    case 4:
      box.buttons = {B::Yes, B::No};
      break;
    case 5:
      box.buttons = {B::Retry, B::Cancel};
      break;
    default:
      box.buttons = {B::Ok};
      break;
  }
  switch (style & 0x70) {
    case 16:
      box.icon = B::Critical;
      break;
    case 32:
      box.icon = B::Question;
      break;
    case 48:
      box.icon = B::Warning;
      break;
    case 64:
      box.icon = B::Information;
      break;
    default:
      box.icon = B::NoIcon;
      break;
  }
  const std::size_t defaultIndex = static_cast<std::size_t>((style & 0x300) >> 8);
  box.defaultButton = box.buttons[defaultIndex < box.buttons.size() ? defaultIndex : 0];
  auto has = [&](B::StandardButton b) {
    return std::find(box.buttons.begin(), box.buttons.end(), b) != box.buttons.end();
  };
  if (has(B::Cancel)) {
    box.escapeButton = B::Cancel;
  } else if (has(B::No)) {
    box.escapeButton = B::No;
  } else if (box.buttons.size() == 1) {
    box.escapeButton = box.buttons.front();
  }
  return box;
}

int messageBoxAnswer(QMessageBox::StandardButton button) {
  switch (button) {
    case QMessageBox::Ok:
      return 1;
    case QMessageBox::Abort:
      return 3;
    case QMessageBox::Retry:
      return 4;
    case QMessageBox::Ignore:
      return 5;
    case QMessageBox::Yes:
      return 6;
    case QMessageBox::No:
      return 7;
    default:
      return 2;
  }
}

}  // namespace kxc::qt
