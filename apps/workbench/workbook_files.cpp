#include "workbook_files.h"

#include <filesystem>

#include "facade/tm_globals.h"
#include "language/language.h"
#include "platform/error_report.h"

#ifdef KXC_HAVE_FILEIO
#include "platform/fileio/workbook_loader.h"
#include "platform/fileio/xlsx_saver.h"
#define KXC_WORKBENCH_FILES 1
#endif

namespace kxc::workbench {

namespace {

constexpr const char* kNotBuilt = "this build cannot read or write spreadsheet files";

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
#ifdef KXC_WORKBENCH_FILES
  fileio::LoadResult result;
  result = fileio::loadWorkbook(app, path);
  FileOutcome outcome = outcomeOf(result, "@WB_OPEN_FAILED", path);
  outcome.workbookName = result.workbookName;
  return outcome;
#else
  (void)app;
  FileOutcome outcome;
  outcome.message = fileFailureMessage("@WB_OPEN_FAILED", path, kNotBuilt);
  return outcome;
#endif
}

FileOutcome saveWorkbookFile(const workbook::InMemoryApplication& app,
                             const std::string& workbookName, const std::string& path) {
#ifdef KXC_WORKBENCH_FILES
  return outcomeOf(fileio::saveWorkbookXlsx(app, workbookName, path), "@WB_SAVE_FAILED", path);
#else
  (void)app;
  (void)workbookName;
  FileOutcome outcome;
  outcome.message = fileFailureMessage("@WB_SAVE_FAILED", path, kNotBuilt);
  return outcome;
#endif
}

}  // namespace kxc::workbench
