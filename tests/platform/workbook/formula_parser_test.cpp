#include "platform/workbook/formula_parser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kxc::workbook {
namespace {

std::vector<std::string> referenceTexts(const ParsedFormula& f) {
  std::vector<std::string> out;
  for (const auto& r : f.references) {
    std::string text = r.workbook ? "[" + *r.workbook + "]" : "";
    if (r.sheet) text += *r.sheet + "!";
    text += r.isName ? r.name
                     : std::to_string(r.area.top) + "," + std::to_string(r.area.left) + ":" +
                           std::to_string(r.area.bottom) + "," + std::to_string(r.area.right);
    out.push_back(text);
  }
  return out;
}

TEST(FormulaParser, CollectsReferencesAndFunctions) {
  ParsedFormula f =
      parseFormula("=bv_kxcsum(\"Sales\",2,$A5,B$1,'My Sheet'!C3)+SUM(A1:B2,Region)&Sum(1)");
  ASSERT_FALSE(f.failure);
  EXPECT_EQ(referenceTexts(f), (std::vector<std::string>{"5,1:5,1", "1,2:1,2", "My Sheet!3,3:3,3",
                                                         "1,1:2,2", "Region"}));
  EXPECT_EQ(f.functions, (std::vector<std::string>{"BV_KXCSUM", "SUM"}));
}

TEST(FormulaParser, TextLiteralsAreNotReferences) {
  ParsedFormula f = parseFormula("=F(\"A1\",\"North\",\"a,b\")");
  ASSERT_FALSE(f.failure);
  EXPECT_TRUE(f.references.empty());
  ASSERT_EQ(f.nodes[f.root].args.size(), 3u);
  EXPECT_EQ(f.nodes[f.nodes[f.root].args[2]].text, "a,b");
}

TEST(FormulaParser, OmittedArgumentsBecomeMissingNodes) {
  ParsedFormula f = parseFormula("=F(,1,)");
  ASSERT_FALSE(f.failure);
  const Node& call = f.nodes[f.root];
  ASSERT_EQ(call.args.size(), 3u);
  EXPECT_EQ(f.nodes[call.args[0]].kind, NodeKind::Missing);
  EXPECT_EQ(f.nodes[call.args[1]].kind, NodeKind::Number);
  EXPECT_EQ(f.nodes[call.args[2]].kind, NodeKind::Missing);
  EXPECT_TRUE(parseFormula("=F()").nodes[0].args.empty());
}

TEST(FormulaParser, FailuresKeepNoReferences) {
  struct Case {
    std::string text;
    CellError failure;
  };
  for (const auto& c : std::initializer_list<Case>{
           {"=A1+(B2", cellerr::kName},
           {"=SUM(A1,\"x)", cellerr::kName},
           {"=A1 B2", cellerr::kName},
           {"A1", cellerr::kName},
           {"=" + std::string(kMaxFormulaLength, '1'), cellerr::kValue},
           {"=" + std::string(kMaxFormulaDepth + 1, '(') + "A1" +
                std::string(kMaxFormulaDepth + 1, ')'),
            cellerr::kValue},
       }) {
    ParsedFormula f = parseFormula(c.text);
    ASSERT_TRUE(f.failure) << c.text.substr(0, 20);
    EXPECT_EQ(*f.failure, c.failure) << c.text.substr(0, 20);
    EXPECT_TRUE(f.references.empty());
    EXPECT_TRUE(f.nodes.empty());
  }
}

TEST(FormulaParser, ModerateNestingIsAccepted) {
  int depth = kMaxFormulaDepth / 2;
  std::string nested = "=" + std::string(depth, '(') + "A1" + std::string(depth, ')');
  EXPECT_FALSE(parseFormula(nested).failure);
  std::string calls = "=";
  for (int i = 0; i < depth / 2; ++i) calls += "F(";
  calls += "1" + std::string(depth / 2, ')');
  EXPECT_FALSE(parseFormula(calls).failure);
}

}  // namespace
}  // namespace kxc::workbook
