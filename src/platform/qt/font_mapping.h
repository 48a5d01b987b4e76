// Mapping the control model's fonts (name, size in points, character set) to Qt fonts: the
// design-time faces become the desktop's faces, character sets become writing systems,
// and a family that cannot show the writing system is replaced by one that can.
#pragma once

#include <QFont>
#include <QFontDatabase>
#include <QString>
#include <QStringList>
#include <string>

namespace kxc::qt {

// The size the model's design-time font has; a control of that size gets the desktop's size.
inline constexpr double kDesignFontSize = 8.25;

struct FontRequest {
  std::string name;
  double size = kDesignFontSize;
  int charset = 0;
};

struct FontChoice {
  QString family;
  double pointSize = 0;
  QFontDatabase::WritingSystem writingSystem = QFontDatabase::Any;
  bool fixedPitch = false;
  bool operator==(const FontChoice&) const = default;
};

// What the font chooser needs to know of the installed fonts.
class FontCatalog {
 public:
  virtual ~FontCatalog() = default;
  virtual bool hasFamily(const QString& family) const = 0;
  virtual bool isFixedPitch(const QString& family) const = 0;
  // The families that can show `system`, in the database's order.
  virtual QStringList families(QFontDatabase::WritingSystem system) const = 0;
  virtual QString sansFamily() const = 0;    // the desktop's general font
  virtual QString monoFamily() const = 0;    // the desktop's fixed-pitch font
  virtual double basePointSize() const = 0;  // the desktop's general font size
};

// The installed fonts, through QFontDatabase. Needs a QGuiApplication.
class SystemFontCatalog : public FontCatalog {
 public:
  bool hasFamily(const QString& family) const override;
  bool isFixedPitch(const QString& family) const override;
  QStringList families(QFontDatabase::WritingSystem system) const override;
  QString sansFamily() const override;
  QString monoFamily() const override;
  double basePointSize() const override;
};

// The writing system of a character set: 128 Japanese, 129 and 130 Korean, 134 simplified
// Chinese, 136 traditional Chinese, 161 Greek, 162 Turkish and 238 Central European and 186
// Baltic (Latin), 163 Vietnamese, 177 Hebrew, 178 Arabic, 204 Cyrillic, 222 Thai; Any for 0 and
// every other number.
QFontDatabase::WritingSystem writingSystemForCharset(int charset);

// The font for `request`. Pure: depends on the request and the catalogue only.
//  - "MS Sans Serif" and the other design-time proportional faces become the desktop's sans
//    family, "Courier New" and the other fixed-pitch ones the desktop's fixed family.
//  - When the character set names a writing system that the family cannot show (or the family
//    is not installed), the best installed family that can is taken: one for the same region
//    (JP, KR, SC, TC) first, then one of the same pitch, then a sans face.
//  - A family that is still not installed becomes the desktop's sans or fixed family.
//  - The size keeps its ratio to the design size: kDesignFontSize maps to basePointSize();
//    sizes of 0 or less get basePointSize().
FontChoice chooseFont(const FontRequest& request, const FontCatalog& catalog);

QFont makeFont(const FontChoice& choice);

}  // namespace kxc::qt
