// bytes.cpp - work on every byte of a text: case, translation, bits, filling.
// Tests: tests/kernels/bytes_test.cpp
#include "kernels/bytes.hpp"

#include <algorithm>
#include <cstring>

namespace quelmcl::detail {

namespace {

constexpr char caseDistance = 'a' - 'A';

template <class Combine>
void combineBytes(char* text, std::size_t length, const char* key, std::size_t keyLength, Combine combine) noexcept
{
  if (keyLength == 1) {
    const char only = key[0];
    for (std::size_t i = 0; i < length; ++i)
      text[i] = static_cast<char>(combine(text[i], only));
    return;
  }
  while (length > 0) {
    const std::size_t chunk = std::min(length, keyLength);
    for (std::size_t i = 0; i < chunk; ++i)
      text[i] = static_cast<char>(combine(text[i], key[i]));
    text += chunk;
    length -= chunk;
  }
}

}  // namespace

void lowerAscii(char* text, std::size_t length) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    text[i] = static_cast<char>(text[i] + (isAsciiUpper(text[i]) ? caseDistance : 0));
}

void upperAscii(char* text, std::size_t length) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    text[i] = static_cast<char>(text[i] - (isAsciiLower(text[i]) ? caseDistance : 0));
}

void reverseBytes(char* text, std::size_t length) noexcept
{
  std::reverse(text, text + length);
}

void complementBytes(const char* from, std::size_t length, char* to) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    to[i] = static_cast<char>(~from[i]);
}

ByteMap::ByteMap(const char* input, std::size_t inputLength, const char* output, std::size_t outputLength,
                 char pad) noexcept
{
  for (std::size_t byte = 0; byte < sizeof map; ++byte)
    map[byte] = static_cast<char>(byte);
  for (std::size_t i = inputLength; i > 0; --i)  // backwards, so that the first place of a byte is noted last
    map[static_cast<unsigned char>(input[i - 1])] = i <= outputLength ? output[i - 1] : pad;
}

void ByteMap::apply(char* text, std::size_t length) const noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    text[i] = map[static_cast<unsigned char>(text[i])];
}

void andBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept
{
  combineBytes(text, length, key, keyLength, [](int a, int b) { return a & b; });
}

void orBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept
{
  combineBytes(text, length, key, keyLength, [](int a, int b) { return a | b; });
}

void exclusiveOrBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept
{
  combineBytes(text, length, key, keyLength, [](int a, int b) { return a ^ b; });
}

void repeatBytes(char* text, std::size_t unitLength, std::size_t length) noexcept
{
  for (std::size_t filled = unitLength; filled < length;) {
    const std::size_t more = std::min(filled, length - filled);
    std::memcpy(text + filled, text, more);
    filled += more;
  }
}

}  // namespace quelmcl::detail
