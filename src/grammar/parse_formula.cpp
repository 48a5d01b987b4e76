#include "grammar/parse_formula.h"

#include <cstdint>
#include <limits>
#include <vector>

#include "grammar/resolve_argument.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"
#include "state/engine_contract.h"

namespace kxc {

namespace {

constexpr std::size_t kMaxCounter = std::numeric_limits<int16_t>::max();

// The text from the first "(" up to and including the last ")" after it; "" without ")".
std::string argumentText(const std::string& formulaText) {
  std::size_t open = formulaText.find('(');
  if (open == std::string::npos) throw RuntimeError(err::kInvalidCall);
  std::string kept = formulaText.substr(open);
  std::size_t close = kept.rfind(')');
  return close == std::string::npos ? std::string() : kept.substr(0, close + 1);
}

// Splits on commas outside double quotes; double quotes never reach a piece. The counters of
// the walk are 16-bit, so texts beyond 32767 characters or pieces overflow. Quote and comma
// are single bytes in UTF-8 and never part of another character, so a byte walk splits
// correctly; the length limit is counted in characters.
std::vector<std::string> splitPieces(const std::string& text) {
  if (charCount(text) > kMaxCounter) throw RuntimeError(err::kOverflow);
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  pieces.emplace_back();
  bool inQuote = false;
  for (char c : text) {
    if (c == '"') {
      inQuote = !inQuote;
    } else if (c == ',' && !inQuote) {
      if (pieces.size() > kMaxCounter) throw RuntimeError(err::kOverflow);
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

std::string stripEnclosingQuotes(std::string text) {
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

void parseInto(const std::string& formulaText, CacheFormula& record) {
  std::vector<std::string> pieces = splitPieces(argumentText(formulaText));
  if (pieces.empty()) throw RuntimeError(err::kSubscript);
  const auto last = static_cast<int32_t>(pieces.size() - 1);

  record.DimCount = last - 1;
  if (record.DimCount >= 1) record.redimDims(record.DimCount);

  std::string cache = pieces[0];
  if (std::size_t open = cache.rfind('('); open != std::string::npos) {
    cache = cache.substr(open + 1);
  }
  if (endsWith(cache, ")")) cache.pop_back();
  record.Cache = stripEnclosingQuotes(cache);
  record.CacheIndex = cacheEngine().CacheFind(byVal(ResolveArgument(record.Cache))).toInt32();

  if (last >= 1) {
    const std::string& measure = pieces[1];
    record.Measure = endsWith(measure, ")") ? replaceAll(measure, ")", "") : measure;
    record.MeasureIndex = Variant(leadingNumber(ResolveArgument(record.Measure))).toInt32();
  }

  for (int32_t i = 2; i <= last && i <= kMaxDimensionArguments + 1; ++i) {
    std::string dim = pieces[static_cast<std::size_t>(i)];
    if (i == last && !dim.empty()) dim.pop_back();
    record.Dims(i - 1) = stripEnclosingQuotes(trimSpaces(dim));
  }
}

}  // namespace

CacheFormula ParseFormula(const std::string& formulaText) {
  CacheFormula record;
  reportingErrors("TmCacheCommon ParseFormula", [&] { parseInto(formulaText, record); });
  return record;
}

}  // namespace kxc
