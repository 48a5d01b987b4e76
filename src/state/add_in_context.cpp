#include "state/add_in_context.h"

#include <algorithm>

#include "platform/memory_settings_store.h"
#include "platform/runtime_error.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

AddInContext* living = nullptr;

}  // namespace

AddInContext::AddInContext(Setup setup) : factory_(std::make_shared<ObjectFactory>()) {
  if (living) throw RuntimeError(err::kInvalidCall);
  if (!setup.settings) setup.settings = std::make_shared<MemorySettingsStore>();
  previousSetup_.services = setServices(std::move(setup.services));
  previousSetup_.settings = setSettingsStore(std::move(setup.settings));
  previousSetup_.catalogues = setCatalogueOpener(std::move(setup.catalogues));
  previousSetup_.modalLoop = controls::setModalLoop(std::move(setup.modalLoop));
  previousFactory_ = setObjectFactory(factory_);
  living = this;
  resetGlobals();
}

AddInContext::~AddInContext() {
  gWriteBack.reset();
  releaseOwnedObjects();
  resetGlobals();
  living = nullptr;
  setObjectFactory(std::move(previousFactory_));
  controls::setModalLoop(std::move(previousSetup_.modalLoop));
  setCatalogueOpener(std::move(previousSetup_.catalogues));
  setSettingsStore(std::move(previousSetup_.settings));
  setServices(std::move(previousSetup_.services));
}

AddInContext& AddInContext::current() {
  if (!living) throw RuntimeError(err::kObjectNotSet);
  return *living;
}

bool AddInContext::exists() { return living != nullptr; }

void AddInContext::stamp(std::type_index type) {
  std::erase(madeOrder_, type);
  madeOrder_.push_back(type);
}

void AddInContext::throwObjectNotSet() { throw RuntimeError(err::kObjectNotSet); }

// Newest first: a dialog made after the event sink may still talk to it while it goes.
void AddInContext::releaseOwnedObjects() {
  while (!madeOrder_.empty()) {
    std::type_index type = madeOrder_.back();
    madeOrder_.pop_back();
    auto it = slots_.find(type);
    if (it != slots_.end()) it->second->releaseObject();
  }
}

}  // namespace kxc
