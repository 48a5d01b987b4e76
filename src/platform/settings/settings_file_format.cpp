#include "platform/settings/settings_file_format.h"

#include "platform/settings_store.h"

namespace kxc {

namespace {

bool isLayoutBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view trimLayout(std::string_view s) {
  while (!s.empty() && isLayoutBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && isLayoutBlank(s.back())) s.remove_suffix(1);
  return s;
}

std::string escape(std::string_view text, bool isName) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    bool edge = i == 0 || i + 1 == text.size();
    switch (c) {
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\0':
        out += "\\0";
        break;
      case '\t':
        out += edge ? "\\t" : "\t";
        break;
      case ' ':
        out += edge ? "\\s" : " ";
        break;
      case '=':
        out += isName ? "\\=" : "=";
        break;
      case '[':
      case '#':
      case ';':
        if (isName && i == 0) out += '\\';
        out += c;
        break;
      default:
        out += c;
    }
  }
  return out;
}

// Decodes escapes; false for a backslash that ends the text.
bool unescape(std::string_view text, std::string& out) {
  out.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
      continue;
    }
    if (++i == text.size()) return false;
    switch (text[i]) {
      case '\\':
        out += '\\';
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
      case '0':
        out += '\0';
        break;
      case 's':
        out += ' ';
        break;
      case '=':
      case '[':
      case '#':
      case ';':
        out += text[i];
        break;
      default:
        out += '\\';
        out += text[i];
    }
  }
  return true;
}

// Position of the first '=' that is not escaped, or npos.
std::size_t findSeparator(std::string_view line) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\\') {
      ++i;
    } else if (line[i] == '=') {
      return i;
    }
  }
  return std::string_view::npos;
}

}  // namespace

std::string escapeSettingsName(std::string_view name) { return escape(name, true); }
std::string escapeSettingsValue(std::string_view value) { return escape(value, false); }

SettingsParseResult parseSettings(std::string_view text) {
  SettingsParseResult result;
  SettingsDocument& doc = result.document;
  auto fail = [&](std::size_t line, std::string reason) {
    result.document = SettingsDocument();
    result.error = SettingsParseError{line, std::move(reason)};
    return std::move(result);
  };
  std::optional<std::string> section;
  std::size_t lineNo = 0;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view raw = text.substr(start, end - start);
    start = end + 1;
    ++lineNo;
    while (!raw.empty() && raw.back() == '\r') raw.remove_suffix(1);
    std::string_view line = trimLayout(raw);
    if (line.empty() || line.front() == '#' || line.front() == ';') {
      doc.pendingComments.emplace_back(raw);
      continue;
    }
    if (line.front() == '[') {
      if (line.back() != ']' || line.size() < 2) return fail(lineNo, "a [key] header lacks its ]");
      std::string key;
      for (const auto& level : keyLevels(line.substr(1, line.size() - 2))) {
        std::string_view trimmed = trimLayout(level);
        if (trimmed.empty()) continue;
        if (!key.empty()) key += '\\';
        key += trimmed;
      }
      if (key.empty()) return fail(lineNo, "a [key] header names no key");
      for (unsigned char c : key) {
        if (c < 0x20 || c == 0x7f) return fail(lineNo, "a [key] header holds a control character");
      }
      doc.sectionFor(key);
      section = std::move(key);
      continue;
    }
    std::size_t eq = findSeparator(line);
    if (eq == std::string_view::npos) return fail(lineNo, "expected name=value or a [key] header");
    if (!section) return fail(lineNo, "a name=value line comes before any [key] header");
    SettingsEntry entry;
    if (!unescape(trimLayout(line.substr(0, eq)), entry.name) ||
        !unescape(trimLayout(line.substr(eq + 1)), entry.value)) {
      return fail(lineNo, "a backslash ends the line");
    }
    entry.comments = std::move(doc.pendingComments);
    doc.pendingComments.clear();
    doc.sectionFor(*section).entries.push_back(std::move(entry));
  }
  doc.trailingComments() = std::move(doc.pendingComments);
  doc.pendingComments.clear();
  return result;
}

std::string formatSettings(const SettingsDocument& document) {
  std::string out;
  auto comments = [&](const std::vector<std::string>& lines) {
    for (const auto& line : lines) out += line + "\n";
  };
  for (const auto& section : document.sections()) {
    comments(section.comments);
    out += "[" + section.key + "]\n";
    for (const auto& entry : section.entries) {
      comments(entry.comments);
      out += escapeSettingsName(entry.name) + "=" + escapeSettingsValue(entry.value) + "\n";
    }
  }
  comments(document.trailingComments());
  return out;
}

}  // namespace kxc
