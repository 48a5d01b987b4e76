#include "dialogs/reference_toggle.h"

#include <array>
#include <utility>

#include "platform/controls/input_codes.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace kxc {

namespace {

// (row absolute, column absolute), in cycle order: $A$1, A$1, $A1, A1.
constexpr std::array<std::pair<bool, bool>, 4> kCycle = {
    {{true, true}, {true, false}, {false, true}, {false, false}}};

}  // namespace

std::string nextAnchoring(const host::Range& range, const std::string& text) {
  const std::size_t bang = text.rfind('!');
  const std::string prefix = bang == std::string::npos ? "" : text.substr(0, bang + 1);
  const std::string reference = bang == std::string::npos ? text : text.substr(bang + 1);
  for (std::size_t i = 0; i < kCycle.size(); ++i) {
    if (range.address(kCycle[i].first, kCycle[i].second) != reference) continue;
    const auto& [rowAbsolute, columnAbsolute] = kCycle[(i + 1) % kCycle.size()];
    return prefix + range.address(rowAbsolute, columnAbsolute);
  }
  return "";
}

void toggleReference(controls::TextBox& box, int& keyCode, int shift) {
  if (keyCode != controls::keys::kF4 || shift != 0) return;
  ignoringErrors([&] {
    const std::string text = box.text();
    if (!gExcelSink->IsCellRef(text)) return;
    host::RangeRef range = gExcelSink->oExcel()->range(text);
    if (!range) throw RuntimeError(err::kObjectRequired);
    keyCode = 0;
    box.setText(nextAnchoring(*range, text));
  });
}

}  // namespace kxc
