// Fuzzes the settings file parser. A file that parses must come back the same through the
// writer: formatting it and parsing the result gives the same keys, names and values, and
// formatting that again gives the same text.
#include <string>

#include "fuzz_support.h"
#include "platform/settings/settings_file_format.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kxc::SettingsParseResult parsed = kxc::parseSettings(kxc::fuzz::asText(data, size));
  if (parsed.error) {
    KXC_FUZZ_CHECK(parsed.error->line >= 1 && !parsed.error->reason.empty());
    return 0;
  }
  std::string written = kxc::formatSettings(parsed.document);
  kxc::SettingsParseResult again = kxc::parseSettings(written);
  KXC_FUZZ_CHECK(!again.error);
  const auto& before = parsed.document.sections();
  const auto& after = again.document.sections();
  KXC_FUZZ_CHECK(before.size() == after.size());
  for (std::size_t s = 0; s < before.size(); ++s) {
    KXC_FUZZ_CHECK(before[s].key == after[s].key);
    KXC_FUZZ_CHECK(before[s].entries.size() == after[s].entries.size());
    for (std::size_t e = 0; e < before[s].entries.size(); ++e) {
      KXC_FUZZ_CHECK(before[s].entries[e].name == after[s].entries[e].name);
      KXC_FUZZ_CHECK(before[s].entries[e].value == after[s].entries[e].value);
    }
  }
  KXC_FUZZ_CHECK(kxc::formatSettings(again.document) == written);
  return 0;
}
