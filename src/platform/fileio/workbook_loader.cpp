#include "platform/fileio/workbook_loader.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "platform/fileio/child_process_reader.h"
#include "platform/fileio/spreadsheet_reader.h"
#include "platform/runtime_error.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/book.h"

namespace kxc::fileio {
namespace {

namespace fs = std::filesystem;

LoadResult failed(const std::string& path, std::string reason) {
  LoadResult result;
  std::string message = "Cannot open \"" + path + "\": " + reason + ".";
  result.problem = FileProblem{path, std::move(reason), std::move(message)};
  return result;
}

// The whole file, or the reason it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path, std::string& reason) {
  std::error_code ec;
  fs::file_status status = fs::status(path, ec);
  if (ec || !fs::exists(status)) {
    reason = "the file does not exist";
    return std::nullopt;
  }
  if (fs::is_directory(status)) {
    reason = "it is a folder, not a file";
    return std::nullopt;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    reason = errno == EACCES ? "permission to read it is denied"
                             : "it cannot be read (" + std::string(std::strerror(errno)) + ")";
    return std::nullopt;
  }
  in.seekg(0, std::ios::end);
  std::streamoff size = in.tellg();
  in.seekg(0, std::ios::beg);
  if (size < 0) {
    reason = "it cannot be read";
    return std::nullopt;
  }
  if (static_cast<std::uintmax_t>(size) > kMaxFileBytes) {
    reason = "it is larger than " + std::to_string(kMaxFileBytes >> 20) + " MB";
    return std::nullopt;
  }
  std::string bytes(static_cast<size_t>(size), '\0');
  if (!in.read(bytes.data(), size)) {
    reason = "it cannot be read";
    return std::nullopt;
  }
  if (bytes.empty()) {
    reason = "the file is empty";
    return std::nullopt;
  }
  return bytes;
}

// Why the workbook cannot take these sheets, or "".
std::string sheetProblem(const WorkbookImage& image) {
  for (size_t i = 0; i < image.sheets.size(); ++i) {
    const std::string& name = image.sheets[i].name;
    if (!workbook::isValidSheetName(name)) {
      return "it has a sheet named \"" + name + "\", which is not a valid sheet name";
    }
    for (size_t j = 0; j < i; ++j) {
      if (workbook::sameName(image.sheets[j].name, name)) {
        return "it has two sheets named \"" + name + "\"";
      }
    }
  }
  return "";
}

// Everything below only adds to the new workbook; the checks before it make each step
// succeed, so nothing is left half-made.
void fill(workbook::InMemoryApplication& app, const std::string& bookName,
          const WorkbookImage& image, std::vector<std::string>& notes) {
  app.addWorkbook(bookName, image.sheets.front().name);
  for (size_t i = 1; i < image.sheets.size(); ++i) app.addSheet(bookName, image.sheets[i].name);

  // Names first, so formulas that use them find them.
  std::vector<std::string> defined;
  for (const NameImage& name : image.names) {
    bool twice = false;
    for (const std::string& d : defined) twice = twice || workbook::sameName(d, name.name);
    if (twice) {
      notes.push_back("name " + name.name + " left out: it is defined twice");
      continue;
    }
    size_t base = name.baseSheet < image.sheets.size() ? name.baseSheet : 0;
    app.activateSheet(bookName, image.sheets[base].name);
    try {
      app.defineName(name.name, name.reference);
      defined.push_back(name.name);
    } catch (const RuntimeError&) {
      notes.push_back("name " + name.name + " left out: it does not name one range (" +
                      name.reference + ")");
    }
  }

  for (const SheetImage& sheet : image.sheets) {
    app.activateSheet(bookName, sheet.name);
    for (const auto& [position, entry] : sheet.cells) {
      app.setCell(workbook::cellAddress(position.first, position.second, false, false), entry);
    }
  }
  app.activateSheet(bookName, image.sheets.front().name);
}

// Why `path` cannot become a workbook of `app` whatever it holds, or "".
std::string nameProblem(const workbook::InMemoryApplication& app, const std::string& path,
                        std::string& bookName) {
  bookName = fs::path(path).filename().string();
  if (!workbook::isValidWorkbookName(bookName)) {
    return "\"" + bookName + "\" cannot be a workbook name";
  }
  if (app.model().findWorkbook(bookName)) {
    return "a workbook named \"" + bookName + "\" is already open";
  }
  return "";
}

}  // namespace

LoadResult loadWorkbook(workbook::InMemoryApplication& app, const std::string& path) {
  std::string bookName;
  if (std::string problem = nameProblem(app, path, bookName); !problem.empty()) {
    return failed(path, problem);
  }
  std::string reason;
  std::optional<std::string> bytes = readWholeFile(path, reason);
  if (!bytes) return failed(path, reason);
  SpreadsheetReadResult read = readSpreadsheetInChild(*bytes);
  bytes.reset();
  return openReadResult(app, path, std::move(read));
}

LoadResult openReadResult(workbook::InMemoryApplication& app, const std::string& path,
                          SpreadsheetReadResult read) {
  std::string bookName;
  if (std::string problem = nameProblem(app, path, bookName); !problem.empty()) {
    return failed(path, problem);
  }
  if (!read.image) return failed(path, read.failure);
  if (std::string problem = sheetProblem(*read.image); !problem.empty()) {
    return failed(path, problem);
  }

  LoadResult result;
  result.workbookName = bookName;
  result.notes = std::move(read.image->notes);
  app.setCalculationSuspended(true);
  try {
    fill(app, bookName, *read.image, result.notes);
  } catch (const std::exception& e) {
    // Only running out of memory gets here; the workbook keeps what was read so far.
    app.setCalculationSuspended(false);
    LoadResult broken =
        failed(path, std::string("it could not be read completely (") + e.what() + ")");
    broken.workbookName = bookName;
    return broken;
  }
  app.setCalculationSuspended(false);
  return result;
}

}  // namespace kxc::fileio
