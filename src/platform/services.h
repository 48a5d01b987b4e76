// The services port: message boxes, the clipboard, letting pending events run, finding the
// host's main window, opening a file with the desktop's viewer, and the library's folder.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kxc {

using WindowHandle = std::intptr_t;  // 0 means no window

// Message box styles and answers, as the host language numbers them.
namespace mb {
inline constexpr int kOkOnly = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kYesNo = 4;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
inline constexpr int kIdOk = 1;
inline constexpr int kIdCancel = 2;
inline constexpr int kIdYes = 6;
inline constexpr int kIdNo = 7;
}  // namespace mb

class Services {
 public:
  virtual ~Services() = default;

  // Shows a message and returns the button pressed (mb::kIdOk, ...). Blocks until answered.
  virtual int messageBox(std::string_view text, int style, std::string_view title) = 0;

  virtual void clipboardClear() = 0;
  virtual void clipboardSetText(std::string_view text) = 0;
  virtual std::string clipboardText() = 0;

  // Lets pending user-interface events run (the host language's DoEvents).
  virtual void doEvents() = 0;

  // The first top-level window whose title starts with `prefix` (case-sensitive), or 0.
  virtual WindowHandle findWindowByTitle(std::string_view prefix) = 0;

  // Opens a file with the desktop's default application for its type. The path is handed to
  // the opener as one argument, never through a shell. False when it could not be started.
  virtual bool openWithDesktop(const std::string& path) = 0;
};

// The process-wide services. Until a program installs its own, a headless implementation
// answers: messages go to standard error and are answered OK, the clipboard lives in memory.
Services& services();
// Installs `s` (null restores the headless implementation); returns the previous one.
std::shared_ptr<Services> setServices(std::shared_ptr<Services> s);

// The folder that holds the library's code: $KXC_LIBRARY_DIR when set, else the folder of the
// running program (the library is linked into it). Catalogues and the help file live there.
std::string libraryFolder();

}  // namespace kxc
