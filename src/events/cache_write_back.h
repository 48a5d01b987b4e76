// CacheWriteBack: sends a number typed over a cache-formula cell into the cache and puts the
// formula back.
#pragma once

#include <memory>
#include <string>

#include "platform/host/application.h"

namespace kxc {

// One instance lives in gWriteBack while write-back is switched on. While `oexcel` is set it
// receives the application's selection and change events: a selection remembers the range and
// its formula; a change of that cell to a number calls the engine's CacheWriteBack with the
// cell's cache coordinates and writes the remembered formula back. Event handlers never show
// anything: any failure ends them and the cell keeps what the user typed. Destroying the
// object unhooks it. User-interface thread only.
class CacheWriteBack {
 public:
  CacheWriteBack();
  // Forgets the remembered cell and formula and unhooks; every error is ignored.
  ~CacheWriteBack();
  CacheWriteBack(const CacheWriteBack&) = delete;
  CacheWriteBack& operator=(const CacheWriteBack&) = delete;

  // The application whose events are hooked; empty until set.
  const host::ApplicationRef& oexcel() const { return oexcel_; }
  // Sets the application and moves the event hooks to it (empty unhooks).
  void oexcel(host::ApplicationRef& application);

  // Sets oexcel to `pExcel`. Errors are reported as "TmExcel Initialise" (the same location as
  // the event sink's own Initialise).
  void Initialise(host::ApplicationRef& pExcel);

  // Remembers `target` and its formula (whatever the host gives for several cells).
  void oExcel_SheetSelectionChange(host::Worksheet& sheet, const host::RangeRef& target);
  // Writes a number typed over the remembered cache-formula cell into the cache. Goes on only
  // when: a formula is remembered and contains "BV_KXCSUM(" in any letter case; the target's
  // value equals the remembered cell's; a target formula containing "BV_KXCSUM(" (this time
  // case-sensitive) is exactly the remembered one; and the target's Value2 converts to a
  // number (the host's conversion: an emptied cell counts as 0). The call is cut from
  // "BV_KXCSUM(" to the first ")" (so a wrapping SUM(...) is ignored) and parsed; the
  // remembered formula is consumed, so a second change without a new selection sends nothing.
  // The engine receives the cache, the measure index, the 16-bit 0, the number and twenty
  // dimension values (arguments resolved by this class's ResolveArgument, as many as both the
  // formula and the cache's DimensionCount have; more than twenty ends the handler). Then the
  // remembered formula is written back into the target.
  void oExcel_SheetChange(host::Worksheet& sheet, const host::RangeRef& target);

  // The value of the range `argument` names, as text; "" when anything fails. Unlike the
  // formula flows' resolver a literal (no reference) gives "", not itself.
  std::string ResolveArgument(const std::string& argument);
  // The range's Value2 as a double into `number`: true on success; false (number untouched)
  // when the host or the conversion fails.
  bool TryGetNumber(const host::RangeRef& range, double& number);

 private:
  class EventForwarder;

  void writeBack(const host::RangeRef& target);

  host::ApplicationRef oexcel_;
  std::string rememberedFormula_;
  host::RangeRef rememberedCell_;
  std::shared_ptr<EventForwarder> forwarder_;
  host::EventHookup hookup_;
};

}  // namespace kxc
