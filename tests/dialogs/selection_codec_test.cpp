#include "dialogs/selection_codec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "support/recording_services.h"
#include "vector_rows.h"

namespace kxc {
namespace {

using testing::VectorRows;

const std::vector<std::string> kMembers = {"<ALL>", "A", "B", "C", "D", "E"};
const std::vector<std::string> kMembersToD = {"<ALL>", "A", "B", "C", "D"};
const std::vector<std::string> kLetters = {"A", "B", "C", "D", "E"};

struct EncodeCase {
  const char* name;
  std::vector<std::string> rows;
  std::string pattern;  // 'x' = selected
  bool singleIn;
  std::string expected;
  bool singleOut;
  std::string first, last;  // "?" = left as passed
  bool isRange;
};

class Encode : public ::testing::TestWithParam<EncodeCase> {};

TEST_P(Encode, GivesTheSelectionTextAndItsParts) {
  const EncodeCase& c = GetParam();
  VectorRows rows(c.rows, c.pattern);
  std::string first = "?", last = "?";
  bool single = c.singleIn;
  bool isRange = !c.isRange;
  EXPECT_EQ(encodeSelection(rows, first, last, single, isRange), c.expected);
  EXPECT_EQ(single, c.singleOut);
  EXPECT_EQ(first, c.first);
  EXPECT_EQ(last, c.last);
  EXPECT_EQ(isRange, c.isRange);
}

INSTANTIATE_TEST_SUITE_P(
    SelectionText, Encode,
    ::testing::Values(
        // Rows <ALL>, A..E in multiple-selection mode.
        EncodeCase{"OneRowSwitchesSingleModeOn", kMembers, "-x", false, "A", true, "?", "?", false},
        EncodeCase{"RunBecomesARange", kMembers, "-xxx", false, "<<A..C", false, "A", "C", true},
        EncodeCase{"SeparateRowsAreJoined", kMembers, "-x-x", false, "<<A,C", false, "A,C", "",
                   true},
        EncodeCase{"AllBeforeAnUnselectedRowIsDropped", kMembers, "x--x", false, "C", false, "?",
                   "?", false},
        EncodeCase{"RunFromAllStartsAfterIt", kMembers, "xxx", false, "<<A..B", false, "A", "B",
                   true},
        EncodeCase{"NothingSelected", kMembersToD, "", false, "", false, "?", "?", false},
        EncodeCase{"AllAndOneRowGiveASingleRowRange", kMembersToD, "xx", false, "<<A..A", false,
                   "A", "A", true},
        EncodeCase{"AllAloneIsKept", kMembersToD, "x", false, "<ALL>", true, "?", "?", false},
        // The last two rows never start a run.
        EncodeCase{"LastTwoRowsStayTwoPieces", kLetters, "---xx", false, "<<D,E", false, "D,E", "",
                   true},
        EncodeCase{"RunReachingTheEndIsOneRange", kLetters, "--xxx", false, "<<C..E", false, "C",
                   "E", true},
        EncodeCase{"RunFromAllToTheEndKeepsAll",
                   {"<ALL>", "A", "B", "C"},
                   "xxxx",
                   false,
                   "<<<ALL>..C",
                   false,
                   "<ALL>",
                   "C",
                   true},
        EncodeCase{"RunBeforeTheLastTwoRows", kLetters, "-xx--", false, "<<B..C", false, "B", "C",
                   true},
        EncodeCase{"RunThenSingleThenTail", kLetters, "xx-xx", false, "<<A..B,D,E", false,
                   "A..B,D,E", "", true},
        // Single mode: every selected row is a piece, "<ALL>" kept, no ranges.
        EncodeCase{"SingleModeJoinsRows", kMembers, "-x-x", true, "<<A,C", true, "A,C", "", true},
        EncodeCase{"SingleModeKeepsAll", kMembers, "xx", true, "<<<ALL>,A", true, "<ALL>,A", "",
                   true},
        EncodeCase{"SingleModeRunStaysRows", kLetters, "xxx", true, "<<A,B,C", true, "A,B,C", "",
                   true},
        // "<ALL>" is only special as the very first piece.
        EncodeCase{"AllAfterAPieceIsKept",
                   {"A", "B", "<ALL>", "C", "D"},
                   "x-x",
                   false,
                   "<<A,<ALL>",
                   false,
                   "A,<ALL>",
                   "",
                   true},
        EncodeCase{"RunFromAllAfterAPieceKeepsAll",
                   {"A", "B", "<ALL>", "C", "D", "E"},
                   "x-xx",
                   false,
                   "<<A,<ALL>..C",
                   false,
                   "A,<ALL>..C",
                   "",
                   true},
        EncodeCase{"AllAmongTheLastTwoRowsIsKept",
                   {"<ALL>", "A"},
                   "xx",
                   false,
                   "<<<ALL>,A",
                   false,
                   "<ALL>,A",
                   "",
                   true},
        EncodeCase{"RangeEndingAtAllLosesItsLast",
                   {"X", "Y", "<ALL>", "Z"},
                   "xxx",
                   false,
                   "<<X..<ALL>",
                   false,
                   "X",
                   "",
                   true},
        EncodeCase{"AllComparisonIsCaseSensitive",
                   {"<all>", "A", "B", "C"},
                   "x--x",
                   false,
                   "<<<all>,C",
                   false,
                   "<all>,C",
                   "",
                   true},
        // Texts are taken as they are.
        EncodeCase{"EmptyTextPieceLeavesALeadingComma",
                   {"", "A", "B"},
                   "x-x",
                   false,
                   "<<,B",
                   false,
                   ",B",
                   "",
                   true},
        EncodeCase{"DotsInsideOneTextLookLikeARange",
                   {"a..b", "c"},
                   "x",
                   false,
                   "<<a..b",
                   true,
                   "a",
                   "b",
                   true}),
    [](const auto& info) { return std::string(info.param.name); });

struct DecodeCase {
  const char* name;
  std::vector<std::string> rows;
  std::string before;
  std::string text;
  std::string after;
};

class Decode : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(Decode, SelectsTheNamedRows) {
  const DecodeCase& c = GetParam();
  VectorRows rows(c.rows, c.before);
  decodeSelection(rows, c.text);
  std::string expected = c.after;
  expected.resize(c.rows.size(), '-');
  EXPECT_EQ(rows.pattern(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    SelectionText, Decode,
    ::testing::Values(
        DecodeCase{"EmptyTextKeepsTheSelection", kMembers, "-x-x", "", "-x-x"},
        DecodeCase{"RangesAndSingles", kMembers, "x", "<<A..C,E", "-xxx-x"},
        DecodeCase{"UnknownPieceIsIgnored", kMembers, "xx", "<<A,Zed", "-x"},
        DecodeCase{"OpenEndedRangeSelectsOnlyItsStart", kLetters, "", "B..", "-x"},
        DecodeCase{
            "OpenEndedRangeTakesFollowingEmptyRows", {"A", "B", "", "", "C"}, "", "B..", "-xxx"},
        DecodeCase{"UnsortedRangeEndsEarly", {"A", "C", "B", "D"}, "", "A..B", "x"},
        DecodeCase{"UnsortedRangeEndsLate", {"A", "C", "B", "E"}, "", "A..C", "xxx"},
        DecodeCase{"RangeEndNeedNotExist", kLetters, "", "B..Cz", "-xx"},
        DecodeCase{"FirstMatchingRowWins", {"A", "B", "A"}, "", "A", "x"},
        DecodeCase{"MarkersAreRemovedEverywhere", kLetters, "", "<<A,<<C", "x-x"},
        DecodeCase{"MatchingIsCaseSensitive", kLetters, "xx", "a", ""},
        DecodeCase{"AllIsAnOrdinaryRow", kMembers, "", "<ALL>", "x"},
        DecodeCase{"EmptyPiecesNameEmptyRows", {"A", "", "B"}, "", "A,,B", "xxx"},
        DecodeCase{"TrailingCommaNamesTheEmptyRow", {"", "A"}, "", "A,", "xx"},
        DecodeCase{"OnlyTheFirstDotsSplit", kLetters, "", "A..B..C", "xx"},
        DecodeCase{"SameEndsSelectOneRow", kLetters, "", "<<C..C", "--x"},
        DecodeCase{"MarkerAloneNamesTheEmptyRow", {"A", ""}, "x", "<<", "-x"}),
    [](const auto& info) { return std::string(info.param.name); });

// Rows are found in one walk for all pieces; repeated texts still resolve to their first row.
TEST(SelectionText, FirstOccurrencesWinAcrossManyPieces) {
  std::vector<std::string> texts;
  for (int i = 0; i < 3000; ++i) texts.push_back("m" + std::to_string(i % 1000));
  VectorRows rows(texts);
  std::string text;
  for (int i = 0; i < 1000; i += 100) text += (text.empty() ? "" : ",") + texts[i];
  decodeSelection(rows, text);
  for (int32_t row = 1; row <= rows.count(); ++row) {
    EXPECT_EQ(rows.selected(row), row <= 1000 && (row - 1) % 100 == 0) << row;
  }
}

std::vector<std::string> selectedRowsOf(const VectorRows& rows) {
  std::vector<std::string> out;
  for (int32_t i = 1; i <= rows.count(); ++i) {
    if (rows.selected(i)) out.push_back(std::string(rows.text(i)));
  }
  return out;
}

// Unique texts from a safe alphabet, sorted or shuffled.
std::vector<std::string> randomTexts(std::mt19937& rng, int n, bool sorted) {
  static const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz 0.";
  std::set<std::string> unique;
  while (static_cast<int>(unique.size()) < n) {
    std::string t(1, 'A' + rng() % 26);  // a letter first: sorts after "<ALL>"
    for (int k = rng() % 4; k > 0; --k) t += alphabet[rng() % alphabet.size()];
    if (t.back() == '.' || t.find("..") != std::string::npos) continue;
    unique.insert(t);
  }
  std::vector<std::string> texts(unique.begin(), unique.end());
  if (!sorted) std::shuffle(texts.begin(), texts.end(), rng);
  return texts;
}

std::vector<bool> randomSelection(std::mt19937& rng, int n) {
  // Runs of selected and unselected rows of random lengths, to make ranges likely.
  std::vector<bool> flags;
  bool on = rng() % 2;
  while (static_cast<int>(flags.size()) < n) {
    for (int k = 1 + rng() % 4; k > 0 && static_cast<int>(flags.size()) < n; --k) {
      flags.push_back(on);
    }
    on = rng() % 3 == 0 ? on : !on;
  }
  return flags;
}

// Multiple-selection mode over sorted lists: the decoded text reselects every selected row,
// except a selected "<ALL>" first row, which survives only when it is the one selected row,
// when every row is selected, or when the list has at most two rows.
TEST(SelectionTextRoundTrip, SortedListsComeBackExceptADroppedAllRow) {
  std::mt19937 rng(4242);
  for (int round = 0; round < 3000; ++round) {
    const int members = rng() % 9;
    const bool withAll = rng() % 2;
    std::vector<std::string> texts = randomTexts(rng, members, true);
    if (withAll) texts.insert(texts.begin(), "<ALL>");
    const int n = static_cast<int>(texts.size());
    std::vector<bool> flags = randomSelection(rng, n);
    VectorRows original(texts, flags);

    std::string first, last;
    bool single = false, isRange = false;
    const std::string text = encodeSelection(original, first, last, single, isRange);

    std::vector<bool> expected = flags;
    const int selectedCount = static_cast<int>(std::count(flags.begin(), flags.end(), true));
    if (withAll && flags[0] && selectedCount > 1 && selectedCount < n && n > 2) {
      expected[0] = false;
    }
    std::vector<bool> before(n);
    for (auto&& b : before) b = rng() % 2;
    VectorRows decoded(texts, before);
    decodeSelection(decoded, text);
    SCOPED_TRACE(::testing::PrintToString(texts) + " " + original.pattern() + " -> " + text);
    if (text.empty()) {
      EXPECT_EQ(decoded.flags(), before);  // nothing selected: the old selection stays
      EXPECT_EQ(selectedCount, 0);
    } else {
      EXPECT_EQ(decoded.flags(), expected);
    }
    EXPECT_EQ(single, selectedCount == 1);
  }
}

// Single mode names every selected row on its own, so order does not matter.
TEST(SelectionTextRoundTrip, SingleModeComesBackInAnyOrder) {
  std::mt19937 rng(777);
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::string> texts = randomTexts(rng, 1 + rng() % 10, false);
    if (rng() % 2) texts.insert(texts.begin() + rng() % texts.size(), "<ALL>");
    std::vector<bool> flags = randomSelection(rng, static_cast<int>(texts.size()));
    if (std::count(flags.begin(), flags.end(), true) == 0) flags[0] = true;
    VectorRows original(texts, flags);
    std::string first, last;
    bool single = true, isRange = false;
    const std::string text = encodeSelection(original, first, last, single, isRange);
    VectorRows decoded(texts);
    decodeSelection(decoded, text);
    EXPECT_EQ(selectedRowsOf(decoded), selectedRowsOf(original)) << text;
  }
}

struct OverflowCase {
  const char* name;
  int rows;
  int step;  // every step-th row selected
  bool single;
  bool overflows;
};

class Overflow : public ::testing::TestWithParam<OverflowCase> {};

TEST_P(Overflow, CountersAreSixteenBitAndReported) {
  const OverflowCase& c = GetParam();
  std::vector<std::string> texts;
  std::vector<bool> flags;
  for (int i = 0; i < c.rows; ++i) {
    texts.push_back("r" + std::to_string(100000 + i));
    flags.push_back(i % c.step == 0);
  }
  VectorRows rows(texts, flags);
  testing::ScopedRecordingServices services;
  std::string first, last;
  bool single = c.single, isRange = false;
  std::string text = MultipleSelectGet(rows, first, last, single, isRange);
  if (c.overflows) {
    EXPECT_EQ(text, "");
    ASSERT_EQ(services->messages.size(), 1u);
    EXPECT_EQ(services->messages[0],
              (testing::MessageRecord{"Overflow FrmLookup MultipleSelectGet", "Error", 48}));
  } else {
    EXPECT_TRUE(text.starts_with("<<r100000")) << text.substr(0, 40);
    EXPECT_TRUE(services->messages.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(
    SelectionText, Overflow,
    ::testing::Values(OverflowCase{"SelectedRowCountFits", 32767, 1, false, false},
                      OverflowCase{"SelectedRowCountOverflows", 32768, 1, false, true},
                      OverflowCase{"PieceCountFits", 65534, 2, false, false},
                      OverflowCase{"PieceCountOverflowsInSingleMode", 32768, 1, true, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SelectionText, DecodeErrorIsReportedAndKeepsWhatWasSelected) {
  VectorRows rows(kLetters, "----x");
  rows.failOnSelect = 3;
  testing::ScopedRecordingServices services;
  EXPECT_EQ(MultipleSelectSet(rows, "<<A..D"), 0);
  EXPECT_EQ(rows.pattern(), "xx---");
  ASSERT_EQ(services->messages.size(), 1u);
  EXPECT_EQ(services->messages[0],
            (testing::MessageRecord{"Type mismatch FrmLookup MultipleSelectSet", "Error", 48}));
}

}  // namespace
}  // namespace kxc
