#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

#include "platform/fileio/spreadsheet_reader.h"
#include "platform/fileio/workbook_loader.h"
#include "platform/fileio/xlsx_saver.h"
#include "temp_folder.h"
#include "workbook_compare.h"
#include "zip_builder.h"

namespace kxc::fileio {
namespace {

using testing::appWithCacheFunction;
using testing::odsFile;
using testing::TempFolder;
using testing::writeFile;
using testing::ZipBuilder;

// An application with one workbook already open, to show a failed load leaves it alone.
class BadFile : public ::testing::Test {
 protected:
  void SetUp() override {
    app->addWorkbook("Open.xlsx");
    app->setCell("A1", "=BV_KXCSUM(\"Sales\",1)");
  }

  std::string validXlsx() {
    auto source = appWithCacheFunction();
    source->addWorkbook("Valid.xlsx");
    source->setCell("A1", "=BV_KXCSUM(\"Sales\",2,\"<ALL>\")");
    source->setCell("B2", "'North");
    std::string path = folder.file("valid-source.xlsx");
    EXPECT_TRUE(saveWorkbookXlsx(*source, "Valid.xlsx", path).ok());
    return testing::readFile(path);
  }

  // Loads the file and checks that it failed for `reason` and changed nothing.
  void expectRefused(const std::string& path, const std::string& reason) {
    uint64_t revision = app->revision();
    LoadResult result = loadWorkbook(*app, path);
    ASSERT_FALSE(result.ok()) << path;
    EXPECT_NE(result.problem->reason.find(reason), std::string::npos)
        << result.problem->reason << " / expected " << reason;
    EXPECT_EQ(result.problem->file, path);
    EXPECT_EQ(result.problem->message,
              "Cannot open \"" + path + "\": " + result.problem->reason + ".");
    EXPECT_EQ(app->workbookNames(), std::vector<std::string>{"Open.xlsx"});
    EXPECT_EQ(app->revision(), revision);
    EXPECT_EQ(app->activeWorkbookName(), "Open.xlsx");
  }

  std::shared_ptr<workbook::InMemoryApplication> app = appWithCacheFunction();
  TempFolder folder;
};

TEST_F(BadFile, MissingFileOrFolderIsRefused) {
  expectRefused(folder.file("nothing.xlsx"), "the file does not exist");
  std::filesystem::create_directory(folder.file("folder.xlsx"));
  expectRefused(folder.file("folder.xlsx"), "it is a folder");
}

TEST_F(BadFile, ContentThatIsNoSpreadsheetIsRefused) {
  struct Case {
    const char* name;
    std::string bytes;
    const char* reason;
  } cases[] = {
      {"empty.xlsx", "", "the file is empty"},
      {"text.xlsx", "Region,Sales\nNorth,12\n", "not an .xlsx or .ods spreadsheet"},
      {"random.ods", std::string("\x7f\x45\x4c\x46\x02\x01\x01\x00\xff\xfe\x00\x13", 12),
       "not an .xlsx or .ods spreadsheet"},
      {"other.zip.xlsx", ZipBuilder().add("readme.txt", "hello").bytes(),
       "not an .xlsx or .ods spreadsheet"},
      {"garbage-content.ods", odsFile("<table:table table:name=\"S\"><broken"),
       "the file is damaged"},
  };
  for (const Case& c : cases) {
    std::string path = folder.file(c.name);
    writeFile(path, c.bytes);
    expectRefused(path, c.reason);
  }
}

TEST_F(BadFile, TruncatedFilesAreRefused) {
  std::string whole = validXlsx();
  for (size_t length : {whole.size() / 2, whole.size() - 30, size_t{100}}) {
    std::string path = folder.file("cut-" + std::to_string(length) + ".xlsx");
    writeFile(path, whole.substr(0, length));
    expectRefused(path, "");
  }
}

TEST_F(BadFile, AWorkbookOfTheSameNameMustNotBeOpen) {
  std::string path = folder.file("open.XLSX");
  writeFile(path, validXlsx());
  expectRefused(path, "a workbook named \"open.XLSX\" is already open");
}

TEST_F(BadFile, SheetNamesTheWorkbookCannotHaveAreRefused) {
  struct Case {
    const char* file;
    const char* sheets;
    const char* reason;
  } cases[] = {
      {"long.ods", "<table:table table:name=\"A name far longer than thirty-one characters\"/>",
       "not a valid sheet name"},
      {"brackets.ods", "<table:table table:name=\"[x]\"/>", "not a valid sheet name"},
      {"twice.ods", "<table:table table:name=\"Data\"/><table:table table:name=\"DATA\"/>",
       "two sheets named \"DATA\""},
  };
  for (const Case& c : cases) {
    std::string path = folder.file(c.file);
    writeFile(path, odsFile(c.sheets));
    expectRefused(path, c.reason);
  }
}

TEST_F(BadFile, AFileWithMoreCellsThanTheLimitIsRefused) {
  std::string bytes = odsFile(
      "<table:table table:name=\"S\"><table:table-row><table:table-cell "
      "table:number-columns-repeated=\"101\" office:value-type=\"float\" "
      "office:value=\"1\"/></table:table-row></table:table>");
  EXPECT_TRUE(readSpreadsheet(bytes, 101).image);
  SpreadsheetReadResult refused = readSpreadsheet(bytes, 100);
  EXPECT_FALSE(refused.image);
  EXPECT_EQ(refused.failure, "it holds more than 100 cells, too many to open");
}

// Mutated copies of valid files must load or be refused, never crash or half-load.
TEST_F(BadFile, MutatedFilesNeverBreakTheLoader) {
  std::string samples[] = {
      validXlsx(),
      odsFile("<table:table table:name=\"Sheet1\"><table:table-row>"
              "<table:table-cell office:value-type=\"float\" office:value=\"2\"/>"
              "<table:table-cell table:formula=\"of:=BV_KXCSUM(&quot;S&quot;;[.A1];"
              "[$'O''Neil'.$B$3])\"/></table:table-row></table:table>"
              "<table:table table:name=\"O'Neil\"/><table:named-expressions>"
              "<table:named-range table:name=\"R\" table:base-cell-address=\"$Sheet1.$A$1\" "
              "table:cell-range-address=\"$Sheet1.$A$1:.$B$2\"/></table:named-expressions>"),
      testing::xlsxFile({{"Made", R"(<row r="1"><c r="A1" t="inlineStr"><is><r><t>a&amp;</t></r>
<r><t xml:space="preserve"> b</t></r></is></c><c t="e"><v>#DIV/0!</v></c></row>
<row><c t="inlineStr"><is><t>Zürich</t></is></c><c r="C2"><f>B1</f></c></row>)"}}),
  };
  std::mt19937 random(20240601);
  std::string path = folder.file("mutated.xlsx");
  int loaded = 0;
  for (int round = 0; round < 450; ++round) {
    std::string bytes = samples[round % std::size(samples)];
    int changes = 1 + static_cast<int>(random() % 8);
    for (int i = 0; i < changes; ++i) {
      size_t at = random() % bytes.size();
      switch (random() % 3) {
        case 0:
          bytes[at] = static_cast<char>(random());
          break;
        case 1:
          bytes.erase(at, 1 + random() % 16);
          break;
        default:
          bytes.insert(at, std::string(1 + random() % 4, static_cast<char>(random())));
      }
      if (bytes.empty()) bytes = "x";
    }
    writeFile(path, bytes);
    auto fresh = appWithCacheFunction();
    LoadResult result = loadWorkbook(*fresh, path);
    if (result.ok()) {
      ++loaded;
      EXPECT_EQ(fresh->workbookNames(), std::vector<std::string>{"mutated.xlsx"});
    } else {
      EXPECT_TRUE(fresh->workbookNames().empty()) << result.problem->message;
      EXPECT_FALSE(result.problem->reason.empty());
    }
  }
  RecordProperty("loaded", loaded);
}

}  // namespace
}  // namespace kxc::fileio
