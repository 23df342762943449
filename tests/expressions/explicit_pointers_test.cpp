// explicit_pointers_test.cpp - a program that has asked for explicit pointer conversions: all else is as ever, and so is the
// library that it is linked with. What it gives up is in explicit_pointers_refused.cpp.
#define QUELMCL_EXPLICIT_POINTERS
#include <quelmcl/iformat.hpp>
#include <quelmcl/ilibfmt.hpp>
#include <quelmcl/istdexcp.hpp>
#include <quelmcl/quelmcl.hpp>

#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#if __cplusplus >= 201703L
#  include <string_view>
#endif

#include "checks.hpp"

namespace {

static_assert(!std::is_convertible<IString, char*>::value, "only when asked for");
static_assert(!std::is_convertible<IString, const char*>::value, "only when asked for");
static_assert(!std::is_convertible<const IString&, unsigned char*>::value, "only when asked for");
static_assert(std::is_constructible<const char*, const IString&>::value, "by a cast");
static_assert(!std::is_constructible<bool, const IString&>::value, "no truth value, not even by a cast");

TEST(ExplicitPointers, AreGivenToCasts)
{
  const IString c("abc");
  EXPECT_STREQ("abc", static_cast<const char*>(c));
  EXPECT_STREQ("abc", static_cast<char*>(c));
  EXPECT_EQ(3u, std::strlen(static_cast<const char*>(c)));
  EXPECT_EQ('a', *static_cast<unsigned char*>(c));
}

TEST(ExplicitPointers, LeaveEverythingElse)
{
  IString s("abc");
  char buf[8] = "abc";
  const char* const p = "abc";
  EXPECT_TRUE(s == "abc");
  EXPECT_TRUE("abc" == s);
  EXPECT_TRUE(s == buf);
  EXPECT_TRUE(p == s);
  EXPECT_TRUE(s == std::string("abc"));
  EXPECT_TRUE(s + "x" + buf + 'y' == "abcxabcy");
  EXPECT_TRUE("x" + s == "xabc");
  EXPECT_EQ('a', s[1]);
  s += buf;
  EXPECT_EQ(2u, s.occurrencesOf(p));
  EXPECT_TRUE(s.change("abc", "x").upperCase() == "XX");
  EXPECT_TRUE((s == "XX" ? s : "x") == "XX");

  IString rest;
  IString("one two") >> IStringParser::skipWord >> rest;
  EXPECT_TRUE(rest == "two");
  std::ostringstream out;
  out << rest;
  EXPECT_EQ("two", out.str());
  EXPECT_EQ("two", rest.as<std::string>());

  std::map<std::pair<IString, int>, int> keys;
  ++keys[std::pair<IString, int>("a", 1)];
  ++keys[std::pair<IString, int>(IString("ab", 1), 1)];
  EXPECT_EQ(1u, keys.size());
  EXPECT_TRUE(std::hash<IString>()("a") == quelmcl::TextHash()("a"));
}

#if __cplusplus >= 201703L
// Without the pointer in its way, std::string goes through the view and takes the whole text.
TEST(ExplicitPointers, LeaveViewsWhichThenMakeWholeTexts)
{
  const IString c("a\0b", 3);
  const std::string_view v = c;
  EXPECT_EQ(3u, v.size());
  EXPECT_EQ(3u, std::string(c).size());
}
#endif

}  // namespace
