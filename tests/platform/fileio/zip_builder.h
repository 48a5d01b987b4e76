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
  // Puts `content` in place of the entry's, where it was; adds the entry when there is none.
  ZipBuilder& replace(const std::string& name, std::string content) {
    for (auto& [entry, bytes] : entries_) {
      if (entry == name) {
        bytes = std::move(content);
        return *this;
      }
    }
    return add(name, std::move(content));
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
// The same file as an archive still open to changes ("xl/workbook.xml", "xl/sharedStrings.xml",
// "xl/worksheets/sheet1.xml"...; the first sheet's relationship id is rId7).
ZipBuilder xlsxArchive(const std::vector<std::pair<std::string, std::string>>& sheets,
                       const std::vector<std::string>& sharedStrings = {});

struct XlsxSheetPart {
  std::string name;     // as listed in the workbook part, in this order
  std::string part;     // where it lies in the archive
  std::string target;   // how the workbook's relationships point at it
  std::string content;  // the whole part, or the content of <sheetData> when it has no "<?xml"
};

// An .xlsx file whose sheets are listed in the given order, each part where `part` says and
// pointed at by `target` (relative or absolute), for files laid out as other programs do.
std::string xlsxPackage(const std::vector<XlsxSheetPart>& sheets);

// Writes bytes to a file; throws std::runtime_error (failing the test) when it cannot.
void writeFile(const std::string& path, std::string_view bytes);
std::string readFile(const std::string& path);

}  // namespace kxc::fileio::testing
