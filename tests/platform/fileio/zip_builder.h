// Builds small zip archives in memory (entries stored uncompressed), enough to make .ods test
// files without another program.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kxc::fileio::testing {

class ZipBuilder {
 public:
  ZipBuilder& add(std::string name, std::string content) {
    entries_.emplace_back(std::move(name), std::move(content));
    return *this;
  }
  // The archive: local headers with data, the central directory and its end record.
  std::string bytes() const;

 private:
  std::vector<std::pair<std::string, std::string>> entries_;
};

// An .ods file: the mimetype entry first, then content.xml holding `body` inside
// <office:spreadsheet> with the usual namespace prefixes (office, table, text) declared.
std::string odsFile(std::string_view body);

// An .xlsx file made by hand, with the parts a reader needs: one worksheet per entry of
// `sheets` (name, the content of its <sheetData>), an optional shared string table and the
// content of <definedNames>.
std::string xlsxFile(const std::vector<std::pair<std::string, std::string>>& sheets,
                     const std::vector<std::string>& sharedStrings = {},
                     std::string_view definedNames = "");

// Writes bytes to a file; fails the test when it cannot.
void writeFile(const std::string& path, std::string_view bytes);
std::string readFile(const std::string& path);

}  // namespace kxc::fileio::testing
