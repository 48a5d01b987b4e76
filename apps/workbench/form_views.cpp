#include "form_views.h"

#include "dialogs/transactions_form.h"
#include "flows/formula_builder.h"
#include "flows/show_lookup.h"
#include "platform/qt/qt_modal_loop.h"

namespace kxc::workbench {

FormViews::FormViews() = default;

FormViews::~FormViews() {
  if (loopInstalled_) controls::setModalLoop(std::move(previousLoop_));
  views_.clear();
}

qt::QtFormView& FormViews::ensure(controls::Form& form) {
  if (qt::QtFormView* existing = qt::QtFormView::of(form)) return *existing;
  auto& slot = views_[&form];
  slot = std::make_unique<qt::QtFormView>(form);
  return *slot;
}

void FormViews::attachDialogs() {
  ensure(frmCacheFormula().form());
  ensure(frmLookup().form());
  ensure(frmTransactions().form());
}

void FormViews::installModalLoop() {
  if (loopInstalled_) return;
  controls::ModalLoop qtLoop = qt::qtModalLoop();
  previousLoop_ = controls::setModalLoop([this, qtLoop](controls::Form& form) {
    ensure(form);
    qtLoop(form);
  });
  loopInstalled_ = true;
}

}  // namespace kxc::workbench
