// Services for tests: every message box is recorded and answered from a script, the clipboard
// lives in memory, windows are a list of titles, and opened files are logged.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/services.h"

namespace kxc::testing {

struct MessageRecord {
  std::string text;
  std::string title;
  int style;
  bool operator==(const MessageRecord&) const = default;
};

class RecordingServices : public Services {
 public:
  int messageBox(std::string_view text, int style, std::string_view title) override;
  void clipboardClear() override { clipboard = ""; }
  void clipboardSetText(std::string_view text) override { clipboard = text; }
  std::string clipboardText() override { return clipboard; }
  void doEvents() override { ++doEventsCount; }
  WindowHandle findWindowByTitle(std::string_view prefix) override;
  bool openWithDesktop(const std::string& path) override;

  std::vector<MessageRecord> messages;
  std::deque<int> answers;  // answers to the next message boxes; OK when empty
  std::string clipboard;
  int doEventsCount = 0;
  std::vector<std::string> windowTitles;  // top-level windows; handle = position + 1
  std::vector<std::string> openedFiles;
  bool openSucceeds = true;
};

// Installs a fresh RecordingServices for the lifetime of the guard and restores the previous
// services afterwards.
class ScopedRecordingServices {
 public:
  ScopedRecordingServices();
  ~ScopedRecordingServices();
  RecordingServices& operator*() { return *services_; }
  RecordingServices* operator->() { return services_.get(); }

 private:
  std::shared_ptr<RecordingServices> services_;
  std::shared_ptr<Services> previous_;
};

}  // namespace kxc::testing
