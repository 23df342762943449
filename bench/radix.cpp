// radix.cpp - benchmarks: conversion between number forms. Nothing here depends on the values of the digits.
// Packages: libgmp-dev
// Unpacked: libabsl-dev libabsl20220623
// Links: gmp absl_strings absl_strings_internal absl_throw_delegate absl_raw_logging_internal absl_int128
#include "frame.hpp"

#include <absl/strings/escaping.h>
#include <gmp.h>

#include <charconv>
#include <cstdint>
#include <memory>

namespace {

using bench::stringOf;
using bench::Workload;

// ---- hexadecimal digits: linear, at the speed of storage. Goal: three times as fast as a table for each byte ----

const std::vector<bench::Goal> hexadecimalGoals = {{32, 0.3}, {1024, 0.3}, {65536, 0.3}, {1048576, 0.3}};

std::string hexadecimalDigits(std::size_t size)
{
  return bench::asText(stringOf(bench::randomBytes(size / 2)).c2x());
}

Workload hexEncode("hex_encode", bench::randomBytes, hexadecimalGoals);
Workload hexDecode("hex_decode", hexadecimalDigits, hexadecimalGoals);

std::string capitals(const std::string& text)
{
  return bench::asText(stringOf(text).upperCase());
}

const bool hexadecimal[] = {
  hexEncode.contender("quelmcl",
                      [](const std::string& data) { return [text = stringOf(data)] { return IString::c2x(text); }; }),
  hexEncode.contender(
    "absl", [](const std::string& data) { return [&data] { return absl::BytesToHexString(data); }; }, capitals),
  hexDecode.contender("quelmcl",
                      [](const std::string& data) { return [text = stringOf(data)] { return IString::x2c(text); }; }),
  hexDecode.contender("absl", [](const std::string& data) { return [&data] { return absl::HexStringToBytes(data); }; }),
};

// ---- binary digits: linear. Goal: five times as fast as a loop over bits ----

const std::vector<bench::Goal> binaryGoals = {{32, 0.2}, {1024, 0.2}, {65536, 0.2}, {1048576, 0.2}};

std::string binaryDigits(std::size_t size)
{
  return bench::asText(stringOf(bench::randomBytes(size / 8)).c2b());
}

std::string binaryByBits(const std::string& bytes)
{
  std::string digits(8 * bytes.size(), '\0');
  for (std::size_t i = 0; i < digits.size(); ++i)
    digits[i] = static_cast<char>('0' + (bytes[i / 8] >> (7 - i % 8) & 1));
  return digits;
}

std::string bytesByBits(const std::string& digits)
{
  std::string bytes(digits.size() / 8, '\0');
  for (std::size_t i = 0; i < digits.size(); ++i)
    bytes[i / 8] = static_cast<char>(bytes[i / 8] << 1 | (digits[i] == '1'));
  return bytes;
}

Workload binaryEncode("binary_encode", bench::randomBytes, binaryGoals);
Workload binaryDecode("binary_decode", binaryDigits, binaryGoals);

const bool binary[] = {
  binaryEncode.contender(
    "quelmcl", [](const std::string& data) { return [text = stringOf(data)] { return IString::c2b(text); }; }),
  binaryEncode.contender("bits", [](const std::string& data) { return [&data] { return binaryByBits(data); }; }),
  binaryDecode.contender(
    "quelmcl", [](const std::string& data) { return [text = stringOf(data)] { return IString::b2c(text); }; }),
  binaryDecode.contender("bits", [](const std::string& data) { return [&data] { return bytesByBits(data); }; }),
};

// ---- decimal digits: a word's at a time for short numbers, divide and conquer for long ones. GMP does the same ----

std::string nonZeroBytes(std::size_t size)
{
  std::string bytes = bench::randomBytes(size);
  bytes[0] = '\x5A';
  return bytes;
}

/// Digits of a number of that many bytes. Zeros in front, so that the library takes the number as it is.
std::string decimalDigits(std::size_t size)
{
  return "0000000000" + bench::asText(stringOf(nonZeroBytes(size)).c2d());
}

class GmpNumber {
public:
  GmpNumber() { mpz_init(number); }
  GmpNumber(const GmpNumber&) = delete;
  GmpNumber& operator=(const GmpNumber&) = delete;
  ~GmpNumber() { mpz_clear(number); }

  void setBytes(const std::string& bytes) { mpz_import(number, bytes.size(), 1, 1, 1, 0, bytes.data()); }
  void setDigits(const std::string& digits) { mpz_set_str(number, digits.c_str(), 10); }
  std::string digits() const
  {
    std::string result(mpz_sizeinbase(number, 10) + 2, '\0');
    mpz_get_str(&result[0], 10, number);
    result.resize(std::strlen(result.c_str()));
    return result;
  }
  std::string bytes() const
  {
    std::string result((mpz_sizeinbase(number, 2) + 7) / 8, '\0');
    mpz_export(&result[0], nullptr, 1, 1, 1, 0, number);
    return result;
  }

private:
  mpz_t number;
};

std::string digitsByGmp(const std::string& bytes)
{
  GmpNumber number;
  number.setBytes(bytes);
  return number.digits();
}

std::string bytesByGmp(const std::string& digits)
{
  GmpNumber number;
  number.setDigits(digits);
  return number.bytes();
}

std::string digitsOfWord(const std::string& bytes)
{
  std::uint32_t number = 0;
  for (const char byte : bytes)
    number = number << 8 | static_cast<unsigned char>(byte);
  char digits[10];
  return std::string(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

std::string bytesOfWord(const std::string& digits)
{
  std::uint32_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  std::string bytes(4, '\0');
  for (unsigned i = 0; i < 4; ++i)
    bytes[i] = static_cast<char>(number >> (24 - 8 * i));
  return bytes;
}

Workload wordToDecimal("bytes_to_decimal", nonZeroBytes, {{4, 5}});
Workload toDecimal("bytes_to_decimal", nonZeroBytes, {{32, 1}, {1024, 1.2}, {65536, 2}, {1048576, 4}});
Workload wordFromDecimal("decimal_to_bytes", decimalDigits, {{4, 4}});
Workload fromDecimal("decimal_to_bytes", decimalDigits, {{32, 0.8}, {1024, 1.2}, {65536, 2}, {1048576, 4}});

template <class Workloads>
bool decimal(Workloads& to, Workloads& from)
{
  to.contender("quelmcl",
               [](const std::string& data) { return [text = stringOf(data)] { return IString::c2d(text); }; });
  to.contender("GMP", [](const std::string& data) { return [&data] { return digitsByGmp(data); }; });
  from.contender("quelmcl",
                 [](const std::string& data) { return [text = stringOf(data)] { return IString::d2c(text); }; });
  from.contender("GMP", [](const std::string& data) { return [&data] { return bytesByGmp(data); }; });
  return true;
}

const bool decimals[] = {
  decimal(wordToDecimal, wordFromDecimal),
  decimal(toDecimal, fromDecimal),
  wordToDecimal.contender("to_chars", [](const std::string& data) { return [&data] { return digitsOfWord(data); }; }),
  wordFromDecimal.contender("from_chars",
                            [](const std::string& data) { return [&data] { return bytesOfWord(data); }; }),
};

// ---- a number to text: one allocation more than the peer, whose string holds a few bytes itself ----

std::string digitsOfInt(std::size_t size)
{
  return bench::randomDigits(size);
}

Workload intToText("int_to_text", digitsOfInt, {{1, 3}, {9, 3}});

const bool integers[] = {
  intToText.contender("quelmcl",
                      [](const std::string& data) { return [number = std::stoi(data)] { return IString(number); }; }),
  intToText.contender(
    "to_string", [](const std::string& data) { return [number = std::stoi(data)] { return std::to_string(number); }; }),
};

}  // namespace
