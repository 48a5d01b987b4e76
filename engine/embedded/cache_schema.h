// The database schema of the cache store: the catalogue tables shared by every cache and the
// one transaction table each cache owns.
#pragma once

#include <cstdint>
#include <string>

#include "engine/embedded/sqlite_database.h"

namespace kxc::engine {

inline constexpr int kSchemaVersion = 1;

// Creates the catalogue tables when they are missing; raises 30007 for a database written by
// a newer schema.
void ensureSchema(Database& db);

// The name of a cache's transaction table, built from its numeric key only ("fact_12"), so no
// user text ever becomes part of SQL.
std::string factTable(int64_t cacheId);

// CREATE TABLE text for a cache's transaction table: seq (the transaction order, 1..n), tdate,
// reference, d1..dN (1-based member positions), m1..mM (values, NULL for none).
std::string factTableDdl(int64_t cacheId, int dimensions, int measures);

}  // namespace kxc::engine
