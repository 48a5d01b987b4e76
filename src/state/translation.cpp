#include "state/translation.h"

#include "language/language.h"
#include "state/tm_globals.h"

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

std::string flowText(const std::string& key, const std::optional<Variant>& param) {
  return gLanguage->TransMes(key, param);
}

void translateWholeForm(controls::Form& form) { gLanguage->TranslateForm(form); }

FormTranslator& languageFormTranslator() {
  // Stateless: one shared instance serves every context.
  static GlobalLanguageTranslator translator;
  return translator;
}

}  // namespace kxc
