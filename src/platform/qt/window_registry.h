// The process-wide table between window handles and Qt windows: each form's window under the
// form's own handle, and any other top-level widget under a handle made for it on first use.
#pragma once

#include <QPointer>
#include <QWidget>
#include <unordered_map>

#include "platform/services.h"

namespace kxc::qt {

// Handles made here are 2 more than a multiple of 4, so they never equal a form's handle
// (forms number theirs in steps of 4). Entries of destroyed widgets read as null and are
// dropped. User-interface thread only.
class WindowRegistry {
 public:
  // The handle `window` is registered under; a new one when it has none. 0 for null.
  WindowHandle handleOf(QWidget* window);
  // Registers `window` under `handle` (a form's own), replacing any earlier entry of either.
  void add(WindowHandle handle, QWidget* window);
  void remove(WindowHandle handle);
  // The widget of `handle`, or null when there is none or it has been destroyed.
  QWidget* window(WindowHandle handle) const;

 private:
  void dropDead();
  std::unordered_map<WindowHandle, QPointer<QWidget>> windows_;
  WindowHandle next_ = 0x40000002;
};

WindowRegistry& windowRegistry();

}  // namespace kxc::qt
