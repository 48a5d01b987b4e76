#include "events/cache_write_back.h"

#include <cstddef>

#include "grammar/parse_formula.h"
#include "platform/cache_function_name.h"
#include "platform/error_report.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"
#include "state/engine_contract.h"

namespace kxc {

namespace {

constexpr std::string_view kCallStart = kCacheCallStart;

// Equality of two cell values as the host language's "=" sees it: numbers by value whatever
// their type, texts code unit by code unit, Empty like 0 and like "". Error values cannot be
// compared (13).
bool sameValue(const Variant& a, const Variant& b) {
  if (a.isError() || b.isError() || a.isObject() || b.isObject()) {
    throw RuntimeError(err::kTypeMismatch);
  }
  if (a.isEmpty() && b.isEmpty()) return true;
  if (a.isText() && b.isText()) return a.text() == b.text();
  if (a.isEmpty() && b.isText()) return b.text().empty();
  if (b.isEmpty() && a.isText()) return a.text().empty();
  if (a.isText() || b.isText()) return false;  // a number never equals a text
  return a.toDouble() == b.toDouble();
}

// The function call alone: from "BV_KXCSUM(" (found in any letter case) to the first ")"
// after it. A call without ")" cannot be cut (5).
std::string cutCall(const std::string& formula) {
  std::size_t start = findChars(upperCase(formula), kCallStart);
  std::size_t end = findChars(formula, ")", start);
  if (start == 0 || end == 0) throw RuntimeError(err::kInvalidCall);
  return midChars(formula, start, end - start + 1);
}

}  // namespace

class CacheWriteBack::EventForwarder : public host::ApplicationEvents {
 public:
  explicit EventForwarder(CacheWriteBack& owner) : owner_(owner) {}
  void sheetSelectionChange(host::Worksheet& sheet, const host::RangeRef& target) override {
    owner_.oExcel_SheetSelectionChange(sheet, target);
  }
  void sheetChange(host::Worksheet& sheet, const host::RangeRef& target) override {
    owner_.oExcel_SheetChange(sheet, target);
  }

 private:
  CacheWriteBack& owner_;
};

CacheWriteBack::CacheWriteBack() : forwarder_(std::make_shared<EventForwarder>(*this)) {}

CacheWriteBack::~CacheWriteBack() {
  ignoringErrors([this] {
    rememberedCell_.reset();
    rememberedFormula_.clear();
    host::ApplicationRef none;
    oexcel(none);
  });
}

void CacheWriteBack::oexcel(host::ApplicationRef& application) {
  oexcel_ = application;
  if (oexcel_) {
    hookup_.hook(oexcel_, forwarder_);
  } else {
    hookup_.reset();
  }
}

void CacheWriteBack::Initialise(host::ApplicationRef& pExcel) {
  reportingErrors("TmExcel Initialise", [&] { oexcel(pExcel); });
}

void CacheWriteBack::oExcel_SheetSelectionChange(host::Worksheet&, const host::RangeRef& target) {
  ignoringErrors([&] {
    if (!target) throw RuntimeError(err::kObjectNotSet);
    rememberedFormula_ = target->formula();
    rememberedCell_ = target;
  });
}

void CacheWriteBack::oExcel_SheetChange(host::Worksheet&, const host::RangeRef& target) {
  ignoringErrors([&] { writeBack(target); });
}

// Each test that fails ends the write-back without a trace. Errors here travel as exceptions,
// so there is never an earlier error pending when a change arrives.
void CacheWriteBack::writeBack(const host::RangeRef& target) {
  if (rememberedFormula_.empty()) return;
  if (findChars(upperCase(rememberedFormula_), kCallStart) == 0) return;
  if (!target || !rememberedCell_) return;
  if (!sameValue(target->value(), rememberedCell_->value())) return;
  std::string typedFormula = target->formula();
  if (typedFormula.find(kCallStart) != std::string::npos && typedFormula != rememberedFormula_) {
    return;
  }
  double number = 0;
  if (!TryGetNumber(target, number)) return;

  const std::string restore = rememberedFormula_;
  std::string call = cutCall(restore);
  rememberedFormula_.clear();

  CacheFormula formula = ParseFormula(call);
  const int16_t cacheDimensions =
      cacheEngine().DimensionCount(byVal(ResolveArgument(formula.Cache))).toInt16();
  DimensionFilters dimensions;
  for (int32_t i = 1; i <= cacheDimensions && i <= formula.DimCount; ++i) {
    if (i > kMaxDimensions) throw RuntimeError(err::kSubscript);
    dimensions[static_cast<std::size_t>(i - 1)] = Variant(ResolveArgument(formula.Dims(i)));
  }
  int32_t measure = formula.MeasureIndex;
  cacheEngine().CacheWriteBack(byVal(ResolveArgument(formula.Cache)), byRef(measure), byRef(number),
                               dimensions);
  target->setFormula(restore);
}

std::string CacheWriteBack::ResolveArgument(const std::string& argument) {
  std::string resolved;
  ignoringErrors([&] {
    if (!oexcel_) throw RuntimeError(err::kObjectNotSet);
    host::RangeRef range = oexcel_->range(argument);
    if (!range) throw RuntimeError(err::kObjectNotSet);
    resolved = range->value().toText();
  });
  return resolved;
}

bool CacheWriteBack::TryGetNumber(const host::RangeRef& range, double& number) {
  return ignoringErrors([&] {
    if (!range) throw RuntimeError(err::kObjectNotSet);
    double value = range->value2().toDouble();
    number = value;
  });
}

}  // namespace kxc
