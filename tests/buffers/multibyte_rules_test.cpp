// multibyte_rules_test.cpp - IDBCSBuffer: where characters begin and end, and of what a text consists.
#include "multibyte_probe.hpp"
#include "support/character_texts.hpp"
#include "support/expect_text.hpp"
#include "support/multibyte_reference.hpp"

#include <quelmcl/idbcsb.hpp>

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

using namespace buffertests;
using quelmcl_test::Alphabet;
using quelmcl_test::CharacterTexts;
using quelmcl_test::ExactBytes;
using quelmcl_test::LocaleInForce;
using quelmcl_test::testLocales;

namespace rules = reference::multibyte;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// What the tests stand on: the texts of each locale are what they are taken for

TEST(Alphabets, HaveCharactersOfTheLengthsThatTheyAreListedUnder)
{
  for (const char* const name : testLocales) {
    const LocaleInForce locale(name);
    for (const std::string& character : Alphabet::current().oneByte)
      EXPECT_EQ(rules::charLength(character, 1), 1u) << name << ' ' << shown(character);
    for (const std::string& character : Alphabet::current().longCharacters) {
      EXPECT_GT(character.size(), 1u) << name << ' ' << shown(character);
      EXPECT_EQ(std::mblen(character.c_str(), 16), static_cast<int>(character.size()))
        << name << ' ' << shown(character);
    }
    for (const std::string& piece : Alphabet::current().broken)
      EXPECT_EQ(rules::charLength(piece, 1), 1u) << name << ' ' << shown(piece);
    EXPECT_EQ(MB_CUR_MAX > 1, !Alphabet::current().longCharacters.empty()) << name;
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// One character, in UTF-8

class MultiByteRules : public testing::Test {
  LocaleInForce locale{"C.UTF-8"};

protected:
  const Text aAndE{"a\xC3\xA9"};  // a one-byte character and a two-byte one
};

TEST_F(MultiByteRules, CharTypeCountsTheBytesOfALongCharacterAndIsZeroForAShortOne)
{
  EXPECT_EQ(aAndE->charType(1), 0);
  EXPECT_EQ(aAndE->charType(2), 1);
  EXPECT_EQ(aAndE->charType(3), 2);
}

TEST_F(MultiByteRules, CharTypeOfPositionZeroIsZero)
{
  EXPECT_EQ(aAndE->charType(0), 0);
  const Text longFirst("\xC3\xA9");
  EXPECT_EQ(longFirst->charType(0), 0);
}

TEST_F(MultiByteRules, CharTypeGoesUpToTheLengthOfTheLongestCharacter)
{
  const Text text("\xFC\x84\x80\x80\x80\x80");
  for (unsigned pos = 1; pos <= 6; ++pos)
    EXPECT_EQ(static_cast<unsigned>(text->charType(pos)), pos);
}

TEST_F(MultiByteRules, PrevCharLengthIsThatOfTheCharacterThatEndsBefore)
{
  EXPECT_EQ(aAndE.prevCharLength(4), 2u);
  EXPECT_EQ(aAndE.prevCharLength(2), 1u);
  EXPECT_EQ(aAndE.prevCharLength(1), 1u);
}

TEST_F(MultiByteRules, TheNextCharacterBeginsBehindThisOne)
{
  const char* const text = aAndE->contents();
  const IDBCSBuffer& constant = *aAndE.get();
  EXPECT_EQ(aAndE->next(text), text + 1);
  EXPECT_EQ(aAndE->next(text + 1), text + 3);
  EXPECT_EQ(constant.next(text), text + 1);
  EXPECT_EQ(constant.next(text + 1), text + 3);
}

TEST_F(MultiByteRules, IsSBCTellsWhetherACharacterHasOneByte)
{
  EXPECT_EQ(IDBCSBuffer::isSBC("a\xC3\xA9"), 1);
  EXPECT_EQ(IDBCSBuffer::isSBC("\xC3\xA9"), 0);
  EXPECT_EQ(IDBCSBuffer::isSBC("\xC3"), 1);
  EXPECT_EQ(IDBCSBuffer::isSBC(""), 1);
}

struct BrokenCase {
  const char* name;
  std::string text;
};

const BrokenCase brokenCases[] = {
  {"a stray trail byte", "\xA9"},
  {"a truncated character of two bytes", "\xC3"},
  {"a truncated character of three bytes", "\xE2\x82"},
  {"a truncated character of four bytes", "\xF0\x9F\x98"},
  {"a lead byte before a letter",
   "\xC3"
   "a"},
  {"more bytes than need be", "\xC0\xAF"},
  {"a surrogate", "\xED\xA0\x80"},
  {"a byte of no character", "\xFF"},
  {"a character cut off by a NUL", bytes("\xE2\x82\0\xAC")},
};

TEST_F(MultiByteRules, BrokenTextConsistsOfCharactersOfOneByte)
{
  for (const BrokenCase& row : brokenCases) {
    const Text text(row.text);
    for (unsigned pos = 1; pos <= text->length(); ++pos) {
      EXPECT_EQ(IDBCSBuffer::charLength(text->contents() + (pos - 1)), 1u) << row.name << ", position " << pos;
      EXPECT_EQ(text.charLength(pos), 1u) << row.name << ", position " << pos;
      EXPECT_EQ(text->charType(pos), 0) << row.name << ", position " << pos;
      EXPECT_EQ(text.prevCharLength(pos + 1), 1u) << row.name << ", position " << pos;
    }
    EXPECT_EQ(text->isSBCS(), 1) << row.name;
  }
}

TEST_F(MultiByteRules, ANulIsACharacterOfOneByte)
{
  const Text text(bytes("\0\xC3\xA9\0"));
  EXPECT_EQ(IDBCSBuffer::charLength(""), 1u);
  EXPECT_EQ(text.charLength(1), 1u);
  EXPECT_EQ(text->charType(1), 0);
  EXPECT_EQ(text->charType(2), 1);
  EXPECT_EQ(text->charType(3), 2);
  EXPECT_EQ(text->charType(4), 0);
}

TEST_F(MultiByteRules, MaxCharLengthIsThatOfTheLocale)
{
  EXPECT_EQ(IDBCSBuffer::maxCharLength(), MB_CUR_MAX);
  const LocaleInForce plain("C");
  EXPECT_EQ(IDBCSBuffer::maxCharLength(), 1u);
}

TEST_F(MultiByteRules, ASetIsAListOfWholeCharacters)
{
  const std::string xAndE = "x\xC3\xA9";
  EXPECT_EQ(aAndE.isCharValid(2, xAndE.data(), 3), 1) << "the long character at its first byte";
  EXPECT_EQ(aAndE.isCharValid(3, xAndE.data(), 3), 0) << "not at its second byte";
  EXPECT_EQ(aAndE.isCharValid(1, xAndE.data(), 3), 0);
  EXPECT_EQ(aAndE.isCharValid(1, "xa", 2), 1);
}

TEST_F(MultiByteRules, ASetShorterThanTheCharacterDoesNotHaveIt)
{
  EXPECT_EQ(aAndE.isCharValid(2, "\xC3\xA9", 1), 0);
  EXPECT_EQ(aAndE.isCharValid(2, "\xC3\xA9", 0), 0);
  EXPECT_EQ(aAndE.isCharValid(2, "\xC3\xA9", 2), 1);
}

TEST_F(MultiByteRules, ACharacterCutOffAtTheEndOfASetIsSoManyOfOneByte)
{
  const Text stray("\xC3z");  // a lead byte without its second byte
  EXPECT_EQ(stray.isCharValid(1, "x\xC3\xA9", 2), 1) << "the lead byte alone is listed";
  EXPECT_EQ(stray.isCharValid(1, "x\xC3\xA9", 3), 0) << "the whole character is listed, the lead byte is not";
  EXPECT_EQ(aAndE.isCharValid(2, "xx\xC3\xA9", 3), 0) << "the second byte is not looked at";
}

// ---------------------------------------------------------------------------------------------------------------------
// All characters

struct CompositionCase {
  const char* name;
  std::string text;
  int isSBCS, isMBCS, isValidMBCS, includesMBCS, includesSBCS;
};

const CompositionCase compositionCases[] = {
  {"empty: all of one byte and of several", "", 1, 1, 1, 0, 0},
  {"short characters only", "abc", 1, 0, 0, 0, 1},
  {"a mixed text", "a\xC3\xA9", 0, 0, 0, 1, 1},
  {"a mixed text that ends short",
   "\xC3\xA9"
   "a",
   0, 0, 0, 1, 1},
  {"long characters only", "\xC3\xA9\xE2\x82\xAC", 0, 1, 1, 1, 0},
  {"broken characters are short", "\xC3\xC3\xE2\x82", 1, 0, 0, 0, 1},
  {"a NUL is short", bytes("\xC3\xA9\0\xC3\xA9"), 0, 0, 0, 1, 1},
};

TEST_F(MultiByteRules, TheSetPredicatesLookAtEveryCharacter)
{
  for (const CompositionCase& row : compositionCases) {
    const Text text(row.text);
    EXPECT_EQ(text->isSBCS(), row.isSBCS) << row.name;
    EXPECT_EQ(text->isMBCS(), row.isMBCS) << row.name;
    EXPECT_EQ(text->isDBCS(), row.isMBCS) << row.name;
    EXPECT_EQ(text->isValidMBCS(), row.isValidMBCS) << row.name;
    EXPECT_EQ(text->isValidDBCS(), row.isValidMBCS) << row.name;
    EXPECT_EQ(text->includesMBCS(), row.includesMBCS) << row.name;
    EXPECT_EQ(text->includesDBCS(), row.includesMBCS) << row.name;
    EXPECT_EQ(text->includesSBCS(), row.includesSBCS) << row.name;
  }
}

TEST_F(MultiByteRules, TheSetPredicatesAskEachOtherVirtually)
{
  // Answers that no text could give show who is asked.
  class Contrary : public IDBCSBuffer {
  public:
    Contrary() noexcept : IDBCSBuffer(0) {}
    int isMBCS() const override { return 0; }
    int isSBCS() const override { return 0; }
    int isValidMBCS() const override { return 0; }
  };
  const Held empty(new (0) Contrary);
  EXPECT_EQ(empty->isDBCS(), 0);
  EXPECT_EQ(empty->isValidDBCS(), 0);
  EXPECT_EQ(empty->includesMBCS(), 1);
  EXPECT_EQ(empty->includesDBCS(), 1);
  EXPECT_EQ(empty->includesSBCS(), 1);
}

TEST_F(MultiByteRules, EveryClassIsDeniedToTheEmptyText)
{
  const Text empty("");
  EXPECT_EQ(empty->isAlphanumeric(), 0);
  EXPECT_EQ(empty->isAlphabetic(), 0);
  EXPECT_EQ(empty->isASCII(), 0);
  EXPECT_EQ(empty->isControl(), 0);
  EXPECT_EQ(empty->isDigits(), 0);
  EXPECT_EQ(empty->isGraphics(), 0);
  EXPECT_EQ(empty->isHexDigits(), 0);
  EXPECT_EQ(empty->isLowerCase(), 0);
  EXPECT_EQ(empty->isPrintable(), 0);
  EXPECT_EQ(empty->isPunctuation(), 0);
  EXPECT_EQ(empty->isUpperCase(), 0);
  EXPECT_EQ(empty->isWhiteSpace(), 0);
}

TEST_F(MultiByteRules, ClassesAreThoseOfTheFirstBytesOfCharacters)
{
  const Text plain("abc1");
  EXPECT_EQ(plain->isAlphabetic(), 0);
  EXPECT_EQ(plain->isAlphanumeric(), 1);
  EXPECT_EQ(plain->isASCII(), 1);
  EXPECT_EQ(aAndE->isASCII(), 0);
  EXPECT_EQ(aAndE->isAlphabetic(), 0);
}

// ---------------------------------------------------------------------------------------------------------------------
// In the locale of this run

/// What the rule says of the bytes at `p`, from the C library itself.
unsigned lengthByTheLibrary(const char* p)
{
  if (*p == '\0')
    return 1;
  const int answer = std::mblen(p, 16);
  return answer <= 0 ? 1 : static_cast<unsigned>(answer);
}

TEST(MultiByteRulesHere, CharLengthIsWhatTheCLibrarySaysForAllPairsOfBytes)
{
  char text[17] = {};
  for (unsigned first = 0; first < 256; ++first)
    for (unsigned second = 0; second < 256; ++second) {
      text[0] = static_cast<char>(first);
      text[1] = static_cast<char>(second);
      ASSERT_EQ(IDBCSBuffer::charLength(text), lengthByTheLibrary(text)) << shown(std::string(text, 2));
    }
}

TEST(MultiByteRulesHere, CharLengthIsWhatTheCLibrarySaysForAnyBytesAndWhateverFollowsThem)
{
  CharacterTexts random;
  for (int round = 0; round < 20000; ++round) {
    std::string text = random.characters(24);
    for (unsigned left = random.below(4); left > 0; --left)
      text += static_cast<char>(random.below(256));
    ASSERT_EQ(IDBCSBuffer::charLength(text.c_str()), lengthByTheLibrary(text.c_str())) << shown(text);
  }
}

template <class Check>
void onManyTexts(int rounds, Check check)
{
  CharacterTexts random;
  for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
    const std::string bytes = random.characters();
    const Text text(bytes);
    check(random, bytes, text);
  }
}

TEST(MultiByteRulesHere, PositionsAreWhatTheReferenceSays)
{
  onManyTexts(3000, [](CharacterTexts&, const std::string& bytes, const Text& text) {
    EXPECT_EQ(text->charType(0), 0) << shown(bytes);
    for (unsigned pos = 1; pos <= bytes.size() + 1; ++pos) {
      EXPECT_EQ(text.charLength(pos), rules::charLength(bytes, pos)) << shown(bytes) << " at " << pos;
      EXPECT_EQ(static_cast<unsigned>(text->charType(pos)), rules::charType(bytes, pos))
        << shown(bytes) << " at " << pos;
      EXPECT_EQ(text.prevCharLength(pos), rules::prevCharLength(bytes, pos)) << shown(bytes) << " at " << pos;
      const char* const p = text->contents() + (pos - 1);
      EXPECT_EQ(text->next(p), p + rules::charLength(bytes, pos)) << shown(bytes) << " at " << pos;
      EXPECT_EQ(IDBCSBuffer::isSBC(p), rules::charLength(bytes, pos) == 1 ? 1 : 0) << shown(bytes) << " at " << pos;
    }
  });
}

TEST(MultiByteRulesHere, MembersOfSetsAreWhatTheReferenceSays)
{
  onManyTexts(5000, [](CharacterTexts& random, const std::string& bytes, const Text& text) {
    const std::string set = random.setFor(bytes);
    const ExactBytes exact(set);
    for (unsigned pos = 1; pos <= bytes.size(); ++pos)
      EXPECT_EQ(text.isCharValid(pos, exact.get(), exact.length()), rules::isCharValid(bytes, pos, set) ? 1 : 0)
        << shown(bytes) << " at " << pos << ", set " << shown(set);
  });
}

TEST(MultiByteRulesHere, MembersOfASetWithinTheTextItselfAreWhatTheReferenceSays)
{
  onManyTexts(5000, [](CharacterTexts& random, const std::string& bytes, const Text& text) {
    const unsigned first = random.below(static_cast<unsigned>(bytes.size()) + 1);
    const std::string set = bytes.substr(first, random.below(6));
    for (unsigned pos = 1; pos <= bytes.size(); ++pos)
      EXPECT_EQ(text.isCharValid(pos, text->contents() + first, static_cast<unsigned>(set.size())),
                rules::isCharValid(bytes, pos, set) ? 1 : 0)
        << shown(bytes) << " at " << pos << ", set " << shown(set);
  });
}

TEST(MultiByteRulesHere, PredicatesAreWhatTheReferenceSays)
{
  onManyTexts(5000, [](CharacterTexts&, const std::string& bytes, const Text& text) {
    EXPECT_EQ(text->isSBCS(), rules::isSBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->isMBCS(), rules::isMBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->isDBCS(), rules::isMBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->isValidMBCS(), rules::isValidMBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->isValidDBCS(), rules::isValidMBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->includesMBCS(), !rules::isSBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->includesDBCS(), !rules::isSBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->includesSBCS(), !rules::isMBCS(bytes)) << shown(bytes);
    EXPECT_EQ(text->isASCII(), rules::isASCII(bytes)) << shown(bytes);
    EXPECT_EQ(text->isAlphanumeric(), rules::isAll(bytes, isalnum)) << shown(bytes);
    EXPECT_EQ(text->isAlphabetic(), rules::isAll(bytes, isalpha)) << shown(bytes);
    EXPECT_EQ(text->isControl(), rules::isAll(bytes, iscntrl)) << shown(bytes);
    EXPECT_EQ(text->isDigits(), rules::isAll(bytes, isdigit)) << shown(bytes);
    EXPECT_EQ(text->isGraphics(), rules::isAll(bytes, isgraph)) << shown(bytes);
    EXPECT_EQ(text->isHexDigits(), rules::isAll(bytes, isxdigit)) << shown(bytes);
    EXPECT_EQ(text->isLowerCase(), rules::isAll(bytes, islower)) << shown(bytes);
    EXPECT_EQ(text->isPrintable(), rules::isAll(bytes, isprint)) << shown(bytes);
    EXPECT_EQ(text->isPunctuation(), rules::isAll(bytes, ispunct)) << shown(bytes);
    EXPECT_EQ(text->isUpperCase(), rules::isAll(bytes, isupper)) << shown(bytes);
    EXPECT_EQ(text->isWhiteSpace(), rules::isAll(bytes, isspace)) << shown(bytes);
  });
}

TEST(MultiByteRulesHere, NoQuestionChangesTheText)
{
  onManyTexts(500, [](CharacterTexts& random, const std::string& bytes, const Text& text) {
    const std::string set = random.setFor(bytes);
    for (unsigned pos = 1; pos <= bytes.size(); ++pos) {
      text->charType(pos);
      text.isCharValid(pos, set.data(), static_cast<unsigned>(set.size()));
    }
    text->isMBCS();
    text->isSBCS();
    text->isValidMBCS();
    EXPECT_TEXT(text.get(), bytes, 1);
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// When the locale changes

TEST(MultiByteRulesAcrossLocales, TheLocaleInForceCountsAndNotTheOneBefore)
{
  // In every locale, texts of every locale: what one of them takes for broken is sound in another.
  std::vector<std::string> texts;
  for (const char* const name : testLocales) {
    const LocaleInForce locale(name);
    CharacterTexts random;
    for (int i = 0; i < 40; ++i)
      texts.push_back(random.characters());
  }
  for (int again = 0; again < 2; ++again)
    for (const std::string& bytes : texts) {
      const Text text(bytes);
      for (const char* const name : testLocales) {
        const LocaleInForce locale(name);
        for (unsigned pos = 1; pos <= bytes.size(); ++pos)
          ASSERT_EQ(static_cast<unsigned>(text->charType(pos)), rules::charType(bytes, pos))
            << name << ' ' << shown(bytes);
        ASSERT_EQ(text->isSBCS(), rules::isSBCS(bytes)) << name << ' ' << shown(bytes);
        ASSERT_EQ(text->isMBCS(), rules::isMBCS(bytes)) << name << ' ' << shown(bytes);
      }
    }
}

// ---------------------------------------------------------------------------------------------------------------------
// The single-byte kind does not look

TEST(SingleByteRules, OfWhatATextConsistsIsAnsweredWithoutLooking)
{
  class Single : public IBuffer {
  public:
    explicit Single(unsigned length) noexcept : IBuffer(length) {}
  };
  const LocaleInForce locale("C.UTF-8");
  for (const std::string& bytes :
       {std::string(), std::string("abc"), std::string("a\xC3\xA9"), std::string("\xC3\xA9")}) {
    const unsigned length = static_cast<unsigned>(bytes.size());
    const Held text(new (length) Single(length));
    bytes.copy(text->contents(), length);
    EXPECT_EQ(text->isSBCS(), 1);
    EXPECT_EQ(text->includesSBCS(), 1);
    EXPECT_EQ(text->isValidMBCS(), 1);
    EXPECT_EQ(text->isValidDBCS(), 1);
    EXPECT_EQ(text->isMBCS(), 0);
    EXPECT_EQ(text->isDBCS(), 0);
    EXPECT_EQ(text->includesMBCS(), 0);
    EXPECT_EQ(text->includesDBCS(), 0);
    for (unsigned pos = 1; pos <= length; ++pos)
      EXPECT_EQ(text->charType(pos), 0);
    EXPECT_EQ(text->next(text->contents()), text->contents()) << "deliberately no step at all";
  }
}

}  // namespace
