// Translation as the dialogs and flows use it: keys and whole forms through the process's
// language object, gLanguage, and the same behind an interface for the dialogs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/form.h"
#include "platform/variant.h"

namespace kxc {

// The translation a dialog applies when it loads, as an interface, so that a dialog can be
// tested with a fake catalogue.
class FormTranslator {
 public:
  virtual ~FormTranslator() = default;
  // Gives the form's controls the current language's fonts and translated captions.
  virtual void translateForm(controls::Form& form) = 0;
  // The translation of a key ("@NAME"); a text without a leading "@" comes back unchanged.
  virtual std::string transMes(std::string_view key) = 0;
};

// The text of `key` in the current language, with `param` (when given) as the first
// substitution argument, itself translated. Raises what the language object raises.
std::string flowText(const std::string& key, const std::optional<Variant>& param = {});

// Applies the current language's fonts and the controls' Tag keys to the whole form.
void translateWholeForm(controls::Form& form);

// A FormTranslator over gLanguage; it holds no state of its own.
FormTranslator& languageFormTranslator();

}  // namespace kxc
