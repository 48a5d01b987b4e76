// Fuzzes the catalogue reader with the text of a catalogue file. A table that is read must
// answer its own values: each row's first value finds a row holding that value.
#include <string>

#include "fuzz_support.h"
#include "platform/catalogue/catalogue_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kxc::CatalogueReadResult read = kxc::readCatalogueText(kxc::fuzz::asText(data, size), "f.xml");
  KXC_FUZZ_CHECK(!read.table != !read.problem);
  if (!read.table) {
    KXC_FUZZ_CHECK(!read.problem->reason.empty());
    return 0;
  }
  const kxc::CatalogueTable& table = *read.table;
  if (table.columnNames().empty()) return 0;
  const std::string& column = table.columnNames().front();
  for (std::size_t row = 0; row < table.rowCount() && row < 64; ++row) {
    std::optional<std::string> value = table.value(row, 0);
    if (!value) continue;
    std::optional<std::size_t> found = table.findFirst(column, *value);
    KXC_FUZZ_CHECK(found && *found <= row && table.value(*found, 0) == value);
  }
  return 0;
}
