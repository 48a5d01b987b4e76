#include "workbook_files.h"

#include <filesystem>

#include "language/language.h"
#include "platform/error_report.h"
#include "platform/fileio/workbook_loader.h"
#include "platform/fileio/xlsx_saver.h"
#include "state/tm_globals.h"

namespace kxc::workbench {

namespace {

template <typename Result>
FileOutcome outcomeOf(const Result& result, const char* key, const std::string& path) {
  FileOutcome outcome;
  outcome.ok = result.ok();
  outcome.notes = result.notes;
  if (!outcome.ok) outcome.message = fileFailureMessage(key, path, result.problem->reason);
  return outcome;
}

}  // namespace

std::string fileFailureMessage(const std::string& key, const std::string& path,
                               const std::string& reason) {
  const std::string name = std::filesystem::path(path).filename().string();
  std::string text;
  ignoringErrors([&] { text = gLanguage->TransMes(key, Variant(name), Variant(reason)); });
  // Without a catalogue the user still learns which file failed and why.
  if (text.empty() || text.starts_with("!!")) text = name + ": " + reason;
  return text;
}

FileOutcome openWorkbookFile(workbook::InMemoryApplication& app, const std::string& path) {
  fileio::LoadResult result = fileio::loadWorkbook(app, path);
  FileOutcome outcome = outcomeOf(result, "@WB_OPEN_FAILED", path);
  outcome.workbookName = result.workbookName;
  return outcome;
}

FileOutcome saveWorkbookFile(const workbook::InMemoryApplication& app,
                             const std::string& workbookName, const std::string& path) {
  return outcomeOf(fileio::saveWorkbookXlsx(app, workbookName, path), "@WB_SAVE_FAILED", path);
}

}  // namespace kxc::workbench
