// The process globals: engine, manager, event sink, write-back, current formula, active cell,
// translation and the lookup selection, shared by every part of the add-in.
#pragma once

#include <string>

#include "facade/auto_created.h"
#include "facade/write_back_object.h"
#include "formula/cache_formula.h"
#include "platform/dispatch.h"
#include "platform/host/range.h"

namespace kxc {

class Language;
class TmExcel;

// The cache engine handed to CacheUI::Initialise; the data members are called on it.
extern ObjectRef gCacheEngine;
// The engine's manager instance (ProgID "TmBvCacheManager.CacheManager"): Window, Shutdown.
extern ObjectRef gCacheManager;
// The host event sink holding the application (oExcel); created on first use.
extern AutoCreated<TmExcel> gExcelSink;
// Present exactly while write-back is switched on.
extern std::shared_ptr<WriteBackObject> gWriteBack;
// The last cache formula parsed or edited.
extern CacheFormula gCurrentFormula;
// The cell whose formula is being edited.
extern host::RangeRef gActiveCell;
// The translation catalogue; created on first use.
extern AutoCreated<Language> gLanguage;
// The lookup dialog's last selection text.
extern std::string gLookupSelection;

// Releases every global and empties the current formula and the selection text, as at process
// start (creators installed with setCreator stay). For tests: each test starts clean.
void resetGlobals();

}  // namespace kxc
