// Fuzzes opening .xlsx files. The input holds up to four pieces separated by "\n@@\n": what
// stands inside <workbook> (sheets rId7 and rId8, defined names), inside the <worksheet> of
// each of the two sheet parts, and inside <sst>. The target wraps them into a complete package.
// Files the import library reads past the end of go through the child reader (see
// spreadsheet_check.h).
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "platform/fileio/xlsx_supplement.h"
#include "spreadsheet_check.h"
#include "zip_builder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::vector<std::string_view> pieces =
      kxc::fuzz::fields(kxc::fuzz::asText(data, size), "\n@@\n", 4);
  pieces.resize(4);
  const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  const std::string rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
  auto sheet = [&](std::string_view body) {
    return head + "<worksheet xmlns=\"" + main + "\">" + std::string(body) + "</worksheet>";
  };
  const std::string parts[][2] = {
      {"xl/workbook.xml", head + "<workbook xmlns=\"" + main + "\" xmlns:r=\"" + rel + "\">" +
                              std::string(pieces[0]) + "</workbook>"},
      {"xl/worksheets/sheet1.xml", sheet(pieces[1])},
      {"xl/worksheets/sheet2.xml", sheet(pieces[2])},
      {"xl/sharedStrings.xml",
       head + "<sst xmlns=\"" + main + "\">" + std::string(pieces[3]) + "</sst>"},
  };
  kxc::fileio::testing::ZipBuilder zip =
      kxc::fileio::testing::xlsxArchive({{"S1", ""}, {"S2", ""}}, {"x"});
  bool unsafe = false;
  for (const auto& [name, text] : parts) {
    zip.replace(name, text);
    unsafe = unsafe || kxc::fuzz::libraryFails(text);
  }
  const std::string bytes = zip.bytes();
  kxc::fuzz::checkSpreadsheet(bytes, "fuzz.xlsx", unsafe);
  if (unsafe) return 0;
  // The second look at the sheet parts on its own, as it runs when the import lets the parts
  // through: it must never throw.
  kxc::fileio::readXlsxSupplement(bytes);
  return 0;
}
