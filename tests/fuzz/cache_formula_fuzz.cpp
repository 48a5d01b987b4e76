// Fuzzes the cache formula parser (ParseFormula) and the record's JSON reader with the same
// text. Cells A1 and B1 hold a cache and a measure so references resolve; the engine answers
// every call with 1. The JSON of a record must read back to the same JSON.
#include <memory>
#include <string>

#include "fuzz_support.h"
#include "grammar/cache_formula_json.h"
#include "grammar/cache_formula_pattern.h"
#include "grammar/parse_formula.h"
#include "platform/dispatch.h"
#include "platform/workbook/in_memory_application.h"
#include "state/add_in_context.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace {

class AnsweringEngine : public kxc::DispatchObject {
 public:
  kxc::Variant invoke(std::string_view, kxc::Arguments, kxc::CallKind) override {
    return kxc::Variant(int32_t{1});
  }
};

void checkJsonRoundTrip(const kxc::CacheFormula& record) {
  std::string json = kxc::cacheFormulaToJson(record);
  kxc::CacheFormula back;
  std::string error;
  KXC_FUZZ_CHECK(kxc::cacheFormulaFromJson(json, back, error));
  KXC_FUZZ_CHECK(kxc::cacheFormulaToJson(back) == json);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kxc;
  const std::string text(fuzz::asText(data, size));
  AddInContext context(AddInContext::Setup{std::make_shared<fuzz::QuietServices>(), {}, {}, {}});
  auto app = workbook::InMemoryApplication::create();
  app->addWorkbook("Book1.xlsx");
  app->setCell("A1", "'Sales");
  app->setCell("B1", "2");
  gCacheEngine = std::make_shared<AnsweringEngine>();
  gExcelSink->Initialise(app);

  isCacheFormula(text);
  isNegatedCacheFormula(text);
  isEmptyCacheFormula(text);
  CacheFormula record = ParseFormula(text);
  KXC_FUZZ_CHECK(record.DimCount >= -1);
  // The array holds every dimension counted; only the first kMaxDimensionArguments are read.
  KXC_FUZZ_CHECK(record.DimCount < 1 || record.dimsSize() == record.DimCount);
  for (int32_t i = kMaxDimensionArguments + 1; i <= record.dimsSize(); ++i) {
    KXC_FUZZ_CHECK(record.Dims(i).empty());
  }
  checkJsonRoundTrip(record);

  CacheFormula fromJson;
  std::string error;
  if (cacheFormulaFromJson(text, fromJson, error)) {
    checkJsonRoundTrip(fromJson);
  } else {
    KXC_FUZZ_CHECK(!error.empty());
  }
  gExcelSink->Initialise(nullptr);
  return 0;
}
