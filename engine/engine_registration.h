// Making the engine a configuration asks for, and registering its dispatch objects.
#pragma once

#include <memory>

#include "engine/contract/cache_engine.h"
#include "engine/contract/engine_options.h"
#include "engine/contract/object_registration.h"
#include "platform/object_factory.h"

namespace kxc::engine {

// An engine core on the backend the options choose (resolvedEngine): the embedded one, or a
// ClickHouse cluster. Nothing is opened yet: the backend opens on the first call that needs
// it. Raises 5 for an engine address that cannot be used.
std::shared_ptr<CacheEngine> makeEngine(EngineOptions options = {});

// Registers both ProgIDs on a core made by makeEngine(options). Every object they create works
// on that one core (its store opens on first use). Registering again replaces the creators with
// ones sharing a new core. Returns the core.
std::shared_ptr<CacheEngine> registerEngineObjects(ObjectFactory& factory,
                                                   EngineOptions options = {});

}  // namespace kxc::engine
