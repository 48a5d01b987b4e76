// The formula builder's listener on the host application (its lExcel): selection changes reach
// the dialog's cell capture while the form is loaded.
#pragma once

#include "dialogs/frm_cache_formula.h"
#include "platform/host/application_events.h"

namespace kxc {

// Held by the dialog; the application holds it weakly while the dialog's hookup is set.
class FrmCacheFormula::SelectionSink : public host::ApplicationEvents {
 public:
  explicit SelectionSink(FrmCacheFormula& owner) : owner_(owner) {}
  void sheetSelectionChange(host::Worksheet&, const host::RangeRef& target) override {
    owner_.lExcel_SheetSelectionChange(target);
  }

 private:
  FrmCacheFormula& owner_;
};

}  // namespace kxc
