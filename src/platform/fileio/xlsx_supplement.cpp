#include "platform/fileio/xlsx_supplement.h"

#include <cctype>
#include <exception>
#include <map>
#include <new>
#include <optional>
#include <orcus/sax_ns_parser.hpp>
#include <orcus/xml_namespace.hpp>
#include <orcus/zip_archive.hpp>
#include <orcus/zip_archive_stream.hpp>
#include <stdexcept>
#include <utility>

#include "platform/fileio/xlsx_escapes.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/formula_lexer.h"
#include "platform/workbook/grid.h"

namespace kxc::fileio {
namespace {

constexpr std::string_view kOutsideGrid = ": cells outside the grid left out";

struct Attribute {
  std::string name;  // local name
  bool qualified = false;
  std::string value;
};

// The parts of a handler every walker below shares: attributes arrive before their element
// and are kept until it starts. Elements are matched by local name, so the strict and the
// transitional namespaces both work.
class Walker {
 public:
  void doctype(const orcus::sax::doctype_declaration&) {}
  void start_declaration(std::string_view) {}
  void end_declaration(std::string_view) {}
  void attribute(std::string_view, std::string_view) {}
  void attribute(const orcus::sax_ns_parser_attribute& a) {
    pending_.push_back({std::string(a.name), !a.ns_alias.empty(), std::string(a.value)});
  }

 protected:
  // An attribute of the element starting now: the one without a prefix, or with `qualified`
  // the one with a prefix ("r:id").
  std::optional<std::string> attr(std::string_view name, bool qualified = false) const {
    for (const Attribute& a : pending_) {
      if (a.name == name && a.qualified == qualified) return a.value;
    }
    return std::nullopt;
  }
  void clearAttributes() { pending_.clear(); }

 private:
  std::vector<Attribute> pending_;
};

template <typename Handler>
void parseXml(std::string_view xml, Handler& handler) {
  orcus::xmlns_repository namespaces;
  orcus::xmlns_context context = namespaces.create_context();
  orcus::sax_ns_parser<Handler> parser(xml.data(), xml.size(), context, handler);
  parser.parse();
}

// --- package structure ---

struct Relationship {
  std::string id;
  std::string type;
  std::string target;
  bool external = false;
};

class RelationshipsWalker : public Walker {
 public:
  std::vector<Relationship> found;

  void start_element(const orcus::sax_ns_parser_element& e) {
    if (e.name == "Relationship") {
      found.push_back({attr("Id").value_or(""), attr("Type").value_or(""),
                       attr("Target").value_or(""), attr("TargetMode") == "External"});
    }
    clearAttributes();
  }
  void end_element(const orcus::sax_ns_parser_element&) {}
  void characters(std::string_view, bool) {}
};

struct SheetEntry {
  std::string name;
  std::string relationship;
};

class WorkbookWalker : public Walker {
 public:
  std::vector<SheetEntry> sheets;

  void start_element(const orcus::sax_ns_parser_element& e) {
    if (e.name == "sheets") inSheets_ = true;
    if (inSheets_ && e.name == "sheet") {
      sheets.push_back({attr("name").value_or(""), attr("id", true).value_or("")});
    }
    clearAttributes();
  }
  void end_element(const orcus::sax_ns_parser_element& e) {
    if (e.name == "sheets") inSheets_ = false;
  }
  void characters(std::string_view, bool) {}

 private:
  bool inSheets_ = false;
};

// The folder of a part ("xl/" for "xl/workbook.xml", "" at the top).
std::string folderOf(const std::string& part) {
  size_t slash = part.rfind('/');
  return slash == std::string::npos ? "" : part.substr(0, slash + 1);
}

// Where a relationship's target lies in the archive: relative to the source part's folder,
// or from the top when it starts with "/"; "." and ".." steps resolved.
std::string resolveTarget(const std::string& sourcePart, std::string_view target) {
  std::string joined = !target.empty() && target.front() == '/'
                           ? std::string(target.substr(1))
                           : folderOf(sourcePart) + std::string(target);
  std::vector<std::string> steps;
  size_t from = 0;
  while (from <= joined.size()) {
    size_t to = joined.find('/', from);
    if (to == std::string::npos) to = joined.size();
    std::string step = joined.substr(from, to - from);
    if (step == "..") {
      if (!steps.empty()) steps.pop_back();
    } else if (!step.empty() && step != ".") {
      steps.push_back(std::move(step));
    }
    from = to + 1;
  }
  std::string out;
  for (const std::string& step : steps) out += (out.empty() ? "" : "/") + step;
  return out;
}

std::string relationshipsPartOf(const std::string& part) {
  return folderOf(part) + "_rels/" + part.substr(folderOf(part).size()) + ".rels";
}

bool endsWith(std::string_view text, std::string_view tail) {
  return text.size() >= tail.size() && text.substr(text.size() - tail.size()) == tail;
}

// The XML parser looks one character past the end of truncated content, so every part read
// ends in a '\0' that is not part of its text.
std::string_view asText(const std::vector<unsigned char>& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.empty() ? 0 : bytes.size() - 1};
}

// Every error constant has a "#" in it, and so does any character reference; a part with
// neither that nor "inlineStr" has nothing to add and need not be parsed again.
bool mayHoldSupplement(std::string_view xml) {
  return xml.find('#') != std::string_view::npos || xml.find("inlineStr") != std::string_view::npos;
}

class Archive {
 public:
  explicit Archive(std::string_view bytes)
      : stream_(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()), zip_(&stream_) {
    zip_.load();
  }

  // The part's bytes, nullopt when the archive has no such entry. Sheet parts can be large,
  // so they are parsed where they were unpacked.
  std::optional<std::vector<unsigned char>> read(const std::string& part) const {
    std::vector<unsigned char> content;
    if (!zip_.read_file_entry(part, content)) return std::nullopt;
    content.push_back('\0');
    return content;
  }
  std::vector<unsigned char> mustRead(const std::string& part) const {
    auto content = read(part);
    if (!content) throw std::runtime_error(part + " cannot be read");
    return std::move(*content);
  }

 private:
  orcus::zip_archive_stream_blob stream_;
  orcus::zip_archive zip_;
};

// The workbook part the package's own relationships name, by default xl/workbook.xml.
std::string workbookPart(const Archive& archive) {
  if (auto rels = archive.read("_rels/.rels")) {
    RelationshipsWalker walker;
    parseXml(asText(*rels), walker);
    for (const Relationship& r : walker.found) {
      if (!r.external && endsWith(r.type, "/officeDocument")) return resolveTarget("", r.target);
    }
  }
  return "xl/workbook.xml";
}

// --- sheet parts ---

// "12" as a row number; nullopt when not a positive number. Long numbers saturate, which
// still lies outside the grid.
std::optional<int64_t> rowNumber(std::string_view text) {
  if (text.empty()) return std::nullopt;
  int64_t n = 0;
  for (char c : text) {
    if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
    n = std::min<int64_t>(n * 10 + (c - '0'), int64_t{1} << 40);
  }
  return n > 0 ? std::optional(n) : std::nullopt;
}

// "B7" as (row, column); nullopt when it is no cell address.
std::optional<std::pair<int64_t, int64_t>> cellPosition(std::string_view text) {
  size_t i = 0;
  int64_t column = 0;
  while (i < text.size() && std::isalpha(static_cast<unsigned char>(text[i]))) {
    int letter = std::toupper(static_cast<unsigned char>(text[i])) - 'A' + 1;
    column = std::min<int64_t>(column * 26 + letter, int64_t{1} << 40);
    ++i;
  }
  auto row = rowNumber(text.substr(i));
  if (column == 0 || !row) return std::nullopt;
  return std::pair(*row, column);
}

class SheetWalker : public Walker {
 public:
  SheetWalker(const std::string& sheet, XlsxSupplement& out) : sheet_(sheet), out_(out) {}

  void start_element(const orcus::sax_ns_parser_element& e) {
    std::string_view name = e.name;
    if (name == "sheetData") {
      inSheetData_ = true;
    } else if (inSheetData_ && name == "row") {
      auto number = rowNumber(attr("r").value_or(""));
      row_ = number ? *number : row_ + 1;
      column_ = 0;
      inRow_ = true;
    } else if (inRow_ && name == "c") {
      startCell();
    } else if (inCell_) {
      if (name == "f") {
        hasFormula_ = true;
      } else if (name == "v" && isDepth_ == 0) {
        inValue_ = true;
      } else if (name == "is") {
        ++isDepth_;
        hasInline_ = true;
      } else if (isDepth_ > 0 && name == "rPh") {
        ++phoneticDepth_;  // a reading aid shown above the text, not part of it
      } else if (isDepth_ > 0 && phoneticDepth_ == 0 && name == "t") {
        inText_ = true;
      }
    }
    clearAttributes();
  }

  void end_element(const orcus::sax_ns_parser_element& e) {
    std::string_view name = e.name;
    if (name == "sheetData") {
      inSheetData_ = false;
    } else if (name == "row") {
      inRow_ = false;
    } else if (inCell_) {
      if (name == "c") {
        endCell();
      } else if (name == "v") {
        inValue_ = false;
      } else if (name == "t") {
        inText_ = false;
      } else if (name == "rPh" && phoneticDepth_ > 0) {
        --phoneticDepth_;
      } else if (name == "is" && isDepth_ > 0) {
        --isDepth_;
      }
    }
  }

  void characters(std::string_view text, bool) {
    if (inText_) text_ += text;
    if (inValue_) value_ += text;
  }

 private:
  void startCell() {
    auto position = cellPosition(attr("r").value_or(""));
    if (position) {
      std::tie(row_, column_) = *position;
    } else {
      ++column_;
    }
    type_ = attr("t").value_or("n");
    inCell_ = true;
    hasFormula_ = hasInline_ = inValue_ = inText_ = false;
    isDepth_ = phoneticDepth_ = 0;
    text_.clear();
    value_.clear();
  }

  void endCell() {
    inCell_ = false;
    if (hasFormula_) return;  // the import reads formula cells, their results are not wanted
    if (type_ == "inlineStr" && hasInline_) {
      add("'" + decodeXlsxEscapes(text_));
    } else if (type_ == "e") {
      std::string_view error = value_;
      while (!error.empty() && std::isspace(static_cast<unsigned char>(error.front())))
        error.remove_prefix(1);
      while (!error.empty() && std::isspace(static_cast<unsigned char>(error.back())))
        error.remove_suffix(1);
      if (error.empty()) return;
      size_t length = 0;
      if (workbook::errorLiteral(error, length) && length == error.size()) {
        add(std::string(error));
      } else if (add("'" + std::string(error))) {
        out_.notes.push_back(sheet_ + "!" +
                             workbook::cellAddress(static_cast<int32_t>(row_),
                                                   static_cast<int32_t>(column_), false, false) +
                             ": error value " + std::string(error) + " kept as a text");
      }
    }
  }

  // Whether the cell lies inside the grid (and so can have a note with its address).
  bool add(std::string entry) {
    out_.values.push_back({sheet_, row_, column_, std::move(entry)});
    return workbook::isValidRow(row_) && workbook::isValidColumn(column_);
  }

  const std::string& sheet_;
  XlsxSupplement& out_;
  bool inSheetData_ = false;
  bool inRow_ = false;
  bool inCell_ = false;
  bool hasFormula_ = false;
  bool hasInline_ = false;
  bool inValue_ = false;
  bool inText_ = false;
  int isDepth_ = 0;
  int phoneticDepth_ = 0;
  int64_t row_ = 0;  // 1-based; 0 before the first row
  int64_t column_ = 0;
  std::string type_;
  std::string text_;
  std::string value_;
};

std::string reasonOf(const std::exception& e) {
  std::string what = e.what();
  return what.empty() ? "damaged" : what;
}

}  // namespace

XlsxSupplement readXlsxSupplement(std::string_view bytes) {
  XlsxSupplement out;
  std::vector<std::pair<std::string, std::string>> sheetParts;  // name, part
  try {
    Archive archive(bytes);
    std::string workbook = workbookPart(archive);
    WorkbookWalker sheets;
    parseXml(asText(archive.mustRead(workbook)), sheets);
    RelationshipsWalker rels;
    if (auto text = archive.read(relationshipsPartOf(workbook))) parseXml(asText(*text), rels);
    for (const SheetEntry& sheet : sheets.sheets) {
      std::string part;
      for (const Relationship& r : rels.found) {
        if (r.id == sheet.relationship && !r.external) part = resolveTarget(workbook, r.target);
      }
      if (!part.empty()) sheetParts.emplace_back(sheet.name, part);
    }
    for (const auto& [name, part] : sheetParts) {
      size_t kept = out.values.size();
      size_t keptNotes = out.notes.size();
      try {
        auto xml = archive.read(part);
        if (!xml) {
          // The import shows such a sheet empty without a word.
          out.notes.push_back(name + ": its content is missing from the file");
          continue;
        }
        if (!mayHoldSupplement(asText(*xml))) continue;
        SheetWalker walker(name, out);
        parseXml(asText(*xml), walker);
      } catch (const std::bad_alloc&) {
        throw;
      } catch (const std::exception& e) {
        out.values.resize(kept);
        out.notes.resize(keptNotes);
        out.notes.push_back(name + ": inline texts and error values left out (" + reasonOf(e) +
                            ")");
      }
    }
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& e) {
    out = {};
    out.notes.push_back("inline texts and error values left out (" + reasonOf(e) + ")");
  }
  return out;
}

void applyXlsxSupplement(const XlsxSupplement& supplement, WorkbookImage& image,
                         const std::function<void()>& countCell) {
  std::map<std::string, size_t, std::less<>> sheets;
  for (size_t i = 0; i < image.sheets.size(); ++i) sheets.emplace(image.sheets[i].name, i);
  std::vector<bool> outsideNoted(image.sheets.size(), false);
  for (const std::string& note : image.notes) {
    size_t bang = note.rfind('!');
    if (bang == std::string::npos || !endsWith(note, kOutsideGrid)) continue;
    auto sheet = sheets.find(std::string_view(note).substr(0, bang));
    if (sheet != sheets.end()) outsideNoted[sheet->second] = true;
  }

  for (const XlsxSupplement::Value& v : supplement.values) {
    auto sheet = sheets.find(v.sheet);
    if (sheet == sheets.end()) continue;
    if (!workbook::isValidRow(v.row) || !workbook::isValidColumn(v.column)) {
      if (!outsideNoted[sheet->second]) {
        image.notes.push_back(v.sheet + "!R" + std::to_string(v.row) + "C" +
                              std::to_string(v.column) + std::string(kOutsideGrid));
        outsideNoted[sheet->second] = true;
      }
      continue;
    }
    CellEntries& cells = image.sheets[sheet->second].cells;
    auto key = std::pair(static_cast<int32_t>(v.row), static_cast<int32_t>(v.column));
    if (cells.contains(key)) continue;  // what the import read stays
    countCell();
    cells.emplace(key, v.entry);
  }
  image.notes.insert(image.notes.end(), supplement.notes.begin(), supplement.notes.end());
}

}  // namespace kxc::fileio
