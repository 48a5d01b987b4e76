// The set-up of the formula flow and builder tests: an add-in context with a recording engine
// that answers like a small cache store, an in-memory workbook as the host, settings in memory,
// a catalogue in memory and recorded message boxes.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "facade/add_in_setup.h"
#include "flows/formula_builder.h"
#include "flows/show_formula_edit.h"
#include "flows/show_lookup.h"
#include "language/catalogue_folder.h"
#include "platform/catalogue_table.h"
#include "platform/controls/modal_loop.h"
#include "platform/memory_settings_store.h"
#include "platform/tm_win_reg.h"
#include "platform/workbook/in_memory_application.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"
#include "support/recording_context.h"
#include "support/recording_engine.h"

namespace kxc::testing {

// Message boxes print as their text, title and style in failure reports.
inline void PrintTo(const MessageRecord& m, std::ostream* os) {
  *os << "{\"" << m.text << "\", \"" << m.title << "\", " << m.style << "}";
}

struct DimensionSpec {
  std::string caption;
  std::vector<std::string> members;  // values; the caption of a member is "<value> (caption)"
};

struct CacheSpec {
  std::string name;
  std::vector<DimensionSpec> dimensions;
  std::vector<std::string> measures;
};

// Two caches: "Sales" with five dimensions and two measures, "Stock" with two and one.
inline std::vector<CacheSpec> sampleCaches() {
  return {
      {"Sales",
       {{"Region", {"North", "South", "West"}},
        {"Product", {"Apples", "Pears"}},
        {"Year", {"2003", "2004"}},
        {"Channel", {"Retail", "Web"}},
        {"Month", {"Jan", "Feb"}}},
       {"Amount", "Units", "Margin"}},
      {"Stock", {{"Warehouse", {"A", "B"}}, {"Item", {"Bolts"}}}, {"Quantity"}},
  };
}

// Scripts `engine` to answer the data members from `caches`: indices are 1-based, unknown
// caches are not found (CacheFind 0, EnsureCacheLoad -1, counts 0), an index out of range
// raises 9. Values are always `value`; CacheFormatCurrency answers "fmt(ci,mi,value)".
inline void scriptCaches(RecordingEngine& engine, std::vector<CacheSpec> caches,
                         double value = 250) {
  auto model = std::make_shared<std::vector<CacheSpec>>(std::move(caches));
  auto find = [model](const Variant& name) -> const CacheSpec* {
    for (const auto& c : *model) {
      if (c.name == name.toText()) return &c;
    }
    return nullptr;
  };
  auto indexOf = [model](const Variant& name) -> int32_t {
    for (std::size_t i = 0; i < model->size(); ++i) {
      if ((*model)[i].name == name.toText()) return static_cast<int32_t>(i + 1);
    }
    return 0;
  };
  auto at = [](auto& list, const Variant& index) -> auto& {
    int32_t i = index.toInt32();
    if (i < 1 || i > static_cast<int32_t>(list.size())) throw RuntimeError(err::kSubscript);
    return list[static_cast<std::size_t>(i - 1)];
  };
  engine.script("CacheCount", [model](Arguments) { return Variant(int32_t(model->size())); });
  engine.script("cachename",
                [model, at](Arguments a) { return Variant(at(*model, argAt(a, 0)).name); });
  engine.script("CacheFind", [indexOf](Arguments a) { return Variant(indexOf(argAt(a, 0))); });
  engine.script("EnsureCacheLoad", [indexOf](Arguments a) {
    int32_t i = indexOf(argAt(a, 0));
    return Variant(i == 0 ? int32_t{-1} : i);
  });
  engine.script("MeasureCount", [find](Arguments a) {
    const CacheSpec* c = find(argAt(a, 0));
    return Variant(int32_t(c ? c->measures.size() : 0));
  });
  engine.script("MeasureCaption", [find, at](Arguments a) {
    const CacheSpec* c = find(argAt(a, 0));
    if (!c) throw RuntimeError(err::kSubscript);
    return Variant(at(c->measures, argAt(a, 1)));
  });
  engine.script("DimensionCount", [find](Arguments a) {
    const CacheSpec* c = find(argAt(a, 0));
    return Variant(int32_t(c ? c->dimensions.size() : 0));
  });
  engine.script("DimensionCaption", [find, at](Arguments a) {
    const CacheSpec* c = find(argAt(a, 0));
    if (!c) throw RuntimeError(err::kSubscript);
    return Variant(at(c->dimensions, argAt(a, 1)).caption);
  });
  engine.script("DimensionMemberCount", [find, at](Arguments a) {
    const CacheSpec* c = find(argAt(a, 0));
    if (!c) throw RuntimeError(err::kSubscript);
    return Variant(int32_t(at(c->dimensions, argAt(a, 1)).members.size()));
  });
  engine.script("DimensionMemberValue", [find, at](Arguments a) {
    const CacheSpec* c = find(argAt(a, 0));
    if (!c) throw RuntimeError(err::kSubscript);
    return Variant(at(at(c->dimensions, argAt(a, 1)).members, argAt(a, 2)));
  });
  engine.script("DimensionMemberCaption", [find, at](Arguments a) {
    const CacheSpec* c = find(argAt(a, 0));
    if (!c) throw RuntimeError(err::kSubscript);
    return Variant(at(at(c->dimensions, argAt(a, 1)).members, argAt(a, 2)) + " (caption)");
  });
  engine.script("CacheGetValueAllAggregationTypes", Variant(value));
  engine.script("CacheFormatCurrency", [](Arguments a) {
    return Variant("fmt(" + argAt(a, 0).toText() + "," + argAt(a, 1).toText() + "," +
                   argAt(a, 2).toText() + ")");
  });
}

// A catalogue with the texts the builder and the lookup use; other keys show "!!" and code.
inline std::shared_ptr<const CatalogueTable> sampleCatalogue() {
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"FORMULA_VALUE", "Value"},
      {"FORMULA%", "%%1 Formula"},
      {"KES_CACHE", "Cache"},
      {"CUBE_MEASURE_X", "Measure"},
      {"KCUBE_DIMENS", "Dimensions"},
      {"OK&", "&OK"},
      {"CANCEL&", "&Cancel"},
      {"FILE&", "&File"},
      {"MANAGER%", "%%1 Manager"},
      {"KXC_CACHE", "Kestra"},
      {"TRANS_DRILLDWN", "Transaction Drilldown"},
      {"EXIT&", "E&xit"},
      {"HELP&", "&Help"},
      {"HELP", "Help Topics"},
      {"DIMENSION_NAME", "Dimension"},
      {"FILTER", "Filter"},
      {"VALUE", "Member"},
      {"NAME", "Name"},
      {"INDEX", "Index"},
      {"DESCRIPTION", "Description"},
  };
  std::vector<CatalogueRow> rows;
  for (const auto& [code, text] : texts) {
    rows.push_back({std::to_string(rows.size() + 1), code, text});
  }
  return std::make_shared<MemoryCatalogueTable>(std::vector<std::string>{"ID", "Code", "L0"},
                                                std::move(rows));
}

// Opens the sample catalogue for the catalogue file; nothing else.
inline CatalogueOpener sampleCatalogueOpener() {
  return [](const std::string& path) -> std::shared_ptr<const CatalogueTable> {
    if (path.ends_with(kCatalogueFileName)) return sampleCatalogue();
    return nullptr;
  };
}

class FlowsFixture : public ::testing::Test {
 protected:
  FlowsFixture() {
    installAddIn(context());
    app->addWorkbook("Book1.xlsx");
    app->addSheet("Book1.xlsx", "Sheet2");
    gCacheEngine = engine;
    gExcelSink->Initialise(app);
    scriptCaches(*engine, sampleCaches());
    services->windowTitles = {"Terminal", app->caption() + " - Book1.xlsx"};
  }

  FrmCacheFormula& dialog() { return frmCacheFormula(); }

  // Opens the builder on the formula of `reference`, as a double-click on the cell does.
  void openBuilderOn(const std::string& reference) {
    app->select(reference);
    gActiveCell = app->range(reference);
    std::string formula = gActiveCell->formula();
    ShowFormulaEdit(formula);
  }

  // While the guard lives, each modal lookup is answered by `user` acting on the dialog (the
  // dialog's caption and rows are recorded in lookupsShown first).
  controls::ScopedModalLoop answerLookups(std::function<void(FrmLookup&)> user) {
    return controls::ScopedModalLoop([this, user](controls::Form& form) {
      lookupsShown.push_back(form.caption());
      user(frmLookup());
    });
  }

  // Rows of the lookup list as "text|sub-item", and the selected rows' texts.
  static std::vector<std::string> lookupRows(FrmLookup& lookup) {
    std::vector<std::string> out;
    auto& items = lookup.lvList().listItems();
    for (int32_t i = 1; i <= items.count(); ++i) {
      std::string sub;
      if (lookup.lvList().columnHeaders().count() > 1) sub = items.subItem(i, 1);
      out.push_back(items.text(i) + "|" + sub);
    }
    return out;
  }
  static std::vector<std::string> selectedTexts(FrmLookup& lookup) {
    std::vector<std::string> out;
    auto& items = lookup.lvList().listItems();
    for (int32_t i = 1; i <= items.count(); ++i) {
      if (items.selected(i)) out.push_back(items.text(i));
    }
    return out;
  }
  // Clicks the row whose text is `text` (with Ctrl when `add`), as the user picks it.
  static void pick(FrmLookup& lookup, const std::string& text, bool add = false) {
    auto& items = lookup.lvList().listItems();
    for (int32_t i = 1; i <= items.count(); ++i) {
      if (items.text(i) == text) {
        lookup.lvList().clickItem(i, add ? controls::keys::kCtrl : 0);
        return;
      }
    }
    ADD_FAILURE() << "no row " << text;
  }

  // The per-user choices under "Software\Kestra\Cache".
  void remember(const std::string& name, const std::string& value) {
    ASSERT_TRUE(store->createKey(SettingsRoot::User, kCacheSettingsKey));
    ASSERT_TRUE(store->writeValue(SettingsRoot::User, kCacheSettingsKey, name, value));
  }
  std::optional<std::string> remembered(const std::string& name) {
    return store->readValue(SettingsRoot::User, kCacheSettingsKey, name);
  }

  std::string formulaOf(const std::string& reference) { return app->range(reference)->formula(); }

  // The grid as "caption|filter|value" per row.
  std::vector<std::string> gridRows() {
    std::vector<std::string> out;
    auto& items = dialog().lvDimensions().listItems();
    for (int32_t i = 1; i <= items.count(); ++i) {
      out.push_back(items.text(i) + "|" + items.subItem(i, 1) + "|" + items.subItem(i, 2));
    }
    return out;
  }

  std::vector<MessageRecord> messages() { return services->messages; }

  AddInContext& context() { return recording.context(); }

  std::vector<std::string> lookupsShown;
  std::shared_ptr<MemorySettingsStore> store = std::make_shared<MemorySettingsStore>();
  RecordingContext recording{sampleCatalogueOpener(), store};
  RecordingServices* services = &recording.services();
  std::shared_ptr<RecordingEngine> engine = std::make_shared<RecordingEngine>();
  std::shared_ptr<workbook::InMemoryApplication> app = workbook::InMemoryApplication::create();
};

}  // namespace kxc::testing
