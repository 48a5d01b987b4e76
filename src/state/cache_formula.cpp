#include "state/cache_formula.h"

#include "platform/runtime_error.h"

namespace kxc {

namespace {

void checkIndex(int32_t index, int32_t dimCount, std::size_t size) {
  if (index < 1 || index > dimCount || static_cast<std::size_t>(index) > size) {
    throw RuntimeError(err::kSubscript);
  }
}

}  // namespace

std::string& CacheFormula::Dims(int32_t index) {
  checkIndex(index, DimCount, dims_.size());
  return dims_[static_cast<std::size_t>(index - 1)];
}

const std::string& CacheFormula::Dims(int32_t index) const {
  checkIndex(index, DimCount, dims_.size());
  return dims_[static_cast<std::size_t>(index - 1)];
}

void CacheFormula::redimDims(int32_t upper) {
  if (upper < 1) throw RuntimeError(err::kSubscript);
  dims_.assign(static_cast<std::size_t>(upper), std::string());
}

void CacheFormula::redimDimsPreserve(int32_t upper) {
  if (upper < 1) throw RuntimeError(err::kSubscript);
  dims_.resize(static_cast<std::size_t>(upper));
}

}  // namespace kxc
