#include "platform/qt/message_box_style.h"

#include <algorithm>

namespace kxc::qt {

MessageBoxSpec messageBoxSpec(int style) {
  using B = QMessageBox;
  MessageBoxSpec spec;
  switch (style & 7) {
    case 1:
      spec.buttons = {B::Ok, B::Cancel};
      break;
    case 2:
      spec.buttons = {B::Abort, B::Retry, B::Ignore};
      break;
    case 3:
      spec.buttons = {B::Yes, B::No, B::Cancel};
      break;
    case 4:
      spec.buttons = {B::Yes, B::No};
      break;
    case 5:
      spec.buttons = {B::Retry, B::Cancel};
      break;
    default:
      spec.buttons = {B::Ok};
      break;
  }
  switch (style & 0x70) {
    case 16:
      spec.icon = B::Critical;
      break;
    case 32:
      spec.icon = B::Question;
      break;
    case 48:
      spec.icon = B::Warning;
      break;
    case 64:
      spec.icon = B::Information;
      break;
    default:
      spec.icon = B::NoIcon;
      break;
  }
  const std::size_t defaultIndex = static_cast<std::size_t>((style & 0x300) >> 8);
  spec.defaultButton = spec.buttons[defaultIndex < spec.buttons.size() ? defaultIndex : 0];
  auto has = [&](B::StandardButton b) {
    return std::find(spec.buttons.begin(), spec.buttons.end(), b) != spec.buttons.end();
  };
  if (has(B::Cancel)) {
    spec.escapeButton = B::Cancel;
  } else if (has(B::No)) {
    spec.escapeButton = B::No;
  } else if (spec.buttons.size() == 1) {
    spec.escapeButton = spec.buttons.front();
  }
  return spec;
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
