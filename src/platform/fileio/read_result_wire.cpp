#include "platform/fileio/read_result_wire.h"

#include <cstdint>

namespace kxc::fileio {
namespace {

// Marks the start and the complete end of the bytes, so a cut-off stream never decodes.
constexpr std::string_view kHead = "kxc-image-1";
constexpr std::string_view kTail = "end";

void putNumber(std::string& out, uint64_t value) {
  char bytes[8];
  for (int i = 0; i < 8; ++i) bytes[i] = static_cast<char>((value >> (8 * i)) & 0xFF);
  out.append(bytes, 8);
}

void putText(std::string& out, std::string_view text) {
  putNumber(out, text.size());
  out.append(text);
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  bool number(uint64_t& value) {
    if (rest_.size() < 8) return false;
    value = 0;
    for (int i = 7; i >= 0; --i) value = (value << 8) | static_cast<unsigned char>(rest_[i]);
    rest_.remove_prefix(8);
    return true;
  }
  bool number32(int32_t& value) {
    uint64_t wide = 0;
    if (!number(wide) || wide > UINT32_MAX) return false;
    value = static_cast<int32_t>(static_cast<uint32_t>(wide));
    return true;
  }
  bool text(std::string& value) {
    uint64_t size = 0;
    if (!number(size) || size > rest_.size()) return false;
    value.assign(rest_.substr(0, size));
    rest_.remove_prefix(size);
    return true;
  }
  bool literal(std::string_view expected) {
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(expected.size());
    return true;
  }
  // A count of items each at least `itemBytes` long that the remaining bytes can hold.
  bool count(uint64_t& value, uint64_t itemBytes) {
    return number(value) && value <= rest_.size() / itemBytes;
  }
  bool atEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

bool decodeImage(Reader& in, WorkbookImage& image) {
  uint64_t sheets = 0;
  if (!in.count(sheets, 16)) return false;
  image.sheets.resize(sheets);
  for (SheetImage& sheet : image.sheets) {
    uint64_t cells = 0;
    if (!in.text(sheet.name) || !in.count(cells, 24)) return false;
    for (uint64_t i = 0; i < cells; ++i) {
      int32_t row = 0;
      int32_t column = 0;
      std::string entry;
      if (!in.number32(row) || !in.number32(column) || !in.text(entry)) return false;
      sheet.cells.insert_or_assign({row, column}, std::move(entry));
    }
  }
  uint64_t names = 0;
  if (!in.count(names, 24)) return false;
  image.names.resize(names);
  for (NameImage& name : image.names) {
    uint64_t base = 0;
    if (!in.text(name.name) || !in.text(name.reference) || !in.number(base)) return false;
    name.baseSheet = static_cast<std::size_t>(base);
  }
  uint64_t notes = 0;
  if (!in.count(notes, 8)) return false;
  image.notes.resize(notes);
  for (std::string& note : image.notes) {
    if (!in.text(note)) return false;
  }
  return true;
}

}  // namespace

std::string encodeReadResult(const SpreadsheetReadResult& result) {
  std::string out(kHead);
  putNumber(out, result.image ? 1 : 0);
  putText(out, result.failure);
  if (const std::optional<WorkbookImage>& image = result.image) {
    putNumber(out, image->sheets.size());
    for (const SheetImage& sheet : image->sheets) {
      putText(out, sheet.name);
      putNumber(out, sheet.cells.size());
      for (const auto& [position, entry] : sheet.cells) {
        putNumber(out, static_cast<uint32_t>(position.first));
        putNumber(out, static_cast<uint32_t>(position.second));
        putText(out, entry);
      }
    }
    putNumber(out, image->names.size());
    for (const NameImage& name : image->names) {
      putText(out, name.name);
      putText(out, name.reference);
      putNumber(out, name.baseSheet);
    }
    putNumber(out, image->notes.size());
    for (const std::string& note : image->notes) putText(out, note);
  }
  out.append(kTail);
  return out;
}

std::optional<SpreadsheetReadResult> decodeReadResult(std::string_view bytes) {
  Reader in(bytes);
  SpreadsheetReadResult result;
  uint64_t hasImage = 0;
  if (!in.literal(kHead) || !in.number(hasImage) || hasImage > 1 || !in.text(result.failure)) {
    return std::nullopt;
  }
  if (hasImage == 1) {
    result.image.emplace();
    if (!decodeImage(in, *result.image)) return std::nullopt;
  }
  if (!in.literal(kTail) || !in.atEnd()) return std::nullopt;
  return result;
}

}  // namespace kxc::fileio
