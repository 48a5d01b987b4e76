// The services port on Qt: message boxes, the desktop clipboard, pending events, top-level
// windows by title and opening files with the desktop's viewer.
#pragma once

#include "platform/services.h"

namespace kxc::qt {

// Needs a QApplication for its whole life; user-interface thread only. Install it with
// kxc::setServices(std::make_shared<QtServices>()) once the QApplication exists.
class QtServices : public Services {
 public:
  // A modal QMessageBox over the active window, built from the style (see messageBoxSpec);
  // an empty title shows the application's name. Blocks in a nested event loop.
  int messageBox(std::string_view text, int style, std::string_view title) override;
  void clipboardClear() override;
  void clipboardSetText(std::string_view text) override;
  std::string clipboardText() override;
  void doEvents() override;
  // Visible top-level windows are searched before hidden ones; the handle maps back to the
  // widget through windowRegistry() (a form's window answers its form's handle).
  WindowHandle findWindowByTitle(std::string_view prefix) override;
  bool openWithDesktop(const std::string& path) override;
};

}  // namespace kxc::qt
