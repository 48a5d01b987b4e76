#include "platform/fileio/xlsx_saver.h"

#include <xlsxwriter.h>

#include <cmath>
#include <memory>
#include <optional>

#include "platform/fileio/replacing_file.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/book.h"
#include "platform/workbook/typed_entry.h"

namespace kxc::fileio {
namespace {

SaveResult failed(const std::string& path, std::string reason) {
  SaveResult result;
  std::string message = "Cannot save \"" + path + "\": " + reason + ".";
  result.problem = FileProblem{path, std::move(reason), std::move(message)};
  return result;
}

// Owns the writer's workbook until it is closed (which writes the file).
struct WriterDeleter {
  void operator()(lxw_workbook* book) const { lxw_workbook_free(book); }
};
using WriterBook = std::unique_ptr<lxw_workbook, WriterDeleter>;

std::string place(const workbook::Sheet& sheet, int32_t row, int32_t column) {
  return workbook::sheetQualifier(sheet.name()) + workbook::cellAddress(row, column, false, false);
}

double numberResult(const Variant& value) {
  if (value.type() == VarType::Bool) return value.toBool() ? 1 : 0;
  double number = value.type() == VarType::Double ? value.toDouble() : 0;
  return std::isfinite(number) ? number : 0;
}

lxw_error writeCell(lxw_worksheet* sheet, int32_t row, int32_t column, const workbook::Cell& cell) {
  lxw_row_t r = static_cast<lxw_row_t>(row - 1);
  lxw_col_t c = static_cast<lxw_col_t>(column - 1);
  const Variant& value = cell.value;
  if (cell.formula) {
    const char* formula = cell.formula->text.c_str();
    if (value.type() == VarType::Text || value.isError()) {
      return worksheet_write_formula_str(sheet, r, c, formula, nullptr,
                                         workbook::constantFormulaText(value).c_str());
    }
    if (value.type() == VarType::Empty) {
      return worksheet_write_formula_str(sheet, r, c, formula, nullptr, "");
    }
    return worksheet_write_formula_num(sheet, r, c, formula, nullptr, numberResult(value));
  }
  switch (value.type()) {
    case VarType::Double:
      return worksheet_write_number(sheet, r, c, value.toDouble(), nullptr);
    case VarType::Bool:
      return worksheet_write_boolean(sheet, r, c, value.toBool() ? 1 : 0, nullptr);
    case VarType::Text:
      return worksheet_write_string(sheet, r, c, value.text().c_str(), nullptr);
    default:
      if (value.isError()) {
        std::string text = workbook::constantFormulaText(value);
        return worksheet_write_formula_str(sheet, r, c, ("=" + text).c_str(), nullptr,
                                           text.c_str());
      }
      return LXW_NO_ERROR;
  }
}

}  // namespace

SaveResult saveWorkbookXlsx(const workbook::InMemoryApplication& app,
                            const std::string& workbookName, const std::string& path) {
  std::shared_ptr<workbook::Book> book = app.model().findWorkbook(workbookName);
  if (!book) return failed(path, "no workbook named \"" + workbookName + "\" is open");

  std::string reason;
  std::optional<ReplacingFile> file = ReplacingFile::create(path, reason);
  if (!file) return failed(path, reason);

  lxw_workbook_options options{};
  WriterBook writer(workbook_new_opt(file->temporaryPath().c_str(), &options));
  if (!writer) return failed(path, "the file cannot be created");

  SaveResult result;
  for (const auto& sheet : book->sheets()) {
    lxw_worksheet* target = workbook_add_worksheet(writer.get(), sheet->name().c_str());
    if (!target) return failed(path, "the sheet \"" + sheet->name() + "\" cannot be written");
    std::optional<workbook::Area> used = sheet->cells().usedArea();
    if (!used) continue;
    lxw_error error = LXW_NO_ERROR;
    int32_t badRow = 0, badColumn = 0;
    sheet->cells().forEachIn(*used, [&](int32_t row, int32_t column, const workbook::Cell& cell) {
      error = writeCell(target, row, column, cell);
      badRow = row;
      badColumn = column;
      return error == LXW_NO_ERROR;
    });
    if (error != LXW_NO_ERROR) {
      return failed(path, place(*sheet, badRow, badColumn) + " cannot be written (" +
                              lxw_strerror(error) + ")");
    }
  }

  for (const workbook::DefinedName& name : book->names()) {
    const auto& sheet = app.model().sheet(name.block.sheet);
    if (sheet->book() != book) {
      result.notes.push_back("name " + name.name + " left out: it names cells of another workbook");
      continue;
    }
    std::string formula =
        "=" + workbook::sheetQualifier(sheet->name()) + workbook::areaAddress(name.block.area);
    lxw_error error = workbook_define_name(writer.get(), name.name.c_str(), formula.c_str());
    if (error != LXW_NO_ERROR) {
      result.notes.push_back("name " + name.name + " left out: " + lxw_strerror(error));
    }
  }

  lxw_error closed = workbook_close(writer.release());
  if (closed != LXW_NO_ERROR) return failed(path, lxw_strerror(closed));
  if (!file->commit(reason)) return failed(path, reason);
  return result;
}

}  // namespace kxc::fileio
