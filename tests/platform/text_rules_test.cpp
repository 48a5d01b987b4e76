#include "platform/text_rules.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"

namespace kxc {
namespace {

TEST(TextRules, LeadingNumberSkipsBlanksAndStopsAtTheFirstNonNumber) {
  struct Case {
    const char* in;
    double out;
  };
  for (auto c : {Case{"2.5abc", 2.5}, Case{"  42", 42}, Case{"\t-3", -3}, Case{"abc", 0},
                 Case{"", 0}, Case{".5", 0.5}, Case{"1e3x", 1000}, Case{"1e", 1}, Case{"-", 0},
                 Case{"3.", 3}, Case{"+7", 7}}) {
    EXPECT_DOUBLE_EQ(leadingNumber(c.in), c.out) << c.in;
  }
}

TEST(TextRules, RoundHalfEven) {
  struct Case {
    double in, out;
  };
  for (auto c : {Case{2.5, 2}, Case{3.5, 4}, Case{2.6, 3}, Case{-1.5, -2}, Case{-2.5, -2},
                 Case{0.49, 0}, Case{4.0, 4}}) {
    EXPECT_DOUBLE_EQ(roundHalfEven(c.in), c.out) << c.in;
  }
}

TEST(TextRules, LikeMatchesTheWholeTextCaseSensitively) {
  struct Case {
    const char* text;
    const char* pattern;
    bool match;
  };
  for (auto c : {Case{"=BV_KXCSUM(1)", "=BV_KXCSUM*", true},
                 Case{"=bv_kxcsum(1)", "=BV_KXCSUM*", false},
                 Case{"=-BV_KXCSUM(", "=BV_KXCSUM*", false},
                 Case{"Kestra Cache", "*Cache*", true},
                 Case{"Kestra", "*Cache*", false},
                 Case{"", "", true},
                 Case{"a", "", false},
                 Case{"", "*", true},
                 Case{"abc", "a?c", true},
                 Case{"ac", "a?c", false},
                 Case{"a1c", "a#c", true},
                 Case{"abc", "a#c", false},
                 Case{"b", "[a-c]", true},
                 Case{"d", "[a-c]", false},
                 Case{"d", "[!a-c]", true},
                 Case{"b", "[!a-c]", false},
                 Case{"*", "[*]", true},
                 Case{"x*y", "x[*]y", true},
                 Case{"aXbXc", "a*b*c", true},
                 Case{"Grüße", "Gr?ße", true},
                 Case{"abcabd", "*abd", true}}) {
    EXPECT_EQ(likeMatch(c.text, c.pattern), c.match) << c.text << " like " << c.pattern;
  }
}

TEST(TextRules, MalformedBracketIsAnInvalidPattern) {
  EXPECT_THROW(likeMatch("a", "[a"), RuntimeError);
}

TEST(TextRules, UpperCaseIsUnicode) {
  EXPECT_EQ(upperCase("=bv_kxcsum(a1)"), "=BV_KXCSUM(A1)");
  EXPECT_EQ(upperCase("grüße"), "GRÜßE");  // one character for one: no ß expansion
  EXPECT_EQ(upperCase("привет"), "ПРИВЕТ");
  EXPECT_EQ(upperCase("çé"), "ÇÉ");
  EXPECT_EQ(upperCase("\xff"
                      "a"),
            "\xff"
            "A");  // invalid bytes pass through
}

TEST(TextRules, CharactersAreCountedAndCutNotBytes) {
  EXPECT_EQ(charCount("日本語"), 3u);
  EXPECT_EQ(leftChars("日本語", 2), "日本");
  EXPECT_EQ(rightChars("日本語", 1), "語");
  EXPECT_EQ(midChars("日本語abc", 3, 2), "語a");
  EXPECT_EQ(midChars("abc", 5), "");
  EXPECT_EQ(findChars("日本,語", ","), 3u);
  EXPECT_EQ(findChars("a,b,c", ",", 3), 4u);
  EXPECT_EQ(findChars("abc", "x"), 0u);
}

TEST(TextRules, CompareUtf16OrdersByCodeUnitsNotBytes) {
  struct Case {
    const char* a;
    const char* b;
    int sign;
  };
  const Case cases[] = {
      {"", "", 0},
      {"a", "b", -1},
      {"a", "", 1},
      {"ab", "a", 1},
      {"\u00e9", "z", 1},
      {"\U0001F600", "\uFF5E", -1},    // a surrogate pair sorts before U+E000..U+FFFF
      {"x\U0001F600", "x\uE000", -1},  // also after a shared prefix
      {"\U0001F600", "\uD7FF", 1},
      {"\U0001F600", "\U0001F601", -1},
      {"\U00010400", "\U0001F600", -1},
      {"\xff", "a", 1},  // invalid bytes compare as bytes
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.a) + " / " + c.b);
    const int forward = compareUtf16(c.a, c.b), backward = compareUtf16(c.b, c.a);
    EXPECT_EQ((forward > 0) - (forward < 0), c.sign);
    EXPECT_EQ((backward > 0) - (backward < 0), -c.sign);
  }
}

TEST(TextRules, InvalidUtf8IsFoundAtItsFirstByte) {
  const std::pair<std::string, std::size_t> cases[] = {
      {"Revenue \u65e5", std::string::npos},
      {"Reven\xe9ue", 5},
      {"ab\xe2\x82", 2},        // cut short
      {"\xc0\x80", 0},          // overlong
      {"x\xed\xa0\x80", 1},     // a surrogate
      {"\xf4\x90\x80\x80", 0},  // beyond U+10FFFF
      {"\xf0\x9f\x98\x80!", std::string::npos},
  };
  for (const auto& [text, at] : cases) EXPECT_EQ(invalidUtf8At(text), at) << text;
}

TEST(TextRules, ReplaceAllIsLeftToRightNonOverlapping) {
  EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replaceAll("Kestra Cache Kestra", "Kestra", "Acme"), "Acme Cache Acme");
  EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(trimSpaces("  a b  "), "a b");
  EXPECT_EQ(trimBlanks("\t a \n"), "a");
}

}  // namespace
}  // namespace kxc
