#include "platform/workbook/address_writer.h"

#include <algorithm>

#include "platform/text_rules.h"
#include "platform/workbook/reference_syntax.h"

namespace kxc::workbook {
namespace {

std::string columnPart(int32_t column, bool absolute) {
  return (absolute ? "$" : "") + columnLetters(column);
}

std::string rowPart(int32_t row, bool absolute) {
  return (absolute ? "$" : "") + std::to_string(row);
}

std::string quoted(std::string_view text) { return "'" + replaceAll(text, "'", "''") + "'"; }

}  // namespace

std::string cellAddress(int32_t row, int32_t column, bool rowAbsolute, bool columnAbsolute) {
  return columnPart(column, columnAbsolute) + rowPart(row, rowAbsolute);
}

std::string areaAddress(const Area& area, bool rowAbsolute, bool columnAbsolute) {
  if (area.isSingleCell()) return cellAddress(area.top, area.left, rowAbsolute, columnAbsolute);
  // Whole rows win over whole columns, so the whole sheet reads "$1:$1048576".
  if (area.wholeRows()) {
    return rowPart(area.top, rowAbsolute) + ":" + rowPart(area.bottom, rowAbsolute);
  }
  if (area.wholeColumns()) {
    return columnPart(area.left, columnAbsolute) + ":" + columnPart(area.right, columnAbsolute);
  }
  return cellAddress(area.top, area.left, rowAbsolute, columnAbsolute) + ":" +
         cellAddress(area.bottom, area.right, rowAbsolute, columnAbsolute);
}

bool nameNeedsQuotes(std::string_view name) {
  if (name.empty() || (name[0] >= '0' && name[0] <= '9')) return true;
  if (!std::all_of(name.begin(), name.end(), isNameChar)) return true;
  return looksLikeCellReference(name);
}

std::string sheetQualifier(std::string_view sheet) {
  return (nameNeedsQuotes(sheet) ? quoted(sheet) : std::string(sheet)) + "!";
}

std::string externalQualifier(std::string_view workbook, std::string_view sheet) {
  std::string inner = "[" + std::string(workbook) + "]" + std::string(sheet);
  // Inside brackets a workbook name may hold "." freely; anything else unusual needs quotes.
  bool quote = nameNeedsQuotes(sheet) ||
               !std::all_of(workbook.begin(), workbook.end(), isNameChar) || workbook.empty();
  return (quote ? quoted(inner) : inner) + "!";
}

}  // namespace kxc::workbook
