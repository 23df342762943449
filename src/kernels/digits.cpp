// digits.cpp - bytes to hexadecimal and binary digits and back, for any processor.
// Tests: tests/kernels/digits_test.cpp
#include "kernels/digits.hpp"

#include <array>
#include <cstdint>
#include <cstring>

namespace quelmcl::detail {

namespace {

constexpr unsigned digitsPerByte = 8;  // binary ones
constexpr unsigned byteCount = 256;

constexpr auto hexadecimalPairs = [] {
  constexpr char digits[] = "0123456789ABCDEF";
  std::array<char, 2 * byteCount> pairs{};
  for (unsigned byte = 0; byte < byteCount; ++byte) {
    pairs[2 * byte] = digits[byte >> 4];
    pairs[2 * byte + 1] = digits[byte & 15];
  }
  return pairs;
}();

constexpr auto binaryGroups = [] {
  std::array<char, digitsPerByte * byteCount> groups{};
  for (unsigned byte = 0; byte < byteCount; ++byte)
    for (unsigned bit = 0; bit < digitsPerByte; ++bit)
      groups[digitsPerByte * byte + bit] = (byte >> (digitsPerByte - 1 - bit) & 1) != 0 ? '1' : '0';
  return groups;
}();

constexpr auto hexadecimalValues = [] {
  std::array<unsigned char, byteCount> values{};
  for (unsigned byte = 0; byte < byteCount; ++byte)
    values[byte] = static_cast<unsigned char>(hexadecimalValue(static_cast<char>(byte)));
  return values;
}();

void bytesToHexadecimal(const unsigned char* bytes, std::size_t length, char* digits) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    std::memcpy(digits + 2 * i, &hexadecimalPairs[2u * bytes[i]], 2);
}

void hexadecimalToBytes(const char* digits, std::size_t length, unsigned char* bytes) noexcept
{
  for (std::size_t i = 0; i < length; i += 2) {
    const unsigned high = hexadecimalValues[static_cast<unsigned char>(digits[i])];
    const unsigned low = hexadecimalValues[static_cast<unsigned char>(digits[i + 1])];
    bytes[i / 2] = static_cast<unsigned char>(high << 4 | low);
  }
}

void bytesToBinary(const unsigned char* bytes, std::size_t length, char* digits) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    std::memcpy(digits + digitsPerByte * i, &binaryGroups[digitsPerByte * bytes[i]], digitsPerByte);
}

// The lowest bits of four digits, gathered by a multiplication that moves each to its place in the highest byte.
unsigned gathered(const char* digits)
{
  std::uint32_t four;
  std::memcpy(&four, digits, sizeof four);
  return (four & 0x01010101u) * 0x08040201u >> 24 & 15;
}

void binaryToBytes(const char* digits, std::size_t length, unsigned char* bytes) noexcept
{
  for (std::size_t i = 0; i < length; i += digitsPerByte)
    *bytes++ = static_cast<unsigned char>(gathered(digits + i) << 4 | gathered(digits + i + 4));
}

}  // namespace

constinit const DigitLoops portableDigitLoops = {
  Instructions::portable, bytesToHexadecimal, hexadecimalToBytes, bytesToBinary, binaryToBytes,
};

constinit const Forms<DigitLoops> digitForms(portableDigitLoops, sse2DigitLoops, sse2DigitLoops, sse2DigitLoops);

}  // namespace quelmcl::detail
