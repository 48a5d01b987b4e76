#include "dialogs/cell_capture.h"
#include "dialogs/frm_cache_formula.h"
#include "dialogs/frm_cache_formula_sink.h"
#include "platform/error_report.h"
#include "platform/host/worksheet.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

struct Place {
  std::string sheet;
  std::string workbook;
};

Place placeOf(const host::Range& cell) {
  std::shared_ptr<host::Worksheet> sheet = cell.worksheet();
  if (!sheet) throw RuntimeError(err::kObjectNotSet);
  std::shared_ptr<host::Workbook> book = sheet->parent();
  if (!book) throw RuntimeError(err::kObjectNotSet);
  return {sheet->name(), book->name()};
}

}  // namespace

std::string capturedReference(const host::Range& target, const host::Range& edited) {
  host::RangeRef cell = target.cells(1, 1);
  if (!cell) throw RuntimeError(err::kObjectNotSet);
  bool rowAbsolute = true;
  bool columnAbsolute = true;
  if (cell->row() == edited.row()) {
    rowAbsolute = false;
  } else if (cell->column() == edited.column()) {
    columnAbsolute = false;
  }

  const Place clicked = placeOf(*cell);
  const Place editing = placeOf(edited);
  if (clicked.sheet == editing.sheet && clicked.workbook == editing.workbook) {
    return cell->address(rowAbsolute, columnAbsolute);
  }
  if (clicked.workbook == editing.workbook) {
    return "'" + replaceAll(clicked.sheet, "'", "''") + "'!" +
           cell->address(rowAbsolute, columnAbsolute);
  }
  return cell->address(rowAbsolute, columnAbsolute, true);
}

void FrmCacheFormula::lExcel_SheetSelectionChange(const host::RangeRef& target) {
  ignoringErrors([&] {
    controls::Control* active = form_.activeControl();
    if (!active || active->typeName() != "TextBox") return;
    if (!target || !gActiveCell) throw RuntimeError(err::kObjectNotSet);
    std::string reference = capturedReference(*target, *gActiveCell);
    static_cast<controls::TextBox*>(active)->setText(std::move(reference));
  });
}

}  // namespace kxc
