#include "facade/tm_globals.h"

#include "host/tm_excel.h"
#include "language/language.h"

namespace kxc {

// Defined before gExcelSink so that they outlive it: the sink's destructor releases
// gActiveCell.
ObjectRef gCacheEngine;
ObjectRef gCacheManager;
std::shared_ptr<WriteBackObject> gWriteBack;
CacheFormula gCurrentFormula;
host::RangeRef gActiveCell;
std::string gLookupSelection;
AutoCreated<Language> gLanguage;
AutoCreated<TmExcel> gExcelSink;

void resetGlobals() {
  gWriteBack.reset();
  gExcelSink.reset();
  gCacheManager.reset();
  gCacheEngine.reset();
  gCurrentFormula.clear();
  gActiveCell.reset();
  gLanguage.reset();
  gLookupSelection.clear();
}

}  // namespace kxc
