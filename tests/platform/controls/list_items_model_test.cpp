// Random sequences of row operations checked against a plain reference model, so that the
// column arrays, the key index and the selection count stay in step through inserts and
// removals.
#include <gtest/gtest.h>

#include <random>

#include "platform/controls/list_view.h"
#include "support/error_number.h"

namespace kxc::controls {
namespace {

struct ModelRow {
  std::string text, key, sub;
  bool selected = false;
};

TEST(ListItemsModel, RandomInsertsRemovalsAndSelectionsMatchAReferenceModel) {
  std::mt19937 rng(20240611);
  for (int round = 0; round < 40; ++round) {
    ListView list;
    list.setMultiSelect(true);
    list.columnHeaders().add(0, "1a", "Name");
    list.columnHeaders().add(0, "2a", "Caption");
    auto& items = list.listItems();
    std::vector<ModelRow> model;
    int nextKey = 0;
    for (int step = 0; step < 300; ++step) {
      const int32_t n = static_cast<int32_t>(model.size());
      switch (rng() % 6) {
        case 0:
        case 1: {  // add, often appending, sometimes keyed, sometimes at a position
          int32_t index = rng() % 3 == 0 ? static_cast<int32_t>(rng() % (n + 2)) : 0;
          std::string key = rng() % 2 ? "k" + std::to_string(nextKey++) : "";
          std::string text = "t" + std::to_string(step);
          items.add(index, key, text);
          ModelRow row{text, key, "", false};
          model.insert(index == 0 ? model.end() : model.begin() + (index - 1), row);
          break;
        }
        case 2:
          if (n > 0) {
            int32_t index = 1 + rng() % n;
            items.remove(index);
            model.erase(model.begin() + (index - 1));
          }
          break;
        case 3:
          if (n > 0) {
            int32_t index = 1 + rng() % n;
            bool on = rng() % 2;
            items.setSelected(index, on);
            model[index - 1].selected = on;
          }
          break;
        case 4:
          if (n > 0) {
            int32_t index = 1 + rng() % n;
            std::string sub = "s" + std::to_string(step);
            items.item(index).setSubItem(1, sub);
            model[index - 1].sub = sub;
          }
          break;
        case 5:  // a duplicate key is refused and changes nothing
          if (nextKey > 0) {
            std::string key = "k" + std::to_string(rng() % nextKey);
            bool present = false;
            for (const auto& r : model) present |= r.key == key;
            EXPECT_EQ(testing::errorNumber([&] { items.add(0, key, "dup"); }), present ? 35602 : 0);
            if (!present) model.push_back({"dup", key, "", false});
          }
          break;
      }
    }
    ASSERT_EQ(items.count(), static_cast<int32_t>(model.size()));
    int32_t selected = 0;
    for (int32_t i = 1; i <= items.count(); ++i) {
      const ModelRow& row = model[i - 1];
      EXPECT_EQ(items.text(i), row.text);
      EXPECT_EQ(items.item(i).key(), row.key);
      EXPECT_EQ(items.item(i).subItem(1), row.sub);
      EXPECT_EQ(items.selected(i), row.selected);
      selected += row.selected;
      if (!row.key.empty()) {
        EXPECT_EQ(items.item(row.key).index(), i);
      }
    }
    EXPECT_EQ(items.selectedCount(), selected);
  }
}

}  // namespace
}  // namespace kxc::controls
