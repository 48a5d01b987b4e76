// The CacheFormula record as JSON text, for tools: written by formula parse, read by
// formula write.
#pragma once

#include <string>
#include <string_view>

#include "state/cache_formula.h"

namespace kxc {

// An object with the fields in record order, two-space indented, ending in a newline:
// {"Cache": text, "CacheIndex": number, "Measure": text, "MeasureIndex": number,
//  "DimCount": number, "Dims": [texts] or null when the array does not exist}.
// Texts are escaped as JSON requires; bytes that are not valid UTF-8 become U+FFFD.
std::string cacheFormulaToJson(const CacheFormula& formula);

// Reads such an object. Every field may be left out (it keeps its empty value); a missing
// DimCount is the length of Dims; Dims entries may be null (read as ""). Unknown fields are
// ignored. The numbers must be whole and fit 32 bits. On failure returns false and sets
// `error` to what was wrong and where ("expected ':' at offset 9"); `out` is then unchanged.
bool cacheFormulaFromJson(std::string_view json, CacheFormula& out, std::string& error);

}  // namespace kxc
