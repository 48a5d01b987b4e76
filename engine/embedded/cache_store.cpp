#include "engine/embedded/cache_store.h"

#include "engine/contract/engine_errors.h"
#include "engine/embedded/cache_schema.h"

namespace kxc::engine {

CacheStore::CacheStore(const std::string& path) : db_(path) { ensureSchema(db_); }

std::vector<CacheSummary> CacheStore::listCaches() {
  std::vector<CacheSummary> out;
  auto caches = db_.prepare(
      "SELECT c.id, c.name, (SELECT count(*) FROM dimension d WHERE d.cache_id = c.id), "
      "(SELECT count(*) FROM measure m WHERE m.cache_id = c.id) FROM cache c ORDER BY c.id");
  while (caches.step()) {
    CacheSummary s;
    s.id = caches.int64At(0);
    s.name = std::string(caches.textAt(1));
    s.dimensionCount = static_cast<int32_t>(caches.int64At(2));
    s.measureCount = static_cast<int32_t>(caches.int64At(3));
    out.push_back(std::move(s));
  }
  for (auto& s : out) {
    // Sequence numbers run 1..n without gaps, so the largest one is the count.
    auto count = db_.prepare("SELECT coalesce(max(seq), 0) FROM " + factTable(s.id));
    if (count.step()) s.transactionCount = count.int64At(0);
  }
  return out;
}

void CacheStore::load(int64_t cacheId, CacheDefinition& def, CacheColumns& cols) {
  def = CacheDefinition{};
  auto name = db_.prepare("SELECT name FROM cache WHERE id = ?");
  name.bind(1, cacheId);
  if (!name.step()) throw databaseError("no cache with key " + std::to_string(cacheId));
  def.name = std::string(name.textAt(0));

  auto dims = db_.prepare("SELECT caption FROM dimension WHERE cache_id = ? ORDER BY position");
  dims.bind(1, cacheId);
  while (dims.step()) def.dimensions.push_back({std::string(dims.textAt(0)), {}});

  auto members = db_.prepare(
      "SELECT dimension, value, caption FROM member WHERE cache_id = ? "
      "ORDER BY dimension, position");
  members.bind(1, cacheId);
  while (members.step()) {
    int64_t d = members.int64At(0);
    if (d < 1 || d > static_cast<int64_t>(def.dimensions.size())) {
      throw databaseError("cache " + def.name + " has a member of a missing dimension");
    }
    def.dimensions[d - 1].members.push_back(
        {std::string(members.textAt(1)), std::string(members.textAt(2))});
  }

  auto measures = db_.prepare(
      "SELECT caption, aggregation, format FROM measure WHERE cache_id = ? ORDER BY position");
  measures.bind(1, cacheId);
  while (measures.step()) {
    auto agg = parseAggregation(measures.textAt(1));
    def.measures.push_back({std::string(measures.textAt(0)), agg.value_or(Aggregation::Sum),
                            std::string(measures.textAt(2))});
  }

  const int nd = static_cast<int>(def.dimensions.size());
  const int nm = static_cast<int>(def.measures.size());
  std::string sql = "SELECT seq, tdate, reference";
  for (int d = 1; d <= nd; ++d) sql += ", d" + std::to_string(d);
  for (int m = 1; m <= nm; ++m) sql += ", m" + std::to_string(m);
  sql += " FROM " + factTable(cacheId) + " ORDER BY seq";

  std::vector<size_t> memberCounts;
  for (const auto& d : def.dimensions) memberCounts.push_back(d.members.size());
  cols = CacheColumns(memberCounts, nm);
  int64_t rows = 0;
  {
    auto count = db_.prepare("SELECT coalesce(max(seq), 0) FROM " + factTable(cacheId));
    if (count.step()) rows = count.int64At(0);
  }
  for (auto& c : cols.members) c.reserve(rows);
  for (auto& c : cols.values) c.reserve(rows);
  cols.dates.reserve(rows, rows * 10);
  cols.references.reserve(rows, rows * 12);

  std::vector<int32_t> rowMembers(nd);
  std::vector<double> rowValues(nm);
  auto facts = db_.prepare(sql);
  int64_t expectedSeq = 1;
  while (facts.step()) {
    if (facts.int64At(0) != expectedSeq) {
      throw databaseError("cache " + def.name + " has a gap in its transactions at " +
                          std::to_string(expectedSeq));
    }
    ++expectedSeq;
    for (int d = 0; d < nd; ++d) {
      int64_t pos = facts.int64At(3 + d);
      if (pos < 1 || pos > static_cast<int64_t>(def.dimensions[d].members.size())) {
        throw databaseError("cache " + def.name + " has transaction " +
                            std::to_string(expectedSeq - 1) + " with an unknown member of " +
                            def.dimensions[d].caption);
      }
      rowMembers[d] = static_cast<int32_t>(pos - 1);
    }
    for (int m = 0; m < nm; ++m) rowValues[m] = facts.doubleAt(3 + nd + m);
    cols.appendRow(rowMembers, rowValues, facts.textAt(1), facts.textAt(2));
  }
}

void CacheStore::deleteCache(int64_t cacheId) {
  Transaction tx(db_);
  db_.exec("DROP TABLE IF EXISTS " + factTable(cacheId));
  auto del = db_.prepare("DELETE FROM cache WHERE id = ?");
  del.bind(1, cacheId).run();
  tx.commit();
}

JournalEntry CacheStore::appendJournal(int64_t cacheId, int32_t measure, int32_t measureCount,
                                       double writtenValue, const std::string& description,
                                       std::span<const AdjustingRow> rows,
                                       const std::string& date) {
  Transaction tx(db_);
  JournalEntry entry;
  entry.cacheId = cacheId;
  entry.measure = measure;
  entry.rowCount = static_cast<int64_t>(rows.size());
  entry.description = description;
  {
    auto next = db_.prepare("SELECT coalesce(max(seq), 0) + 1 FROM " + factTable(cacheId));
    next.step();
    entry.firstSeq = next.int64At(0);
  }
  auto journal = db_.prepare(
      "INSERT INTO journal(cache_id, measure, written_value, first_seq, row_count, description) "
      "VALUES (?, ?, ?, ?, ?, ?)");
  journal.bind(1, cacheId)
      .bind(2, measure)
      .bind(3, writtenValue)
      .bind(4, entry.firstSeq)
      .bind(5, entry.rowCount)
      .bind(6, description)
      .run();
  entry.id = db_.lastInsertId();
  entry.number = entry.id;

  const int nd = rows.empty() ? 0 : static_cast<int>(rows[0].members.size());
  std::string sql = "INSERT INTO " + factTable(cacheId) + "(seq, tdate, reference";
  std::string params = "?, ?, ?";
  for (int d = 1; d <= nd; ++d) sql += ", d" + std::to_string(d), params += ", ?";
  for (int m = 1; m <= measureCount; ++m) sql += ", m" + std::to_string(m), params += ", ?";
  auto insert = db_.prepare(sql + ") VALUES (" + params + ")");
  std::string reference = "Write-back " + std::to_string(entry.id);
  int64_t seq = entry.firstSeq;
  for (const auto& row : rows) {
    insert.bind(1, seq++).bind(2, date).bind(3, reference);
    for (int d = 0; d < nd; ++d) insert.bind(4 + d, int64_t{row.members[d]} + 1);
    for (int m = 1; m <= measureCount; ++m) {
      if (m == measure) {
        insert.bind(3 + nd + m, row.value);
      } else {
        insert.bindNull(3 + nd + m);
      }
    }
    insert.run();
  }
  tx.commit();
  return entry;
}

std::optional<JournalEntry> CacheStore::lastJournal() {
  auto last = db_.prepare(
      "SELECT id, cache_id, measure, first_seq, row_count, description FROM journal "
      "ORDER BY id DESC LIMIT 1");
  if (!last.step()) return std::nullopt;
  JournalEntry e;
  e.id = last.int64At(0);
  e.number = e.id;
  e.cacheId = last.int64At(1);
  e.measure = static_cast<int32_t>(last.int64At(2));
  e.firstSeq = last.int64At(3);
  e.rowCount = last.int64At(4);
  e.description = std::string(last.textAt(5));
  return e;
}

std::optional<JournalEntry> CacheStore::undoLast() {
  Transaction tx(db_);
  auto entry = lastJournal();
  if (!entry) return std::nullopt;
  auto rows = db_.prepare("DELETE FROM " + factTable(entry->cacheId) + " WHERE seq >= ?");
  rows.bind(1, entry->firstSeq).run();
  auto journal = db_.prepare("DELETE FROM journal WHERE id = ?");
  journal.bind(1, entry->id).run();
  tx.commit();
  return entry;
}

}  // namespace kxc::engine
