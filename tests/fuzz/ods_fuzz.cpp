// Fuzzes opening .ods files. The input is what stands inside <office:spreadsheet> of
// content.xml (tables, rows, cells, named ranges); the target wraps it into a package. Files the
// import library reads past the end of go through the child reader (see spreadsheet_check.h).
#include <exception>
#include <string>

#include "fuzz_support.h"
#include "platform/fileio/ods_supplement.h"
#include "spreadsheet_check.h"
#include "zip_builder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view body = kxc::fuzz::asText(data, size);
  const std::string bytes = kxc::fileio::testing::odsFile(body);
  const bool unsafe = kxc::fuzz::libraryFails(body);
  kxc::fuzz::checkSpreadsheet(bytes, "fuzz.ods", unsafe);
  if (unsafe) return 0;
  try {
    kxc::fileio::readOdsSupplement(bytes);  // the second look on its own
  } catch (const std::exception&) {
    // Damaged XML is refused with an exception, which the reader turns into its failure.
  }
  return 0;
}
