#include "engine/embedded/cache_writer.h"

#include "engine/contract/engine_errors.h"
#include "engine/embedded/cache_schema.h"
#include "platform/text_rules.h"

namespace kxc::engine {

CacheWriter::CacheWriter(CacheStore& store, const std::string& name,
                         const std::vector<std::string>& dimensionCaptions,
                         const std::vector<MeasureDef>& measures)
    : store_((checkCacheShape(name, dimensionCaptions.size(), measures.size()), store)),
      tx_(store.database()),
      dimensions_(static_cast<int>(dimensionCaptions.size())),
      measures_(static_cast<int>(measures.size())),
      highestMember_(dimensionCaptions.size(), -1) {
  Database& db = store_.database();
  auto exists = db.prepare("SELECT 1 FROM cache WHERE name = ?");
  exists.bind(1, name);
  if (exists.step()) {
    throw RuntimeError(engine_err::kCacheExists, "A cache named " + name + " exists already");
  }
  auto cache = db.prepare("INSERT INTO cache(name) VALUES (?)");
  cache.bind(1, name).run();
  cacheId_ = db.lastInsertId();

  auto dim = db.prepare("INSERT INTO dimension(cache_id, position, caption) VALUES (?, ?, ?)");
  for (int d = 0; d < dimensions_; ++d) {
    dim.bind(1, cacheId_).bind(2, d + 1).bind(3, dimensionCaptions[d]).run();
  }
  auto measure = db.prepare(
      "INSERT INTO measure(cache_id, position, caption, aggregation, format) "
      "VALUES (?, ?, ?, ?, ?)");
  for (int m = 0; m < measures_; ++m) {
    measure.bind(1, cacheId_)
        .bind(2, m + 1)
        .bind(3, measures[m].caption)
        .bind(4, aggregationName(measures[m].aggregation))
        .bind(5, measures[m].format)
        .run();
  }
  db.exec(factTableDdl(cacheId_, dimensions_, measures_));

  std::string sql = "INSERT INTO " + factTable(cacheId_) + " VALUES (?, ?, ?";
  for (int i = 0; i < dimensions_ + measures_; ++i) sql += ", ?";
  insert_ = db.prepare(sql + ")");
}

void CacheWriter::addRow(std::span<const int32_t> members, std::span<const double> values,
                         std::string_view date, std::string_view reference) {
  if (members.size() != static_cast<size_t>(dimensions_) ||
      values.size() != static_cast<size_t>(measures_)) {
    throw RuntimeError(err::kInvalidCall,
                       "A transaction needs a member of every dimension "
                       "and a value of every measure");
  }
  insert_.bind(1, ++rows_).bind(2, date).bind(3, reference);
  for (int d = 0; d < dimensions_; ++d) {
    if (members[d] < 0) throw RuntimeError(err::kInvalidCall, "A member number is negative");
    highestMember_[d] = std::max(highestMember_[d], members[d]);
    insert_.bind(4 + d, int64_t{members[d]} + 1);
  }
  for (int m = 0; m < measures_; ++m) insert_.bind(4 + dimensions_ + m, values[m]);
  insert_.run();
}

int64_t CacheWriter::commit(const std::vector<std::vector<MemberDef>>& members) {
  if (members.size() != static_cast<size_t>(dimensions_)) {
    throw RuntimeError(err::kInvalidCall, "Members are needed for every dimension");
  }
  Database& db = store_.database();
  auto insert = db.prepare(
      "INSERT INTO member(cache_id, dimension, position, value, caption) VALUES (?, ?, ?, ?, ?)");
  for (int d = 0; d < dimensions_; ++d) {
    if (highestMember_[d] >= static_cast<int32_t>(members[d].size())) {
      throw RuntimeError(err::kInvalidCall, "A transaction uses a member that is not listed");
    }
    for (size_t j = 0; j < members[d].size(); ++j) {
      insert.bind(1, cacheId_)
          .bind(2, d + 1)
          .bind(3, static_cast<int64_t>(j + 1))
          .bind(4, members[d][j].value)
          .bind(5, members[d][j].caption)
          .run();
    }
  }
  insert_ = Statement();
  tx_.commit();
  return cacheId_;
}

}  // namespace kxc::engine
