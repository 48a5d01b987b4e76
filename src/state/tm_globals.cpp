#include "state/tm_globals.h"

namespace kxc {

ObjectRef gCacheEngine;
ObjectRef gCacheManager;
std::shared_ptr<CacheWriteBack> gWriteBack;
CacheFormula gCurrentFormula;
host::RangeRef gActiveCell;
std::string gLookupSelection;
const AutoCreated<Language> gLanguage;
const AutoCreated<TmExcel> gExcelSink;

void resetGlobals() {
  gWriteBack.reset();
  gCacheManager.reset();
  gCacheEngine.reset();
  gCurrentFormula.clear();
  gActiveCell.reset();
  gLookupSelection.clear();
}

}  // namespace kxc
