#include "dialogs/selection_codec.h"

#include <unordered_map>
#include <vector>

#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

// The selection's counters are 16-bit: a count past 32767 overflows.
void countOne(int16_t& counter) {
  if (counter == INT16_MAX) throw RuntimeError(err::kOverflow);
  ++counter;
}

void append(std::string& list, std::string_view piece) {
  list += ',';
  list += piece;
}

std::string range(std::string_view from, std::string_view to) {
  std::string piece(from);
  piece += "..";
  piece += to;
  return piece;
}

// The first row holding each text a piece starts from, found in one walk over the rows that
// stops once every text is found, instead of one walk per piece.
class FirstRows {
 public:
  FirstRows(const SelectionRows& rows, const std::vector<std::string_view>& wanted) {
    for (std::string_view text : wanted) firstRow_.try_emplace(text, 0);
    std::size_t missing = firstRow_.size();
    const int32_t n = rows.count();
    for (int32_t row = 1; row <= n && missing > 0; ++row) {
      auto it = firstRow_.find(rows.text(row));
      if (it != firstRow_.end() && it->second == 0) {
        it->second = row;
        --missing;
      }
    }
  }

  // The 1-based row, or 0 when no row holds `text`.
  int32_t find(std::string_view text) const {
    auto it = firstRow_.find(text);
    return it == firstRow_.end() ? 0 : it->second;
  }

 private:
  std::unordered_map<std::string_view, int32_t> firstRow_;
};

}  // namespace

std::string encodeSelection(const SelectionRows& rows, std::string& first, std::string& last,
                            bool& singleMode, bool& isRange) {
  std::string list;
  int16_t pieces = 0;
  isRange = false;
  const int32_t n = rows.count();
  if (!singleMode) {
    int16_t selectedRows = 0;
    for (int32_t i = 1; i <= n; ++i) {
      if (rows.selected(i)) countOne(selectedRows);
    }
    if (selectedRows == 1) singleMode = true;
  }
  for (int32_t i = 1; i <= n; ++i) {
    if (!rows.selected(i)) continue;
    if (singleMode) {
      append(list, rows.text(i));
      countOne(pieces);
    } else if (i + 1 < n) {
      // Only a row with at least two rows after it starts a run: a run of exactly the last two
      // rows comes out as two pieces.
      if (rows.selected(i + 1)) {
        int32_t j = i + 1;
        while (j <= n && rows.selected(j)) ++j;
        if (j <= n) {
          const bool dropAll = rows.text(i) == kAllMembers && list.empty();
          append(list, range(rows.text(dropAll ? i + 1 : i), rows.text(j - 1)));
          countOne(pieces);
          i = j;  // row j is unselected; the loop goes on after it
        } else {
          append(list, range(rows.text(i), rows.text(n)));
          countOne(pieces);
          break;
        }
      } else if (!(rows.text(i) == kAllMembers && list.empty())) {
        append(list, rows.text(i));
        countOne(pieces);
      }
    } else {
      append(list, rows.text(i));
      countOne(pieces);
    }
  }
  if (!list.empty() && list.front() == ',') list.erase(0, 1);
  if (pieces >= 2) {
    first = list;
    last.clear();
    isRange = true;
  } else if (!list.empty()) {
    if (std::size_t p = list.find(".."); p != std::string::npos) {
      first = list.substr(0, p);
      last = list.substr(p + 2);
      isRange = true;
    }
  }
  if (last == kAllMembers) last.clear();
  return isRange ? "<<" + list : list;
}

void decodeSelection(SelectionRows& rows, std::string_view text) {
  if (text.empty()) return;
  const std::string plain = replaceAll(text, "<<", "");
  // Each piece is from..to, or a single text standing for both ends.
  std::vector<std::string_view> froms, tos;
  for (std::size_t start = 0;;) {
    const std::size_t comma = plain.find(',', start);
    const std::string_view piece = std::string_view(plain).substr(
        start, comma == std::string::npos ? std::string::npos : comma - start);
    const std::size_t dots = piece.find("..");
    froms.push_back(dots == std::string_view::npos ? piece : piece.substr(0, dots));
    tos.push_back(dots == std::string_view::npos ? piece : piece.substr(dots + 2));
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
  const int32_t n = rows.count();
  for (int32_t i = 1; i <= n; ++i) {
    if (rows.selected(i)) rows.setSelected(i, false);
  }
  const FirstRows firstRows(rows, froms);
  for (std::size_t k = 0; k < froms.size(); ++k) {
    const int32_t row = firstRows.find(froms[k]);
    if (row == 0) continue;
    rows.setSelected(row, true);
    if (tos[k] == froms[k]) continue;
    // The range ends by ordering, not by finding its last text.
    for (int32_t m = row + 1; m <= n && !(rows.text(m) > tos[k]); ++m) rows.setSelected(m, true);
  }
}

std::string MultipleSelectGet(const SelectionRows& rows, std::string& first, std::string& last,
                              bool& singleMode, bool& isRange) {
  std::string result;
  reportingErrors("FrmLookup MultipleSelectGet",
                  [&] { result = encodeSelection(rows, first, last, singleMode, isRange); });
  return result;
}

int16_t MultipleSelectSet(SelectionRows& rows, std::string_view text) {
  reportingErrors("FrmLookup MultipleSelectSet", [&] { decodeSelection(rows, text); });
  return 0;
}

}  // namespace kxc
