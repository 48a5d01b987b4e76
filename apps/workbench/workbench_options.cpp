#include "workbench_options.h"

#include <charconv>

namespace kxc::workbench {

namespace {

std::optional<int16_t> languageNumber(const std::string& text) {
  int value = -1;
  const char* end = text.data() + text.size();
  auto [ptr, ec] = std::from_chars(text.data(), end, value);
  if (ec != std::errc() || ptr != end || value < 0 || value > 15) return std::nullopt;
  return static_cast<int16_t>(value);
}

std::optional<ScreenshotDialog> dialogNamed(const std::string& name) {
  if (name == "builder") return ScreenshotDialog::Builder;
  if (name == "lookup") return ScreenshotDialog::Lookup;
  if (name == "transactions") return ScreenshotDialog::Transactions;
  if (name == "manager") return ScreenshotDialog::Manager;
  return std::nullopt;
}

}  // namespace

ParsedOptions parseOptions(const std::vector<std::string>& args) {
  ParsedOptions parsed;
  WorkbenchOptions& o = parsed.options;
  auto fail = [&](std::string reason) {
    parsed.error = std::move(reason);
    return parsed;
  };
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    const bool hasValue = i + 1 < args.size();
    if (arg == "--help" || arg == "-h") {
      o.help = true;
    } else if (arg == "--db") {
      if (!hasValue || args[i + 1].empty()) return fail("--db takes a database file");
      o.databasePath = args[++i];
    } else if (arg == "--lang") {
      if (!hasValue) return fail("--lang takes a number from 0 to 15");
      o.language = languageNumber(args[++i]);
      if (!o.language) return fail("--lang takes a number from 0 to 15");
    } else if (arg == "--screenshot") {
      if (!hasValue || args[i + 1].empty()) return fail("--screenshot takes a PNG file");
      o.screenshot = args[++i];
    } else if (arg == "--open") {
      if (!hasValue) return fail("--open takes builder, lookup, transactions or manager");
      auto dialog = dialogNamed(args[++i]);
      if (!dialog) return fail("--open takes builder, lookup, transactions or manager");
      o.open = *dialog;
    } else if (arg.size() > 1 && arg[0] == '-') {
      return fail("unknown option " + arg);
    } else if (o.file.empty()) {
      o.file = arg;
    } else {
      return fail("only one workbook can be opened");
    }
  }
  if (o.open != ScreenshotDialog::None && o.screenshot.empty()) {
    return fail("--open works with --screenshot");
  }
  return parsed;
}

const char* usageText() {
  return "Usage: kestra-workbench [OPTIONS] [WORKBOOK.xlsx|WORKBOOK.ods]\n"
         "  --db FILE              the cache database (default: the per-user one)\n"
         "  --lang N               start in language N (0 to 15)\n"
         "  --screenshot FILE.png  render the windows into FILE.png and exit\n"
         "  --open DIALOG          with --screenshot: builder, lookup, transactions or manager\n";
}

}  // namespace kxc::workbench
