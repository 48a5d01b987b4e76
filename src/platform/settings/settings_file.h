// One settings file on disk: cached reads, and locked, atomic read-modify-write updates.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "platform/settings/settings_document.h"

namespace kxc {

// Why a settings file cannot be used: the file, the 1-based line (0 when the whole file is
// affected) and the reason.
struct SettingsProblem {
  std::string file;
  std::size_t line = 0;
  std::string reason;
};

// Receives one-line notices about repairs (a corrupt file moved aside).
using SettingsNotice = std::function<void(const std::string&)>;

// What an edit did to the document it was handed.
enum class SettingsEdit { Unchanged, Changed, Refused };

// A settings file at `path`, with the lock file `path` + ".lock" beside it.
//
// Reads parse the file once and re-read it only when its inode, size, modification or change
// time differ from the cached copy. A missing file reads as empty. A file that cannot be read
// or parsed reads as empty too, and problem() says why.
//
// update() runs an edit on a fresh copy of the document under an exclusive flock of the lock
// file, so concurrent writers in other processes never lose each other's values. A changed
// document is written to a temporary file in the same folder, flushed with fsync and renamed
// over the file (the folder is created when missing). An edit that changes nothing writes
// nothing and, when the cached copy already shows that, takes no lock. A file that exists but
// cannot be read is never overwritten: the update fails. A file that cannot be parsed is first
// renamed to `path` + ".corrupt-YYYYMMDD-HHMMSS" (with a number added when that exists), the
// notice says so, and the update starts from an empty document.
//
// Thread-safe: one mutex serialises the calls of this object.
class SettingsFile {
 public:
  SettingsFile(std::string path, SettingsNotice notice);

  const std::string& path() const { return path_; }

  // Runs `fn` on the current document while the object's mutex is held.
  template <typename Fn>
  auto read(Fn&& fn) {
    std::lock_guard lock(mutex_);
    refresh(false);
    return fn(static_cast<const SettingsDocument&>(document_));
  }

  // True when the edit was Unchanged or Changed and written; false when it was Refused or the
  // file could not be locked, read or written.
  bool update(const std::function<SettingsEdit(SettingsDocument&)>& edit);

  std::optional<SettingsProblem> problem();

 private:
  struct Identity {
    bool exists = false;
    dev_t dev = 0;
    ino_t ino = 0;
    off_t size = 0;
    long mtimeSec = 0, mtimeNsec = 0, ctimeSec = 0, ctimeNsec = 0;
    mode_t mode = 0;
    bool operator==(const Identity&) const = default;
  };
  enum class State { Ok, Unreadable, Corrupt };

  static Identity identityOf(const struct stat& s);
  void refresh(bool force);
  bool moveAside();
  bool writeAtomically(const std::string& text);

  std::string path_;
  SettingsNotice notice_;
  std::mutex mutex_;
  bool loaded_ = false;
  Identity identity_;
  SettingsDocument document_;
  State state_ = State::Ok;
  std::optional<SettingsProblem> problem_;
};

}  // namespace kxc
