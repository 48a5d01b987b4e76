#include "platform/fileio/ods_supplement.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <optional>
#include <orcus/sax_ns_parser.hpp>
#include <orcus/xml_namespace.hpp>
#include <orcus/zip_archive.hpp>
#include <orcus/zip_archive_stream.hpp>
#include <stdexcept>
#include <vector>

#include "platform/fileio/formula_shift.h"
#include "platform/variant.h"
#include "platform/workbook/grid.h"

namespace kxc::fileio {
namespace {

constexpr std::string_view kTableNs = "urn:oasis:names:tc:opendocument:xmlns:table:1.0";
constexpr std::string_view kOfficeNs = "urn:oasis:names:tc:opendocument:xmlns:office:1.0";
constexpr std::string_view kTextNs = "urn:oasis:names:tc:opendocument:xmlns:text:1.0";

bool inNs(orcus::xmlns_id_t ns, std::string_view uri) { return ns && std::string_view(ns) == uri; }

// A repeat count from an attribute: 1 when absent or unreadable, at most the grid's size.
int64_t repeatCount(const std::string& text, int64_t limit) {
  int64_t n = 1;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
  if (ec != std::errc() || n < 1) return 1;
  return std::min(n, limit);
}

std::string numberText(double value) {
  char buffer[64];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ec == std::errc() ? std::string(buffer, end) : "#NUM!";
}

// "PT12H30M15.5S", "-P1DT2H": a duration as a fraction of days.
std::optional<double> durationInDays(std::string_view text) {
  bool negative = !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.front() != 'P') return std::nullopt;
  text.remove_prefix(1);
  double days = 0;
  bool time = false;
  while (!text.empty()) {
    if (text.front() == 'T') {
      time = true;
      text.remove_prefix(1);
      continue;
    }
    size_t i = 0;
    while (i < text.size() &&
           (std::isdigit(static_cast<unsigned char>(text[i])) || text[i] == '.')) {
      ++i;
    }
    if (i == 0 || i >= text.size()) return std::nullopt;
    double n = 0;
    if (!parseNumber(text.substr(0, i), n)) return std::nullopt;
    char unit = text[i];
    if (!time && unit == 'D') {
      days += n;
    } else if (time && unit == 'H') {
      days += n / 24;
    } else if (time && unit == 'M') {
      days += n / 1440;
    } else if (time && unit == 'S') {
      days += n / 86400;
    } else {
      return std::nullopt;  // years and months have no fixed length
    }
    text.remove_prefix(i + 1);
  }
  return negative ? -days : days;
}

class ContentWalker {
 public:
  explicit ContentWalker(OdsSupplement& out) : out_(out) {}

  void doctype(const orcus::sax::doctype_declaration&) {}
  void start_declaration(std::string_view) {}
  void end_declaration(std::string_view) {}
  void attribute(std::string_view, std::string_view) {}

  // Attributes arrive before the element they belong to.
  void attribute(const orcus::sax_ns_parser_attribute& a) {
    pending_.push_back(
        {a.ns ? std::string(a.ns) : std::string(), std::string(a.name), std::string(a.value)});
  }

  void start_element(const orcus::sax_ns_parser_element& e) {
    if (inNs(e.ns, kOfficeNs) && e.name == "annotation") ++annotation_;
    if (inNs(e.ns, kTableNs)) {
      if (e.name == "table") {
        ++sheet_;
        row_ = 0;
      } else if (e.name == "table-row") {
        rowRepeat_ = repeatCount(attr(kTableNs, "number-rows-repeated"), workbook::kMaxRows);
        column_ = 0;
        rowHasContent_ = false;
      } else if (e.name == "table-cell" || e.name == "covered-table-cell") {
        startCell();
      }
    } else if (collecting_ && annotation_ == 0 && inNs(e.ns, kTextNs)) {
      if (e.name == "p") {
        paragraphs_.emplace_back();
        inParagraph_ = true;
      } else if (inParagraph_ && e.name == "s") {
        paragraphs_.back().append(static_cast<size_t>(repeatCount(attr(kTextNs, "c"), 1024)), ' ');
      } else if (inParagraph_ && e.name == "tab") {
        paragraphs_.back() += '\t';
      } else if (inParagraph_ && e.name == "line-break") {
        paragraphs_.back() += '\n';
      }
    }
    pending_.clear();
  }

  void end_element(const orcus::sax_ns_parser_element& e) {
    if (inNs(e.ns, kOfficeNs) && e.name == "annotation" && annotation_ > 0) --annotation_;
    if (inNs(e.ns, kTextNs) && e.name == "p" && annotation_ == 0) inParagraph_ = false;
    if (!inNs(e.ns, kTableNs)) return;
    if (e.name == "table-row") {
      if (rowHasContent_ && rowRepeat_ > 1 && sheet_ >= 0) {
        out_.rows.push_back({static_cast<size_t>(sheet_), static_cast<int32_t>(row_ + 1), 1,
                             static_cast<int32_t>(rowRepeat_)});
      }
      row_ += rowRepeat_;
    } else if (e.name == "table-cell" || e.name == "covered-table-cell") {
      endCell();
    }
  }

  void characters(std::string_view text, bool) {
    if (inParagraph_ && annotation_ == 0 && !paragraphs_.empty()) paragraphs_.back() += text;
  }

 private:
  struct Attribute {
    std::string ns;
    std::string name;
    std::string value;
  };

  std::string attr(std::string_view ns, std::string_view name) const {
    for (const Attribute& a : pending_) {
      if (a.ns == ns && a.name == name) return a.value;
    }
    return "";
  }
  bool hasAttr(std::string_view ns, std::string_view name) const {
    for (const Attribute& a : pending_) {
      if (a.ns == ns && a.name == name) return true;
    }
    return false;
  }

  bool insideGrid() const {
    return sheet_ >= 0 && row_ < workbook::kMaxRows && column_ < workbook::kMaxColumns;
  }

  void add(std::string entry) {
    for (int64_t k = 0; k < columnRepeat_ && column_ + k < workbook::kMaxColumns; ++k) {
      out_.values.push_back({static_cast<size_t>(sheet_), static_cast<int32_t>(row_ + 1),
                             static_cast<int32_t>(column_ + k + 1), entry});
    }
  }

  void startCell() {
    columnRepeat_ = repeatCount(attr(kTableNs, "number-columns-repeated"), workbook::kMaxColumns);
    collecting_ = false;
    paragraphs_.clear();
    std::string type = attr(kOfficeNs, "value-type");
    bool formula = hasAttr(kTableNs, "formula");
    if (formula || !type.empty()) rowHasContent_ = true;
    if (!insideGrid()) return;
    if (formula) {
      if (columnRepeat_ > 1) {
        out_.formulaCells.push_back({static_cast<size_t>(sheet_), static_cast<int32_t>(row_ + 1),
                                     static_cast<int32_t>(column_ + 1),
                                     static_cast<int32_t>(columnRepeat_)});
      }
      return;
    }
    double number = 0;
    if (type == "boolean") {
      std::string value = attr(kOfficeNs, "boolean-value");
      add(value == "true" || value == "1" ? "TRUE" : "FALSE");
    } else if ((type == "percentage" || type == "currency") &&
               parseNumber(attr(kOfficeNs, "value"), number)) {
      add(numberText(number));
    } else if (type == "time") {
      if (auto days = durationInDays(attr(kOfficeNs, "time-value"))) add(numberText(*days));
    } else if (type == "string") {
      if (hasAttr(kOfficeNs, "string-value")) {
        add("'" + attr(kOfficeNs, "string-value"));
      } else {
        collecting_ = true;
      }
    }
  }

  void endCell() {
    if (collecting_ && !paragraphs_.empty() && insideGrid()) {
      std::string text;
      for (size_t i = 0; i < paragraphs_.size(); ++i) text += (i ? "\n" : "") + paragraphs_[i];
      add("'" + text);
    }
    collecting_ = false;
    inParagraph_ = false;
    paragraphs_.clear();
    column_ += columnRepeat_;
  }

  OdsSupplement& out_;
  std::vector<Attribute> pending_;
  int64_t sheet_ = -1;
  int64_t row_ = 0;  // 0-based
  int64_t column_ = 0;
  int64_t rowRepeat_ = 1;
  int64_t columnRepeat_ = 1;
  bool rowHasContent_ = false;
  bool collecting_ = false;
  bool inParagraph_ = false;
  int annotation_ = 0;
  std::vector<std::string> paragraphs_;
};

}  // namespace

OdsSupplement readOdsSupplement(std::string_view bytes) {
  orcus::zip_archive_stream_blob stream(reinterpret_cast<const uint8_t*>(bytes.data()),
                                        bytes.size());
  orcus::zip_archive archive(&stream);
  archive.load();
  std::vector<unsigned char> content;
  if (!archive.read_file_entry("content.xml", content)) {
    throw std::runtime_error("content.xml cannot be read");
  }
  content.push_back('\0');  // the XML parser looks one character past truncated content
  OdsSupplement out;
  ContentWalker walker(out);
  orcus::xmlns_repository namespaces;
  orcus::xmlns_context context = namespaces.create_context();
  orcus::sax_ns_parser<ContentWalker> parser(reinterpret_cast<const char*>(content.data()),
                                             content.size() - 1, context, walker);
  parser.parse();
  return out;
}

void applyOdsSupplement(const OdsSupplement& supplement, WorkbookImage& image,
                        const std::function<void()>& countCell) {
  auto put = [&](size_t sheet, int32_t row, int32_t column, std::string entry) {
    auto [it, added] = image.sheets[sheet].cells.try_emplace({row, column});
    if (added) countCell();
    it->second = std::move(entry);
  };
  auto isFormula = [](const std::string& entry) { return entry.rfind('=', 0) == 0; };

  for (const auto& v : supplement.values) {
    if (v.sheet < image.sheets.size()) put(v.sheet, v.row, v.column, v.entry);
  }
  for (const auto& r : supplement.formulaCells) {
    if (r.sheet >= image.sheets.size()) continue;
    const CellEntries& cells = image.sheets[r.sheet].cells;
    auto source = cells.find({r.row, r.column});
    if (source == cells.end() || !isFormula(source->second)) continue;
    std::string formula = source->second;
    for (int32_t k = 1; k < r.count && r.column + k <= workbook::kMaxColumns; ++k) {
      put(r.sheet, r.row, r.column + k, shiftFormula(formula, 0, k));
    }
  }
  for (const auto& r : supplement.rows) {
    if (r.sheet >= image.sheets.size()) continue;
    CellEntries& cells = image.sheets[r.sheet].cells;
    std::vector<std::pair<int32_t, std::string>> row;
    for (auto it = cells.lower_bound({r.row, 0}); it != cells.end() && it->first.first == r.row;
         ++it) {
      row.emplace_back(it->first.second, it->second);
    }
    for (int32_t k = 1; k < r.count && r.row + k <= workbook::kMaxRows; ++k) {
      for (const auto& [column, entry] : row) {
        put(r.sheet, r.row + k, column, isFormula(entry) ? shiftFormula(entry, k, 0) : entry);
      }
    }
  }
}

}  // namespace kxc::fileio
