#include "platform/fileio/replacing_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <utility>

namespace kxc::fileio {
namespace {

std::string reasonOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return "the folder does not exist";
    case EACCES:
    case EPERM:
    case EROFS:
      return "the folder cannot be written to";
    case ENOSPC:
    case EDQUOT:
      return "the disk is full";
    case EISDIR:
      return "it is a folder";
    default:
      return std::strerror(error);
  }
}

std::string randomSuffix() {
  static std::mt19937_64 engine{std::random_device{}()};
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(engine()));
  return text;
}

}  // namespace

std::optional<ReplacingFile> ReplacingFile::create(const std::string& target,
                                                   std::string& failure) {
  std::filesystem::path path(target);
  if (path.filename().empty()) {
    failure = "no file name was given";
    return std::nullopt;
  }
  struct stat existing {};
  bool exists = ::stat(target.c_str(), &existing) == 0;
  if (exists && S_ISDIR(existing.st_mode)) {
    failure = "it is a folder";
    return std::nullopt;
  }
  // A dot-file with a random part, so it stays out of sight and never collides.
  std::filesystem::path folder = path.parent_path();
  for (int attempt = 0; attempt < 16; ++attempt) {
    std::string name = "." + path.filename().string() + "." + randomSuffix() + ".tmp";
    std::string temporary = (folder / name).string();
    int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
      if (errno == EEXIST) continue;
      failure = reasonOf(errno);
      return std::nullopt;
    }
    if (exists) (void)::fchmod(fd, existing.st_mode & 07777);
    ::close(fd);
    return ReplacingFile(target, temporary);
  }
  failure = "no temporary file could be made beside it";
  return std::nullopt;
}

ReplacingFile::ReplacingFile(ReplacingFile&& other) noexcept
    : target_(std::move(other.target_)), temporary_(std::exchange(other.temporary_, {})) {}

ReplacingFile::~ReplacingFile() {
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

bool ReplacingFile::commit(std::string& failure) {
  int fd = ::open(temporary_.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0 || ::fsync(fd) != 0) {
    failure = reasonOf(errno);
    if (fd >= 0) ::close(fd);
    return false;
  }
  ::close(fd);
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) {
    failure = reasonOf(errno);
    return false;
  }
  temporary_.clear();
  // Make the rename itself durable.
  std::string folder = std::filesystem::path(target_).parent_path().string();
  int dir = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir >= 0) {
    (void)::fsync(dir);
    ::close(dir);
  }
  return true;
}

}  // namespace kxc::fileio
