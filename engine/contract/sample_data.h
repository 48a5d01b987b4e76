// The sample caches written into an empty database, generated deterministically from a fixed
// seed so every installation (and every test) sees the same numbers.
#pragma once

#include <cstdint>
#include <string>

#include "engine/contract/cache_backend.h"

namespace kxc::engine {

inline constexpr uint64_t kSampleSeed = 20240601;

// "Sales": dimensions Region (5), Product (12), Channel (4), Customer (40), Year (4: 2021 to
// 2024), Month (12); measures Amount (sum, "#,##0.00"), Quantity (sum, "#,##0"), Price
// (average, "$#,##0.00"); `rows` transactions. One database transaction. Returns the key.
int64_t generateSalesCache(CacheBackend& backend, const std::string& name, int64_t rows,
                           uint64_t seed = kSampleSeed);

// "Budget": dimensions Department (6), Account (8), Year (3: 2023 to 2025), Quarter (4);
// measures Budget (sum, "$#,##0") and Headcount (sum, "0", only on the Salaries account);
// one transaction per combination. Returns the key.
int64_t generateBudgetCache(CacheBackend& backend, const std::string& name,
                            uint64_t seed = kSampleSeed);

// Both samples, "Sales" first.
void generateSampleCaches(CacheBackend& backend, int64_t salesRows);

}  // namespace kxc::engine
