// radix_test.cpp - IString: conversion between bytes, decimal digits and hexadecimal digits.
#include "string_probe.hpp"
#include "support/expect_text.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

using namespace stringtests;

namespace {

std::string hexadecimalOf(const std::string& text)
{
  static const char digits[] = "0123456789ABCDEF";
  std::string result;
  for (const char byte : text) {
    const unsigned value = static_cast<unsigned char>(byte);
    result += digits[value / 16];
    result += digits[value % 16];
  }
  return result;
}

/// number * 10 + digit, on bytes with the most significant first.
void appendDigit(std::string& number, unsigned digit)
{
  unsigned carry = digit;
  for (std::size_t offset = number.size(); offset-- > 0;) {
    carry += static_cast<unsigned char>(number[offset]) * 10u;
    number[offset] = static_cast<char>(carry % 256);
    carry /= 256;
  }
  if (carry != 0)
    number.insert(number.begin(), static_cast<char>(carry));
}

/// The bytes of a decimal number whose first ten digits count as 2147483647 at most.
std::string bytesOfDecimal(const std::string& digits)
{
  const std::uint64_t first = std::stoull(digits.substr(0, 10));
  std::uint32_t start = first > 2147483647u ? 2147483647u : static_cast<std::uint32_t>(first);
  std::string number;
  for (; start != 0; start /= 256)
    number.insert(number.begin(), static_cast<char>(start % 256));
  for (std::size_t offset = 10; offset < digits.size(); ++offset)
    appendDigit(number, static_cast<unsigned>(digits[offset] - '0'));
  return number.empty() ? bytes("\0") : number;
}

struct RadixCase {
  const char* name;
  std::string text;
  std::string expected;
};

// ---------------------------------------------------------------------------------------------------------------------
// Bytes to hexadecimal digits

class StringBytesToHexadecimal : public testing::TestWithParam<RadixCase> {};

TEST_P(StringBytesToHexadecimal, TwoCapitalDigitsAByte)
{
  EXPECT_TEXT(made(GetParam().text).c2x(), GetParam().expected);
}

const RadixCase hexadecimalCases[] = {
  {"empty_stays_empty", "", ""},
  {"high_digit_first", std::string("\x01\xAB", 2), "01AB"},
  {"capital_letters", "\xFF\xAF\xFA", "FFAFFA"},
  {"a_nul_is_a_byte", std::string("a\0", 2), "6100"},
  {"all_nuls", std::string(3, '\0'), "000000"},
  {"letters", "AZaz", "415A617A"},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringBytesToHexadecimal, testing::ValuesIn(hexadecimalCases),
                         [](const testing::TestParamInfo<RadixCase>& row) { return std::string(row.param.name); });

TEST(StringBytesToHexadecimal, OfEveryByte)
{
  std::string all;
  for (int value = 0; value < 256; ++value)
    all += static_cast<char>(value);
  EXPECT_TEXT(made(all).c2x(), hexadecimalOf(all));
}

TEST(StringBytesToHexadecimal, ReturnsTheStringItself)
{
  IString text("abc");
  EXPECT_EQ(&text.c2x(), &text);
  EXPECT_TEXT(text, "616263");
  IString empty;
  EXPECT_EQ(&empty.c2x(), &empty);
}

TEST(StringBytesToHexadecimal, TheStaticFormLeavesItsArgument)
{
  const IString text("abc");
  EXPECT_TEXT(IString::c2x(text), "616263");
  EXPECT_TEXT(IString::c2x("abc"), "616263");
  EXPECT_TEXT(text, "abc");
}

TEST(StringBytesToHexadecimal, LeavesTheOtherSharersTheirText)
{
  IString text("abc");
  const IString sharer(text);
  text.c2x();
  EXPECT_TEXT(sharer, "abc");
  EXPECT_EQ(useCountOf(sharer), 1u);
  EXPECT_EQ(useCountOf(text), 1u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Decimal digits to bytes

class StringDecimalToBytes : public testing::TestWithParam<RadixCase> {};

TEST_P(StringDecimalToBytes, GivesTheNumbersBytes)
{
  EXPECT_EQ(hexadecimalOf(bytesOf(made(GetParam().text).d2c())), hexadecimalOf(GetParam().expected));
}

const RadixCase decimalCases[] = {
  {"empty_stays_empty", "", ""},
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
  {"a_last_zero_digit", "00000000000", bytes("\0")},
  {"inner_zero_bytes_stay", "16777217", bytes("\x01\0\0\x01")},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringDecimalToBytes, testing::ValuesIn(decimalCases),
                         [](const testing::TestParamInfo<RadixCase>& row) { return std::string(row.param.name); });

TEST(StringDecimalToBytes, AgreesWithDigitByDigitArithmetic)
{
  std::mt19937 random(20260101);
  for (int round = 0; round < 300; ++round) {
    std::string digits;
    const unsigned count = 1 + static_cast<unsigned>(random() % 60);
    for (unsigned place = 0; place < count; ++place)
      digits += static_cast<char>('0' + random() % 10);
    if (round % 3 == 0)
      digits[0] = '0';
    EXPECT_EQ(hexadecimalOf(bytesOf(made(digits).d2c())), hexadecimalOf(bytesOfDecimal(digits))) << digits;
  }
}

TEST(StringDecimalToBytes, TakesNumbersOfAThousandDigits)
{
  std::string digits = "1";
  digits += std::string(1000, '7');
  EXPECT_EQ(hexadecimalOf(bytesOf(made(digits).d2c())), hexadecimalOf(bytesOfDecimal(digits)));
}

TEST(StringDecimalToBytes, ReturnsTheStringItself)
{
  IString text("65");
  EXPECT_EQ(&text.d2c(), &text);
  EXPECT_TEXT(text, "A");
  IString rubbish("x");
  EXPECT_EQ(&rubbish.d2c(), &rubbish);
  EXPECT_TEXT(rubbish, "");
}

TEST(StringDecimalToBytes, RubbishBecomesTheSharedEmptyText)
{
  IString rubbish("12a");
  rubbish.d2c();
  EXPECT_TRUE(shareText(rubbish, IString()));
}

TEST(StringDecimalToBytes, TheStaticFormLeavesItsArgument)
{
  const IString text("65");
  EXPECT_TEXT(IString::d2c(text), "A");
  EXPECT_TEXT(IString::d2c("65"), "A");
  EXPECT_TEXT(IString::d2c(65), "A");
  EXPECT_TEXT(text, "65");
}

TEST(StringDecimalToBytes, LeavesTheOtherSharersTheirText)
{
  IString text("123456789012345");
  const IString sharer(text);
  text.d2c();
  EXPECT_TEXT(sharer, "123456789012345");
  EXPECT_EQ(useCountOf(sharer), 1u);
  EXPECT_EQ(useCountOf(text), 1u);
}

TEST(StringDecimalToBytes, FollowedByHexadecimalWritesTheNumberInHexadecimal)
{
  EXPECT_TEXT(IString("255").d2c().c2x(), "FF");
  EXPECT_TEXT(IString::c2x(IString::d2c("305419896")), "12345678");
}

}  // namespace
