// The text form of a settings file: one [key\path] header per key, then its name=value lines.
//
//   # comment lines start with # or ; and are kept when the file is rewritten
//   [Software\Kestra\Cache]
//   CacheName=Sales 2024
//   CurrentLanguage=3
//
// Blanks around a whole line, around the name and at the start of the value are layout.
// Names and values use backslash escapes for what the layout would lose: \\ backslash,
// \n line feed, \r carriage return, \t tab, \0 NUL, \s space (written for a leading or trailing
// blank), \= an equals sign in a name, and \[ \# \; for a name starting with that character.
// A backslash before any other character stands for itself.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/settings/settings_document.h"

namespace kxc {

struct SettingsParseError {
  std::size_t line = 0;  // 1-based
  std::string reason;
};

struct SettingsParseResult {
  SettingsDocument document;                // empty when there is an error
  std::optional<SettingsParseError> error;  // the first line that cannot be read
};

SettingsParseResult parseSettings(std::string_view text);

std::string formatSettings(const SettingsDocument& document);

// The escaped forms of one name or value, as written in the file.
std::string escapeSettingsName(std::string_view name);
std::string escapeSettingsValue(std::string_view value);

}  // namespace kxc
