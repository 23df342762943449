// radix_test.cpp - IString: conversion between bytes, binary, decimal and hexadecimal digits.
#include "exceptions/hooks.hpp"
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/radix_reference.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/i0string.hpp>
#include <quelmcl/ibase.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <vector>

using namespace stringtests;
using quelmcl_test::RandomTexts;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// All twelve conversions

struct Conversion {
  const char* name;
  IString& (IString::*member)();
  IString (*staticForm)(const IString&);
  std::function<std::string(const std::string&)> model;
  const char* validCharacters;  ///< null: all bytes
};

const char binaryDigits[] = "01";
const char decimalDigits[] = "0123456789";
const char hexadecimalDigits[] = "0123456789ABCDEFabcdef";

std::function<std::string(const std::string&)> inTwoSteps(std::string (*first)(const std::string&),
                                                          std::string (*second)(const std::string&))
{
  return [first, second](const std::string& text) { return second(first(text)); };
}

#define CONVERSION(name) #name, static_cast < IString& (IString::*)()>(&IString::name), &IString::name
const Conversion conversions[] = {
  {CONVERSION(c2b), reference::c2b, nullptr},
  {CONVERSION(c2d), reference::c2d, nullptr},
  {CONVERSION(c2x), reference::c2x, nullptr},
  {CONVERSION(b2c), reference::b2c, binaryDigits},
  {CONVERSION(d2c), reference::d2c, decimalDigits},
  {CONVERSION(x2c), reference::x2c, hexadecimalDigits},
  {CONVERSION(b2d), inTwoSteps(reference::b2c, reference::c2d), binaryDigits},
  {CONVERSION(b2x), inTwoSteps(reference::b2c, reference::c2x), binaryDigits},
  {CONVERSION(d2b), inTwoSteps(reference::d2c, reference::c2b), decimalDigits},
  {CONVERSION(d2x), inTwoSteps(reference::d2c, reference::c2x), decimalDigits},
  {CONVERSION(x2b), inTwoSteps(reference::x2c, reference::c2b), hexadecimalDigits},
  {CONVERSION(x2d), inTwoSteps(reference::x2c, reference::c2d), hexadecimalDigits},
};
#undef CONVERSION

void PrintTo(const Conversion& conversion, std::ostream* stream)
{
  *stream << conversion.name;
}

class StringConversion : public testing::TestWithParam<Conversion> {
protected:
  std::string sample() const { return GetParam().validCharacters == nullptr ? "sample \x01\xFF" : "110100111010111"; }
  std::string expected() const { return GetParam().model(sample()); }
  IString& convert(IString& text) const { return (text.*GetParam().member)(); }
  static std::string randomText(RandomTexts& random, const Conversion& conversion, unsigned longest)
  {
    if (conversion.validCharacters != nullptr)
      return random.text(conversion.validCharacters, longest);
    std::string text;
    for (unsigned left = random.below(longest + 1); left > 0; --left)
      text += static_cast<char>(random.onceIn(3) ? 0 : random.below(256));
    return text;
  }
};

INSTANTIATE_TEST_SUITE_P(All, StringConversion, testing::ValuesIn(conversions),
                         [](const testing::TestParamInfo<Conversion>& row) { return std::string(row.param.name); });

TEST_P(StringConversion, LeavesAnEmptyTextEmpty)
{
  IString empty;
  EXPECT_EQ(&convert(empty), &empty);
  EXPECT_TEXT(empty, "");
  EXPECT_TRUE(shareText(empty, IString()));
  EXPECT_TEXT(GetParam().staticForm(IString()), "");
}

TEST_P(StringConversion, ReturnsTheStringItself)
{
  IString text = made(sample());
  EXPECT_EQ(&convert(text), &text);
  EXPECT_TEXT(text, expected(), 1);
}

TEST_P(StringConversion, HasAStaticFormThatLeavesItsArgument)
{
  const IString text = made(sample());
  EXPECT_TEXT(GetParam().staticForm(text), expected(), 1);
  EXPECT_TEXT(text, sample(), 1);
}

TEST_P(StringConversion, LeavesTheOtherSharersTheirText)
{
  IString text = made(sample());
  const IString sharer(text);
  convert(text);
  EXPECT_TEXT(text, expected(), 1);
  EXPECT_TEXT(sharer, sample(), 1);
}

TEST_P(StringConversion, ResultMayBeAssignedToTheArgument)
{
  IString text = made(sample());
  text = GetParam().staticForm(text);
  EXPECT_TEXT(text, expected(), 1);
}

TEST_P(StringConversion, GivesABufferOfTheProcessesKind)
{
  IString text = made(sample());
  convert(text);
  EXPECT_EQ(bufferOf(text)->className(), bufferOf(IString("x"))->className());
}

TEST_P(StringConversion, IsInheritedByZeroBasedStrings)
{
  I0String text(made(sample()));
  (text.*GetParam().member)();
  EXPECT_TEXT(text, expected(), 1);
}

TEST_P(StringConversion, AgreesWithDigitByDigitArithmetic)
{
  RandomTexts random;
  for (int round = 0; round < 300; ++round) {
    const std::string text = randomText(random, GetParam(), round % 10 == 0 ? 1500 : 60);
    IString converted = made(text);
    EXPECT_TEXT(convert(converted), GetParam().model(text)) << "of " << quelmcl_test::quoted(text);
  }
}

TEST_P(StringConversion, OfEveryLengthAgreesWithDigitByDigitArithmetic)
{
  for (std::size_t length = 1; length <= 140; ++length)
    for (const char character : {'1', '0'}) {
      const std::string text(length, character);
      IString converted = made(text);
      EXPECT_TEXT(convert(converted), GetParam().model(text)) << "of " << length << " times " << character;
    }
}

/// Those of digits: bytes are never wrong.
class StringConversionOfDigits : public StringConversion {};

INSTANTIATE_TEST_SUITE_P(All, StringConversionOfDigits,
                         testing::ValuesIn(std::begin(conversions) + 3, std::end(conversions)),
                         [](const testing::TestParamInfo<Conversion>& row) { return std::string(row.param.name); });

TEST_P(StringConversionOfDigits, OfOneWrongCharacterAnywhereGivesTheSharedEmptyText)
{
  const std::string outsiders = std::string(" -+.:/@G`g\x7F\x80\xB1\xFF\0", 16) +
                                (std::string(GetParam().validCharacters) == binaryDigits ? "2" : "");
  for (std::size_t length = 1; length <= 70; ++length)
    for (std::size_t place = 0; place < length; ++place) {
      std::string wrong(length, '1');
      wrong[place] = outsiders[(length + place) % outsiders.size()];
      IString text = made(wrong);
      EXPECT_EQ(&convert(text), &text);
      EXPECT_TEXT(text, "") << "of " << quelmcl_test::quoted(wrong);
      EXPECT_TRUE(shareText(text, IString()));
    }
}

/// Converts with the `nth` allocation failing; whether it failed for lack of storage.
bool failsAtAllocation(unsigned long nth, const Conversion& conversion, IString& text)
{
  const quelmcl_test::FailingAllocations scope(nth);
  try {
    (text.*conversion.member)();
  } catch (const std::bad_alloc&) {
    return true;
  } catch (const IOutOfMemory&) {
    return true;
  }
  return false;
}

TEST_P(StringConversion, ThatFindsNoStorageLeavesTheStringAsItWas)
{
  IBase::messageFile();
  for (const unsigned repetitions : {1u, 400u}) {  // the second one is long enough for all methods
    const std::string given = bytesOf(made(sample()).copy(repetitions));
    IString result = made(given);
    convert(result);
    unsigned failures = 0;
    for (unsigned long nth = 1;; ++nth) {
      IString text = made(given);
      const IBuffer* const before = bufferOf(text);
      const quelmcl_test::AllocationWatch watch;
      if (!failsAtAllocation(nth, GetParam(), text)) {
        EXPECT_TEXT(text, bytesOf(result));
        break;
      }
      ++failures;
      EXPECT_EQ(watch.liveBlocks(), 0);
      EXPECT_EQ(bufferOf(text), before);
      EXPECT_TEXT(text, given, 1);
    }
    EXPECT_GE(failures, 1u);
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Results by hand

struct RadixCase {
  const char* name;
  std::string text;
  std::string expected;
};

std::string nameOfRow(const testing::TestParamInfo<RadixCase>& row)
{
  return row.param.name;
}

class StringBytesToBinary : public testing::TestWithParam<RadixCase> {};

TEST_P(StringBytesToBinary, EightDigitsAByte)
{
  EXPECT_TEXT(made(GetParam().text).c2b(), GetParam().expected);
}

const RadixCase toBinaryCases[] = {
  {"a_letter", "A", "01000001"},
  {"highest_bit_first", "\x80", "10000000"},
  {"two_bytes", "\x01\xFE", "0000000111111110"},
  {"a_nul_is_a_byte", bytes("\0"), "00000000"},
};
INSTANTIATE_TEST_SUITE_P(Rows, StringBytesToBinary, testing::ValuesIn(toBinaryCases), nameOfRow);

class StringBytesToHexadecimal : public testing::TestWithParam<RadixCase> {};

TEST_P(StringBytesToHexadecimal, TwoCapitalDigitsAByte)
{
  EXPECT_TEXT(made(GetParam().text).c2x(), GetParam().expected);
}

const RadixCase toHexadecimalCases[] = {
  {"high_digit_first", "\x01\xAB", "01AB"},  {"capital_letters", "\xFF\xAF\xFA", "FFAFFA"},
  {"a_nul_is_a_byte", bytes("a\0"), "6100"}, {"all_nuls", std::string(3, '\0'), "000000"},
  {"letters", "AZaz", "415A617A"},
};
INSTANTIATE_TEST_SUITE_P(Rows, StringBytesToHexadecimal, testing::ValuesIn(toHexadecimalCases), nameOfRow);

class StringBytesToDecimal : public testing::TestWithParam<RadixCase> {};

TEST_P(StringBytesToDecimal, GivesTheNumbersDigits)
{
  EXPECT_TEXT(made(GetParam().text).c2d(), GetParam().expected);
}

const RadixCase toDecimalCases[] = {
  {"four_full_bytes", "\xFF\xFF\xFF\xFF", "4294967295"},
  {"two_bytes", bytes("\x01\0"), "256"},
  {"zero_bytes_in_front_do_not_show", bytes("\0\0\0\x01\0"), "256"},
  {"one_zero_byte", bytes("\0"), "0"},
  {"four_zero_bytes", bytes("\0\0\0\0"), "0"},
  {"five_zero_bytes", bytes("\0\0\0\0\0"), "0000"},
  {"six_zero_bytes", bytes("\0\0\0\0\0\0"), "0000000"},
  {"a_one_behind_zero_bytes", bytes("\0\0\0\0\0\0\x01"), "1"},
  {"five_full_bytes", "\xFF\xFF\xFF\xFF\xFF", "1099511627775"},
  {"text", "abc", "6382179"},
};
INSTANTIATE_TEST_SUITE_P(Rows, StringBytesToDecimal, testing::ValuesIn(toDecimalCases), nameOfRow);

TEST(StringBytesToDecimal, ZeroKeepsItsZeros)
{
  for (unsigned length = 5; length < 700; length += length / 5)
    EXPECT_TEXT(IString(nullptr, length, '\0').c2d(), std::string(3 * (length - 4) + 1, '0')) << length;
}

class StringBinaryToBytes : public testing::TestWithParam<RadixCase> {};

TEST_P(StringBinaryToBytes, GivesTheNumbersBytes)
{
  EXPECT_TEXT(made(GetParam().text).b2c(), GetParam().expected);
}

const RadixCase fromBinaryCases[] = {
  {"missing_digits_are_zeros", "101", "\x05"},
  {"nine_digits", "111111111", "\x01\xFF"},
  {"eight_digits", "01000001", "A"},
  {"zero_bytes_in_front_stay", "000000000", bytes("\0\0")},
  {"a_blank_empties", "1 0", ""},
  {"another_digit_empties", "102", ""},
  {"a_nul_empties", bytes("10\0"), ""},
};
INSTANTIATE_TEST_SUITE_P(Rows, StringBinaryToBytes, testing::ValuesIn(fromBinaryCases), nameOfRow);

class StringHexadecimalToBytes : public testing::TestWithParam<RadixCase> {};

TEST_P(StringHexadecimalToBytes, GivesTheNumbersBytes)
{
  EXPECT_TEXT(made(GetParam().text).x2c(), GetParam().expected);
}

const RadixCase fromHexadecimalCases[] = {
  {"a_missing_digit_is_a_zero", "1ab", "\x01\xAB"},
  {"either_case", "aAfF", "\xAA\xFF"},
  {"digits", "0123456789", "\x01\x23\x45\x67\x89"},
  {"zero_bytes_in_front_stay", "0000", bytes("\0\0")},
  {"other_letters_empty", "xyz", ""},
  {"a_prefix_empties", "0x1", ""},
  {"a_nul_empties", bytes("12\0"), ""},
};
INSTANTIATE_TEST_SUITE_P(Rows, StringHexadecimalToBytes, testing::ValuesIn(fromHexadecimalCases), nameOfRow);

class StringDecimalToBytes : public testing::TestWithParam<RadixCase> {};

TEST_P(StringDecimalToBytes, GivesTheNumbersBytes)
{
  EXPECT_TEXT(made(GetParam().text).d2c(), GetParam().expected);
}

const RadixCase fromDecimalCases[] = {
  {"zero_is_one_zero_byte", "0", bytes("\0")},
  {"many_zeros_are_one_zero_byte", "0000000000000000", bytes("\0")},
  {"one_byte", "255", "\xFF"},
  {"two_bytes", "256", bytes("\x01\0")},
  {"leading_zeros_do_not_count", "000255", "\xFF"},
  {"a_letter_empties", "12a", ""},
  {"a_sign_empties", "-12", ""},
  {"a_blank_empties", " 12", ""},
  {"a_nul_empties", bytes("12\0"), ""},
  {"the_largest_machine_step", "2147483647", "\x7F\xFF\xFF\xFF"},
  {"ten_digits_saturate", "2147483648", "\x7F\xFF\xFF\xFF"},
  {"ten_digits_saturate_far_above", "4294967295", "\x7F\xFF\xFF\xFF"},
  {"zeros_in_front_avoid_saturation", "00000000004294967295", "\xFF\xFF\xFF\xFF"},
  {"eleven_digits", "10000000000", bytes("\x02\x54\x0B\xE4\0")},
  {"eleven_digits_of_which_ten_saturate", "99999999999", "\x04\xFF\xFF\xFF\xFF"},
  {"the_same_with_ten_that_just_fit", "21474836479", "\x04\xFF\xFF\xFF\xFF"},
  {"a_last_zero_digit", "00000000000", bytes("\0")},
  {"inner_zero_bytes_stay", "16777217", bytes("\x01\0\0\x01")},
};
INSTANTIATE_TEST_SUITE_P(Rows, StringDecimalToBytes, testing::ValuesIn(fromDecimalCases), nameOfRow);

TEST(StringConversions, TakeWhatAStringCanBeMadeFrom)
{
  EXPECT_TEXT(IString::d2x("255"), "FF");
  EXPECT_TEXT(IString::d2x(255), "FF");
  EXPECT_TEXT(IString::x2d("ff"), "255");
  EXPECT_TEXT(IString::c2x('A'), "41");
  EXPECT_TEXT(IString::d2c(65), "A");
  EXPECT_TEXT(IString::b2d("11111111"), "255");
  EXPECT_TEXT(IString("255").d2b().b2x(), "FF");
}

TEST(StringConversions, OfBytesOfLongCharactersAreOfTheirBytes)
{
  EXPECT_TEXT(IString("\xC3\xA9\xE8\xA1\xA8").c2x(), "C3A9E8A1A8");
  EXPECT_TEXT(IString("C3A9").x2c(), "\xC3\xA9");
  EXPECT_TEXT(IString("\xC3\xA9").c2b(), "1100001110101001");
  EXPECT_TEXT(IString("\xC3\xA9").c2d(), "50089");
  EXPECT_TEXT(IString("1\xC3\xA9").d2c(), "");
  EXPECT_TEXT(IString("1\xC3\xA9").x2c(), "");
  EXPECT_TEXT(IString("1\xC3\xA9").b2c(), "");
}

// ---------------------------------------------------------------------------------------------------------------------
// Numbers of any length: tests/strings/data/numbers.txt, made by make_numbers.py

struct Number {
  std::string hexadecimal;
  std::string decimal;
  std::string cutHexadecimal;  ///< of the decimal digits with the first ten no more than 2147483647
};

std::vector<Number> readNumbers()
{
  std::ifstream file(QUELMCL_TEST_NUMBERS);
  std::vector<Number> numbers;
  for (Number number; file >> number.hexadecimal >> number.decimal >> number.cutHexadecimal;) {
    if (number.cutHexadecimal == "=")
      number.cutHexadecimal = number.hexadecimal;
    numbers.push_back(number);
  }
  return numbers;
}

TEST(StringNumbers, ConvertAsTheTableSays)
{
  const std::vector<Number> numbers = readNumbers();
  ASSERT_GE(numbers.size(), 250u);
  for (const Number& number : numbers) {
    const IString digits = made(number.decimal);
    EXPECT_TEXT(IString::x2d(made(number.hexadecimal)), number.decimal);
    EXPECT_TEXT(IString::d2x(digits), number.cutHexadecimal);
    EXPECT_TEXT(IString::d2x("0000000000" + digits), number.hexadecimal);
    EXPECT_TEXT(IString::b2d(IString::x2b(made(number.hexadecimal))), number.decimal);
  }
}

TEST(StringNumbers, SurviveEveryRoundTrip)
{
  for (const Number& number : readNumbers()) {
    const IString inBytes = IString::x2c(made(number.hexadecimal));
    EXPECT_TEXT(IString(inBytes).c2x().x2c(), bytesOf(inBytes));
    EXPECT_TEXT(IString(inBytes).c2b().b2c(), bytesOf(inBytes));
    EXPECT_TEXT(IString("0000000000" + IString(inBytes).c2d()).d2c(), bytesOf(inBytes));
  }
}

TEST(StringNumbers, OfAHundredThousandDigitsSurviveARoundTrip)
{
  RandomTexts random;
  std::string digits = "1";
  while (digits.size() < 100000)
    digits += static_cast<char>('0' + random.below(10));
  EXPECT_TEXT(made("0000000000" + digits).d2x().x2d(), digits);
  const std::string nines(50000, '9');
  EXPECT_TEXT(made("0000000000" + nines).d2c().c2d(), nines);
}

// ---------------------------------------------------------------------------------------------------------------------
// Lengths that no text can have

/// A buffer that says it is longer than it is, for conversions that are to refuse before they look.
class LongBuffer : public IBuffer {
public:
  static IBuffer* ofLength(unsigned length)
  {
    LongBuffer* const made = new (8u) LongBuffer;
    made->len = length;
    return made;
  }

private:
  LongBuffer() : IBuffer(8) { std::fill_n(contents(), 8, '\xFF'); }
};

class StringConversionOfTooMuch : public testing::Test {
protected:
  static unsigned long idOf(unsigned length, IString& (IString::*convert)())
  {
    Probe text;
    IBuffer* const none = text.buffer();
    text.setBuffer(LongBuffer::ofLength(length));
    none->removeRef();
    const IBuffer* const before = text.buffer();
    const unsigned long id = errorIdOf([&] { (text.*convert)(); });
    EXPECT_EQ(text.buffer(), before);
    return id;
  }
  CountingHook hook;

private:
  InstalledHook installed{hook};
};

TEST_F(StringConversionOfTooMuch, BinaryDigitsOfThisManyBytesAreRefused)
{
  EXPECT_EQ(idOf(0x1FFFFFFFu, &IString::c2b), tooLong);
  EXPECT_EQ(idOf(0x1FFFFFFEu, &IString::c2b), tooLong);  // their 4294967280 digits are no text either
  EXPECT_EQ(idOf(largest, &IString::c2b), tooLong);
  EXPECT_EQ(hook.reports, 3);
}

TEST_F(StringConversionOfTooMuch, HexadecimalDigitsOfThisManyBytesAreRefused)
{
  EXPECT_EQ(idOf(0x7FFFFFFFu, &IString::c2x), tooLong);
  EXPECT_EQ(idOf(0x7FFFFFF6u, &IString::c2x), tooLong);  // 4294967276 digits
  EXPECT_EQ(idOf(largest, &IString::c2x), tooLong);
}

TEST_F(StringConversionOfTooMuch, DecimalDigitsOfThisManyBytesAreRefused)
{
  EXPECT_EQ(idOf(0x55555555u + 4, &IString::c2d), tooLong);
  EXPECT_EQ(idOf(0x55555554u + 4, &IString::c2d), tooLong);  // ten digits more than fit
  EXPECT_EQ(idOf(0x5555554Bu + 4, &IString::c2d), tooLong);  // room for 4294967275 digits, one more than a text has
  EXPECT_EQ(idOf(largest, &IString::c2d), tooLong);
}

}  // namespace
