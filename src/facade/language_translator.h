// The dialogs' form translator over the process's translation catalogue, gLanguage.
#pragma once

#include "dialogs/form_translator.h"

namespace kxc {

// Translates forms and keys with gLanguage (created on first use). One instance for the
// process; it holds no state of its own. User-interface thread only.
FormTranslator& languageFormTranslator();

}  // namespace kxc
