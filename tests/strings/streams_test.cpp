// streams_test.cpp - IString: stream output, word input, line input.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iomanip>
#include <ios>
#include <istream>
#include <locale>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <type_traits>
#include <utility>

using namespace stringtests;

namespace {

/// What writing `text` leaves in a stream that `prepare` has set up.
template <class Prepare>
std::string written(const IString& text, Prepare prepare)
{
  std::ostringstream out;
  prepare(out);
  out << text;
  return out.str();
}

std::string written(const IString& text)
{
  return written(text, [](std::ostream&) {});
}

/// All that a stream still holds.
std::string restOf(std::istream& in)
{
  in.clear();
  std::ostringstream rest;
  if (in.peek() != std::istream::traits_type::eof())
    rest << in.rdbuf();
  return rest.str();
}

// ---------------------------------------------------------------------------------------------------------------------
// Output

TEST(StringOutput, WritesTheText)
{
  EXPECT_EQ(written("abc"), "abc");
  EXPECT_EQ(written(""), "");
}

TEST(StringOutput, StopsAtTheFirstNul)
{
  EXPECT_EQ(written(made(bytes("ab\0cd"))), "ab");
  EXPECT_EQ(written(made(bytes("\0ab"))), "");
}

TEST(StringOutput, ObeysWidthAndFill)
{
  EXPECT_EQ(written("abc", [](std::ostream& out) { out << std::setw(6) << std::setfill('.'); }), "...abc");
  EXPECT_EQ(written("abc", [](std::ostream& out) { out << std::left << std::setw(6) << std::setfill('.'); }), "abc...");
  EXPECT_EQ(written("abc", [](std::ostream& out) { out << std::setw(2); }), "abc");
}

TEST(StringOutput, PadsTheEmptyString)
{
  EXPECT_EQ(written("", [](std::ostream& out) { out << std::setw(3) << std::setfill('*'); }), "***");
}

TEST(StringOutput, PadsThePartBeforeANulToTheWidth)
{
  EXPECT_EQ(written(made(bytes("ab\0cd")), [](std::ostream& out) { out << std::setw(4) << std::setfill('.'); }),
            "..ab");
}

TEST(StringOutput, UsesTheWidthUp)
{
  std::ostringstream out;
  out << std::setw(5) << IString("a") << IString("b");
  EXPECT_EQ(out.str(), "    ab");
  EXPECT_EQ(out.width(), 0);
}

TEST(StringOutput, ReturnsTheStream)
{
  std::ostringstream out;
  EXPECT_EQ(&(out << IString("abc")), &out);
}

TEST(StringOutput, OfExpressionsWritesTheirTexts)
{
  IString text("abc def");
  std::ostringstream out;
  out << text.word(2) << '|' << text + "x" << '|' << text[1] << '|' << (text == "abc def");
  EXPECT_EQ(out.str(), "def|abc defx|a|1");
}

TEST(StringOutput, ToAFailedStreamWritesNothing)
{
  std::ostringstream out;
  out.setstate(std::ios::failbit);
  out << IString("abc");
  EXPECT_EQ(out.str(), "");
  EXPECT_TRUE(out.fail());
}

// ---------------------------------------------------------------------------------------------------------------------
// Words

TEST(StringWordInput, SkipsWhiteSpaceAndLeavesWhatEndsTheWord)
{
  std::istringstream in("   abc def");
  IString text;
  in >> text;
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(restOf(in), " def");
}

TEST(StringWordInput, TakesOneByteLessThanTheWidth)
{
  std::istringstream in("   abc def");
  IString text;
  in >> std::setw(3) >> text;
  EXPECT_TEXT(text, "ab");
  EXPECT_EQ(in.width(), 0);
  EXPECT_EQ(restOf(in), "c def");
}

TEST(StringWordInput, OfWidthOneTakesNothing)
{
  std::istringstream in("abc");
  IString text("old");
  in >> std::setw(1) >> text;
  EXPECT_TEXT(text, "");
  EXPECT_EQ(restOf(in), "abc");
}

TEST(StringWordInput, AWideFieldEndsWithTheWord)
{
  std::istringstream in("abc def");
  IString text;
  in >> std::setw(100) >> text;
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(restOf(in), " def");
}

TEST(StringWordInput, AWidthBeyondTheWorkingSpaceIsObeyed)
{
  std::istringstream in(std::string(500, 'x'));
  IString text;
  in >> std::setw(301) >> text;
  EXPECT_TEXT(text, std::string(300, 'x'));
  EXPECT_EQ(restOf(in), std::string(200, 'x'));
}

TEST(StringWordInput, ANegativeWidthIsNoLimit)
{
  std::istringstream in("abcdef");
  in.width(-5);
  IString text;
  in >> text;
  EXPECT_TEXT(text, "abcdef");
  EXPECT_EQ(in.width(), 0);
}

TEST(StringWordInput, WithoutSkippingFindsNoWordBeforeWhiteSpace)
{
  std::istringstream in(" abc");
  IString text("old");
  in >> std::noskipws >> text;
  EXPECT_TEXT(text, "");
  EXPECT_EQ(restOf(in), " abc");
}

TEST(StringWordInput, WithoutSkippingTakesAWordThatBeginsAtOnce)
{
  std::istringstream in("abc def");
  IString text;
  in >> std::noskipws >> text;
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(restOf(in), " def");
}

TEST(StringWordInput, ReplacesTheOldTextHoweverLong)
{
  std::istringstream in("ab abcdefgh");
  IString text("long old text");
  in >> text;
  EXPECT_TEXT(text, "ab");
  in >> text;
  EXPECT_TEXT(text, "abcdefgh");
}

TEST(StringWordInput, LeavesTheOtherSharersTheirText)
{
  std::istringstream in("new");
  IString text("a text that is shared");
  const IString sharer(text);
  in >> text;
  EXPECT_TEXT(text, "new");
  EXPECT_TEXT(sharer, "a text that is shared");
  EXPECT_EQ(useCountOf(sharer), 1u);
}

TEST(StringWordInput, LeavesOtherEmptyStringsEmpty)
{
  std::istringstream in("abc");
  IString text;
  const IString other;
  in >> text;
  EXPECT_TEXT(text, "abc");
  EXPECT_TEXT(other, "");
  EXPECT_TEXT(IString(), "");
}

/// A stream buffer over bytes that belong to somebody else.
class BytesOfAnother : public std::streambuf {
public:
  explicit BytesOfAnother(const IString& text)
  {
    char* const begin = text;
    setg(begin, begin, begin + text.length());
  }
};

TEST(StringWordInput, ReadsTheVeryTextThatItReplaces)
{
  IString text("first second");
  BytesOfAnother source(text);
  std::istream in(&source);
  in >> text;
  EXPECT_TEXT(text, "first");
  EXPECT_EQ(in.gcount(), 0) << "as behind every step of looking ahead";
}

class StringWordInputOfLength : public testing::TestWithParam<unsigned> {};

TEST_P(StringWordInputOfLength, TakesTheWordWhole)
{
  std::string word;
  for (unsigned offset = 0; offset < GetParam(); ++offset)
    word += static_cast<char>('a' + offset % 26);
  std::istringstream in(word + " next");
  IString text;
  IString next;
  in >> text >> next;
  EXPECT_TEXT(text, word);
  EXPECT_TEXT(next, "next");
}

INSTANTIATE_TEST_SUITE_P(Rows, StringWordInputOfLength,
                         testing::Values(1u, 127u, 128u, 129u, 255u, 256u, 257u, 1000u, 5000u, 100000u));

TEST(StringWordInput, TakesNulsAndHighBytesAsPartOfAWord)
{
  std::istringstream in(
    bytes("a\0b\xFF"
          "c d"));
  IString text;
  in >> text;
  EXPECT_EQ(bytesOf(text), bytes("a\0b\xFF"
                                 "c"));
  EXPECT_EQ(restOf(in), " d");
}

TEST(StringWordInput, EndsAtEveryWhiteSpaceCharacter)
{
  for (const char space : std::string(" \t\n\v\f\r")) {
    std::istringstream in(std::string("ab") + space + "cd");
    IString text;
    in >> text;
    EXPECT_TEXT(text, "ab");
    EXPECT_EQ(in.peek(), space);
  }
}

TEST(StringWordInput, TheLastWordIsReadWithoutFailure)
{
  std::istringstream in("abc");
  IString text;
  in >> text;
  EXPECT_TEXT(text, "abc");
  EXPECT_TRUE(in.eof());
  EXPECT_FALSE(in.fail());
}

TEST(StringWordInput, WithNothingLeftFailsAndEmptiesTheString)
{
  std::istringstream in("   ");
  IString text("old");
  in >> text;
  EXPECT_TEXT(text, "");
  EXPECT_TRUE(in.fail());
}

TEST(StringWordInput, LoopsOverAllWords)
{
  std::istringstream in(" one two\nthree\t\n");
  IString word;
  IString all;
  unsigned count = 0;
  while (in >> word) {
    all += word + ";";
    ++count;
  }
  EXPECT_TEXT(all, "one;two;three;");
  EXPECT_EQ(count, 3u);
}

TEST(StringWordInput, FromAFailedStreamEmptiesTheStringAndTakesNothing)
{
  std::istringstream in("abc");
  in.setstate(std::ios::failbit);
  IString text("old");
  const IString sharer(text);
  EXPECT_EQ(&(in >> text), &in);
  EXPECT_TEXT(text, "");
  EXPECT_TEXT(sharer, "old");
  EXPECT_TRUE(in.fail());
  EXPECT_EQ(restOf(in), "abc");
}

TEST(StringWordInput, FromAStreamThatIsAtItsEndFails)
{
  std::istringstream in("abc");
  in.setstate(std::ios::eofbit);
  IString text("old");
  in >> text;
  EXPECT_TEXT(text, "");
  EXPECT_TRUE(in.fail());
}

TEST(StringWordInput, UsesTheWidthUpAlsoWhenItFails)
{
  std::istringstream in("");
  IString text;
  in >> std::setw(7) >> text;
  EXPECT_TRUE(in.fail());
  EXPECT_EQ(in.width(), 0);
}

/// A stream buffer that counts how often it is flushed.
class FlushCounter : public std::stringbuf {
public:
  int flushes = 0;

protected:
  int sync() override
  {
    ++flushes;
    return 0;
  }
};

TEST(StringWordInput, FlushesTheTiedStreamFirst)
{
  FlushCounter sink;
  std::ostream prompt(&sink);
  std::istringstream in("abc");
  in.tie(&prompt);
  IString text;
  in >> text;
  EXPECT_TEXT(text, "abc");
  EXPECT_GE(sink.flushes, 1);
}

// ---------------------------------------------------------------------------------------------------------------------
// Lines

TEST(StringLineInput, TakesTheDelimiterOutAndDoesNotStoreIt)
{
  std::istringstream in("abc\ndef");
  EXPECT_TEXT(IString::lineFrom(in, '\n'), "abc");
  EXPECT_TEXT(IString::lineFrom(in, '\n'), "def");
}

TEST(StringLineInput, EndsAtANewlineUnlessToldOtherwise)
{
  std::istringstream in("abc def\nghi");
  EXPECT_TEXT(IString::lineFrom(in), "abc def");
  EXPECT_EQ(restOf(in), "ghi");
}

TEST(StringLineInput, TakesAnyDelimiter)
{
  std::istringstream in(
    bytes("a,b\n;c\0d\xFF"
          "e"));
  EXPECT_TEXT(IString::lineFrom(in, ','), "a");
  EXPECT_TEXT(IString::lineFrom(in, ';'), "b\n");
  EXPECT_TEXT(IString::lineFrom(in, '\0'), "c");
  EXPECT_TEXT(IString::lineFrom(in, '\xFF'), "d");
  EXPECT_EQ(restOf(in), "e");
}

TEST(StringLineInput, KeepsLeadingAndTrailingWhiteSpace)
{
  std::istringstream in("  abc \t\n");
  EXPECT_TEXT(IString::lineFrom(in), "  abc \t");
}

TEST(StringLineInput, KeepsNulsAndHighBytes)
{
  std::istringstream in(bytes("a\0b\xFF\n"));
  EXPECT_EQ(bytesOf(IString::lineFrom(in)), bytes("a\0b\xFF"));
}

TEST(StringLineInput, AnEmptyLineIsTheEmptyStringAndNoFailure)
{
  std::istringstream in("\n\nabc\n");
  EXPECT_TEXT(IString::lineFrom(in), "");
  EXPECT_TEXT(IString::lineFrom(in), "");
  EXPECT_TRUE(in.good());
  EXPECT_TEXT(IString::lineFrom(in), "abc");
  EXPECT_TRUE(in.good());
}

class StringLineInputOfLength : public testing::TestWithParam<unsigned> {};

TEST_P(StringLineInputOfLength, GivesTheLineWhole)
{
  std::string line;
  for (unsigned offset = 0; offset < GetParam(); ++offset)
    line += static_cast<char>('a' + offset % 26);
  std::istringstream in(line + "\nnext\n");
  EXPECT_TEXT(IString::lineFrom(in), line);
  EXPECT_TEXT(IString::lineFrom(in), "next");
}

INSTANTIATE_TEST_SUITE_P(Rows, StringLineInputOfLength,
                         testing::Values(0u, 1u, 127u, 128u, 129u, 256u, 257u, 300u, 1000u, 100000u));

TEST(StringLineInput, ALineWithoutDelimiterIsReturnedAsFarAsItWent)
{
  std::istringstream in("abc");
  EXPECT_TEXT(IString::lineFrom(in), "abc");
  EXPECT_TRUE(in.eof());
}

TEST(StringLineInput, AtTheEndOfTheStreamIsEmptyAndFails)
{
  std::istringstream in("");
  EXPECT_TEXT(IString::lineFrom(in), "");
  EXPECT_TRUE(in.eof());
  EXPECT_TRUE(in.fail());
}

TEST(StringLineInput, FromAFailedStreamIsEmptyAndTakesNothing)
{
  std::istringstream in("abc\n");
  in.setstate(std::ios::failbit);
  EXPECT_TEXT(IString::lineFrom(in), "");
  EXPECT_TRUE(in.fail());
  EXPECT_EQ(restOf(in), "abc\n");
}

TEST(StringLineInput, IgnoresTheWidthOfTheStream)
{
  std::istringstream in("abcdef\n");
  in.width(3);
  EXPECT_TEXT(IString::lineFrom(in), "abcdef");
}

TEST(StringLineInput, AgreesWithASlowSplitOfTheSameText)
{
  std::string text;
  for (unsigned number = 0; number < 400; ++number)
    text += std::string(number, static_cast<char>('a' + number % 26)) + "\n";
  std::istringstream in(text);
  for (unsigned number = 0; number < 400; ++number)
    EXPECT_TEXT(IString::lineFrom(in), std::string(number, static_cast<char>('a' + number % 26)));
  EXPECT_TRUE(in.good());
}

// ---------------------------------------------------------------------------------------------------------------------
// Stream buffers that hold little ready

/// Input that holds at most so many bytes ready at a time; with 0 it never holds any and gives single bytes away.
class Trickle : public std::streambuf {
public:
  Trickle(std::string bytes, unsigned mostReady) : data(std::move(bytes)), most(mostReady) {}

protected:
  int underflow() override
  {
    if (most == 0)
      return next == data.size() ? traits_type::eof() : traits_type::to_int_type(data[next]);
    const std::size_t size = std::min<std::size_t>(most, data.size() - next);
    setg(&data[next], &data[next], &data[next] + size);
    next += size;
    return size == 0 ? traits_type::eof() : traits_type::to_int_type(*gptr());
  }
  int uflow() override
  {
    if (most != 0)
      return std::streambuf::uflow();
    return next == data.size() ? traits_type::eof() : traits_type::to_int_type(data[next++]);
  }

private:
  std::string data;
  const unsigned most;
  std::size_t next = 0;
};

/// What a line is, byte by byte.
std::string slowLine(std::istream& in, char delimiter)
{
  std::string line;
  for (char next; in.get(next) && next != delimiter;)
    line += next;
  return line;
}

/// What a word is, byte by byte.
std::string slowWord(std::istream& in)
{
  const std::streamsize width = in.width(0);
  std::string word;
  const std::istream::sentry prefix(in);
  while (prefix && (width <= 0 || word.size() + 1 < static_cast<std::size_t>(width)) && in.peek() != EOF &&
         !std::isspace(static_cast<char>(in.peek()), in.getloc()))
    word += static_cast<char>(in.get());
  return word;
}

class StringInputInChunks : public testing::TestWithParam<unsigned> {};

TEST_P(StringInputInChunks, GivesTheLinesThatReadingByteByByteGives)
{
  quelmcl_test::RandomTexts random;
  for (unsigned round = 0; round < 200; ++round) {
    const std::string text = random.text(bytes("ab\n\xFF\0"), 60) + random.text(bytes("ab\n"), 300);
    Trickle source(text, GetParam());
    Trickle sameSource(text, GetParam());
    std::istream in(&source);
    std::istream same(&sameSource);
    for (unsigned count = 0; count < 400 && !same.fail(); ++count) {
      const char delimiter = random.onceIn(4) ? '\xFF' : '\n';
      const std::string expected = slowLine(same, delimiter);
      EXPECT_TEXT(IString::lineFrom(in, delimiter), expected);
      ASSERT_EQ(in.rdstate(), same.rdstate());
      ASSERT_EQ(in.gcount(), same.gcount());
    }
    EXPECT_TRUE(in.eof());
  }
}

TEST_P(StringInputInChunks, GivesTheWordsThatReadingByteByByteGives)
{
  quelmcl_test::RandomTexts random;
  for (unsigned round = 0; round < 200; ++round) {
    const std::string text = random.text(bytes("ab \t\xFF\0"), 60) + random.text(bytes("abcdefgh "), 300);
    Trickle source(text, GetParam());
    Trickle sameSource(text, GetParam());
    std::istream in(&source);
    std::istream same(&sameSource);
    IString word("old");
    for (unsigned count = 0; count < 400 && !same.fail(); ++count) {
      const std::streamsize width = random.onceIn(3) ? static_cast<std::streamsize>(random.below(12)) : 0;
      const std::string expected = slowWord(same >> std::setw(static_cast<int>(width)));
      in >> std::setw(static_cast<int>(width)) >> word;
      EXPECT_TEXT(word, expected);
      ASSERT_EQ(in.rdstate(), same.rdstate());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, StringInputInChunks, testing::Values(0u, 1u, 2u, 3u, 7u, 50u, 1000u));

TEST(StringLineInput, FlushesTheTiedStreamFirst)
{
  FlushCounter sink;
  std::ostream prompt(&sink);
  std::istringstream in("abc\n");
  in.tie(&prompt);
  EXPECT_TEXT(IString::lineFrom(in), "abc");
  EXPECT_GE(sink.flushes, 1);
}

TEST(StringLineInput, ThrowsWhereTheStreamIsToldTo)
{
  std::istringstream in("abc");
  in.exceptions(std::ios::failbit);
  EXPECT_THROW(IString::lineFrom(in), std::ios_base::failure);
  EXPECT_TRUE(in.eof());
}

/// Input that breaks off after its first bytes.
class Broken : public std::streambuf {
public:
  Broken() { setg(text, text, text + 2); }

protected:
  int underflow() override { throw std::string("broken"); }

private:
  char text[3] = "ab";
};

TEST(StringLineInput, OfABrokenStreamIsWhatCameBefore)
{
  Broken source;
  std::istream in(&source);
  EXPECT_TEXT(IString::lineFrom(in), "ab");
  EXPECT_TRUE(in.bad());
}

TEST(StringWordInput, OfABrokenStreamIsWhatCameBefore)
{
  Broken source;
  std::istream in(&source);
  IString text;
  in >> text;
  EXPECT_TEXT(text, "ab");
  EXPECT_TRUE(in.bad());
}

}  // namespace
