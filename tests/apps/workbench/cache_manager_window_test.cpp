#include "cache_manager_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <fstream>

#include "gui_environment.h"

namespace kxc::testing {
namespace {

using CacheManager = WorkbenchTest;

std::string writeFile(const std::string& name, const std::string& text) {
  const auto path = scratchFolder() / name;
  std::ofstream(path) << text;
  return path.string();
}

workbench::CacheManagerWindow* openManager(workbench::WorkbenchSession& session) {
  session.runCommand("CacheManager");
  processEvents();
  for (QWidget* w : QApplication::topLevelWidgets()) {
    if (auto* manager = qobject_cast<workbench::CacheManagerWindow*>(w)) return manager;
  }
  return nullptr;
}

TEST_F(CacheManager, ListsTheSampleCachesWithTheirSizes) {
  auto* manager = openManager(session());
  ASSERT_NE(manager, nullptr);
  QTableWidget& table = manager->table();
  ASSERT_GE(table.rowCount(), 2);
  EXPECT_EQ(table.item(0, 0)->text(), "Sales");
  EXPECT_EQ(table.item(0, 1)->text(), "6");
  EXPECT_EQ(table.item(0, 2)->text(), "3");
  EXPECT_EQ(table.item(0, 3)->text(), QLocale().toString(3000));
  EXPECT_EQ(table.item(1, 0)->text(), "Budget");
  manager->close();
}

TEST_F(CacheManager, ImportsACsvFileAsANewCache) {
  auto* manager = openManager(session());
  ASSERT_NE(manager, nullptr);
  const int before = manager->table().rowCount();
  const std::string file = writeFile("shop.csv",
                                     "dim:Store,measure:Sales\n"
                                     "Oslo,10\nBergen,5\nOslo,2\n");
  const std::string name = "Shop " + std::to_string(before);
  EXPECT_TRUE(manager->importFile(file, name));
  ASSERT_EQ(manager->table().rowCount(), before + 1);
  EXPECT_EQ(manager->table().item(before, 0)->text().toStdString(), name);
  EXPECT_EQ(manager->table().item(before, 3)->text(), "3");
  EXPECT_TRUE(services().messages.empty());
  manager->close();
}

TEST_F(CacheManager, ABadCsvLineIsReportedWithFileAndLine) {
  auto* manager = openManager(session());
  ASSERT_NE(manager, nullptr);
  const int before = manager->table().rowCount();
  const std::string file = writeFile("broken.csv",
                                     "dim:Store,measure:Sales\n"
                                     "Oslo,10\nBergen,lots\n");
  EXPECT_FALSE(manager->importFile(file, "Broken"));
  EXPECT_EQ(manager->table().rowCount(), before);
  ASSERT_EQ(services().messages.size(), 1u);
  EXPECT_NE(services().messages[0].text.find("broken.csv:3:"), std::string::npos)
      << services().messages[0].text;
  manager->close();
}

}  // namespace
}  // namespace kxc::testing
