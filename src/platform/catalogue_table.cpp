#include "platform/catalogue_table.h"

namespace kxc {

MemoryCatalogueTable::MemoryCatalogueTable(std::vector<std::string> columns,
                                           std::vector<CatalogueRow> rows)
    : columns_(std::move(columns)), rows_(std::move(rows)), indexes_(columns_.size()) {
  for (std::size_t r = 0; r < rows_.size(); ++r) {
    rows_[r].resize(columns_.size());
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      if (rows_[r][c]) indexes_[c].try_emplace(*rows_[r][c], r);  // keeps the first row
    }
  }
}

std::optional<std::size_t> MemoryCatalogueTable::findFirst(std::string_view column,
                                                           std::string_view text) const {
  for (std::size_t c = 0; c < columns_.size(); ++c) {
    if (columns_[c] != column) continue;
    auto hit = indexes_[c].find(text);
    if (hit == indexes_[c].end()) return std::nullopt;
    return hit->second;
  }
  return std::nullopt;
}

std::optional<std::string> MemoryCatalogueTable::value(std::size_t row, std::size_t column) const {
  if (row >= rows_.size() || column >= columns_.size()) return std::nullopt;
  return rows_[row][column];
}

namespace {

CatalogueOpener failingOpener() {
  return [](const std::string&) { return std::shared_ptr<const CatalogueTable>(); };
}

CatalogueOpener& current() {
  static CatalogueOpener opener = failingOpener();
  return opener;
}

}  // namespace

const CatalogueOpener& catalogueOpener() { return current(); }

CatalogueOpener setCatalogueOpener(CatalogueOpener opener) {
  auto previous = std::move(current());
  current() = opener ? std::move(opener) : failingOpener();
  return previous;
}

}  // namespace kxc
