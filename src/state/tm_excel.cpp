#include "state/tm_excel.h"

#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "state/tm_globals.h"

namespace kxc {

// The application holds its sinks weakly and by shared pointer; this small object is that
// sink and passes the two events the add-in listens to on to its owner.
class TmExcel::EventForwarder : public host::ApplicationEvents {
 public:
  explicit EventForwarder(TmExcel& owner) : owner_(owner) {}
  void sheetBeforeDoubleClick(host::Worksheet& sheet, const host::RangeRef& target,
                              bool& cancel) override {
    owner_.oExcel_SheetBeforeDoubleClick(sheet, target, cancel);
  }
  void workbookAddinUninstall(host::Workbook& workbook) override {
    owner_.oExcel_WorkbookAddinUninstall(workbook);
  }

 private:
  TmExcel& owner_;
};

TmExcel::TmExcel() : forwarder_(std::make_shared<EventForwarder>(*this)) {}

TmExcel::~TmExcel() {
  reportingErrors("TmExcel Class-Terminate", [] { gActiveCell.reset(); });
  hookup_.reset();
}

void TmExcel::Initialise(const host::ApplicationRef& pExcel) {
  reportingErrors("TmExcel Initialise", [&] {
    oExcel_ = pExcel;
    if (oExcel_) {
      hookup_.hook(oExcel_, forwarder_);
    } else {
      hookup_.reset();
    }
  });
}

void TmExcel::oExcel_SheetBeforeDoubleClick(host::Worksheet&, const host::RangeRef&, bool&) {}

void TmExcel::oExcel_WorkbookAddinUninstall(host::Workbook&) {}

host::RangeRef TmExcel::resolve(const std::string& reference) const {
  if (!oExcel_) throw RuntimeError(err::kObjectNotSet);
  return oExcel_->range(reference);
}

bool TmExcel::IsCellRef(const std::string& reference) {
  bool found = false;
  ignoringErrors([&] { found = resolve(reference) != nullptr; });
  return found && !IsNameRange(reference);
}

bool TmExcel::IsNameRange(const std::string& reference) { return !GetNameRange(reference).empty(); }

std::string TmExcel::GetNameRange(const std::string& reference) {
  std::string name;
  ignoringErrors([&] {
    host::RangeRef range = resolve(reference);
    if (range) name = range->name();
  });
  return name;
}

std::string TmExcel::GetCellAddress(const std::string& reference) {
  std::string address;
  ignoringErrors([&] {
    host::RangeRef range = resolve(reference);
    if (range) address = range->address();
  });
  return address;
}

bool TmExcel::HasDependents(const host::RangeRef& cell) {
  bool has = false;
  ignoringErrors([&] {
    if (!cell) return;
    host::RangeRef dependents = cell->directDependents();
    if (dependents) {
      dependents->count();
      has = true;
    }
  });
  return has;
}

}  // namespace kxc
