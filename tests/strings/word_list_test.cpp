// word_list_test.cpp - IWordList: all words of a text, by number and in turn.
#include <quelmcl/istrword.hpp>

#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace stringtests;

namespace {

/// The list holds the words that the reference finds, at their places, in every way to get at them.
void expectWords(const IWordList& list, const std::string& text)
{
  const std::vector<reference::Word> words = reference::wordsOf(text);
  ASSERT_EQ(list.count(), words.size());
  EXPECT_EQ(list.size(), words.size());
  EXPECT_EQ(list.empty(), words.empty());
  unsigned long number = 0;
  for (const IWordList::Word word : list) {
    const reference::Word& expected = words.at(number++);
    EXPECT_EQ(word.position(), expected.pos);
    EXPECT_EQ(word.length(), expected.text.size());
    EXPECT_EQ(std::string(word.begin(), word.end()), expected.text);
    EXPECT_TEXT(word.text(), expected.text);
    EXPECT_EQ(list[number].position(), expected.pos);
    EXPECT_EQ(list[number].data(), word.data());
    EXPECT_EQ(list[number].length(), word.length());
  }
  EXPECT_EQ(number, words.size());
}

TEST(WordList, HasTheWordsOfTheSample)
{
  const IWordList words("  alpha beta\tgamma  ");
  EXPECT_EQ(words.count(), 3u);
  EXPECT_TEXT(words[2].text(), "beta");
  EXPECT_EQ(words[2].position(), 9u);
  EXPECT_EQ(words[3].length(), 5u);
  expectWords(words, "  alpha beta\tgamma  ");
}

TEST(WordList, HasNoWordOfAnyOtherNumber)
{
  const IWordList words("a b");
  for (const unsigned long number : {0UL, 3UL, 4294967295UL, ULONG_MAX}) {
    EXPECT_EQ(words[number].position(), 0u) << number;
    EXPECT_EQ(words[number].length(), 0u) << number;
    EXPECT_EQ(words[number].data(), nullptr) << number;
    EXPECT_TEXT(words[number].text(), "");
  }
}

TEST(WordList, OfATextWithoutWordsIsEmptyAndTakesNoStorage)
{
  for (const char* const blank : {"", " ", " \t\n\v\f\r"}) {
    const IString text(blank);
    quelmcl_test::AllocationWatch watch;
    const IWordList words(text);
    EXPECT_EQ(watch.allocations(), 0u);
    EXPECT_TRUE(words.empty());
    EXPECT_TRUE(words.begin() == words.end());
  }
}

TEST(WordList, TakesOneBlockHoweverManyWords)
{
  const IString text = IString::copy("word ", 1000);
  IBase::messageFile();
  quelmcl_test::AllocationWatch watch;
  const IWordList words(text);
  EXPECT_EQ(watch.allocations(), 1u);
  EXPECT_EQ(words.count(), 1000u);
}

TEST(WordList, IsSharedByItsCopies)
{
  const IWordList words("a b c");
  quelmcl_test::AllocationWatch watch;
  const IWordList copy = words;
  EXPECT_EQ(watch.allocations(), 0u);
  EXPECT_EQ(copy[3].data(), words[3].data());
}

TEST(WordList, IsEmptyWhenItHasBeenMovedFrom)
{
  IWordList words("a b c");
  const IWordList moved(std::move(words));
  EXPECT_EQ(moved.count(), 3u);
  EXPECT_EQ(words.count(), 0u);
  words = moved;
  EXPECT_EQ(words.count(), 3u);
}

TEST(WordList, DoesNotSeeLaterChangesOfTheText)
{
  IString text("one two");
  const IWordList words(text);
  text[1] = ' ';
  text += " three";
  expectWords(words, "one two");
}

TEST(WordList, MayBeOfATextThatIsGone)
{
  const IWordList words(IString("one ") + IString("two"));
  EXPECT_TEXT(words[2].text(), "two");
}

TEST(WordList, KeepsNulsAndHighBytesInWords)
{
  const std::string text = bytes("a\0b \xA0\x85 \x1F");
  expectWords(IWordList(made(text)), text);
}

TEST(WordList, IteratorsStepAndCompare)
{
  const IWordList words("a bc d");
  IWordList::Iterator at = words.begin();
  EXPECT_EQ(at->length(), 1u);
  EXPECT_EQ((at++)->position(), 1u);
  EXPECT_EQ((*at).position(), 3u);
  EXPECT_TRUE(++at != words.end());
  EXPECT_TRUE(++at == words.end());
  EXPECT_EQ(std::distance(words.begin(), words.end()), 3);
  const auto longest =
    std::max_element(words.begin(), words.end(), [](const IWordList::Word& left, const IWordList::Word& right) {
      return left.length() < right.length();
    });
  EXPECT_EQ(longest->position(), 3u);
}

TEST(WordList, OfTextsOfAnyLengthEndsWhereTheyEnd)
{
  for (std::size_t length = 0; length <= 200; ++length) {
    expectWords(IWordList(made(std::string(length, 'x'))), std::string(length, 'x'));
    expectWords(IWordList(made(std::string(length, ' ') + "x")), std::string(length, ' ') + "x");
    expectWords(IWordList(made("x" + std::string(length, ' '))), "x" + std::string(length, ' '));
  }
}

TEST(WordList, OfRandomTextsHasTheWordsOfTheReference)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 500 && !testing::Test::HasFailure(); ++round) {
    const std::string text = random.text(round % 2 == 0 ? "ab \n" : "abcdefgh\t", 300);
    SCOPED_TRACE(testing::PrintToString(text));
    expectWords(IWordList(made(text)), text);
  }
}

}  // namespace
