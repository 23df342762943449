// words_test.cpp - IString, words: count, extract, find, remove, respace.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <pthread.h>

#include <climits>
#include <string>

using namespace stringtests;

namespace {

const char* const sample = "  alpha beta\tgamma  ";

// ---------------------------------------------------------------------------------------------------------------------
// Which buffer is asked

/// A kind of buffer that takes a bar for white space, too.
class Barred : public IBuffer {
public:
  static IBuffer* holding(const std::string& text)
  {
    Barred* const buffer = new (static_cast<unsigned>(text.size())) Barred(static_cast<unsigned>(text.size()));
    text.copy(buffer->contents(), buffer->length());
    return buffer;
  }

  unsigned indexOfAnyBut(const char* set, unsigned count, unsigned startPos) const override
  {
    const std::string barred = std::string(set, count) + '|';
    return IBuffer::indexOfAnyBut(barred.data(), count + 1, startPos);
  }
  unsigned indexOfAnyOf(const char* set, unsigned count, unsigned startPos) const override
  {
    const std::string barred = std::string(set, count) + '|';
    return IBuffer::indexOfAnyOf(barred.data(), count + 1, startPos);
  }

private:
  explicit Barred(unsigned length) : IBuffer(length) {}
};

void hold(Probe& string, const std::string& text)
{
  IBuffer* const before = string.buffer();
  string.setBuffer(Barred::holding(text));
  before->removeRef();
}

TEST(StringWords, EndWhereTheBufferOfTheStringSaysSo)
{
  Probe string;
  for (const char* const text : {"|one|| two|three", "|one|| two|three|", "|one|| two|three "}) {
    hold(string, text);
    EXPECT_EQ(string.numWords(), 3u) << text;
    EXPECT_EQ(string.indexOfWord(2), 8u) << text;
    EXPECT_EQ(string.lengthOfWord(1), 3u) << text;
    EXPECT_EQ(string.lengthOfWord(3), 5u) << text;
    EXPECT_EQ(string.indexOfWord(4), 0u) << text;
    EXPECT_EQ(string.lengthOfWord(4), 0u) << text;
    EXPECT_TEXT(string.word(3), "three");
  }
  for (const char* const text : {"", "|", " | "}) {
    hold(string, text);
    EXPECT_EQ(string.numWords(), 0u) << text;
    EXPECT_EQ(string.indexOfWord(1), 0u) << text;
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Counting and finding

struct CountCase {
  const char* name;
  std::string text;
  unsigned long expected;
};

class StringWordCount : public testing::TestWithParam<CountCase> {};

TEST_P(StringWordCount, CountsRunsWithoutWhiteSpace)
{
  EXPECT_EQ(made(GetParam().text).numWords(), GetParam().expected);
}

const CountCase countCases[] = {
  {"three_words_with_white_space_around", sample, 3},
  {"no_text", "", 0},
  {"only_white_space", " \t\n\v\f\r", 0},
  {"one_word", "abc", 1},
  {"one_byte", "a", 1},
  {"every_white_space_character_separates", "a\tb\nc\vd\fe\rf g", 7},
  {"a_nul_is_part_of_a_word", bytes("a\0b c"), 2},
  {"other_control_characters_are_part_of_a_word",
   "a\x01"
   "b\x1F"
   "c",
   1},
  {"bytes_above_7F_are_part_of_a_word",
   "a\xA0"
   "b\x85"
   "c",
   1},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringWordCount, testing::ValuesIn(countCases),
                         [](const testing::TestParamInfo<CountCase>& row) { return std::string(row.param.name); });

TEST(StringWords, OfTheSampleAreFoundAndMeasured)
{
  const IString text(sample);
  EXPECT_EQ(text.numWords(), 3u);
  EXPECT_TEXT(text.word(2), "beta");
  EXPECT_EQ(text.indexOfWord(2), 9u);
  EXPECT_EQ(text.lengthOfWord(3), 5u);
  EXPECT_TEXT(text.words(2), "beta\tgamma");
  EXPECT_TEXT(text.words(2, 99), "beta\tgamma");
}

TEST(StringWords, NumberZeroIsTheFirstWordToReadAndNoneElse)
{
  IString text(sample);
  EXPECT_TEXT(text.word(0), "alpha");
  EXPECT_TEXT(text.words(0, 2), "alpha beta");
  EXPECT_TEXT(text.words(0), "alpha beta\tgamma");
  EXPECT_EQ(text.lengthOfWord(0), 0u);
  EXPECT_EQ(text.indexOfWord(0), 0u);
  EXPECT_TEXT(text.removeWords(0, 2), sample);
  EXPECT_TEXT(text.removeWords(0), sample);
}

TEST(StringWords, PastTheLastThereIsNothing)
{
  IString text(sample);
  for (const unsigned long number : {4UL, 5UL, 4294967294UL, 4294967295UL, ULONG_MAX}) {
    EXPECT_TEXT(text.word(number), "");
    EXPECT_TEXT(text.words(number), "");
    EXPECT_TEXT(text.words(number, 3), "");
    EXPECT_TEXT(text.words(number, ULONG_MAX), "");
    EXPECT_EQ(text.lengthOfWord(number), 0u);
    EXPECT_EQ(text.indexOfWord(number), 0u);
    EXPECT_TEXT(text.removeWords(number, 2), sample);
    EXPECT_TEXT(text.removeWords(number, ULONG_MAX), sample);
  }
}

#if ULONG_MAX > UINT_MAX  // elsewhere there is no such number
TEST(StringWords, NumbersOfMoreThan32BitsAreNotCut)
{
  const auto beyond = static_cast<unsigned long>((1ULL << 32) + 1);
  IString text(sample);
  EXPECT_TEXT(text.word(beyond), "");
  EXPECT_TEXT(text.words(beyond), "");
  EXPECT_TEXT(text.words(1, beyond), "alpha beta\tgamma");
  EXPECT_EQ(text.lengthOfWord(beyond), 0u);
  EXPECT_EQ(text.indexOfWord(beyond), 0u);
  EXPECT_TEXT(text.removeWords(beyond, 1), sample);
  EXPECT_TEXT(text.removeWords(2, beyond - 1), "  alpha ");
}
#endif

TEST(StringWords, OfATextWithoutWordsAreNothing)
{
  for (const char* const blank : {"", "   "}) {
    IString text(blank);
    EXPECT_TEXT(text.word(1), "");
    EXPECT_TEXT(text.words(1), "");
    EXPECT_EQ(text.indexOfWord(1), 0u);
    EXPECT_EQ(text.lengthOfWord(1), 0u);
    EXPECT_TEXT(text.removeWords(1), blank);
  }
}

TEST(StringWords, TheLastOneMayEndTheText)
{
  const IString text("a bcd");
  EXPECT_TEXT(text.word(2), "bcd");
  EXPECT_EQ(text.lengthOfWord(2), 3u);
  EXPECT_TEXT(text.words(2), "bcd");
}

TEST(StringWords, OfOneByteAreWords)
{
  const IString text("a b c");
  EXPECT_TEXT(text.word(1), "a");
  EXPECT_TEXT(text.word(3), "c");
  EXPECT_EQ(text.lengthOfWord(3), 1u);
}

TEST(StringWords, KeepTheirNuls)
{
  const IString text("x a\0b y", 7);
  EXPECT_TEXT(text.word(2), bytes("a\0b"));
  EXPECT_EQ(text.lengthOfWord(2), 3u);
}

TEST(StringWords, InARunKeepTheWhiteSpaceBetweenThem)
{
  const IString text(" a \t b\n\nc d ");
  EXPECT_TEXT(text.words(1, 2), "a \t b");
  EXPECT_TEXT(text.words(2, 2), "b\n\nc");
  EXPECT_TEXT(text.words(1), "a \t b\n\nc d");
  EXPECT_TEXT(text.words(3, 2), "c d");
}

TEST(StringWords, InARunOfNoneAreEmpty)
{
  const IString text(sample);
  for (const unsigned long first : {0UL, 1UL, 2UL, 3UL, 4UL, ULONG_MAX})
    EXPECT_TEXT(text.words(first, 0), "");
}

TEST(StringWords, MayBeAskedForByTheThousandMillion)
{
  const IString text(sample);
  EXPECT_TEXT(text.words(2, 4294967295UL), "beta\tgamma");
  EXPECT_TEXT(text.words(3, 4294967294UL), "gamma");
  EXPECT_TEXT(text.words(1, ULONG_MAX), "alpha beta\tgamma");
  EXPECT_TEXT(text.words(2, ULONG_MAX - 1), "beta\tgamma");
}

TEST(StringWords, TheScanMayStartAnywhere)
{
  const Probe text("aa bb cc dd");
  EXPECT_EQ(text.indexOfWord(1, 1, 0), 1u);
  EXPECT_EQ(text.indexOfWord(3, 4, 1), 7u);  // one word was passed before position 4
  EXPECT_EQ(text.indexOfWord(1, 2, 0), 2u);  // the rest of a word counts as a word
  EXPECT_EQ(text.indexOfWord(1, 3, 0), 4u);
  EXPECT_EQ(text.indexOfWord(1, 0, 0), 0u);  // nothing is found from position 0
  EXPECT_EQ(text.indexOfWord(1, 12, 0), 0u);
  EXPECT_EQ(text.indexOfWord(2, 1, 2), 0u);  // the word was passed already
  EXPECT_EQ(text.indexOfWord(5, 1, 0), 0u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Phrases

struct PhraseCase {
  const char* name;
  const char* text;
  const char* phrase;
  unsigned long startWord;
  unsigned long position;
  unsigned long wordNumber;
};

class StringPhrase : public testing::TestWithParam<PhraseCase> {};

TEST_P(StringPhrase, IsFoundAsPositionAndAsWordNumber)
{
  const PhraseCase& row = GetParam();
  const Probe text(row.text);
  EXPECT_EQ(text.indexOfPhrase(row.phrase, row.startWord), row.position);
  EXPECT_EQ(text.wordIndexOfPhrase(row.phrase, row.startWord), row.wordNumber);
  EXPECT_EQ(text.findPhrase(row.phrase, row.startWord, IString::charIndex), row.position);
  EXPECT_EQ(text.findPhrase(row.phrase, row.startWord, IString::wordIndex), row.wordNumber);
}

const PhraseCase phraseCases[] = {
  {"whatever_the_white_space", "a b c", "b  c", 1, 3, 2},
  {"white_space_around_the_phrase_does_not_count", "a b c", "\tb\nc ", 1, 3, 2},
  {"case_differs", "a b c", "B c", 1, 0, 0},
  {"more_words_than_the_text", "a b c", "a b c d", 1, 0, 0},
  {"more_words_than_remain", "a b c", "b c", 3, 0, 0},
  {"the_whole_text", "a b c", "a b c", 1, 1, 1},
  {"parts_of_words_do_not_match", "abc def", "bc de", 1, 0, 0},
  {"a_longer_word_does_not_match", "abc", "abcd", 1, 0, 0},
  {"the_second_occurrence", "a b a b", "a b", 2, 5, 3},
  {"after_a_false_start", "a a b", "a b", 1, 3, 2},
  {"at_the_end", "x y z", "z", 1, 5, 3},
  {"from_the_last_word", "x y z", "z", 3, 5, 3},
  {"from_past_the_last_word", "x y z", "z", 4, 0, 0},
  {"from_word_zero_as_from_one", "a b c", "b c", 0, 3, 2},
  {"one_word_from_word_zero", "a b c", "a", 0, 1, 1},
  {"in_the_empty_text", "", "a", 1, 0, 0},
  {"an_empty_phrase_is_at_the_start_word", "a b c", "", 2, 3, 2},
  {"a_blank_phrase_is_an_empty_one", "a b c", " \t", 3, 5, 3},
  {"an_empty_phrase_one_past_the_last_word_has_no_position", "a b c", "", 4, 0, 4},
  {"an_empty_phrase_two_past_the_last_word", "a b c", "", 5, 0, 0},
  {"an_empty_phrase_from_word_zero", "a b c", "", 0, 0, 0},
  {"an_empty_phrase_in_the_empty_text", "", "", 1, 0, 1},
  {"one_word_from_the_largest_number", "a b c", "a", ULONG_MAX, 0, 0},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringPhrase, testing::ValuesIn(phraseCases),
                         [](const testing::TestParamInfo<PhraseCase>& row) { return std::string(row.param.name); });

TEST(StringPhrase, StartsAtTheFirstWordUnlessToldOtherwise)
{
  const IString text("a b a b");
  EXPECT_EQ(text.indexOfPhrase("a b"), 1u);
  EXPECT_EQ(text.wordIndexOfPhrase("a b"), 1u);
}

TEST(Phrases, AStartThatWrapsAroundSearchesFromTheFirstWord)
{
  EXPECT_EQ(IString("a b c").wordIndexOfPhrase("b c", 4294967295UL), 2u);
  EXPECT_EQ(IString("a b c").indexOfPhrase("a b c", 4294967294UL), 1u);
  EXPECT_EQ(IString("a b c").wordIndexOfPhrase("a", 4294967295UL), 0u);
  EXPECT_EQ(IString("a b c").wordIndexOfPhrase("b c", 4294967294UL), 0u);
}

#if ULONG_MAX > UINT_MAX  // elsewhere there is no such number
TEST(Phrases, AStartOfMoreThan32BitsIsNoWords)
{
  EXPECT_EQ(IString("a b c").wordIndexOfPhrase("b c", ULONG_MAX), 0u);
  EXPECT_EQ(IString("a b c").indexOfPhrase("", static_cast<unsigned long>(1ULL << 32)), 0u);
  EXPECT_EQ(IString("a b c").wordIndexOfPhrase("b c", static_cast<unsigned long>((1ULL << 32) + 1)), 0u);
}
#endif

TEST(StringPhrase, ComparesNulsAsBytes)
{
  const IString text("a\0b a\0c", 7);
  EXPECT_EQ(text.indexOfPhrase(made(bytes("a\0c"))), 5u);
  EXPECT_EQ(text.indexOfPhrase(made(bytes("a\0d"))), 0u);
}

TEST(StringPhrase, ThatStandsAlmostEverywhereIsFoundWhereItStands)
{
  std::string text = "c ";
  std::string almost;
  for (int i = 0; i < 600; ++i) {
    text += i % 170 == 0 ? "a  b " : "a ";
    almost += i < 100 ? "a\t" : "";
  }
  for (const std::string& phrase : {almost + "b", almost + "c", almost + "a", almost + "aa"})
    for (const unsigned long startWord : {1ul, 2ul, 200ul, 550ul}) {
      EXPECT_EQ(made(text).indexOfPhrase(made(phrase), startWord), reference::indexOfPhrase(text, phrase, startWord));
      EXPECT_EQ(made(text).wordIndexOfPhrase(made(phrase), startWord),
                reference::wordIndexOfPhrase(text, phrase, startWord));
    }
}

TEST(StringPhrase, MayBeTheTextItself)
{
  const IString text(" a b ");
  EXPECT_EQ(text.indexOfPhrase(text), 2u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Removing

struct RemovalCase {
  const char* name;
  const char* text;
  unsigned long first;
  unsigned long count;
  const char* expected;
};

class StringWordRemoval : public testing::TestWithParam<RemovalCase> {};

TEST_P(StringWordRemoval, TakesTheWhiteSpaceBehindAlong)
{
  const RemovalCase& row = GetParam();
  const IString text(row.text);
  IString changed(text);
  EXPECT_EQ(&changed.removeWords(row.first, row.count), &changed);
  EXPECT_TEXT(changed, row.expected);
  EXPECT_TEXT(IString::removeWords(text, row.first, row.count), row.expected);
  EXPECT_TEXT(text, row.text);
}

const RemovalCase removalCases[] = {
  {"from_the_middle", "a b c", 2, 1, "a c"},
  {"the_last_leaves_the_separator_before_it", "a b c", 3, 1, "a b "},
  {"the_first", "a b c", 1, 1, "b c"},
  {"white_space_in_front_stays", "  a b", 1, 1, "  b"},
  {"through_the_end_drops_trailing_white_space", "a b c  ", 2, 2, "a "},
  {"more_than_there_are", "a b c", 2, 99, "a "},
  {"all", "a b c", 1, 3, ""},
  {"all_but_leading_white_space", "  a b  ", 1, 2, "  "},
  {"none_of_them", "a b c", 2, 0, "a b c"},
  {"a_word_that_is_not_there", "a b c", 4, 1, "a b c"},
  {"word_zero", "a b c", 0, 2, "a b c"},
  {"of_the_empty_text", "", 1, 1, ""},
  {"several_kinds_of_white_space", "a\t\tb\n \nc d", 2, 1, "a\t\tc d"},
  {"the_largest_count", "a b c", 1, ULONG_MAX, ""},
  {"the_largest_count_from_the_second", "a b c", 2, ULONG_MAX, "a "},
  {"a_count_that_ends_at_the_largest_number", "a b c", 2, ULONG_MAX - 1, "a "},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringWordRemoval, testing::ValuesIn(removalCases),
                         [](const testing::TestParamInfo<RemovalCase>& row) { return std::string(row.param.name); });

TEST(StringWordRemoval, WithoutACountGoesToTheEnd)
{
  const IString text("a b c ");
  IString changed(text);
  EXPECT_TEXT(changed.removeWords(2), "a ");
  EXPECT_TEXT(IString::removeWords(text, 3), "a b ");
  EXPECT_TEXT(text, "a b c ");
}

TEST(StringWordRemoval, OfNothingKeepsTheSharedBuffer)
{
  IString text("a b c");
  const IString sharer(text);
  text.removeWords(2, 0).removeWords(0, 1).removeWords(4);
  EXPECT_TRUE(shareText(text, sharer));
  EXPECT_EQ(useCountOf(text), 2u);
}

TEST(StringWordRemoval, LeavesTheOtherSharersTheirText)
{
  IString text("a b c");
  const IString sharer(text);
  text.removeWords(1, 1);
  EXPECT_TEXT(text, "b c");
  EXPECT_TEXT(sharer, "a b c");
  EXPECT_EQ(useCountOf(sharer), 1u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Respacing

struct SpacingCase {
  const char* name;
  std::string text;
  unsigned long spaces;
  char space;
  std::string expected;
};

class StringSpacing : public testing::TestWithParam<SpacingCase> {};

TEST_P(StringSpacing, StandsBetweenTheWordsOnly)
{
  const SpacingCase& row = GetParam();
  const IString text = made(row.text);
  IString changed(text);
  EXPECT_EQ(&changed.space(row.spaces, row.space), &changed);
  EXPECT_TEXT(changed, row.expected);
  EXPECT_TEXT(IString::space(text, row.spaces, row.space), row.expected);
  EXPECT_TEXT(text, row.text);
}

const SpacingCase spacingCases[] = {
  {"one_blank", "  a   b  ", 1, ' ', "a b"},
  {"none_joins_the_words", "  a   b  ", 0, ' ', "ab"},
  {"another_character", "  a   b  ", 2, '-', "a--b"},
  {"only_white_space_becomes_empty", "   ", 1, ' ', ""},
  {"the_empty_text_stays", "", 1, ' ', ""},
  {"one_word_loses_what_is_around_it", " \tabc\n", 5, '*', "abc"},
  {"many_words", "a\tbb\nccc  d", 3, '.', "a...bb...ccc...d"},
  {"a_nul_as_space", "a b", 2, '\0', bytes("a\0\0b")},
  {"a_nul_in_a_word", bytes(" x\0y  z "), 1, '_', bytes("x\0y_z")},
  {"the_same_spacing_as_before", "a b c", 1, ' ', "a b c"},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringSpacing, testing::ValuesIn(spacingCases),
                         [](const testing::TestParamInfo<SpacingCase>& row) { return std::string(row.param.name); });

TEST(StringSpacing, IsOneBlankUnlessToldOtherwise)
{
  EXPECT_TEXT(IString("  a   b  ").space(), "a b");
  EXPECT_TEXT(IString("  a   b  ").space(2), "a  b");
  EXPECT_TEXT(IString::space("  a   b  "), "a b");
  EXPECT_TEXT(IString::space("  a   b  ", 0), "ab");
}

TEST(StringSpacing, LeavesTheOtherSharersTheirText)
{
  IString text(" a  b ");
  const IString sharer(text);
  text.space();
  EXPECT_TEXT(text, "a b");
  EXPECT_TEXT(sharer, " a  b ");
  EXPECT_EQ(useCountOf(sharer), 1u);
}

TEST(StringSpacing, OfWhiteSpaceOnlyIsTheSharedEmptyText)
{
  IString text("   ");
  text.space();
  EXPECT_TRUE(shareText(text, IString()));
}

TEST(StringSpacing, ThatMakesTheTextTooLongIsRefusedAndChangesNothing)
{
  IString text("a b c");
  const IString sharer(text);
  EXPECT_EQ(errorIdOf([&] { text.space(largest); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text.space(2147483648u); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text.space(ULONG_MAX); }), tooLong);
  EXPECT_TEXT(text, "a b c");
  EXPECT_TRUE(shareText(text, sharer));
  EXPECT_EQ(useCountOf(text), 2u);
}

#if ULONG_MAX > UINT_MAX  // elsewhere there is no such number
TEST(StringSpacing, OfMoreThan32BitsIsRefusedRatherThanCut)
{
  IString text("a b");
  EXPECT_EQ(errorIdOf([&] { text.space(static_cast<unsigned long>(1ULL << 32)); }), tooLong);
  EXPECT_TEXT(text, "a b");
}
#endif

TEST(StringSpacing, OfOneWordMayBeAsWideAsItLikes)
{
  EXPECT_TEXT(IString(" a ").space(largest), "a");
}

// ---------------------------------------------------------------------------------------------------------------------
// Every operation against a slow one, on random texts

TEST(StringWordsOnRandomTexts, AreCountedMeasuredAndExtracted)
{
  quelmcl_test::RandomTexts random(20260105);
  for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
    const std::string text = random.text(bytes("aab\0  \t\n"), 20);
    const unsigned number = random.below(8);
    const unsigned count = random.below(2) == 0 ? random.below(6) : largest - random.below(3);
    SCOPED_TRACE(testing::PrintToString(text) + " word " + std::to_string(number) + " count " + std::to_string(count));
    const IString string = made(text);
    EXPECT_EQ(string.numWords(), reference::numWords(text));
    EXPECT_EQ(string.indexOfWord(number), reference::indexOfWord(text, number));
    EXPECT_EQ(string.lengthOfWord(number), reference::lengthOfWord(text, number));
    EXPECT_TEXT(string.word(number), reference::word(text, number));
    EXPECT_TEXT(string.words(number), reference::words(text, number));
    EXPECT_TEXT(string.words(number, count), reference::words(text, number, count));
  }
}

TEST(StringWordsOnRandomTexts, AreRemovedAndRespaced)
{
  quelmcl_test::RandomTexts random(20260106);
  for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
    const std::string text = random.text(bytes("aab\0  \t\n"), 20);
    const unsigned number = random.below(8);
    const unsigned count = random.below(2) == 0 ? random.below(6) : largest - random.below(3);
    const unsigned spaces = random.below(4);
    SCOPED_TRACE(testing::PrintToString(text) + " word " + std::to_string(number) + " count " + std::to_string(count));
    const IString string = made(text);
    EXPECT_TEXT(IString(string).removeWords(number), reference::removeWords(text, number));
    EXPECT_TEXT(IString(string).removeWords(number, count), reference::removeWords(text, number, count));
    EXPECT_TEXT(IString(string).space(spaces, '-'), reference::space(text, spaces, '-'));
    EXPECT_TEXT(string, text);
  }
}

TEST(StringWordsOnRandomTexts, ArePhrasesWhereTheyStandInARow)
{
  quelmcl_test::RandomTexts random(20260107);
  unsigned found = 0;
  for (int round = 0; round < 6000 && !testing::Test::HasFailure(); ++round) {
    const std::string text = random.text("ab  \t", 24);
    const std::string phrase = random.text("ab \n", 6);
    const unsigned start = random.below(7);
    SCOPED_TRACE(testing::PrintToString(text) + " for " + testing::PrintToString(phrase) + " from word " +
                 std::to_string(start));
    const unsigned long number = reference::wordIndexOfPhrase(text, phrase, start);
    EXPECT_EQ(made(text).wordIndexOfPhrase(made(phrase), start), number);
    EXPECT_EQ(made(text).indexOfPhrase(made(phrase), start), reference::indexOfPhrase(text, phrase, start));
    found += number != 0 ? 1 : 0;
  }
  EXPECT_GT(found, 500u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Large texts

/// Runs `action` on a stack that a recursion over a million words could not live on.
template <class Action>
void onASmallStack(Action action)
{
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
  pthread_t thread;
  void* (*const run)(void*) = [](void* started) -> void* {
    (*static_cast<Action*>(started))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

/// Anything quadratic would not end before the time that a test is given.
class StringOfAMillionWords : public testing::Test {
protected:
  IString text{IString("ab  ").copy(999999) + "last word"};
};

TEST_F(StringOfAMillionWords, IsCounted)
{
  onASmallStack([this] { EXPECT_EQ(text.numWords(), 1000001u); });
}

TEST_F(StringOfAMillionWords, GivesItsWords)
{
  onASmallStack([this] {
    EXPECT_TEXT(text.word(1000001), "word");
    EXPECT_EQ(text.indexOfWord(1000000), 3999997u);
    EXPECT_EQ(text.lengthOfWord(1000000), 4u);
    EXPECT_TEXT(text.words(999999, 2), "ab  last");
  });
}

TEST_F(StringOfAMillionWords, IsRespaced)
{
  onASmallStack([this] {
    text.space(1, '-');
    EXPECT_EQ(text.length(), 2u * 999999 + 4 + 4 + 1000000);
    EXPECT_TEXT(text.subString(text.length() - 11), "ab-last-word");
    EXPECT_TEXT(text.subString(1, 6), "ab-ab-");
  });
}

TEST_F(StringOfAMillionWords, IsSearchedForAPhrase)
{
  onASmallStack([this] {
    EXPECT_EQ(text.indexOfPhrase("ab last word"), 3999993u);
    EXPECT_EQ(text.wordIndexOfPhrase("last word"), 1000000u);
    EXPECT_EQ(text.wordIndexOfPhrase("word last"), 0u);
    EXPECT_EQ(text.wordIndexOfPhrase(text), 1u);
  });
}

TEST_F(StringOfAMillionWords, LosesSomeOfThem)
{
  onASmallStack([this] {
    text.removeWords(2, 999999);
    EXPECT_TEXT(text, "ab  word");
  });
}

}  // namespace
