// The engine as a dispatch object (ProgID "KestraCache.Engine"): every member of the cache
// engine contract, matched case-insensitively, plus the members the cache manager needs.
#pragma once

#include <memory>

#include "engine/contract/cache_engine.h"
#include "platform/dispatch.h"

namespace kxc::engine {

// Members (arguments in order; indices 1-based; any numeric type or a number text is accepted
// where a number is expected, by value or by reference):
//   CacheCount() -> Int32                     cachename(index) -> Text
//   CacheFind(cache) -> Int32 (0 unknown)     EnsureCacheLoad(cache) -> Int32 (-1 failure)
//   MeasureCount(cache) -> Int32              MeasureCaption(cache, measure) -> Text
//   DimensionCount(cache) -> Int32            DimensionCaption(cache, dim) -> Text
//   DimensionMemberCount(cache, dim) -> Int32
//   DimensionMemberValue(cache, dim, member) -> Text
//   DimensionMemberCaption(cache, dim, member) -> Text
//   CacheGetValueAllAggregationTypes(cache, measure, aggType, filter1..filter20) -> Double
//   CacheFormatCurrency(cache, measure, value) -> Text
//   CacheWriteBack(cache, measure, aggType, newValue, filter1..filter20) -> Empty
//   DrilldownClear()   DrilldownAddCriteria(cache, filter1..filter20)
//   ExecutePopulateTrans(cache, grid)
//   UndoWriteBack() -> Bool                   LastWriteBack() -> Text
//   TransactionCount(cache) -> Int32          MeasureAggregation(cache, measure) -> Text
//   MeasureFormat(cache, measure) -> Text     ImportCsv(file, cacheName) -> Int32 (new index)
//   DeleteCache(cache)                        DatabasePath() -> Text
//   Refresh()
// Filters may be left out at the end. Too few arguments raise 449, too many 450; the engine's
// own failures raise its numbered errors (engine_errors.h). Never crashes on bad arguments.
class EngineObject : public DispatchObject {
 public:
  explicit EngineObject(std::shared_ptr<CacheEngine> core);

  Variant invoke(std::string_view member, Arguments args, CallKind kind) override;
  const std::shared_ptr<CacheEngine>& core() const { return core_; }

 private:
  void addCatalogueMembers();
  void addValueMembers();
  void addManagementMembers();

  std::shared_ptr<CacheEngine> core_;
  DispatchTable table_;
};

}  // namespace kxc::engine
