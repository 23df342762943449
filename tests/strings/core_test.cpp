// core_test.cpp - IString: construction from every type, assignment, moves, sharing, conversions, comparison, debug text.
#include "string_probe.hpp"
#include "support/expect_text.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

using namespace stringtests;

namespace {

enum Colour { red = 0, blue = 7 };

template <class Number>
std::string digitsOf(Number number)
{
  return std::to_string(number);
}

// ---------------------------------------------------------------------------------------------------------------------
// Construction

TEST(StringConstruction, WithoutArgumentsIsEmpty)
{
  const IString empty;
  EXPECT_TEXT(empty, "");
  EXPECT_EQ(empty.length(), 0u);
  EXPECT_EQ(empty.size(), 0u);
}

TEST(StringConstruction, FromANullTextPointerSharesTheNullBuffer)
{
  const IString empty;
  const IString fromNull(static_cast<const char*>(nullptr));
  EXPECT_TEXT(fromNull, "");
  EXPECT_TRUE(shareText(fromNull, empty));
}

TEST(StringConstruction, FromNullPointersOfEveryKindIsEmpty)
{
  EXPECT_TEXT(IString(static_cast<const unsigned char*>(nullptr)), "");
  EXPECT_TEXT(IString(static_cast<const signed char*>(nullptr)), "");
  EXPECT_TEXT(IString(nullptr), "");
  char* const writable = nullptr;
  EXPECT_TEXT(IString(writable), "");
}

TEST(StringConstruction, EmptyStringsOfEveryOriginShareOneBuffer)
{
  const IString reference;
  EXPECT_TRUE(shareText(IString(""), reference));
  EXPECT_TRUE(shareText(IString("abc", 0u), reference));
  EXPECT_TRUE(shareText(IString(nullptr), reference));
  EXPECT_TRUE(shareText(IString(nullptr, 0u, '*'), reference));
  EXPECT_TRUE(shareText(IString("abc").remove(1), reference));
  EXPECT_TRUE(shareText(IString("abc").copy(0), reference));
  EXPECT_TRUE(shareText(IString("   ").strip(), reference));
  EXPECT_TRUE(shareText(IString("abc").leftJustify(0), reference));
  EXPECT_TRUE(shareText(IString("abc").subString(4), reference));
  EXPECT_TRUE(shareText(IString("abc").subString(1, 0), reference));
  EXPECT_TRUE(shareText(IString("abc").change("abc", ""), reference));
}

TEST(StringConstruction, OfEmptyStringsCountsOnTheNullBuffer)
{
  const IString first;
  const unsigned before = useCountOf(first);
  {
    const IString second;
    const IString third(second);
    EXPECT_EQ(useCountOf(first), before + 2);
  }
  EXPECT_EQ(useCountOf(first), before);
}

TEST(StringConstruction, FromATextPointerEndsAtTheFirstNul)
{
  EXPECT_TEXT(IString("abc"), "abc");
  EXPECT_TEXT(IString("ab\0cd"), "ab");
  char writable[8] = "abc";
  EXPECT_TEXT(IString(writable), "abc");
}

TEST(StringConstruction, FromUnsignedAndSignedTextKeepsTheBytes)
{
  const unsigned char asUnsigned[] = {'x', 'y', 0};
  const signed char asSigned[] = {'z', 'w', 0};
  EXPECT_TEXT(IString(asUnsigned), "xy");
  EXPECT_TEXT(IString(asSigned), "zw");
}

TEST(StringConstruction, OwnsACopyOfItsSource)
{
  char source[] = "abc";
  const IString copy(source);
  source[0] = 'X';
  EXPECT_TEXT(copy, "abc");
}

TEST(StringConstruction, FromACharacterIsThatOneByte)
{
  EXPECT_TEXT(IString('a'), "a");
  EXPECT_TEXT(IString(static_cast<unsigned char>('b')), "b");
  EXPECT_TEXT(IString(static_cast<signed char>('c')), "c");
}

TEST(StringConstruction, FromANulCharacterIsOneByteLong)
{
  EXPECT_TEXT(IString('\0'), bytes("\0"));
}

TEST(StringConstruction, FromAHighByteKeepsIt)
{
  EXPECT_EQ(bytesOf(IString(static_cast<unsigned char>(0xE4))), "\xE4");
  EXPECT_EQ(bytesOf(IString(static_cast<signed char>(-1))), "\xFF");
}

TEST(StringConstruction, FromAnIntegerIsItsDecimalText)
{
  EXPECT_TEXT(IString(5), "5");
  EXPECT_TEXT(IString(-5), "-5");
  EXPECT_TEXT(IString(5u), "5");
  EXPECT_TEXT(IString(5L), "5");
  EXPECT_TEXT(IString(5UL), "5");
  EXPECT_TEXT(IString(5LL), "5");
  EXPECT_TEXT(IString(5ULL), "5");
  EXPECT_TEXT(IString(true), "1");
  EXPECT_TEXT(IString(blue), "7");
}

TEST(StringConstruction, FromAShortKeepsItsSign)
{
  EXPECT_TEXT(IString(static_cast<short>(-1)), "-1");
  EXPECT_TEXT(IString(static_cast<unsigned short>(65535)), "65535");
}

TEST(StringConstruction, FromTheLimitsOfEveryIntegerType)
{
  EXPECT_TEXT(IString(SHRT_MIN), "-32768");
  EXPECT_TEXT(IString(static_cast<short>(SHRT_MIN)), "-32768");
  EXPECT_TEXT(IString(static_cast<short>(SHRT_MAX)), "32767");
  EXPECT_TEXT(IString(INT_MIN), "-2147483648");
  EXPECT_TEXT(IString(INT_MAX), "2147483647");
  EXPECT_TEXT(IString(UINT_MAX), "4294967295");
  EXPECT_TEXT(IString(LONG_MIN), digitsOf(LONG_MIN));
  EXPECT_TEXT(IString(LONG_MAX), digitsOf(LONG_MAX));
  EXPECT_TEXT(IString(ULONG_MAX), digitsOf(ULONG_MAX));
}

TEST(StringConstruction, From64BitNumbersHasTheSameDigitsAtBothWidths)
{
  EXPECT_TEXT(IString(INT64_MIN), "-9223372036854775808");
  EXPECT_TEXT(IString(INT64_MAX), "9223372036854775807");
  EXPECT_TEXT(IString(UINT64_MAX), "18446744073709551615");
  EXPECT_TEXT(IString(LLONG_MIN), "-9223372036854775808");
  EXPECT_TEXT(IString(ULLONG_MAX), "18446744073709551615");
}

TEST(StringConstruction, FromASizeIsItsDecimalText)
{
  const std::size_t size = 4294967295u;
  EXPECT_TEXT(IString(size), "4294967295");
}

TEST(StringConstruction, FromZeroIsTheDigitZeroAndNeverEmpty)
{
  const IString direct(0);
  const IString copied = 0;
  IString assigned("abc");
  assigned = 0;
  EXPECT_TEXT(direct, "0");
  EXPECT_TEXT(copied, "0");
  EXPECT_TEXT(assigned, "0");
  EXPECT_TEXT(IString(red), "0");
  EXPECT_TEXT(IString(false), "0");
}

struct DoubleCase {
  const char* name;
  double number;
  const char* expected;
};

class StringFromDouble : public testing::TestWithParam<DoubleCase> {};

TEST_P(StringFromDouble, HasUpTo15SignificantDigits)
{
  EXPECT_TEXT(IString(GetParam().number), GetParam().expected);
}

const DoubleCase doubleCases[] = {
  {"one_tenth", 0.1, "0.1"},
  {"a_whole_number_has_no_point", 3.0, "3"},
  {"nine_digits_stay_digits", 123456789.0, "123456789"},
  {"one_third_ends_after_15_digits", 1.0 / 3.0, "0.333333333333333"},
  {"fifteen_digits_stay_digits", 123456789012345.0, "123456789012345"},
  {"sixteen_digits_become_a_power", 1234567890123456.0, "1.23456789012346e+15"},
  {"a_large_number_is_a_power_of_ten", 1e20, "1e+20"},
  {"a_small_number_is_a_power_of_ten", 1e-5, "1e-05"},
  {"negative", -2.5, "-2.5"},
  {"zero", 0.0, "0"},
  {"the_largest_double", DBL_MAX, "1.79769313486232e+308"},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringFromDouble, testing::ValuesIn(doubleCases),
                         [](const testing::TestParamInfo<DoubleCase>& row) { return std::string(row.param.name); });

TEST(StringConstruction, FromAFloatIsTheTextOfItsValue)
{
  EXPECT_TEXT(IString(1.5f), "1.5");
}

TEST(StringConstruction, FromPointerAndLengthTakesNulBytesAsBytes)
{
  EXPECT_TEXT(IString("abc", 2), "ab");
  EXPECT_TEXT(IString("a\0b", 3u), bytes("a\0b"));
}

TEST(StringConstruction, FromPointerAndSizeTakesThatManyBytes)
{
  const std::size_t two = 2;
  EXPECT_TEXT(IString("abc", two), "ab");
  EXPECT_TEXT(IString("ab", two, "cd", two), "abcd");
  EXPECT_TEXT(IString("ab", two, "cd", 1u), "abc");
  EXPECT_TEXT(IString("ab", 1u, "cd", two, "ef", two), "acdef");
}

TEST(StringConstruction, FromANullPointerAndLengthIsPadding)
{
  EXPECT_TEXT(IString(nullptr, 3u, '*'), "***");
  EXPECT_TEXT(IString(nullptr, 3u), "   ");
  EXPECT_TEXT(IString(0, 3, '*'), "***");
}

TEST(StringConstruction, FromTwoPiecesJoinsThem)
{
  EXPECT_TEXT(IString("ab", 2, "cd", 2), "abcd");
  EXPECT_TEXT(IString("ab", 2, nullptr, 3, '-'), "ab---");
  EXPECT_TEXT(IString(nullptr, 2, "cd", 2, '-'), "--cd");
  EXPECT_TEXT(IString("ab", 0, "cd", 2), "cd");
  EXPECT_TEXT(IString(nullptr, 1, nullptr, 1), "  ");
}

TEST(StringConstruction, FromThreePiecesJoinsThem)
{
  EXPECT_TEXT(IString("ab", 2, "cd", 2, "ef", 2), "abcdef");
  EXPECT_TEXT(IString("ab", 2, nullptr, 2, "ef", 2, '.'), "ab..ef");
  EXPECT_TEXT(IString(nullptr, 1, "cd", 2, nullptr, 1), " cd ");
  EXPECT_TEXT(IString("ab", 0, "cd", 0, "ef", 0), "");
}

TEST(StringConstruction, FromPiecesCopiesTheirNuls)
{
  EXPECT_TEXT(IString("a\0", 2, "\0b", 2), bytes("a\0\0b"));
}

TEST(StringConstruction, OfALengthThatNoStringCanHaveIsRefused)
{
  EXPECT_EQ(errorIdOf([] { const IString text(nullptr, largest, '*'); }), tooLong);
  EXPECT_EQ(errorIdOf([] { const IString text(nullptr, 4294967275u, '*'); }), tooLong);
  EXPECT_EQ(errorIdOf([] { const IString text("abc", 4294967290u, "de", 5u); }), tooLong);
  EXPECT_EQ(errorIdOf([] { const IString text("a", 1u, "b", 1u, nullptr, 4294967293u); }), tooLong);
}

TEST(StringConstruction, OfASizeThatDoesNotFitInto32BitsIsRefusedRatherThanCut)
{
  const unsigned long long fourGigabytes = 1ULL << 32;
  EXPECT_EQ(errorIdOf([=] { const IString text("abc", fourGigabytes + 1); }), tooLong);
  EXPECT_EQ(errorIdOf([=] { const IString text("abc", 1u, "abc", fourGigabytes + 1); }), tooLong);
  EXPECT_EQ(errorIdOf([=] { const IString text("abc", 1u, "abc", 1u, "abc", fourGigabytes + 1); }), tooLong);
  EXPECT_EQ(errorIdOf([] { const IString text("abc", -1LL); }), tooLong);
}

TEST(StringConstruction, WithBraces)
{
  const IString none{};
  const IString copied = {};
  const IString text{"abc"};
  IString assigned("abc");
  assigned = {};
  EXPECT_TEXT(none, "");
  EXPECT_TEXT(copied, "");
  EXPECT_TEXT(text, "abc");
  EXPECT_TEXT(assigned, "");
}

TEST(StringConstants, HaveTheirTexts)
{
  EXPECT_STREQ(IString::null, "");
  EXPECT_STREQ(IString::zero, "0");
  EXPECT_STREQ(IString::maxLong, "2147483647L");
  EXPECT_EQ(std::strlen(IString::maxLong), 11u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Copies, assignment, moves

TEST(StringCopy, SharesTheBufferUntilOneOfThemChanges)
{
  const IString original("abc");
  IString copy(original);
  EXPECT_TRUE(shareText(original, copy));
  EXPECT_EQ(useCountOf(original), 2u);

  copy.upperCase();
  EXPECT_FALSE(shareText(original, copy));
  EXPECT_TEXT(original, "abc");
  EXPECT_TEXT(copy, "ABC");
  EXPECT_EQ(useCountOf(original), 1u);
  EXPECT_EQ(useCountOf(copy), 1u);
}

TEST(StringCopy, GivesItsReferenceBackWhenItEnds)
{
  const IString original("abc");
  {
    const IString copy(original);
    const IString another = copy.asString();
    EXPECT_EQ(useCountOf(original), 3u);
  }
  EXPECT_EQ(useCountOf(original), 1u);
}

TEST(StringCopy, OutlivesItsOriginal)
{
  IString copy;
  {
    const IString original("a text that is gone");
    copy = original;
  }
  EXPECT_TEXT(copy, "a text that is gone");
  EXPECT_EQ(useCountOf(copy), 1u);
}

TEST(StringAssignment, SharesTheTextOfTheSource)
{
  const IString source("abc");
  IString target("old");
  IString& result = (target = source);
  EXPECT_EQ(&result, &target);
  EXPECT_TEXT(target, "abc");
  EXPECT_TRUE(shareText(source, target));
  EXPECT_EQ(useCountOf(source), 2u);
}

TEST(StringAssignment, GivesTheOldTextBack)
{
  const IString old("old");
  IString target(old);
  EXPECT_EQ(useCountOf(old), 2u);
  target = IString("new");
  EXPECT_EQ(useCountOf(old), 1u);
}

TEST(StringAssignment, ToItselfLeavesTextAndCount)
{
  IString text("abc");
  const IString sharer(text);
  const IBuffer* const before = bufferOf(text);
  IString& same = text;
  text = same;
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(bufferOf(text), before);
  EXPECT_EQ(useCountOf(text), 2u);
}

TEST(StringAssignment, OfASoleOwnerToItselfKeepsItsText)
{
  IString text("abc");
  IString& same = text;
  text = same;
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(useCountOf(text), 1u);
}

TEST(StringAssignment, TakesWhateverAStringCanBeMadeFrom)
{
  char writable[8] = "buf";
  IString text;
  EXPECT_TEXT(text = "a", "a");
  EXPECT_TEXT(text = 'b', "b");
  EXPECT_TEXT(text = 5, "5");
  EXPECT_TEXT(text = 1.5, "1.5");
  EXPECT_TEXT(text = writable, "buf");
  EXPECT_TEXT(text = nullptr, "");
}

TEST(StringAssignment, FromAPointerIntoItsOwnTextReadsItFirst)
{
  IString text("abc");
  text = static_cast<const char*>(text) + 1;
  EXPECT_TEXT(text, "bc");
}

TEST(StringMove, NeverThrows)
{
  static_assert(std::is_nothrow_move_constructible<IString>::value, "a moved string allocates nothing");
  static_assert(std::is_nothrow_move_assignable<IString>::value, "a moved string allocates nothing");
  IString source("abc");
  EXPECT_TRUE(noexcept(IString(std::move(source))));
}

TEST(StringMove, TakesTheTextWithoutAReferenceMore)
{
  IString source("abc");
  const IBuffer* const before = bufferOf(source);
  const IString target(std::move(source));
  EXPECT_TEXT(target, "abc");
  EXPECT_EQ(bufferOf(target), before);
  EXPECT_EQ(useCountOf(target), 1u);
}

TEST(StringMove, LeavesAnEmptyStringThatCanBeUsed)
{
  IString source("abc");
  const IString target(std::move(source));
  EXPECT_TEXT(source, "");
  EXPECT_TRUE(shareText(source, IString()));
  source += "new";
  EXPECT_TEXT(source, "new");
  EXPECT_TEXT(target, "abc");
}

TEST(StringMove, ByAssignmentGivesTheOldTextBackAndEmptiesTheSource)
{
  const IString old("old");
  IString target(old);
  IString source("abc");
  const IBuffer* const before = bufferOf(source);
  IString& result = (target = std::move(source));
  EXPECT_EQ(&result, &target);
  EXPECT_EQ(bufferOf(target), before);
  EXPECT_EQ(useCountOf(target), 1u);
  EXPECT_EQ(useCountOf(old), 1u);
  EXPECT_TEXT(source, "");
  source[1] = 'x';
  EXPECT_TEXT(source, "x");
}

TEST(StringMove, ToItselfKeepsTheText)
{
  IString text("abc");
  IString& same = text;
  text = std::move(same);
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(useCountOf(text), 1u);
}

TEST(StringMove, KeepsTheCountOfTheNullBuffer)
{
  const IString watch;
  const unsigned before = useCountOf(watch);
  {
    IString source("abc");
    IString target(std::move(source));
    IString back(std::move(target));
    source = std::move(back);
  }
  EXPECT_EQ(useCountOf(watch), before);
}

TEST(StringMove, WorksForASharedText)
{
  const IString sharer("abc");
  IString source(sharer);
  const IString target(std::move(source));
  EXPECT_TRUE(shareText(sharer, target));
  EXPECT_EQ(useCountOf(sharer), 2u);
}

TEST(StringSwap, ExchangesTheTexts)
{
  IString one("one");
  IString two("two");
  std::swap(one, two);
  EXPECT_TEXT(one, "two");
  EXPECT_TEXT(two, "one");
}

// ---------------------------------------------------------------------------------------------------------------------
// Access

TEST(StringPointer, IsTheTextInAllThreeKindsAndForConstStrings)
{
  IString text("abc");
  const IString constant("abc");
  char* const plain = text;
  const char* const constantPlain = constant;
  unsigned char* const asUnsigned = text;
  signed char* const asSigned = text;
  EXPECT_STREQ(plain, "abc");
  EXPECT_STREQ(constantPlain, "abc");
  EXPECT_EQ(static_cast<void*>(asUnsigned), static_cast<void*>(plain));
  EXPECT_EQ(static_cast<void*>(asSigned), static_cast<void*>(plain));
  EXPECT_EQ(plain, bufferOf(text)->contents());
}

TEST(StringPointer, OfAnEmptyStringIsAnEmptyText)
{
  const IString empty;
  EXPECT_STREQ(static_cast<const char*>(empty), "");
}

TEST(StringPointer, ServesTheFunctionsOfC)
{
  const IString text("42");
  char copy[8];
  EXPECT_EQ(std::strlen(text), 2u);
  EXPECT_EQ(std::atoi(text), 42);
  EXPECT_STREQ(std::strcpy(copy, text), "42");
}

TEST(StringLength, CountsEveryByteAlsoBehindANul)
{
  const IString text("a\0b", 3);
  EXPECT_EQ(text.length(), 3u);
  EXPECT_EQ(text.size(), 3u);
}

TEST(StringDebugText, NamesTheStringAndItsBuffer)
{
  const IString text("hello");
  const std::string expected =
    "IString(@" + digitsOf(reinterpret_cast<std::uintptr_t>(&text)) + ",pBuffer->" + bufferOf(text)->className() +
    "(@" + digitsOf(reinterpret_cast<std::uintptr_t>(bufferOf(text))) + ",refs=1,len=5,data=[hello]))";
  EXPECT_TEXT(text.asDebugInfo(), expected);
}

TEST(StringDebugText, CountsTheSharers)
{
  const IString text("hello");
  const IString sharer(text);
  EXPECT_GT(text.asDebugInfo().indexOf(",refs=2,len=5,data=[hello]))"), 0u);
}

TEST(StringDebugText, OfALongTextShowsItsEnds)
{
  const IString text("0123456789abcdefghijklmn");
  EXPECT_GT(text.asDebugInfo().indexOf(",len=24,data=[0123456789...efghijklmn]))"), 0u);
}

TEST(StringDebugText, EndsAtANulOfAShortText)
{
  const IString text("ab\0cd", 5);
  EXPECT_GT(text.asDebugInfo().indexOf(",len=5,data=[ab]))"), 0u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Numbers from texts

struct IntegerCase {
  const char* name;
  const char* text;
  long asInt;
  unsigned long asUnsigned;
};

class StringAsInteger : public testing::TestWithParam<IntegerCase> {};

TEST_P(StringAsInteger, IsTheLeadingDecimalNumber)
{
  const IString text(GetParam().text);
  EXPECT_EQ(text.asInt(), GetParam().asInt);
  EXPECT_EQ(text.asUnsigned(), GetParam().asUnsigned);
}

const IntegerCase integerCases[] = {
  {"plain", "123", 123, 123},
  {"empty", "", 0, 0},
  {"no_number", "abc", 0, 0},
  {"only_white_space", " \t ", 0, 0},
  {"only_a_sign", "-", 0, 0},
  {"two_signs", "--5", 0, 0},
  {"sign_apart_from_its_digits", "- 5", 0, 0},
  {"behind_white_space", " \t\n\v\f\r42", 42, 42},
  {"before_other_text", "42abc", 42, 42},
  {"before_a_point", "42.9", 42, 42},
  {"before_an_exponent", "1e5", 1, 1},
  {"after_other_text", "abc42", 0, 0},
  {"with_a_plus", "+7", 7, 7},
  {"negative_is_zero_when_unsigned", "-7", -7, 0},
  {"negative_zero", "-0", 0, 0},
  {"leading_zeros_are_not_octal", "010", 10, 10},
  {"hexadecimal_is_zero", "0x10", 0, 0},
  {"hexadecimal_in_capitals_is_zero", "0X1F", 0, 0},
  {"the_largest_32_bit_number", "2147483647", 2147483647L, 2147483647UL},
  {"the_smallest_32_bit_number", "-2147483648", -2147483647L - 1, 0},
  {"the_largest_unsigned_32_bit_number", "4294967295",
   LONG_MAX > 2147483647L ? static_cast<long>(4294967295u) : LONG_MAX, 4294967295UL},
  {"too_large", "99999999999999999999", LONG_MAX, ULONG_MAX},
  {"too_small", "-99999999999999999999", LONG_MIN, 0},
  {"far_too_large", "1000000000000000000000000000000000000000000000000", LONG_MAX, ULONG_MAX},
  {"many_zeros_in_front", "0000000000000000000000000000000000000000012", 12, 12},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringAsInteger, testing::ValuesIn(integerCases),
                         [](const testing::TestParamInfo<IntegerCase>& row) { return std::string(row.param.name); });

TEST(StringAsInteger, SaturatesExactlyAtTheEndsOfItsTypes)
{
  const std::string largestLong = digitsOf(LONG_MAX);
  const std::string smallestLong = digitsOf(LONG_MIN);
  const std::string largestUnsigned = digitsOf(ULONG_MAX);
  EXPECT_EQ(made(largestLong).asInt(), LONG_MAX);
  EXPECT_EQ(made(smallestLong).asInt(), LONG_MIN);
  EXPECT_EQ(made(largestUnsigned).asUnsigned(), ULONG_MAX);
  EXPECT_EQ(made(largestLong + "0").asInt(), LONG_MAX);
  EXPECT_EQ(made(smallestLong + "0").asInt(), LONG_MIN);
  EXPECT_EQ(made(largestUnsigned + "0").asUnsigned(), ULONG_MAX);
}

TEST(StringAsInteger, ANulEndsTheNumber)
{
  EXPECT_EQ(made(bytes("12\0"
                       "34"))
              .asInt(),
            12);
  EXPECT_EQ(made(bytes("\0"
                       "34"))
              .asInt(),
            0);
  EXPECT_EQ(made(bytes("12\0"
                       "34"))
              .asUnsigned(),
            12u);
}

struct AsDoubleCase {
  const char* name;
  const char* text;
  double expected;
};

class StringAsDouble : public testing::TestWithParam<AsDoubleCase> {};

TEST_P(StringAsDouble, IsTheLeadingDecimalNumber)
{
  EXPECT_EQ(IString(GetParam().text).asDouble(), GetParam().expected);
}

const AsDoubleCase asDoubleCases[] = {
  {"plain", "1.5", 1.5},
  {"whole", "42", 42.0},
  {"empty", "", 0.0},
  {"no_number", "abc", 0.0},
  {"only_a_point", ".", 0.0},
  {"only_an_exponent", "e5", 0.0},
  {"point_first", ".5", 0.5},
  {"point_last", "5.", 5.0},
  {"two_points", "1.5.2", 1.5},
  {"exponent", "25e-1x", 2.5},
  {"exponent_without_digits", "1e", 1.0},
  {"exponent_with_a_sign_only", "1e+", 1.0},
  {"behind_white_space", " \t\n\v\f\r-2.5", -2.5},
  {"with_a_plus", "+0.25", 0.25},
  {"hexadecimal_is_zero", "0x10", 0.0},
  {"negative_hexadecimal_is_zero", "-0x1p4", 0.0},
  {"the_word_infinity_is_no_number", "inf", 0.0},
  {"the_long_word_infinity_is_no_number", "-infinity", 0.0},
  {"the_word_nan_is_no_number", "nan", 0.0},
  {"too_large_is_infinite", "1e999", HUGE_VAL},
  {"too_large_and_negative_is_infinite", "-1e999", -HUGE_VAL},
  {"too_small_is_zero", "1e-999", 0.0},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringAsDouble, testing::ValuesIn(asDoubleCases),
                         [](const testing::TestParamInfo<AsDoubleCase>& row) { return std::string(row.param.name); });

TEST(StringAsDouble, TakesNumbersOfAnyLength)
{
  EXPECT_EQ(made("0." + std::string(5000, '0') + "1").asDouble(), 0.0);
  EXPECT_EQ(made(std::string(5000, '0') + "1.5").asDouble(), 1.5);
  EXPECT_EQ(made("1" + std::string(400, '0')).asDouble(), HUGE_VAL);
}

TEST(StringAsDouble, ANulEndsTheNumber)
{
  EXPECT_EQ(made(bytes("1.5\0"
                       "5"))
              .asDouble(),
            1.5);
  EXPECT_EQ(made(bytes("\0"
                       "1.5"))
              .asDouble(),
            0.0);
}

// ---------------------------------------------------------------------------------------------------------------------
// Comparison

struct ComparisonCase {
  const char* name;
  std::string left;
  std::string right;
  int order;
};

class StringComparison : public testing::TestWithParam<ComparisonCase> {};

template <class Left, class Right>
void expectOrder(const Left& left, const Right& right, int order)
{
  EXPECT_EQ((left == right) != 0, order == 0);
  EXPECT_EQ((left != right) != 0, order != 0);
  EXPECT_EQ((left < right) != 0, order < 0);
  EXPECT_EQ((left <= right) != 0, order <= 0);
  EXPECT_EQ((left > right) != 0, order > 0);
  EXPECT_EQ((left >= right) != 0, order >= 0);
}

TEST_P(StringComparison, IsByUnsignedBytesThenByLength)
{
  const ComparisonCase& row = GetParam();
  expectOrder(made(row.left), made(row.right), row.order);
  expectOrder(made(row.right), made(row.left), -row.order);
}

const ComparisonCase comparisonCases[] = {
  {"equal", "abc", "abc", 0},
  {"both_empty", "", "", 0},
  {"empty_is_least", "", "a", -1},
  {"the_shorter_is_less", "ab", "abc", -1},
  {"the_first_difference_decides", "abd", "abc", 1},
  {"the_first_difference_outweighs_length", "b", "abc", 1},
  {"bytes_are_unsigned", "\x80", "a", 1},
  {"a_nul_is_a_byte", bytes("a\0b"), bytes("a\0c"), -1},
  {"a_nul_makes_a_text_longer", bytes("a\0"), "a", 1},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringComparison, testing::ValuesIn(comparisonCases),
                         [](const testing::TestParamInfo<ComparisonCase>& row) { return std::string(row.param.name); });

TEST(StringComparison, WorksWithConstantTextsOnEitherSide)
{
  const IString text("abc");
  expectOrder(text, "abc", 0);
  expectOrder(text, "abd", -1);
  expectOrder(text, "ab", 1);
  expectOrder("abc", text, 0);
  expectOrder("abd", text, 1);
  expectOrder("ab", text, -1);
}

TEST(StringComparison, WorksWithWritableTextsOnEitherSide)
{
  IString text("abc");
  char same[8] = "abc";
  char less[8] = "ab";
  expectOrder(text, static_cast<char*>(same), 0);
  expectOrder(static_cast<char*>(less), text, -1);
  EXPECT_TRUE(text == same);
  EXPECT_TRUE(same == text);
  EXPECT_TRUE(less < text);
  EXPECT_TRUE(text != std::strchr(same, 'b'));
  EXPECT_TRUE(text != std::getenv("QUELMCL_NO_SUCH_NAME"));
}

TEST(StringComparison, WithItselfIsEqual)
{
  const IString text("abc");
  const IString sharer(text);
  expectOrder(text, text, 0);
  expectOrder(text, sharer, 0);
}

TEST(StringComparison, ATextBehindANulIsNotLostAgainstAConstantText)
{
  const IString text("abc\0x", 5);
  expectOrder(text, "abc", 1);
  expectOrder("abc", text, -1);
}

TEST(StringComparison, ANullPointerIsTheEmptyText)
{
  const IString empty;
  const IString text("a");
  const char* const none = nullptr;
  expectOrder(empty, none, 0);
  expectOrder(text, none, 1);
  expectOrder(none, text, -1);
  EXPECT_TRUE(empty == nullptr);
  EXPECT_TRUE(text != nullptr);
}

TEST(StringComparison, TheLiteralZeroIsANullPointer)
{
  const IString empty;
  const IString zero(0);
  EXPECT_TRUE(empty == 0);
  EXPECT_TRUE(zero != 0);
}

TEST(StringComparison, WithACharacterOrNumberIsWithItsText)
{
  const IString letter("a");
  const IString five("5");
  const int number = 5;
  EXPECT_TRUE(letter == 'a');
  EXPECT_TRUE(five == 5);
  EXPECT_TRUE(five == number);
  EXPECT_FALSE(letter == 5);
}

// ---------------------------------------------------------------------------------------------------------------------
// Building blocks for derived classes

TEST(StringBuildingBlocks, TheRememberedNullBufferIsTheDefaultBuffersText)
{
  const IString first;
  EXPECT_EQ(Probe::nullBuf(), Probe::defaultBuffer()->contents());
  EXPECT_EQ(Probe::nullBuf(), static_cast<const char*>(first));
}

TEST(StringBuildingBlocks, LengthOfCountsUpToTheNul)
{
  EXPECT_EQ(Probe::lengthOf("abc"), 3u);
  EXPECT_EQ(Probe::lengthOf(""), 0u);
  EXPECT_EQ(Probe::lengthOf(nullptr), 0u);
}

TEST(StringBuildingBlocks, DataIsTheText)
{
  const Probe text("abc");
  EXPECT_EQ(text.data(), static_cast<const char*>(text));
}

/// Lets `change` replace a probe's buffer, gives the old reference back and says what the text is afterwards.
template <class Change>
std::string textAfter(Change change)
{
  Probe probe("old");
  IBuffer* const old = probe.buffer();
  change(probe);
  old->removeRef();
  return bytesOf(probe);
}

TEST(StringBuildingBlocks, InitBufferPointsAtANewTextAndLeavesTheOldReference)
{
  Probe probe("old");
  IBuffer* const old = probe.buffer();
  probe.initBuffer("ab", 2u, nullptr, 1u, "cd", 2u, '-');
  EXPECT_TEXT(probe, "ab-cd");
  EXPECT_EQ(old->useCount(), 1u);
  old->removeRef();
}

TEST(StringBuildingBlocks, InitBufferFormatsNumbers)
{
  EXPECT_EQ(textAfter([](Probe& probe) { probe.initBuffer(-5L); }), "-5");
  EXPECT_EQ(textAfter([](Probe& probe) { probe.initBuffer(5UL); }), "5");
  EXPECT_EQ(textAfter([](Probe& probe) { probe.initBuffer(LONG_MIN); }), digitsOf(LONG_MIN));
  EXPECT_EQ(textAfter([](Probe& probe) { probe.initBuffer(ULONG_MAX); }), digitsOf(ULONG_MAX));
  EXPECT_EQ(textAfter([](Probe& probe) { probe.initBuffer(0.1); }), "0.1");
}

TEST(StringBuildingBlocks, SetBufferTakesTheReferenceOver)
{
  const IString donor("abc");
  Probe probe;
  IBuffer* const old = probe.buffer();
  probe.setBuffer(bufferOf(donor)->addRef());
  old->removeRef();
  EXPECT_TEXT(probe, "abc");
  EXPECT_EQ(useCountOf(donor), 2u);
}

TEST(StringBuildingBlocks, SetDefaultBufferIsWhereNewStringsStart)
{
  const IString text("abc");
  char* const present = Probe::nullBuf();
  Probe::setDefaultBuffer(nullptr);
  EXPECT_EQ(Probe::nullBuf(), nullptr);
  const IString afterwards;
  EXPECT_TEXT(afterwards, "");
  EXPECT_EQ(Probe::nullBuf(), present);
}

}  // namespace
