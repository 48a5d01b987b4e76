// Registering the engine's dispatch objects with the object factory under their ProgIDs.
#pragma once

#include <memory>

#include "engine/contract/cache_engine.h"
#include "platform/object_factory.h"

namespace kxc::engine {

inline constexpr const char* kManagerProgId = "TmBvCacheManager.CacheManager";
inline constexpr const char* kEngineProgId = "KestraCache.Engine";

// Registers both ProgIDs. Every object they create works on `core`, so the manager's Shutdown
// releases what the engine loaded. Registering again replaces the creators.
void registerEngineObjects(ObjectFactory& factory, std::shared_ptr<CacheEngine> core);

}  // namespace kxc::engine
