// Text rules shared by the whole add-in: the leading-number value, rounding halves to even, the
// wildcard pattern operator, Unicode upper-casing and character counting on UTF-8 text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kxc {

// The value of the number a text starts with: leading blanks (space, tab, line feed, carriage
// return) are skipped, then an optional sign, digits, a decimal point and an exponent are read;
// a text that does not start with a number gives 0. "2.5abc" gives 2.5, "abc" gives 0.
double leadingNumber(std::string_view text);

// Rounds to the nearest whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
double roundHalfEven(double value);

// The host's pattern operator, case-sensitive, matching the whole text: ? one character,
// * any run (also none), # one digit, [a-z] one character of a set or range, [!a-z] one
// character not in it; anything else matches itself. A malformed bracket (no closing ])
// raises 93 "Invalid pattern string".
bool likeMatch(std::string_view text, std::string_view pattern);

// Unicode upper-casing of UTF-8 text (invalid bytes are kept as they are).
std::string upperCase(std::string_view text);

// Appends one code point as UTF-8.
void appendUtf8(std::string& out, char32_t codePoint);

// Binary order of texts as UTF-16 code units, the order of wide strings: negative, zero or
// positive as `a` sorts before, with or after `b`. It differs from the order of UTF-8 bytes
// only where a character above U+FFFF meets one from U+E000 to U+FFFF (the first sorts before:
// its surrogates come first). Invalid bytes compare as bytes.
int compareUtf16(std::string_view a, std::string_view b);

// The byte offset of the first byte that is not part of well-formed UTF-8 (overlong forms,
// surrogates and code points above U+10FFFF are not), or std::string_view::npos.
std::size_t invalidUtf8At(std::string_view text);

// Number of characters (code points) in UTF-8 text.
std::size_t charCount(std::string_view text);

// Byte offset of character index `chars` (0-based) in UTF-8 text; text.size() past the end.
std::size_t byteOffsetOfChar(std::string_view text, std::size_t chars);

// 1-based character position of the first occurrence of `needle` at or after the 1-based
// character position `start`, or 0 when absent (the host's InStr).
std::size_t findChars(std::string_view text, std::string_view needle, std::size_t start = 1);

// Leading, trailing and middle cuts by characters (the host's Left, Right, Mid; Mid is
// 1-based and without a length takes the rest).
std::string leftChars(std::string_view text, std::size_t n);
std::string rightChars(std::string_view text, std::size_t n);
std::string midChars(std::string_view text, std::size_t start, std::size_t n = std::string::npos);

// Removes leading and trailing spaces (the host's Trim: spaces only).
std::string trimSpaces(std::string_view text);
// Removes leading and trailing blanks: spaces, tabs, line feeds and carriage returns.
std::string_view trimBlanks(std::string_view text);

// Replaces every non-overlapping occurrence, left to right; an empty `what` changes nothing.
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);

bool startsWith(std::string_view text, std::string_view prefix);
bool endsWith(std::string_view text, std::string_view suffix);

}  // namespace kxc
