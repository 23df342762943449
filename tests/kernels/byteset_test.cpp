// byteset_test.cpp - kernels: sets of bytes.
#include "kernels/byteset.hpp"

#include "support/expect_text.hpp"
#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <string>

using quelmcl::detail::ByteSet;

namespace {

/// All bytes that the set has, in order.
std::string membersOf(const ByteSet& set)
{
  std::string members;
  for (int byte = 0; byte < 256; ++byte)
    if (set.has(static_cast<char>(byte)))
      members += static_cast<char>(byte);
  return members;
}

TEST(ByteSet, OfNothingHasNoByte)
{
  EXPECT_EQ(membersOf(ByteSet("abc", 0)), "");
}

TEST(ByteSet, IsReadyWhenTheProgramIsBuilt)
{
  constexpr ByteSet set("a\xFF", 2);
  static_assert(set.has('a') && set.has('\xFF') && !set.has('b') && !ByteSet().has('\0'), "known to the compiler");
  EXPECT_EQ(membersOf(set), "a\xFF");
}

TEST(ByteSet, OfOneByteHasThatByteOnly)
{
  for (int byte = 0; byte < 256; ++byte) {
    const std::string member(1, static_cast<char>(byte));
    EXPECT_EQ(membersOf(ByteSet(member.data(), 1)), member) << byte;
  }
}

TEST(ByteSet, OfAllBytesHasThemAll)
{
  std::string all;
  for (int byte = 0; byte < 256; ++byte)
    all += static_cast<char>(byte);
  EXPECT_EQ(membersOf(ByteSet(all.data(), all.size())), all);
}

TEST(ByteSet, TakesMembersThatAreListedTwice)
{
  EXPECT_EQ(membersOf(ByteSet("aba", 3)), "ab");
}

TEST(ByteSet, TakesNoMoreMembersThanItIsTold)
{
  EXPECT_EQ(membersOf(ByteSet("abc", 2)), "ab");
}

TEST(ByteSet, HasWhatIsListed)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 500; ++round) {
    std::string listed;
    for (unsigned count = random.below(60); count > 0; --count)
      listed += static_cast<char>(random.below(256));
    const ByteSet set(listed.data(), listed.size());
    for (int byte = 0; byte < 256; ++byte) {
      const char asked = static_cast<char>(byte);
      ASSERT_EQ(set.has(asked), listed.find(asked) != std::string::npos)
        << byte << " in " << quelmcl_test::quoted(listed);
    }
  }
}

}  // namespace
