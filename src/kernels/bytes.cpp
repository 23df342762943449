// bytes.cpp - work on every byte of a text: case, translation, bits, filling.
// Tests: tests/kernels/bytes_test.cpp
#include "kernels/bytes.hpp"

#include "kernels/vectors.hpp"

#include <algorithm>
#include <array>
#include <cstring>

namespace quelmcl::detail {

namespace {

constexpr std::array<char, 256> everyByte() noexcept
{
  std::array<char, 256> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(i);
  return bytes;
}

/// What stands for each byte when nothing is translated.
constexpr std::array<char, 256> unchanged = everyByte();

using Combine = void (*)(char* text, const char* other, std::size_t length) noexcept;

/// Keys shorter than this are repeated first, so that there are fewer and longer pieces to combine.
constexpr std::size_t shortKey = 128;

void combineBytes(char* text, std::size_t length, const char* key, std::size_t keyLength, Combine combine) noexcept
{
  char repeated[2 * shortKey];
  if (keyLength < shortKey && keyLength < length) {
    const std::size_t copies = std::min(sizeof repeated / keyLength, (length + keyLength - 1) / keyLength);
    const std::size_t whole = copies * keyLength;
    std::memcpy(repeated, key, keyLength);
    repeatBytes(repeated, keyLength, whole);
    key = repeated;
    keyLength = whole;
  }
  for (std::size_t done = 0; done < length; done += keyLength)
    combine(text + done, key, std::min(keyLength, length - done));
}

}  // namespace

void lowerAscii(char* text, std::size_t length) noexcept
{
  vectors().lower(text, length);
}

void upperAscii(char* text, std::size_t length) noexcept
{
  vectors().upper(text, length);
}

void reverseBytes(char* text, std::size_t length) noexcept
{
  vectors().reverse(text, length);
}

void complementBytes(const char* from, std::size_t length, char* to) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    to[i] = static_cast<char>(~from[i]);
}

ByteMap::ByteMap(const char* input, std::size_t inputLength, const char* output, std::size_t outputLength,
                 char pad) noexcept
{
  std::memcpy(map, unchanged.data(), sizeof map);  // a loop would cost more than a short text
  for (std::size_t i = inputLength; i > 0; --i)    // backwards, so that the first place of a byte is noted last
    map[static_cast<unsigned char>(input[i - 1])] = i <= outputLength ? output[i - 1] : pad;
}

void ByteMap::apply(char* text, std::size_t length) const noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    text[i] = map[static_cast<unsigned char>(text[i])];
}

void andBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept
{
  combineBytes(text, length, key, keyLength, vectors().bitAnd);
}

void orBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept
{
  combineBytes(text, length, key, keyLength, vectors().bitOr);
}

void exclusiveOrBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept
{
  combineBytes(text, length, key, keyLength, vectors().bitExclusiveOr);
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
