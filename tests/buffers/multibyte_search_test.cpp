// multibyte_search_test.cpp - IDBCSBuffer, searching: what is found begins where a character begins.
#include "multibyte_probe.hpp"
#include "support/character_texts.hpp"
#include "support/expect_text.hpp"
#include "support/multibyte_reference.hpp"

#include <quelmcl/idbcsb.hpp>

#include <gtest/gtest.h>

#include <cctype>
#include <string>

using namespace buffertests;
using quelmcl_test::CharacterTexts;
using quelmcl_test::ExactBytes;
using quelmcl_test::LocaleInForce;

namespace rules = reference::multibyte;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// By name, in UTF-8

class MultiByteSearch : public testing::Test {
  LocaleInForce locale{"C.UTF-8"};

protected:
  const Text longInTheMiddle{
    "a\xC3\xA9"
    "bc"};  // a character of two bytes at positions 2 and 3
};

struct TextCase {
  unsigned startPos;
  unsigned expected;
};

TEST_F(MultiByteSearch, ATextIsFoundFromTheStartOn)
{
  const Text text("abcabc");
  for (const TextCase& row : {TextCase{0, 2}, {1, 2}, {2, 2}, {3, 5}, {5, 5}, {6, 0}, {7, 0}, {largest, 0}})
    EXPECT_EQ(text->indexOf("bc", 2, row.startPos), row.expected) << "from " << row.startPos;
}

TEST_F(MultiByteSearch, ATextIsFoundFromTheEndBackwards)
{
  const Text text("abcabc");
  for (const TextCase& row : {TextCase{largest, 5}, {7, 5}, {5, 5}, {4, 2}, {2, 2}, {1, 0}, {0, 0}})
    EXPECT_EQ(text->lastIndexOf("bc", 2, row.startPos), row.expected) << "from " << row.startPos;
}

TEST_F(MultiByteSearch, AnEmptyTextIsNowhere)
{
  for (const unsigned start : {0u, 1u, 3u, 5u, 6u, largest}) {
    EXPECT_EQ(longInTheMiddle->indexOf("x", 0, start), 0u);
    EXPECT_EQ(longInTheMiddle->lastIndexOf("x", 0, start), 0u);
  }
}

TEST_F(MultiByteSearch, TheFirstCharacterOutsideOfNoSetIsTheOneAtTheStart)
{
  EXPECT_EQ(longInTheMiddle->indexOfAnyBut("x", 0, 0), 1u);
  EXPECT_EQ(longInTheMiddle->indexOfAnyBut("x", 0, 1), 1u);
  EXPECT_EQ(longInTheMiddle->indexOfAnyBut("x", 0, 3), 4u) << "the next character";
  EXPECT_EQ(longInTheMiddle->indexOfAnyBut("x", 0, 6), 0u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyBut("x", 0, largest), 5u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyBut("x", 0, 3), 2u) << "the character that holds the start";
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyBut("x", 0, 0), 0u);
}

TEST_F(MultiByteSearch, NothingIsAMemberOfNoSet)
{
  for (const unsigned start : {0u, 1u, 3u, 5u, 6u, largest}) {
    EXPECT_EQ(longInTheMiddle->indexOfAnyOf("x", 0, start), 0u);
    EXPECT_EQ(longInTheMiddle->lastIndexOfAnyOf("x", 0, start), 0u);
  }
}

TEST_F(MultiByteSearch, NothingIsFoundInAnEmptyText)
{
  const Text empty("");
  const Asks any([](int) { return 1; });
  const Asks none([](int) { return 0; });
  for (const unsigned start : {0u, 1u, largest}) {
    EXPECT_EQ(empty->indexOf("ab", 2, start), 0u);
    EXPECT_EQ(empty->indexOf("a", 1, start), 0u);
    EXPECT_EQ(empty->indexOf(any, start), 0u);
    EXPECT_EQ(empty->indexOfAnyOf("ab", 2, start), 0u);
    EXPECT_EQ(empty->indexOfAnyOf(any, start), 0u);
    EXPECT_EQ(empty->indexOfAnyBut("ab", 2, start), 0u);
    EXPECT_EQ(empty->indexOfAnyBut("ab", 0, start), 0u);
    EXPECT_EQ(empty->indexOfAnyBut(none, start), 0u);
    EXPECT_EQ(empty->lastIndexOf("ab", 2, start), 0u);
    EXPECT_EQ(empty->lastIndexOf("a", 1, start), 0u);
    EXPECT_EQ(empty->lastIndexOf(any, start), 0u);
    EXPECT_EQ(empty->lastIndexOfAnyOf("ab", 2, start), 0u);
    EXPECT_EQ(empty->lastIndexOfAnyOf(any, start), 0u);
    EXPECT_EQ(empty->lastIndexOfAnyBut("ab", 2, start), 0u);
    EXPECT_EQ(empty->lastIndexOfAnyBut("ab", 0, start), 0u);
    EXPECT_EQ(empty->lastIndexOfAnyBut(none, start), 0u);
  }
}

TEST_F(MultiByteSearch, AForwardSearchFromInsideACharacterBeginsBehindIt)
{
  EXPECT_EQ(longInTheMiddle.startSearch(2, 1), 2u);
  EXPECT_EQ(longInTheMiddle.startSearch(3, 1), 4u);
  EXPECT_EQ(longInTheMiddle.startSearch(0, 1), 1u);
  EXPECT_EQ(longInTheMiddle->indexOfAnyBut("x", 1, 3), 4u);
}

TEST_F(MultiByteSearch, AForwardSearchFromInsideTheLastCharacterFindsNothing)
{
  const Text longAtTheEnd("a\xE2\x82\xAC");
  EXPECT_EQ(longAtTheEnd.startSearch(2, 1), 2u);
  EXPECT_EQ(longAtTheEnd.startSearch(3, 1), 0u);
  EXPECT_EQ(longAtTheEnd.startSearch(4, 1), 0u);
  EXPECT_EQ(longAtTheEnd->indexOfAnyBut("x", 0, 3), 0u);
}

TEST_F(MultiByteSearch, ABackwardSearchFromInsideACharacterBeginsWithIt)
{
  EXPECT_EQ(longInTheMiddle.startBackwardsSearch(3, 1), 2u);
  EXPECT_EQ(longInTheMiddle.startBackwardsSearch(2, 1), 2u);
  EXPECT_EQ(longInTheMiddle.startBackwardsSearch(4, 1), 4u);
  EXPECT_EQ(longInTheMiddle.startBackwardsSearch(largest, 1), 5u);
  EXPECT_EQ(longInTheMiddle.startBackwardsSearch(largest, 3), 2u)
    << "lowered until the text fits, then to the character";
  EXPECT_EQ(longInTheMiddle.startBackwardsSearch(0, 1), 0u);
}

TEST_F(MultiByteSearch, ATextIsNotFoundInsideACharacter)
{
  EXPECT_EQ(longInTheMiddle->indexOf("\xA9"
                                     "b",
                                     2, 1),
            0u);
  EXPECT_EQ(longInTheMiddle->indexOf("\xA9", 1, 1), 0u);
  EXPECT_EQ(longInTheMiddle->lastIndexOf("\xA9"
                                         "b",
                                         2, largest),
            0u);
  EXPECT_EQ(longInTheMiddle->lastIndexOf("\xA9", 1, largest), 0u);
  EXPECT_EQ(longInTheMiddle->indexOf("\xC3\xA9"
                                     "b",
                                     3, 1),
            2u);
  EXPECT_EQ(longInTheMiddle->lastIndexOf("\xC3\xA9"
                                         "b",
                                         3, largest),
            2u);
}

TEST_F(MultiByteSearch, ATextMayEndInsideACharacter)
{
  EXPECT_EQ(longInTheMiddle->indexOf("a\xC3", 2, 1), 1u);
  EXPECT_EQ(longInTheMiddle->lastIndexOf("a\xC3", 2, largest), 1u);
}

TEST_F(MultiByteSearch, ALoneLeadByteMeansTheCharactersThatBeginWithIt)
{
  const Text text("x\xC3\xA9\xC3\xA8y");
  EXPECT_EQ(text->indexOfAnyOf("\xC3", 1, 1), 2u);
  EXPECT_EQ(text->indexOfAnyOf("\xC3", 1, 3), 4u);
  EXPECT_EQ(text->indexOf("\xC3", 1, 1), 2u);
  EXPECT_EQ(text->lastIndexOfAnyOf("\xC3", 1, largest), 4u);
  EXPECT_EQ(text->lastIndexOf("\xC3", 1, 3), 2u);
}

TEST_F(MultiByteSearch, ALoneLeadByteIsNoMemberForwardsAndStopsBackwards)
{
  const Text text("\xC3\xA9\xC3\xA9");
  EXPECT_EQ(text->indexOfAnyBut("\xC3", 1, 1), 1u);
  EXPECT_EQ(text->indexOfAnyBut("\xC3", 1, 2), 3u);
  EXPECT_EQ(text->lastIndexOfAnyBut("\xC3", 1, largest), 0u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyBut("\xC3", 1, largest), 0u) << "although there are others";
  const Text strays("\xC3\xC3");
  EXPECT_EQ(strays->indexOfAnyBut("\xC3", 1, 1), 1u) << "although every character equals it";
}

TEST_F(MultiByteSearch, AByteThatBeginsNoCharacterIsAnOrdinaryMember)
{
  const Text text(
    "\xFF\xFF"
    "a\xFF");
  EXPECT_EQ(text->indexOfAnyBut("\xFF", 1, 1), 3u);
  EXPECT_EQ(text->lastIndexOfAnyBut("\xFF", 1, largest), 3u);
  EXPECT_EQ(text->lastIndexOfAnyOf("\xFF", 1, 3), 2u);
}

TEST_F(MultiByteSearch, ASetIsAListOfWholeCharacters)
{
  const std::string set = "b\xC3\xA9";
  EXPECT_EQ(longInTheMiddle->indexOfAnyOf(set.data(), 3, 1), 2u);
  EXPECT_EQ(longInTheMiddle->indexOfAnyBut(set.data(), 3, 2), 5u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyOf(set.data(), 3, 3), 2u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyBut(set.data(), 3, 4), 1u);
  // Some bytes of a character are not the character.
  EXPECT_EQ(longInTheMiddle->indexOfAnyOf("\xA9\xC3", 2, 1), 0u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyOf("\xA9\xC3", 2, largest), 0u);
}

TEST_F(MultiByteSearch, ATestSeesTheFirstBytesOfCharacters)
{
  const Asks trails([](int byte) { return byte == static_cast<signed char>('\xA9'); });
  EXPECT_EQ(longInTheMiddle->indexOfAnyBut(
              Asks([](int byte) { return byte == 'a' || byte == static_cast<signed char>('\xC3'); }), 1),
            4u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyOf(trails, largest), 0u);
  EXPECT_EQ(longInTheMiddle->lastIndexOf(trails, largest), 0u);
  EXPECT_EQ(longInTheMiddle->lastIndexOfAnyBut(Asks([](int byte) { return byte > 0; }), largest), 2u);
}

TEST_F(MultiByteSearch, ATestMayPassInsideACharacter)
{
  const Asks trails([](int byte) { return byte == static_cast<signed char>('\xA9'); });
  EXPECT_EQ(longInTheMiddle->indexOfAnyOf(trails, 1), 3u);
  EXPECT_EQ(longInTheMiddle->indexOf(trails, 1), 3u);
  EXPECT_EQ(longInTheMiddle->indexOfAnyOf(trails, 3), 0u) << "the search begins behind the character";
}

TEST_F(MultiByteSearch, ATestSeesBytesAboveAsciiAsNegativeNumbers)
{
  int least = 0;
  int greatest = 0;
  const Asks watching([&](int byte) {
    least = std::min(least, byte);
    greatest = std::max(greatest, byte);
    return 0;
  });
  longInTheMiddle->indexOfAnyOf(watching, 1);
  EXPECT_EQ(least, static_cast<signed char>('\xA9'));
  EXPECT_EQ(greatest, 'c');
}

TEST_F(MultiByteSearch, SearchesForTestsAreAskedVirtually)
{
  class Deaf : public IDBCSBuffer {
  public:
    Deaf() noexcept : IDBCSBuffer(0) {}
    unsigned indexOfAnyOf(const IStringTest&, unsigned) const override { return 41; }
    unsigned lastIndexOfAnyOf(const IStringTest&, unsigned) const override { return 42; }
    unsigned indexOfAnyOf(const char*, unsigned, unsigned) const override { return 43; }
  };
  const Held text(new (0) Deaf);
  EXPECT_EQ(text->indexOf(IStringTest(isalpha), 1), 41u);
  EXPECT_EQ(text->lastIndexOf(IStringTest(isalpha), 1), 42u);
  EXPECT_EQ(text->indexOf("a", 1, 1), 43u) << "one byte to look for is a set of one byte";
}

TEST_F(MultiByteSearch, EverySearchAsksWhereToBegin)
{
  // A start of its own, which no other would give, shows who was asked, and for how many bytes.
  class Starts : public IDBCSBuffer {
  public:
    Starts() noexcept : IDBCSBuffer(4) { std::memcpy(contents(), "abab", 4); }
    mutable unsigned searchLen = 0;

  protected:
    unsigned startSearch(unsigned, unsigned length) const override
    {
      searchLen = length;
      return 3;
    }
    unsigned startBackwardsSearch(unsigned, unsigned length) const override
    {
      searchLen = length;
      return 2;
    }
  };
  Starts* const starts = new (4) Starts;
  const Held text(starts);
  const Asks isA([](int byte) { return byte == 'a'; });
  EXPECT_EQ(text->indexOf("ab", 2, 1), 3u);
  EXPECT_EQ(starts->searchLen, 2u);
  EXPECT_EQ(text->indexOfAnyOf("a", 1, 1), 3u);
  EXPECT_EQ(text->indexOfAnyOf("ac", 2, 1), 3u);
  EXPECT_EQ(text->indexOfAnyOf(isA, 1), 3u);
  EXPECT_EQ(text->indexOfAnyBut("b", 1, 1), 3u);
  EXPECT_EQ(text->indexOfAnyBut(Asks([](int byte) { return byte == 'b'; }), 1), 3u);
  EXPECT_EQ(starts->searchLen, 1u);
  EXPECT_EQ(text->lastIndexOf("ab", 2, 4), 1u);
  EXPECT_EQ(starts->searchLen, 2u);
  EXPECT_EQ(text->lastIndexOf("a", 1, 4), 1u);
  EXPECT_EQ(text->lastIndexOfAnyOf("ac", 2, 4), 1u);
  EXPECT_EQ(text->lastIndexOfAnyOf(isA, 4), 1u);
  EXPECT_EQ(text->lastIndexOfAnyBut("b", 1, 4), 1u);
  EXPECT_EQ(starts->searchLen, 1u);
}

// Katakana SO is 0x83 0x5C, whose second byte is a backslash; 0x95 0x5C is another such character.
TEST(MultiByteSearchOfShiftJis, ABackslashIsNotFoundInsideOfCharacters)
{
  const LocaleInForce locale("ja_JP.SJIS");
  const Text text("\x83\x5C\x95\x5C\\\x83\x5C");
  EXPECT_EQ(text->indexOf("\\", 1, 1), 5u);
  EXPECT_EQ(text->indexOf("\\", 1, 6), 0u);
  EXPECT_EQ(text->lastIndexOf("\\", 1, largest), 5u);
  EXPECT_EQ(text->indexOfAnyOf("\\/", 2, 1), 5u);
  EXPECT_EQ(text->lastIndexOfAnyOf("\\/", 2, 4), 0u);
  EXPECT_EQ(text->indexOf("\x5C\x95", 2, 1), 0u) << "a text that is there as bytes, but not as characters";
  EXPECT_EQ(text->lastIndexOf("\x5C\x95", 2, largest), 0u);
}

// The bytes of a character are looked for in a long list, and where they stand two halves of its members may meet.
TEST(MultiByteSearchOfShiftJis, HalvesOfNeighboursInALongListAreNoMember)
{
  const LocaleInForce locale("ja_JP.SJIS");
  const std::string other = "\x82\xA0";
  for (const std::size_t before : {20u, 127u, 128u, 200u, 1000u}) {
    std::string list;
    for (std::size_t i = 0; i < before; ++i)
      list += other;
    list += "\x95\x83\x82\xA0";  // 0x83 0x82, which is a character elsewhere, stands across the two
    const Text text("ab\x83\x82");
    const unsigned size = static_cast<unsigned>(list.size());
    EXPECT_EQ(text->indexOfAnyOf(list.data(), size, 1), 0u) << before;
    EXPECT_EQ(text->lastIndexOfAnyOf(list.data(), size, largest), 0u) << before;
    EXPECT_EQ(text->indexOfAnyBut(list.data(), size, 3), 3u) << before;

    list += "\x83\x82";
    EXPECT_EQ(text->indexOfAnyOf(list.data(), size + 2, 1), 3u) << before;
    EXPECT_EQ(text->lastIndexOfAnyOf(list.data(), size + 2, largest), 3u) << before;
    EXPECT_EQ(text->indexOfAnyBut(list.data(), size + 2, 3), 0u) << before;
  }
}

TEST(MultiByteSearchOfGb18030, ADigitIsNotFoundInsideOfCharactersOfFourBytes)
{
  const LocaleInForce locale("zh_CN.GB18030");
  const Text text(
    "\x81\x30\x81\x30"
    "0\x81\x30\x89\x39");
  EXPECT_EQ(text->indexOf("0", 1, 1), 5u);
  EXPECT_EQ(text->lastIndexOf("0", 1, largest), 5u);
  EXPECT_EQ(text.startSearch(7, 1), 0u);
  EXPECT_EQ(text.startBackwardsSearch(9, 1), 6u);
  EXPECT_EQ(text->indexOf("\x81\x30", 2, 2), 6u) << "within a character of four bytes there is none of two";
}

// ---------------------------------------------------------------------------------------------------------------------
// Every search in the locale of this run, compared with the reference

class MultiByteSearchHere : public testing::Test {
protected:
  template <class Check>
  void onManyTexts(int rounds, Check check)
  {
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
      const std::string bytes = random.characters();
      const Text text(bytes);
      const unsigned start = random.position(bytes.size());
      check(bytes, text, start);
    }
  }

  /// A member test: of the classes of characters, or of single bytes of the text.
  rules::Test someTest(const std::string& bytes)
  {
    const std::string members = random.textLike(bytes, 4);
    switch (random.below(6)) {
    case 0:
      return isspace;
    case 1:
      return isalpha;
    case 2:
      return [](int byte) { return byte < 0; };
    case 3:
      return [](int byte) { return byte >= 0; };
    default:
      return [members](int byte) { return members.find(static_cast<char>(byte)) != std::string::npos; };
    }
  }

  CharacterTexts random;
};

constexpr int rounds = 6000;

TEST_F(MultiByteSearchHere, Starts)
{
  onManyTexts(rounds, [&](const std::string& bytes, const Text& text, unsigned start) {
    const unsigned length = random.onceIn(3) ? 1 : random.position(bytes.size());
    EXPECT_EQ(text.startSearch(start, length), rules::startSearch(bytes, start, length))
      << shown(bytes) << ", " << start << ", " << length;
    EXPECT_EQ(text.startBackwardsSearch(start, length), rules::startBackwardsSearch(bytes, start, length))
      << shown(bytes) << ", " << start << ", " << length;
  });
}

TEST_F(MultiByteSearchHere, Texts)
{
  onManyTexts(rounds, [&](const std::string& bytes, const Text& text, unsigned start) {
    const std::string needle = random.needle(bytes);
    const ExactBytes sought(needle);
    EXPECT_EQ(text->indexOf(sought.get(), sought.length(), start), rules::indexOf(bytes, needle, start))
      << shown(bytes) << ", " << shown(needle) << " from " << start;
    EXPECT_EQ(text->lastIndexOf(sought.get(), sought.length(), start), rules::lastIndexOf(bytes, needle, start))
      << shown(bytes) << ", " << shown(needle) << " from " << start;
  });
}

TEST_F(MultiByteSearchHere, MembersOfSets)
{
  onManyTexts(rounds, [&](const std::string& bytes, const Text& text, unsigned start) {
    const std::string set = random.setFor(bytes);
    const ExactBytes exact(set);
    EXPECT_EQ(text->indexOfAnyOf(exact.get(), exact.length(), start), rules::indexOfAnyOf(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
    EXPECT_EQ(text->lastIndexOfAnyOf(exact.get(), exact.length(), start), rules::lastIndexOfAnyOf(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
  });
}

TEST_F(MultiByteSearchHere, OthersThanMembersOfSets)
{
  onManyTexts(rounds, [&](const std::string& bytes, const Text& text, unsigned start) {
    const std::string set = random.setFor(bytes);
    const ExactBytes exact(set);
    EXPECT_EQ(text->indexOfAnyBut(exact.get(), exact.length(), start), rules::indexOfAnyBut(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
    EXPECT_EQ(text->lastIndexOfAnyBut(exact.get(), exact.length(), start), rules::lastIndexOfAnyBut(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
  });
}

TEST_F(MultiByteSearchHere, LongSets)
{
  onManyTexts(500, [&](const std::string& bytes, const Text& text, unsigned start) {
    std::string set;
    for (const unsigned length = random.below(600); set.size() < length;)
      set += random.setFor(bytes);
    const ExactBytes exact(set);
    EXPECT_EQ(text->indexOfAnyOf(exact.get(), exact.length(), start), rules::indexOfAnyOf(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
    EXPECT_EQ(text->indexOfAnyBut(exact.get(), exact.length(), start), rules::indexOfAnyBut(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
    EXPECT_EQ(text->lastIndexOfAnyOf(exact.get(), exact.length(), start), rules::lastIndexOfAnyOf(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
    EXPECT_EQ(text->lastIndexOfAnyBut(exact.get(), exact.length(), start), rules::lastIndexOfAnyBut(bytes, set, start))
      << shown(bytes) << ", " << shown(set) << " from " << start;
  });
}

TEST_F(MultiByteSearchHere, SetsOfOneByteOfEveryValue)
{
  onManyTexts(300, [&](const std::string& bytes, const Text& text, unsigned start) {
    for (unsigned value = 0; value < 256; ++value) {
      const std::string set(1, static_cast<char>(value));
      const ExactBytes exact(set);
      EXPECT_EQ(text->indexOfAnyOf(exact.get(), 1, start), rules::indexOfAnyOf(bytes, set, start))
        << shown(bytes) << ", " << shown(set) << " from " << start;
      EXPECT_EQ(text->indexOfAnyBut(exact.get(), 1, start), rules::indexOfAnyBut(bytes, set, start))
        << shown(bytes) << ", " << shown(set) << " from " << start;
      EXPECT_EQ(text->lastIndexOfAnyOf(exact.get(), 1, start), rules::lastIndexOfAnyOf(bytes, set, start))
        << shown(bytes) << ", " << shown(set) << " from " << start;
      EXPECT_EQ(text->lastIndexOfAnyBut(exact.get(), 1, start), rules::lastIndexOfAnyBut(bytes, set, start))
        << shown(bytes) << ", " << shown(set) << " from " << start;
    }
  });
}

TEST_F(MultiByteSearchHere, WhatIsSoughtMayBeAPieceOfTheTextItself)
{
  onManyTexts(rounds, [&](const std::string& bytes, const Text& text, unsigned start) {
    const unsigned first = random.below(static_cast<unsigned>(bytes.size()) + 1);
    const std::string piece = bytes.substr(first, random.below(6));
    const char* const p = text->contents() + first;
    const unsigned count = static_cast<unsigned>(piece.size());
    EXPECT_EQ(text->indexOf(p, count, start), rules::indexOf(bytes, piece, start))
      << shown(bytes) << ", " << first << ", " << count;
    EXPECT_EQ(text->lastIndexOf(p, count, start), rules::lastIndexOf(bytes, piece, start))
      << shown(bytes) << ", " << first << ", " << count;
    EXPECT_EQ(text->indexOfAnyOf(p, count, start), rules::indexOfAnyOf(bytes, piece, start))
      << shown(bytes) << ", " << first << ", " << count;
    EXPECT_EQ(text->indexOfAnyBut(p, count, start), rules::indexOfAnyBut(bytes, piece, start))
      << shown(bytes) << ", " << first << ", " << count;
    EXPECT_EQ(text->lastIndexOfAnyOf(p, count, start), rules::lastIndexOfAnyOf(bytes, piece, start))
      << shown(bytes) << ", " << first << ", " << count;
    EXPECT_EQ(text->lastIndexOfAnyBut(p, count, start), rules::lastIndexOfAnyBut(bytes, piece, start))
      << shown(bytes) << ", " << first << ", " << count;
  });
}

TEST_F(MultiByteSearchHere, Tests)
{
  onManyTexts(rounds, [&](const std::string& bytes, const Text& text, unsigned start) {
    const rules::Test question = someTest(bytes);
    const Asks test(question);
    EXPECT_EQ(text->indexOf(test, start), rules::indexOf(bytes, question, start)) << shown(bytes) << " from " << start;
    EXPECT_EQ(text->indexOfAnyOf(test, start), rules::indexOfAnyOf(bytes, question, start))
      << shown(bytes) << " from " << start;
    EXPECT_EQ(text->indexOfAnyBut(test, start), rules::indexOfAnyBut(bytes, question, start))
      << shown(bytes) << " from " << start;
    EXPECT_EQ(text->lastIndexOf(test, start), rules::lastIndexOf(bytes, question, start))
      << shown(bytes) << " from " << start;
    EXPECT_EQ(text->lastIndexOfAnyOf(test, start), rules::lastIndexOfAnyOf(bytes, question, start))
      << shown(bytes) << " from " << start;
    EXPECT_EQ(text->lastIndexOfAnyBut(test, start), rules::lastIndexOfAnyBut(bytes, question, start))
      << shown(bytes) << " from " << start;
  });
}

TEST_F(MultiByteSearchHere, LongTexts)
{
  // Long enough for whatever is done in blocks, and for characters that lie across their bounds.
  for (int round = 0; round < 60 && !HasFailure(); ++round) {
    const std::string bytes = random.characters(400);
    const Text text(bytes);
    const std::string needle = random.needle(bytes);
    const std::string set = random.setFor(bytes);
    const unsigned needleLength = static_cast<unsigned>(needle.size());
    const unsigned setLength = static_cast<unsigned>(set.size());
    for (unsigned start = 0; start <= bytes.size() + 1; start += 1 + random.below(40)) {
      EXPECT_EQ(text->indexOf(needle.data(), needleLength, start), rules::indexOf(bytes, needle, start))
        << shown(bytes) << shown(needle);
      EXPECT_EQ(text->lastIndexOf(needle.data(), needleLength, start), rules::lastIndexOf(bytes, needle, start))
        << shown(bytes) << shown(needle);
      EXPECT_EQ(text->indexOfAnyOf(set.data(), setLength, start), rules::indexOfAnyOf(bytes, set, start))
        << shown(bytes) << shown(set);
      EXPECT_EQ(text->indexOfAnyBut(set.data(), setLength, start), rules::indexOfAnyBut(bytes, set, start))
        << shown(bytes) << shown(set);
      EXPECT_EQ(text->lastIndexOfAnyOf(set.data(), setLength, start), rules::lastIndexOfAnyOf(bytes, set, start))
        << shown(bytes) << shown(set);
      EXPECT_EQ(text->lastIndexOfAnyBut(set.data(), setLength, start), rules::lastIndexOfAnyBut(bytes, set, start))
        << shown(bytes) << shown(set);
    }
  }
}

}  // namespace
