// scan_test.cpp - kernels: scanning bytes one at a time.
#include "kernels/scan.hpp"

#include "placed_text.hpp"

#include <gtest/gtest.h>

#include <string>

using quelmcl::detail::firstWhere;
using quelmcl::detail::lastWhere;
using quelmcl::detail::nowhere;
using namespace kerneltests;

namespace {

bool isX(char byte)
{
  return byte == 'x';
}

TEST(Scan, FindsTheOnlyByteWhereverItIs)
{
  for (std::size_t length = 1; length <= longest; ++length)
    for (std::size_t place = 0; place < length; ++place) {
      std::string text(length, '-');
      text[place] = 'x';
      EXPECT_EQ(firstWhere(text.data(), length, isX), place) << length;
      EXPECT_EQ(lastWhere(text.data(), length, isX), place) << length;
    }
}

TEST(Scan, FindsTheFirstAndTheLastOfSeveral)
{
  const std::string text = "-x-x-x-";
  EXPECT_EQ(firstWhere(text.data(), text.size(), isX), 1u);
  EXPECT_EQ(lastWhere(text.data(), text.size(), isX), 5u);
}

TEST(Scan, FindsNothingWhereThereIsNone)
{
  for (std::size_t length = 0; length <= longest; ++length) {
    const std::string text(length, '-');
    EXPECT_EQ(firstWhere(text.data(), length, isX), nowhere) << length;
    EXPECT_EQ(lastWhere(text.data(), length, isX), nowhere) << length;
  }
}

TEST(Scan, LooksAtNoByteBeyondTheText)
{
  const std::string text = "x--x";
  EXPECT_EQ(firstWhere(text.data() + 1, 2, isX), nowhere);
  EXPECT_EQ(lastWhere(text.data() + 1, 2, isX), nowhere);
}

TEST(Scan, AsksNoMoreThanItNeeds)
{
  const std::string text = "--x--";
  int asked = 0;
  const auto counting = [&asked](char byte) {
    ++asked;
    return byte == 'x';
  };
  firstWhere(text.data(), text.size(), counting);
  EXPECT_EQ(asked, 3);
  asked = 0;
  lastWhere(text.data(), text.size(), counting);
  EXPECT_EQ(asked, 3);
}

}  // namespace
