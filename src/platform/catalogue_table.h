// The catalogue port: an ordered, read-only table of text rows with named columns, the
// in-memory table that answers lookups through a hash index, and the process-wide opener.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kxc {

// A read-only table. Rows and columns are numbered from 0 in file order. Implementations are
// immutable after construction and safe to share between threads.
class CatalogueTable {
 public:
  virtual ~CatalogueTable() = default;

  virtual const std::vector<std::string>& columnNames() const = 0;
  virtual std::size_t rowCount() const = 0;

  // The first row whose column named `column` (exact, case-sensitive name) holds exactly
  // `text` (byte comparison); nullopt when there is no such column or row. Nulls never match.
  virtual std::optional<std::size_t> findFirst(std::string_view column,
                                               std::string_view text) const = 0;

  // The text in row `row` at column position `column`; nullopt for a null value or a row or
  // column out of range.
  virtual std::optional<std::string> value(std::size_t row, std::size_t column) const = 0;
};

using CatalogueRow =
    std::vector<std::optional<std::string>>;  // one entry per column, null = nullopt

// A table held in memory. On construction every column gets an index from each value to the
// first row holding it, so findFirst costs one hash lookup. Rows shorter than the column list
// are padded with nulls; longer ones are cut.
class MemoryCatalogueTable : public CatalogueTable {
 public:
  MemoryCatalogueTable(std::vector<std::string> columns, std::vector<CatalogueRow> rows);

  const std::vector<std::string>& columnNames() const override { return columns_; }
  std::size_t rowCount() const override { return rows_.size(); }
  std::optional<std::size_t> findFirst(std::string_view column,
                                       std::string_view text) const override;
  std::optional<std::string> value(std::size_t row, std::size_t column) const override;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
  };
  using Index = std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>>;

  std::vector<std::string> columns_;
  std::vector<CatalogueRow> rows_;
  std::vector<Index> indexes_;  // one per column
};

// Opens the table stored in a file; null when it cannot be opened or read. Must not throw.
using CatalogueOpener = std::function<std::shared_ptr<const CatalogueTable>(const std::string&)>;

// The process-wide opener. Until a program installs the file reader, every open fails (null).
const CatalogueOpener& catalogueOpener();
// Installs `opener` (empty restores the failing one); returns the previous one.
CatalogueOpener setCatalogueOpener(CatalogueOpener opener);

}  // namespace kxc
