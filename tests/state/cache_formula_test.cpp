#include "state/cache_formula.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"

namespace kxc {
namespace {

int errorNumber(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

TEST(CacheFormula, DimsAreOneBasedWithinDimCount) {
  CacheFormula f;
  f.DimCount = 3;
  f.redimDims(3);
  f.Dims(1) = "North";
  f.Dims(3) = "2004";
  EXPECT_EQ(f.Dims(1), "North");
  EXPECT_EQ(f.Dims(2), "");
  for (int32_t bad : {0, -1, 4}) {
    EXPECT_EQ(errorNumber([&] { f.Dims(bad); }), err::kSubscript) << bad;
  }
}

TEST(CacheFormula, DimsDoNotExistUntilCreated) {
  CacheFormula f;
  f.DimCount = 2;
  EXPECT_FALSE(f.hasDims());
  EXPECT_EQ(errorNumber([&] { f.Dims(1); }), err::kSubscript);
}

TEST(CacheFormula, ArrayNeedsAtLeastOneElement) {
  CacheFormula f;
  EXPECT_EQ(errorNumber([&] { f.redimDims(0); }), err::kSubscript);
  EXPECT_EQ(errorNumber([&] { f.redimDimsPreserve(-1); }), err::kSubscript);
}

TEST(CacheFormula, PreservingResizeKeepsEntries) {
  CacheFormula f;
  f.DimCount = 2;
  f.redimDims(2);
  f.Dims(2) = "West";
  f.DimCount = 4;
  f.redimDimsPreserve(4);
  EXPECT_EQ(f.Dims(2), "West");
  EXPECT_EQ(f.Dims(4), "");
  f.redimDims(4);
  EXPECT_EQ(f.Dims(2), "");
}

TEST(CacheFormula, ClearGivesTheEmptyRecord) {
  CacheFormula f;
  f.Cache = "Sales";
  f.CacheIndex = 2;
  f.DimCount = 1;
  f.redimDims(1);
  f.clear();
  EXPECT_EQ(f, CacheFormula());
  EXPECT_FALSE(f.hasDims());
}

}  // namespace
}  // namespace kxc
