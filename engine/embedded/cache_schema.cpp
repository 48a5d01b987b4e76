#include "engine/embedded/cache_schema.h"

#include <cstdlib>

#include "engine/contract/engine_errors.h"

namespace kxc::engine {

namespace {

constexpr const char* kCatalogue = R"sql(
CREATE TABLE IF NOT EXISTS engine_meta(
  key TEXT PRIMARY KEY,
  value TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS cache(
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL UNIQUE COLLATE NOCASE,
  created TEXT NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%S', 'now')));
CREATE TABLE IF NOT EXISTS dimension(
  cache_id INTEGER NOT NULL REFERENCES cache(id) ON DELETE CASCADE,
  position INTEGER NOT NULL,
  caption TEXT NOT NULL,
  PRIMARY KEY(cache_id, position)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS member(
  cache_id INTEGER NOT NULL REFERENCES cache(id) ON DELETE CASCADE,
  dimension INTEGER NOT NULL,
  position INTEGER NOT NULL,
  value TEXT NOT NULL,
  caption TEXT NOT NULL,
  PRIMARY KEY(cache_id, dimension, position)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS measure(
  cache_id INTEGER NOT NULL REFERENCES cache(id) ON DELETE CASCADE,
  position INTEGER NOT NULL,
  caption TEXT NOT NULL,
  aggregation TEXT NOT NULL CHECK (aggregation IN ('sum', 'count', 'min', 'max', 'average')),
  format TEXT NOT NULL,
  PRIMARY KEY(cache_id, position)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS journal(
  id INTEGER PRIMARY KEY,
  cache_id INTEGER NOT NULL REFERENCES cache(id) ON DELETE CASCADE,
  measure INTEGER NOT NULL,
  written_value REAL NOT NULL,
  first_seq INTEGER NOT NULL,
  row_count INTEGER NOT NULL,
  description TEXT NOT NULL,
  created TEXT NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%S', 'now')));
)sql";

}  // namespace

void ensureSchema(Database& db) {
  db.exec(kCatalogue);
  auto read = db.prepare("SELECT value FROM engine_meta WHERE key = 'schema'");
  if (read.step()) {
    int version = std::atoi(std::string(read.textAt(0)).c_str());
    if (version > kSchemaVersion) {
      throw databaseError("the database was written by a newer version (schema " +
                          std::to_string(version) + ")");
    }
    return;
  }
  read.reset();
  auto write = db.prepare("INSERT INTO engine_meta(key, value) VALUES ('schema', ?)");
  write.bind(1, std::to_string(kSchemaVersion)).run();
}

std::string factTable(int64_t cacheId) { return "fact_" + std::to_string(cacheId); }

std::string factTableDdl(int64_t cacheId, int dimensions, int measures) {
  std::string sql = "CREATE TABLE " + factTable(cacheId) +
                    "(seq INTEGER PRIMARY KEY, tdate TEXT NOT NULL, reference TEXT NOT NULL";
  for (int d = 1; d <= dimensions; ++d) sql += ", d" + std::to_string(d) + " INTEGER NOT NULL";
  for (int m = 1; m <= measures; ++m) sql += ", m" + std::to_string(m) + " REAL";
  return sql + ")";
}

}  // namespace kxc::engine
