#include "formula/flow_translation.h"

#include "facade/language_translator.h"
#include "facade/tm_globals.h"
#include "language/language.h"

namespace kxc {

std::string flowText(const std::string& key, const std::optional<Variant>& param) {
  return gLanguage->TransMes(key, param);
}

void translateWholeForm(controls::Form& form) { gLanguage->TranslateForm(form); }

FormTranslator& flowFormTranslator() { return languageFormTranslator(); }

}  // namespace kxc
