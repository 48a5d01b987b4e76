// The worksheet function BV_KXCSUM(cache, measure, dim1, ..., dim20): a cache value in a cell.
#pragma once

#include "platform/cache_function_name.h"
#include "platform/dispatch.h"
#include "platform/host/worksheet_functions.h"

namespace kxc::engine {

// Registers BV_KXCSUM with the host. Each call asks `engine` (held for as long as the function
// is registered) for CacheGetValueAllAggregationTypes with the cache, the measure, 0 and the
// filters (an omitted or empty filter is sent as "<ALL>") and returns the Double. Failures
// become error values: an unknown cache or member gives #N/A; a bad filter text, a bad measure,
// a wrong argument count or any other failure gives #VALUE!; an error value among the
// arguments is returned as it is.
void registerCacheFunction(host::FunctionRegistry& registry, ObjectRef engine);

}  // namespace kxc::engine
