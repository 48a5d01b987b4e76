// CacheUI: the add-in's public entry class; one method per user command.
#pragma once

#include <cstdint>
#include <string>

#include "platform/dispatch.h"
#include "platform/host/application.h"
#include "platform/variant.h"

namespace kxc {

// The ProgID by which the engine's manager instance is created.
inline constexpr const char* kCacheManagerProgId = "TmBvCacheManager.CacheManager";

// Holds no state: everything lives in the process globals. Methods are listed in the order of
// the class's public interface. None raises: each traps its errors and reports them (or stays
// silent) as stated. Called on the host's user-interface thread only.
class CacheUI {
 public:
  // Keeps mCache as gCacheEngine, creates gCacheManager by ProgID, and hands xExcel to
  // gExcelSink, which hooks its events; xExcel receives the same application back. Errors:
  // "clsBvCubeQueryUI Initialise" (a failed creation leaves the events unhooked). The result
  // is always Empty.
  Variant Initialise(host::ApplicationRef& xExcel, ObjectRef& mCache);
  // Makes the host's active cell gActiveCell and opens the formula builder on CellFormula.
  // Errors: "clsBvCubeQueryUI ShowFormulaBuilder". Returns "".
  std::string ShowFormulaBuilder(std::string& CellFormula);
  // Opens the engine's cache-manager window, re-creating the manager when it was released.
  // Errors are swallowed.
  void CacheManager();
  // Shuts the manager down and releases it, ignoring every error. Other globals stay.
  void Shutdown();
  // Deliberately does nothing; the lookup is reached from the worksheet and the builder.
  std::string ShowLookup();
  // Drill-down of the selected cache-formula cells into the transactions form.
  // Errors: "CacheUI - StartDrillDownTrans".
  void StartDrillDownTrans();
  // Sets the current language of the translation catalogue. Errors are swallowed.
  void ChangeCurrentLang(int16_t& LangId);
  // Switches write-back on (a new CacheWriteBack hooked to the application) or off (released).
  // Errors are swallowed.
  void ToggleWriteBack();
};

}  // namespace kxc
