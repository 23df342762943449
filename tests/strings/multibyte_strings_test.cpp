// multibyte_strings_test.cpp - strings whose characters have several bytes: the kind chosen for the process, words,
// substrings, counts and zero-based strings. What each operation of a buffer does is told in the tests of buffers.
#include "exceptions/hooks.hpp"
#include "string_probe.hpp"
#include "support/character_texts.hpp"
#include "support/expect_text.hpp"
#include "support/fresh_process.hpp"
#include "support/multibyte_reference.hpp"

#include <quelmcl/i0string.hpp>
#include <quelmcl/idbcsb.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/istrword.hpp>

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdio>
#include <optional>
#include <string>

using namespace stringtests;
using quelmcl_test::CharacterTexts;
using quelmcl_test::LocaleInForce;
using quelmcl_test::testLocales;

namespace rules = reference::multibyte;

namespace {

/// For messages. (The standard library has a function `quoted` for strings, which would be chosen for those that are
/// not constant.)
std::string shown(const std::string& text)
{
  return quelmcl_test::quoted(text);
}

std::string kindOf(const IString& text)
{
  return bufferOf(text)->className();
}

// ---------------------------------------------------------------------------------------------------------------------
// The kind of buffer

void say(const std::string& words)
{
  std::fprintf(stderr, "%s;", words.c_str());
}

void useLocale(const char* name)
{
  if (std::setlocale(LC_ALL, name) == nullptr)
    say(std::string("no locale ") + name);
}

void makeStringsFirstInUtf8ThenInTheCLocale()
{
  useLocale("C.UTF-8");
  const IString first("a\xC3\xA9");
  const IString empty;
  say(kindOf(first) + ' ' + kindOf(empty));
  useLocale("C");
  const IString later("a\xC3\xA9");
  const IString laterEmpty;
  const IString sum = first + later;
  say(kindOf(later) + ' ' + kindOf(laterEmpty) + ' ' + kindOf(sum));
  say(bufferOf(empty) == bufferOf(laterEmpty) ? "one null buffer" : "two null buffers");
}

TEST(KindOfStringsDeathTest, IsThatOfTheLocaleOfTheFirstStringWhenThatIsMultiByte)
{
  EXPECT_FRESH_PROCESS_WRITES("IDBCSBuffer IDBCSBuffer;IDBCSBuffer IDBCSBuffer IDBCSBuffer;one null buffer;",
                              makeStringsFirstInUtf8ThenInTheCLocale());
}

void makeStringsFirstInTheCLocaleThenInUtf8()
{
  useLocale("C");
  const IString first("a\xC3\xA9");
  const IString empty;
  say(kindOf(first) + ' ' + kindOf(empty));
  useLocale("C.UTF-8");
  // The null buffer stays what it is, but it asks the locale each time it allocates.
  const IString later("a\xC3\xA9");
  const IString laterEmpty;
  say(kindOf(later) + ' ' + kindOf(laterEmpty));
  say(kindOf(first) + ' ' + (first == later ? "equal" : "different"));
  IString shared(first);
  shared.reverse();
  say(kindOf(shared));
}

TEST(KindOfStringsDeathTest, OfASingleByteStartFollowsTheLocaleInForceForTextsButNotForTheEmptyOne)
{
  EXPECT_FRESH_PROCESS_WRITES("IBuffer IBuffer;IDBCSBuffer IBuffer;IBuffer equal;IDBCSBuffer;",
                              makeStringsFirstInTheCLocaleThenInUtf8());
}

void reverseBothKindsInBothLocales()
{
  useLocale("C");
  IString single("a\xC3\xA9");
  useLocale("C.UTF-8");
  IString multi("a\xC3\xA9");
  say(bytesOf(IString::reverse(single)) ==
          "\xA9\xC3"
          "a"
        ? "single by bytes"
        : "wrong");
  say(bytesOf(IString::reverse(multi)) ==
          "\xC3\xA9"
          "a"
        ? "multi by characters"
        : "wrong");
  say(bytesOf(single.subString(3, 1)) == "\xA9" ? "single by bytes" : "wrong");
  say(bytesOf(multi.subString(3, 1)) == " " ? "multi by characters" : "wrong");
  useLocale("C");
  say(bytesOf(IString::reverse(single)) ==
          "\xA9\xC3"
          "a"
        ? "single by bytes"
        : "wrong");
  say(bytesOf(IString::reverse(multi)) ==
          "\xA9\xC3"
          "a"
        ? "multi by characters of one byte"
        : "wrong");
}

TEST(KindOfStringsDeathTest, BothKindsLiveSideBySideAndTheLocaleInForceCounts)
{
  EXPECT_FRESH_PROCESS_WRITES(
    "single by bytes;multi by characters;single by bytes;multi by characters;single by bytes;"
    "multi by characters of one byte;",
    reverseBothKindsInBothLocales());
}

// ---------------------------------------------------------------------------------------------------------------------
// By name, in UTF-8: every text made under such a locale is held in a multi-byte buffer, whatever the process started
// with

class MultiByteStrings : public testing::Test {
  LocaleInForce locale{"C.UTF-8"};

protected:
  const IString aEb{
    "a\xC3\xA9"
    "b"};
};

TEST_F(MultiByteStrings, KeepCharactersWhole)
{
  EXPECT_TEXT(IString::reverse(aEb),
              "b\xC3\xA9"
              "a");
  EXPECT_TEXT(IString::leftJustify(aEb, 2, '*'), "a*");
  EXPECT_TEXT(IString::rightJustify(aEb, 2, '*'), "*b");
  EXPECT_TEXT(IString::insert(aEb, "X", 2),
              "aX\xC3\xA9"
              "b");
  EXPECT_TEXT(IString::overlayWith(aEb, "X", 3), "a Xb");
  EXPECT_TEXT(IString::remove(aEb, 3, 1), "a b");
  EXPECT_TEXT(IString::center("\xE2\x82\xAC"
                              "abc",
                              3, '*'),
              "\xE2\x82\xAC");
  EXPECT_TEXT(IString::upperCase(aEb),
              "A\xC3\xA9"
              "B");
}

TEST_F(MultiByteStrings, RemovingNothingLeavesTheTextAlone)
{
  EXPECT_TEXT(IString::remove(aEb, 3, 0),
              "a\xC3\xA9"
              "b");  // although the buffer would cut the character
}

TEST_F(MultiByteStrings, SubStringsFillWhatIsLeftOfACharacter)
{
  EXPECT_TEXT(aEb.subString(3, 2, '*'), "*b");
  EXPECT_TEXT(aEb.subString(1, 2, '*'), "a*");
  EXPECT_TEXT(aEb.subString(3), " b");
  EXPECT_TEXT(aEb.subString(2),
              "\xC3\xA9"
              "b");
  EXPECT_TEXT(aEb.subString(0),
              "a\xC3\xA9"
              "b ");
}

TEST_F(MultiByteStrings, AreReadAndWrittenByteByByte)
{
  EXPECT_EQ(aEb[2u], '\xC3');
  IString changed(aEb);
  changed[3u] = '\xA8';
  EXPECT_TEXT(changed,
              "a\xC3\xA8"
              "b");
  EXPECT_EQ(aEb.length(), 4u);
  EXPECT_EQ(aEb.charType(3), 2);
}

TEST_F(MultiByteStrings, WhiteSpaceInsideOfACharacterWouldBeNone)
{
  // No byte of a long character is white space in any set here; what is, is not after a lead byte either.
  const IString text("\xC3 \xC3\xA9 \xE2\x82 x");
  EXPECT_EQ(text.numWords(), 4u);
  EXPECT_TEXT(text.word(1), "\xC3");
  EXPECT_TEXT(text.word(2), "\xC3\xA9");
  EXPECT_TEXT(text.word(3), "\xE2\x82");
}

TEST_F(MultiByteStrings, CountsDoNotSeeInsideOfCharacters)
{
  EXPECT_EQ(IString("\xC3\xA9\xA9\xC3\xA9").occurrencesOf("\xA9"), 1u);
  EXPECT_EQ(IString("\xC3\xA9\xC3\xA8").occurrencesOf('\xC3'), 2u) << "characters that begin with the byte";
}

TEST_F(MultiByteStrings, ATestThatPassesInsideACharacterCountsItOnce)
{
  // The search for a test sees every byte, but the next one begins with the next character.
  EXPECT_EQ(IString("\xE2\x82\xAC"
                    "a")
              .occurrencesOf(IStringTest([](int byte) { return byte < 0 ? 1 : 0; })),
            1u);
}

TEST_F(MultiByteStrings, ATranslationThatMakesTheTextShorterFailsAndLeavesItAlone)
{
  CountingHook quiet;
  const InstalledHook installed(quiet);
  IString text(aEb);
  EXPECT_EQ(errorIdOf([&] { text.translate("\xC3\xA9", "e"); }), tooLong);
  EXPECT_TEXT(text,
              "a\xC3\xA9"
              "b");
  EXPECT_TRUE(shareText(text, aEb));
}

TEST_F(MultiByteStrings, OfShiftJisKeepBackslashesInsideOfCharacters)
{
  const LocaleInForce shiftJis("ja_JP.SJIS");
  const IString path("C:\\\x83\x5C\\\x95\x5C");  // a drive, SO, and HYOU: four backslash bytes, two backslashes
  EXPECT_EQ(path.occurrencesOf('\\'), 2u);
  EXPECT_EQ(path.lastIndexOf('\\'), 6u);
  EXPECT_TEXT(IString::change(path, "\\", "/"), "C:/\x83\x5C/\x95\x5C");
  EXPECT_TEXT(path.subString(path.lastIndexOf('\\') + 1), "\x95\x5C");
}

TEST_F(MultiByteStrings, ZeroBasedPositionsMeanTheSameBytes)
{
  const I0String text(aEb);
  EXPECT_EQ(text.charType(0), 0);
  EXPECT_EQ(text.charType(1), 1);
  EXPECT_EQ(text.charType(2), 2);
  EXPECT_EQ(text.indexOf("\xC3\xA9"), 1u);
  EXPECT_EQ(text.indexOf('\xA9'), I0String::notFound);
  EXPECT_EQ(text.indexOfAnyBut("x", 2), 3u) << "from inside the character, the next one";
  EXPECT_EQ(text.lastIndexOfAnyBut("x", 2), 1u) << "from inside the character, this one";
  EXPECT_TEXT(text.subString(2, 2, '*'), "*b");
  EXPECT_TEXT(I0String(aEb).insert("X", 1),
              "aX\xC3\xA9"
              "b");
  EXPECT_TEXT(I0String(aEb).overlayWith("X", 2), "a Xb");
  EXPECT_TEXT(I0String(aEb).remove(2, 1), "a b");
  EXPECT_TEXT(I0String(aEb).change("b", "\xC3\xA8", 2), "a\xC3\xA9\xC3\xA8");
}

// ---------------------------------------------------------------------------------------------------------------------
// In the locale of this run, compared with the reference

class StringsHere : public testing::Test {
protected:
  template <class Check>
  void onManyTexts(int rounds, Check check)
  {
    for (int round = 0; round < rounds && !HasFailure(); ++round)
      check(random.onceIn(3) ? random.characters() : wordy());
  }

  /// Short words of characters of the locale, and white space of all kinds.
  std::string wordy()
  {
    std::string text;
    for (unsigned left = random.below(7); left > 0; --left)
      text += random.characters(4) + random.text("\t\n\v\f\r  ", 2);
    return text;
  }

  CharacterTexts random;
};

constexpr int rounds = 4000;

TEST_F(StringsHere, AreOfTheKindThatTheLocaleAsksFor)
{
  EXPECT_EQ(kindOf(IString("a")), IDBCSBuffer::maxCharLength() > 1 ? "IDBCSBuffer" : "IBuffer");
}

/// Counted one after the other.
unsigned characterCount(const std::string& bytes)
{
  unsigned count = 0;
  for (unsigned pos = 1; pos <= bytes.size(); ++count)
    pos += rules::charLength(bytes, pos);
  return count;
}

TEST_F(StringsHere, CharactersAreCounted)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    EXPECT_EQ(made(bytes).numCharacters(), characterCount(bytes)) << shown(bytes);
  });
}

TEST_F(StringsHere, CharactersOfLongTextsAreCounted)
{
  for (int round = 0; round < 300; ++round) {
    std::string bytes;
    while (bytes.size() < 100)
      bytes += random.characters();
    ASSERT_EQ(made(bytes).numCharacters(), characterCount(bytes)) << shown(bytes);
  }
}

TEST_F(StringsHere, WordsAreFoundAndCounted)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IString text = made(bytes);
    const unsigned long number = random.onceIn(9) ? largest : random.below(8);
    EXPECT_EQ(text.numWords(), rules::numWords(bytes)) << shown(bytes);
    EXPECT_EQ(text.indexOfWord(number), rules::indexOfWord(bytes, number)) << shown(bytes) << ' ' << number;
    EXPECT_EQ(text.lengthOfWord(number), rules::lengthOfWord(bytes, number)) << shown(bytes) << ' ' << number;
    const unsigned long start = random.position(bytes.size());
    const unsigned long passed = random.below(3);
    EXPECT_EQ(Probe(text).indexOfWord(number, start, passed), rules::indexOfWord(bytes, number, start, passed))
      << shown(bytes) << ' ' << number << ' ' << start << ' ' << passed;
  });
}

TEST_F(StringsHere, WordsAreTakenOut)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IString text = made(bytes);
    const unsigned long number = random.below(8);
    const unsigned long count = random.limit();
    EXPECT_TEXT(text.word(number), rules::word(bytes, number)) << shown(bytes) << ' ' << number;
    EXPECT_TEXT(text.words(number, count), rules::words(bytes, number, count))
      << shown(bytes) << ' ' << number << ' ' << count;
    EXPECT_TEXT(text.words(number), rules::words(bytes, number, largest)) << shown(bytes) << ' ' << number;
    EXPECT_TEXT(IString::removeWords(text, number, count), rules::removeWords(bytes, number, count))
      << shown(bytes) << ' ' << number << ' ' << count;
    const unsigned long spaces = random.below(4);
    const char filler = random.filler();
    EXPECT_TEXT(IString::space(text, spaces, filler), rules::space(bytes, spaces, filler))
      << shown(bytes) << ' ' << spaces;
  });
}

TEST_F(StringsHere, AllWordsAreListed)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IWordList list(made(bytes));
    EXPECT_EQ(list.count(), rules::numWords(bytes)) << shown(bytes);
    for (unsigned number = 1; number <= list.count(); ++number) {
      EXPECT_EQ(list[number].position(), rules::indexOfWord(bytes, number)) << shown(bytes) << ' ' << number;
      EXPECT_TEXT(list[number].text(), rules::word(bytes, number)) << shown(bytes) << ' ' << number;
    }
  });
}

TEST_F(StringsHere, PhrasesAreFound)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IString text = made(bytes);
    std::string phrase = rules::words(bytes, random.below(5), random.below(4));
    if (random.onceIn(2))
      phrase = rules::space(phrase, 1 + random.below(3), '\t');
    if (random.onceIn(4))
      phrase += random.characters(3);
    const unsigned long start = random.below(6);
    EXPECT_EQ(text.indexOfPhrase(made(phrase), start), rules::indexOfPhrase(bytes, phrase, start))
      << shown(bytes) << ", " << shown(phrase) << ' ' << start;
    EXPECT_EQ(text.wordIndexOfPhrase(made(phrase), start), rules::wordIndexOfPhrase(bytes, phrase, start))
      << shown(bytes) << ", " << shown(phrase) << ' ' << start;
  });
}

TEST_F(StringsHere, OccurrencesAreCounted)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IString text = made(bytes);
    const std::string needle = random.needle(bytes);
    const unsigned start = random.position(bytes.size());
    EXPECT_EQ(text.occurrencesOf(made(needle), start), rules::occurrencesOf(bytes, needle, start))
      << shown(bytes) << ", " << shown(needle) << " from " << start;
    const char byte = bytes.empty() ? 'a' : bytes[random.below(static_cast<unsigned>(bytes.size()))];
    EXPECT_EQ(text.occurrencesOf(byte, start), rules::occurrencesOf(bytes, std::string(1, byte), start))
      << shown(bytes) << " from " << start;
    EXPECT_EQ(text.occurrencesOf(IStringTest(isspace), start), rules::occurrencesOf(bytes, isspace, start))
      << shown(bytes) << " from " << start;
    int (*const isHigh)(int) = [](int character) { return character < 0 ? 1 : 0; };
    EXPECT_EQ(text.occurrencesOf(IStringTest(isHigh), start), rules::occurrencesOf(bytes, isHigh, start))
      << shown(bytes) << " from " << start;
  });
}

TEST_F(StringsHere, SubStrings)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IString text = made(bytes);
    const unsigned start = random.position(bytes.size());
    const unsigned length = random.newLength(bytes.size());
    EXPECT_TEXT(text.subString(start, length, '*'), rules::subString(bytes, start, length, '*'))
      << shown(bytes) << ' ' << start << ' ' << length;
    const std::string rest =
      start <= bytes.size() ? rules::subString(bytes, start, static_cast<unsigned>(bytes.size()) - start + 1, ' ') : "";
    EXPECT_TEXT(text.subString(start), rest) << shown(bytes) << ' ' << start;
    EXPECT_TEXT(I0String(text).subString(start, length, '*'), rules::subString(bytes, start + 1, length, '*'))
      << shown(bytes) << ' ' << start << ' ' << length;
  });
}

TEST_F(StringsHere, Changes)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IString text = made(bytes);
    const std::string pattern = random.needle(bytes);
    const std::string replacement = random.characters(4);
    const unsigned start = random.position(bytes.size());
    const unsigned limit = random.limit();
    EXPECT_TEXT(IString::change(text, made(pattern), made(replacement), start, limit),
                rules::change(bytes, pattern, replacement, start, limit).text)
      << shown(bytes) << ", " << shown(pattern) << " by " << shown(replacement) << " from " << start;
    EXPECT_TEXT(text, bytes);
    EXPECT_TEXT(I0String::change(text, made(pattern), made(replacement), start, limit),
                rules::change(bytes, pattern, replacement, start + 1, limit).text)
      << shown(bytes) << ", " << shown(pattern) << " by " << shown(replacement) << " from " << start;
    IString changed(bytes.data(), static_cast<unsigned>(bytes.size()));
    changed.change(changed, made(replacement));
    EXPECT_TEXT(changed, rules::change(bytes, bytes, replacement, 1, largest).text) << "the whole of itself";
  });
}

TEST_F(StringsHere, OtherEditsReachTheBuffer)
{
  onManyTexts(rounds, [&](const std::string& bytes) {
    const IString text = made(bytes);
    const unsigned length = random.newLength(bytes.size());
    const unsigned index = random.below(static_cast<unsigned>(bytes.size()) + 5);
    const std::string other = random.characters(5);
    EXPECT_TEXT(IString::strip(text), rules::strip(bytes, isspace, 2).text) << shown(bytes);
    EXPECT_TEXT(IString::center(text, length, '*'), rules::center(bytes, length, '*').text)
      << shown(bytes) << ' ' << length;
    EXPECT_TEXT(IString::leftJustify(text, length, '*'), rules::leftJustify(bytes, length, '*').text)
      << shown(bytes) << ' ' << length;
    EXPECT_TEXT(IString::rightJustify(text, length, '*'), rules::rightJustify(bytes, length, '*').text)
      << shown(bytes) << ' ' << length;
    EXPECT_TEXT(IString::insert(text, made(other), index, '*'), rules::insert(bytes, other, index, '*').text)
      << shown(bytes) << ' ' << index;
    EXPECT_TEXT(IString::overlayWith(text, made(other), index, '*'), rules::overlayWith(bytes, other, index, '*').text)
      << shown(bytes) << ' ' << index;
    EXPECT_TEXT(IString::reverse(text), rules::reverse(bytes).text) << shown(bytes);
    EXPECT_TEXT(IString::upperCase(text), rules::upperCase(bytes).text) << shown(bytes);
    EXPECT_TEXT(IString::lowerCase(text), rules::lowerCase(bytes).text) << shown(bytes);
    const unsigned count = 1 + random.below(4);
    EXPECT_TEXT(IString::remove(text, index, count), rules::remove(bytes, index, count).text)
      << shown(bytes) << ' ' << index;
    EXPECT_TEXT(I0String::remove(text, index, count), rules::remove(bytes, index + 1, count).text)
      << shown(bytes) << ' ' << index;
    EXPECT_TEXT(text, bytes);
  });
}

TEST_F(StringsHere, Translations)
{
  CountingHook quiet;
  const InstalledHook installed(quiet);
  onManyTexts(rounds, [&](const std::string& bytes) {
    const std::string input = random.setFor(bytes);
    const std::string output = random.setFor(bytes);
    const std::optional<std::string> expected = rules::translate(bytes, input, output, '*');
    IString text = made(bytes);
    const unsigned long error = errorIdOf([&] { text.translate(made(input), made(output), '*'); });
    EXPECT_EQ(error, expected ? 0 : tooLong) << shown(bytes) << ", " << shown(input) << " to " << shown(output);
    EXPECT_TEXT(text, expected ? *expected : bytes) << shown(bytes) << ", " << shown(input) << " to " << shown(output);
  });
}

TEST_F(StringsHere, ZeroBasedSearches)
{
  const auto zeroBased = [](unsigned position) { return position - 1; };
  onManyTexts(rounds, [&](const std::string& bytes) {
    const I0String text(made(bytes));
    const std::string needle = random.needle(bytes);
    const std::string set = random.setFor(bytes);
    const unsigned start = random.position(bytes.size());
    EXPECT_EQ(text.indexOf(made(needle), start), zeroBased(rules::indexOf(bytes, needle, start + 1)))
      << shown(bytes) << shown(needle) << start;
    EXPECT_EQ(text.lastIndexOf(made(needle), start), zeroBased(rules::lastIndexOf(bytes, needle, start + 1)))
      << shown(bytes) << shown(needle) << start;
    EXPECT_EQ(text.indexOfAnyOf(made(set), start), zeroBased(rules::indexOfAnyOf(bytes, set, start + 1)))
      << shown(bytes) << shown(set) << start;
    EXPECT_EQ(text.indexOfAnyBut(made(set), start), zeroBased(rules::indexOfAnyBut(bytes, set, start + 1)))
      << shown(bytes) << shown(set) << start;
    EXPECT_EQ(text.lastIndexOfAnyOf(made(set), start), zeroBased(rules::lastIndexOfAnyOf(bytes, set, start + 1)))
      << shown(bytes) << shown(set) << start;
    EXPECT_EQ(text.lastIndexOfAnyBut(made(set), start), zeroBased(rules::lastIndexOfAnyBut(bytes, set, start + 1)))
      << shown(bytes) << shown(set) << start;
    EXPECT_EQ(text.occurrencesOf(made(needle), start), rules::occurrencesOf(bytes, needle, start + 1))
      << shown(bytes) << shown(needle) << start;
    const unsigned number = random.below(6);
    EXPECT_EQ(text.indexOfWord(number), zeroBased(static_cast<unsigned>(rules::indexOfWord(bytes, number))))
      << shown(bytes) << number;
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// A text of one locale seen under another

TEST(StringsAcrossLocales, FollowTheLocaleInForceAtEachOperation)
{
  for (const char* const home : testLocales) {
    std::string bytes;
    IString text;
    {
      const LocaleInForce locale(home);
      CharacterTexts random;
      for (int i = 0; i < 20; ++i)
        bytes += random.characters(6) + ' ';
      text = made(bytes);
      if (kindOf(text) != "IDBCSBuffer")  // made where every byte is a character, it stays that way
        continue;
    }
    for (const char* const abroad : testLocales) {
      const LocaleInForce locale(abroad);
      for (unsigned pos = 1; pos <= bytes.size(); ++pos)
        ASSERT_EQ(static_cast<unsigned>(text.charType(pos)), rules::charType(bytes, pos)) << home << " in " << abroad;
      EXPECT_TEXT(IString::reverse(text), rules::reverse(bytes).text) << home << " in " << abroad;
      EXPECT_TEXT(text.subString(3, 40, '*'), rules::subString(bytes, 3, 40, '*')) << home << " in " << abroad;
      EXPECT_TEXT(IString::lowerCase(text), rules::lowerCase(bytes).text) << home << " in " << abroad;
      EXPECT_EQ(text.numWords(), rules::numWords(bytes)) << home << " in " << abroad;
      EXPECT_EQ(text.lastIndexOf('\\'), rules::lastIndexOf(bytes, "\\", largest)) << home << " in " << abroad;
    }
  }
}

}  // namespace
