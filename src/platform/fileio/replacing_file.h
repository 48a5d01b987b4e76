// A file that replaces another one whole: written under a temporary name in the same folder
// and renamed over the target only when complete, so a failed write never harms the old file.
#pragma once

#include <optional>
#include <string>

namespace kxc::fileio {

// Not copyable; the temporary file is removed by the destructor unless committed.
class ReplacingFile {
 public:
  // Creates an empty temporary file beside `target` (with the target's permissions when it
  // exists). nullopt with `failure` set ("the folder does not exist") when it cannot.
  static std::optional<ReplacingFile> create(const std::string& target, std::string& failure);

  ReplacingFile(ReplacingFile&& other) noexcept;
  ReplacingFile& operator=(ReplacingFile&&) = delete;
  ReplacingFile(const ReplacingFile&) = delete;
  ~ReplacingFile();

  // Where to write the content.
  const std::string& temporaryPath() const { return temporary_; }

  // Flushes the temporary file to disk and renames it over the target. false with `failure`
  // set when that fails; the target is then as it was.
  bool commit(std::string& failure);

 private:
  ReplacingFile(std::string target, std::string temporary)
      : target_(std::move(target)), temporary_(std::move(temporary)) {}

  std::string target_;
  std::string temporary_;  // "" once committed or moved from
};

}  // namespace kxc::fileio
