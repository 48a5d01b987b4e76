#include "platform/qt/mouse_pointer.h"

namespace kxc::qt {

std::optional<Qt::CursorShape> cursorForPointer(int pointer) {
  switch (pointer) {
    case 1:
      return Qt::ArrowCursor;
    case 2:
      return Qt::CrossCursor;
    case 3:
      return Qt::IBeamCursor;
    case 5:
    case 15:
      return Qt::SizeAllCursor;
    case 6:
      return Qt::SizeBDiagCursor;
    case 7:
      return Qt::SizeVerCursor;
    case 8:
      return Qt::SizeFDiagCursor;
    case 9:
      return Qt::SizeHorCursor;
    case 10:
      return Qt::UpArrowCursor;
    case 11:
    case 13:
      return Qt::BusyCursor;
    case 12:
      return Qt::ForbiddenCursor;
    case 14:
      return Qt::WhatsThisCursor;
    default:
      return std::nullopt;
  }
}

}  // namespace kxc::qt
