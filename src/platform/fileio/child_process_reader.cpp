#include "platform/fileio/child_process_reader.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <new>
#include <string>

#include "platform/fileio/read_result_wire.h"

namespace kxc::fileio {
namespace {

bool writeAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Everything the child sends, until it closes its end (or dies).
std::string readAll(int fd) {
  std::string bytes;
  char chunk[65536];
  for (;;) {
    ssize_t got = ::read(fd, chunk, sizeof chunk);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return bytes;
    bytes.append(chunk, static_cast<std::size_t>(got));
  }
}

[[noreturn]] void runChild(int fd, std::string_view bytes, std::size_t cellLimit) {
  // A crash of the reader ends the child at once: the program's crash handlers (a crash
  // reporter, a sanitizer's report, a fuzzer's) are for the program, not for a file the library
  // cannot read.
  for (int crash : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL}) std::signal(crash, SIG_DFL);
  int status = 0;
  try {
    status = writeAll(fd, encodeReadResult(readSpreadsheet(bytes, cellLimit))) ? 0 : 3;
  } catch (...) {
    status = 2;
  }
  ::_exit(status);
}

std::string howItEnded(int status) {
  if (WIFSIGNALED(status)) return "signal " + std::to_string(WTERMSIG(status));
  return "exit status " + std::to_string(WEXITSTATUS(status));
}

SpreadsheetReadResult failure(std::string reason) {
  SpreadsheetReadResult result;
  result.failure = std::move(reason);
  return result;
}

}  // namespace

SpreadsheetReadResult readSpreadsheetInChild(std::string_view bytes, std::size_t cellLimit) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) {
    return failure(
        "it cannot be read (no pipe for the reader: " + std::string(std::strerror(errno)) + ")");
  }
  pid_t child = ::fork();
  if (child < 0) {
    int error = errno;
    ::close(ends[0]);
    ::close(ends[1]);
    return failure(
        "it cannot be read (no process for the reader: " + std::string(std::strerror(error)) + ")");
  }
  if (child == 0) {
    ::close(ends[0]);
    runChild(ends[1], bytes, cellLimit);
  }
  ::close(ends[1]);
  std::string sent;
  bool tooLarge = false;
  try {
    sent = readAll(ends[0]);
  } catch (const std::bad_alloc&) {
    ::kill(child, SIGKILL);
    tooLarge = true;
  }
  ::close(ends[0]);
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  // The child's only exception is running out of memory.
  tooLarge = tooLarge || (WIFEXITED(status) && WEXITSTATUS(status) == 2);
  if (tooLarge) return failure("it is too large to open");
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
    std::optional<SpreadsheetReadResult> result = decodeReadResult(sent);
    if (result) return std::move(*result);
  }
  return failure("the file is damaged (the reader stopped on it with " + howItEnded(status) + ")");
}

}  // namespace kxc::fileio
