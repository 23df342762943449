// comparison_test.cpp - buffers: comparison with bytes.
#include "buffer_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace buffertests;

namespace {

struct CompareCase {
  const char* name;
  std::string text;
  std::string other;
  IBuffer::Comparison expected;
};

class BufferComparison : public testing::TestWithParam<CompareCase> {};

TEST_P(BufferComparison, IsLexicographicOnUnsignedBytes)
{
  const CompareCase& row = GetParam();
  const Owned text(SingleByteBuffer::holding(row.text));
  const Owned sameOfThisProcess(ofThisProcess(row.text));
  const Exactly other(row.other);
  EXPECT_EQ(text->compare(other.data(), other.size()), row.expected);
  EXPECT_EQ(sameOfThisProcess->compare(other.data(), other.size()), row.expected);
}

const CompareCase compareCases[] = {
  {"equal_texts", "abc", "abc", IBuffer::equal},
  {"a_smaller_byte_decides", "abc", "abd", IBuffer::lessThan},
  {"a_larger_byte_decides", "abd", "abc", IBuffer::greaterThan},
  {"the_first_difference_decides", "bac", "abd", IBuffer::greaterThan},
  {"a_difference_outweighs_the_length", "b", "abc", IBuffer::greaterThan},
  {"the_longer_text_is_greater", "abc", "ab", IBuffer::greaterThan},
  {"the_shorter_text_is_less", "ab", "abc", IBuffer::lessThan},
  {"nothing_and_nothing", "", "", IBuffer::equal},
  {"nothing_is_less_than_something", "", "a", IBuffer::lessThan},
  {"nothing_is_less_than_a_nul", "", bytes("\0"), IBuffer::lessThan},
  {"something_is_greater_than_nothing", "a", "", IBuffer::greaterThan},
  {"a_nul_is_greater_than_nothing", bytes("\0"), "", IBuffer::greaterThan},
  {"nuls_are_compared_like_other_bytes", bytes("a\0b"), bytes("a\0c"), IBuffer::lessThan},
  {"a_nul_more_is_greater", bytes("a\0"), "a", IBuffer::greaterThan},
  {"bytes_above_7F_are_greater_than_letters", "\x80", "z", IBuffer::greaterThan},
  {"letters_are_less_than_bytes_above_7F", "z", "\xFF", IBuffer::lessThan},
  {"capitals_are_less_than_small_letters", "ABC", "abc", IBuffer::lessThan},
};

INSTANTIATE_TEST_SUITE_P(Rows, BufferComparison, testing::ValuesIn(compareCases),
                         [](const testing::TestParamInfo<CompareCase>& row) { return std::string(row.param.name); });

TEST(BufferCompare, WithItselfAndItsOwnLengthIsEqual)
{
  const Owned text(SingleByteBuffer::holding("abc"));
  EXPECT_EQ(text->compare(text->contents(), 3), IBuffer::equal);
}

TEST(BufferCompare, WithAPartOfItselfIsNot)
{
  const Owned text(SingleByteBuffer::holding("abc"));
  EXPECT_EQ(text->compare(text->contents(), 2), IBuffer::greaterThan);
  EXPECT_EQ(text->compare(text->contents() + 1, 2), IBuffer::lessThan);
}

TEST(BufferCompare, IsGreaterThanANullPointerWhateverTheText)
{
  EXPECT_EQ(Owned(SingleByteBuffer::holding("abc"))->compare(nullptr, 0), IBuffer::greaterThan);
  EXPECT_EQ(Owned(SingleByteBuffer::holding(""))->compare(nullptr, 0), IBuffer::greaterThan);
  EXPECT_EQ(IBuffer::defaultBuffer()->compare(nullptr, 0), IBuffer::greaterThan);
  EXPECT_EQ(Owned(SingleByteBuffer::holding(""))->compare(nullptr, 5), IBuffer::greaterThan);
}

TEST(BufferCompare, HasTheThreeAnswersAsNumbers)
{
  EXPECT_EQ(static_cast<int>(IBuffer::equal), 0);
  EXPECT_EQ(static_cast<int>(IBuffer::greaterThan), 1);
  EXPECT_EQ(static_cast<int>(IBuffer::lessThan), 2);
}

TEST(BufferCompare, AgreesWithTheReference)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 5000; ++round) {
    const std::string text = random.text();
    const std::string other = random.onceIn(2) ? random.needleFor(text) : random.textLike(text, 40);
    const Owned buffer(random.onceIn(2) ? SingleByteBuffer::holding(text) : ofThisProcess(text));
    const Exactly bytesOfOther(other);
    ASSERT_EQ(static_cast<int>(buffer->compare(bytesOfOther.data(), bytesOfOther.size())),
              reference::compare(text, other))
      << quelmcl_test::quoted(text) << " and " << quelmcl_test::quoted(other);
  }
}

}  // namespace
