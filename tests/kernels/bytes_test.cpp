// bytes_test.cpp - kernels: case, reversal, translation, bits and filling, at every length and alignment.
#include "kernels/bytes.hpp"

#include "placed_text.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace kerneltests;
using namespace quelmcl::detail;
using quelmcl_test::RandomTexts;

namespace {

/// Calls `check(length, alignment)` for all of them.
template <class Check>
void forAllPlaces(Check check)
{
  for (std::size_t alignment = 0; alignment < alignments; ++alignment)
    for (std::size_t length = 0; length <= longest; ++length) {
      SCOPED_TRACE("length " + std::to_string(length) + ", alignment " + std::to_string(alignment));
      check(length, alignment);
      if (testing::Test::HasFailure())
        return;
    }
}

/// Checks what `work` makes of texts of all lengths at all alignments, and that it touches nothing else.
void expectEverywhere(const std::function<void(char*, std::size_t)>& work,
                      const std::function<std::string(const std::string&)>& expected)
{
  RandomTexts random;
  forAllPlaces([&](std::size_t length, std::size_t alignment) {
    std::string letters;
    for (std::size_t i = 0; i < length; ++i)
      letters += static_cast<char>(random.onceIn(2) ? 'A' + random.below(58) : random.below(256));
    PlacedText placed(letters, alignment);
    work(placed.data(), length);
    EXPECT_EQ(quelmcl_test::quoted(placed.text()), quelmcl_test::quoted(expected(letters)));
    EXPECT_TRUE(placed.isIntactAround());
  });
}

// ---------------------------------------------------------------------------------------------------------------------
// Case

TEST(AsciiCase, OfALetterIsKnownForAllBytes)
{
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(isAsciiUpper(static_cast<char>(byte)), byte >= 0x41 && byte <= 0x5A) << byte;
    EXPECT_EQ(isAsciiLower(static_cast<char>(byte)), byte >= 0x61 && byte <= 0x7A) << byte;
  }
}

TEST(AsciiCase, ChangesTheTwentySixLettersAndNoOtherByte)
{
  for (int byte = 0; byte < 256; ++byte) {
    char lowered = static_cast<char>(byte);
    char raised = static_cast<char>(byte);
    lowerAscii(&lowered, 1);
    upperAscii(&raised, 1);
    EXPECT_EQ(lowered, static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte + 0x20 : byte)) << byte;
    EXPECT_EQ(raised, static_cast<char>(byte >= 'a' && byte <= 'z' ? byte - 0x20 : byte)) << byte;
  }
}

TEST(AsciiCase, IsMappedEverywhere)
{
  expectEverywhere(lowerAscii, reference::lowerCase);
  expectEverywhere(upperAscii, reference::upperCase);
}

// ---------------------------------------------------------------------------------------------------------------------
// Order

TEST(ReverseBytes, TurnsTextsRoundEverywhere)
{
  expectEverywhere(reverseBytes, reference::reverse);
}

// ---------------------------------------------------------------------------------------------------------------------
// Bits

TEST(ComplementBytes, TurnsEveryBitOver)
{
  forAllPlaces([](std::size_t length, std::size_t alignment) {
    const std::string text = variedText(length);
    PlacedText from(text, alignments - alignment);
    PlacedText to(std::string(length, '-'), alignment);
    complementBytes(from.data(), length, to.data());
    EXPECT_EQ(to.text(), reference::complement(text));
    EXPECT_EQ(from.text(), text);
    EXPECT_TRUE(to.isIntactAround());
  });
}

TEST(ComplementBytes, MayWorkOnTheTextItself)
{
  expectEverywhere([](char* text, std::size_t length) { complementBytes(text, length, text); }, reference::complement);
}

struct BitCase {
  const char* name;
  void (*combine)(char*, std::size_t, const char*, std::size_t) noexcept;
  std::string (*expected)(const std::string&, const std::string&);
};

class BitBytes : public testing::TestWithParam<BitCase> {};

TEST_P(BitBytes, RepeatTheKeyOverTheText)
{
  for (const std::size_t keyLength : {1u, 2u, 3u, 4u, 7u, 8u, 15u, 16u, 17u, 33u, 70u, 100u}) {
    std::string key = variedText(keyLength + 1).substr(1);
    for (char& byte : key)
      byte = static_cast<char>(byte ^ 0x5A);
    expectEverywhere([&](char* text, std::size_t length) { GetParam().combine(text, length, key.data(), keyLength); },
                     [&](const std::string& text) { return GetParam().expected(text, key); });
  }
}

TEST_P(BitBytes, CombineAllPairsOfBytes)
{
  for (int one = 0; one < 256; ++one)
    for (int other = 0; other < 256; ++other) {
      char text = static_cast<char>(one);
      const char key = static_cast<char>(other);
      GetParam().combine(&text, 1, &key, 1);
      ASSERT_EQ(std::string(1, text), GetParam().expected(std::string(1, static_cast<char>(one)), std::string(1, key)))
        << one << " and " << other;
    }
}

const BitCase bitCases[] = {
  {"and", andBytes, reference::bitAnd},
  {"or", orBytes, reference::bitOr},
  {"exclusiveOr", exclusiveOrBytes, reference::bitExclusiveOr},
};

INSTANTIATE_TEST_SUITE_P(Operators, BitBytes, testing::ValuesIn(bitCases),
                         [](const testing::TestParamInfo<BitCase>& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------------------------------
// Translation

TEST(ByteMap, TranslatesEverywhere)
{
  const ByteMap map("aBc\x80\xFF", 5, "123", 3, '*');
  expectEverywhere([&map](char* text, std::size_t length) { map.apply(text, length); },
                   [](const std::string& text) { return reference::translate(text, "aBc\x80\xFF", "123", '*'); });
}

TEST(ByteMap, LetsTheFirstPlaceOfAByteCount)
{
  std::string text = "aba";
  ByteMap("aaba", 4, "1234", 4, '*').apply(&text[0], text.size());
  EXPECT_EQ(text, "131");
}

TEST(ByteMap, WithoutOutputGivesThePadCharacter)
{
  std::string text = "abc";
  ByteMap("ac", 2, "", 0, '*').apply(&text[0], text.size());
  EXPECT_EQ(text, "*b*");
}

TEST(ByteMap, WithoutInputLeavesTheText)
{
  std::string text = variedText(256);
  ByteMap("", 0, "abc", 3, '*').apply(&text[0], text.size());
  EXPECT_EQ(text, variedText(256));
}

TEST(ByteMap, AgreesWithTheReference)
{
  RandomTexts random;
  for (int round = 0; round < 2000; ++round) {
    const std::string text = random.text();
    const std::string input = random.textLike(text, 8);
    const std::string output = random.text();
    const char pad = random.byte();
    std::string translated = text;
    ByteMap(input.data(), input.size(), output.data(), output.size(), pad).apply(&translated[0], translated.size());
    ASSERT_EQ(translated, reference::translate(text, input, output, pad)) << quelmcl_test::quoted(text);
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Filling

TEST(RepeatBytes, FillsAnyLengthWithAnyUnit)
{
  for (std::size_t unit = 1; unit <= 17; ++unit)
    forAllPlaces([unit](std::size_t length, std::size_t alignment) {
      if (length < unit)
        return;
      const std::string repeated = variedText(unit);
      std::string expected;
      for (std::size_t i = 0; i < length; ++i)
        expected += repeated[i % unit];
      PlacedText placed(repeated + std::string(length - unit, '-'), alignment);
      repeatBytes(placed.data(), unit, length);
      EXPECT_EQ(placed.text(), expected) << "unit " << unit;
      EXPECT_TRUE(placed.isIntactAround());
    });
}

TEST(RepeatBytes, FillsLongTexts)
{
  std::string text = "abc" + std::string(99997, '-');
  repeatBytes(&text[0], 3, text.size());
  for (std::size_t i = 0; i < text.size(); ++i)
    ASSERT_EQ(text[i], "abc"[i % 3]) << i;
}

}  // namespace
