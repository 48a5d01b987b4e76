#include "platform/fileio/xlsx_escapes.h"

#include <charconv>

namespace kxc::fileio {

std::string decodeXlsxEscapes(std::string_view text) {
  if (text.find("_x") == std::string_view::npos) return std::string(text);
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    unsigned code = 0;
    if (text.substr(i, 2) == "_x" && i + 7 <= text.size() && text[i + 6] == '_' &&
        std::from_chars(text.data() + i + 2, text.data() + i + 6, code, 16).ptr ==
            text.data() + i + 6) {
      if (code < 0x80) {
        out += static_cast<char>(code);
      } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
      } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
      }
      i += 7;
    } else {
      out += text[i++];
    }
  }
  return out;
}

}  // namespace kxc::fileio
