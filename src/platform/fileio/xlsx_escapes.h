// Decoding of the "_xHHHH_" escapes xlsx texts use for characters XML cannot hold.
#pragma once

#include <string>
#include <string_view>

namespace kxc::fileio {

// "_x0001_" becomes that character (UTF-8) and "_x005F_x0041_" the literal "_x0041_"; text
// without such sequences is returned unchanged. Never throws except std::bad_alloc.
std::string decodeXlsxEscapes(std::string_view text);

}  // namespace kxc::fileio
