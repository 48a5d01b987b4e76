#include "platform/workbook/grid.h"

namespace kxc::workbook {

bool isValidRow(int64_t row) { return row >= 1 && row <= kMaxRows; }
bool isValidColumn(int64_t column) { return column >= 1 && column <= kMaxColumns; }

std::string columnLetters(int32_t column) {
  std::string out;
  while (column > 0) {
    int32_t rest = (column - 1) % 26;
    out.insert(out.begin(), static_cast<char>('A' + rest));
    column = (column - 1) / 26;
  }
  return out;
}

int32_t columnNumber(std::string_view letters) {
  if (letters.empty() || letters.size() > 3) return 0;
  int32_t n = 0;
  for (char c : letters) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c < 'A' || c > 'Z') return 0;
    n = n * 26 + (c - 'A' + 1);
  }
  return isValidColumn(n) ? n : 0;
}

}  // namespace kxc::workbook
