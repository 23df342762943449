// utf8_agreement_test.cpp - our reading of UTF-8 is the C library's, for every sequence of bytes that could make a
// difference.
#include "kernels/utf8.hpp"
#include "multibyte_probe.hpp"
#include "support/character_texts.hpp"

#include <quelmcl/idbcsb.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <string>

using namespace buffertests;
using quelmcl_test::CharacterTexts;
using quelmcl_test::LocaleInForce;

namespace {

constexpr std::size_t lookAhead = 16;

/// The length of the character at `p` by the C library, looking at `available` bytes: what is no character counts as
/// one byte.
unsigned lengthByTheLibrary(const char* p, std::size_t available = lookAhead)
{
  if (*p == '\0')
    return 1;
  const int answer = std::mblen(p, available);
  return answer <= 0 ? 1 : static_cast<unsigned>(answer);
}

class Utf8Agreement : public testing::Test {
  LocaleInForce locale{"C.UTF-8"};

protected:
  bool agrees() const { return quelmcl::detail::utf8Length(text, lookAhead) == lengthByTheLibrary(text); }
  std::string bytes() const { return shown(std::string(text, 8)); }

  char text[lookAhead + 1] = {};  // NULs behind the bytes of the test
};

TEST_F(Utf8Agreement, ForAllSequencesOfUpToTwoBytes)
{
  for (unsigned first = 0; first < 256; ++first) {
    text[0] = static_cast<char>(first);
    text[1] = '\0';
    ASSERT_TRUE(agrees()) << bytes();
    for (unsigned second = 1; second < 256; ++second) {
      text[1] = static_cast<char>(second);
      ASSERT_TRUE(agrees()) << bytes();
      ASSERT_EQ(IDBCSBuffer::charLength(text), lengthByTheLibrary(text)) << bytes();
    }
  }
}

// The long loops are cut by the first byte, so that no single test takes long.
class Utf8AgreementFor : public Utf8Agreement, public testing::WithParamInterface<unsigned> {};

class Utf8AgreementForThreeBytes : public Utf8AgreementFor {};

TEST_P(Utf8AgreementForThreeBytes, AllSequences)
{
  constexpr unsigned share = 16;
  for (unsigned first = GetParam(); first < GetParam() + share; ++first)
    for (unsigned second = 0; second < 256; ++second)
      for (unsigned third = 0; third < 256; ++third) {
        text[0] = static_cast<char>(first);
        text[1] = static_cast<char>(second);
        text[2] = static_cast<char>(third);
        ASSERT_TRUE(agrees()) << bytes();
      }
}

INSTANTIATE_TEST_SUITE_P(FirstByte, Utf8AgreementForThreeBytes, testing::Range(0u, 256u, 16u));

class Utf8AgreementForFourBytes : public Utf8AgreementFor {};

TEST_P(Utf8AgreementForFourBytes, AllSequences)
{
  text[0] = static_cast<char>(GetParam());
  for (unsigned second = 0; second < 256; ++second)
    for (unsigned third = 0; third < 256; ++third)
      for (unsigned fourth = 0; fourth < 256; ++fourth) {
        text[1] = static_cast<char>(second);
        text[2] = static_cast<char>(third);
        text[3] = static_cast<char>(fourth);
        ASSERT_TRUE(agrees()) << bytes();
      }
}

INSTANTIATE_TEST_SUITE_P(FirstByte, Utf8AgreementForFourBytes, testing::Range(0xF0u, 0xF8u));

// Both sides of every bound that the rules have.
const unsigned char boundaryBytes[] = {0x00, 0x7F, 0x80, 0x81, 0x83, 0x84, 0x87, 0x88,
                                       0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xFF};

class Utf8AgreementForMoreBytes : public Utf8AgreementFor {};

TEST_P(Utf8AgreementForMoreBytes, AllSequencesOfBoundaryBytes)
{
  constexpr unsigned choices = static_cast<unsigned>(std::size(boundaryBytes));
  constexpr unsigned followers = 5;
  unsigned combinations = 1;
  for (unsigned i = 0; i < followers; ++i)
    combinations *= choices;

  text[0] = static_cast<char>(GetParam());
  for (unsigned combination = 0; combination < combinations; ++combination) {
    unsigned rest = combination;
    for (unsigned i = 1; i <= followers; ++i, rest /= choices)
      text[i] = static_cast<char>(boundaryBytes[rest % choices]);
    ASSERT_TRUE(agrees()) << bytes();
    if (combination % 16 == 0) {
      ASSERT_EQ(IDBCSBuffer::charLength(text), lengthByTheLibrary(text)) << bytes();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(FirstByte, Utf8AgreementForMoreBytes, testing::Range(0xF8u, 0xFEu));

TEST_F(Utf8Agreement, WithinAnyNumberOfBytesAndWhateverFollows)
{
  CharacterTexts random;
  for (int round = 0; round < 200000; ++round) {
    const std::string some =
      random.onceIn(2) ? random.characters(10) : random.text(std::string("\x80\xBF\xC3\xE1\xED\xF1\xFC\xFD"), 10);
    const std::string::size_type length = some.copy(text, lookAhead);
    text[length] = '\0';
    const std::size_t available = 1 + random.below(8);
    ASSERT_EQ(quelmcl::detail::utf8Length(text, available), lengthByTheLibrary(text, available))
      << shown(some) << ", " << available;
    ASSERT_EQ(IDBCSBuffer::charLength(text), lengthByTheLibrary(text)) << shown(some);
  }
}

// If the C library took no sequence for a character, the two would agree all too easily.
TEST_F(Utf8Agreement, IsAboutCharactersOfEveryLength)
{
  EXPECT_EQ(quelmcl::detail::utf8Length("a", lookAhead), 1u);
  EXPECT_EQ(lengthByTheLibrary("\xC3\xA9"), 2u);
  EXPECT_EQ(lengthByTheLibrary("\xE2\x82\xAC"), 3u);
  EXPECT_EQ(lengthByTheLibrary("\xF0\x9F\x98\x80"), 4u);
  EXPECT_EQ(lengthByTheLibrary("\xF8\x88\x80\x80\x80"), 5u);
  EXPECT_EQ(lengthByTheLibrary("\xFC\x84\x80\x80\x80\x80"), 6u);
  EXPECT_EQ(lengthByTheLibrary("\xED\xA0\x80"), 1u);
  EXPECT_EQ(lengthByTheLibrary("\xC0\x80"), 1u);
}

}  // namespace
