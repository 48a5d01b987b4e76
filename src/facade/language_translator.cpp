#include "facade/language_translator.h"

#include <string>

#include "facade/tm_globals.h"
#include "language/language.h"

namespace kxc {

namespace {

class GlobalLanguageTranslator : public FormTranslator {
 public:
  void translateForm(controls::Form& form) override { gLanguage->TranslateForm(form); }
  std::string transMes(std::string_view key) override {
    return gLanguage->TransMes(std::string(key));
  }
};

}  // namespace

FormTranslator& languageFormTranslator() {
  static GlobalLanguageTranslator translator;
  return translator;
}

}  // namespace kxc
