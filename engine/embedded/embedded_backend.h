// The embedded backend: caches in one SQLite database (the cache store), each loaded whole into
// memory as columns on first use and aggregated there.
#pragma once

#include <memory>
#include <string>

#include "engine/contract/cache_backend.h"
#include "engine/embedded/cache_store.h"
#include "engine/embedded/loaded_cache.h"

namespace kxc::engine {

// A cache loaded into memory. Write-backs are appended to the loaded columns as they are
// stored; an undo truncates them. When the stored cache turns out to have been changed by
// another program, the handle stops being current and the core loads the cache again.
class EmbeddedCache : public CacheHandle {
 public:
  EmbeddedCache(CacheStore& store, std::shared_ptr<const CacheModel> model, CacheColumns columns);

  const LoadedCache& loaded() const { return cache_; }

  int64_t transactionCount() override { return static_cast<int64_t>(cache_.rowCount()); }
  void aggregate(std::span<const ValueRequest> requests, std::span<Accumulator> results) override;
  std::vector<CellTotal> cells(int measure, std::span<const MemberFilter> filters) override;
  void drill(std::span<const std::vector<MemberFilter>> criteria, TransactionSink& sink) override;
  JournalEntry writeBack(const WriteBackRecord& record,
                         std::span<const AdjustingRow> rows) override;
  bool undone(const JournalEntry& entry) override;
  bool current() const override { return current_; }

 private:
  CacheStore& store_;
  LoadedCache cache_;
  bool current_ = true;
};

// Opens (creating when needed) the database at `path`; raises 30007 when it cannot.
class EmbeddedBackend : public CacheBackend {
 public:
  explicit EmbeddedBackend(const std::string& path);

  CacheStore& store() { return store_; }

  std::string location() const override { return path_; }
  std::vector<CacheSummary> listCaches() override { return store_.listCaches(); }
  std::unique_ptr<CacheHandle> open(const CacheSummary& cache) override;
  std::unique_ptr<CacheBuilder> createCache(const std::string& name,
                                            const std::vector<std::string>& dimensions,
                                            const std::vector<MeasureDef>& measures) override;
  void deleteCache(int64_t cacheId) override { store_.deleteCache(cacheId); }
  std::optional<JournalEntry> lastWriteBack() override { return store_.lastJournal(); }
  std::optional<JournalEntry> undoLastWriteBack() override { return store_.undoLast(); }
  bool samplesConsidered() override;
  void markSamplesConsidered() override;

 private:
  std::string path_;
  CacheStore store_;
};

}  // namespace kxc::engine
