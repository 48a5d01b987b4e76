// WriteCacheFormula: rebuilds cache formula text from a record and writes it into the cell.
#pragma once

#include <string>

#include "state/cache_formula.h"

namespace kxc {

// The formula text of a record: "=BV_KXCSUM(" cache "," measure { "," dimension } ")". The
// cache is quoted unless it is a reference (see isReference), the measure is always bare;
// a dimension is bare when it is a reference, quoted otherwise, "<ALL>" in quotes when empty
// and followed by a filtered one; trailing empty dimensions are left out. Never raises.
std::string cacheFormulaText(const CacheFormula& formula);

// Ends an edit of gActiveCell; the formula builder calls it as it closes, with its Cancelled
// (having unloaded itself). Cancelled: releases gActiveCell, lets pending events run and
// leaves the cell alone. Otherwise writes cacheFormulaText(gCurrentFormula) into gActiveCell's
// formula. Every numbered error is ignored (with no active cell the text is lost silently).
void WriteCacheFormula(bool builderCancelled);

}  // namespace kxc
