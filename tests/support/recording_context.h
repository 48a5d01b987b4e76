// The add-in context a test makes: message boxes recorded and answered from a script, settings
// in memory, the catalogues the test gives. It ends with the test, so nothing one test leaves in
// the process reaches the next, even when an assertion stops the test half-way.
#pragma once

#include <memory>
#include <utility>

#include "platform/memory_settings_store.h"
#include "state/add_in_context.h"
#include "support/recording_services.h"

namespace kxc::testing {

class RecordingContext {
 public:
  explicit RecordingContext(CatalogueOpener catalogues = {},
                            std::shared_ptr<SettingsStore> settings = nullptr)
      : services_(std::make_shared<RecordingServices>()),
        settings_(settings ? std::move(settings) : std::make_shared<MemorySettingsStore>()),
        context_(AddInContext::Setup{services_, settings_, std::move(catalogues), {}}) {}

  RecordingServices& services() { return *services_; }
  SettingsStore& settings() { return *settings_; }
  AddInContext& context() { return context_; }

 private:
  std::shared_ptr<RecordingServices> services_;
  std::shared_ptr<SettingsStore> settings_;
  AddInContext context_;
};

}  // namespace kxc::testing
