// The workbench's command line: database, language, file to open and the screenshot mode.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kxc::workbench {

// Which dialog the screenshot mode opens before it takes the picture.
enum class ScreenshotDialog { None, Builder, Lookup, Transactions, Manager };

struct WorkbenchOptions {
  std::string databasePath;         // --db FILE; empty: the engine's default
  std::optional<int16_t> language;  // --lang N, 0 to 15
  std::string file;                 // a workbook to open instead of the sample report
  std::string screenshot;           // --screenshot FILE.png
  ScreenshotDialog open = ScreenshotDialog::None;  // --open builder|lookup|transactions|manager
  bool help = false;                               // --help
};

// The options, or `error` set to a one-line reason ("--lang takes a number from 0 to 15").
// Qt's own options (-platform, -style, ...) are taken out by QApplication before this runs.
struct ParsedOptions {
  WorkbenchOptions options;
  std::string error;
};
ParsedOptions parseOptions(const std::vector<std::string>& args);

// The usage text printed by --help and after an error.
const char* usageText();

}  // namespace kxc::workbench
