// Translation as the formula flows and the formula builder use it: keys through the process's
// language object, and a form translator for the dialogs built on FormTranslator.
#pragma once

#include <optional>
#include <string>

#include "dialogs/form_translator.h"
#include "platform/variant.h"

namespace kxc {

// The text of `key` in the current language, with `param` (when given) as the first
// substitution argument, itself translated. Raises nothing; a failing catalogue gives what the
// language object gives.
std::string flowText(const std::string& key, const std::optional<Variant>& param = {});

// Applies the current language's fonts and the controls' Tag keys to the whole form.
void translateWholeForm(controls::Form& form);

// The process's FormTranslator over gLanguage, for the lookup dialog.
FormTranslator& flowFormTranslator();

}  // namespace kxc
