#include "number_fit.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace kxc::workbench {

namespace {

constexpr int kSignificantDigits = 15;
constexpr int kMaxMantissaDecimals = 14;
constexpr int kMaxHashes = 255;
// Below this magnitude plain notation would be all zeros; above it, digits past the 15th.
constexpr double kSmallest = 1e-9;
constexpr double kLargest = 1e15;

std::string printed(const char* format, int precision, double value) {
  char buffer[400];
  std::snprintf(buffer, sizeof buffer, format, precision, value);
  return buffer;
}

// "2.50" -> "2.5", "3.000" -> "3", "-0" -> "0".
std::string trimmedFixed(std::string text) {
  if (text.find('.') != std::string::npos) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  if (text == "-0") text = "0";
  return text;
}

// "1.2300E+10" -> "1.23E+10".
std::string trimmedScientific(const std::string& text) {
  const size_t e = text.find('E');
  return trimmedFixed(text.substr(0, e)) + text.substr(e);
}

// Rounds a plain decimal text ("-12.345") to `decimals` places, halves away from zero, as a
// spreadsheet rounds what it shows; works on the digits so that 0.125 becomes 0.13.
std::string roundedDecimals(const std::string& text, int decimals) {
  const size_t point = text.find('.');
  if (point == std::string::npos || text.size() - point - 1 <= static_cast<size_t>(decimals)) {
    return text;
  }
  const size_t cut = point + (decimals > 0 ? 1 + static_cast<size_t>(decimals) : 0);
  const bool up = text[point + 1 + static_cast<size_t>(decimals)] >= '5';
  std::string kept = text.substr(0, cut);
  if (!up) return kept;
  const size_t signs = kept[0] == '-' ? 1 : 0;
  size_t i = kept.size();
  while (i > signs) {
    --i;
    if (kept[i] == '.') continue;
    if (kept[i] != '9') {
      ++kept[i];
      return kept;
    }
    kept[i] = '0';
  }
  kept.insert(signs, "1");
  return kept;
}

}  // namespace

std::string fitNumberText(double value, const FitsCell& fits) {
  if (!std::isfinite(value)) return "#NUM!";
  const double magnitude = std::fabs(value);
  if (magnitude == 0) return "0";

  if (magnitude >= kSmallest && magnitude < kLargest) {
    const int integerDigits = static_cast<int>(std::floor(std::log10(magnitude))) + 1;
    const int most = kSignificantDigits - integerDigits;
    const std::string full = printed("%.*f", std::max(most, 0), value);
    for (int decimals = most; decimals >= 0; --decimals) {
      std::string text = trimmedFixed(roundedDecimals(full, decimals));
      // A number that is not zero never shows as "0": scientific notation keeps its digit.
      if (text == "0") break;
      if (fits(text)) return text;
    }
  }
  for (int decimals = kMaxMantissaDecimals; decimals >= 0; --decimals) {
    std::string text = trimmedScientific(printed("%.*E", decimals, value));
    if (fits(text)) return text;
  }
  std::string hashes = "#";
  while (hashes.size() < kMaxHashes && fits(hashes + "#")) hashes += "#";
  return hashes;
}

}  // namespace kxc::workbench
