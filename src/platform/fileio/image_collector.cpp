#include "platform/fileio/image_collector.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <orcus/exception.hpp>
#include <unordered_map>

#include "platform/fileio/formula_shift.h"
#include "platform/fileio/odf_formula.h"
#include "platform/fileio/xlsx_escapes.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/grid.h"

namespace kxc::fileio {

namespace ss = orcus::spreadsheet;
namespace iface = orcus::spreadsheet::iface;

namespace {

// The import library's reading of decimal numbers can be a few units in the last place off.
// Files hold decimals, and what users type has at most 15 significant digits, so a number
// that close to a 15-digit decimal is taken as that decimal.
double nearestShortDecimal(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.15g", value);
  double decimal = std::strtod(text, nullptr);
  double step = value;
  for (int i = 0; i < 4 && step != decimal; ++i) step = std::nextafter(step, decimal);
  return step == decimal ? decimal : value;
}

std::string numberEntry(double value) {
  if (!std::isfinite(value)) return "#NUM!";
  char buffer[64];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ec == std::errc() ? std::string(buffer, end) : "#NUM!";
}

bool insideGrid(ss::row_t row, ss::col_t column) {
  return row >= 0 && row < workbook::kMaxRows && column >= 0 && column < workbook::kMaxColumns;
}

std::string place(const std::string& sheet, ss::row_t row, ss::col_t column) {
  std::string out = sheet + "!";
  if (insideGrid(row, column))
    return out + workbook::cellAddress(row + 1, column + 1, false, false);
  return out + "R" + std::to_string(int64_t{row} + 1) + "C" + std::to_string(int64_t{column} + 1);
}

// Splits at the last `separator` outside single quotes: the sheet part (unquoted, "" when
// absent) and the cell part.
std::pair<std::string, std::string_view> splitQualifier(std::string_view text, char separator) {
  bool quoted = false;
  size_t at = std::string_view::npos;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') quoted = !quoted;
    if (!quoted && text[i] == separator) at = i;
  }
  if (at == std::string_view::npos) return {"", text};
  std::string_view sheet = text.substr(0, at);
  if (!sheet.empty() && sheet.front() == '$') sheet.remove_prefix(1);
  std::string name;
  if (sheet.size() >= 2 && sheet.front() == '\'' && sheet.back() == '\'') {
    sheet = sheet.substr(1, sheet.size() - 2);
    for (size_t i = 0; i < sheet.size(); ++i) {
      name += sheet[i];
      if (sheet[i] == '\'' && i + 1 < sheet.size() && sheet[i + 1] == '\'') ++i;
    }
  } else {
    name = std::string(sheet);
  }
  return {name, text.substr(at + 1)};
}

}  // namespace

TooManyCells::TooManyCells(std::size_t limit)
    : std::runtime_error("more than " + std::to_string(limit) + " cells"), limit_(limit) {}

// --- shared strings ---

class ImageCollector::Strings : public iface::import_shared_strings {
 public:
  const std::string* at(size_t index) const {
    return index < strings_.size() ? &strings_[index] : nullptr;
  }

  size_t append(std::string_view s) override {
    strings_.emplace_back(s);
    index_.emplace(strings_.back(), strings_.size() - 1);
    return strings_.size() - 1;
  }
  size_t add(std::string_view s) override {
    auto found = index_.find(std::string(s));
    return found != index_.end() ? found->second : append(s);
  }
  void set_segment_font(size_t) override {}
  void set_segment_bold(bool) override {}
  void set_segment_italic(bool) override {}
  void set_segment_font_name(std::string_view) override {}
  void set_segment_font_size(double) override {}
  void set_segment_font_color(ss::color_elem_t, ss::color_elem_t, ss::color_elem_t,
                              ss::color_elem_t) override {}
  void append_segment(std::string_view s) override { segments_ += s; }
  size_t commit_segments() override {
    size_t index = append(segments_);
    segments_.clear();
    return index;
  }

 private:
  std::vector<std::string> strings_;
  std::unordered_map<std::string, size_t> index_;
  std::string segments_;
};

// --- global settings ---

class ImageCollector::Settings : public iface::import_global_settings {
 public:
  // Days from 1970-01-01 to the day whose serial number is 0.
  int64_t originDays() const { return origin_; }

  void set_origin_date(int year, int month, int day) override {
    std::chrono::year_month_day ymd{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                    std::chrono::day(unsigned(day))};
    if (ymd.ok()) origin_ = std::chrono::sys_days(ymd).time_since_epoch().count();
  }
  void set_default_formula_grammar(ss::formula_grammar_t grammar) override { grammar_ = grammar; }
  ss::formula_grammar_t get_default_formula_grammar() const override { return grammar_; }
  void set_character_set(orcus::character_set_t) override {}

 private:
  int64_t origin_ = -25569;  // 1899-12-30
  ss::formula_grammar_t grammar_ = ss::formula_grammar_t::unknown;
};

// --- cell addresses used inside the file's structure ---

class ImageCollector::Resolver : public iface::import_reference_resolver {
 public:
  explicit Resolver(ImageCollector& owner) : owner_(owner) {}

  ss::src_address_t resolve_address(std::string_view address) override {
    char separator = owner_.syntax() == FormulaSyntax::Odf ? '.' : '!';
    auto [sheet, cell] = splitQualifier(address, separator);
    ss::src_address_t out{sheetIndex(sheet), 0, 0};
    if (!readCell(cell, out)) throw orcus::invalid_arg_error("not a cell address");
    return out;
  }

  ss::src_range_t resolve_range(std::string_view range) override {
    bool quoted = false;
    for (size_t i = 0; i < range.size(); ++i) {
      if (range[i] == '\'') quoted = !quoted;
      if (!quoted && range[i] == ':') {
        ss::src_range_t out{resolve_address(range.substr(0, i)), {}};
        std::string_view second = range.substr(i + 1);
        if (!second.empty() && second.front() == '.') second.remove_prefix(1);
        out.last = resolve_address(second);
        if (second.find_first_of(".!") == std::string_view::npos) out.last.sheet = out.first.sheet;
        return out;
      }
    }
    ss::src_address_t one = resolve_address(range);
    return {one, one};
  }

 private:
  ss::sheet_t sheetIndex(const std::string& name) const {
    const auto& sheets = owner_.image_.sheets;
    for (size_t i = 0; i < sheets.size(); ++i) {
      if (sheets[i].name == name) return static_cast<ss::sheet_t>(i);
    }
    return 0;
  }

  static bool readCell(std::string_view text, ss::src_address_t& out) {
    if (!text.empty() && text.front() == '.') text.remove_prefix(1);
    size_t i = 0;
    if (i < text.size() && text[i] == '$') ++i;
    size_t start = i;
    while (i < text.size() && std::isalpha(static_cast<unsigned char>(text[i])) && i - start < 4) {
      ++i;
    }
    int32_t column = i - start <= 3 ? workbook::columnNumber(text.substr(start, i - start)) : 0;
    if (i < text.size() && text[i] == '$') ++i;
    int64_t row = 0;
    size_t digits = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])) && digits < 8;
         ++i, ++digits) {
      row = row * 10 + (text[i] - '0');
    }
    if (column == 0 || i != text.size() || !workbook::isValidRow(row)) return false;
    out.row = static_cast<ss::row_t>(row - 1);
    out.column = column - 1;
    return true;
  }

  ImageCollector& owner_;
};

// --- defined names ---

class ImageCollector::Names : public iface::import_named_expression {
 public:
  Names(ImageCollector& owner, std::optional<size_t> sheet) : owner_(owner), sheet_(sheet) {}

  void set_base_position(const ss::src_address_t& position) override {
    if (position.sheet >= 0) base_ = static_cast<size_t>(position.sheet);
  }
  void set_named_expression(std::string_view name, std::string_view expression) override {
    name_ = std::string(name);
    if (owner_.syntax() == FormulaSyntax::Odf) {
      auto converted = odfFormulaToA1(expression);
      if (!converted) return skip("its formula cannot be read");
      reference_ = converted->substr(1);
    } else {
      if (!expression.empty() && expression.front() == '=') expression.remove_prefix(1);
      reference_ = std::string(expression);
    }
  }
  void set_named_range(std::string_view name, std::string_view range) override {
    name_ = std::string(name);
    if (owner_.syntax() == FormulaSyntax::Odf) {
      auto converted = odfRangeToA1(range);
      if (!converted) return skip("its range cannot be read");
      reference_ = *converted;
    } else {
      reference_ = std::string(range);
    }
  }
  void commit() override {
    // Names the file format keeps for itself (print areas, filter ranges) are not the user's.
    bool internal = name_.rfind("_xlnm.", 0) == 0;
    if (!name_.empty() && reference_ && !internal) {
      owner_.image_.names.push_back({name_, *reference_, sheet_.value_or(base_)});
    }
    name_.clear();
    reference_.reset();
    base_ = 0;
  }

 private:
  void skip(const std::string& why) {
    owner_.note("name " + name_ + " left out: " + why);
    reference_.reset();
    name_.clear();
  }

  ImageCollector& owner_;
  std::optional<size_t> sheet_;  // set for names that belong to one sheet
  size_t base_ = 0;
  std::string name_;
  std::optional<std::string> reference_;
};

// --- sheets ---

class ImageCollector::Formula : public iface::import_formula {
 public:
  explicit Formula(SheetSink& sheet) : sheet_(sheet) {}

  void set_position(ss::row_t row, ss::col_t column) override {
    row_ = row;
    column_ = column;
  }
  void set_formula(ss::formula_grammar_t, std::string_view formula) override {
    // A cell that only uses a shared formula can come with the blanks around it as its text.
    if (formula.find_first_not_of(" \t\r\n") != std::string_view::npos) {
      text_ = std::string(formula);
    }
  }
  void set_shared_formula_index(size_t index) override { shared_ = index; }
  void set_result_string(std::string_view) override {}
  void set_result_value(double) override {}
  void set_result_bool(bool) override {}
  void set_result_empty() override {}
  void commit() override;

 private:
  struct Shared {
    ss::row_t row;
    ss::col_t column;
    std::string formula;
  };

  SheetSink& sheet_;
  ss::row_t row_ = 0;
  ss::col_t column_ = 0;
  std::optional<std::string> text_;
  std::optional<size_t> shared_;
  std::unordered_map<size_t, Shared> sharedFormulas_;
};

class ImageCollector::ArrayFormula : public iface::import_array_formula {
 public:
  explicit ArrayFormula(SheetSink& sheet) : sheet_(sheet) {}

  void set_range(const ss::range_t& range) override { first_ = range.first; }
  void set_formula(ss::formula_grammar_t, std::string_view formula) override {
    text_ = std::string(formula);
  }
  void set_result_string(ss::row_t, ss::col_t, std::string_view) override {}
  void set_result_value(ss::row_t, ss::col_t, double) override {}
  void set_result_bool(ss::row_t, ss::col_t, bool) override {}
  void set_result_empty(ss::row_t, ss::col_t) override {}
  void commit() override;

 private:
  SheetSink& sheet_;
  ss::address_t first_{0, 0};
  std::optional<std::string> text_;
};

class ImageCollector::SheetSink : public iface::import_sheet {
 public:
  SheetSink(ImageCollector& owner, size_t index)
      : owner_(owner), index_(index), formula_(*this), array_(*this), names_(owner, index) {}

  ImageCollector& owner() { return owner_; }
  std::string where(ss::row_t row, ss::col_t column) const {
    return place(owner_.image_.sheets[index_].name, row, column);
  }

  // Stores the entry of one cell; cells outside the grid are dropped with one note a sheet.
  void put(ss::row_t row, ss::col_t column, std::string entry) {
    if (!insideGrid(row, column)) {
      if (!droppedNoted_) owner_.note(where(row, column) + ": cells outside the grid left out");
      droppedNoted_ = true;
      return;
    }
    CellEntries& cells = owner_.image_.sheets[index_].cells;
    auto [it, added] = cells.try_emplace({row + 1, column + 1});
    if (added) owner_.countCell();
    it->second = std::move(entry);
  }
  const std::string* entryAt(ss::row_t row, ss::col_t column) const {
    const CellEntries& cells = owner_.image_.sheets[index_].cells;
    auto found = cells.find({row + 1, column + 1});
    return found == cells.end() ? nullptr : &found->second;
  }

  iface::import_formula* get_formula() override { return &formula_; }
  iface::import_array_formula* get_array_formula() override { return &array_; }
  iface::import_named_expression* get_named_expression() override { return &names_; }

  void set_auto(ss::row_t row, ss::col_t column, std::string_view text) override {
    put(row, column, std::string(text));
  }
  void set_string(ss::row_t row, ss::col_t column, ss::string_id_t index) override {
    const std::string* text = owner_.strings().at(index);
    if (!text) return owner_.note(where(row, column) + ": text missing from the file");
    put(row, column,
        "'" + (owner_.syntax() == FormulaSyntax::A1 ? decodeXlsxEscapes(*text) : *text));
  }
  void set_value(ss::row_t row, ss::col_t column, double value) override {
    put(row, column, numberEntry(nearestShortDecimal(value)));
  }
  void set_bool(ss::row_t row, ss::col_t column, bool value) override {
    put(row, column, value ? "TRUE" : "FALSE");
  }
  void set_date_time(ss::row_t row, ss::col_t column, int year, int month, int day, int hour,
                     int minute, double second) override {
    std::chrono::year_month_day ymd{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                    std::chrono::day(unsigned(day))};
    if (!ymd.ok()) return owner_.note(where(row, column) + ": date out of range left out");
    int64_t days = std::chrono::sys_days(ymd).time_since_epoch().count();
    double serial = double(days - owner_.settings().originDays()) +
                    (hour * 3600.0 + minute * 60.0 + second) / 86400.0;
    put(row, column, numberEntry(serial));
  }
  void set_format(ss::row_t, ss::col_t, size_t) override {}
  void set_format(ss::row_t, ss::col_t, ss::row_t, ss::col_t, size_t) override {}
  void fill_down_cells(ss::row_t row, ss::col_t column, ss::row_t count) override {
    const std::string* source = entryAt(row, column);
    if (!source) return;
    std::string entry = *source;
    for (ss::row_t i = 1; i <= count && insideGrid(row + i, column); ++i) {
      put(row + i, column, entry.rfind('=', 0) == 0 ? shiftFormula(entry, i, 0) : entry);
    }
  }
  ss::range_size_t get_sheet_size() const override {
    return {workbook::kMaxRows, workbook::kMaxColumns};
  }

 private:
  ImageCollector& owner_;
  size_t index_;
  Formula formula_;
  ArrayFormula array_;
  Names names_;
  bool droppedNoted_ = false;
};

void ImageCollector::Formula::commit() {
  std::string where = sheet_.where(row_, column_);
  std::optional<std::string> formula;
  if (text_) {
    formula = sheet_.owner().convertFormula(*text_, where);
    if (shared_) sharedFormulas_[*shared_] = {row_, column_, *formula};
  } else if (shared_) {
    auto found = sharedFormulas_.find(*shared_);
    if (found != sharedFormulas_.end()) {
      const Shared& s = found->second;
      formula = shiftFormula(s.formula, row_ - s.row, column_ - s.column);
    } else {
      sheet_.owner().note(where + ": shared formula missing from the file");
    }
  }
  if (formula) sheet_.put(row_, column_, std::move(*formula));
  text_.reset();
  shared_.reset();
}

void ImageCollector::ArrayFormula::commit() {
  if (text_) {
    std::string where = sheet_.where(first_.row, first_.column);
    sheet_.put(first_.row, first_.column, sheet_.owner().convertFormula(*text_, where));
    sheet_.owner().note(where + ": array formula kept as an ordinary formula in its first cell");
  }
  text_.reset();
}

// --- the factory ---

ImageCollector::ImageCollector(FormulaSyntax syntax, std::size_t cellLimit)
    : syntax_(syntax),
      cellLimit_(cellLimit),
      strings_(std::make_unique<Strings>()),
      settings_(std::make_unique<Settings>()),
      resolver_(std::make_unique<Resolver>(*this)),
      names_(std::make_unique<Names>(*this, std::nullopt)) {}

ImageCollector::~ImageCollector() = default;

WorkbookImage ImageCollector::take() { return std::exchange(image_, {}); }

void ImageCollector::countCell() {
  if (++cellCount_ > cellLimit_) throw TooManyCells(cellLimit_);
}

std::string ImageCollector::convertFormula(std::string_view text, const std::string& where) {
  if (syntax_ == FormulaSyntax::A1) {
    return text.rfind('=', 0) == 0 ? std::string(text) : "=" + std::string(text);
  }
  if (auto converted = odfFormulaToA1(text)) return *converted;
  note(where + ": formula kept as written, it cannot be converted");
  return text.rfind('=', 0) == 0 ? std::string(text) : "=" + std::string(text);
}

iface::import_global_settings* ImageCollector::get_global_settings() { return settings_.get(); }

iface::import_shared_strings* ImageCollector::get_shared_strings() { return strings_.get(); }

iface::import_named_expression* ImageCollector::get_named_expression() { return names_.get(); }

iface::import_reference_resolver* ImageCollector::get_reference_resolver(
    ss::formula_ref_context_t) {
  return resolver_.get();
}

iface::import_sheet* ImageCollector::append_sheet(ss::sheet_t, std::string_view name) {
  image_.sheets.push_back({std::string(name), {}});
  sheets_.push_back(std::make_unique<SheetSink>(*this, sheets_.size()));
  return sheets_.back().get();
}

iface::import_sheet* ImageCollector::get_sheet(std::string_view name) {
  for (size_t i = 0; i < image_.sheets.size(); ++i) {
    if (image_.sheets[i].name == name) return sheets_[i].get();
  }
  return nullptr;
}

iface::import_sheet* ImageCollector::get_sheet(ss::sheet_t index) {
  if (index < 0 || static_cast<size_t>(index) >= sheets_.size()) return nullptr;
  return sheets_[static_cast<size_t>(index)].get();
}

}  // namespace kxc::fileio
