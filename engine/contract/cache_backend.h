// The storage and aggregation side of the engine: what a backend (the embedded SQLite store
// with in-memory columns, or a ClickHouse cluster) provides to the engine core. The core does
// everything the backends share: argument rules, filter and selection texts, write-back
// planning, display formats, grids and the value memo; a backend only stores and aggregates,
// and sees members as 0-based numbers in each dimension's member order, never as texts.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/contract/accumulator.h"
#include "engine/contract/cache_definition.h"
#include "engine/contract/cache_model.h"
#include "engine/contract/filter_parser.h"

namespace kxc::engine {

// One aggregate: the values of a measure over the transactions matching every filter.
struct ValueRequest {
  int measure = 0;                    // 0-based
  std::vector<MemberFilter> filters;  // one per dimension of the cache
};

// A member combination that has transactions, with the accumulated values of one measure.
struct CellTotal {
  std::vector<int32_t> members;  // a 0-based member number per dimension
  Accumulator values;
};

// One transaction a write-back adds: a member of every dimension and the value of the written
// measure (the other measures hold no value).
struct AdjustingRow {
  std::vector<int32_t> members;  // 0-based member numbers
  double value = 0;
};

// What a write-back is, besides its rows.
struct WriteBackRecord {
  int measure = 0;  // 0-based
  double writtenValue = 0;
  std::string description;  // shown by LastWriteBack
  std::string date;         // the adjusting rows' date, ISO
};

// One write-back as its journal keeps it. Its rows' reference is "Write-back <number>".
struct JournalEntry {
  int64_t id = 0;      // the backend's key of the entry
  int64_t number = 0;  // the number in the rows' reference
  int64_t cacheId = 0;
  int32_t measure = 0;   // 1-based
  int64_t firstSeq = 0;  // the first row's place in the transaction order
  int64_t rowCount = 0;
  std::string description;
};

// Receives the transactions of a drill-down: begin() once, then row() per transaction in
// transaction order. Exceptions it raises end the drill-down and propagate.
class TransactionSink {
 public:
  virtual ~TransactionSink() = default;
  virtual void begin(size_t rows) = 0;
  // `members`: a 0-based member per dimension; `values`: one per measure, NaN for none.
  virtual void row(std::span<const int32_t> members, std::span<const double> values,
                   std::string_view date, std::string_view reference) = 0;
};

// One opened cache. Made by CacheBackend::open; the engine core keeps it until the cache
// changes in a way the handle cannot follow, or until refresh/shutdown. Every failure raises
// a RuntimeError (30007 for the store, or the numbered error that fits); nothing half-done
// stays visible. Single-threaded.
class CacheHandle {
 public:
  explicit CacheHandle(std::shared_ptr<const CacheModel> model) : model_(std::move(model)) {}
  virtual ~CacheHandle() = default;
  CacheHandle(const CacheHandle&) = delete;
  CacheHandle& operator=(const CacheHandle&) = delete;

  const CacheModel& model() const { return *model_; }

  // Transactions, write-back rows included.
  virtual int64_t transactionCount() = 0;

  // results[i] = the accumulated values of requests[i]. One call may carry many requests (a
  // whole recalculation); a backend answers them together where it can.
  virtual void aggregate(std::span<const ValueRequest> requests,
                         std::span<Accumulator> results) = 0;

  // The member combinations that have transactions under `filters`, ascending by their member
  // numbers, with the accumulated values of `measure` (0-based).
  virtual std::vector<CellTotal> cells(int measure, std::span<const MemberFilter> filters) = 0;

  // The transactions matching any of the criteria (one filter per dimension each), each once,
  // in transaction order.
  virtual void drill(std::span<const std::vector<MemberFilter>> criteria,
                     TransactionSink& sink) = 0;

  // Adds the rows as one journal entry, all or nothing, and returns the entry. Readers see
  // the totals before or after it, never a part of it.
  virtual JournalEntry writeBack(const WriteBackRecord& record,
                                 std::span<const AdjustingRow> rows) = 0;

  // Told that `entry`, a write-back of this cache, was undone. False when the handle cannot
  // follow (the core then opens the cache again).
  virtual bool undone(const JournalEntry& entry) = 0;

  // False once the handle no longer shows the stored cache (another program changed it).
  virtual bool current() const { return true; }

 private:
  std::shared_ptr<const CacheModel> model_;
};

// Writes a new cache. Nothing of it is visible before commit(); destroyed without commit() it
// leaves the store as it was.
class CacheBuilder {
 public:
  virtual ~CacheBuilder() = default;
  // One transaction: a 0-based member number per dimension, a value per measure (NaN for
  // none), an ISO date (or "") and a reference.
  virtual void addRow(std::span<const int32_t> members, std::span<const double> values,
                      std::string_view date, std::string_view reference) = 0;
  virtual int64_t rowCount() const = 0;
  // Stores the members of every dimension (in order) and makes the cache visible. Raises 5
  // when a row used a member number beyond its dimension's list. Returns the cache's key.
  virtual int64_t commit(const std::vector<std::vector<MemberDef>>& members) = 0;
};

// A store of caches. Opened by the engine core on first use; single-threaded.
class CacheBackend {
 public:
  virtual ~CacheBackend() = default;

  // Where the caches live: a database file or an engine URL.
  virtual std::string location() const = 0;

  // Every cache in creation order (the order of the engine's cache indices), counts fresh.
  virtual std::vector<CacheSummary> listCaches() = 0;

  // Opens a cache for reading; 30007 when it cannot be read.
  virtual std::unique_ptr<CacheHandle> open(const CacheSummary& cache) = 0;

  // Starts a new cache. Raises 30010 when a cache of that name (any letter case) exists, 5 for
  // a shape checkCacheShape refuses.
  virtual std::unique_ptr<CacheBuilder> createCache(const std::string& name,
                                                    const std::vector<std::string>& dimensions,
                                                    const std::vector<MeasureDef>& measures) = 0;

  // Removes a cache with its transactions and journal entries.
  virtual void deleteCache(int64_t cacheId) = 0;

  // The newest write-back of any cache that is not undone, if there is one.
  virtual std::optional<JournalEntry> lastWriteBack() = 0;
  // Undoes it in one step and returns it.
  virtual std::optional<JournalEntry> undoLastWriteBack() = 0;

  // Whether the sample caches were considered for this store already; marking it makes sure
  // they are generated at most once.
  virtual bool samplesConsidered() = 0;
  virtual void markSamplesConsidered() = 0;
};

}  // namespace kxc::engine
