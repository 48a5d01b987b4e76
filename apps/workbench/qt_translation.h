// Qt's own texts (standard buttons, file dialogs, context menus of text boxes) in the add-in's
// language.
#pragma once

#include <QTranslator>
#include <cstdint>
#include <memory>
#include <string>

namespace kxc::workbench {

// The Qt locale name of a catalogue language number, in the catalogue's order ("en", "ja",
// "de", ..., "zh_CN" for Simplified and "zh_TW" for Traditional Chinese); "" outside 0..15.
std::string qtLocaleName(int16_t language);

// Keeps one translator of Qt's own texts installed in the application, for the language last
// followed. Languages Qt has no translation for show Qt's English texts. User-interface thread.
class QtTranslation {
 public:
  QtTranslation() = default;
  QtTranslation(const QtTranslation&) = delete;
  QtTranslation& operator=(const QtTranslation&) = delete;
  ~QtTranslation();

  // Installs the translation for `language` in place of the one before; true when Qt has one.
  bool follow(int16_t language);

 private:
  std::unique_ptr<QTranslator> translator_;
};

}  // namespace kxc::workbench
