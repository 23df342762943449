// textsearch_test.cpp - kernels: finding a text in another, from the front and from the back, where a simple search
// does and where the linear one has to take over.
#include "kernels/textsearch.hpp"

#include "placed_text.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace kerneltests;
using quelmcl::detail::findLastText;
using quelmcl::detail::findText;
using quelmcl::detail::Forward;
using quelmcl::detail::nowhere;
using quelmcl::detail::TextSearch;
using quelmcl_test::RandomTexts;

namespace {

std::size_t offsetOf(std::size_t found)
{
  return found == std::string::npos ? nowhere : found;
}

/// Compares both searches with those of std::string. The needle is a copy that ends with its block.
void expectFound(const std::string& text, const std::string& needle)
{
  PlacedText placed(needle, 0);
  EXPECT_EQ(findText(text.data(), text.size(), placed.data(), needle.size()), offsetOf(text.find(needle)));
  EXPECT_EQ(findLastText(text.data(), text.size(), placed.data(), needle.size()), offsetOf(text.rfind(needle)));
}

TEST(FindText, FindsTheOnlyOccurrenceWhereverItIs)
{
  for (std::size_t alignment = 0; alignment < alignments; ++alignment)
    for (std::size_t length = 1; length <= longest; ++length)
      for (const std::size_t needleLength : {1u, 2u, 3u, 8u, 17u}) {
        if (needleLength > length)
          continue;
        const std::string needle(needleLength, 'x');
        for (std::size_t place = 0; place + needleLength <= length; ++place) {
          std::string text(length, '-');
          text.replace(place, needleLength, needle);
          PlacedText placed(text, alignment);
          ASSERT_EQ(findText(placed.data(), length, needle.data(), needleLength), place);
          ASSERT_EQ(findLastText(placed.data(), length, needle.data(), needleLength), place);
        }
      }
}

TEST(FindText, LooksNoFurtherThanTheText)
{
  const std::string around = "abXabcdXcd";
  EXPECT_EQ(findText(around.data() + 3, 4, "Xa", 2), nowhere);
  EXPECT_EQ(findText(around.data() + 3, 4, "dX", 2), nowhere);
  EXPECT_EQ(findLastText(around.data() + 3, 4, "Xa", 2), nowhere);
  EXPECT_EQ(findLastText(around.data() + 3, 4, "dX", 2), nowhere);
}

TEST(FindText, FindsNothingLongerThanTheText)
{
  EXPECT_EQ(findText("abc", 2, "abc", 3), nowhere);
  EXPECT_EQ(findLastText("abc", 2, "abc", 3), nowhere);
  EXPECT_EQ(findText("abc", 0, "a", 1), nowhere);
  EXPECT_EQ(findLastText("abc", 0, "a", 1), nowhere);
}

TEST(FindText, FindsTheWholeText)
{
  for (std::size_t length = 1; length <= longest; ++length) {
    const std::string text = variedText(length);
    EXPECT_EQ(findText(text.data(), length, text.data(), length), 0u) << length;
    EXPECT_EQ(findLastText(text.data(), length, text.data(), length), 0u) << length;
  }
}

TEST(FindText, AgreesWithTheDefinitionOnRandomTexts)
{
  RandomTexts random;
  for (int round = 0; round < 20000 && !HasFailure(); ++round) {
    const std::string text = random.text();
    const std::string needle = random.needleFor(text);
    if (needle.empty())
      continue;
    SCOPED_TRACE(quelmcl_test::quoted(needle) + " in " + quelmcl_test::quoted(text));
    expectFound(text, needle);
  }
}

// All needles over two letters of some lengths: the linear search has many kinds of them to get right. It begins when a
// simple search has met too many false starts, so the texts begin and end with nothing else, and in between they are
// all but the needle.
class ShortNeedles : public testing::TestWithParam<unsigned> {};

TEST_P(ShortNeedles, AreFoundAfterManyFalseStarts)
{
  const unsigned needleLength = GetParam();
  RandomTexts random;
  for (unsigned letters = 0; letters < (1u << needleLength); ++letters) {
    std::string needle;
    for (unsigned i = 0; i < needleLength; ++i)
      needle += (letters >> i & 1) != 0 ? 'b' : 'a';
    std::string misses;
    while (misses.size() < 200) {
      std::string miss = needle;
      miss[random.onceIn(2) ? needleLength - 1 : random.below(needleLength)] ^= 'a' ^ 'b';
      misses += miss.substr(random.below(3));
    }
    const std::string falseStarts(1200, needle[0]);
    SCOPED_TRACE(needle);
    expectFound(falseStarts + misses + falseStarts, needle);
    expectFound(falseStarts + misses + needle + misses + falseStarts, needle);
    expectFound(falseStarts + needle.substr(0, needleLength - 1), needle);
    expectFound(needle.substr(1) + falseStarts, needle);
    if (HasFailure())
      return;
  }
}

INSTANTIATE_TEST_SUITE_P(Lengths, ShortNeedles, testing::Values(2, 3, 5, 9, 10, 11, 12),
                         testing::PrintToStringParamName());

// Needles that repeat themselves: whole periods, broken ones, and one unlike its neighbours.
TEST(PeriodicNeedles, AreNowhereAgainOnceTheyWereNowhere)
{
  const std::string needle = std::string(300, 'a') + 'b' + std::string(300, 'a');
  for (const std::string& text : {needle, needle + std::string(20000, 'a'), std::string(20000, 'a')}) {
    TextSearch<Forward> search(text.data(), text.size(), needle.data(), needle.size());
    while (search.next() != nowhere) {
    }
    EXPECT_EQ(search.next(), nowhere) << text.size();
    EXPECT_EQ(search.next(), nowhere) << text.size();
  }
}

TEST(PeriodicNeedles, AreFoundInPeriodicTexts)
{
  const std::string units[] = {"a", "ab", "aab", "abaab", "abcabd", std::string("a\0", 2), "\xFF\x80"};
  for (const std::string& unit : units)
    for (const std::size_t needleLength : {2u, 3u, 5u, 8u, 13u, 40u, 129u, 700u})
      for (const char last : {'\0', 'a', 'b', 'z'}) {
        std::string repeated;
        while (repeated.size() < 6000)
          repeated += unit;
        std::string needle = repeated.substr(0, needleLength - 1) + last;
        SCOPED_TRACE(quelmcl_test::quoted(needle) + " among repetitions of " + quelmcl_test::quoted(unit));
        expectFound(repeated, needle);
        expectFound(repeated + needle + repeated, needle);
        std::string turned(needle.rbegin(), needle.rend());
        expectFound(repeated, turned);
        expectFound(repeated + turned + repeated, turned);
        if (HasFailure())
          return;
      }
}

TEST(PeriodicNeedles, OfRandomUnitsAreFound)
{
  RandomTexts random;
  for (int round = 0; round < 1000 && !HasFailure(); ++round) {
    const std::string unit = random.text("ab", 8) + "a";
    std::string repeated;
    while (repeated.size() < 4000)
      repeated += unit;
    std::string text = repeated;
    for (unsigned wrong = random.below(4); wrong > 0; --wrong)
      text[random.below(4000)] ^= 'a' ^ 'b';
    const unsigned first = random.below(1000);
    std::string needle = repeated.substr(first, 1 + random.below(600));
    if (random.onceIn(2))
      needle[random.below(static_cast<unsigned>(needle.size()))] ^= 'a' ^ 'b';
    SCOPED_TRACE(needle);
    expectFound(text, needle);
  }
}

// Words of the Fibonacci kind repeat themselves as much as a text can without having a period.
TEST(FibonacciNeedles, AreFoundInFibonacciTexts)
{
  std::string before = "b";
  std::string word = "a";
  std::string needles[8];
  for (int i = 0; word.size() < 10000; ++i) {
    const std::string next = word + before;
    before = word;
    word = next;
    if (i < 8)
      needles[i] = word;
  }
  for (const std::string& needle : needles) {
    SCOPED_TRACE(needle.size());
    expectFound(word, needle);
    expectFound(word, needle + needle + needle + needle);
    expectFound(word, needle + "c");
    expectFound(word, "c" + needle);
  }
}

}  // namespace
