// shortbytes_test.cpp - kernels: copying and comparing few bytes does what the C library does, and touches nothing else.
#include "kernels/shortbytes.hpp"

#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <string>

using quelmcl_test::RandomTexts;

namespace {

constexpr std::size_t longest = 40;

TEST(ShortBytes, AreCopiedInAnyNumberWithNothingAround)
{
  RandomTexts random;
  for (std::size_t length = 0; length <= longest; ++length)
    for (std::size_t at = 0; at < 16; ++at) {
      const std::string from = random.text("abcdefgh", 8) + std::string(longest, 'x').replace(length / 2, 1, "y");
      std::string to(longest + 32, '.');
      const std::string expected = to.substr(0, at) + from.substr(0, length) + to.substr(at + length);
      char* const end = quelmcl::detail::copyBytes(&to[at], from.data(), length);
      EXPECT_EQ(to, expected) << length << " bytes to " << at;
      EXPECT_EQ(end, to.data() + at + length);
    }
}

TEST(ShortBytes, AreTheSameUntilOneOfThemDiffers)
{
  for (std::size_t length = 0; length <= longest; ++length) {
    const std::string text = std::string(longest, 'x').substr(0, length) + "end of one";
    const std::string other = std::string(longest, 'x').substr(0, length) + "not of the other";
    EXPECT_TRUE(quelmcl::detail::areSame(text.data(), other.data(), length)) << length;
    for (std::size_t at = 0; at < length; ++at) {
      std::string changed = other;
      changed[at] = static_cast<char>(changed[at] ^ (1 << at % 8));
      EXPECT_FALSE(quelmcl::detail::areSame(text.data(), changed.data(), length)) << length << " bytes, at " << at;
    }
  }
}

}  // namespace
