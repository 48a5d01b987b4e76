// The cache store: the database of every cache, its catalogue, the loading of one cache into
// columns, and the write-back journal.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/contract/cache_backend.h"
#include "engine/contract/cache_definition.h"
#include "engine/embedded/cache_columns.h"
#include "engine/embedded/sqlite_database.h"

namespace kxc::engine {

// Opens (creating when needed) the database at `path`. Every method raises 30007 when the
// database fails, and leaves the database as it was. Single-threaded.
class CacheStore {
 public:
  explicit CacheStore(const std::string& path);

  Database& database() { return db_; }

  // Every cache in creation order (the order of the engine's cache indices).
  std::vector<CacheSummary> listCaches();

  // The cache's dimensions with members, its measures, and its transactions in order.
  void load(int64_t cacheId, CacheDefinition& definition, CacheColumns& columns);

  // Removes a cache with its transactions and journal entries.
  void deleteCache(int64_t cacheId);

  // Appends the rows to the cache as one journal entry, in one database transaction. Returns
  // the entry; its rows get the sequence numbers firstSeq onwards.
  JournalEntry appendJournal(int64_t cacheId, int32_t measure, int32_t measureCount,
                             double writtenValue, const std::string& description,
                             std::span<const AdjustingRow> rows, const std::string& date);

  // The newest journal entry of any cache, if there is one.
  std::optional<JournalEntry> lastJournal();
  // Removes the newest journal entry and its rows in one database transaction; returns it.
  std::optional<JournalEntry> undoLast();

 private:
  Database db_;
};

}  // namespace kxc::engine
