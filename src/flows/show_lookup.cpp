#include "flows/show_lookup.h"

#include <memory>

#include "dialogs/frm_cache_formula.h"
#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/text_rules.h"
#include "state/add_in_context.h"
#include "state/engine_contract.h"
#include "state/tm_globals.h"
#include "state/translation.h"

namespace kxc {

namespace {

constexpr int32_t kSingleNameLayout = 1;
constexpr int32_t kIndexNameLayout = 2;
constexpr int32_t kNameDescriptionLayout = 3;

// The lookup never creates the builder just to show its hourglass.
void setBuilderPointer(int pointer) {
  const std::shared_ptr<FrmCacheFormula>& builder = AddInContext::current().find<FrmCacheFormula>();
  if (builder) builder->form().setMousePointer(pointer);
}

void fillCaches(FrmLookup& lookup) {
  lookup.SetLvHeaders(kSingleNameLayout);
  controls::ListItems& items = lookup.lvList().listItems();
  const int32_t count = cacheEngine().CacheCount().toInt32();
  for (int32_t i = 1; i <= count; ++i) {
    int32_t index = i;
    std::string name = cacheEngine().cachename(byRef(index)).toText();
    items.add(i, "|cache" + std::to_string(i), std::move(name));
  }
  lookup.ListVSingleMode("True");
  lookup.lvList().setMultiSelect(false);
  lookup.form().setCaption(flowText("@KES_CACHE"));
}

void fillMeasures(FrmLookup& lookup, std::string& cache) {
  lookup.SetLvHeaders(kIndexNameLayout);
  controls::ListItems& items = lookup.lvList().listItems();
  const int32_t count = cacheEngine().MeasureCount(byRef(cache)).toInt32();
  for (int32_t i = 1; i <= count; ++i) {
    controls::ListItem item = items.add(i, "measure" + std::to_string(i), std::to_string(i));
    int32_t index = i;
    item.setSubItem(1, cacheEngine().MeasureCaption(byRef(cache), byRef(index)).toText());
  }
  lookup.ListVSingleMode("True");
  lookup.lvList().setMultiSelect(false);
  lookup.form().setCaption(flowText("@CUBE_MEASURE_X"));
}

void fillMembers(FrmLookup& lookup, std::string& cache, const std::string& kind) {
  int32_t dimension = Variant(replaceAll(kind, "Dim", "")).toInt32();
  lookup.SetLvHeaders(kNameDescriptionLayout);
  controls::ListItems& items = lookup.lvList().listItems();
  const int32_t count =
      cacheEngine().DimensionMemberCount(byRef(cache), byRef(dimension)).toInt32();
  for (int32_t j = 1; j <= count; ++j) {
    int32_t member = j;
    std::string value =
        cacheEngine().DimensionMemberValue(byRef(cache), byRef(dimension), byRef(member)).toText();
    controls::ListItem item = items.add(j, "dim" + std::to_string(j), std::move(value));
    member = j;
    item.setSubItem(1, cacheEngine()
                           .DimensionMemberCaption(byRef(cache), byRef(dimension), byRef(member))
                           .toText());
  }
  items.add(1, "1all", "<ALL>");
  lookup.ListVSingleMode("False");
  lookup.lvList().setMultiSelect(true);
  lookup.form().setCaption(cacheEngine().DimensionCaption(byRef(cache), byRef(dimension)).toText());
}

void preselectRow(FrmLookup& lookup, const Variant& current) {
  controls::ListItems& items = lookup.lvList().listItems();
  const double row = current.toDouble();
  if (row >= 1 && row <= items.count()) items.item(current.toInt32()).setSelected(true);
}

void preselectMembers(FrmLookup& lookup, const Variant& current) {
  int32_t row = 0;
  if (lookup.MultipleSelectSet(current.toText(), row) != 1) return;
  lookup.lvList().listItems().item(row == 0 ? 1 : row).setSelected(true);
}

}  // namespace

bool isDimensionKind(std::string_view kind) {
  return (kind >= "Dim1" && kind <= "Dim9") || (kind >= "Dim10" && kind <= "Dim20");
}

FrmLookup& frmLookup() {
  return *AddInContext::current().single<FrmLookup>(
      [] { return std::make_shared<FrmLookup>(languageFormTranslator(), gLookupSelection); });
}

LookupChoice ShowLookup(std::string& kind, std::string& cache, const Variant& current) {
  // Until a dialog is read, the caller goes on with the last recorded selection.
  LookupChoice result{Variant(), gLookupSelection};
  reportingErrors("TmCacheCommon ShowLookup", [&] {
    setBuilderPointer(controls::kPointerHourglass);
    FrmLookup& lookup = frmLookup();
    lookup.form().load();
    lookup.lvList().listItems().clear();

    const bool dimension = isDimensionKind(kind);
    if (kind == "Cache") {
      fillCaches(lookup);
    } else if (kind == "Measure") {
      fillMeasures(lookup, cache);
    } else if (dimension) {
      fillMembers(lookup, cache, kind);
    }

    if (kind == "Cache" || kind == "Measure") {
      preselectRow(lookup, current);
    } else if (dimension) {
      preselectMembers(lookup, current);
    }

    lookup.form().show(1);
    result.index = Variant(lookup.SelectedIndex());
    result.selection = lookup.ChosenSelection();
    setBuilderPointer(controls::kPointerDefault);
    lookup.form().unload();
    services().doEvents();
  });
  return result;
}

int32_t LookupDimension(int32_t& d) {
  LookupChoice result;
  ignoringErrors([&] {
    setBuilderPointer(controls::kPointerHourglass);
    CacheFormula& f = gCurrentFormula;
    const int32_t cacheDimensions =
        cacheEngine().DimensionCount(byVal(ResolveArgument(f.Cache))).toInt32();
    if (cacheDimensions > f.DimCount) {
      f.DimCount = cacheDimensions;
      f.redimDimsPreserve(cacheDimensions);
    }
    std::string kind = "Dim" + std::to_string(d);
    std::string cache = ResolveArgument(f.Cache);
    result = ShowLookup(kind, cache, Variant(ResolveArgument(f.Dims(d))));
    if (result.index.toDouble() != -1) f.Dims(d) = result.selection;
    setBuilderPointer(controls::kPointerDefault);
  });
  int32_t chosen = 0;
  ignoringErrors([&] { chosen = result.index.toInt32(); });
  return chosen;
}

}  // namespace kxc
