// search_test.cpp - IString: the six searches and counting, each for texts, C texts, single characters and tests.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <string>
#include <vector>

using namespace stringtests;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Texts

TEST(StringSearch, FindsATextFromThePositionOn)
{
  const IString text("abcabc");
  EXPECT_EQ(text.indexOf("bc"), 2u);
  EXPECT_EQ(text.indexOf("bc", 0), 2u);
  EXPECT_EQ(text.indexOf("bc", 1), 2u);
  EXPECT_EQ(text.indexOf("bc", 2), 2u);
  EXPECT_EQ(text.indexOf("bc", 3), 5u);
  EXPECT_EQ(text.indexOf("bc", 5), 5u);
}

TEST(StringSearch, FindsNoTextWhereItNoLongerFits)
{
  const IString text("abcabc");
  EXPECT_EQ(text.indexOf("bc", 6), 0u);
  EXPECT_EQ(text.indexOf("bc", 7), 0u);
  EXPECT_EQ(text.indexOf("bc", largest), 0u);
  EXPECT_EQ(text.indexOf("abcabcabc"), 0u);
}

TEST(BackwardSearch, FindsTheLastTextThatBeginsAtOrBeforeThePosition)
{
  const IString text("abcabc");
  EXPECT_EQ(text.lastIndexOf("bc"), 5u);
  EXPECT_EQ(text.lastIndexOf("bc", 5), 5u);
  EXPECT_EQ(text.lastIndexOf("bc", 4), 2u);
  EXPECT_EQ(text.lastIndexOf("bc", 2), 2u);
  EXPECT_EQ(text.lastIndexOf("bc", 1), 0u);
}

TEST(BackwardSearch, FromPastTheEndBeginsAtTheEnd)
{
  const IString text("abcabc");
  EXPECT_EQ(text.lastIndexOf("bc", 7), 5u);
  EXPECT_EQ(text.lastIndexOf("bc", 100), 5u);
  EXPECT_EQ(text.lastIndexOf("bc", largest), 5u);
}

TEST(BackwardSearch, FromZeroFindsNothing)
{
  const IString text("abcabc");
  EXPECT_EQ(text.lastIndexOf(IString("abc"), 0), 0u);
  EXPECT_EQ(text.lastIndexOf("abc", 0), 0u);
  EXPECT_EQ(text.lastIndexOf('a', 0), 0u);
  EXPECT_EQ(text.lastIndexOf(isalpha, 0), 0u);
  EXPECT_EQ(text.lastIndexOfAnyOf("abc", 0), 0u);
  EXPECT_EQ(text.lastIndexOfAnyBut("x", 0), 0u);
  EXPECT_EQ(text.lastIndexOfAnyBut("", 0), 0u);
}

TEST(StringSearch, NeverFindsTheEmptyText)
{
  const IString text("abc");
  const char* const none = nullptr;
  for (const unsigned start : {0u, 1u, 2u, 3u, 4u, largest}) {
    EXPECT_EQ(text.indexOf("", start), 0u);
    EXPECT_EQ(text.indexOf(IString(), start), 0u);
    EXPECT_EQ(text.indexOf(none, start), 0u);
    EXPECT_EQ(text.lastIndexOf("", start), 0u);
    EXPECT_EQ(text.lastIndexOf(IString(), start), 0u);
    EXPECT_EQ(text.lastIndexOf(none, start), 0u);
    EXPECT_EQ(text.occurrencesOf("", start), 0u);
    EXPECT_EQ(text.occurrencesOf(IString(), start), 0u);
    EXPECT_EQ(text.occurrencesOf(none, start), 0u);
  }
}

TEST(StringSearch, FindsNothingInTheEmptyText)
{
  const IString empty;
  for (const unsigned start : {0u, 1u, largest}) {
    EXPECT_EQ(empty.indexOf("a", start), 0u);
    EXPECT_EQ(empty.indexOf("", start), 0u);
    EXPECT_EQ(empty.indexOf('\0', start), 0u);
    EXPECT_EQ(empty.indexOf(isalpha, start), 0u);
    EXPECT_EQ(empty.indexOfAnyOf("abc", start), 0u);
    EXPECT_EQ(empty.indexOfAnyOf(isalpha, start), 0u);
    EXPECT_EQ(empty.indexOfAnyBut("abc", start), 0u);
    EXPECT_EQ(empty.indexOfAnyBut("", start), 0u);
    EXPECT_EQ(empty.indexOfAnyBut(isalpha, start), 0u);
    EXPECT_EQ(empty.lastIndexOf("a", start), 0u);
    EXPECT_EQ(empty.lastIndexOf('\0', start), 0u);
    EXPECT_EQ(empty.lastIndexOf(isalpha, start), 0u);
    EXPECT_EQ(empty.lastIndexOfAnyOf("abc", start), 0u);
    EXPECT_EQ(empty.lastIndexOfAnyOf(isalpha, start), 0u);
    EXPECT_EQ(empty.lastIndexOfAnyBut("abc", start), 0u);
    EXPECT_EQ(empty.lastIndexOfAnyBut("", start), 0u);
    EXPECT_EQ(empty.lastIndexOfAnyBut(isalpha, start), 0u);
    EXPECT_EQ(empty.occurrencesOf("a", start), 0u);
    EXPECT_EQ(empty.occurrencesOf('\0', start), 0u);
    EXPECT_EQ(empty.occurrencesOf(isalpha, start), 0u);
  }
}

TEST(StringSearch, FindsAllOfItselfAtTheFront)
{
  const IString text("abcabc");
  EXPECT_EQ(text.indexOf(text), 1u);
  EXPECT_EQ(text.indexOf(text, 2), 0u);
  EXPECT_EQ(text.lastIndexOf(text), 1u);
  EXPECT_EQ(text.indexOf(static_cast<const char*>(text) + 3), 1u);
}

TEST(StringSearch, TakesStringsWithNulsWholeAndCTextsUpToTheFirst)
{
  const IString text("ab\0cab\0d", 8);
  EXPECT_EQ(text.indexOf(made(bytes("b\0d"))), 6u);
  EXPECT_EQ(text.indexOf(made(bytes("\0"))), 3u);
  EXPECT_EQ(text.lastIndexOf(made(bytes("b\0"))), 6u);
  EXPECT_EQ(text.indexOf("b\0d"), 2u);
  EXPECT_EQ(text.indexOf('\0'), 3u);
  EXPECT_EQ(text.lastIndexOf('\0'), 7u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Sets, characters and tests

TEST(StringSetSearch, FindsTheFirstMember)
{
  const IString text("abcabc");
  EXPECT_EQ(text.indexOfAnyOf("cb"), 2u);
  EXPECT_EQ(text.indexOfAnyOf(IString("cb"), 3), 3u);
  EXPECT_EQ(text.indexOfAnyOf('c', 4), 6u);
  EXPECT_EQ(text.indexOfAnyOf(isalpha, 5), 5u);
  EXPECT_EQ(text.indexOfAnyOf("xyz"), 0u);
  EXPECT_EQ(text.indexOfAnyOf("a", 0), 1u);
  EXPECT_EQ(text.indexOfAnyOf("a", 7), 0u);
}

TEST(StringSetSearch, FindsTheFirstStranger)
{
  const IString text("abcabc");
  EXPECT_EQ(text.indexOfAnyBut("ab"), 3u);
  EXPECT_EQ(text.indexOfAnyBut(IString("bc"), 2), 4u);
  EXPECT_EQ(text.indexOfAnyBut('a'), 2u);
  EXPECT_EQ(text.indexOfAnyBut(isalpha), 0u);
  EXPECT_EQ(text.indexOfAnyBut(isdigit, 4), 4u);
  EXPECT_EQ(text.indexOfAnyBut("abc"), 0u);
  EXPECT_EQ(text.indexOfAnyBut("b", 0), 1u);
  EXPECT_EQ(text.indexOfAnyBut("b", 7), 0u);
}

TEST(StringSetSearch, FindsTheLastMember)
{
  const IString text("abcabc");
  EXPECT_EQ(text.lastIndexOfAnyOf("ab"), 5u);
  EXPECT_EQ(text.lastIndexOfAnyOf(IString("ab"), 3), 2u);
  EXPECT_EQ(text.lastIndexOfAnyOf('a', 3), 1u);
  EXPECT_EQ(text.lastIndexOfAnyOf(isalpha, 2), 2u);
  EXPECT_EQ(text.lastIndexOfAnyOf("xyz"), 0u);
  EXPECT_EQ(text.lastIndexOfAnyOf("c", 100), 6u);
}

TEST(StringSetSearch, FindsTheLastStranger)
{
  const IString text("abcabc");
  EXPECT_EQ(text.lastIndexOfAnyBut("bc"), 4u);
  EXPECT_EQ(text.lastIndexOfAnyBut(IString("bc"), 3), 1u);
  EXPECT_EQ(text.lastIndexOfAnyBut('c'), 5u);
  EXPECT_EQ(text.lastIndexOfAnyBut(isalpha), 0u);
  EXPECT_EQ(text.lastIndexOfAnyBut(isdigit, 4), 4u);
  EXPECT_EQ(text.lastIndexOfAnyBut("abc"), 0u);
  EXPECT_EQ(text.lastIndexOfAnyBut("b", 100), 6u);
}

TEST(StringSetSearch, AnEmptySetHasNoMembersAndLeavesTheStartAsTheFirstStranger)
{
  const IString text("abc");
  const char* const none = nullptr;
  for (const unsigned start : {0u, 1u, 2u, 3u}) {
    EXPECT_EQ(text.indexOfAnyOf("", start), 0u);
    EXPECT_EQ(text.indexOfAnyOf(IString(), start), 0u);
    EXPECT_EQ(text.indexOfAnyOf(none, start), 0u);
    EXPECT_EQ(text.indexOfAnyBut("", start), start == 0 ? 1 : start);
    EXPECT_EQ(text.indexOfAnyBut(IString(), start), start == 0 ? 1 : start);
    EXPECT_EQ(text.indexOfAnyBut(none, start), start == 0 ? 1 : start);
  }
  EXPECT_EQ(text.indexOfAnyBut("", 4), 0u);
}

TEST(StringSetSearch, AnEmptySetLeavesTheClampedStartAsTheLastStranger)
{
  const IString text("abc");
  const char* const none = nullptr;
  for (const unsigned start : {0u, 1u, 2u, 3u, 4u, largest}) {
    const unsigned clamped = start > 3 ? 3 : start;
    EXPECT_EQ(text.lastIndexOfAnyBut("", start), clamped);
    EXPECT_EQ(text.lastIndexOfAnyBut(IString(), start), clamped);
    EXPECT_EQ(text.lastIndexOfAnyBut(none, start), clamped);
    EXPECT_EQ(text.lastIndexOfAnyOf("", start), 0u);
    EXPECT_EQ(text.lastIndexOfAnyOf(IString(), start), 0u);
    EXPECT_EQ(text.lastIndexOfAnyOf(none, start), 0u);
  }
}

TEST(StringSetSearch, ANulMayBeAMember)
{
  const IString text("ab\0c", 4);
  EXPECT_EQ(text.indexOfAnyOf(made(bytes("x\0"))), 3u);
  EXPECT_EQ(text.indexOfAnyOf(made(bytes("\0"))), 3u);
  EXPECT_EQ(text.indexOfAnyBut(made(bytes("ba\0"))), 4u);
  EXPECT_EQ(text.lastIndexOfAnyBut(made(bytes("c\0"))), 2u);
  EXPECT_EQ(text.indexOfAnyOf("\0c"), 0u);
}

TEST(StringSetSearch, OfItsOwnTextFindsTheStartAndNoStranger)
{
  const IString text("abc");
  EXPECT_EQ(text.indexOfAnyOf(text, 2), 2u);
  EXPECT_EQ(text.indexOfAnyBut(text), 0u);
  EXPECT_EQ(text.lastIndexOfAnyOf(text, 2), 2u);
  EXPECT_EQ(text.lastIndexOfAnyBut(text), 0u);
}

TEST(StringSetSearch, OfAllBytesThatOneTextHoldsFindsTheOneThatIsMissing)
{
  std::string set;
  for (int value = 1; value < 128; ++value)
    if (value != 'x')
      set += static_cast<char>(value);
  const IString text("aaaaxbbbb");
  EXPECT_EQ(text.indexOfAnyBut(made(set)), 5u);
  EXPECT_EQ(text.lastIndexOfAnyBut(made(set)), 5u);
  EXPECT_EQ(text.indexOfAnyOf(made(set), 5), 6u);
}

TEST(StringTestSearch, IsTheSearchForWhatPasses)
{
  const IString text("a1b2");
  EXPECT_EQ(text.indexOf(isdigit), 2u);
  EXPECT_EQ(text.indexOf(IStringTest(isdigit), 3), 4u);
  EXPECT_EQ(text.lastIndexOf(isdigit), 4u);
  EXPECT_EQ(text.lastIndexOf(IStringTest(isdigit), 3), 2u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Counting

TEST(StringCount, OccurrencesDoNotOverlap)
{
  EXPECT_EQ(IString("aaaa").occurrencesOf("aa"), 2u);
  EXPECT_EQ(IString("aaaaa").occurrencesOf("aa"), 2u);
  EXPECT_EQ(IString("ababab").occurrencesOf("aba"), 1u);
}

TEST(StringCount, BeginsAtThePosition)
{
  const IString text("aaaa");
  EXPECT_EQ(text.occurrencesOf("aa", 0), 2u);
  EXPECT_EQ(text.occurrencesOf("aa", 2), 1u);
  EXPECT_EQ(text.occurrencesOf("aa", 3), 1u);
  EXPECT_EQ(text.occurrencesOf("aa", 4), 0u);
  EXPECT_EQ(text.occurrencesOf('a', 2), 3u);
  EXPECT_EQ(text.occurrencesOf(isalpha, 4), 1u);
  EXPECT_EQ(text.occurrencesOf('a', 5), 0u);
  EXPECT_EQ(text.occurrencesOf('a', largest), 0u);
}

TEST(StringCount, TakesEveryKindOfArgument)
{
  const IString text("a1b2a3");
  EXPECT_EQ(text.occurrencesOf(IString("a")), 2u);
  EXPECT_EQ(text.occurrencesOf("a"), 2u);
  EXPECT_EQ(text.occurrencesOf('a'), 2u);
  EXPECT_EQ(text.occurrencesOf(isdigit), 3u);
  EXPECT_EQ(text.occurrencesOf(IStringTest(isdigit)), 3u);
  EXPECT_EQ(text.occurrencesOf(text), 1u);
}

TEST(StringCount, SeesNuls)
{
  const IString text("\0a\0\0a\0", 6);
  EXPECT_EQ(text.occurrencesOf('\0'), 4u);
  EXPECT_EQ(text.occurrencesOf(made(bytes("\0a"))), 2u);
}

TEST(StringCount, MayBeAskedByPointerAndLength)
{
  const Probe text("abcabc");
  EXPECT_EQ(text.occurrencesOf("bcx", 2, 1), 2u);
  EXPECT_EQ(text.occurrencesOf("bcx", 3, 1), 0u);
  EXPECT_EQ(text.occurrencesOf("bcx", 0, 1), 0u);
}

TEST(StringSearch, ChangesNothingAndCopiesNothing)
{
  const IString text("abcabc");
  const IString sharer(text);
  EXPECT_EQ(text.indexOf("bc") + text.lastIndexOf('c') + text.indexOfAnyOf("c") + text.occurrencesOf("a"), 13u);
  EXPECT_TRUE(shareText(text, sharer));
  EXPECT_EQ(useCountOf(text), 2u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Every search against a slow one, on random texts

int isVowelOrNul(int character)
{
  return character == 'a' || character == '\0';
}

class StringSearchOnRandomTexts : public testing::Test {
protected:
  template <class Check>
  void onManyTexts(Check check)
  {
    for (int round = 0; round < 4000 && !HasFailure(); ++round) {
      const std::string text = random.text(bytes("aab\0c"), 12);
      const std::string sought = round % 2 == 0 ? random.needleFor(text) : random.text(bytes("aab\0"), 4);
      const unsigned start = random.position(text.size());
      SCOPED_TRACE(testing::PrintToString(text) + " for " + testing::PrintToString(sought) + " from " +
                   std::to_string(start));
      check(text, sought, start);
    }
  }

  quelmcl_test::RandomTexts random{20260102};
};

TEST_F(StringSearchOnRandomTexts, FindsTexts)
{
  onManyTexts([](const std::string& text, const std::string& sought, unsigned start) {
    const std::string cText = asCText(sought);
    const IString string = made(text);
    EXPECT_EQ(string.indexOf(made(sought), start), reference::indexOf(text, sought, start));
    EXPECT_EQ(string.indexOf(sought.c_str(), start), reference::indexOf(text, cText, start));
    EXPECT_EQ(string.lastIndexOf(made(sought), start), reference::lastIndexOf(text, sought, start));
    EXPECT_EQ(string.lastIndexOf(sought.c_str(), start), reference::lastIndexOf(text, cText, start));
    EXPECT_EQ(string.occurrencesOf(made(sought), start), reference::occurrencesOf(text, sought, start));
    EXPECT_EQ(string.occurrencesOf(sought.c_str(), start), reference::occurrencesOf(text, cText, start));
  });
}

TEST_F(StringSearchOnRandomTexts, FindsMembersAndStrangersOfSets)
{
  onManyTexts([](const std::string& text, const std::string& set, unsigned start) {
    const std::string cSet = asCText(set);
    const IString string = made(text);
    EXPECT_EQ(string.indexOfAnyOf(made(set), start), reference::indexOfAnyOf(text, set, start));
    EXPECT_EQ(string.indexOfAnyOf(set.c_str(), start), reference::indexOfAnyOf(text, cSet, start));
    EXPECT_EQ(string.indexOfAnyBut(made(set), start), reference::indexOfAnyBut(text, set, start));
    EXPECT_EQ(string.indexOfAnyBut(set.c_str(), start), reference::indexOfAnyBut(text, cSet, start));
    EXPECT_EQ(string.lastIndexOfAnyOf(made(set), start), reference::lastIndexOfAnyOf(text, set, start));
    EXPECT_EQ(string.lastIndexOfAnyOf(set.c_str(), start), reference::lastIndexOfAnyOf(text, cSet, start));
    EXPECT_EQ(string.lastIndexOfAnyBut(made(set), start), reference::lastIndexOfAnyBut(text, set, start));
    EXPECT_EQ(string.lastIndexOfAnyBut(set.c_str(), start), reference::lastIndexOfAnyBut(text, cSet, start));
  });
}

TEST_F(StringSearchOnRandomTexts, FindsSingleCharacters)
{
  onManyTexts([](const std::string& text, const std::string& sought, unsigned start) {
    const std::string character = sought.empty() ? "c" : sought.substr(0, 1);
    const char byte = character[0];
    const IString string = made(text);
    EXPECT_EQ(string.indexOf(byte, start), reference::indexOf(text, character, start));
    EXPECT_EQ(string.indexOfAnyOf(byte, start), reference::indexOfAnyOf(text, character, start));
    EXPECT_EQ(string.indexOfAnyBut(byte, start), reference::indexOfAnyBut(text, character, start));
    EXPECT_EQ(string.lastIndexOf(byte, start), reference::lastIndexOf(text, character, start));
    EXPECT_EQ(string.lastIndexOfAnyOf(byte, start), reference::lastIndexOfAnyOf(text, character, start));
    EXPECT_EQ(string.lastIndexOfAnyBut(byte, start), reference::lastIndexOfAnyBut(text, character, start));
    EXPECT_EQ(string.occurrencesOf(byte, start), reference::occurrencesOf(text, character, start));
  });
}

TEST_F(StringSearchOnRandomTexts, FindsWhatPassesATest)
{
  onManyTexts([](const std::string& text, const std::string&, unsigned start) {
    const IStringTest test(isVowelOrNul);
    const IString string = made(text);
    EXPECT_EQ(string.indexOf(test, start), reference::indexOf(text, isVowelOrNul, start));
    EXPECT_EQ(string.indexOfAnyOf(test, start), reference::indexOfAnyOf(text, isVowelOrNul, start));
    EXPECT_EQ(string.indexOfAnyBut(test, start), reference::indexOfAnyBut(text, isVowelOrNul, start));
    EXPECT_EQ(string.lastIndexOf(test, start), reference::lastIndexOf(text, isVowelOrNul, start));
    EXPECT_EQ(string.lastIndexOfAnyOf(test, start), reference::lastIndexOfAnyOf(text, isVowelOrNul, start));
    EXPECT_EQ(string.lastIndexOfAnyBut(test, start), reference::lastIndexOfAnyBut(text, isVowelOrNul, start));
    EXPECT_EQ(string.occurrencesOf(test, start), reference::occurrencesOf(text, isVowelOrNul, start));
  });
}

TEST_F(StringSearchOnRandomTexts, FindsLongTextsOfTwoLetters)
{
  for (int round = 0; round < 400 && !HasFailure(); ++round) {
    const std::string text = random.text("ab", 400);
    const std::string sought = round % 2 == 0 ? random.text("ab", 12) : random.needleFor(text);
    const unsigned start = random.position(text.size());
    SCOPED_TRACE(text + " for " + sought + " from " + std::to_string(start));
    EXPECT_EQ(made(text).indexOf(made(sought), start), reference::indexOf(text, sought, start));
    EXPECT_EQ(made(text).lastIndexOf(made(sought), start), reference::lastIndexOf(text, sought, start));
    EXPECT_EQ(made(text).occurrencesOf(made(sought), start), reference::occurrencesOf(text, sought, start));
  }
}

TEST_F(StringSearchOnRandomTexts, FindsPiecesOfTextsOfAllSorts)
{
  for (int round = 0; round < 2000 && !HasFailure(); ++round) {
    const std::string text = random.text();
    const std::string sought = random.needleFor(text);
    const unsigned start = random.position(text.size());
    SCOPED_TRACE(testing::PrintToString(text) + " for " + testing::PrintToString(sought));
    EXPECT_EQ(made(text).indexOf(made(sought), start), reference::indexOf(text, sought, start));
    EXPECT_EQ(made(text).lastIndexOf(made(sought), start), reference::lastIndexOf(text, sought, start));
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Cost

// Anything quadratic would not end before the time that a test is given.
TEST(StringSearch, IsNotQuadraticForNeedlesThatAlmostMatch)
{
  constexpr unsigned half = 1u << 19;
  const IString text = made(std::string(2 * half, 'a'));
  const IString endsOtherwise = made(std::string(half, 'a') + "b");
  const IString beginsOtherwise = made("b" + std::string(half, 'a'));
  const IString differsInTheMiddle = made(std::string(half / 2, 'a') + "b" + std::string(half / 2, 'a'));
  for (const IString& needle : {endsOtherwise, beginsOtherwise, differsInTheMiddle}) {
    EXPECT_EQ(text.indexOf(needle), 0u);
    EXPECT_EQ(text.lastIndexOf(needle), 0u);
    EXPECT_EQ(text.occurrencesOf(needle), 0u);
    EXPECT_TRUE(shareText(IString::change(text, needle, "x"), text));
  }
}

TEST(StringSearch, OfAPeriodicNeedleFindsItsOccurrences)
{
  const IString text = IString("aab").copy(100000) + "aac";
  EXPECT_EQ(text.indexOf(IString("aab").copy(50000) + "aac"), 150001u);
  EXPECT_EQ(text.lastIndexOf(IString("aab").copy(50000)), 150001u);
  EXPECT_EQ(text.occurrencesOf(IString("aab").copy(10)), 10000u);
  EXPECT_EQ(text.lastIndexOf("baab"), 299997u);
}

}  // namespace
