// The cache engine contract: one typed call per engine member, each sending exactly the
// argument types and passing modes (by value or by reference) that its callers use.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/dispatch.h"
#include "platform/variant.h"

namespace kxc {

// How one argument travels. ByVal sends a copy. ByRef lets the engine overwrite the caller's
// variable: after the call (also when it fails) the variable receives what the engine left in
// the argument, converted to the variable's type; a value that does not convert leaves the
// variable as it was. A ByRef must not outlive the variable it names.
template <typename T>
struct ByVal {
  T value;
};
template <typename T>
struct ByRef {
  T& target;
};
template <typename T>
ByVal<T> byVal(T value) {
  return ByVal<T>{std::move(value)};
}
template <typename T>
ByRef<T> byRef(T& target) {
  return ByRef<T>{target};
}

// The twenty dimension slots of a value, write-back or drill-down request, dimension 1 first;
// slots beyond the cache's dimension count stay Empty. Always sent by reference.
inline constexpr int kMaxDimensions = 20;
using DimensionFilters = std::array<Variant, kMaxDimensions>;

// The data members of the cache engine. Every call raises what the engine raises (438 for a
// member the engine lacks, 91 when the engine reference is empty); results are returned as
// the engine gave them, and the caller converts them. Not thread-safe: user-interface thread.
class CacheEngineCalls {
 public:
  explicit CacheEngineCalls(ObjectRef engine) : engine_(std::move(engine)) {}
  const ObjectRef& object() const { return engine_; }

  Variant CacheCount();
  // Cache name at an index: a 16-bit index by value, or a 32-bit variable by reference.
  Variant cachename(ByVal<int16_t> index);
  Variant cachename(ByRef<int32_t> index);
  Variant CacheFind(ByVal<std::string> cache);
  // -1 when the cache cannot be loaded, else its index.
  Variant EnsureCacheLoad(ByVal<std::string> cache);
  Variant EnsureCacheLoad(ByRef<std::string> cache);
  Variant MeasureCount(ByRef<std::string> cache);
  Variant MeasureCaption(ByVal<std::string> cache, ByRef<int32_t> measure);
  Variant MeasureCaption(ByRef<std::string> cache, ByRef<int32_t> measure);
  // The measure as its caller holds it (for example a resolved cell value), by value.
  Variant MeasureCaption(ByVal<std::string> cache, ByVal<Variant> measure);
  Variant DimensionCount(ByVal<std::string> cache);
  Variant DimensionCount(ByRef<std::string> cache);
  Variant DimensionCaption(ByVal<std::string> cache, ByVal<int16_t> dimension);
  Variant DimensionCaption(ByRef<std::string> cache, ByRef<int32_t> dimension);
  Variant DimensionMemberCount(ByRef<std::string> cache, ByRef<int32_t> dimension);
  Variant DimensionMemberValue(ByRef<std::string> cache, ByRef<int32_t> dimension,
                               ByRef<int32_t> member);
  Variant DimensionMemberCaption(ByRef<std::string> cache, ByRef<int32_t> dimension,
                                 ByRef<int32_t> member);
  // 23 arguments: cache, measure, the 16-bit 0 by value, then the twenty filters.
  Variant CacheGetValueAllAggregationTypes(ByRef<std::string> cache, ByRef<int32_t> measure,
                                           DimensionFilters& filters);
  Variant CacheFormatCurrency(ByRef<int32_t> cacheIndex, ByRef<int32_t> measureIndex,
                              ByVal<double> value);
  // 24 arguments: cache, measure, the 16-bit 0 by value, the new value, the twenty
  // dimension values.
  void CacheWriteBack(ByVal<std::string> cache, ByRef<int32_t> measure, ByRef<double> value,
                      DimensionFilters& dimensionValues);
  void DrilldownClear();
  // 21 arguments: cache, then the twenty filters.
  void DrilldownAddCriteria(ByVal<std::string> cache, DimensionFilters& filters);
  // The engine fills `grid` with the transactions itself.
  void ExecutePopulateTrans(ByVal<std::string> cache, ByVal<ObjectRef> grid);

 private:
  ObjectRef engine_;
};

// The members of the engine's manager instance. Same failure rules as CacheEngineCalls.
class CacheManagerCalls {
 public:
  explicit CacheManagerCalls(ObjectRef manager) : manager_(std::move(manager)) {}
  const ObjectRef& object() const { return manager_; }

  // Opens the engine's own cache-manager window for `engine`.
  void Window(ByRef<ObjectRef> engine);
  void Shutdown();

 private:
  ObjectRef manager_;
};

// The calls on the process's engine (gCacheEngine) and manager (gCacheManager), as they are
// at the moment of the call.
CacheEngineCalls cacheEngine();
CacheManagerCalls cacheManager();

}  // namespace kxc
