#include "grammar/write_cache_formula.h"

#include "grammar/resolve_argument.h"
#include "platform/cache_function_name.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/services.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

constexpr const char* kAllMembers = "\"<ALL>\"";

std::string quoted(const std::string& text) { return '"' + text + '"'; }

void prepend(std::string& tail, const std::string& piece) {
  tail = tail.empty() ? piece : piece + "," + tail;
}

}  // namespace

std::string cacheFormulaText(const CacheFormula& formula) {
  std::string text(kCacheFormulaStart);
  text += isReference(formula.Cache) ? formula.Cache : quoted(formula.Cache);
  text += ",";
  text += formula.Measure;

  std::string tail;
  bool seen = false;
  for (int32_t i = formula.DimCount; i >= 1; --i) {
    const std::string* dim = nullptr;
    ignoringErrors([&] { dim = &formula.Dims(i); });
    if (!dim) continue;
    if (dim->empty()) {
      if (seen) prepend(tail, kAllMembers);
    } else {
      prepend(tail, isReference(*dim) ? *dim : quoted(*dim));
      seen = true;
    }
  }
  if (!tail.empty()) text += "," + tail;
  text += ")";
  return text;
}

void WriteCacheFormula(bool builderCancelled) {
  if (builderCancelled) {
    gActiveCell.reset();
    ignoringErrors([] { services().doEvents(); });
    return;
  }
  std::string text = cacheFormulaText(gCurrentFormula);
  if (text.empty()) return;
  ignoringErrors([&] {
    if (!gActiveCell) throw RuntimeError(err::kObjectNotSet);
    gActiveCell->setFormula(text);
  });
}

}  // namespace kxc
