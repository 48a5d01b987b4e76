// The formula builder as the flows run it: the add-in context's one builder, and what its
// lookup buttons, dimension editor and menu commands do.
#pragma once

#include <string>

#include "dialogs/frm_cache_formula.h"

namespace kxc {

// The add-in context's one builder, created on first use with these handlers wired to its
// controls:
//  - cmdCache: the lookup of caches; choosing another cache than the one shown starts a new
//    formula on it and remembers it as "CacheName". Errors: "clsBvCubeQueryUI Initialise".
//  - cmdMeasureIndex: the lookup of the cache's measures; the chosen index becomes the measure
//    and is remembered as "MeasureIndex". Errors: "frmCacheFormula CmdMeasureIndex".
//  - cmdDimension and a double-click in the grid: the lookup of the selected row's members;
//    the choice becomes that dimension's argument. Errors: "Cmd Dimension Click" (the
//    double-click ignores them).
//  - txtDimensions: typing stores the text as the selected row's argument (widening the
//    formula to the cache's dimensions first). Errors: "Txt Dimensions OnChange".
//  - the File menu's manager and drill-down items: PopUpMenuClick.
// Every change shows the formula's value again.
FrmCacheFormula& frmCacheFormula();

// Runs a menu command of `dialog`: "Manager" opens the engine's cache manager window,
// "TransDrill" the transaction drill-down of gCurrentFormula; any other word does nothing.
// Errors are reported as "PopUpMenuClick - FrmCacheFormula".
void PopUpMenuClick(FrmCacheFormula& dialog, const std::string& command);

}  // namespace kxc
