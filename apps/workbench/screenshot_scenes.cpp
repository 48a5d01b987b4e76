#include "screenshot_scenes.h"

#include <QTimer>

#include "dialogs/transactions_form.h"
#include "flows/formula_builder.h"
#include "flows/show_lookup.h"
#include "platform/error_report.h"
#include "sample_report.h"
#include "state/tm_globals.h"
#include "workbench_session.h"

namespace kxc::workbench {

namespace {

// The Product dimension of the "Sales" cache and the members the lookup shows chosen.
constexpr int32_t kProductDimension = 2;
constexpr const char* kChosenProducts = "Widgets,Gizmos,Cogs";

}  // namespace

// The same path a user's double-click on the cell takes: the add-in's double-click handler
// opens the builder on the cell's formula.
void openBuilderScene(WorkbenchSession& session) {
  reportingErrors("Workbench Scene", [&] { session.app().doubleClick(kFirstFormulaCell); });
}

void openLookupScene(WorkbenchSession& session, const std::function<void()>& whileShown) {
  openBuilderScene(session);
  reportingErrors("Workbench Scene", [&] {
    CacheFormula& formula = gCurrentFormula;
    if (formula.DimCount < kProductDimension) return;
    formula.Dims(kProductDimension) = kChosenProducts;
  });
  // The timer fires from inside the lookup's modal loop.
  QTimer::singleShot(200, [whileShown] {
    if (whileShown) whileShown();
  });
  int32_t dimension = kProductDimension;
  LookupDimension(dimension);
}

void openTransactionsScene(WorkbenchSession& session) {
  reportingErrors("Workbench Scene", [&] { session.app().select(kFormulaBlock); });
  session.runCommand("DrillTrans");
}

void closeSceneDialogs() {
  ignoringErrors([] {
    if (frmLookup().form().visible()) frmLookup().form().hide();
  });
  ignoringErrors([] { frmTransactions().form().hide(); });
  ignoringErrors([] {
    if (AddInContext::current().find<FrmCacheFormula>()) frmCacheFormula().form().hide();
  });
}

}  // namespace kxc::workbench
