// whitespace_test.cpp - kernels: white space and words of a text, 64 bytes at a time.
#include "kernels/whitespace.hpp"

#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <string>

using quelmcl::detail::WhiteSpaceScan;
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

TEST(WhiteSpaceScan, FindsTheFirstPlaceFromAnyOn)
{
  RandomTexts random;
  for (int round = 0; round < 500; ++round) {
    const std::string text = textWithRuns(random);
    WhiteSpaceScan forwards(text.data(), text.size());
    for (std::size_t from = 0; from <= text.size() + 1; ++from) {
      ASSERT_EQ(forwards.firstWhite(from), orEnd(text.find_first_of(whiteSpace, from), text)) << from;
      ASSERT_EQ(forwards.firstOther(from), orEnd(text.find_first_not_of(whiteSpace, from), text)) << from;
    }
    for (std::size_t from = text.size(); from > 0; --from)
      ASSERT_EQ(forwards.firstWhite(from - 1), orEnd(text.find_first_of(whiteSpace, from - 1), text)) << from;
  }
}

TEST(WhiteSpaceScan, CountsWords)
{
  RandomTexts random;
  for (int round = 0; round < 500; ++round) {
    const std::string text = textWithRuns(random);
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
      if (whiteSpace.find(text[at]) == std::string::npos &&
          (at == 0 || whiteSpace.find(text[at - 1]) != std::string::npos))
        ++count;
    EXPECT_EQ(WhiteSpaceScan(text.data(), text.size()).countWords(), count) << testing::PrintToString(text);
  }
}

TEST(WhiteSpaceScan, FindsNothingInAnEmptyText)
{
  WhiteSpaceScan scan("", 0);
  EXPECT_EQ(scan.firstWhite(0), 0u);
  EXPECT_EQ(scan.firstOther(0), 0u);
  EXPECT_EQ(scan.countWords(), 0u);
}

}  // namespace
