#include <gtest/gtest.h>

#include <string>

#include "platform/runtime_error.h"
#include "platform/workbook/in_memory_application.h"
#include "support/error_number.h"

namespace kxc::workbook {
namespace {

using testing::errorNumber;

std::string descriptionOf(auto&& f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.description();
  }
  return "";
}

class ApplicationRange : public ::testing::Test {
 protected:
  void SetUp() override {
    app->addWorkbook("Book1.xlsx");
    app->addSheet("Book1.xlsx", "My Sheet");
    app->addSheet("Book1.xlsx", "O'Neil");
    app->addWorkbook("Book 2.xlsx");
    app->addSheet("Book 2.xlsx", "Data");
    app->activateSheet("Book1.xlsx", "Sheet1");
  }
  std::shared_ptr<InMemoryApplication> app = InMemoryApplication::create();
};

TEST_F(ApplicationRange, ResolvesEveryReferenceForm) {
  struct Case {
    std::string text, external;
  };
  for (const auto& c : std::initializer_list<Case>{
           {"B3", "[Book1.xlsx]Sheet1!$B$3"},
           {"$B$3", "[Book1.xlsx]Sheet1!$B$3"},
           {"a1:c3", "[Book1.xlsx]Sheet1!$A$1:$C$3"},
           {"Sheet1!B2", "[Book1.xlsx]Sheet1!$B$2"},
           {"sheet1!B2", "[Book1.xlsx]Sheet1!$B$2"},
           {"'My Sheet'!B2", "'[Book1.xlsx]My Sheet'!$B$2"},
           {"'O''Neil'!$B$3", "'[Book1.xlsx]O''Neil'!$B$3"},
           {"[Book1.xlsx]Sheet1!A1", "[Book1.xlsx]Sheet1!$A$1"},
           {"'[Book 2.xlsx]Data'!A1", "'[Book 2.xlsx]Data'!$A$1"},
           {"'[Book 2.xlsx]Sheet1'!$C$7", "'[Book 2.xlsx]Sheet1'!$C$7"},
           {"Q1", "[Book1.xlsx]Sheet1!$Q$1"},
           {"AB12", "[Book1.xlsx]Sheet1!$AB$12"},
           {"A1,C3", "[Book1.xlsx]Sheet1!$A$1,[Book1.xlsx]Sheet1!$C$3"},
       }) {
    EXPECT_EQ(app->range(c.text)->address(true, true, true), c.external) << c.text;
  }
}

TEST_F(ApplicationRange, AnythingElseRaisesTheRangeError) {
  std::string huge(100000, 'x');
  for (const std::string& text :
       {std::string(), std::string("North"), std::string("<ALL>"), std::string("A0"),
        std::string("XFE1"), std::string("1A"), std::string("'My Sheet!A1"),
        std::string("Nowhere!A1"), std::string("[Book9.xlsx]Sheet1!A1"),
        std::string("[Book1.xlsx]Data!A1"), std::string("A1048577"), huge,
        std::string("'") + huge}) {
    EXPECT_EQ(errorNumber([&] { app->range(text); }), 1004) << text.substr(0, 30);
    EXPECT_EQ(descriptionOf([&] { app->range(text); }),
              "Method 'Range' of object '_Application' failed");
  }
}

TEST_F(ApplicationRange, AddressUsesTheRequestedAnchors) {
  auto r = app->range("B3");
  EXPECT_EQ(r->address(), "$B$3");
  EXPECT_EQ(r->address(true, false), "B$3");
  EXPECT_EQ(r->address(false, true), "$B3");
  EXPECT_EQ(r->address(false, false), "B3");
  EXPECT_EQ(app->range("'O''Neil'!B3")->address(true, true, true), "'[Book1.xlsx]O''Neil'!$B$3");
}

}  // namespace
}  // namespace kxc::workbook
