#include "platform/settings/settings_file_format.h"

#include <gtest/gtest.h>

namespace kxc {
namespace {

TEST(SettingsFileFormat, AwkwardNamesAndValuesSurviveARoundTrip) {
  struct Case {
    std::string name, value;
  };
  for (const auto& c :
       {Case{"CacheName", "Sales 2024"}, Case{"a=b", "x=y"}, Case{" lead", "  two leading blanks"},
        Case{"trail ", "trailing  "}, Case{"[bracket", "[not a header]"},
        Case{"#hash", "# not a comment"}, Case{";semi", ";x"},
        Case{"multi", "line one\nline two\r\n"}, Case{"nul", std::string("a\0b", 3)},
        Case{"back\\slash", "C:\\temp\\n"}, Case{"tab", "\tin\tside\t"}, Case{"", "default value"},
        Case{"empty", ""}, Case{"utf8", "Grüße 日本"}, Case{"end\\", "end\\"}}) {
    SettingsDocument doc;
    doc.setValue("Software\\Kestra\\Cache", c.name, c.value);
    std::string text = formatSettings(doc);
    SettingsParseResult back = parseSettings(text);
    ASSERT_FALSE(back.error) << text;
    const std::string* value = back.document.findValue("Software\\Kestra\\Cache", c.name);
    ASSERT_NE(value, nullptr) << text;
    EXPECT_EQ(*value, c.value) << text;
  }
}

TEST(SettingsFileFormat, EscapesKeepEachValueOnOneLine) {
  EXPECT_EQ(escapeSettingsValue("a\nb\rc"), "a\\nb\\rc");
  EXPECT_EQ(escapeSettingsValue(" x "), "\\sx\\s");
  EXPECT_EQ(escapeSettingsName("a=b"), "a\\=b");
  EXPECT_EQ(escapeSettingsValue("a=b"), "a=b");
}

TEST(SettingsFileFormat, ReadsWhatAPersonWrites) {
  auto parsed = parseSettings(
      "; my settings\r\n"
      "  [ Software\\Kestra\\Cache ]  \r\n"
      "CacheName = Sales\r\n"
      "Path=D:\\data\\x\n"
      "\n"
      "[software\\KESTRA\\cache]\n"
      "cachename=Later wins\n");
  ASSERT_FALSE(parsed.error);
  const auto& doc = parsed.document;
  EXPECT_EQ(*doc.findValue("Software\\Kestra\\Cache", "CACHENAME"), "Later wins");
  EXPECT_EQ(*doc.findValue("Software\\Kestra\\Cache", "Path"), "D:\\data\\x");
  EXPECT_EQ(doc.sections().size(), 1u);
}

TEST(SettingsFileFormat, CommentsAreKeptWhereTheyStood) {
  std::string text = "# top\n[Software\\Kestra\\Cache]\n; about the cache\nCacheName=A\n\n# end\n";
  auto parsed = parseSettings(text);
  ASSERT_FALSE(parsed.error);
  EXPECT_EQ(formatSettings(parsed.document), text);
  parsed.document.setValue("Software\\Kestra\\Cache", "CacheName", "B");
  EXPECT_EQ(formatSettings(parsed.document),
            "# top\n[Software\\Kestra\\Cache]\n; about the cache\nCacheName=B\n\n# end\n");
}

TEST(SettingsFileFormat, BrokenLinesAreReportedWithTheirNumber) {
  struct Case {
    const char* text;
    std::size_t line;
    const char* reason;
  };
  for (auto c : {Case{"[a]\nno separator\n", 2, "expected name=value or a [key] header"},
                 Case{"# c\nname=value\n", 2, "a name=value line comes before any [key] header"},
                 Case{"[a]\nx=1\n[b\n", 3, "a [key] header lacks its ]"},
                 Case{"[\\\\]\n", 1, "a [key] header names no key"},
                 Case{"[a]\n[b\tc]\n", 2, "a [key] header holds a control character"},
                 Case{"[a]\nx=ends in \\\n", 2, "a backslash ends the line"}}) {
    auto parsed = parseSettings(c.text);
    ASSERT_TRUE(parsed.error) << c.text;
    EXPECT_EQ(parsed.error->line, c.line) << c.text;
    EXPECT_EQ(parsed.error->reason, c.reason) << c.text;
    EXPECT_TRUE(parsed.document.sections().empty());
  }
}

TEST(SettingsDocument, KeysAboveAnExistingKeyExist) {
  SettingsDocument doc;
  doc.addSection("Software\\Kestra\\Cache");
  for (const char* key :
       {"", "Software", "software\\kestra", "Software\\Kestra\\Cache\\", "\\Software\\\\Kestra"}) {
    EXPECT_TRUE(doc.keyExists(key)) << key;
  }
  for (const char* key : {"Soft", "Software\\Kestra\\Cache\\More", "Software\\Kes"}) {
    EXPECT_FALSE(doc.keyExists(key)) << key;
  }
}

}  // namespace
}  // namespace kxc

namespace kxc {
namespace {

// Whatever a file holds, parsing ends with a document or a line-numbered error, and a parsed
// document survives being written and read again.
TEST(SettingsFileFormat, ArbitraryBytesNeverBreakTheParser) {
  const std::string alphabet = std::string("[]=\\#; \t\r\nabK0s", 16) + std::string(1, '\0');
  unsigned seed = 12345;
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    int length = static_cast<int>(seed % 60);
    for (int i = 0; i < length; ++i) {
      seed = seed * 1103515245u + 12345u;
      text += alphabet[(seed >> 16) % alphabet.size()];
    }
    seed = seed * 1103515245u + 12345u;
    SettingsParseResult parsed = parseSettings(text);
    if (parsed.error) {
      EXPECT_GE(parsed.error->line, 1u) << text;
      continue;
    }
    std::string written = formatSettings(parsed.document);
    SettingsParseResult again = parseSettings(written);
    ASSERT_FALSE(again.error) << written;
    EXPECT_EQ(formatSettings(again.document), written);
  }
}

}  // namespace
}  // namespace kxc
