// Registering the engine's dispatch objects with the object factory under their ProgIDs.
#pragma once

#include <memory>

#include "engine/cache_engine.h"
#include "engine/engine_options.h"
#include "platform/object_factory.h"

namespace kxc::engine {

inline constexpr const char* kManagerProgId = "TmBvCacheManager.CacheManager";
inline constexpr const char* kEngineProgId = "KestraCache.Engine";

// Registers both ProgIDs. Every object they create works on one engine core made here (its
// database opens on first use), so the manager's Shutdown releases what the engine loaded.
// Registering again replaces the creators with ones sharing a new core. Returns the core.
std::shared_ptr<CacheEngine> registerEngineObjects(ObjectFactory& factory,
                                                   EngineOptions options = {});

}  // namespace kxc::engine
