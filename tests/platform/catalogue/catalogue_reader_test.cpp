#include "platform/catalogue/catalogue_reader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace kxc {
namespace {

// A file as a person might write it: other prefixes than usual, a column whose real name is no
// valid attribute name, columns listed out of number order, nulls and entities.
constexpr const char* kHandMade = R"(<?xml version="1.0" encoding="UTF-8"?>
<xml xmlns:sc="uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882"
     xmlns:r="urn:schemas-microsoft-com:rowset" xmlns:row="#RowsetSchema">
  <sc:Schema id="RowsetSchema">
    <sc:ElementType name="row" content="eltOnly">
      <sc:AttributeType name="Code" r:number="2"/>
      <sc:AttributeType name="ID" r:number="1"/>
      <sc:AttributeType name="c2" r:name="Text 0" r:number="3">
        <sc:datatype dt:type="string" xmlns:dt="uuid:C2F41010-65B3-11d1-A29F-00AA00C14882"/>
      </sc:AttributeType>
      <sc:extends type="r:rowbase"/>
    </sc:ElementType>
  </sc:Schema>
  <r:data>
    <row:row ID="1" Code="OK&amp;" c2="&lt;OK&gt; &#233;t&#xE9; &quot;q&quot;"/>
    <row:row ID="2" Code="NULLTEXT"/>
    <other:row xmlns:other="urn:not-a-rowset" ID="9" Code="IGNORED" c2="x"/>
    <r:insert><row:row ID="3" Code="INSERTED" c2="new"/></r:insert>
    <row:row ID="4" Code="OK&amp;" c2="second"/>
  </r:data>
</xml>
)";

TEST(CatalogueReader, ReadsColumnsRowsNullsAndEntities) {
  auto result = readCatalogueText(kHandMade, "hand.xml");
  ASSERT_FALSE(result.problem) << result.problem->reason;
  const CatalogueTable& t = *result.table;
  EXPECT_EQ(t.columnNames(), (std::vector<std::string>{"ID", "Code", "Text 0"}));
  EXPECT_EQ(t.rowCount(), 4u);
  auto ok = t.findFirst("Code", "OK&");
  ASSERT_TRUE(ok);
  EXPECT_EQ(*ok, 0u);
  EXPECT_EQ(t.value(*ok, 2), "<OK> été \"q\"");
  auto nullText = t.findFirst("Code", "NULLTEXT");
  ASSERT_TRUE(nullText);
  EXPECT_EQ(t.value(*nullText, 0), "2");
  EXPECT_FALSE(t.value(*nullText, 2));
  EXPECT_FALSE(t.findFirst("Code", "IGNORED"));
  EXPECT_EQ(t.value(*t.findFirst("Code", "INSERTED"), 2), "new");
  EXPECT_FALSE(t.findFirst("c2", "new"));  // the alias replaces the attribute name
}

TEST(CatalogueReader, KeepsFileOrderWhenColumnsAreNotAllNumbered) {
  auto result = readCatalogueText(R"(<xml xmlns:s="uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882"
 xmlns:rs="urn:schemas-microsoft-com:rowset" xmlns:z="#RowsetSchema">
<s:Schema id="RowsetSchema"><s:ElementType name="row">
<s:AttributeType name="B" rs:number="2"/><s:AttributeType name="A"/>
</s:ElementType></s:Schema><rs:data/></xml>)",
                                  "order.xml");
  ASSERT_FALSE(result.problem);
  EXPECT_EQ(result.table->columnNames(), (std::vector<std::string>{"B", "A"}));
  EXPECT_EQ(result.table->rowCount(), 0u);
}

TEST(CatalogueReader, ReportsWhereAFileGoesWrong) {
  constexpr const char* kHead =
      "<xml xmlns:s=\"uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882\"\n"
      " xmlns:rs=\"urn:schemas-microsoft-com:rowset\" xmlns:z=\"#RowsetSchema\">\n";
  struct Case {
    std::string text;
    std::size_t line;
    const char* reason;
  };
  for (const auto& c : {
           Case{std::string(kHead) + "<s:Schema>\n<s:ElementType name=\"row\">\n"
                                     "<s:AttributeType name=\"A\">\n</s:ElementType>\n",
                6, "Start-end tags mismatch"},
           Case{std::string(kHead) + "<rs:data/>\n</xml>\n", 1, "no schema section"},
           Case{std::string(kHead) +
                    "<s:Schema>\n<s:ElementType name=\"row\">\n"
                    "<s:AttributeType rs:number=\"1\"/>\n</s:ElementType></s:Schema></xml>",
                5, "a column has no name"},
           Case{std::string(kHead) +
                    "<s:Schema>\n<s:ElementType name=\"row\">\n"
                    "<s:AttributeType name=\"A\"/></s:ElementType></s:Schema>\n</xml>",
                1, "no data section"},
           Case{std::string(kHead) + "<s:Schema>\n\n<s:ElementType name=\"row\"/>\n"
                                     "</s:Schema><rs:data/></xml>",
                5, "the schema names no columns"},
           Case{"", 1, "No document element"},
           Case{"<a>\n<b>\n</a>", 3, "Start-end tags mismatch"},
       }) {
    auto result = readCatalogueText(c.text, "bad.xml");
    ASSERT_TRUE(result.problem) << c.text;
    EXPECT_FALSE(result.table);
    EXPECT_EQ(result.problem->file, "bad.xml");
    EXPECT_EQ(result.problem->line, c.line) << c.text << "\n" << result.problem->reason;
    EXPECT_NE(result.problem->reason.find(c.reason), std::string::npos) << result.problem->reason;
  }
}

TEST(CatalogueReader, AMissingFileIsAProblemOfTheWholeFile) {
  auto result = readCatalogueFile("/nonexistent/TmBvCacheLanguages.xml");
  ASSERT_TRUE(result.problem);
  EXPECT_EQ(result.problem->line, 0u);
  EXPECT_EQ(result.problem->file, "/nonexistent/TmBvCacheLanguages.xml");
  EXPECT_NE(result.problem->reason.find("cannot be opened"), std::string::npos);
  EXPECT_FALSE(openCatalogueFile("/nonexistent/TmBvCacheLanguages.xml"));
}

TEST(CatalogueReader, ReadsAFileFromDisk) {
  auto path = std::filesystem::temp_directory_path() / "kxc-catalogue-reader-test.xml";
  std::ofstream(path) << kHandMade;
  auto table = openCatalogueFile(path.string());
  std::filesystem::remove(path);
  ASSERT_TRUE(table);
  EXPECT_EQ(table->rowCount(), 4u);
}

TEST(CatalogueReader, ReadsTheShippedCatalogues) {
  std::string data = KXC_TEST_DATA_DIR "/";
  auto languages = readCatalogueFile(data + "TmBvCacheLanguages.xml");
  ASSERT_FALSE(languages.problem) << languages.problem->reason;
  EXPECT_GE(languages.table->columnNames().size(), 18u);
  EXPECT_TRUE(languages.table->findFirst("Code", "OK&"));
  auto details = readCatalogueFile(data + "TmBvCacheLanguageFontDetails.xml");
  ASSERT_FALSE(details.problem) << details.problem->reason;
  EXPECT_TRUE(details.table->findFirst("KeyID", "00_UserName"));
}

}  // namespace
}  // namespace kxc

namespace kxc {
namespace {

// Every cut of a valid file is either read or reported with a line, never a crash.
TEST(CatalogueReader, TruncatedFilesAreReportedNotFatal) {
  std::string whole = kHandMade;
  for (std::size_t cut = 0; cut < whole.size(); cut += 7) {
    auto result = readCatalogueText(whole.substr(0, cut), "cut.xml");
    EXPECT_NE(result.table == nullptr, result.problem == std::nullopt) << cut;
  }
}

}  // namespace
}  // namespace kxc
