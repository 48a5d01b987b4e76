#include "formula/flow_translation.h"

#include "facade/tm_globals.h"
#include "language/language.h"

namespace kxc {

namespace {

// Until the process globals hold the language object, the flows keep their own.
Language& language() {
  static AutoCreated<Language> instance;
  return *instance;
}

class GlobalLanguageTranslator : public FormTranslator {
 public:
  void translateForm(controls::Form& form) override { translateWholeForm(form); }
  std::string transMes(std::string_view key) override { return flowText(std::string(key)); }
};

}  // namespace

std::string flowText(const std::string& key, const std::optional<Variant>& param) {
  return language().TransMes(key, param);
}

void translateWholeForm(controls::Form& form) { language().TranslateForm(form); }

FormTranslator& flowFormTranslator() {
  static GlobalLanguageTranslator translator;
  return translator;
}

}  // namespace kxc
