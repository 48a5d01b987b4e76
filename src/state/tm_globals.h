// The process globals: engine, manager, event sink, write-back, current formula, active cell,
// translation and the lookup selection, shared by every part of the add-in.
#pragma once

#include <memory>
#include <string>

#include "platform/dispatch.h"
#include "platform/host/range.h"
#include "state/auto_created.h"
#include "state/cache_formula.h"

namespace kxc {

class CacheWriteBack;
class Language;
class TmExcel;

// The cache engine handed to CacheUI::Initialise; the data members are called on it.
extern ObjectRef gCacheEngine;
// The engine's manager instance (ProgID "TmBvCacheManager.CacheManager"): Window, Shutdown.
extern ObjectRef gCacheManager;
// The host event sink holding the application (oExcel); created on first use, as the add-in
// context makes its TmExcel.
extern const AutoCreated<TmExcel> gExcelSink;
// Present exactly while write-back is switched on.
extern std::shared_ptr<CacheWriteBack> gWriteBack;
// The last cache formula parsed or edited.
extern CacheFormula gCurrentFormula;
// The cell whose formula is being edited.
extern host::RangeRef gActiveCell;
// The translation catalogue; created on first use.
extern const AutoCreated<Language> gLanguage;
// The lookup dialog's last selection text: a side record of the last OK in the lookup.
extern std::string gLookupSelection;

// Empties the plain globals (engine, manager, write-back, current formula, active cell,
// selection text). The add-in context calls it when it starts and ends; the auto-created
// objects end with the context.
void resetGlobals();

}  // namespace kxc
