// parser_test.cpp - IStringParser: what each element of a template does.
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"

#include <quelmcl/i0string.hpp>
#include <quelmcl/istparse.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/istrtest.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <climits>
#include <cstddef>
#include <limits>
#include <new>
#include <sstream>
#include <string>
#include <vector>

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Templates that say what a parser is for

TEST(Parser, GivesAWordToEachVariableAndTheRestToTheLast)
{
  IString a, b;
  IString("  alpha beta gamma") >> a >> b;
  EXPECT_TEXT(a, "alpha");
  EXPECT_TEXT(b, "beta gamma");
}

TEST(Parser, SplitsAtLiterals)
{
  IString key, value, rest;
  IString("key=value; rest") >> key >> "=" >> value >> ';' >> rest;
  EXPECT_TEXT(key, "key");
  EXPECT_TEXT(value, "value");
  EXPECT_TEXT(rest, " rest");
}

TEST(Parser, SplitsAtDistances)
{
  IString year, month, day;
  IString("20240115") >> year >> 4 >> month >> 2 >> day;
  EXPECT_TEXT(year, "2024");
  EXPECT_TEXT(month, "01");
  EXPECT_TEXT(day, "15");
}

/// A handle that tests can copy.
class Handle : public IStringParser {
public:
  explicit Handle(const IString& text) : IStringParser(text) {}
};

TEST(Parser, BeginsWithAnyPattern)
{
  const IString text("ab;cd;ef");
  const IString pattern(";");
  IString rest;
  text >> pattern >> rest;
  EXPECT_TEXT(rest, "cd;ef");
  text >> "cd;" >> rest;
  EXPECT_TEXT(rest, "ef");
  text >> 'c' >> rest;
  EXPECT_TEXT(rest, "d;ef");
  text >> IStringTest([](int c) { return static_cast<int>(c == 'e'); }) >> rest;
  EXPECT_TEXT(rest, "ef");
}

TEST(Parser, CopiesAreHandlesOnTheSameParse)
{
  IString first, second, rest;
  Handle handle("a b c d");
  {
    Handle copy(handle);
    copy >> first >> IStringParser::skipWord;
    handle >> second;  // gets what the copy has left
    EXPECT_TEXT(first, "a");
    EXPECT_TEXT(second, "c d");
  }
  handle >> IStringParser::reset >> second >> rest;
  EXPECT_TEXT(second, "a");
  EXPECT_TEXT(rest, "b c d");
}

TEST(Parser, SplitsAtAPosition)
{
  IString x, y;
  IString("abcdef") >> x << 3 >> y;
  EXPECT_TEXT(x, "ab");
  EXPECT_TEXT(y, "cdef");
}

TEST(Parser, GivesEverythingToTheVariableBeforeALiteralThatIsNotThere)
{
  IString x, y("untouched");
  IString("a b") >> x >> "," >> y;
  EXPECT_TEXT(x, "a b");
  EXPECT_TEXT(y, "");
}

TEST(Parser, SkipsWords)
{
  IString word;
  IString("one two three") >> IStringParser::skipWord >> word;
  EXPECT_TEXT(word, "two three");
  IString("one two three") >> IStringParser::SkipWords(2) >> word;
  EXPECT_TEXT(word, "three");
}

TEST(Parser, SplitsAtACharacterThatPassesATest)
{
  IString name, number;
  IString("disk12 sda") >> name >> isdigit >> number >> ' ';
  EXPECT_TEXT(name, "disk");
  EXPECT_TEXT(number, "12");
  IString("disk12") >> name >> IStringTest(isspace) >> number;
  EXPECT_TEXT(name, "disk12");
  EXPECT_TEXT(number, "");
}

// ---------------------------------------------------------------------------------------------------------------------
// Variables

TEST(ParserVariables, AreEmptyForAnEmptyText)
{
  IString a("x"), b("x");
  IString() >> a >> b;
  EXPECT_TEXT(a, "");
  EXPECT_TEXT(b, "");
}

TEST(ParserVariables, KeepTheWhiteSpaceOfTheRestButForOneSeparator)
{
  IString a, b;
  IString("word   ") >> a >> b;
  EXPECT_TEXT(a, "word");
  EXPECT_TEXT(b, "  ");
}

TEST(ParserVariables, AreEmptyWhenOnlyWhiteSpaceIsLeftToCut)
{
  IString a("x"), b("x"), c("x");
  IString("word   ") >> a >> b >> c;
  EXPECT_TEXT(a, "word");
  EXPECT_TEXT(b, "");
  EXPECT_TEXT(c, "");
}

TEST(ParserVariables, KeepWhatSeveralSeparatorsLeaveWhenTheyAreTheLast)
{
  IString a, b, c;
  IString("a\t\n b,") >> a >> b >> ",";
  EXPECT_TEXT(a, "a");
  EXPECT_TEXT(b, "\n b");
  IString(" a  b  c ,") >> a >> b >> c >> ',';
  EXPECT_TEXT(a, "a");
  EXPECT_TEXT(b, "b");
  EXPECT_TEXT(c, " c ");
}

TEST(ParserVariables, AreAssignedWhenTheirElementIsReached)
{
  const IString text("one two");
  IString a;
  const IStringParser& parser = text >> a;
  EXPECT_TEXT(a, "one two");
  (void)parser;
}

TEST(ParserVariables, MayBeTheStringThatIsParsed)
{
  IString text("one two three"), rest;
  text >> text >> rest;
  EXPECT_TEXT(text, "one");
  EXPECT_TEXT(rest, "two three");
}

TEST(ParserVariables, MayComeTwiceAndHoldTheLaterPiece)
{
  IString a;
  IString("one two three") >> a >> a;
  EXPECT_TEXT(a, "two three");
  IString("one two;") >> a >> a >> ';';
  EXPECT_TEXT(a, "two");
}

TEST(ParserVariables, MayBeAPatternLaterInTheChain)
{
  IString separator, first, second;
  IString(";a;b") >> separator << 2 >> first >> IString(";") >> second;
  EXPECT_TEXT(separator, ";");
  EXPECT_TEXT(first, "a");
  const IString& pattern = separator;
  IString("a;b") >> first >> pattern >> second;
  EXPECT_TEXT(first, "a");
  EXPECT_TEXT(second, "b");
}

TEST(ParserVariables, ThatShareTheirTextWithOthersLeaveThemAlone)
{
  IString a("old"), b;
  const IString sharer(a);
  const IString text("x y");
  text >> a >> b;
  EXPECT_TEXT(sharer, "old");
  a += "!";
  EXPECT_TEXT(text, "x y");
}

TEST(ParserVariables, MayHoldNulBytes)
{
  IString a, b;
  IString("a\0b,c\0", 6u) >> a >> ',' >> b;
  EXPECT_TEXT(a, std::string("a\0b", 3));
  EXPECT_TEXT(b, std::string("c\0", 2));
}

TEST(ParserVariables, OfAZeroBasedStringCountPositionsFromOneToo)
{
  I0String text("abcdef"), a, b;
  text >> a << 3 >> b;
  EXPECT_TEXT(a, "ab");
  EXPECT_TEXT(b, "cdef");
}

// ---------------------------------------------------------------------------------------------------------------------
// Literals

TEST(ParserLiterals, BehindOneThatWasNotFoundAreNotFoundEither)
{
  IString a, b, c;
  IString("a,b;c") >> a >> "#" >> b >> ";" >> c;
  EXPECT_TEXT(a, "a,b;c");
  EXPECT_TEXT(b, "");
  EXPECT_TEXT(c, "");
}

TEST(ParserLiterals, AreLookedForBehindTheLastPatternWhateverVariablesHaveTaken)
{
  IString a, b;
  IString("one two") >> a >> b >> "one";
  EXPECT_TEXT(a, "");
  EXPECT_TEXT(b, "");
}

TEST(ParserLiterals, ThatAreEmptyAreNeverFound)
{
  IString a, b;
  IString("ab") >> a >> "" >> b;
  EXPECT_TEXT(a, "ab");
  EXPECT_TEXT(b, "");
  const char* const none = nullptr;
  IString("ab") >> a >> none >> b;
  EXPECT_TEXT(a, "ab");
  EXPECT_TEXT(b, "");
}

TEST(ParserLiterals, InARowGiveNothingToAnybody)
{
  IString a, b;
  IString("a,;b") >> a >> "," >> ";" >> b;
  EXPECT_TEXT(a, "a");
  EXPECT_TEXT(b, "b");
}

TEST(ParserLiterals, LeaveTheSplitOfTheRestWhenTheyAreNotFound)
{
  IString a, b;
  IString("one two three") >> a >> b >> "#";
  EXPECT_TEXT(a, "one");
  EXPECT_TEXT(b, "two three");
}

TEST(ParserLiterals, MayHoldNulBytesInAString)
{
  IString a, b;
  IString("a\0b\0\0c", 6u) >> a >> IString("\0\0", 2u) >> b;
  EXPECT_TEXT(a, std::string("a\0b", 3));
  EXPECT_TEXT(b, "c");
}

// ---------------------------------------------------------------------------------------------------------------------
// Positions and moves

TEST(Parser, ARelativePositionCountsFromWhereTheLiteralBegins)
{
  IString x, y;
  IString("ab,cd") >> x >> "," >> 1 >> y;
  EXPECT_TEXT(x, "ab");
  EXPECT_TEXT(y, "cd");
  IString("ab,cd") >> x >> "," >> 0 >> y;
  EXPECT_TEXT(y, ",cd");
}

TEST(ParserPositions, OfZeroMeanOne)
{
  IString x;
  IString("abc") << 0 >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 1 >> x;
  EXPECT_TEXT(x, "abc");
}

TEST(ParserPositions, BelowOneMeanOne)
{
  IString x;
  IString("abc") << 3 >> -5 >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 3 >> -3 >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 3 >> -2 >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 3 >> -1 >> x;
  EXPECT_TEXT(x, "bc");
}

TEST(ParserPositions, BehindTheTextLeaveNothing)
{
  IString x, y("old");
  IString("abc") >> x << 4 >> y;
  EXPECT_TEXT(x, "abc");
  EXPECT_TEXT(y, "");
  IString("abc") >> x << std::numeric_limits<unsigned long>::max() >> y;
  EXPECT_TEXT(x, "abc");
  EXPECT_TEXT(y, "");
}

TEST(ParserPositions, AtOrBeforeTheCurrentOneLeaveTheSplitOfTheRest)
{
  IString a, b, c;
  IString("one two three") << 5 >> a >> b << 1 >> c;
  EXPECT_TEXT(a, "two");
  EXPECT_TEXT(b, "three");
  EXPECT_TEXT(c, "one two three");
}

TEST(ParserPositions, AreSetBackByReset)
{
  IString a, b;
  IString("one two") >> a >> ' ' >> IStringParser::reset >> b;
  EXPECT_TEXT(a, "one");
  EXPECT_TEXT(b, "one two");
}

TEST(ParserMoves, GiveTheTextBetweenToTheVariables)
{
  IString a, b, c;
  IString("one two three") >> a >> b >> 7 >> c;
  EXPECT_TEXT(a, "one");
  EXPECT_TEXT(b, "two");
  EXPECT_TEXT(c, " three");
}

TEST(ParserMoves, BehindALiteralGiveTheVariablesItsTextToo)
{
  IString a, b;
  IString("x=12 y") >> "x=" >> a >> 4 >> b;
  EXPECT_TEXT(a, "x=12");
  EXPECT_TEXT(b, " y");
}

TEST(ParserMoves, OutOfTheTextBehindALiteralGiveTheVariablesAllFromItOn)
{
  IString a, b;
  IString("k=v w") >> "=" >> a >> 100 >> b;
  EXPECT_TEXT(a, "=v w");
  EXPECT_TEXT(b, "");
  IString("k=v w") >> "=" >> a >> -1 >> b;
  EXPECT_TEXT(a, "=v w");
  EXPECT_TEXT(b, "k=v w");
}

TEST(ParserMoves, AtTheEndsOfTheirRangesStayWithinTheText)
{
  IString x;
  IString("abc") << 3 >> INT_MIN >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 3 >> LONG_MIN >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 3 >> std::numeric_limits<long long>::min() >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 3 >> (INT_MIN - 1ll) >> x;
  EXPECT_TEXT(x, "abc");
  IString("abc") << 2 >> INT_MAX >> x;
  EXPECT_TEXT(x, "");
  IString("abc") << 2 >> std::numeric_limits<unsigned long>::max() >> x;
  EXPECT_TEXT(x, "");
  IString("abc") << 2 >> (std::numeric_limits<unsigned long>::max() - 1) >> x;
  EXPECT_TEXT(x, "");
  IString("abc") << 2 >> std::numeric_limits<unsigned long long>::max() >> x;
  EXPECT_TEXT(x, "");
  IString("abc") << 2 >> std::numeric_limits<long long>::max() >> x;
  EXPECT_TEXT(x, "");
}

TEST(ParserMoves, TakeEveryTypeOfNumber)
{
  const IString text("abcdef");
  IString x;
  const short two = 2;
  const std::size_t size = 2;
  text >> two >> x;
  EXPECT_TEXT(x, "cdef");
  text >> size >> x;
  EXPECT_TEXT(x, "cdef");
  text >> 2u >> x;
  EXPECT_TEXT(x, "cdef");
  text >> 2l >> x;
  EXPECT_TEXT(x, "cdef");
  text >> 2ul >> x;
  EXPECT_TEXT(x, "cdef");
  text >> 2ll >> x;
  EXPECT_TEXT(x, "cdef");
  text >> 2ull >> x;
  EXPECT_TEXT(x, "cdef");
  text >> 5 >> -2l >> x;
  EXPECT_TEXT(x, "def");
  text >> 5 >> -2ll >> x;
  EXPECT_TEXT(x, "def");
  text << '3' >> x;
  EXPECT_TEXT(x, "") << "a character behind << is the position that is its number";
}

// ---------------------------------------------------------------------------------------------------------------------
// Skips

TEST(ParserSkips, OfNoWordsDoNothing)
{
  IString a;
  IString(" one two") >> IStringParser::SkipWords(0) >> a;
  EXPECT_TEXT(a, " one two");
}

TEST(ParserSkips, OfMoreWordsThanThereAreEnd)
{
  IString a("old"), b;
  IString("one two") >> IStringParser::SkipWords(std::numeric_limits<unsigned long>::max()) >> a;
  EXPECT_TEXT(a, "");
  IString("one two;three") >> IStringParser::SkipWords(4000000000ul) >> a >> ';' >> b;
  EXPECT_TEXT(a, "");
  EXPECT_TEXT(b, "three");
}

TEST(ParserSkips, OfVeryManyWordsAreLinear)
{
  IString a;
  IString text = IString("x ").copy(300000) + "end";
  text >> IStringParser::SkipWords(300000) >> a >> ';';
  EXPECT_TEXT(a, "end");
}

TEST(ParserSkips, ConsumeAWordBetweenVariables)
{
  IString a, b;
  IString("one two three;") >> a >> IStringParser::skipWord >> b >> ';';
  EXPECT_TEXT(a, "one");
  EXPECT_TEXT(b, "three");
}

TEST(ParserSkips, TellTheirNumber)
{
  EXPECT_EQ(IStringParser::SkipWords(17).numberOfWords(), 17u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Long chains and failures

TEST(ParserChains, OfAHundredVariablesSplitAllOfThem)
{
  std::vector<IString> words(100);
  IString text;
  for (int i = 0; i < 100; ++i)
    text += IString(i) + ' ';
  text += "rest of it;";
  IString rest;
  {
    IString* next = words.data();
    auto&& parser = text >> *next++;
    while (next != words.data() + words.size())
      parser >> *next++;
    parser >> rest >> ';';
  }
  for (int i = 0; i < 100; ++i)
    EXPECT_TEXT(words[static_cast<unsigned>(i)], std::to_string(i));
  EXPECT_TEXT(rest, "rest of it");
}

TEST(ParserChains, GiveBackAllTheyTake)
{
  IString a, b, c;
  const IString text("one two;three");
  text >> a >> b >> ';' >> c;
  const quelmcl_test::AllocationWatch watch;
  text >> a >> b >> ';' >> c;
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST(ParserChains, ThatFindNoStorageLoseNothing)
{
  const IString text("one two;three");
  unsigned failures = 0;
  for (unsigned long nth = 1;; ++nth) {
    IString a("a"), b("b"), c("c");
    bool failed = false;
    {
      const quelmcl_test::FailingAllocations failing(nth);
      try {
        text >> a >> b >> ';' >> c;
      } catch (...) {
        failed = true;
      }
    }
    EXPECT_TEXT(text, "one two;three");
    if (!failed) {
      EXPECT_TEXT(a, "one");
      EXPECT_TEXT(b, "two");
      EXPECT_TEXT(c, "three");
      break;
    }
    ++failures;
    a = "still";
    b = "of";
    c = "use";
    EXPECT_TEXT(a + b + c, "stillofuse");
    ASSERT_LT(nth, 1000u);
  }
  EXPECT_GT(failures, 3u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Beside streams

TEST(ParserOperators, LeaveStreamsToTheirOwn)
{
  std::istringstream in("first second");
  IString a, b;
  in >> a >> b;
  EXPECT_TEXT(a, "first");
  EXPECT_TEXT(b, "second");
  std::ostringstream out;
  out << a << 3 << 'x' << b;
  EXPECT_EQ(out.str(), "first3xsecond");
}

TEST(ParserOperators, BeginWithConstantsLiteralsAndTemporaries)
{
  const IString constant("a b");
  IString s, t;
  constant >> t;
  EXPECT_TEXT(t, "a b");
  "c d" >> t;
  EXPECT_TEXT(t, "c d");
  IString("e f") >> s >> t;
  EXPECT_TEXT(s, "e");
  EXPECT_TEXT(t, "f");
}

TEST(ParserOperators, TakeEveryKindOfPattern)
{
  IString s("abc;def"), t("ab;x"), a, b;
  const IString pattern(";");
  char array[8] = ";";
  s >> a >> pattern >> b;
  EXPECT_TEXT(b, "def");
  s >> a >> IString(";") >> b;
  EXPECT_TEXT(b, "def");
  s >> a >> t[3] >> b;
  EXPECT_TEXT(b, "def");
  s >> a >> array >> b;
  EXPECT_TEXT(b, "def");
  s >> a >> &array[0] >> b;
  EXPECT_TEXT(b, "def");
  s >> a >> ispunct >> b;
  EXPECT_TEXT(b, ";def");
}

}  // namespace
