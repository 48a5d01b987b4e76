// What the fuzz targets share: reading an input as fields, a check that ends the run with a
// message when a property fails, and services that answer every message box silently.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/services.h"

namespace kxc::fuzz {

inline std::string_view asText(const uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// The input cut at every `separator`, into at most `most` fields (the last one keeps the rest).
inline std::vector<std::string_view> fields(std::string_view input, std::string_view separator,
                                            std::size_t most) {
  std::vector<std::string_view> out;
  while (out.size() + 1 < most) {
    std::size_t at = input.find(separator);
    if (at == std::string_view::npos) break;
    out.push_back(input.substr(0, at));
    input.remove_prefix(at + separator.size());
  }
  out.push_back(input);
  return out;
}

// A property every input must keep; a broken one is a finding like a crash.
#define KXC_FUZZ_CHECK(condition)                                                           \
  do {                                                                                      \
    if (!(condition)) {                                                                     \
      std::fprintf(stderr, "%s:%d: property broken: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                         \
    }                                                                                       \
  } while (false)

// Message boxes are counted and answered OK; nothing reaches the terminal.
class QuietServices : public Services {
 public:
  int messageBox(std::string_view, int, std::string_view) override {
    ++messages;
    return mb::kIdOk;
  }
  void clipboardClear() override { clipboard.clear(); }
  void clipboardSetText(std::string_view text) override { clipboard = text; }
  std::string clipboardText() override { return clipboard; }
  void doEvents() override {}
  WindowHandle findWindowByTitle(std::string_view) override { return 0; }
  bool openWithDesktop(const std::string&) override { return false; }

  int messages = 0;
  std::string clipboard;
};

}  // namespace kxc::fuzz
