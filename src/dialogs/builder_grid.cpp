#include "dialogs/builder_grid.h"

#include <optional>

#include "grammar/resolve_argument.h"
#include "state/engine_contract.h"
#include "state/tm_globals.h"

namespace kxc {

std::string dimensionRowKey(int32_t n) { return "D" + std::to_string(n); }

void AddDimensionRow(controls::ListView& list, int32_t rowNumber, const std::string& key,
                     const std::string& text, const std::string& subItem1,
                     const std::string& subItem2) {
  controls::ListItem item = list.listItems().add(rowNumber, key, text);
  item.setSubItem(1, subItem1);
  item.setSubItem(2, subItem2);
}

std::string dimensionCaption(const std::string& cache, int32_t dimension) {
  return cacheEngine()
      .DimensionCaption(byVal(cache), byVal(static_cast<int16_t>(dimension)))
      .toText();
}

void fillDimensionRows(controls::ListView& grid, const std::string& cache) {
  const CacheFormula& f = gCurrentFormula;
  grid.listItems().clear();
  std::optional<int32_t> cacheDimensions;
  int32_t n = 0;
  for (int32_t i = 1; i <= kMaxDimensionRows; ++i) {
    if (i <= f.DimCount) {
      ++n;
      const std::string& argument = f.Dims(i);
      AddDimensionRow(grid, n, dimensionRowKey(n), dimensionCaption(cache, i), argument,
                      ResolveArgument(argument));
      continue;
    }
    if (!cacheDimensions) {
      cacheDimensions = cacheEngine().DimensionCount(byVal(cache)).toInt32();
    }
    if (i > *cacheDimensions) break;
    ++n;
    AddDimensionRow(grid, n, dimensionRowKey(n), dimensionCaption(cache, i), "", "");
  }
}

}  // namespace kxc
