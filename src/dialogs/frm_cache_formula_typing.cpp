#include "dialogs/frm_cache_formula.h"
#include "dialogs/text_colouring.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/text_rules.h"
#include "state/engine_contract.h"
#include "state/tm_globals.h"

namespace kxc {

void FrmCacheFormula::txtCache_Change() {
  if (resetting_) return;
  reportingErrors("Txt Cache OnChange", [&] {
    c_.lblCacheVal->setCaption(ResolveArgument(c_.txtCache->text()));
    recolour(c_.txtCache);
  });
}

void FrmCacheFormula::txtMeasureIndex_Change() {
  if (resetting_) return;
  reportingErrors("Txt Measure OnChange", [&] {
    const std::string& text = c_.txtMeasureIndex->text();
    if (!text.empty()) {
      const std::string value = ResolveArgument(text);
      double number = 0;
      if (!value.empty() && parseNumber(value, number)) {
        c_.lblMeasureIndexVal->setCaption(
            cacheEngine()
                .MeasureCaption(byVal(ResolveArgument(gCurrentFormula.Cache)),
                                byVal(Variant(value)))
                .toText());
      } else {
        c_.lblMeasureIndexVal->setCaption("");
      }
    }
    recolour(c_.txtMeasureIndex);
  });
}

}  // namespace kxc
