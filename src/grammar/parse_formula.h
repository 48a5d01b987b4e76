// ParseFormula: splits cache formula text into a CacheFormula record.
#pragma once

#include <string>

#include "state/cache_formula.h"

namespace kxc {

// At most this many dimension arguments are stored; later ones are counted but skipped.
inline constexpr int kMaxDimensionArguments = 20;

// Takes "=BV_KXCSUM(cache,measure,dim1,...)" apart. Only the text from the first "(" to the
// last ")" is read; the function name is never looked at. Arguments are split on commas
// outside double quotes, and every double quote is dropped. Cache is the first argument
// without its parentheses; CacheIndex is the engine's CacheFind of the resolved cache (on
// gCacheEngine); Measure is the second argument as written (every ")" removed when it is the
// last one) and MeasureIndex the leading number of its resolved value, halves rounded to
// even; Dims(1..20) are the further arguments, blanks around them trimmed.
//
// Never raises: an error (no "(", nothing after it, more than 32767 characters or pieces,
// a failing CacheFind) is reported as its description followed by
// " TmCacheCommon ParseFormula" in the "Error" message box, and the record is returned as
// far as it was filled.
CacheFormula ParseFormula(const std::string& formulaText);

}  // namespace kxc
