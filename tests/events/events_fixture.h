// The set-up of the host integration tests: the formula flows' world (recording engine with two
// caches, in-memory workbook, catalogue, recorded message boxes) with the whole add-in
// installed, the cache function answering in the workbook, and the menu texts translated.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "facade/add_in_setup.h"
#include "facade/cache_ui.h"
#include "flows/flows_fixture.h"
#include "platform/cache_function_name.h"

namespace kxc::testing {

// The menu captions, then the flows' catalogue (the first row of a code wins).
inline std::shared_ptr<const CatalogueTable> hostCatalogue() {
  std::vector<CatalogueRow> rows = {
      {"900", "KES_CACHE", "Cache"},
      {"901", "FORMULA%", "%%1 Formula"},
      {"902", "TRANS_DRILLDWN", "Transaction Drilldown"},
      {"903", "KES_CACHE_MAN", "Cache Manager"},
      {"904", "LANGUAGE", "Language"},
  };
  auto base = sampleCatalogue();
  for (std::size_t r = 0; r < base->rowCount(); ++r) {
    rows.push_back({base->value(r, 0), base->value(r, 1), base->value(r, 2)});
  }
  return std::make_shared<MemoryCatalogueTable>(base->columnNames(), std::move(rows));
}

class HostFixture : public FlowsFixture {
 protected:
  HostFixture() {
    setCatalogueOpener([](const std::string& path) -> std::shared_ptr<const CatalogueTable> {
      if (path.ends_with(kCatalogueFileName)) return hostCatalogue();
      return nullptr;
    });
    app->registerFunction(std::string(kCacheFunctionName),
                          [](std::span<const Variant>) { return Variant(250.0); });
  }

  host::Worksheet& sheet1() { return *app->range("A1")->worksheet(); }
  std::vector<LoggedCall> writeBacks() const { return engine->callsTo("CacheWriteBack"); }

  CacheUI ui;
};

}  // namespace kxc::testing
