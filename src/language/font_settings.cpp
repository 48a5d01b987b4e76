#include "language/font_settings.h"

#include <cmath>
#include <cstdio>

#include "platform/catalogue_table.h"
#include "platform/runtime_error.h"
#include "platform/variant.h"

namespace kxc {

std::string detailsKey(int language, const char* suffix) {
  char number[16];
  std::snprintf(number, sizeof number, "%02d", language);
  return number + std::string(suffix);
}

namespace {

std::optional<std::string> detail(const CatalogueTable* details, int16_t language,
                                  const char* suffix) {
  if (!details) return std::nullopt;
  auto row = details->findFirst("KeyID", detailsKey(language, suffix));
  if (!row) return std::nullopt;
  return details->value(*row, 2);
}

}  // namespace

FontSettings FontSettings::load(const CatalogueTable* details, int16_t language) {
  FontSettings fonts;
  if (auto name = detail(details, language, "_FontFixed")) fonts.fixedName = *name;
  if (auto name = detail(details, language, "_Font")) fonts.proportionalName = *name;
  if (auto charSet = detail(details, language, "_F1CharSet")) {
    try {
      fonts.charSet = Variant(*charSet).toInt16();
    } catch (const RuntimeError&) {
      fonts.charSet = 0;
    }
  }
  fonts.doubleByte = language == 1 || language == 6 || language == 7;
  return fonts;
}

std::optional<double> translatedFontSize(double size, const FontSettings& fonts) {
  double s = std::trunc(size);
  if (fonts.doubleByte) return s < 9 ? std::optional<double>(9) : std::nullopt;
  switch (fonts.charSet) {
    case 128:
    case 130:
    case 134:
    case 136:
      return s < 10 ? std::optional<double>(10) : std::nullopt;
    default:
      return s == 9 ? std::optional<double>(8) : std::nullopt;
  }
}

}  // namespace kxc
