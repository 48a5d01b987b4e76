// Fuzzes the engine's CSV reader. Records come out in order with lines that only grow, and
// reading never passes the end of the input.
#include <sstream>
#include <string>
#include <vector>

#include "engine/contract/csv_reader.h"
#include "fuzz_support.h"
#include "platform/runtime_error.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::istringstream in{std::string(kxc::fuzz::asText(data, size))};
  kxc::engine::CsvReader reader(in);
  std::vector<std::string> fields;
  int64_t line = 0;
  try {
    while (reader.next(fields)) {
      KXC_FUZZ_CHECK(reader.line() > line);
      KXC_FUZZ_CHECK(reader.bytesRead() <= size);
      line = reader.line();
    }
  } catch (const kxc::RuntimeError&) {
    // An unclosed quote or text after a closing quote is a numbered error.
  }
  return 0;
}
