#include "engine/contract/engine_object.h"

#include <vector>

#include "engine/contract/engine_errors.h"

namespace kxc::engine {

namespace {

void expectArgs(Arguments args, size_t least, size_t most) {
  if (args.size() < least) throw RuntimeError(kArgumentNotOptional, "Argument not optional");
  if (args.size() > most) {
    throw RuntimeError(kWrongArgumentCount,
                       "Wrong number of arguments or invalid property assignment");
  }
}

// The dimension filters from argument `first` on (at most kMaxDimensions).
std::vector<Variant> filtersFrom(Arguments args, size_t first) {
  std::vector<Variant> out;
  for (size_t i = first; i < args.size(); ++i) out.push_back(args[i].value());
  return out;
}

int32_t count(size_t n) { return static_cast<int32_t>(n); }

const DimensionDef& dimensionAt(const CacheModel& c, const Variant& index) {
  int32_t d = index.toInt32();
  if (d < 1 || d > c.dimensionCount())
    throw outOfRange("Dimension", d, c.dimensionCount(), c.name());
  return c.definition().dimensions[d - 1];
}

const MemberDef& memberAt(const CacheModel& c, const DimensionDef& dim, const Variant& index) {
  int32_t j = index.toInt32();
  if (j < 1 || j > count(dim.members.size())) {
    throw RuntimeError(engine_err::kOutOfRange, "Member " + std::to_string(j) +
                                                    " does not exist in dimension " + dim.caption +
                                                    " of cache " + c.name() + " (1 to " +
                                                    std::to_string(dim.members.size()) + ")");
  }
  return dim.members[j - 1];
}

}  // namespace

EngineObject::EngineObject(std::shared_ptr<CacheEngine> core) : core_(std::move(core)) {
  addCatalogueMembers();
  addValueMembers();
  addManagementMembers();
}

Variant EngineObject::invoke(std::string_view member, Arguments args, CallKind kind) {
  return table_.invoke(member, args, kind);
}

void EngineObject::addCatalogueMembers() {
  CacheEngine& e = *core_;
  table_.method("CacheCount", [&e](Arguments a) {
    expectArgs(a, 0, 0);
    return Variant(e.cacheCount());
  });
  table_.method("cachename", [&e](Arguments a) {
    expectArgs(a, 1, 1);
    return Variant(e.cacheName(argAt(a, 0).toInt32()));
  });
  table_.method("CacheFind", [&e](Arguments a) {
    expectArgs(a, 1, 1);
    return Variant(e.cacheFind(argAt(a, 0)));
  });
  table_.method("EnsureCacheLoad", [&e](Arguments a) {
    expectArgs(a, 1, 1);
    return Variant(e.ensureCacheLoad(argAt(a, 0)));
  });
  table_.method("MeasureCount", [&e](Arguments a) {
    expectArgs(a, 1, 1);
    return Variant(e.model(argAt(a, 0)).measureCount());
  });
  table_.method("MeasureCaption", [&e](Arguments a) {
    expectArgs(a, 2, 2);
    const CacheModel& c = e.model(argAt(a, 0));
    return Variant(c.definition().measures[e.measureNumber(c, argAt(a, 1))].caption);
  });
  table_.method("DimensionCount", [&e](Arguments a) {
    expectArgs(a, 1, 1);
    return Variant(e.model(argAt(a, 0)).dimensionCount());
  });
  table_.method("DimensionCaption", [&e](Arguments a) {
    expectArgs(a, 2, 2);
    return Variant(dimensionAt(e.model(argAt(a, 0)), argAt(a, 1)).caption);
  });
  table_.method("DimensionMemberCount", [&e](Arguments a) {
    expectArgs(a, 2, 2);
    return Variant(count(dimensionAt(e.model(argAt(a, 0)), argAt(a, 1)).members.size()));
  });
  table_.method("DimensionMemberValue", [&e](Arguments a) {
    expectArgs(a, 3, 3);
    const CacheModel& c = e.model(argAt(a, 0));
    return Variant(memberAt(c, dimensionAt(c, argAt(a, 1)), argAt(a, 2)).value);
  });
  table_.method("DimensionMemberCaption", [&e](Arguments a) {
    expectArgs(a, 3, 3);
    const CacheModel& c = e.model(argAt(a, 0));
    return Variant(memberAt(c, dimensionAt(c, argAt(a, 1)), argAt(a, 2)).caption);
  });
}

void EngineObject::addValueMembers() {
  CacheEngine& e = *core_;
  table_.method("CacheGetValueAllAggregationTypes", [&e](Arguments a) {
    expectArgs(a, 3, 3 + kMaxDimensions);
    return Variant(e.value(argAt(a, 0), argAt(a, 1), argAt(a, 2).toInt32(), filtersFrom(a, 3)));
  });
  table_.method("CacheFormatCurrency", [&e](Arguments a) {
    expectArgs(a, 3, 3);
    return Variant(e.formatValue(argAt(a, 0), argAt(a, 1), argAt(a, 2).toDouble()));
  });
  table_.method("CacheWriteBack", [&e](Arguments a) {
    expectArgs(a, 4, 4 + kMaxDimensions);
    e.writeBack(argAt(a, 0), argAt(a, 1), argAt(a, 2).toInt32(), argAt(a, 3).toDouble(),
                filtersFrom(a, 4));
    return Variant();
  });
  table_.method("UndoWriteBack", [&e](Arguments a) {
    expectArgs(a, 0, 0);
    return Variant(e.undoWriteBack());
  });
  table_.method("LastWriteBack", [&e](Arguments a) {
    expectArgs(a, 0, 0);
    return Variant(e.lastWriteBack());
  });
  table_.method("DrilldownClear", [&e](Arguments a) {
    expectArgs(a, 0, 0);
    e.drilldownClear();
    return Variant();
  });
  table_.method("DrilldownAddCriteria", [&e](Arguments a) {
    expectArgs(a, 1, 1 + kMaxDimensions);
    e.drilldownAddCriteria(argAt(a, 0), filtersFrom(a, 1));
    return Variant();
  });
  table_.method("ExecutePopulateTrans", [&e](Arguments a) {
    expectArgs(a, 2, 2);
    e.populateTransactions(argAt(a, 0), argAt(a, 1).object());
    return Variant();
  });
}

void EngineObject::addManagementMembers() {
  CacheEngine& e = *core_;
  table_.method("TransactionCount", [&e](Arguments a) {
    expectArgs(a, 1, 1);
    return Variant(static_cast<int32_t>(e.transactionCount(argAt(a, 0))));
  });
  table_.method("MeasureAggregation", [&e](Arguments a) {
    expectArgs(a, 2, 2);
    const CacheModel& c = e.model(argAt(a, 0));
    auto agg = c.definition().measures[e.measureNumber(c, argAt(a, 1))].aggregation;
    return Variant(std::string(aggregationName(agg)));
  });
  table_.method("MeasureFormat", [&e](Arguments a) {
    expectArgs(a, 2, 2);
    const CacheModel& c = e.model(argAt(a, 0));
    return Variant(c.definition().measures[e.measureNumber(c, argAt(a, 1))].format);
  });
  table_.method("ImportCsv", [&e](Arguments a) {
    expectArgs(a, 2, 2);
    return Variant(e.importCsv(argAt(a, 0).toText(), argAt(a, 1).toText()));
  });
  table_.method("DeleteCache", [&e](Arguments a) {
    expectArgs(a, 1, 1);
    e.deleteCache(argAt(a, 0));
    return Variant();
  });
  table_.method("DatabasePath", [&e](Arguments a) {
    expectArgs(a, 0, 0);
    return Variant(e.databasePath());
  });
  table_.method("Refresh", [&e](Arguments a) {
    expectArgs(a, 0, 0);
    e.refresh();
    return Variant();
  });
}

}  // namespace kxc::engine
