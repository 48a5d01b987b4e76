#include "platform/workbook/typed_entry.h"

#include "platform/text_rules.h"
#include "platform/workbook/evaluator.h"
#include "platform/workbook/formula_lexer.h"

namespace kxc::workbook {

TypedEntry readTypedEntry(std::string_view text) {
  TypedEntry entry;
  if (text.empty()) return entry;
  if (text[0] == '=') {
    entry.isFormula = true;
    return entry;
  }
  if (text[0] == '\'') {
    entry.value = std::string(text.substr(1));
    return entry;
  }
  double number = 0;
  if (parseNumber(text, number)) {
    entry.value = number;
    return entry;
  }
  std::string_view trimmed = trimBlanks(text);
  if (endsWith(trimmed, "%") && parseNumber(trimmed.substr(0, trimmed.size() - 1), number)) {
    entry.value = number / 100;
    return entry;
  }
  std::string upper = upperCase(trimmed);
  if (upper == "TRUE" || upper == "FALSE") {
    entry.value = upper == "TRUE";
    return entry;
  }
  size_t length = 0;
  if (auto error = errorLiteral(trimmed, length); error && length == trimmed.size()) {
    entry.value = *error;
    return entry;
  }
  entry.value = std::string(text);
  return entry;
}

std::string constantFormulaText(const Variant& value) { return displayTextOf(value); }

}  // namespace kxc::workbook
