// Language: turns translation keys into texts of the user's language from the catalogue, keeps
// the current language (mirrored in the per-user settings), the per-language fonts and the
// installation's branding, and translates whole forms.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "language/branding.h"
#include "language/font_settings.h"
#include "platform/catalogue_table.h"
#include "platform/variant.h"

namespace kxc {

namespace controls {
class Form;
}

inline constexpr int16_t kLanguageCount = 16;

// A text given to TransMes for one of its placeholders "%%1" to "%%4"; absent when not given.
using TransParam = std::optional<Variant>;

// One object serves the process (gLanguage). Settings go through TmWinReg, tables through the
// catalogue port; nothing here throws: every failure follows the rules of the member concerned.
// User-interface thread only.
class Language {
 public:
  // Opens the catalogue and loads the rename rules, opens the language details, then takes the
  // current language from the settings. `opener` failing (null) leaves that table closed, and
  // every lookup in it fails. The default opens the files of catalogueFolder() with the
  // process-wide catalogueOpener().
  Language();
  Language(const CatalogueOpener& opener, const std::string& folder);
  ~Language();
  Language(const Language&) = delete;
  Language& operator=(const Language&) = delete;

  // The current language, 0 to 15; 0 until set.
  int16_t CurrentLanguage() const { return current_; }
  // Accepts 0 to 15 only (anything else changes nothing): stores it, reloads the fonts and
  // writes it as decimal text to "CurrentLanguage" under "Software\Kestra\Cache".
  void CurrentLanguage(int16_t language);

  // The display names of languages 0 to 15 ("not found" for a language without a
  // "_UserName" row). Always 16 entries; after a failure the rest stay empty.
  std::vector<std::string> GetLanguageList();

  // Takes the current language from "CurrentLanguage" in the per-user settings; when it
  // cannot be read, writes "0" there and uses language 0.
  void GetCurrentLangFromWinReg();

  // The text of `key` in the current language. A key not starting with "@" comes back as it
  // is. Otherwise: the settings are read again, the code (key without "@", cut at " &" whose
  // rest is the access-key hint) is looked up, placeholders "%%1".."%%4" are filled from the
  // parameters (each translated itself) and the rest removed; a missing code gives "!!" and
  // the code; branding is applied when enabled; then the hint letter gets the only "&".
  // Failures: in the object's first call failing steps are skipped; in later calls a failure
  // ends the call and the text built so far is returned (empty when the catalogue is closed).
  std::string TransMes(const std::string& key, const TransParam& p1 = {}, const TransParam& p2 = {},
                       const TransParam& p3 = {}, const TransParam& p4 = {});

  // Two keys joined by the first "+": the translation of the first, then the second, whose
  // part from its first "@" on is translated too. Other keys as TransMes.
  std::string TransMesPlus(const std::string& key, const TransParam& p1 = {},
                           const TransParam& p2 = {}, const TransParam& p3 = {},
                           const TransParam& p4 = {});

  // Font settings of the current language. The two names are crossed over on purpose:
  // FontPropName answers the fixed-pitch name ("_FontFixed", default "Courier New") and
  // FontFixedName the proportional one ("_Font", default "MS Sans Serif").
  const std::string& FontPropName() const { return fonts_.fixedName; }
  const std::string& FontFixedName() const { return fonts_.proportionalName; }
  int16_t FontCharSet() const { return fonts_.charSet; }
  bool FontIsDoubleByte() const { return fonts_.doubleByte; }

  // Read the named value from the per-machine branding key (SystemBrandingFind) or its
  // "Rename" key. Found: false, with the value. Not found: true, with `deflt` as the value.
  bool SystemBrandingFind(const std::string& name, std::string& value, const std::string& deflt);
  bool SystemBrandingRenameFind(const std::string& name, std::string& value,
                                const std::string& deflt);

  // Gives every control the current language's font and translates the captions of buttons,
  // labels and list-view column headers from their Tag, then the form's caption from its Tag.
  void TranslateForm(controls::Form& form);

  // For tools and tests.
  const Branding& branding() const { return branding_; }
  bool catalogueOpen() const { return catalogue_ != nullptr; }
  bool detailsOpen() const { return details_ != nullptr; }

 private:
  void readBranding();
  std::string translate(const std::string& key, const TransParam* params[4]);

  std::shared_ptr<const CatalogueTable> catalogue_;
  std::shared_ptr<const CatalogueTable> details_;  // declared last: released first
  int16_t current_ = 0;
  FontSettings fonts_;
  Branding branding_;
  bool brandingRead_ = false;
};

}  // namespace kxc
