// The translation keys the library and its programs use: the one list that catalogue checks
// compare the catalogue with.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kxc {

struct UsedKey {
  std::string_view key;  // as written in code ("@HELP &H")
  int placeholders;      // the translation must hold "%%1" up to "%%<placeholders>"
};

// Every key in use, in no particular order; a catalogue code may serve several keys.
const std::vector<UsedKey>& usedKeys();

// The catalogue code of a key: without the "@" and without a " &" hint ("@HELP &H" -> "HELP",
// "@SELECT_ALL&" -> "SELECT_ALL&").
std::string keyCode(std::string_view key);
// The access-key hint of a key ("@HELP &H" -> "H"), or "" without one.
std::string keyHint(std::string_view key);

}  // namespace kxc
