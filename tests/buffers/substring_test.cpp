// substring_test.cpp - buffers: parts of a text, always exactly as long as asked for.
#include "buffer_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace buffertests;

namespace {

struct PartCase {
  const char* name;
  std::string text;
  unsigned start;
  unsigned length;
  std::string expected;
};

class BufferSubString : public testing::TestWithParam<PartCase> {};

TEST_P(BufferSubString, IsExactlyAsLongAsAskedFor)
{
  const PartCase& row = GetParam();
  const Owned text(SingleByteBuffer::holding(row.text));
  const Owned sameOfThisProcess(ofThisProcess(row.text));
  EXPECT_TEXT(*Owned(text->subString(row.start, row.length, '.')), row.expected);
  EXPECT_TEXT(*Owned(sameOfThisProcess->subString(row.start, row.length, '.')), row.expected);
  EXPECT_TEXT(*text, row.text, 1);
}

const PartCase partCases[] = {
  {"a_part_in_the_middle", "abcde", 2, 3, "bcd"},
  {"a_part_that_reaches_past_the_end_is_padded", "abcde", 4, 3, "de."},
  {"a_start_past_the_end_gives_pad_characters", "abcde", 9, 2, ".."},
  {"a_start_just_past_the_end_gives_pad_characters", "abcde", 6, 2, ".."},
  {"the_largest_start_gives_pad_characters", "abcde", largest, 2, ".."},
  {"a_start_of_0_means_1", "abcde", 0, 2, "ab"},
  {"the_last_byte", "abcde", 5, 1, "e"},
  {"the_whole_text", "abcde", 1, 5, "abcde"},
  {"the_whole_text_and_one_more", "abcde", 1, 6, "abcde."},
  {"no_length", "abcde", 2, 0, ""},
  {"no_length_past_the_end", "abcde", 9, 0, ""},
  {"of_no_text", "", 1, 3, "..."},
  {"nuls_are_bytes_like_others", bytes("a\0b"), 2, 3, bytes("\0b.")},
};

INSTANTIATE_TEST_SUITE_P(Rows, BufferSubString, testing::ValuesIn(partCases),
                         [](const testing::TestParamInfo<PartCase>& row) { return std::string(row.param.name); });

TEST(BufferPart, IsANewBufferEvenWhenItIsTheWholeText)
{
  const Owned text(SingleByteBuffer::holding("abc"));
  const Owned part(text->subString(1, 3, ' '));
  EXPECT_NE(part.get(), text.get());
  EXPECT_TEXT(*part, "abc", 1);
  EXPECT_TEXT(*text, "abc", 1);
}

TEST(BufferPart, WithoutLengthIsTheNullBuffer)
{
  const Owned text(SingleByteBuffer::holding("abc"));
  IBuffer* const null = text->null();
  const unsigned count = null->useCount();
  const Owned part(text->subString(2, 0, ' '));
  EXPECT_EQ(part.get(), null);
  EXPECT_EQ(null->useCount(), count + 1);
}

TEST(BufferPart, PadsWithNulsWhenToldTo)
{
  const Owned text(SingleByteBuffer::holding("a"));
  EXPECT_TEXT(*Owned(text->subString(1, 3, '\0')), "a\0\0");
}

TEST(BufferPart, AgreesWithTheReference)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 5000; ++round) {
    const std::string text = random.text();
    const unsigned start = random.position(text.size());
    const unsigned length = random.newLength(text.size());
    const char pad = random.byte();
    const Owned buffer(random.onceIn(2) ? SingleByteBuffer::holding(text) : ofThisProcess(text));
    EXPECT_TEXT(*Owned(buffer->subString(start, length, pad)), reference::subString(text, start, length, pad))
      << "start " << start << ", length " << length << ", text " << quelmcl_test::quoted(text);
    if (HasFailure())
      return;
  }
}

}  // namespace
