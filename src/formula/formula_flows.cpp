#include "formula/formula_flows.h"

#include "dialogs/frm_cache_formula.h"
#include "facade/facade_hooks.h"
#include "formula/formula_builder_port.h"
#include "formula/show_formula_edit.h"
#include "formula/show_lookup.h"

namespace kxc {

void installFormulaFlows() {
  facadeHooks().showFormulaEdit = [](std::string& formulaText) {
    return ShowFormulaEdit(formulaText);
  };
  setFormulaBuilder(cacheFormulaBuilderPort());
}

void releaseFormulaDialogs() {
  releaseFrmLookup();
  releaseFrmCacheFormula();
}

}  // namespace kxc
