// Fuzzes the workbook's reference and formula parsers, then its evaluator. The first line of
// the input is read as a reference (a reference read back from its own written form must be the
// same; resolving one fails only with the host's 1004) and as a formula, which a cell keeps
// exactly as typed; up to four lines are typed into A1:A4 of a fresh workbook, which then
// recalculates and shows them.
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "platform/runtime_error.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/formula_lexer.h"
#include "platform/workbook/formula_parser.h"
#include "platform/workbook/in_memory_application.h"
#include "platform/workbook/reference_syntax.h"

namespace {

using namespace kxc::workbook;

void checkReferenceReadsBack(const ReferenceSyntax& ref) {
  if (ref.isName || (ref.workbook && !ref.sheet)) return;
  std::string written = areaAddress(ref.area);
  if (ref.workbook) {
    written = externalQualifier(*ref.workbook, *ref.sheet) + written;
  } else if (ref.sheet) {
    written = sheetQualifier(*ref.sheet) + written;
  }
  std::optional<ReferenceSyntax> again = parseReference(written);
  KXC_FUZZ_CHECK(again.has_value());
  KXC_FUZZ_CHECK(!again->isName);
  KXC_FUZZ_CHECK(again->sheet == ref.sheet && again->workbook == ref.workbook);
  KXC_FUZZ_CHECK(again->area.top == ref.area.top && again->area.left == ref.area.left &&
                 again->area.bottom == ref.area.bottom && again->area.right == ref.area.right);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::vector<std::string_view> lines = kxc::fuzz::fields(kxc::fuzz::asText(data, size), "\n", 5);
  std::string_view first = lines.front();

  ReferenceSyntax scanned;
  KXC_FUZZ_CHECK(scanReference(first, scanned) <= first.size());
  if (std::optional<ReferenceSyntax> ref = parseReference(first)) checkReferenceReadsBack(*ref);
  looksLikeCellReference(first);
  isValidDefinedName(first);
  tokenize(first);
  parseFormula("=" + std::string(first));

  auto app = InMemoryApplication::create();
  app->addWorkbook("Book1.xlsx");
  app->defineName("Region", "B2");
  try {
    app->range(std::string(first))->address(true, true, true);
  } catch (const kxc::RuntimeError& e) {
    KXC_FUZZ_CHECK(e.number() == 1004);
  }
  const std::string formula = "=" + std::string(first);
  if (formula.size() <= kMaxFormulaLength) {
    app->setCell("C3", formula);
    app->displayText("C3");
    KXC_FUZZ_CHECK(app->range("C3")->formula() == formula);
  }
  for (std::size_t i = 0; i < lines.size() && i < 4; ++i) {
    try {
      app->setCell("A" + std::to_string(i + 1), std::string(lines[i]));
    } catch (const kxc::RuntimeError&) {
      // Texts the workbook refuses (too long) raise numbered errors, as typing them would.
    }
  }
  app->recalculate();
  for (int row = 1; row <= 4; ++row) app->displayText("A" + std::to_string(row));
  return 0;
}
