// modern_test.cpp - strings beside the standard library of each language version: its texts, views, containers, order and
// ranges. Like must_compile_test.cpp it compiles from C++11 to C++23, with both compilers and without a warning; what needs a
// later version stands behind it. What must not compile is in must_not_compile.cpp.
#include <quelmcl/quelmcl.hpp>

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>
#if __cplusplus >= 201703L
#  include <optional>
#  include <string_view>
#  include <tuple>
#  include <variant>
#endif
#if __cplusplus >= 202002L
#  include <compare>
#  include <concepts>
#  include <iterator>
#  include <ranges>
#endif

#include "checks.hpp"

namespace {

// The whole text, NUL bytes included, in a form that any assertion can compare and print.
std::string bytes(const IString& text)
{
  return text.as<std::string>();
}

std::string withNul()
{
  return std::string("a\0b", 3);
}

int choosesString(const IString&)
{
  return 1;
}
int choosesString(const std::string&)
{
  return 2;
}

// ---- std::string, in every version ----

TEST(StandardStrings, AreTakenWhole)
{
  const std::string str = withNul();
  IString s;
  IString x(str);
  s = str;
  EXPECT_EQ(str, bytes(x));
  EXPECT_EQ(str, bytes(s));
  EXPECT_EQ(str, bytes(IString(std::string(str))));
  EXPECT_EQ(str, bytes(I0String(str)));
  I0String fromZero;
  EXPECT_TYPE(I0String&, fromZero = str);
  fromZero = str;
  EXPECT_EQ(str, bytes(fromZero));

  EXPECT_TYPE(IString&, s += str);
  EXPECT_TYPE(IString, s + str);
  EXPECT_TYPE(IString, str + s);
  s = "x";
  s += str;
  EXPECT_EQ("x" + str, bytes(s));
  EXPECT_EQ("x" + str + str, bytes(s + str));
  EXPECT_EQ(str + "x" + str, bytes(str + s));
  EXPECT_EQ(str + "x" + str + "y", bytes(str + s + "y"));
}

TEST(StandardStrings, AreSearchedFor)
{
  const std::string str = withNul();
  const IString s("xa\0bxa\0b", 8);
  EXPECT_TYPE(unsigned, s.indexOf(str));
  EXPECT_EQ(2u, s.indexOf(str));
  EXPECT_EQ(6u, s.indexOf(str, 3));
  EXPECT_EQ(6u, s.lastIndexOf(str));
  EXPECT_EQ(2u, s.occurrencesOf(str));
  EXPECT_EQ(1u, I0String(s).indexOf(str));
}

TEST(StandardStrings, CompareWithStringsOnEitherSide)
{
  const std::string str("abc");
  std::string writable("abd");
  IString s("abc");
  const IString c("abc");
  EXPECT_TRUE(s == str);
  EXPECT_TRUE(str == s);
  EXPECT_TRUE(c == str);
  EXPECT_TRUE(str == c);
  EXPECT_FALSE(s == writable);
  EXPECT_FALSE(writable == s);
  EXPECT_FALSE(s != str);
  EXPECT_TRUE(writable != c);
  EXPECT_TRUE(s < writable);
  EXPECT_FALSE(writable < s);
  EXPECT_TRUE(s <= str);
  EXPECT_TRUE(str <= s);
  EXPECT_FALSE(s > str);
  EXPECT_TRUE(writable > s);
  EXPECT_TRUE(s >= str);
  EXPECT_FALSE(str >= IString(writable));
  EXPECT_TRUE(IString("a\0b", 3) == withNul());
  EXPECT_TRUE(IString("a") < withNul());
}

TEST(StandardStrings, GetTheWholeTextByName)
{
  const IString c("a\0b", 3);
  EXPECT_EQ(3u, c.as<std::string>().size());
  EXPECT_EQ(withNul(), c.as<std::string>());
}

TEST(StandardStrings, ChooseTheirOwnOverload)
{
  std::string str("x");
  IString s("x");
  EXPECT_EQ(1, choosesString(s));
  EXPECT_EQ(2, choosesString(str));
}

// Strings are made from so much that an operator too many would have its say here.
TEST(StandardStrings, AreComparedAmongThemselvesAsBefore)
{
  std::string str("abc");
  EXPECT_TRUE(str == "abc");
  EXPECT_TRUE("abd" != str);
  EXPECT_TRUE(str < "abd");
  EXPECT_TRUE(str + "x" == "abcx");
  EXPECT_TRUE("x" + str + 'y' == std::string("xabcy"));
#if __cplusplus >= 201703L
  const std::string_view sv("abc");
  EXPECT_TRUE(sv == "abc");
  EXPECT_TRUE("abd" != sv);
  EXPECT_TRUE(sv < "abd");
  EXPECT_TRUE("abd" >= sv);
  EXPECT_TRUE(str == sv);
  EXPECT_TRUE(sv == str);
  EXPECT_TRUE(sv <= str);
#endif
#if __cplusplus >= 202002L
  EXPECT_TRUE((sv <=> "abd") < 0);
  EXPECT_TRUE(("abd" <=> sv) > 0);
  EXPECT_TRUE((str <=> sv) == 0);
  EXPECT_TRUE((str <=> "abd") < 0);
#endif
}

// ---- iteration and containers ----

TEST(IterationExpressions, VisitEveryByteOnceAndKeepSharing)
{
  IString s("a\0b", 3);
  const IString sharer(s);
  std::string seen;
  for (char ch : s)
    seen += ch;
  EXPECT_EQ(withNul(), seen);
  EXPECT_EQ(withNul(), std::string(s.begin(), s.end()));
  EXPECT_EQ(withNul(), std::string(s.cbegin(), s.cend()));
  EXPECT_TRUE(s.begin() == sharer.begin());
  EXPECT_TYPE(const char*, s.begin());
}

TEST(IterationExpressions, GoOverCharacters)
{
  std::string seen;
  unsigned lastPosition = 0;
  for (const quelmcl::Character letter : IString("abc").characters()) {
    seen += letter.text().as<std::string>() + ".";
    lastPosition = letter.position();
  }
  EXPECT_EQ("a.b.c.", seen);
  EXPECT_EQ(3u, lastPosition);
}

TEST(LiteralExpressions, AreStrings)
{
  using namespace quelmcl::literals;
  EXPECT_TYPE(IString, "abc"_text);
  EXPECT_EQ(withNul(), bytes("a\0b"_text));
}

TEST(ContainerExpressions, SortFindAndKeepStrings)
{
  std::vector<IString> texts{"b", "c", "a"};
  std::sort(texts.begin(), texts.end());
  EXPECT_EQ("a", bytes(texts[0]));
  EXPECT_TRUE(std::find(texts.begin(), texts.end(), "b") == texts.begin() + 1);
  EXPECT_EQ("abc", bytes(std::accumulate(texts.begin(), texts.end(), IString())));

  std::map<IString, int> sorted;
  sorted["a"] = 1;
  sorted["b"] = 2;
  ++sorted[IString("a")];
  EXPECT_EQ(2, sorted["a"]);
  EXPECT_EQ(2u, std::set<IString>(texts.begin(), texts.begin() + 2).count("a") + sorted.count("b"));

  std::unordered_map<IString, int> hashed;
  hashed["a"] = 1;
  ++hashed["a"];
  EXPECT_EQ(2, hashed[IString("a")]);
  std::unordered_set<I0String> hashedFromZero;
  hashedFromZero.insert("a");
  EXPECT_EQ(1u, hashedFromZero.count(I0String("a")));
  EXPECT_TRUE(std::hash<IString>()("a") == std::hash<IString>()(IString("ab", 1)));

  IString left("left"), right("right");
  std::swap(left, right);
  EXPECT_EQ("right", bytes(left));
  EXPECT_EQ("left", bytes(right));
}

// ---- C++14: keys are found without a string made of them ----

#if __cplusplus >= 201402L
TEST(ContainerExpressions, FindKeysOfOtherTypes)
{
  const std::map<IString, int, std::less<>> sorted{{"a", 1}, {"b", 2}};
  char buf[] = "b";
  EXPECT_EQ(1, sorted.find("a")->second);
  EXPECT_EQ(2, sorted.find(buf)->second);
  EXPECT_EQ(2, sorted.find(std::string("b"))->second);
  EXPECT_TRUE(sorted.find("c") == sorted.end());
#  if __cplusplus >= 201703L
  EXPECT_EQ(1, sorted.find(std::string_view("a"))->second);
#  endif
#  ifdef __cpp_lib_generic_unordered_lookup
  const std::unordered_map<IString, int, quelmcl::TextHash, std::equal_to<>> hashed{{"a", 1}, {"b", 2}};
  EXPECT_EQ(1, hashed.find("a")->second);
  EXPECT_EQ(2, hashed.find(buf)->second);
  EXPECT_EQ(2, hashed.find(std::string("b"))->second);
  EXPECT_EQ(2, hashed.find(std::string_view("b"))->second);
  EXPECT_TRUE(hashed.find("c") == hashed.end());
#  endif
}
#endif

// ---- C++17: views ----

#if __cplusplus >= 201703L
std::size_t sizeOf(std::string_view view)
{
  return view.size();
}

TEST(ViewExpressions, ShowTheWholeTextWithoutACopy)
{
  IString s("a\0b", 3);
  const IString c("a\0b", 3);
  std::string_view copied = s;
  std::string_view v(s);
  std::string_view braced{s};
  std::string_view ofConstant = c;
  std::string_view directOfConstant(c);
  std::string_view bracedOfConstant{c};
  EXPECT_EQ(withNul(), copied);
  EXPECT_EQ(withNul(), v);
  EXPECT_EQ(withNul(), braced);
  EXPECT_EQ(withNul(), ofConstant);
  EXPECT_EQ(withNul(), directOfConstant);
  EXPECT_EQ(withNul(), bracedOfConstant);
  EXPECT_EQ(withNul(), static_cast<std::string_view>(s));
  EXPECT_EQ(withNul(), s.as<std::string_view>());
  EXPECT_EQ(3u, sizeOf(s));
  EXPECT_EQ(3u, sizeOf(c));
  EXPECT_EQ(3u, sizeOf(I0String(c)));
  EXPECT_TRUE(v.data() == s.begin());
  v = c;
  EXPECT_TRUE(v.data() == c.begin());
}

TEST(ViewExpressions, MakeStringsAndJoinThem)
{
  const std::string owner = withNul();
  const std::string_view sv = owner;
  IString s;
  IString x(sv);
  s = sv;
  EXPECT_EQ(owner, bytes(x));
  EXPECT_EQ(owner, bytes(s));
  EXPECT_EQ("", bytes(IString(std::string_view())));
  s += sv;
  EXPECT_EQ(owner + owner, bytes(s));
  EXPECT_TYPE(IString, s + sv);
  EXPECT_EQ(owner + owner, bytes(x + sv));
  EXPECT_EQ("x" + owner, bytes(std::string_view("x") + x));
  EXPECT_EQ(2u, IString("xa\0b", 4).indexOf(sv));
  EXPECT_EQ(2u, IString("xa\0b", 4).lastIndexOf(sv));
  EXPECT_EQ(1u, IString("xa\0b", 4).occurrencesOf(sv));
}

TEST(ViewExpressions, CompareOnEitherSide)
{
  const std::string_view sv("abc");
  IString s("abc");
  const IString t("abd");
  EXPECT_TRUE(s == sv);
  EXPECT_TRUE(sv == s);
  EXPECT_TRUE(t != sv);
  EXPECT_TRUE(sv != t);
  EXPECT_FALSE(s < sv);
  EXPECT_TRUE(sv < t);
  EXPECT_TRUE(s <= sv);
  EXPECT_TRUE(sv <= t);
  EXPECT_TRUE(t > sv);
  EXPECT_FALSE(sv > s);
  EXPECT_TRUE(t >= sv);
  EXPECT_TRUE(sv >= s);
  EXPECT_TRUE(IString() == std::string_view());
}

TEST(ContainerExpressions, TakePartInOptionalsVariantsAndTuples)
{
  std::optional<IString> maybe;
  EXPECT_FALSE(maybe.has_value());
  maybe = "abc";
  EXPECT_TRUE(maybe == IString("abc"));
  std::variant<int, IString> either(IString("abc"));
  EXPECT_EQ("abc", bytes(std::get<IString>(either)));
  either = 5;
  EXPECT_EQ(5, std::get<int>(either));

  // Keys are compared by text in every version; equal texts in different buffers are one key.
  std::map<std::pair<IString, int>, int> pairs;
  std::set<std::tuple<IString, int>> tuples;
  for (int round = 0; round < 3; ++round) {
    ++pairs[std::pair<IString, int>(IString("ab", 1), 1)];
    tuples.insert(std::tuple<IString, int>(IString("ab", 1), 1));
  }
  EXPECT_EQ(1u, pairs.size());
  EXPECT_EQ(1u, tuples.size());
}
#endif

// ---- C++20: order and ranges ----

#if __cplusplus >= 202002L && defined(__cpp_lib_ranges)
static_assert(std::regular<IString>);
static_assert(std::totally_ordered<IString>);
static_assert(std::three_way_comparable<IString, std::strong_ordering>);
static_assert(std::three_way_comparable<I0String, std::strong_ordering>);
static_assert(std::equality_comparable<I0String>);
static_assert(std::ranges::contiguous_range<IString>);
static_assert(std::ranges::contiguous_range<const IString>);
static_assert(std::ranges::sized_range<IString>);
static_assert(std::ranges::sized_range<const I0String>);
static_assert(!std::ranges::output_range<IString, char>, "no loop unshares a text");
static_assert(std::ranges::forward_range<quelmcl::Characters>);
static_assert(std::ranges::common_range<const quelmcl::Characters>);

TEST(OrderExpressions, AreStrongAndByBytes)
{
  IString s("abc");
  const IString t("abd");
  char buf[] = "abc";
  const char* const p = "abd";
  EXPECT_TYPE(std::strong_ordering, s <=> t);
  EXPECT_TRUE((s <=> t) < 0);
  EXPECT_TRUE((t <=> s) > 0);
  EXPECT_TRUE((s <=> s) == 0);
  EXPECT_TRUE((IString("\x80") <=> IString("\x7f")) > 0);
  EXPECT_TRUE((IString("a\0b", 3) <=> IString("a")) > 0);
  EXPECT_TRUE((s <=> "abd") < 0);
  EXPECT_TRUE(("abd" <=> s) > 0);
  EXPECT_TRUE((s <=> buf) == 0);
  EXPECT_TRUE((buf <=> t) < 0);
  EXPECT_TRUE((s <=> p) < 0);
  EXPECT_TRUE((s <=> std::string("abc")) == 0);
  EXPECT_TRUE((std::string("b") <=> s) > 0);
  EXPECT_TRUE((s <=> std::string_view("b")) < 0);
  EXPECT_TRUE((std::string_view("b") <=> s) > 0);
  EXPECT_TRUE((I0String("a") <=> I0String("b")) < 0);
  EXPECT_TRUE((std::pair<IString, int>("a", 2) <=> std::pair<IString, int>("a", 1)) > 0);
  EXPECT_TRUE((std::pair<IString, int>("a", 2) <=> std::pair<IString, int>("b", 1)) < 0);
}

TEST(RangeExpressions, WorkWithAlgorithmsAndViews)
{
  const IString s("abcabc");
  EXPECT_EQ(2, std::ranges::count(s, 'b'));
  EXPECT_TRUE(std::ranges::find(s, 'c') == s.begin() + 2);
  EXPECT_EQ(6u, std::ranges::size(s));
  EXPECT_EQ(6, std::ranges::distance(s.characters()));
  EXPECT_EQ(3, std::ranges::distance(IWordList("a b c")));
  EXPECT_EQ(3u, std::ranges::size(IWordList("a b c")));
#  if !defined(__clang__) || \
    __clang_major__ >= 16  // older ones cannot compile the views of this library, whatever the range
  std::string large;
  for (const char ch : s | std::views::filter([](char each) { return each > 'a'; }))
    large += ch;
  EXPECT_EQ("bcbc", large);
#  endif
  std::vector<IString> texts{"b", "a"};
  std::ranges::sort(texts);
  EXPECT_EQ("a", bytes(texts.front()));
}
#endif

#ifndef QUELMCL_SYNTAX_ONLY
TEST(AssertionExpressions, MixStringsWithStandardOnes)
{
  const IString s("abc");
  const std::string str("abc");
  EXPECT_EQ(str, s);
  EXPECT_EQ(s, str);
  EXPECT_LT(s, std::string("b"));
  EXPECT_NE(std::string("b"), s);
}
#endif

}  // namespace
