#include "grammar/resolve_argument.h"

#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace kxc {

std::string ResolveArgument(const Variant& argument) {
  std::string resolved;
  bool ok = ignoringErrors([&] {
    const host::ApplicationRef& app = gExcelSink->oExcel();
    if (!app) throw RuntimeError(err::kObjectNotSet);
    host::RangeRef range = app->range(argument.toText());
    if (!range) throw RuntimeError(err::kObjectRequired);
    resolved = range->value().toText();
  });
  if (ok) return resolved;
  std::string self;
  ignoringErrors([&] { self = argument.toText(); });
  return self;
}

bool isReference(const std::string& text) { return ResolveArgument(text) != text; }

}  // namespace kxc
