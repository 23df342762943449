#include "support/radix_reference.hpp"

#include <algorithm>
#include <cstdint>

namespace reference {

namespace {

unsigned valueOf(char byte)
{
  return static_cast<unsigned char>(byte);
}

bool isAllOf(const std::string& text, const char* digits)
{
  return text.find_first_not_of(digits) == std::string::npos && !text.empty();
}

std::string decimalMath(const std::string& digits, unsigned char byte)
{
  const std::size_t firstOther = digits.find_first_not_of('0');
  const std::size_t zeros = firstOther == std::string::npos ? digits.size() : firstOther;
  std::string result(digits.size() + 3 - std::min<std::size_t>(zeros, 3), '0');
  std::size_t place = result.size();
  unsigned carry = byte;
  for (std::size_t i = digits.size(); i-- > 0; carry /= 10) {
    carry += static_cast<unsigned>(digits[i] - '0') * 256;
    result[--place] = static_cast<char>('0' + carry % 10);
  }
  for (; carry != 0; carry /= 10)
    result[--place] = static_cast<char>('0' + carry % 10);
  return result;
}

std::string binaryMath(const std::string& bytes, unsigned digit)
{
  std::string result(bytes.size() + 1, '\0');
  unsigned carry = digit;
  for (std::size_t i = bytes.size(); i-- > 0; carry /= 256) {
    carry += valueOf(bytes[i]) * 10;
    result[i + 1] = static_cast<char>(carry % 256);
  }
  result[0] = static_cast<char>(carry);
  return result;
}

}  // namespace

std::string c2b(const std::string& bytes)
{
  std::string digits;
  for (const char byte : bytes)
    for (unsigned bit = 128; bit != 0; bit /= 2)
      digits += (valueOf(byte) & bit) != 0 ? '1' : '0';
  return digits;
}

std::string c2d(const std::string& bytes)
{
  if (bytes.empty())
    return bytes;
  std::uint32_t first = 0;
  for (std::size_t i = 0; i < std::min<std::size_t>(bytes.size(), 4); ++i)
    first = first * 256 + valueOf(bytes[i]);
  std::string digits = std::to_string(first);
  if (bytes.size() > 4) {
    digits.insert(0, 3 * (bytes.size() - 4), '0');
    for (std::size_t i = 4; i < bytes.size(); ++i)
      digits = decimalMath(digits, static_cast<unsigned char>(bytes[i]));
  }
  const std::size_t zeros = digits.find_first_not_of('0');
  return zeros == std::string::npos ? digits : digits.substr(zeros);
}

std::string c2x(const std::string& bytes)
{
  std::string digits;
  for (const char byte : bytes)
    digits += {"0123456789ABCDEF"[valueOf(byte) / 16], "0123456789ABCDEF"[valueOf(byte) % 16]};
  return digits;
}

std::string b2c(const std::string& digits)
{
  if (!isAllOf(digits, "01"))
    return "";
  const std::string whole = std::string((8 - digits.size() % 8) % 8, '0') + digits;
  std::string bytes;
  for (std::size_t i = 0; i < whole.size(); i += 8)
    bytes += static_cast<char>(std::stoul(whole.substr(i, 8), nullptr, 2));
  return bytes;
}

std::string d2c(const std::string& digits)
{
  if (!isAllOf(digits, "0123456789"))
    return "";
  const std::size_t firstDigits = std::min<std::size_t>(digits.size(), 10);
  const std::uint64_t first = std::min<std::uint64_t>(std::stoull(digits.substr(0, firstDigits)), 2147483647u);
  std::string bytes;
  for (unsigned shift = 32; shift > 0; shift -= 8)
    bytes += static_cast<char>(first >> (shift - 8) & 255);
  if (digits.size() > 10)
    bytes.insert(0, (digits.size() - 10) / 3, '\0');
  for (std::size_t i = firstDigits; i < digits.size(); ++i)
    bytes = binaryMath(bytes, static_cast<unsigned>(digits[i] - '0'));
  const std::size_t zeros = bytes.find_first_not_of('\0');
  return zeros == std::string::npos ? std::string(1, '\0') : bytes.substr(zeros);
}

std::string x2c(const std::string& digits)
{
  if (!isAllOf(digits, "0123456789ABCDEFabcdef"))
    return "";
  const std::string whole = (digits.size() % 2 != 0 ? "0" : "") + digits;
  std::string bytes;
  for (std::size_t i = 0; i < whole.size(); i += 2)
    bytes += static_cast<char>(std::stoul(whole.substr(i, 2), nullptr, 16));
  return bytes;
}

}  // namespace reference
