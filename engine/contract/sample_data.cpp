#include "engine/contract/sample_data.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace kxc::engine {

namespace {

// splitmix64: tiny, fast and identical on every platform (the standard distributions are not).
class Random {
 public:
  explicit Random(uint64_t seed) : state_(seed) {}
  uint64_t next() {
    uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }
  int32_t below(int32_t n) { return static_cast<int32_t>(next() % static_cast<uint64_t>(n)); }
  double unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }

 private:
  uint64_t state_;
};

double cents(double v) { return std::round(v * 100) / 100; }

std::vector<MemberDef> members(std::initializer_list<std::pair<const char*, const char*>> list) {
  std::vector<MemberDef> out;
  for (auto& [v, c] : list) out.push_back({v, c});
  return out;
}

std::vector<MemberDef> years(int first, int last) {
  std::vector<MemberDef> out;
  for (int y = first; y <= last; ++y)
    out.push_back({std::to_string(y), "Year " + std::to_string(y)});
  return out;
}

std::vector<MemberDef> customers() {
  const char* first[] = {"Acme",  "Apex",    "Summit", "Harbor",     "Maple",
                         "Cedar", "Granite", "Silver", "Blue River", "Pioneer"};
  const char* second[] = {"Traders", "Supplies", "Industries", "Retail"};
  std::vector<MemberDef> out;
  for (int i = 0; i < 40; ++i) {
    char value[32];
    std::snprintf(value, sizeof value, "C%03d", i + 1);
    out.push_back({value, std::string(first[i % 10]) + " " + second[i / 10]});
  }
  return out;
}

}  // namespace

int64_t generateSalesCache(CacheBackend& backend, const std::string& name, int64_t rows,
                           uint64_t seed) {
  std::vector<std::vector<MemberDef>> dims = {
      members({{"North", "Northern region"},
               {"South", "Southern region"},
               {"East", "Eastern region"},
               {"West", "Western region"},
               {"Central", "Central region"}}),
      members({{"Widgets", "Widgets, standard"},
               {"Gadgets", "Gadgets, electronic"},
               {"Gizmos", "Gizmos, assorted"},
               {"Sprockets", "Sprockets, steel"},
               {"Cogs", "Cogs, brass"},
               {"Flanges", "Flanges, pipe"},
               {"Brackets", "Brackets, wall"},
               {"Valves", "Valves, ball"},
               {"Springs", "Springs, coil"},
               {"Fasteners", "Fasteners, mixed"},
               {"Hinges", "Hinges, door"},
               {"Pulleys", "Pulleys, cast"}}),
      members({{"Retail", "Retail stores"},
               {"Online", "Online shop"},
               {"Wholesale", "Wholesale partners"},
               {"Direct", "Direct sales"}}),
      customers(),
      years(2021, 2024),
      members({{"Jan", "January"},
               {"Feb", "February"},
               {"Mar", "March"},
               {"Apr", "April"},
               {"May", "May"},
               {"Jun", "June"},
               {"Jul", "July"},
               {"Aug", "August"},
               {"Sep", "September"},
               {"Oct", "October"},
               {"Nov", "November"},
               {"Dec", "December"}}),
  };
  const double basePrice[] = {12.5, 48.0, 7.25, 3.4, 2.1, 15.75, 6.6, 22.0, 0.85, 0.35, 4.2, 18.9};
  // Regions and channels are uneven, as real sales are.
  const int regionWeight[] = {30, 25, 20, 15, 10};
  const int channelWeight[] = {45, 30, 15, 10};

  auto writer =
      backend.createCache(name, {"Region", "Product", "Channel", "Customer", "Year", "Month"},
                          {{"Amount", Aggregation::Sum, "#,##0.00"},
                           {"Quantity", Aggregation::Sum, "#,##0"},
                           {"Price", Aggregation::Average, "$#,##0.00"}});
  Random rnd(seed);
  auto weighted = [&](const int* weights, int n) {
    int32_t pick = rnd.below(100);
    for (int i = 0; i < n; ++i) {
      if (pick < weights[i]) return i;
      pick -= weights[i];
    }
    return n - 1;
  };
  int32_t m[6];
  double v[3];
  char date[64], reference[64];
  for (int64_t r = 0; r < rows; ++r) {
    m[0] = weighted(regionWeight, 5);
    m[1] = rnd.below(12);
    m[2] = weighted(channelWeight, 4);
    m[3] = rnd.below(40);
    m[4] = rnd.below(4);
    m[5] = rnd.below(12);
    double price = cents(basePrice[m[1]] * (0.9 + 0.2 * rnd.unit()));
    double quantity = 1 + rnd.below(40);
    v[0] = cents(price * quantity);
    v[1] = quantity;
    v[2] = price;
    std::snprintf(date, sizeof date, "%04d-%02d-%02d", 2021 + m[4], m[5] + 1, 1 + rnd.below(28));
    std::snprintf(reference, sizeof reference, "S%07lld", static_cast<long long>(r + 1));
    writer->addRow(m, v, date, reference);
  }
  return writer->commit(dims);
}

int64_t generateBudgetCache(CacheBackend& backend, const std::string& name, uint64_t seed) {
  std::vector<std::vector<MemberDef>> dims = {
      members({{"Sales", "Sales department"},
               {"Marketing", "Marketing department"},
               {"Finance", "Finance department"},
               {"IT", "Information technology"},
               {"HR", "Human resources"},
               {"Operations", "Operations department"}}),
      members({{"Salaries", "Salaries and wages"},
               {"Travel", "Travel and expenses"},
               {"Equipment", "Equipment"},
               {"Rent", "Rent and facilities"},
               {"Training", "Training"},
               {"Software", "Software licences"},
               {"Consulting", "Consulting services"},
               {"Supplies", "Office supplies"}}),
      years(2023, 2025),
      members({{"Q1", "First quarter"},
               {"Q2", "Second quarter"},
               {"Q3", "Third quarter"},
               {"Q4", "Fourth quarter"}}),
  };
  const double accountBase[] = {180000, 12000, 20000, 30000, 6000, 15000, 25000, 3000};
  const int heads[] = {24, 9, 7, 14, 5, 31};
  auto writer = backend.createCache(
      name, {"Department", "Account", "Year", "Quarter"},
      {{"Budget", Aggregation::Sum, "$#,##0"}, {"Headcount", Aggregation::Sum, "0"}});
  Random rnd(seed);
  const double none = std::numeric_limits<double>::quiet_NaN();
  int32_t m[4];
  double v[2];
  char date[64], reference[64];
  int64_t n = 0;
  for (m[0] = 0; m[0] < 6; ++m[0]) {
    for (m[1] = 0; m[1] < 8; ++m[1]) {
      for (m[2] = 0; m[2] < 3; ++m[2]) {
        for (m[3] = 0; m[3] < 4; ++m[3]) {
          double growth = 1 + 0.04 * m[2];
          double size = 0.5 + heads[m[0]] / 20.0;
          v[0] =
              std::round(accountBase[m[1]] * size * growth * (0.9 + 0.2 * rnd.unit()) / 100) * 100;
          v[1] = m[1] == 0 ? heads[m[0]] + m[2] : none;
          std::snprintf(date, sizeof date, "%04d-%02d-01", 2023 + m[2], 1 + 3 * m[3]);
          std::snprintf(reference, sizeof reference, "B%05lld", static_cast<long long>(++n));
          writer->addRow(m, v, date, reference);
        }
      }
    }
  }
  return writer->commit(dims);
}

void generateSampleCaches(CacheBackend& backend, int64_t salesRows) {
  generateSalesCache(backend, "Sales", salesRows);
  generateBudgetCache(backend, "Budget");
}

}  // namespace kxc::engine
