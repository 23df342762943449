// formatting_test.cpp - strings in std::format and in libfmt, where these exist: the whole text, with fill, alignment, width and
// precision.
#include "support/lacking_package.hpp"

#include <quelmcl/iformat.hpp>

#include <gtest/gtest.h>

#include <string>

#if __has_include(<fmt/format.h>)
#  define FMT_HEADER_ONLY
#  include <quelmcl/ilibfmt.hpp>
#endif

namespace {

#ifdef __cpp_lib_format  // else this standard library has no std::format
TEST(StandardFormat, TakesStringsLikeViews)
{
  const IString text("abc");
  EXPECT_EQ(std::format("{}", text), "abc");
  EXPECT_EQ(std::format("{:>6}|{:<6}|{:*^7}", text, text, text), "   abc|abc   |**abc**");
  EXPECT_EQ(std::format("{:.2}", text), "ab");
  EXPECT_EQ(std::format("{:{}.{}}|", text, 5, 1), "a    |");
  EXPECT_EQ(std::format("{:5}|", I0String("abc")), "abc  |");
  EXPECT_EQ(std::format("{}", IString("a\0b", 3)), std::string("a\0b", 3));
}
#endif

TEST(LibFmt, TakesStringsLikeViews)
{
#ifdef FMT_VERSION
  const IString text("abc");
  EXPECT_EQ(fmt::format("{}", text), "abc");
  EXPECT_EQ(fmt::format("{:>6}|{:<6}|{:*^7}", text, text, text), "   abc|abc   |**abc**");
  EXPECT_EQ(fmt::format("{:.2}", text), "ab");
  EXPECT_EQ(fmt::format("{:{}.{}}|", text, 5, 1), "a    |");
  EXPECT_EQ(fmt::format("{:5}|", I0String("abc")), "abc  |");
  EXPECT_EQ(fmt::format("{}", IString("a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(fmt::format("{} {}", text.word(1), 5), "abc 5");
#else
  QUELMCL_END_FOR_LACK_OF("libfmt-dev");
#endif
}

}  // namespace
