#include "support/recording_services.h"

namespace kxc::testing {

int RecordingServices::messageBox(std::string_view text, int style, std::string_view title) {
  messages.push_back({std::string(text), std::string(title), style});
  if (answers.empty()) return mb::kIdOk;
  int answer = answers.front();
  answers.pop_front();
  return answer;
}

WindowHandle RecordingServices::findWindowByTitle(std::string_view prefix) {
  for (std::size_t i = 0; i < windowTitles.size(); ++i) {
    if (std::string_view(windowTitles[i]).starts_with(prefix)) {
      return static_cast<WindowHandle>(i + 1);
    }
  }
  return 0;
}

bool RecordingServices::openWithDesktop(const std::string& path) {
  openedFiles.push_back(path);
  return openSucceeds;
}

ScopedRecordingServices::ScopedRecordingServices()
    : services_(std::make_shared<RecordingServices>()), previous_(setServices(services_)) {}

ScopedRecordingServices::~ScopedRecordingServices() { setServices(previous_); }

}  // namespace kxc::testing
