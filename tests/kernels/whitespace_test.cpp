// whitespace_test.cpp - kernels: white space and words of a text, 64 bytes at a time.
#include "kernels/whitespace.hpp"

#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <string>

using quelmcl::detail::WordEdges;
using quelmcl_test::RandomTexts;

namespace {

const std::string whiteSpace = "\t\n\v\f\r ";

std::size_t orEnd(std::size_t found, const std::string& text)
{
  return found == std::string::npos ? text.size() : found;
}

/// Texts with runs of white space and words of all lengths around that of a block.
std::string textWithRuns(RandomTexts& random)
{
  std::string text;
  for (unsigned runs = random.below(8); runs > 0; --runs)
    text += random.onceIn(2) ? random.text(whiteSpace, 140) : random.text(std::string("ab\0\x80\x1F!", 6), 140);
  return text;
}

TEST(WordSeparators, AreTheWhiteSpaceBytes)
{
  const std::string separators(quelmcl::detail::wordSeparators, quelmcl::detail::wordSeparatorCount);
  EXPECT_EQ(separators, whiteSpace);
  for (int code = 0; code < 256; ++code) {
    const char byte = static_cast<char>(code);
    EXPECT_EQ(quelmcl::detail::isWhiteSpace(byte), whiteSpace.find(byte) != std::string::npos) << code;
  }
}

TEST(WordEdges, AreWhereWordsBeginAndEndFromAnyPlaceOn)
{
  RandomTexts random;
  for (int round = 0; round < 500; ++round) {
    const std::string text = textWithRuns(random);
    for (std::size_t from = 0; from <= text.size(); ++from) {
      WordEdges edges(text.data(), text.size(), from);
      for (std::size_t begin = from;;) {
        begin = orEnd(text.find_first_not_of(whiteSpace, begin), text);
        ASSERT_EQ(edges.next(), begin) << from;
        if (begin == text.size())
          break;
        begin = orEnd(text.find_first_of(whiteSpace, begin), text);
        ASSERT_EQ(edges.next(), begin) << from;
      }
      ASSERT_EQ(edges.next(), text.size()) << "and there are no more from " << from;
    }
  }
}

TEST(WordEdges, ThatAreSkippedAreNotGiven)
{
  RandomTexts random;
  for (int round = 0; round < 500; ++round) {
    const std::string text = textWithRuns(random);
    const std::size_t from = random.below(static_cast<unsigned>(text.size() + 1));
    for (std::size_t skipped = 0; skipped < 20; ++skipped) {
      WordEdges given(text.data(), text.size(), from);
      WordEdges stepped = given;
      given.skip(skipped);
      for (std::size_t step = 0; step < skipped; ++step)
        stepped.next();
      for (int step = 0; step < 20; ++step)
        ASSERT_EQ(given.next(), stepped.next())
          << skipped << " from " << from << " of " << testing::PrintToString(text);
    }
  }
}

TEST(WordEdges, AreNoneInAnEmptyText)
{
  EXPECT_EQ(WordEdges("", 0, 0).next(), 0u);
}

}  // namespace
