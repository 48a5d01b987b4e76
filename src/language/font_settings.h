// The per-language font settings read from the language details table, and the size rule
// that form translation applies with them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kxc {

class CatalogueTable;

inline constexpr const char* kDefaultProportionalFont = "MS Sans Serif";
inline constexpr const char* kDefaultFixedFont = "Courier New";

struct FontSettings {
  std::string proportionalName = kDefaultProportionalFont;  // the "_Font" row
  std::string fixedName = kDefaultFixedFont;                // the "_FontFixed" row
  int16_t charSet = 0;                                      // the "_F1CharSet" row
  bool doubleByte = false;                                  // languages 1, 6 and 7

  // The settings of `language` from `details` (null when the table is not open). A missing
  // row, a null value or a character set that is no 16-bit number keeps the default.
  static FontSettings load(const CatalogueTable* details, int16_t language);
};

// The details key of a language's row: the number as two digits, then the suffix ("03_Font").
std::string detailsKey(int language, const char* suffix);

// The size a control of `size` points gets, or nullopt when it keeps its size. With s the
// whole-number part: double-byte languages raise s < 9 to 9; else the character sets 128, 130,
// 134 and 136 raise s < 10 to 10; else a size of 9 becomes 8.
std::optional<double> translatedFontSize(double size, const FontSettings& fonts);

}  // namespace kxc
