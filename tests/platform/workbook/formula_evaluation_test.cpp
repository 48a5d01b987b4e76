#include <gtest/gtest.h>

#include <string>

#include "platform/workbook/in_memory_application.h"

namespace kxc::workbook {
namespace {

class FormulaEvaluation : public ::testing::Test {
 protected:
  void SetUp() override {
    app->addWorkbook("Book1.xlsx");
    app->addSheet("Book1.xlsx", "Data");
    app->setCell("A1", "2");
    app->setCell("A2", "3");
    app->setCell("A3", "North");
    app->setCell("A4", "TRUE");
    app->setCell("A5", "=1/0");
    app->setCell("Data!B2", "10");
  }
  std::string show(const std::string& formula) {
    app->setCell("Z100", formula);
    return app->displayText("Z100");
  }
  std::shared_ptr<InMemoryApplication> app = InMemoryApplication::create();
};

TEST_F(FormulaEvaluation, ComputesLiteralsOperatorsAndReferences) {
  struct Case {
    std::string formula, shown;
  };
  for (const auto& c : std::initializer_list<Case>{
           {"=12.5", "12.5"},
           {"=\"North\"", "North"},
           {"=\"say \"\"hi\"\"\"", "say \"hi\""},
           {"=TRUE", "TRUE"},
           {"=1+2*3", "7"},
           {"=(1+2)*3", "9"},
           {"=2^3^2", "64"},
           {"=-2^2", "4"},
           {"=10-4-3", "3"},
           {"=12/4/3", "1"},
           {"=+5", "5"},
           {"=--5", "5"},
           {"=50%", "0.5"},
           {"=1e3+1", "1001"},
           {"=\"a\"&1&TRUE", "a1TRUE"},
           {"=1+2&3", "33"},
           {"=1<2", "TRUE"},
           {"=2<=1", "FALSE"},
           {"=\"abc\"=\"ABC\"", "TRUE"},
           {"=\"b\">\"a\"", "TRUE"},
           {"=1<\"a\"", "TRUE"},
           {"=\"z\"<TRUE", "TRUE"},
           {"=1<>1", "FALSE"},
           {"=A1*A2", "6"},
           {"=$A$1+A$2", "5"},
           {"=Data!B2*2", "20"},
           {"=[Book1.xlsx]Data!$B$2+1", "11"},
           {"='Data'!B2", "10"},
           {"=Z1", "0"},
           {"=Z1&\"x\"", "x"},
           {"=Z1=0", "TRUE"},
           {"=\"3\"+1", "4"},
           {"=A4+1", "2"},
           {"=SUM(A1:A4)", "5"},
           {"=SUM(A1,A2,10)", "15"},
           {"=sum(A1:A2,\"4\",TRUE)", "10"},
           {"=SUM()", "0"},
           {"=SUM(A:A)", "#DIV/0!"},
           {"=SUM(A1:A2)*2", "10"},
           {" =1", " =1"},
       }) {
    EXPECT_EQ(show(c.formula), c.shown) << c.formula;
  }
}

TEST_F(FormulaEvaluation, ErrorsShowAsErrorValues) {
  struct Case {
    std::string formula, shown;
  };
  std::string longFormula = "=" + std::string(100000, '1');
  std::string deep = "=" + std::string(5000, '(') + "1" + std::string(5000, ')');
  std::string longChain = "=1";
  for (int i = 0; i < 3000; ++i) longChain += "+1";
  for (const auto& c : std::initializer_list<Case>{
           {"=1/0", "#DIV/0!"},
           {"=A1/(A2-3)", "#DIV/0!"},
           {"=A5+1", "#DIV/0!"},
           {"=1+A5", "#DIV/0!"},
           {"=SUM(A1:A5)", "#DIV/0!"},
           {"=A3+1", "#VALUE!"},
           {"=-A3", "#VALUE!"},
           {"=\"abc\"*2", "#VALUE!"},
           {"=SUM(\"abc\")", "#VALUE!"},
           {"=A1:A2", "#VALUE!"},
           {"=A1:A2+1", "#VALUE!"},
           {"=NOSUCH(1)", "#NAME?"},
           {"=Undefined+1", "#NAME?"},
           {"=Nowhere!A1", "#REF!"},
           {"=[Book9.xlsx]Sheet1!A1", "#REF!"},
           {"=#N/A", "#N/A"},
           {"=#N/A&\"x\"", "#N/A"},
           {"=0^0", "#NUM!"},
           {"=(-8)^0.5", "#NUM!"},
           {"=\"unclosed", "#NAME?"},
           {"=(1+2", "#NAME?"},
           {"=1+2)", "#NAME?"},
           {"=1+", "#NAME?"},
           {"=", "#NAME?"},
           {"=A1 A2", "#NAME?"},
           {"=@#$", "#NAME?"},
           {"=SUM(1,2", "#NAME?"},
           {"=XFE1", "#NAME?"},
           {longFormula, "#VALUE!"},
           {deep, "#VALUE!"},
           {longChain, "#VALUE!"},
           {"=" + std::string(5000, '-') + "1", "#VALUE!"},
       }) {
    EXPECT_EQ(show(c.formula), c.shown) << c.formula.substr(0, 40);
    EXPECT_EQ(app->range("Z100")->formula(), c.formula) << "the cell keeps what was typed";
  }
}

TEST_F(FormulaEvaluation, CircularReferencesSettleWithoutHanging) {
  app->setCell("C1", "=C1+1");
  EXPECT_EQ(app->displayText("C1"), "0");
  app->setCell("D1", "=D2");
  app->setCell("D2", "=D3+1");
  app->setCell("D3", "=D1*2");
  app->setCell("D4", "=D3&\"!\"");
  EXPECT_EQ(app->displayText("D1"), "0");
  EXPECT_EQ(app->displayText("D4"), "0!") << "a cell fed by a cycle still calculates";
  app->setCell("D2", "5");
  EXPECT_EQ(app->displayText("D1"), "5") << "breaking the cycle recalculates the chain";
  EXPECT_EQ(app->displayText("D3"), "10");
  EXPECT_EQ(app->displayText("D4"), "10!");
}

TEST_F(FormulaEvaluation, RegisteredFunctionsReceiveEvaluatedArguments) {
  std::vector<Variant> seen;
  app->registerFunction("Probe", [&](std::span<const Variant> args) {
    seen.assign(args.begin(), args.end());
    return Variant(static_cast<double>(args.size()));
  });
  EXPECT_EQ(show("=PROBE(A1,\"x\",,A3,A1:A2,Z9,Nowhere!A1)"), "7");
  ASSERT_EQ(seen.size(), 7u);
  EXPECT_EQ(seen[0], Variant(2.0));
  EXPECT_EQ(seen[1], Variant("x"));
  EXPECT_TRUE(seen[2].isEmpty()) << "an omitted argument arrives as Empty";
  EXPECT_EQ(seen[3], Variant("North"));
  EXPECT_EQ(seen[4], Variant(cellerr::kValue)) << "a range of several cells";
  EXPECT_TRUE(seen[5].isEmpty()) << "an empty cell";
  EXPECT_EQ(seen[6], Variant(cellerr::kRef));
  EXPECT_EQ(show("=probe()"), "0");
  EXPECT_TRUE(seen.empty());
}

TEST_F(FormulaEvaluation, RegisteredFunctionResultsAndFailures) {
  struct Case {
    Variant result;
    std::string shown;
  };
  for (const auto& c : std::initializer_list<Case>{
           {Variant(2.5), "2.5"},
           {Variant(int32_t{7}), "7"},
           {Variant(int16_t{-3}), "-3"},
           {Variant("text"), "text"},
           {Variant(true), "TRUE"},
           {Variant(cellerr::kNA), "#N/A"},
           {Variant(), "0"},
           {Variant(ObjectRef()), "#VALUE!"},
       }) {
    app->registerFunction("F", [&](std::span<const Variant>) { return c.result; });
    EXPECT_EQ(show("=F()"), c.shown);
  }
  app->registerFunction(
      "F", [](std::span<const Variant>) -> Variant { throw std::runtime_error("engine gone"); });
  EXPECT_EQ(show("=F()"), "#VALUE!");
  app->registerFunction("F", {});
  EXPECT_EQ(show("=F()"), "#NAME?") << "an empty function unregisters the name";
}

TEST_F(FormulaEvaluation, TypingChoosesTheKindOfContent) {
  struct Case {
    std::string typed;
    Variant value;
    std::string formula;
  };
  for (const auto& c : std::initializer_list<Case>{
           {"12", Variant(12.0), "12"},
           {"-3.5", Variant(-3.5), "-3.5"},
           {"1e3", Variant(1000.0), "1000"},
           {"true", Variant(true), "TRUE"},
           {"False", Variant(false), "FALSE"},
           {"North", Variant("North"), "North"},
           {"#N/A", Variant(cellerr::kNA), "#N/A"},
           {"'12", Variant("12"), "12"},
           {"12abc", Variant("12abc"), "12abc"},
           {"", Variant(), ""},
       }) {
    app->setCell("B1", c.typed);
    EXPECT_EQ(app->range("B1")->value(), c.value) << c.typed;
    EXPECT_EQ(app->range("B1")->formula(), c.formula) << c.typed;
  }
  app->setCell("B1", "=A1*2");
  EXPECT_EQ(app->range("B1")->value(), Variant(4.0));
  EXPECT_EQ(app->range("B1")->formula(), "=A1*2");
}

}  // namespace
}  // namespace kxc::workbook
