// What opening or saving a workbook file tells its caller: the problem that stopped it, if
// any, and notes on what could not be carried over.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kxc::fileio {

struct FileProblem {
  std::string file;     // the path as the caller gave it
  std::string reason;   // "the file does not exist"
  std::string message;  // for the user: "Cannot open \"/tmp/Book1.xlsx\": the file does not exist."
};

struct LoadResult {
  std::string workbookName;            // the workbook made, when loaded
  std::optional<FileProblem> problem;  // set when nothing was loaded
  // Parts of the file left out or changed ("Sheet1!D4: ..."); the load still succeeded.
  std::vector<std::string> notes;
  bool ok() const { return !problem; }
};

struct SaveResult {
  std::optional<FileProblem> problem;  // set when the file was not written
  std::vector<std::string> notes;      // parts of the workbook left out of the file
  bool ok() const { return !problem; }
};

}  // namespace kxc::fileio
