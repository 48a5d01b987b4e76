// Writes a new cache into the store inside one database transaction: nothing of it is visible
// until commit(), and a writer destroyed without commit() leaves the database untouched.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/contract/cache_definition.h"
#include "engine/embedded/cache_store.h"

namespace kxc::engine {

class CacheWriter : public CacheBuilder {
 public:
  // Begins the transaction and creates the cache's catalogue entry and table. Raises 30010 when
  // a cache of that name (in any letter case) exists, 5 for an empty name, no dimensions, more
  // than kMaxDimensions dimensions or no measures, and 30007 when the database fails.
  CacheWriter(CacheStore& store, const std::string& name,
              const std::vector<std::string>& dimensionCaptions,
              const std::vector<MeasureDef>& measures);

  // Appends one transaction: a 0-based member number per dimension and a value per measure
  // (NaN for none). Member numbers are checked against the members given to commit().
  void addRow(std::span<const int32_t> members, std::span<const double> values,
              std::string_view date, std::string_view reference) override;

  int64_t rowCount() const override { return rows_; }

  // Stores the members of every dimension (in order) and commits. Raises 5 when a row used a
  // member number beyond its dimension's list. Returns the new cache's key.
  int64_t commit(const std::vector<std::vector<MemberDef>>& members) override;

 private:
  CacheStore& store_;
  Transaction tx_;
  int64_t cacheId_ = 0;
  int dimensions_ = 0;
  int measures_ = 0;
  Statement insert_;
  int64_t rows_ = 0;
  std::vector<int32_t> highestMember_;
};

}  // namespace kxc::engine
