#include "platform/qt/font_mapping.h"

#include <QFontInfo>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/qt/qt_text.h"

namespace kxc::qt {

namespace {

constexpr std::array kProportionalFaces{"MS Sans Serif", "MS Shell Dlg", "Tahoma", "Arial",
                                        "System"};
constexpr std::array kFixedFaces{"Courier New", "Courier", "Lucida Console", "Fixedsys",
                                 "Terminal"};

bool isOneOf(const QString& name, const auto& faces) {
  return std::any_of(faces.begin(), faces.end(), [&](const char* face) {
    return name.compare(QLatin1String(face), Qt::CaseInsensitive) == 0;
  });
}

bool looksFixedPitch(const QString& name) {
  return name.contains(QLatin1String("Mono"), Qt::CaseInsensitive) ||
         name.contains(QLatin1String("Courier"), Qt::CaseInsensitive);
}

// The family-name tag of the region whose glyph forms suit the writing system.
QString regionTag(QFontDatabase::WritingSystem system) {
  switch (system) {
    case QFontDatabase::Japanese:
      return QStringLiteral("JP");
    case QFontDatabase::Korean:
      return QStringLiteral("KR");
    case QFontDatabase::SimplifiedChinese:
      return QStringLiteral("SC");
    case QFontDatabase::TraditionalChinese:
      return QStringLiteral("TC");
    default:
      return {};
  }
}

bool hasWord(const QString& family, const QString& word) {
  if (word.isEmpty()) return false;
  const auto words = family.split(u' ', Qt::SkipEmptyParts);
  return std::any_of(words.begin(), words.end(), [&](const QString& w) { return w == word; });
}

QString bestFamilyFor(QFontDatabase::WritingSystem system, bool fixedPitch,
                      const FontCatalog& catalog) {
  const QString region = regionTag(system);
  QString best;
  int bestScore = -1;
  for (const QString& family : catalog.families(system)) {
    int score = 0;
    if (hasWord(family, region)) score += 4;
    if (catalog.isFixedPitch(family) == fixedPitch) score += 2;
    if (family.contains(QLatin1String("Sans")) && !family.contains(QLatin1String("Serif"))) {
      score += 1;
    }
    if (score > bestScore) {
      best = family;
      bestScore = score;
    }
  }
  return best;
}

}  // namespace

QFontDatabase::WritingSystem writingSystemForCharset(int charset) {
  switch (charset) {
    case 128:
      return QFontDatabase::Japanese;
    case 129:
    case 130:
      return QFontDatabase::Korean;
    case 134:
      return QFontDatabase::SimplifiedChinese;
    case 136:
      return QFontDatabase::TraditionalChinese;
    case 161:
      return QFontDatabase::Greek;
    case 162:
    case 186:
    case 238:
      return QFontDatabase::Latin;
    case 163:
      return QFontDatabase::Vietnamese;
    case 177:
      return QFontDatabase::Hebrew;
    case 178:
      return QFontDatabase::Arabic;
    case 204:
      return QFontDatabase::Cyrillic;
    case 222:
      return QFontDatabase::Thai;
    default:
      return QFontDatabase::Any;
  }
}

FontChoice chooseFont(const FontRequest& request, const FontCatalog& catalog) {
  FontChoice choice;
  choice.writingSystem = writingSystemForCharset(request.charset);
  const QString name = toQString(request.name).trimmed();

  if (name.isEmpty() || isOneOf(name, kProportionalFaces)) {
    choice.family = catalog.sansFamily();
    choice.fixedPitch = false;
  } else if (isOneOf(name, kFixedFaces)) {
    choice.family = catalog.monoFamily();
    choice.fixedPitch = true;
  } else {
    choice.family = name;
    choice.fixedPitch =
        catalog.hasFamily(name) ? catalog.isFixedPitch(name) : looksFixedPitch(name);
  }

  if (choice.writingSystem != QFontDatabase::Any) {
    const QStringList able = catalog.families(choice.writingSystem);
    const bool canShow = catalog.hasFamily(choice.family) && able.contains(choice.family);
    if (!canShow && !able.isEmpty()) {
      choice.family = bestFamilyFor(choice.writingSystem, choice.fixedPitch, catalog);
    }
  }
  if (!catalog.hasFamily(choice.family)) {
    choice.family = choice.fixedPitch ? catalog.monoFamily() : catalog.sansFamily();
  }

  const double base = catalog.basePointSize();
  const double size = request.size > 0 ? request.size * base / kDesignFontSize : base;
  choice.pointSize = std::round(size * 4.0) / 4.0;  // quarter points, as sizes are written
  return choice;
}

QFont makeFont(const FontChoice& choice) {
  QFont font(choice.family);
  if (choice.pointSize > 0) font.setPointSizeF(choice.pointSize);
  font.setStyleHint(choice.fixedPitch ? QFont::TypeWriter : QFont::SansSerif);
  return font;
}

bool SystemFontCatalog::hasFamily(const QString& family) const {
  return QFontDatabase::hasFamily(family);
}

bool SystemFontCatalog::isFixedPitch(const QString& family) const {
  return QFontDatabase::isFixedPitch(family);
}

QStringList SystemFontCatalog::families(QFontDatabase::WritingSystem system) const {
  return QFontDatabase::families(system);
}

QString SystemFontCatalog::sansFamily() const {
  return QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family();
}

QString SystemFontCatalog::monoFamily() const {
  return QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
}

double SystemFontCatalog::basePointSize() const {
  const double size = QFontDatabase::systemFont(QFontDatabase::GeneralFont).pointSizeF();
  return size > 0 ? size : 9.0;
}

}  // namespace kxc::qt
