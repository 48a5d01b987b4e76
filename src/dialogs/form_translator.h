// The translation a dialog applies when it loads, as an interface, so that the dialogs do not
// depend on the language object. The facade implements it over gLanguage (TranslateForm and
// TransMes); tests implement it with a fake.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/form.h"

namespace kxc {

class FormTranslator {
 public:
  virtual ~FormTranslator() = default;
  // Gives the form's controls the current language's fonts and translated captions.
  virtual void translateForm(controls::Form& form) = 0;
  // The translation of a key ("@NAME"); a text without a leading "@" comes back unchanged.
  virtual std::string transMes(std::string_view key) = 0;
};

}  // namespace kxc
