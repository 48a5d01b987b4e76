#include "engine/contract/csv_reader.h"

#include "platform/runtime_error.h"

namespace kxc::engine {

int CsvReader::get() {
  int c = in_.get();
  if (c != std::char_traits<char>::eof()) ++bytes_;
  return c;
}

bool CsvReader::next(std::vector<std::string>& fields) {
  constexpr int kEof = std::char_traits<char>::eof();
  fields.clear();
  if (!started_) {
    started_ = true;
    if (peek() == 0xEF) {
      get();
      if (peek() == 0xBB) get();
      if (peek() == 0xBF) get();
    }
  }
  if (peek() == kEof) return false;
  recordLine_ = nextLine_;
  std::string field;
  for (;;) {
    int c = get();
    if (c == '"' && field.empty()) {
      // A quoted field: read to the closing quote.
      for (;;) {
        int q = get();
        if (q == kEof) throw RuntimeError(err::kInvalidCall, "a quoted field is not closed");
        if (q == '\n') ++nextLine_;
        if (q == '"') {
          if (peek() == '"') {
            get();
            field += '"';
            continue;
          }
          break;
        }
        field += static_cast<char>(q);
      }
      int after = peek();
      if (after != ',' && after != '\n' && after != '\r' && after != kEof) {
        throw RuntimeError(err::kInvalidCall, "text after a closing quote");
      }
      continue;
    }
    if (c == ',') {
      fields.push_back(std::move(field));
      field.clear();
      continue;
    }
    if (c == '\r' && peek() == '\n') continue;
    if (c == '\n' || c == '\r' || c == kEof) {
      if (c != kEof) ++nextLine_;
      fields.push_back(std::move(field));
      return true;
    }
    field += static_cast<char>(c);
  }
}

}  // namespace kxc::engine
