#include "platform/settings/settings_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <utility>

#include "platform/settings/settings_file_format.h"

namespace kxc {

namespace {

constexpr const char* kNewFileHeader =
    "# Kestra settings: [key\\path] headers, each followed by name=value lines.\n"
    "# Escapes in names and values: \\\\ \\n \\r \\t \\0 \\s (space) \\= \\[ \\# \\;\n";

// Closes a descriptor when it goes out of scope (also releasing a flock held through it).
class Fd {
 public:
  explicit Fd(int fd) : fd_(fd) {}
  ~Fd() {
    if (fd_ >= 0) ::close(fd_);
  }
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  int get() const { return fd_; }
  int release() { return std::exchange(fd_, -1); }

 private:
  int fd_;
};

bool writeAll(int fd, std::string_view text) {
  while (!text.empty()) {
    ssize_t n = ::write(fd, text.data(), text.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

bool readAll(int fd, std::string& out) {
  char buffer[16384];
  while (true) {
    ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    if (n == 0) return true;
    out.append(buffer, static_cast<std::size_t>(n));
  }
}

std::string folderOf(const std::string& path) {
  auto parent = std::filesystem::path(path).parent_path();
  return parent.empty() ? "." : parent.string();
}

}  // namespace

SettingsFile::Identity SettingsFile::identityOf(const struct stat& s) {
  return Identity{true,
                  s.st_dev,
                  s.st_ino,
                  s.st_size,
                  s.st_mtim.tv_sec,
                  s.st_mtim.tv_nsec,
                  s.st_ctim.tv_sec,
                  s.st_ctim.tv_nsec,
                  s.st_mode};
}

SettingsFile::SettingsFile(std::string path, SettingsNotice notice)
    : path_(std::move(path)), notice_(std::move(notice)) {}

void SettingsFile::refresh(bool force) {
  auto unreadable = [&](int error) {
    document_ = SettingsDocument();
    identity_ = Identity{};
    state_ = State::Unreadable;
    problem_ = SettingsProblem{path_, 0, std::string("cannot be read: ") + std::strerror(error)};
    loaded_ = true;
  };
  struct stat st {};
  if (::stat(path_.c_str(), &st) != 0) {
    if (errno != ENOENT) return unreadable(errno);
    if (loaded_ && !identity_.exists && state_ == State::Ok && !force) return;
    document_ = SettingsDocument();
    identity_ = Identity{};
    state_ = State::Ok;
    problem_.reset();
    loaded_ = true;
    return;
  }
  if (!force && loaded_ && identityOf(st) == identity_) return;
  Fd fd(::open(path_.c_str(), O_RDONLY | O_CLOEXEC));
  if (fd.get() < 0) return unreadable(errno);
  std::string text;
  if (::fstat(fd.get(), &st) != 0 || !readAll(fd.get(), text)) return unreadable(errno);
  identity_ = identityOf(st);
  loaded_ = true;
  SettingsParseResult parsed = parseSettings(text);
  if (parsed.error) {
    document_ = SettingsDocument();
    state_ = State::Corrupt;
    problem_ = SettingsProblem{path_, parsed.error->line, parsed.error->reason};
  } else {
    document_ = std::move(parsed.document);
    state_ = State::Ok;
    problem_.reset();
  }
}

std::optional<SettingsProblem> SettingsFile::problem() {
  std::lock_guard lock(mutex_);
  refresh(false);
  return problem_;
}

bool SettingsFile::moveAside() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", &local);
  std::string target = path_ + ".corrupt-" + stamp;
  for (int n = 2; ::access(target.c_str(), F_OK) == 0; ++n) {
    target = path_ + ".corrupt-" + stamp + "-" + std::to_string(n);
  }
  if (::rename(path_.c_str(), target.c_str()) != 0) return false;
  if (notice_) {
    notice_(path_ + " line " + std::to_string(problem_->line) + ": " + problem_->reason +
            "; moved it aside to " + target + " and started an empty file");
  }
  document_ = SettingsDocument();
  identity_ = Identity{};
  state_ = State::Ok;
  problem_.reset();
  return true;
}

bool SettingsFile::writeAtomically(const std::string& text) {
  std::string folder = folderOf(path_);
  std::string temp = folder + "/." + std::filesystem::path(path_).filename().string() + ".XXXXXX";
  Fd fd(::mkostemp(temp.data(), O_CLOEXEC));
  if (fd.get() < 0) return false;
  mode_t mode = identity_.exists ? (identity_.mode & 07777) : 0644;
  bool ok = ::fchmod(fd.get(), mode) == 0 && writeAll(fd.get(), text) && ::fsync(fd.get()) == 0;
  ok = ::close(fd.release()) == 0 && ok;
  if (!ok || ::rename(temp.c_str(), path_.c_str()) != 0) {
    ::unlink(temp.c_str());
    return false;
  }
  Fd dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (dir.get() >= 0) ::fsync(dir.get());
  return true;
}

bool SettingsFile::update(const std::function<SettingsEdit(SettingsDocument&)>& edit) {
  std::lock_guard lock(mutex_);
  refresh(false);
  if (state_ == State::Ok) {
    SettingsDocument copy = document_;
    if (edit(copy) == SettingsEdit::Unchanged) return true;
  }
  std::error_code ec;
  std::filesystem::create_directories(folderOf(path_), ec);
  Fd lockFd(::open((path_ + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
  if (lockFd.get() < 0) return false;
  while (::flock(lockFd.get(), LOCK_EX) != 0) {
    if (errno != EINTR) return false;
  }
  // Under the lock the file is read again whatever its identity says: another process may
  // have replaced it within the timestamps' granularity.
  refresh(true);
  if (state_ == State::Unreadable) return false;
  if (state_ == State::Corrupt && !moveAside()) return false;
  SettingsDocument copy = document_;
  SettingsEdit result = edit(copy);
  if (result != SettingsEdit::Changed) return result == SettingsEdit::Unchanged;
  std::string text = formatSettings(copy);
  if (!identity_.exists) text = kNewFileHeader + text;
  if (!writeAtomically(text)) return false;
  document_ = std::move(copy);
  struct stat st {};
  if (::stat(path_.c_str(), &st) == 0) {
    identity_ = identityOf(st);
  } else {
    loaded_ = false;
  }
  return true;
}

}  // namespace kxc
