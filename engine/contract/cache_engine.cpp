#include "engine/contract/cache_engine.h"

#include <cmath>
#include <ctime>

#include "engine/contract/display_format.h"
#include "engine/contract/engine_errors.h"
#include "engine/contract/filter_parser.h"
#include "engine/contract/sample_data.h"
#include "engine/contract/write_back.h"
#include "platform/error_report.h"
#include "platform/text_rules.h"

namespace kxc::engine {

namespace {

std::string today() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char buf[16];
  std::strftime(buf, sizeof buf, "%Y-%m-%d", &local);
  return buf;
}

Aggregation chooseAggregation(const MeasureDef& measure, int aggregationType) {
  if (aggregationType == 0) return measure.aggregation;
  if (aggregationType < 1 || aggregationType > 5) {
    throw RuntimeError(err::kInvalidCall, "Aggregation type " + std::to_string(aggregationType) +
                                              " is not one of 0 to 5");
  }
  return static_cast<Aggregation>(aggregationType);
}

// The whole number a variant stands for, if it is one (a number or a number text).
std::optional<int64_t> wholeNumber(const Variant& v) {
  double d = 0;
  if (v.isNumeric() && v.type() != VarType::Bool) {
    d = v.toDouble();
  } else if (!v.isText() || !parseNumber(v.text(), d)) {
    return std::nullopt;
  }
  if (d != std::floor(d) || std::fabs(d) > 1e15) return std::nullopt;
  return static_cast<int64_t>(d);
}

std::string describeFilters(const CacheModel& c, std::span<const Variant> filters) {
  std::string out;
  for (int d = 0; d < c.dimensionCount(); ++d) {
    if (d > 0) out += ", ";
    const Variant* f = static_cast<size_t>(d) < filters.size() ? &filters[d] : nullptr;
    out += (!f || isNoFilter(*f)) ? "<ALL>" : f->toText();
  }
  return out;
}

}  // namespace

CacheEngine::CacheEngine(EngineOptions options, std::string location, BackendOpener open)
    : options_(std::move(options)), location_(std::move(location)), open_(std::move(open)) {}

CacheEngine::~CacheEngine() = default;

CacheBackend& CacheEngine::backend() {
  if (!backend_) {
    std::unique_ptr<CacheBackend> backend = open_();
    if (options_.generateSamples && !backend->samplesConsidered()) {
      if (backend->listCaches().empty()) generateSampleCaches(*backend, options_.sampleSalesRows);
      backend->markSamplesConsidered();
    }
    backend_ = std::move(backend);
  }
  return *backend_;
}

const std::vector<CacheSummary>& CacheEngine::catalogue() {
  if (!catalogueRead_) {
    catalogue_ = backend().listCaches();
    catalogueRead_ = true;
  }
  return catalogue_;
}

const CacheSummary* CacheEngine::resolve(const Variant& cache) {
  if (cache.isObject() || cache.isError()) throw RuntimeError(err::kTypeMismatch);
  const auto& all = catalogue();
  if (cache.isText()) {
    std::string_view name = trimBlanks(cache.text());
    for (const auto& s : all) {
      if (s.name == name) return &s;
    }
    std::string upper = upperCase(name);
    for (const auto& s : all) {
      if (upperCase(s.name) == upper) return &s;
    }
  }
  if (auto n = wholeNumber(cache); n && *n >= 1 && *n <= static_cast<int64_t>(all.size())) {
    return &all[static_cast<size_t>(*n - 1)];
  }
  return nullptr;
}

int32_t CacheEngine::cacheCount() { return static_cast<int32_t>(catalogue().size()); }

std::string CacheEngine::cacheName(int32_t index) {
  const auto& all = catalogue();
  if (index < 1 || index > static_cast<int32_t>(all.size())) {
    throw RuntimeError(engine_err::kOutOfRange, "Cache index " + std::to_string(index) +
                                                    " is out of range (1 to " +
                                                    std::to_string(all.size()) + ")");
  }
  return all[static_cast<size_t>(index - 1)].name;
}

int32_t CacheEngine::cacheFind(const Variant& cache) {
  const CacheSummary* s = resolve(cache);
  return s ? static_cast<int32_t>(s - catalogue().data()) + 1 : 0;
}

int32_t CacheEngine::ensureCacheLoad(const Variant& cache) {
  try {
    const CacheSummary* s = resolve(cache);
    if (!s) return -1;
    int32_t index = static_cast<int32_t>(s - catalogue().data()) + 1;
    load(*s);
    return index;
  } catch (const RuntimeError&) {
    return -1;
  }
}

std::vector<CacheSummary> CacheEngine::listCaches() {
  catalogueRead_ = false;
  return catalogue();
}

int64_t CacheEngine::transactionCount(const Variant& cacheArg) {
  const CacheSummary* s = resolve(cacheArg);
  if (!s) throw unknownCache(cacheArg.toText());
  auto it = loaded_.find(s->id);
  return it != loaded_.end() ? it->second->transactionCount() : s->transactionCount;
}

CacheHandle& CacheEngine::load(const CacheSummary& summary) {
  auto it = loaded_.find(summary.id);
  if (it != loaded_.end()) {
    if (it->second->current()) return *it->second;
    forget(summary.id);
  }
  std::unique_ptr<CacheHandle> cache = backend().open(summary);
  return *loaded_.emplace(summary.id, std::move(cache)).first->second;
}

CacheHandle& CacheEngine::cache(const Variant& cache) {
  const CacheSummary* s = resolve(cache);
  if (!s) throw unknownCache(cache.toText());
  return load(*s);
}

int CacheEngine::measureNumber(const CacheModel& c, const Variant& measure) {
  if (measure.isObject() || measure.isError()) throw RuntimeError(err::kTypeMismatch);
  if (auto n = wholeNumber(measure)) {
    if (*n < 1 || *n > c.measureCount())
      throw outOfRange("Measure", *n, c.measureCount(), c.name());
    return static_cast<int>(*n - 1);
  }
  if (measure.isText()) {
    std::string upper = upperCase(trimBlanks(measure.text()));
    for (int m = 0; m < c.measureCount(); ++m) {
      if (upperCase(c.definition().measures[m].caption) == upper) return m;
    }
  }
  throw RuntimeError(engine_err::kOutOfRange,
                     "Measure '" + measure.toText() + "' does not exist in cache " + c.name());
}

double CacheEngine::value(const Variant& cacheArg, const Variant& measureArg, int aggregationType,
                          std::span<const Variant> filters) {
  CacheHandle& handle = cache(cacheArg);
  const CacheModel& c = handle.model();
  int m = measureNumber(c, measureArg);
  Aggregation agg = chooseAggregation(c.definition().measures[m], aggregationType);
  std::optional<std::string> key;
  if (options_.memoize) {
    key = ValueMemo::key(m, static_cast<int>(agg), filters);
    if (key) {
      if (auto hit = memo_.find(c.id(), *key)) return *hit;
    }
  }
  ValueRequest request{m, parseFilters(c, filters)};
  Accumulator acc;
  handle.aggregate(std::span<const ValueRequest>(&request, 1), std::span<Accumulator>(&acc, 1));
  double result = acc.result(agg);
  if (key) memo_.store(c.id(), std::move(*key), result);
  return result;
}

std::string CacheEngine::formatValue(const Variant& cacheArg, const Variant& measureArg, double v) {
  const CacheModel& c = model(cacheArg);
  return formatDisplay(v, c.definition().measures[measureNumber(c, measureArg)].format);
}

void CacheEngine::writeBack(const Variant& cacheArg, const Variant& measureArg, int aggregationType,
                            double newValue, std::span<const Variant> filters) {
  CacheHandle& handle = cache(cacheArg);
  const CacheModel& c = handle.model();
  int m = measureNumber(c, measureArg);
  const MeasureDef& def = c.definition().measures[m];
  Aggregation agg = chooseAggregation(def, aggregationType);
  std::vector<AdjustingRow> rows =
      planWriteBack(handle, m, agg, parseFilters(c, filters), newValue);
  if (rows.empty()) return;
  WriteBackRecord record{m, newValue,
                         c.name() + " / " + def.caption + " at " + describeFilters(c, filters) +
                             " = " + formatNumber(newValue),
                         today()};
  memo_.invalidate(c.id());  // whether the write succeeds or not, remembered values may be old
  handle.writeBack(record, rows);
}

bool CacheEngine::undoWriteBack() {
  std::optional<JournalEntry> entry = backend().undoLastWriteBack();
  if (!entry) return false;
  memo_.invalidate(entry->cacheId);
  auto it = loaded_.find(entry->cacheId);
  if (it != loaded_.end() && !it->second->undone(*entry)) forget(entry->cacheId);
  return true;
}

std::string CacheEngine::lastWriteBack() {
  auto entry = backend().lastWriteBack();
  return entry ? entry->description : std::string();
}

void CacheEngine::drilldownAddCriteria(const Variant& cacheArg, std::span<const Variant> filters) {
  criteria_.push_back({cacheArg, std::vector<Variant>(filters.begin(), filters.end())});
}

size_t CacheEngine::populateTransactions(const Variant& cacheArg, const ObjectRef& grid) {
  if (!grid) throw RuntimeError(err::kObjectRequired);
  Variant chosen = cacheArg;
  if (isNoFilter(chosen) && !criteria_.empty()) chosen = criteria_.front().cache;
  if (isNoFilter(chosen)) {
    clearGrid(grid);
    return 0;
  }
  CacheHandle& handle = cache(chosen);
  const CacheModel& c = handle.model();
  std::vector<std::vector<MemberFilter>> parsed;
  for (const auto& cr : criteria_) {
    const CacheSummary* s = resolve(cr.cache);
    if (s && s->id == c.id()) parsed.push_back(parseFilters(c, cr.filters));
  }
  GridFiller filler(c, grid);
  try {
    handle.drill(parsed, filler);
    return filler.finish();
  } catch (...) {
    // Rows already shown may be a part of the answer: take them away again.
    ignoringErrors([&] { clearGrid(grid); });
    throw;
  }
}

int32_t CacheEngine::importCsv(const std::string& file, const std::string& cacheName,
                               const ImportProgress& progress) {
  int64_t id = engine::importCsv(backend(), file, cacheName, progress);
  catalogueRead_ = false;
  const auto& all = catalogue();
  for (size_t i = 0; i < all.size(); ++i) {
    if (all[i].id == id) return static_cast<int32_t>(i + 1);
  }
  return 0;
}

void CacheEngine::deleteCache(const Variant& cacheArg) {
  const CacheSummary* s = resolve(cacheArg);
  if (!s) throw unknownCache(cacheArg.toText());
  int64_t id = s->id;
  backend().deleteCache(id);
  forget(id);
  catalogueRead_ = false;
}

void CacheEngine::forget(int64_t cacheId) {
  loaded_.erase(cacheId);
  memo_.invalidate(cacheId);
}

void CacheEngine::refresh() {
  loaded_.clear();
  memo_.clear();
  catalogueRead_ = false;
}

void CacheEngine::shutdown() {
  refresh();
  catalogue_.clear();
  backend_.reset();
}

}  // namespace kxc::engine
