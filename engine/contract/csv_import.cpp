#include "engine/contract/csv_import.h"

#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <unordered_map>

#include "engine/contract/csv_reader.h"
#include "engine/contract/engine_errors.h"
#include "platform/text_rules.h"
#include "platform/variant.h"

namespace kxc::engine {

namespace {

enum class ColumnKind { Dimension, Caption, Measure, Date, Reference };

struct Column {
  ColumnKind kind;
  int target = 0;  // dimension or measure number (0-based)
};

struct Layout {
  std::vector<Column> columns;
  std::vector<std::string> dimensions;
  std::vector<MeasureDef> measures;
};

class ImportError {
 public:
  ImportError(std::string file) : file_(std::move(file)) {}
  RuntimeError at(int64_t line, const std::string& reason) const {
    return RuntimeError(engine_err::kImport, file_ + ":" + std::to_string(line) + ": " + reason);
  }
  RuntimeError whole(const std::string& reason) const {
    return RuntimeError(engine_err::kImport, file_ + ": " + reason);
  }

 private:
  std::string file_;
};

std::string afterPrefix(const std::string& header, size_t colon) {
  return std::string(trimBlanks(std::string_view(header).substr(colon + 1)));
}

Layout readHeader(const std::vector<std::string>& header, const ImportError& error) {
  Layout layout;
  std::vector<std::pair<size_t, std::string>> captionColumns;
  bool date = false, reference = false;
  for (size_t i = 0; i < header.size(); ++i) {
    std::string h(trimBlanks(header[i]));
    size_t colon = h.find(':');
    std::string kind = upperCase(h.substr(0, colon));
    if (colon != std::string::npos && kind == "DIM") {
      std::string caption = afterPrefix(h, colon);
      if (caption.empty()) throw error.at(1, "column " + std::to_string(i + 1) + " has no name");
      for (const auto& d : layout.dimensions) {
        if (upperCase(d) == upperCase(caption)) {
          throw error.at(1, "dimension " + caption + " appears twice");
        }
      }
      layout.columns.push_back({ColumnKind::Dimension, static_cast<int>(layout.dimensions.size())});
      layout.dimensions.push_back(caption);
    } else if (colon != std::string::npos && kind == "CAPTION") {
      layout.columns.push_back({ColumnKind::Caption, -1});
      captionColumns.emplace_back(layout.columns.size() - 1, afterPrefix(h, colon));
    } else if (colon != std::string::npos && kind == "MEASURE") {
      std::string rest = afterPrefix(h, colon);
      size_t c2 = rest.find(':');
      MeasureDef m;
      m.caption = std::string(trimBlanks(rest.substr(0, c2)));
      if (m.caption.empty()) throw error.at(1, "column " + std::to_string(i + 1) + " has no name");
      if (c2 != std::string::npos) {
        size_t c3 = rest.find(':', c2 + 1);
        std::string agg = rest.substr(c2 + 1, c3 == std::string::npos ? c3 : c3 - c2 - 1);
        if (!trimBlanks(agg).empty()) {
          auto a = parseAggregation(agg);
          if (!a) throw error.at(1, "unknown aggregation '" + agg + "' for measure " + m.caption);
          m.aggregation = *a;
        }
        if (c3 != std::string::npos) m.format = rest.substr(c3 + 1);
      }
      layout.columns.push_back({ColumnKind::Measure, static_cast<int>(layout.measures.size())});
      layout.measures.push_back(std::move(m));
    } else if (colon == std::string::npos && kind == "DATE" && !date) {
      date = true;
      layout.columns.push_back({ColumnKind::Date});
    } else if (colon == std::string::npos && kind == "REFERENCE" && !reference) {
      reference = true;
      layout.columns.push_back({ColumnKind::Reference});
    } else {
      throw error.at(1, "cannot read column heading '" + h +
                            "' (expected dim:NAME, caption:NAME, measure:NAME[:AGG[:FORMAT]], "
                            "date or reference, each once)");
    }
  }
  for (auto& [col, dim] : captionColumns) {
    int target = -1;
    for (size_t d = 0; d < layout.dimensions.size(); ++d) {
      if (upperCase(layout.dimensions[d]) == upperCase(dim)) target = static_cast<int>(d);
    }
    if (target < 0) throw error.at(1, "caption:" + dim + " names no dimension");
    layout.columns[col].target = target;
  }
  if (layout.dimensions.empty()) throw error.at(1, "no dim: column");
  if (layout.dimensions.size() > static_cast<size_t>(kMaxDimensions)) {
    throw error.at(1, "more than " + std::to_string(kMaxDimensions) + " dimensions");
  }
  if (layout.measures.empty()) throw error.at(1, "no measure: column");
  return layout;
}

bool isDigits(std::string_view s, size_t from, size_t n) {
  if (s.size() < from + n) return false;
  for (size_t i = from; i < from + n; ++i) {
    if (s[i] < '0' || s[i] > '9') return false;
  }
  return true;
}

bool isIsoDate(std::string_view s) {
  if (!isDigits(s, 0, 4) || s.size() < 10 || s[4] != '-' || !isDigits(s, 5, 2) || s[7] != '-' ||
      !isDigits(s, 8, 2)) {
    return false;
  }
  int year = std::stoi(std::string(s.substr(0, 4)));
  int month = std::stoi(std::string(s.substr(5, 2)));
  int day = std::stoi(std::string(s.substr(8, 2)));
  static const int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12 || day < 1 || day > kDays[month - 1]) return false;
  bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  if (month == 2 && day == 29 && !leap) return false;
  return s.size() == 10 || s[10] == 'T' || s[10] == ' ';
}

struct MemberIndex {
  std::unordered_map<std::string, int32_t> numbers;
  std::vector<MemberDef> members;
  int32_t intern(const std::string& value) {
    auto [it, added] = numbers.emplace(value, static_cast<int32_t>(members.size()));
    if (added) members.push_back({value, value});
    return it->second;
  }
};

}  // namespace

int64_t importCsv(CacheBackend& backend, const std::string& file, const std::string& cacheName,
                  const ImportProgress& progress) {
  ImportError error(file);
  std::ifstream in(file, std::ios::binary);
  if (!in) throw error.whole("cannot open the file");
  std::error_code ec;
  uint64_t total = std::filesystem::file_size(file, ec);
  if (ec) total = 0;

  CsvReader reader(in);
  std::vector<std::string> fields;
  auto nextRecord = [&]() {
    try {
      return reader.next(fields);
    } catch (const RuntimeError& e) {
      throw error.at(reader.line(), e.description());
    }
  };
  if (!nextRecord()) throw error.whole("the file is empty");
  Layout layout = readHeader(fields, error);

  auto writer = backend.createCache(cacheName, layout.dimensions, layout.measures);
  std::vector<MemberIndex> members(layout.dimensions.size());
  std::vector<std::string> captions(layout.dimensions.size());
  std::vector<int32_t> rowMembers(layout.dimensions.size());
  std::vector<double> rowValues(layout.measures.size());
  std::string date, reference;
  while (nextRecord()) {
    const int64_t line = reader.line();
    if (fields.size() == 1 && fields[0].empty()) continue;  // a blank line
    if (fields.size() != layout.columns.size()) {
      throw error.at(line, "expected " + std::to_string(layout.columns.size()) + " fields, found " +
                               std::to_string(fields.size()));
    }
    date.clear();
    reference.clear();
    for (auto& c : captions) c.clear();
    for (size_t i = 0; i < fields.size(); ++i) {
      const Column& col = layout.columns[i];
      const std::string& f = fields[i];
      switch (col.kind) {
        case ColumnKind::Dimension:
          if (f.empty())
            throw error.at(line, "no member for dimension " + layout.dimensions[col.target]);
          rowMembers[col.target] = members[col.target].intern(f);
          break;
        case ColumnKind::Caption:
          captions[col.target] = f;
          break;
        case ColumnKind::Measure:
          if (trimBlanks(f).empty()) {
            rowValues[col.target] = std::numeric_limits<double>::quiet_NaN();
          } else if (!parseNumber(f, rowValues[col.target])) {
            throw error.at(line, "'" + f + "' is not a number (measure " +
                                     layout.measures[col.target].caption + ")");
          }
          break;
        case ColumnKind::Date:
          if (!f.empty() && !isIsoDate(f)) {
            throw error.at(line, "'" + f + "' is not an ISO date (YYYY-MM-DD)");
          }
          date = f;
          break;
        case ColumnKind::Reference:
          reference = f;
          break;
      }
    }
    for (size_t d = 0; d < captions.size(); ++d) {
      // The first caption given for a member names it.
      auto& m = members[d].members[rowMembers[d]];
      if (!captions[d].empty() && m.caption == m.value) m.caption = captions[d];
    }
    writer->addRow(rowMembers, rowValues, date, reference);
    if (progress && writer->rowCount() % 4096 == 0) progress(reader.bytesRead(), total);
  }
  if (writer->rowCount() == 0) throw error.whole("the file holds no transactions");
  std::vector<std::vector<MemberDef>> lists;
  for (auto& m : members) lists.push_back(std::move(m.members));
  int64_t id = writer->commit(lists);
  if (progress) progress(total, total);
  return id;
}

}  // namespace kxc::engine
