#include "grammar/cache_formula_json.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <map>
#include <optional>
#include <vector>

#include "platform/text_rules.h"

namespace kxc {

namespace {

// The most dimension arguments a formula text can hold (its pieces are counted in 16 bits).
constexpr int32_t kMaxStoredDims = 32766;

// --- writing ---

// Length of the valid UTF-8 sequence at text[i], or 0 when the bytes there are not one.
std::size_t utf8Length(std::string_view text, std::size_t i) {
  auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  unsigned char c = byte(i);
  std::size_t n = c < 0x80           ? 1
                  : (c >> 5) == 0x6  ? 2
                  : (c >> 4) == 0xE  ? 3
                  : (c >> 3) == 0x1E ? 4
                                     : 0;
  if (n == 0 || i + n > text.size()) return 0;
  for (std::size_t k = 1; k < n; ++k) {
    if ((byte(i + k) >> 6) != 0x2) return 0;
  }
  if (n == 2 && c < 0xC2) return 0;  // overlong
  if (n == 3) {
    uint32_t cp = ((c & 0x0Fu) << 12) | ((byte(i + 1) & 0x3Fu) << 6);
    if (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  }
  if (n == 4) {
    uint32_t cp = ((c & 0x07u) << 18) | ((byte(i + 1) & 0x3Fu) << 12);
    if (cp < 0x10000 || cp > 0x10FFFF) return 0;
  }
  return n;
}

void appendQuoted(std::string& out, std::string_view text) {
  out += '"';
  for (std::size_t i = 0; i < text.size();) {
    char c = text[i];
    switch (c) {
      case '"':
        out += "\\\"";
        ++i;
        continue;
      case '\\':
        out += "\\\\";
        ++i;
        continue;
      case '\n':
        out += "\\n";
        ++i;
        continue;
      case '\r':
        out += "\\r";
        ++i;
        continue;
      case '\t':
        out += "\\t";
        ++i;
        continue;
      default:
        break;
    }
    if (static_cast<unsigned char>(c) < 0x20) {
      char buffer[8];
      std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(c));
      out += buffer;
      ++i;
      continue;
    }
    std::size_t n = utf8Length(text, i);
    if (n == 0) {
      out += "\xEF\xBF\xBD";  // U+FFFD for a byte that starts no valid character
      ++i;
    } else {
      out.append(text.substr(i, n));
      i += n;
    }
  }
  out += '"';
}

// --- reading ---

struct Json {
  enum class Kind { Null, Bool, Number, Text, Array, Object } kind = Kind::Null;
  double number = 0;
  std::string text;
  std::vector<Json> items;
  std::map<std::string, Json, std::less<>> fields;
};

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  std::optional<Json> document(std::string& error) {
    std::optional<Json> value = parseValue(0);
    if (value) {
      skipBlanks();
      if (pos_ != text_.size()) fail("unexpected text after the record");
    }
    if (!error_.empty()) {
      error = error_;
      return std::nullopt;
    }
    return value;
  }

 private:
  static constexpr int kMaxDepth = 32;

  void fail(const std::string& what) {
    if (error_.empty()) error_ = what + " at offset " + std::to_string(pos_);
  }
  void skipBlanks() {
    while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t' ||
                                   text_[pos_] == '\n' || text_[pos_] == '\r')) {
      ++pos_;
    }
  }
  bool take(char c) {
    skipBlanks();
    if (pos_ < text_.size() && text_[pos_] == c) {
      ++pos_;
      return true;
    }
    return false;
  }
  bool word(std::string_view w) {
    if (text_.substr(pos_, w.size()) != w) return false;
    pos_ += w.size();
    return true;
  }

  std::optional<Json> parseValue(int depth) {
    skipBlanks();
    if (depth > kMaxDepth) {
      fail("nesting too deep");
      return std::nullopt;
    }
    if (pos_ >= text_.size()) {
      fail("unexpected end");
      return std::nullopt;
    }
    Json v;
    char c = text_[pos_];
    if (c == '{') return parseObject(depth);
    if (c == '[') return parseArray(depth);
    if (c == '"') {
      v.kind = Json::Kind::Text;
      if (!parseString(v.text)) return std::nullopt;
      return v;
    }
    if (word("null")) return v;
    if (word("true") || word("false")) {
      v.kind = Json::Kind::Bool;
      return v;
    }
    if (c == '-' || (c >= '0' && c <= '9')) return parseNumber();
    fail("unexpected character");
    return std::nullopt;
  }

  std::optional<Json> parseNumber() {
    std::size_t start = pos_;
    auto digits = [&] {
      std::size_t from = pos_;
      while (pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '9') ++pos_;
      return pos_ > from;
    };
    if (text_[pos_] == '-') ++pos_;
    if (!digits()) {
      fail("bad number");
      return std::nullopt;
    }
    if (pos_ < text_.size() && text_[pos_] == '.') {
      ++pos_;
      if (!digits()) {
        fail("bad number");
        return std::nullopt;
      }
    }
    if (pos_ < text_.size() && (text_[pos_] == 'e' || text_[pos_] == 'E')) {
      ++pos_;
      if (pos_ < text_.size() && (text_[pos_] == '+' || text_[pos_] == '-')) ++pos_;
      if (!digits()) {
        fail("bad number");
        return std::nullopt;
      }
    }
    Json v;
    v.kind = Json::Kind::Number;
    v.number = std::strtod(std::string(text_.substr(start, pos_ - start)).c_str(), nullptr);
    return v;
  }

  bool hex4(uint32_t& out) {
    if (pos_ + 4 > text_.size()) return false;
    out = 0;
    for (int k = 0; k < 4; ++k) {
      char h = text_[pos_++];
      out <<= 4;
      if (h >= '0' && h <= '9') {
        out |= static_cast<uint32_t>(h - '0');
      } else if (h >= 'a' && h <= 'f') {
        out |= static_cast<uint32_t>(h - 'a' + 10);
      } else if (h >= 'A' && h <= 'F') {
        out |= static_cast<uint32_t>(h - 'A' + 10);
      } else {
        return false;
      }
    }
    return true;
  }

  bool parseString(std::string& out) {
    ++pos_;  // the opening quote
    while (pos_ < text_.size()) {
      char c = text_[pos_++];
      if (c == '"') return true;
      if (static_cast<unsigned char>(c) < 0x20) {
        --pos_;
        fail("control character in text");
        return false;
      }
      if (c != '\\') {
        out += c;
        continue;
      }
      if (pos_ >= text_.size()) break;
      char e = text_[pos_++];
      switch (e) {
        case '"':
          out += '"';
          break;
        case '\\':
          out += '\\';
          break;
        case '/':
          out += '/';
          break;
        case 'b':
          out += '\b';
          break;
        case 'f':
          out += '\f';
          break;
        case 'n':
          out += '\n';
          break;
        case 'r':
          out += '\r';
          break;
        case 't':
          out += '\t';
          break;
        case 'u': {
          uint32_t cp = 0;
          if (!hex4(cp)) {
            fail("bad \\u escape");
            return false;
          }
          if (cp >= 0xD800 && cp <= 0xDBFF) {
            uint32_t low = 0;
            if (!word("\\u") || !hex4(low) || low < 0xDC00 || low > 0xDFFF) {
              fail("unpaired surrogate");
              return false;
            }
            cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
          } else if (cp >= 0xDC00 && cp <= 0xDFFF) {
            fail("unpaired surrogate");
            return false;
          }
          appendUtf8(out, static_cast<char32_t>(cp));
          break;
        }
        default:
          --pos_;
          fail("bad escape");
          return false;
      }
    }
    fail("unterminated text");
    return false;
  }

  std::optional<Json> parseArray(int depth) {
    ++pos_;
    Json v;
    v.kind = Json::Kind::Array;
    if (take(']')) return v;
    do {
      std::optional<Json> item = parseValue(depth + 1);
      if (!item) return std::nullopt;
      v.items.push_back(std::move(*item));
    } while (take(','));
    if (!take(']')) {
      fail("expected ',' or ']'");
      return std::nullopt;
    }
    return v;
  }

  std::optional<Json> parseObject(int depth) {
    ++pos_;
    Json v;
    v.kind = Json::Kind::Object;
    if (take('}')) return v;
    do {
      skipBlanks();
      std::string key;
      if (pos_ >= text_.size() || text_[pos_] != '"') {
        fail("expected a field name");
        return std::nullopt;
      }
      if (!parseString(key)) return std::nullopt;
      if (!take(':')) {
        fail("expected ':'");
        return std::nullopt;
      }
      std::optional<Json> value = parseValue(depth + 1);
      if (!value) return std::nullopt;
      v.fields[key] = std::move(*value);
    } while (take(','));
    if (!take('}')) {
      fail("expected ',' or '}'");
      return std::nullopt;
    }
    return v;
  }

  std::string_view text_;
  std::size_t pos_ = 0;
  std::string error_;
};

bool readText(const Json& object, const char* name, std::string& out, std::string& error) {
  auto it = object.fields.find(name);
  if (it == object.fields.end() || it->second.kind == Json::Kind::Null) return true;
  if (it->second.kind != Json::Kind::Text) {
    error = std::string(name) + " must be a text";
    return false;
  }
  out = it->second.text;
  return true;
}

bool readInt32(const Json& object, const char* name, std::optional<int32_t>& out,
               std::string& error) {
  auto it = object.fields.find(name);
  if (it == object.fields.end() || it->second.kind == Json::Kind::Null) return true;
  double d = it->second.number;
  if (it->second.kind != Json::Kind::Number || d != std::floor(d) ||
      d < std::numeric_limits<int32_t>::min() || d > std::numeric_limits<int32_t>::max()) {
    error = std::string(name) + " must be a whole 32-bit number";
    return false;
  }
  out = static_cast<int32_t>(d);
  return true;
}

}  // namespace

std::string cacheFormulaToJson(const CacheFormula& formula) {
  std::string out = "{\n  \"Cache\": ";
  appendQuoted(out, formula.Cache);
  out += ",\n  \"CacheIndex\": " + std::to_string(formula.CacheIndex);
  out += ",\n  \"Measure\": ";
  appendQuoted(out, formula.Measure);
  out += ",\n  \"MeasureIndex\": " + std::to_string(formula.MeasureIndex);
  out += ",\n  \"DimCount\": " + std::to_string(formula.DimCount);
  out += ",\n  \"Dims\": ";
  if (!formula.hasDims()) {
    out += "null";
  } else {
    out += '[';
    bool first = true;
    for (const std::string& dim : formula.dimList()) {
      if (!first) out += ", ";
      appendQuoted(out, dim);
      first = false;
    }
    out += ']';
  }
  out += "\n}\n";
  return out;
}

bool cacheFormulaFromJson(std::string_view json, CacheFormula& out, std::string& error) {
  std::optional<Json> document = Reader(json).document(error);
  if (!document) return false;
  if (document->kind != Json::Kind::Object) {
    error = "the record must be an object";
    return false;
  }
  CacheFormula f;
  std::optional<int32_t> cacheIndex, measureIndex, dimCount;
  if (!readText(*document, "Cache", f.Cache, error) ||
      !readInt32(*document, "CacheIndex", cacheIndex, error) ||
      !readText(*document, "Measure", f.Measure, error) ||
      !readInt32(*document, "MeasureIndex", measureIndex, error) ||
      !readInt32(*document, "DimCount", dimCount, error)) {
    return false;
  }
  std::vector<std::string> dims;
  if (auto it = document->fields.find("Dims");
      it != document->fields.end() && it->second.kind != Json::Kind::Null) {
    if (it->second.kind != Json::Kind::Array) {
      error = "Dims must be an array of texts";
      return false;
    }
    for (const Json& item : it->second.items) {
      if (item.kind != Json::Kind::Text && item.kind != Json::Kind::Null) {
        error = "Dims must be an array of texts";
        return false;
      }
      dims.push_back(item.text);
    }
  }
  f.CacheIndex = cacheIndex.value_or(0);
  f.MeasureIndex = measureIndex.value_or(0);
  f.DimCount = dimCount.value_or(static_cast<int32_t>(dims.size()));
  // The array gets an entry per dimension argument, as a parsed record has, but no more than
  // a formula can hold: a huge DimCount must not allocate. Entries past the array read as
  // missing, which writes the same text as empty ones at the end.
  const int32_t wanted =
      std::max(static_cast<int32_t>(dims.size()), std::min(f.DimCount, kMaxStoredDims));
  if (wanted >= 1) {
    const int32_t dimCount = f.DimCount;
    f.DimCount = wanted;
    f.redimDims(wanted);
    for (std::size_t i = 0; i < dims.size(); ++i) f.Dims(static_cast<int32_t>(i + 1)) = dims[i];
    f.DimCount = dimCount;
  }
  out = std::move(f);
  return true;
}

}  // namespace kxc
