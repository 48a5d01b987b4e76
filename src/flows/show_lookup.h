// The member lookup flow: offering the engine's caches, measures or the members of one
// dimension in the modal lookup dialog, and the builder's lookup of one dimension filter.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dialogs/frm_lookup.h"
#include "platform/variant.h"

namespace kxc {

// What the lookup answered: the dialog's SelectedIndex as a 32-bit integer (the chosen row, -1
// on cancel; Empty when the lookup failed before the dialog was read), and the selection text
// the dialog chose (when no dialog was read, the last one recorded in gLookupSelection).
struct LookupChoice {
  Variant index;
  std::string selection;
};

// Fills the lookup dialog for `kind`, shows it modally and returns what was chosen.
//  - "Cache": the engine's caches (keys "|cache" and the index), single selection; `current`
//    is the index of the row to pre-select (nothing when it is not between 1 and the count).
//  - "Measure": the measures of `cache` (row text the index, sub-item the caption), single
//    selection, `current` as for "Cache".
//  - a dimension kind (isDimensionKind; the number is the kind without "Dim"): a first row
//    "<ALL>" (key "1all"), then the members of that dimension of `cache` (value, caption),
//    multiple selection; `current` is the filter text in the selection encoding, and the rows
//    it names are pre-selected. The chosen members come back as the selection text; the
//    dialog also records them in gLookupSelection.
//  - any other kind: the dialog is shown empty.
// The builder, when it exists, shows the hourglass meanwhile. `cache` is the resolved cache
// name; it and every dimension and member number go to the engine by reference. Errors are
// reported as "TmCacheCommon ShowLookup" and end the call at once (the hourglass stays).
LookupChoice ShowLookup(std::string& kind, std::string& cache, const Variant& current);

// The builder's lookup of dimension `d` of gCurrentFormula: widens DimCount and the argument
// array to the cache's dimension count when that is larger, offers the members with the
// current filter pre-selected, and unless the lookup returns -1 stores the chosen selection as
// argument `d`. Returns the lookup's result (0 when it gave none). Errors end it silently.
int32_t LookupDimension(int32_t& d);

// True for the kinds that name a dimension: by plain code-unit comparison between "Dim1" and
// "Dim9" inclusive, or between "Dim10" and "Dim20" inclusive. This admits texts such as
// "Dim100" and "Dim21" as well (they sort between "Dim1" and "Dim9").
bool isDimensionKind(std::string_view kind);

// The add-in context's one lookup dialog, created on first use over the process's translation
// and gLookupSelection.
FrmLookup& frmLookup();

}  // namespace kxc
