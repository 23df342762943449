// random_texts_test.cpp - the random texts of the other tests: repeatable, and reaching the corners that they are to
// reach.
#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

using quelmcl_test::RandomTexts;

namespace {

TEST(RandomTexts, AreTheSameForTheSameSeedOnly)
{
  RandomTexts one(1);
  RandomTexts same(1);
  RandomTexts other(2);
  std::string textsOfOne;
  std::string textsOfSame;
  std::string textsOfOther;
  for (int i = 0; i < 20; ++i) {
    textsOfOne += one.text() + '|';
    textsOfSame += same.text() + '|';
    textsOfOther += other.text() + '|';
  }
  EXPECT_EQ(textsOfOne, textsOfSame);
  EXPECT_NE(textsOfOne, textsOfOther);
}

TEST(RandomTexts, ReachTheCorners)
{
  RandomTexts random(1);
  std::set<std::size_t> lengths;
  bool hasNul = false;
  bool hasHighByte = false;
  for (int i = 0; i < 2000; ++i) {
    const std::string text = random.text();
    lengths.insert(text.size());
    hasNul = hasNul || text.find('\0') != std::string::npos;
    hasHighByte = hasHighByte || text.find('\xFF') != std::string::npos;
  }
  EXPECT_EQ(lengths.count(0), 1u);
  EXPECT_EQ(lengths.count(1), 1u);
  EXPECT_EQ(lengths.count(40), 1u);
  EXPECT_GT(*lengths.rbegin(), 256u);
  EXPECT_TRUE(hasNul);
  EXPECT_TRUE(hasHighByte);
}

TEST(RandomTexts, GivePositionsAroundBothEndsOfTheText)
{
  RandomTexts random(1);
  std::set<unsigned> positions;
  for (int i = 0; i < 1000; ++i)
    positions.insert(random.position(10));
  for (const unsigned position : {0u, 1u, 5u, 9u, 10u, 11u, 4294967295u})
    EXPECT_EQ(positions.count(position), 1u) << position;
}

}  // namespace
