// The engine's own error numbers (30001-30010) and the constructors of their messages.
#pragma once

#include <string>
#include <string_view>

#include "platform/runtime_error.h"

namespace kxc::engine {

namespace engine_err {
inline constexpr int kUnknownCache = 30001;     // "Unknown cache: Foo"
inline constexpr int kUnknownMember = 30002;    // "Unknown member 'X' in dimension Region"
inline constexpr int kBadFilter = 30003;        // "Cannot read the filter '<<A..'"
inline constexpr int kOutOfRange = 30004;       // a measure, dimension or member index outside
inline constexpr int kTooManyFilters = 30005;   // a filter beyond the cache's dimensions
inline constexpr int kCannotWriteBack = 30006;  // a write-back the measure cannot take
inline constexpr int kDatabase = 30007;         // the database failed
inline constexpr int kImport = 30008;           // a CSV file that cannot be imported
inline constexpr int kNoWindow = 30009;         // no cache-manager window in this program
inline constexpr int kCacheExists = 30010;      // a cache of that name exists already
}  // namespace engine_err

// Argument-count errors of dispatch calls, as the host language numbers them.
inline constexpr int kArgumentNotOptional = 449;
inline constexpr int kWrongArgumentCount = 450;

RuntimeError unknownCache(std::string_view name);
RuntimeError unknownMember(std::string_view member, std::string_view dimension);
RuntimeError badFilter(std::string_view filter);
RuntimeError outOfRange(std::string_view what, long long index, long long count,
                        std::string_view cache);
RuntimeError databaseError(std::string_view detail);

}  // namespace kxc::engine
