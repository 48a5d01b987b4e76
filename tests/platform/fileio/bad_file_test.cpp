#include <gtest/gtest.h>

#include <filesystem>
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

// Parts that end inside a value right after an entity ("&amp;&b;"): the import library reads
// past the end of such a part (a crash, or an assertion in its parser), so these files end the
// reading child, never the program, and come back as damaged. Past the end of a text the
// library may find something it takes for the next tag, and then the file loads. The same
// holds for the other faults of the library that end a process.
TEST_F(BadFile, PartsEndingOnAnEntityAreRefusedWithoutCrashing) {
  const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  const std::string workbook =
      head + "<workbook xmlns=\"" + main +
      "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">";
  const std::string sheets = "<sheets><sheet name=\"S\" sheetId=\"1\" r:id=\"rId7\"/></sheets>";
  const std::string content =
      head +
      "<office:document-content xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
      " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
      " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\">"
      "<office:body><office:spreadsheet>";
  // `before`, then a comment long enough that the entity at the end of `tail` starts three
  // bytes before the part's 64 kB mark, then `tail`.
  auto across64k = [](const std::string& before, const std::string& tail) {
    const std::size_t entityAt = before.size() + 7 + tail.rfind("&amp;");
    return before + "<!--" + std::string(65536 - 3 - entityAt, '-') + "-->" + tail;
  };
  auto xlsx = [](const std::string& part, const std::string& text) {
    return testing::xlsxArchive({{"S", "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>"}}, {"x"})
        .replace(part, text)
        .bytes();
  };
  auto ods = [](const std::string& text) {
    return ZipBuilder()
        .add("mimetype", "application/vnd.oasis.opendocument.spreadsheet")
        .add("content.xml", text)
        .bytes();
  };
  const std::string name = sheets + "<definedNames><definedName name=\"";
  const std::string table = "<table:table table:name=\"";
  const std::string cell = "S\"><table:table-row><table:table-cell><text:p>";
  const std::string cellEnd =
      "</text:p></table:table-cell></table:table-row></table:table>"
      "</office:spreadsheet></office:body></office:document-content>";
  struct Case {
    const char* file;
    std::string bytes;
    bool mayLoad;
  } cases[] = {
      {"defined-name.xlsx", xlsx("xl/workbook.xml", workbook + name + "&b"), false},
      {"defined-name-end.xlsx", xlsx("xl/workbook.xml", workbook + name + "&amp;&b;"), false},
      {"defined-name-64k.xlsx", xlsx("xl/workbook.xml", across64k(workbook, name + "&amp;&b;")),
       false},
      {"sheet-name.xlsx", xlsx("xl/workbook.xml", workbook + "<sheets><sheet name=\"&amp;&b;"),
       false},
      {"shared-string.xlsx",
       xlsx("xl/sharedStrings.xml", head + "<sst xmlns=\"" + main + "\"><si><t>&amp;&b;"), true},
      {"table-name.ods", ods(content + table + "&1"), false},
      {"table-name-end.ods", ods(content + table + "&amp;&1;"), false},
      {"table-name-64k.ods", ods(across64k(content, table + "&amp;&1;")), false},
      {"cell-text.ods",
       ods(content + table + "S\"><table:table-row><table:table-cell><text:p>&amp;&1;"), true},
      // Character references that are no number, or beyond Unicode, end the library's parser
      // thread with an uncaught exception or an assertion.
      {"char-ref.ods", ods(content + table + cell + "&#m;" + cellEnd), false},
      {"char-ref-range.ods", ods(content + table + cell + "&#1114112;" + cellEnd), false},
      {"char-ref.xlsx",
       xlsx("xl/sharedStrings.xml",
            head + "<sst xmlns=\"" + main + "\"><si><t>&#m;</t></si></sst>"),
       false},
      {"char-ref-range.xlsx",
       xlsx("xl/sharedStrings.xml",
            head + "<sst xmlns=\"" + main + "\"><si><t>&#x110000;</t></si></sst>"),
       false},
  };
  for (const Case& c : cases) {
    std::string path = folder.file(c.file);
    writeFile(path, c.bytes);
    if (!c.mayLoad) {
      expectRefused(path, "the file is damaged");
    } else if (!loadWorkbook(*appWithCacheFunction(), path).ok()) {
      expectRefused(path, "the file is damaged");
    }
  }
}

}  // namespace
}  // namespace kxc::fileio
