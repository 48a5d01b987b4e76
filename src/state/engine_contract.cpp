#include "state/engine_contract.h"

#include <deque>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/runtime_error.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

// Collects the arguments of one call. By-reference arguments of plain C++ variables travel
// in variant slots that are copied back into the variables once the call returns or fails.
class Call {
 public:
  template <typename T>
  Call& operator<<(ByVal<T> v) {
    args_.push_back(Argument::byValue(Variant(std::move(v.value))));
    return *this;
  }
  Call& operator<<(ByRef<std::string> r) { return slot(r.target); }
  Call& operator<<(ByRef<int32_t> r) { return slot(r.target); }
  Call& operator<<(ByRef<double> r) { return slot(r.target); }
  Call& operator<<(ByRef<ObjectRef> r) { return slot(r.target); }
  Call& operator<<(DimensionFilters& filters) {
    for (Variant& f : filters) args_.push_back(Argument::byRef(f));
    return *this;
  }

  Variant on(const ObjectRef& object, std::string_view member) {
    try {
      Variant result = invoke(object, member, std::move(args_));
      writeBack();
      return result;
    } catch (...) {
      writeBack();
      throw;
    }
  }

 private:
  template <typename T>
  Call& slot(T& target) {
    Variant& s = slots_.emplace_back(target);
    args_.push_back(Argument::byRef(s));
    writeBacks_.push_back([&s, &target] { assignBack(s, target); });
    return *this;
  }

  static void assignBack(const Variant& v, std::string& t) { t = v.toText(); }
  static void assignBack(const Variant& v, int32_t& t) { t = v.toInt32(); }
  static void assignBack(const Variant& v, double& t) { t = v.toDouble(); }
  static void assignBack(const Variant& v, ObjectRef& t) {
    t = v.isEmpty() ? ObjectRef() : v.object();
  }

  void writeBack() {
    for (auto& w : writeBacks_) {
      try {
        w();
      } catch (const RuntimeError&) {
        // A value the variable's type cannot hold leaves the variable unchanged.
      }
    }
  }

  std::vector<Argument> args_;
  std::deque<Variant> slots_;  // stable addresses for the by-reference arguments
  std::vector<std::function<void()>> writeBacks_;
};

constexpr int16_t kConstantZero = 0;

}  // namespace

Variant CacheEngineCalls::CacheCount() { return Call().on(engine_, "CacheCount"); }

Variant CacheEngineCalls::cachename(ByVal<int16_t> index) {
  return (Call() << index).on(engine_, "cachename");
}

Variant CacheEngineCalls::cachename(ByRef<int32_t> index) {
  return (Call() << index).on(engine_, "cachename");
}

Variant CacheEngineCalls::CacheFind(ByVal<std::string> cache) {
  return (Call() << cache).on(engine_, "CacheFind");
}

Variant CacheEngineCalls::EnsureCacheLoad(ByVal<std::string> cache) {
  return (Call() << cache).on(engine_, "EnsureCacheLoad");
}

Variant CacheEngineCalls::EnsureCacheLoad(ByRef<std::string> cache) {
  return (Call() << cache).on(engine_, "EnsureCacheLoad");
}

Variant CacheEngineCalls::MeasureCount(ByRef<std::string> cache) {
  return (Call() << cache).on(engine_, "MeasureCount");
}

Variant CacheEngineCalls::MeasureCaption(ByVal<std::string> cache, ByRef<int32_t> measure) {
  return (Call() << cache << measure).on(engine_, "MeasureCaption");
}

Variant CacheEngineCalls::MeasureCaption(ByRef<std::string> cache, ByRef<int32_t> measure) {
  return (Call() << cache << measure).on(engine_, "MeasureCaption");
}

Variant CacheEngineCalls::MeasureCaption(ByVal<std::string> cache, ByVal<Variant> measure) {
  return (Call() << cache << measure).on(engine_, "MeasureCaption");
}

Variant CacheEngineCalls::DimensionCount(ByVal<std::string> cache) {
  return (Call() << cache).on(engine_, "DimensionCount");
}

Variant CacheEngineCalls::DimensionCount(ByRef<std::string> cache) {
  return (Call() << cache).on(engine_, "DimensionCount");
}

Variant CacheEngineCalls::DimensionCaption(ByVal<std::string> cache, ByVal<int16_t> dimension) {
  return (Call() << cache << dimension).on(engine_, "DimensionCaption");
}

Variant CacheEngineCalls::DimensionCaption(ByRef<std::string> cache, ByRef<int32_t> dimension) {
  return (Call() << cache << dimension).on(engine_, "DimensionCaption");
}

Variant CacheEngineCalls::DimensionMemberCount(ByRef<std::string> cache, ByRef<int32_t> dimension) {
  return (Call() << cache << dimension).on(engine_, "DimensionMemberCount");
}

Variant CacheEngineCalls::DimensionMemberValue(ByRef<std::string> cache, ByRef<int32_t> dimension,
                                               ByRef<int32_t> member) {
  return (Call() << cache << dimension << member).on(engine_, "DimensionMemberValue");
}

Variant CacheEngineCalls::DimensionMemberCaption(ByRef<std::string> cache, ByRef<int32_t> dimension,
                                                 ByRef<int32_t> member) {
  return (Call() << cache << dimension << member).on(engine_, "DimensionMemberCaption");
}

Variant CacheEngineCalls::CacheGetValueAllAggregationTypes(ByRef<std::string> cache,
                                                           ByRef<int32_t> measure,
                                                           DimensionFilters& filters) {
  return (Call() << cache << measure << byVal(kConstantZero) << filters)
      .on(engine_, "CacheGetValueAllAggregationTypes");
}

Variant CacheEngineCalls::CacheFormatCurrency(ByRef<int32_t> cacheIndex,
                                              ByRef<int32_t> measureIndex, ByVal<double> value) {
  return (Call() << cacheIndex << measureIndex << value).on(engine_, "CacheFormatCurrency");
}

void CacheEngineCalls::CacheWriteBack(ByVal<std::string> cache, ByRef<int32_t> measure,
                                      ByRef<double> value, DimensionFilters& dimensionValues) {
  (Call() << cache << measure << byVal(kConstantZero) << value << dimensionValues)
      .on(engine_, "CacheWriteBack");
}

void CacheEngineCalls::DrilldownClear() { Call().on(engine_, "DrilldownClear"); }

void CacheEngineCalls::DrilldownAddCriteria(ByVal<std::string> cache, DimensionFilters& filters) {
  (Call() << cache << filters).on(engine_, "DrilldownAddCriteria");
}

void CacheEngineCalls::ExecutePopulateTrans(ByVal<std::string> cache, ByVal<ObjectRef> grid) {
  (Call() << cache << grid).on(engine_, "ExecutePopulateTrans");
}

void CacheManagerCalls::Window(ByRef<ObjectRef> engine) {
  (Call() << engine).on(manager_, "Window");
}

void CacheManagerCalls::Shutdown() { Call().on(manager_, "Shutdown"); }

CacheEngineCalls cacheEngine() { return CacheEngineCalls(gCacheEngine); }

CacheManagerCalls cacheManager() { return CacheManagerCalls(gCacheManager); }

}  // namespace kxc
