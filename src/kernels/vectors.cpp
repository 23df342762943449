// vectors.cpp - the form of the loops for any processor, and which processor gets which.
// Tests: tests/kernels/vectors_test.cpp
#include "kernels/vectors.hpp"

#include "kernels/ascii.hpp"
#include "kernels/bytes.hpp"
#include "kernels/utf8.hpp"
#include "kernels/whitespace.hpp"

#include <algorithm>
#include <cstring>

namespace quelmcl::detail {

namespace {

// Bytes of a kind are found by the C library, which has a loop for this processor.
std::size_t firstPair(const char* text, std::size_t places, std::size_t begin, char first, char last,
                      std::size_t distance) noexcept
{
  for (std::size_t at = begin; at < places; ++at) {
    const void* const found = std::memchr(text + at, static_cast<unsigned char>(first), places - at);
    if (found == nullptr)
      return nowhere;
    at = static_cast<std::size_t>(static_cast<const char*>(found) - text);
    if (text[at + distance] == last)
      return at;
  }
  return nowhere;
}

std::uint64_t pairs(const char* text, char first, char last, std::size_t distance) noexcept
{
  std::uint64_t found = 0;
  for (unsigned i = 0; i < 64; ++i)
    found |= std::uint64_t{text[i] == first && text[i + distance] == last} << i;
  return found;
}

std::size_t lastPair(const char* text, std::size_t places, char first, char last, std::size_t distance) noexcept
{
  for (std::size_t left = places; left > 0;) {
    const void* const found = memrchr(text, static_cast<unsigned char>(first), left);
    if (found == nullptr)
      return nowhere;
    left = static_cast<std::size_t>(static_cast<const char*>(found) - text);
    if (text[left + distance] == last)
      return left;
  }
  return nowhere;
}

std::size_t firstMember(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept
{
  return firstWhere(text, length, [&](char byte) { return set.has(byte) == wanted; });
}

std::size_t lastMember(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept
{
  return lastWhere(text, length, [&](char byte) { return set.has(byte) == wanted; });
}

std::size_t asciiPrefixOf(const char* text, std::size_t length) noexcept
{
  return asciiPrefix(text, length);
}

std::size_t utf8Continuations(const char* text, std::size_t places, std::size_t length) noexcept
{
  std::size_t continuations = 0;
  std::size_t at = asciiPrefix(text, places);
  while (at < places) {
    const unsigned bytes = utf8Length(text + at, length - at);
    continuations += bytes - 1;
    at = std::min(at + bytes, places);
    at += asciiPrefix(text + at, places - at);
  }
  return continuations;
}

std::uint64_t whiteSpace(const char* text, std::size_t length) noexcept
{
  constexpr std::size_t most = 64;
  std::uint64_t mask = length < most ? ~std::uint64_t{0} << length : 0;
  for (std::size_t i = 0; i < std::min(length, most); ++i)
    mask |= std::uint64_t{isWhiteSpace(text[i])} << i;
  return mask;
}

#include "kernels/wordloops.inc"

void copyWords(const char* text, std::size_t, char* copy, std::size_t copyLength, bool separated,
               char separator) noexcept
{
  char* const end = copy + copyLength;
  bool isWhiteBefore = true;
  for (; copy != end; ++text) {
    const bool isWhite = isWhiteSpace(*text);
    if (!isWhite)
      *copy++ = *text;
    else if (separated && !isWhiteBefore)
      *copy++ = separator;
    isWhiteBefore = isWhite;
  }
}

void lower(char* text, std::size_t length) noexcept
{
  std::transform(text, text + length, text, lowerAsciiByte);
}

void upper(char* text, std::size_t length) noexcept
{
  std::transform(text, text + length, text, upperAsciiByte);
}

void reverse(char* text, std::size_t length) noexcept
{
  std::reverse(text, text + length);
}

void bitAnd(char* text, const char* other, std::size_t length) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    text[i] = static_cast<char>(text[i] & other[i]);
}

void bitOr(char* text, const char* other, std::size_t length) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    text[i] = static_cast<char>(text[i] | other[i]);
}

void bitExclusiveOr(char* text, const char* other, std::size_t length) noexcept
{
  for (std::size_t i = 0; i < length; ++i)
    text[i] = static_cast<char>(text[i] ^ other[i]);
}

}  // namespace

const Vectors portableVectors = {
  Instructions::portable,
  firstPair,
  pairs,
  lastPair,
  firstMember,
  lastMember,
  asciiPrefixOf,
  utf8Continuations,
  whiteSpace,
  measureWords,
  copyWords,
  lower,
  upper,
  reverse,
  bitAnd,
  bitOr,
  bitExclusiveOr,
};

constinit const Forms<Vectors> vectorForms(portableVectors, portableVectors, ssse3Vectors, avx2Vectors);

}  // namespace quelmcl::detail
