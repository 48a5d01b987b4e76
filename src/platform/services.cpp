#include "platform/services.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

extern char** environ;

namespace kxc {

namespace {

class HeadlessServices : public Services {
 public:
  int messageBox(std::string_view text, int, std::string_view title) override {
    std::fprintf(stderr, "[%.*s] %.*s\n", static_cast<int>(title.size()), title.data(),
                 static_cast<int>(text.size()), text.data());
    return mb::kIdOk;
  }
  void clipboardClear() override { clipboard_.clear(); }
  void clipboardSetText(std::string_view text) override { clipboard_ = text; }
  std::string clipboardText() override { return clipboard_; }
  void doEvents() override {}
  WindowHandle findWindowByTitle(std::string_view) override { return 0; }
  bool openWithDesktop(const std::string& path) override {
    pid_t pid = 0;
    std::vector<char*> argv{const_cast<char*>("xdg-open"), const_cast<char*>(path.c_str()),
                            nullptr};
    if (posix_spawnp(&pid, "xdg-open", nullptr, nullptr, argv.data(), environ) != 0) return false;
    return true;
  }

 private:
  std::string clipboard_;
};

std::shared_ptr<Services>& current() {
  static std::shared_ptr<Services> s = std::make_shared<HeadlessServices>();
  return s;
}

}  // namespace

Services& services() { return *current(); }

std::shared_ptr<Services> setServices(std::shared_ptr<Services> s) {
  auto previous = current();
  current() = s ? std::move(s) : std::make_shared<HeadlessServices>();
  return previous;
}

std::string libraryFolder() {
  if (const char* dir = std::getenv("KXC_LIBRARY_DIR"); dir && *dir) return dir;
  std::error_code ec;
  auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return std::filesystem::current_path(ec).string();
  return exe.parent_path().string();
}

}  // namespace kxc
