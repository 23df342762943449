// ascii_test.cpp - the run of ASCII bytes that a text begins with.
#include "kernels/ascii.hpp"

#include "placed_text.hpp"

#include <gtest/gtest.h>

#include <string>

using kerneltests::PlacedText;
using quelmcl::detail::asciiPrefix;

namespace {

TEST(AsciiPrefix, EndsAtTheFirstOtherByteWhereverItStands)
{
  for (unsigned length = 0; length <= 40; ++length)
    for (unsigned other = 0; other <= length; ++other)
      for (const char byte : {'\x80', '\xFF', '\xC3'}) {
        std::string text(length, 'a');
        if (other < length)
          text[other] = byte;
        PlacedText placed(text, other % 8);
        EXPECT_EQ(asciiPrefix(placed.data(), length), other) << length << " bytes";
      }
}

TEST(AsciiPrefix, TakesTheWholeLowerHalfOfTheBytes)
{
  std::string text;
  for (int byte = 0; byte < 0x100; ++byte)
    text += static_cast<char>(byte);
  EXPECT_EQ(asciiPrefix(text.data(), text.size()), 0x80u);
}

TEST(ReverseAsciiBlocks, WritesWholeBlocksBackwardsAndNothingElse)
{
  for (unsigned length = 0; length <= 40; ++length)
    for (unsigned other = 0; other <= length; ++other) {
      std::string text = kerneltests::variedText(length);
      for (char& byte : text)
        byte = static_cast<char>(byte & 0x7F);
      if (other < length)
        text[other] = '\xC3';
      std::string reversed(length, '#');
      const std::size_t written =
        quelmcl::detail::reverseAsciiBlocks(text.data(), text.data() + length, &reversed[0] + length);
      EXPECT_EQ(written, other / 8 * 8) << length << " bytes";
      std::string expected(text.rbegin(), text.rend());
      expected.replace(0, length - written, length - written, '#');
      EXPECT_EQ(reversed, expected);
    }
}

}  // namespace
