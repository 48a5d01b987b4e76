#include "qt_translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <array>

namespace kxc::workbench {

namespace {

// The catalogue's languages in number order, as Qt names their locales.
constexpr std::array<const char*, 16> kLocales = {"en",    "ja", "de", "fr",    "es", "it",
                                                  "zh_CN", "ko", "nl", "pt_BR", "sv", "pl",
                                                  "ru",    "cs", "tr", "zh_TW"};

}  // namespace

std::string qtLocaleName(int16_t language) {
  if (language < 0 || language >= static_cast<int16_t>(kLocales.size())) return "";
  return kLocales[static_cast<size_t>(language)];
}

QtTranslation::~QtTranslation() {
  if (translator_) QCoreApplication::removeTranslator(translator_.get());
}

bool QtTranslation::follow(int16_t language) {
  if (translator_) {
    QCoreApplication::removeTranslator(translator_.get());
    translator_.reset();
  }
  const std::string name = qtLocaleName(language);
  if (name.empty() || name == "en") return false;
  auto translator = std::make_unique<QTranslator>();
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (!translator->load(QLocale(QString::fromStdString(name)), "qtbase", "_", folder)) {
    return false;
  }
  QCoreApplication::installTranslator(translator.get());
  translator_ = std::move(translator);
  return true;
}

}  // namespace kxc::workbench
