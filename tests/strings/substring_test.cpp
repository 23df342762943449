// substring_test.cpp - IString: single bytes by position, to read and to write; parts of a text.
#include "string_probe.hpp"
#include "support/expect_text.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <string>

using namespace stringtests;

namespace {

enum Place { firstPlace = 1, secondPlace = 2 };

// ---------------------------------------------------------------------------------------------------------------------
// Reading

TEST(StringIndexing, CountsFromOneAndTakesZeroAsOne)
{
  const IString text("abc");
  EXPECT_EQ(text[1], 'a');
  EXPECT_EQ(text[3], 'c');
  EXPECT_EQ(text[0], 'a');
}

TEST(StringIndexing, TakesEveryIntegerType)
{
  const IString constant("abc");
  IString text("abc");
  const std::size_t size = 2;
  const short small = 2;
  EXPECT_EQ(constant[2], 'b');
  EXPECT_EQ(constant[2u], 'b');
  EXPECT_EQ(constant[2L], 'b');
  EXPECT_EQ(constant[2UL], 'b');
  EXPECT_EQ(constant[size], 'b');
  EXPECT_EQ(constant[small], 'b');
  EXPECT_EQ(constant[secondPlace], 'b');
  EXPECT_EQ(constant[true], 'a');
  EXPECT_EQ(text[2], 'b');
  EXPECT_EQ(text[2u], 'b');
  EXPECT_EQ(text[2L], 'b');
  EXPECT_EQ(text[2UL], 'b');
  EXPECT_EQ(text[size], 'b');
  EXPECT_EQ(text[small], 'b');
  EXPECT_EQ(text[firstPlace], 'a');
  EXPECT_EQ(text[true], 'a');
}

TEST(StringIndexing, ZeroOfEveryTypeIsTheFirstByte)
{
  const IString constant("abc");
  IString text("abc");
  EXPECT_EQ(constant[0u], 'a');
  EXPECT_EQ(constant[0L], 'a');
  EXPECT_EQ(constant[0UL], 'a');
  EXPECT_EQ(text[0], 'a');
  EXPECT_EQ(text[0u], 'a');
  EXPECT_EQ(text[0L], 'a');
  EXPECT_EQ(text[0UL], 'a');
}

TEST(StringIndexing, ReadsNulsInsideTheText)
{
  const IString text("a\0b", 3);
  EXPECT_EQ(text[2], '\0');
  EXPECT_EQ(text[3], 'b');
}

TEST(StringIndexing, ReadingGivesAReferenceIntoTheText)
{
  const IString text("abc");
  EXPECT_EQ(&text[2], static_cast<const char*>(text) + 1);
}

TEST(StringIndexing, ReadingDoesNotUnshare)
{
  const IString text("abc");
  const IString sharer(text);
  EXPECT_EQ(text[2], 'b');
  EXPECT_TRUE(shareText(text, sharer));
}

TEST(StringIndexing, ReadingPastTheEndIsRefused)
{
  const IString text("abc");
  EXPECT_EQ(errorIdOf([&] { (void)text[4]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[4u]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[4L]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[4UL]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[largest]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[ULONG_MAX]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[LONG_MAX]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[INT_MAX]; }), pastEnd);
}

TEST(StringIndexing, ReadingTheEmptyStringIsRefused)
{
  const IString empty;
  EXPECT_EQ(errorIdOf([&] { (void)empty[0]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)empty[1]; }), pastEnd);
}

TEST(StringIndexing, ANegativePositionIsRefusedInAllSignedForms)
{
  const IString constant("abc");
  IString text("abc");
  EXPECT_EQ(errorIdOf([&] { (void)constant[-1]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)constant[-1L]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)constant[INT_MIN]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)constant[LONG_MIN]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[-1]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[-1L]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[INT_MIN]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[LONG_MIN]; }), pastEnd);
  EXPECT_TEXT(text, "abc");
}

TEST(StringIndexing, ARefusalIsRecoverableAndSaysSomething)
{
  const IString text("abc");
  try {
    (void)text[4];
    ADD_FAILURE() << "reading past the end was not refused";
  } catch (const IInvalidRequest& failure) {
    EXPECT_EQ(failure.errorId(), pastEnd);
    EXPECT_TRUE(failure.isRecoverable());
    ASSERT_NE(failure.text(), nullptr);
    EXPECT_STRNE(failure.text(), "");
    EXPECT_EQ(failure.locationCount(), 1u);
  }
}

#if ULONG_MAX > UINT_MAX  // elsewhere there is no such number
TEST(StringIndexing, APositionOfMoreThan32BitsIsNotCut)
{
  const auto beyond = static_cast<unsigned long>((1ULL << 32) + 1);
  const IString constant("abc");
  IString text("abc");
  EXPECT_EQ(errorIdOf([&] { (void)constant[beyond]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)constant[static_cast<long>(beyond)]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[beyond]; }), tooLong);
  EXPECT_EQ(errorIdOf([&] { (void)text[static_cast<long>(beyond)]; }), tooLong);
  EXPECT_TEXT(text, "abc");
}
#endif

// ---------------------------------------------------------------------------------------------------------------------
// Writing

TEST(StringIndexing, WritesInPlaceForASoleOwner)
{
  IString text("abc");
  const char* const before = text;
  text[2] = 'X';
  text[0] = 'Y';
  EXPECT_TEXT(text, "YXc");
  EXPECT_EQ(static_cast<const char*>(text), before);
}

TEST(StringIndexing, TakesAPrivateCopyOfASharedText)
{
  IString text("abc");
  const IString sharer(text);
  text[2] = 'X';
  EXPECT_TEXT(text, "aXc");
  EXPECT_TEXT(sharer, "abc");
  EXPECT_EQ(useCountOf(text), 1u);
  EXPECT_EQ(useCountOf(sharer), 1u);
}

TEST(StringIndexing, ThePrivateCopyKeepsNuls)
{
  IString text("a\0b", 3);
  const IString sharer(text);
  text[3] = 'c';
  EXPECT_TEXT(text, bytes("a\0c"));
  EXPECT_TEXT(sharer, bytes("a\0b"));
}

TEST(StringIndexing, WritingPastTheEndLengthensByBlanks)
{
  IString text("abc");
  text[5] = 'x';
  EXPECT_TEXT(text, "abc x");
}

TEST(StringIndexing, TheByteBehindTheEndIsOneBlankMore)
{
  IString text("abc");
  EXPECT_EQ(text[4], ' ');
  EXPECT_TEXT(text, "abc ");
  EXPECT_EQ(text[4L], ' ');
  EXPECT_TEXT(text, "abc ");
}

TEST(StringIndexing, EveryIntegerTypeLengthens)
{
  IString byInt("ab");
  IString byUnsigned("ab");
  IString byLong("ab");
  IString byUnsignedLong("ab");
  byInt[4] = 'x';
  byUnsigned[4u] = 'x';
  byLong[4L] = 'x';
  byUnsignedLong[4UL] = 'x';
  EXPECT_TEXT(byInt, "ab x");
  EXPECT_TEXT(byUnsigned, "ab x");
  EXPECT_TEXT(byLong, "ab x");
  EXPECT_TEXT(byUnsignedLong, "ab x");
}

TEST(StringIndexing, LengthensASharedTextForItselfOnly)
{
  IString text("abc");
  const IString sharer(text);
  text[4] = 'd';
  EXPECT_TEXT(text, "abcd");
  EXPECT_TEXT(sharer, "abc");
  EXPECT_EQ(useCountOf(text), 1u);
  EXPECT_EQ(useCountOf(sharer), 1u);
}

TEST(StringIndexing, WritingIntoTheEmptyStringLengthensIt)
{
  IString byZero;
  IString byOne;
  IString byThree;
  byZero[0] = 'x';
  byOne[1] = 'x';
  byThree[3] = 'x';
  EXPECT_TEXT(byZero, "x");
  EXPECT_TEXT(byOne, "x");
  EXPECT_TEXT(byThree, "  x");
  EXPECT_TEXT(IString(), "");
}

TEST(StringIndexing, GrowthBeyondWhatAStringCanHoldIsRefused)
{
  IString text("abc");
  const IString sharer(text);
  EXPECT_EQ(errorIdOf([&] { (void)text[largest]; }), tooLong);
  EXPECT_EQ(errorIdOf([&] { (void)text[4294967275u]; }), tooLong);
  EXPECT_TEXT(text, "abc");
  EXPECT_TRUE(shareText(text, sharer));
  EXPECT_EQ(useCountOf(text), 2u);
}

TEST(StringIndexing, WritingANulKeepsTheLength)
{
  IString text("abc");
  text[2] = '\0';
  EXPECT_TEXT(text, bytes("a\0c"));
}

// ---------------------------------------------------------------------------------------------------------------------
// Parts

struct PartCase {
  const char* name;
  std::string text;
  unsigned startPos;
  unsigned length;
  char pad;
  std::string expected;
};

class StringPart : public testing::TestWithParam<PartCase> {};

TEST_P(StringPart, HasExactlyTheLengthAskedFor)
{
  const PartCase& row = GetParam();
  EXPECT_TEXT(made(row.text).subString(row.startPos, row.length, row.pad), row.expected);
}

const PartCase partCases[] = {
  {"inside", "abcde", 2, 3, '*', "bcd"},
  {"the_whole", "abcde", 1, 5, '*', "abcde"},
  {"padded_at_the_end", "abc", 2, 5, '*', "bc***"},
  {"partly_past_the_end", "abcde", 4, 3, '.', "de."},
  {"wholly_past_the_end", "abcde", 9, 2, '.', ".."},
  {"just_past_the_end", "abcde", 6, 2, '.', ".."},
  {"from_the_last_byte", "abcde", 5, 2, '.', "e."},
  {"from_zero_is_from_one", "abcde", 0, 2, '*', "ab"},
  {"from_the_largest_position", "abcde", 4294967295u, 2, '.', ".."},
  {"of_no_length", "abcde", 2, 0, '*', ""},
  {"of_the_empty_text", "", 1, 3, '-', "---"},
  {"of_the_empty_text_from_zero", "", 0, 1, '-', "-"},
  {"with_nuls", std::string("a\0b\0", 4), 2, 4, '\0', std::string("\0b\0\0", 4)},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringPart, testing::ValuesIn(partCases),
                         [](const testing::TestParamInfo<PartCase>& row) { return std::string(row.param.name); });

TEST(StringPart, IsPaddedWithBlanksUnlessToldOtherwise)
{
  EXPECT_TEXT(IString("abc").subString(3, 3), "c  ");
}

TEST(StringPart, WithoutALengthGoesToTheEnd)
{
  const IString text("abc");
  EXPECT_TEXT(text.subString(1), "abc");
  EXPECT_TEXT(text.subString(2), "bc");
  EXPECT_TEXT(text.subString(3), "c");
}

TEST(StringPart, WithoutALengthFromPastTheEndIsEmpty)
{
  EXPECT_TEXT(IString("abc").subString(4), "");
  EXPECT_TEXT(IString("abc").subString(5), "");
  EXPECT_TEXT(IString("abc").subString(largest), "");
  EXPECT_TEXT(IString().subString(1), "");
}

TEST(SubString, FromZeroIsTheWholeTextAndABlank)
{
  EXPECT_TEXT(IString("abc").subString(0), "abc ");
  EXPECT_TEXT(IString().subString(0), " ");
}

TEST(StringPart, OfNoLengthSharesTheNullBuffer)
{
  EXPECT_TRUE(shareText(IString("abc").subString(2, 0), IString()));
}

TEST(StringPart, IsATextOfItsOwn)
{
  IString text("abcdef");
  const IString part = text.subString(2, 3);
  text[3] = 'X';
  EXPECT_TEXT(part, "bcd");
  EXPECT_EQ(useCountOf(part), 1u);
}

TEST(StringPart, LeavesTheStringAlone)
{
  const IString text("abcdef");
  const IString part = text.subString(5, 10, '*');
  EXPECT_TEXT(text, "abcdef");
  EXPECT_EQ(useCountOf(text), 1u);
}

TEST(StringPart, OfALengthThatNoStringCanHaveIsRefused)
{
  const IString text("abc");
  EXPECT_EQ(errorIdOf([&] { (void)text.subString(1, largest); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { (void)text.subString(5, largest); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { (void)text.subString(2, 4294967275u); }), tooLong);
  EXPECT_TEXT(text, "abc");
}

TEST(StringPart, OfPartsWorksOnTemporaries)
{
  EXPECT_TEXT(IString("abcdef").subString(2).subString(2, 2), "cd");
}

}  // namespace
