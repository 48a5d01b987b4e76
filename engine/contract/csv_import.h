// Building a cache from a CSV file whose header row says what each column is:
//   dim:CAPTION                     a dimension; its cells are member values
//   caption:CAPTION                 optional member captions of the dimension CAPTION
//   measure:CAPTION[:AGG[:FORMAT]]  a measure; AGG is sum (default), count, min, max or average
//   date                            optional ISO date (YYYY-MM-DD, a time may follow)
//   reference                       optional reference text
// Members are ordered by first appearance. An empty measure cell means "no value".
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/contract/cache_backend.h"

namespace kxc::engine {

// Called now and then with the bytes read so far and the file's size.
using ImportProgress = std::function<void(uint64_t done, uint64_t total)>;

// Imports `file` as a new cache `cacheName` through one builder of `backend` and returns its
// key. Any problem raises 30008 with "FILE:LINE: reason" (or "FILE: reason" when no line
// applies) and leaves the store exactly as it was; an existing cache name raises 30010.
int64_t importCsv(CacheBackend& backend, const std::string& file, const std::string& cacheName,
                  const ImportProgress& progress = {});

}  // namespace kxc::engine
