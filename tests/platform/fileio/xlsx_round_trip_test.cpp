#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "platform/fileio/workbook_loader.h"
#include "platform/fileio/xlsx_saver.h"
#include "temp_folder.h"
#include "workbook_compare.h"
#include "zip_builder.h"

namespace kxc::fileio {
namespace {

using testing::appWithCacheFunction;
using testing::expectSameWorkbook;
using testing::readFile;
using testing::TempFolder;

class XlsxRoundTrip : public ::testing::Test {
 protected:
  void SetUp() override {
    app->addWorkbook("Sales.xlsx", "Summary");
    app->addSheet("Sales.xlsx", "O'Neil");
    app->addSheet("Sales.xlsx", "My Data");
    app->activateSheet("Sales.xlsx", "Summary");
  }

  std::shared_ptr<workbook::InMemoryApplication> reopen(const std::string& path) {
    auto reopened = appWithCacheFunction();
    LoadResult loaded = loadWorkbook(*reopened, path);
    EXPECT_TRUE(loaded.ok()) << (loaded.problem ? loaded.problem->message : "");
    return reopened;
  }

  std::shared_ptr<workbook::InMemoryApplication> app = appWithCacheFunction();
  TempFolder folder;
};

TEST_F(XlsxRoundTrip, EveryCellAndNameComesBackUnchanged) {
  const char* cells[][2] = {
      {"A1", "12.5"},
      {"A2", "-0.1"},
      {"A3", "1e-7"},
      {"A4", "123456789012345"},
      {"A6", "0.00335222755714889"},
      {"A7", "-9.5222972517471E-15"},
      {"A5", "1E+300"},
      {"B1", "'North"},
      {"B2", "'123"},
      {"B3", "'=not a formula"},
      {"B4", "'TRUE"},
      {"B5", "tab\there\nnext line"},
      {"B6", "Ünïcödé ✓ 東京"},
      {"B7", "'  blanks kept  "},
      {"B8", "'<&>\"'"},
      {"B9", "control \x01 and \x1f characters"},
      {"C1", "TRUE"},
      {"C2", "false"},
      {"E1", "=BV_KXCSUM(\"Sales\",2,\"North\",\"<ALL>\",\"2004\")"},
      {"E2", "=bv_KxcSum(\"Sales\",2,,\"West\")"},
      {"E3", "=BV_KXCSUM('O''Neil'!$B$3,'My Data'!B1,Region)"},
      {"E4", "=-BV_KXCSUM(\"A,B\",1)"},
      {"E5", "=BV_KXCSUM(\"Sales\",A1,\"say \"\"hi\"\"\")"},
      {"E6", "=A1*2"},
      {"E7", "=B1&\"x\""},
      {"E8", "=SUM(Block)"},
      {"E9", "=  A1 +  1"},
      {"F1", "=BV_KXCSUM()"},
      {"F2", "=1/0"},
      {"F3", "=NoSuchFunction(1)"},
      {"'O''Neil'!B3", "'Sales"},
      {"'My Data'!B1", "2"},
      {"'My Data'!XFD1048576", "'far corner"},
  };
  for (const auto& [reference, text] : cells) app->setCell(reference, text);
  app->defineName("Region", "'O''Neil'!$B$3");
  app->defineName("Block", "Summary!$A$1:$B$2");
  app->defineName("Far", "'My Data'!$C$5:$D$9");

  std::string path = folder.file("Saved.xlsx");
  SaveResult saved = saveWorkbookXlsx(*app, "Sales.xlsx", path);
  ASSERT_TRUE(saved.ok()) << saved.problem->message;
  EXPECT_TRUE(saved.notes.empty());

  auto reopened = reopen(path);
  expectSameWorkbook(*app, "Sales.xlsx", *reopened, "Saved.xlsx");
  EXPECT_EQ(reopened->displayText("Summary!E3"), "3");  // recalculated, not the cached value
  EXPECT_EQ(reopened->activeSheetName(), "Summary");
}

TEST_F(XlsxRoundTrip, ASecondRoundTripGivesTheSameFileContent) {
  app->setCell("Summary!A1", "=BV_KXCSUM(\"Sales\",2,'O''Neil'!$B$3)");
  app->setCell("'O''Neil'!B3", "'North");
  std::string first = folder.file("First.xlsx");
  ASSERT_TRUE(saveWorkbookXlsx(*app, "Sales.xlsx", first).ok());
  auto reopened = reopen(first);
  std::string second = folder.file("Second.xlsx");
  ASSERT_TRUE(saveWorkbookXlsx(*reopened, "First.xlsx", second).ok());
  expectSameWorkbook(*app, "Sales.xlsx", *reopen(second), "Second.xlsx");
}

TEST_F(XlsxRoundTrip, ErrorValuesComeBackAsFormulasGivingThatError) {
  app->setCell("Summary!A1", "#N/A");
  app->setCell("Summary!A2", "#DIV/0!");
  std::string path = folder.file("Errors.xlsx");
  ASSERT_TRUE(saveWorkbookXlsx(*app, "Sales.xlsx", path).ok());
  auto reopened = reopen(path);
  EXPECT_EQ(reopened->cellFormula("Errors.xlsx", "Summary", 1, 1), "=#N/A");
  EXPECT_EQ(reopened->cellValue("Errors.xlsx", "Summary", 2, 1), Variant(cellerr::kDiv0));
}

TEST_F(XlsxRoundTrip, SavingReplacesAnEarlierFileWhole) {
  std::string path = folder.file("Book.xlsx");
  app->setCell("Summary!A1", "1");
  app->setCell("Summary!Z99", "'old corner");
  ASSERT_TRUE(saveWorkbookXlsx(*app, "Sales.xlsx", path).ok());
  chmod(path.c_str(), 0640);
  app->setCell("Summary!Z99", "");
  app->setCell("Summary!A1", "2");
  ASSERT_TRUE(saveWorkbookXlsx(*app, "Sales.xlsx", path).ok());

  auto reopened = reopen(path);
  EXPECT_EQ(reopened->usedRange("Book.xlsx", "Summary"), (workbook::Area{1, 1, 1, 1}));
  EXPECT_EQ(reopened->displayText("Summary!A1"), "2");
  EXPECT_EQ(folder.entries(), std::vector<std::string>{"Book.xlsx"});
  struct stat info {};
  ASSERT_EQ(stat(path.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);  // the replaced file keeps its permissions
}

TEST_F(XlsxRoundTrip, AFailedSaveLeavesTheEarlierFileAsItWas) {
  std::string path = folder.file("Book.xlsx");
  app->setCell("Summary!A1", "1");
  ASSERT_TRUE(saveWorkbookXlsx(*app, "Sales.xlsx", path).ok());
  std::string before = readFile(path);

  app->setCell("Summary!B2", "'" + std::string(40000, 'x'));  // longer than a cell may hold
  SaveResult failed = saveWorkbookXlsx(*app, "Sales.xlsx", path);
  ASSERT_FALSE(failed.ok());
  EXPECT_NE(failed.problem->message.find("Summary!B2"), std::string::npos)
      << failed.problem->message;
  EXPECT_EQ(readFile(path), before);
  EXPECT_EQ(folder.entries(), std::vector<std::string>{"Book.xlsx"});  // no temporary left
}

TEST_F(XlsxRoundTrip, SaveFailuresNameTheFileAndTheReason) {
  struct Case {
    std::string workbook;
    std::string path;
    std::string reason;
  } cases[] = {
      {"Sales.xlsx", folder.file("missing/Book.xlsx"), "the folder does not exist"},
      {"Other.xlsx", folder.file("Book.xlsx"), "no workbook named \"Other.xlsx\" is open"},
      {"Sales.xlsx", folder.path().string(), "it is a folder"},
  };
  for (const Case& c : cases) {
    SaveResult result = saveWorkbookXlsx(*app, c.workbook, c.path);
    ASSERT_FALSE(result.ok()) << c.path;
    EXPECT_EQ(result.problem->reason, c.reason);
    EXPECT_EQ(result.problem->file, c.path);
    EXPECT_EQ(result.problem->message, "Cannot save \"" + c.path + "\": " + c.reason + ".");
  }
  EXPECT_TRUE(folder.entries().empty());
}

}  // namespace
}  // namespace kxc::fileio
