// must_compile_test.cpp - every way of writing a string expression that users rely on, with its result.
// Each one compiles from C++11 to C++23, with both compilers, at both widths and without a warning; the check
// expressions.syntax.* compiles this file for all of them. What must not compile is in must_not_compile.cpp.
#include <quelmcl/quelmcl.hpp>

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

#include "checks.hpp"

namespace {

// The whole text, NUL bytes included, in a form that any assertion can compare and print.
std::string bytes(const IString& text)
{
  return std::string(static_cast<const char*>(text), text.length());
}

enum Colour { red = 1, green = 2 };

// What the expressions are made of; every test has operands of its own.
struct Operands {
  IString s{"abc"};
  IString t{"def"};
  const IString c{"abc"};
  char buf[8] = "abc";
  const char* p = "abc";
  int n = 1;
  std::size_t sz = 1;
  bool k = true;
  bool notK = false;
};

// The error id of the IInvalidRequest that `access` throws, or 0 when it throws none.
template <class Access>
unsigned long invalidRequestOf(Access access)
{
  try {
    access();
  } catch (const IInvalidRequest& failure) {
    return failure.errorId();
  }
  return 0;
}

TEST(IndexingExpressions, TakeEveryIntegralTypeAndCountFromOne)
{
  Operands o;
  IString& s = o.s;
  const IString& c = o.c;
  const short shortPosition = 2;
  const std::size_t sz = 3;

  EXPECT_TYPE(char&, s[1]);
  EXPECT_TYPE(const char&, c[1]);
  EXPECT_TYPE(char&, s[1u]);
  EXPECT_TYPE(char&, s[1L]);
  EXPECT_TYPE(char&, s[1ul]);
  EXPECT_TYPE(char&, s[sz]);
  EXPECT_TYPE(char&, s[shortPosition]);
  EXPECT_TYPE(char&, s[green]);
  EXPECT_TYPE(char&, s[true]);
  EXPECT_TYPE(const char&, c[0u]);
  EXPECT_TYPE(const char&, c[sz]);
  EXPECT_TYPE(const char&, c[shortPosition]);
  EXPECT_TYPE(const char&, c[green]);
  EXPECT_TYPE(const char&, c[true]);

  EXPECT_EQ('a', s[1]);
  EXPECT_EQ('a', s[0]);
  EXPECT_EQ('a', c[0]);
  EXPECT_EQ('a', c[1]);
  EXPECT_EQ('a', s[1u]);
  EXPECT_EQ('a', s[1L]);
  EXPECT_EQ('a', s[1ul]);
  EXPECT_EQ('c', s[sz]);
  EXPECT_EQ('c', c[sz]);
  EXPECT_EQ('b', s[shortPosition]);
  EXPECT_EQ('b', c[shortPosition]);
  EXPECT_EQ('b', s[green]);
  EXPECT_EQ('a', s[true]);
}

TEST(IndexingExpressions, WritingPastTheEndGrowsTheText)
{
  IString s("abc");
  s[5] = 'x';
  EXPECT_EQ("abc x", bytes(s));
  EXPECT_EQ(5u, s.length());
}

TEST(IndexingExpressions, ReadingPastTheEndOrBeforeTheFrontIsRefused)
{
  Operands o;
  EXPECT_EQ(1011u, invalidRequestOf([&] { static_cast<void>(o.c[4]); }));
  EXPECT_EQ(1011u, invalidRequestOf([&] { static_cast<void>(o.c[-1]); }));
  EXPECT_EQ(1011u, invalidRequestOf([&] { static_cast<void>(o.s[-1]); }));
  EXPECT_EQ("abc", bytes(o.s));
}

TEST(IndexingExpressions, GiveAddressesAndCountFromZeroInTheZeroBasedString)
{
  Operands o;
  EXPECT_TYPE(char*, &o.s[1]);
  EXPECT_EQ('b', *(&o.s[1] + 1));
  EXPECT_EQ('a', I0String("abc")[0]);
  EXPECT_EQ('c', I0String("abc")[2]);
}

TEST(ComparisonExpressions, OfTwoStrings)
{
  Operands o;
  const IString &s = o.s, &t = o.t, &c = o.c;
  IString& writable = o.s;

  EXPECT_TRUE(s == c);
  EXPECT_TRUE(c == writable);
  EXPECT_TRUE(writable == c);
  EXPECT_FALSE(s == t);
  EXPECT_TRUE(s != t);
  EXPECT_FALSE(c != writable);
  EXPECT_TRUE(writable < t);
  EXPECT_FALSE(c < writable);
  EXPECT_TRUE(writable <= c);
  EXPECT_FALSE(t <= c);
  EXPECT_TRUE(t > c);
  EXPECT_FALSE(c > writable);
  EXPECT_TRUE(writable >= c);
  EXPECT_FALSE(c >= t);
}

TEST(ComparisonExpressions, CompareUnsignedBytesAndCountEmbeddedNuls)
{
  EXPECT_TRUE(IString("a\x80") > IString("a\x7f"));
  EXPECT_FALSE(IString("a\0b", 3) == IString("a\0c", 3));
  EXPECT_TRUE(IString("a\0b", 3) < IString("a\0c", 3));
  EXPECT_TRUE(IString("a\0", 2) > IString("a"));
  EXPECT_TRUE(IString("a\0", 2) != "a");
}

TEST(ComparisonExpressions, WithALiteralOnEitherSide)
{
  Operands o;
  IString& s = o.s;
  EXPECT_TRUE(s == "abc");
  EXPECT_TRUE("abc" == s);
  EXPECT_FALSE(s == "abd");
  EXPECT_FALSE("abd" == s);
  EXPECT_TRUE(s != "abd");
  EXPECT_TRUE("abd" != s);
  EXPECT_TRUE(s < "abd");
  EXPECT_FALSE("abd" < s);
  EXPECT_TRUE(s <= "abc");
  EXPECT_FALSE("abd" <= s);
  EXPECT_FALSE(s > "abd");
  EXPECT_TRUE("abd" > s);
  EXPECT_TRUE(s >= "abc");
  EXPECT_FALSE(s >= "abd");
  EXPECT_TRUE("abd" >= s);
  EXPECT_TRUE(o.c == "abc");
  EXPECT_TRUE("abc" == o.c);
}

TEST(ComparisonExpressions, WithAWritableTextOnEitherSide)
{
  Operands o;
  IString& s = o.s;
  char* const noText = nullptr;
  EXPECT_TRUE(s == o.buf);
  EXPECT_TRUE(o.buf == s);
  EXPECT_TRUE(o.c == o.buf);
  EXPECT_TRUE(o.buf == o.c);
  EXPECT_FALSE(s != o.buf);
  EXPECT_FALSE(o.buf != s);
  EXPECT_FALSE(s < o.buf);
  EXPECT_FALSE(o.buf < s);
  EXPECT_TRUE(s <= o.buf);
  EXPECT_TRUE(o.buf <= s);
  EXPECT_FALSE(s > o.buf);
  EXPECT_FALSE(o.buf > s);
  EXPECT_TRUE(s >= o.buf);
  EXPECT_TRUE(o.buf >= s);
  EXPECT_TRUE(s == o.p);
  EXPECT_TRUE(o.p == s);
  EXPECT_FALSE(s == getenv("QUELMCL_TESTS_NEVER_SET"));
  EXPECT_TRUE(IString() == getenv("QUELMCL_TESTS_NEVER_SET"));
  EXPECT_TRUE(s != strchr(o.buf, 'b'));
  EXPECT_TRUE(s == strchr(o.buf, 'a'));
  EXPECT_FALSE(s == &o.t[1]);
  EXPECT_TRUE(s == &o.s[1]);
  EXPECT_TRUE(s > noText);
}

TEST(ComparisonExpressions, WithANumberOrACharacterCompareWithItsText)
{
  Operands o;
  EXPECT_TRUE(IString("a") == 'a');
  EXPECT_FALSE(o.s == 'a');
  EXPECT_TRUE(IString("5") == 5);
  EXPECT_FALSE(o.s == 5);
  EXPECT_TRUE(IString("1") == o.n);
  EXPECT_FALSE(o.s == o.n);
  EXPECT_TRUE(IString("0") != o.n);
}

TEST(ComparisonExpressions, WithTheLiteralZeroOrANullPointerAskForTheEmptyText)
{
  Operands o;
  IString empty;
  EXPECT_FALSE(o.s == 0);
  EXPECT_FALSE(o.s == nullptr);
  EXPECT_TRUE(o.s != 0);
  EXPECT_TRUE(empty == 0);
  EXPECT_TRUE(empty == nullptr);
  EXPECT_FALSE(empty != 0);
  EXPECT_FALSE(IString("0") == 0);
}

TEST(ConstructionExpressions, ConvertCharactersAndNumbers)
{
  const std::size_t sz = 77;
  const IString copied = "a";
  const IString fromInt = 5;
  const IString fromColour = green;
  EXPECT_EQ("a", bytes(copied));
  EXPECT_EQ("a", bytes(IString('a')));
  EXPECT_EQ("5", bytes(fromInt));
  EXPECT_EQ("5", bytes(IString(5u)));
  EXPECT_EQ("5", bytes(IString(5L)));
  EXPECT_EQ("5", bytes(IString(5ul)));
  EXPECT_EQ("1.5", bytes(IString(1.5f)));
  EXPECT_EQ("1.5", bytes(IString(1.5)));
  EXPECT_EQ("1", bytes(IString(true)));
  EXPECT_EQ("77", bytes(IString(sz)));
  EXPECT_EQ("2", bytes(IString(green)));
  EXPECT_EQ("2", bytes(fromColour));
}

TEST(ConstructionExpressions, TakeTheLiteralZeroForTheNumber)
{
  IString x(0);
  IString copied = 0;
  IString assigned("abc");
  assigned = 0;
  EXPECT_EQ("0", bytes(x));
  EXPECT_EQ("0", bytes(copied));
  EXPECT_EQ("0", bytes(assigned));
}

#if defined(__GNUC__) && !defined(__clang__)
#  pragma GCC diagnostic push
#  pragma GCC diagnostic ignored "-Wconversion-null"  // the warning is right, and must_not_compile.cpp asks for it
#elif defined(__clang__)
#  pragma clang diagnostic push
#  pragma clang diagnostic ignored "-Wnull-conversion"
#endif
TEST(ConstructionExpressions, TakeTheNullMacroForANumber)
{
  IString x(NULL);
  EXPECT_EQ("0", bytes(x));
}
#if defined(__GNUC__) && !defined(__clang__)
#  pragma GCC diagnostic pop
#elif defined(__clang__)
#  pragma clang diagnostic pop
#endif

TEST(ConstructionExpressions, TakeNullPointersForTheEmptyText)
{
  IString x(nullptr);
  IString s("abc");
  s = nullptr;
  EXPECT_EQ("", bytes(x));
  EXPECT_EQ("", bytes(s));
  EXPECT_EQ("", bytes(IString(static_cast<const char*>(nullptr))));
  EXPECT_EQ("", bytes(IString((const char*)0)));
}

TEST(ConstructionExpressions, GiveTheSameDigitsForWideNumbersAtBothWidths)
{
  const std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
  const std::uint64_t highest = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ("5", bytes(IString(5LL)));
  EXPECT_EQ("-5", bytes(IString(-5LL)));
  EXPECT_EQ("-9223372036854775808", bytes(IString(lowest)));
  EXPECT_EQ("18446744073709551615", bytes(IString(highest)));
}

TEST(ConstructionExpressions, TakePiecesWithTheirLengths)
{
  const std::size_t sz = 2;
  EXPECT_EQ("ab", bytes(IString("abc", 2)));
  EXPECT_EQ("ab", bytes(IString("abc", sz)));
  EXPECT_EQ("***", bytes(IString(0, 3, '*')));
  EXPECT_EQ("abcd", bytes(IString("ab", 2, "cd", 2)));
  EXPECT_EQ("abcd", bytes(IString("ab", sz, "cd", sz)));
  EXPECT_EQ("abcdef", bytes(IString("ab", 2, "cd", 2, "ef", 2)));
  EXPECT_EQ("abcdef", bytes(IString("ab", sz, "cd", sz, "ef", sz)));
}

#if SIZE_MAX > 0xFFFFFFFFu
TEST(ConstructionExpressions, RefuseALengthThatNoStringCanHold)
{
  const std::size_t tooLong = 0x100000001u;
  EXPECT_EQ(1010u, invalidRequestOf([&] { IString x("a", tooLong); }));
  EXPECT_EQ(1010u, invalidRequestOf([&] { IString x("a", 1, "b", tooLong); }));
  EXPECT_EQ(1010u, invalidRequestOf([&] { IString x("a", 1, "b", 1, "c", tooLong); }));
}

TEST(ConstructionExpressions, RefuseALengthThatNoZeroBasedStringCanHold)
{
  const std::size_t tooLong = 0x100000001u;
  EXPECT_EQ(1010u, invalidRequestOf([&] { I0String x("a", tooLong); }));
  EXPECT_EQ(1010u, invalidRequestOf([&] { I0String x("a", 1, "b", tooLong); }));
  EXPECT_EQ(1010u, invalidRequestOf([&] { I0String x("a", 1, "b", 1, "c", tooLong); }));
}
#endif

TEST(ConstructionExpressions, TakeBraces)
{
  IString none{};
  IString alsoNone = {};
  IString s("abc");
  s = {};
  IString x{"abc"};
  EXPECT_EQ("", bytes(none));
  EXPECT_EQ("", bytes(alsoNone));
  EXPECT_EQ("", bytes(s));
  EXPECT_EQ("abc", bytes(x));
}

TEST(AssignmentExpressions, TakeWhatAStringIsMadeFrom)
{
  Operands o;
  IString s;
  EXPECT_TYPE(IString&, s = "a");
  s = "a";
  EXPECT_EQ("a", bytes(s));
  s = 'b';
  EXPECT_EQ("b", bytes(s));
  s = 5;
  EXPECT_EQ("5", bytes(s));
  s = 1.5;
  EXPECT_EQ("1.5", bytes(s));
  s = o.c;
  EXPECT_EQ("abc", bytes(s));
  s = o.buf;
  EXPECT_EQ("abc", bytes(s));
  s = o.t;
  EXPECT_EQ("def", bytes(s));
}

#if defined(__clang__)
#  pragma clang diagnostic push
#  pragma clang diagnostic ignored "-Wself-assign-overloaded"
#endif
TEST(AssignmentExpressions, TakeTheStringItself)
{
  IString s("abc");
  s = s;
  EXPECT_EQ("abc", bytes(s));
}
#if defined(__clang__)
#  pragma clang diagnostic pop
#endif

TEST(JoiningExpressions, GiveANewString)
{
  Operands o;
  IString &s = o.s, &t = o.t;
  EXPECT_TYPE(IString, s + t);
  EXPECT_TYPE(IString, s + "x");
  EXPECT_TYPE(IString, "x" + s);
  EXPECT_TYPE(IString, s + o.buf);
  EXPECT_TYPE(IString, o.buf + s);
  EXPECT_TYPE(IString, s + 'x');
  EXPECT_TYPE(IString, s + s[1]);

  EXPECT_EQ("abcdef", bytes(s + t));
  EXPECT_EQ("abcx", bytes(s + "x"));
  EXPECT_EQ("xabc", bytes("x" + s));
  EXPECT_EQ("abcabc", bytes(s + o.buf));
  EXPECT_EQ("abcabc", bytes(o.buf + s));
  EXPECT_EQ("abcabc", bytes(o.c + o.buf));
  EXPECT_EQ("abcabc", bytes(s + o.p));
  EXPECT_EQ("abcabc", bytes(o.p + s));
  EXPECT_EQ("abcdefxy", bytes(s + t + "x" + "y"));
  EXPECT_EQ("abc", bytes(s));
}

TEST(JoiningExpressions, JoinExactlyOneCharacter)
{
  Operands o;
  IString& s = o.s;
  EXPECT_EQ("abcx", bytes(s + 'x'));
  EXPECT_EQ("xabc", bytes('x' + s));
  EXPECT_EQ("aabcx", bytes("a" + s + 'x'));
  EXPECT_EQ("abca", bytes(s + s[1]));
  EXPECT_EQ("abca", bytes(o.c + o.c[1]));
  EXPECT_EQ("aabc", bytes(o.c[1] + o.c));
}

TEST(JoiningExpressions, AppendEverythingThatBecomesAText)
{
  Operands o;
  EXPECT_TYPE(IString&, o.s += o.t);
  EXPECT_EQ("abcdef", bytes(IString("abc") += o.t));
  EXPECT_EQ("abcx", bytes(IString("abc") += "x"));
  EXPECT_EQ("abcabc", bytes(IString("abc") += o.buf));
  EXPECT_EQ("abcx", bytes(IString("abc") += 'x'));
  EXPECT_EQ("abc5", bytes(IString("abc") += 5));
  EXPECT_EQ("abcabc", bytes(IString("abc") += o.c));
}

TEST(JoiningExpressions, AppendNothingForANullText)
{
  IString s("abc");
  s += 0;
  EXPECT_EQ("abc", bytes(s));
  s += (const char*)0;
  EXPECT_EQ("abc", bytes(s));
}

TEST(BitExpressions, GiveStrings)
{
  Operands o;
  IString &s = o.s, &t = o.t;
  EXPECT_TYPE(IString, s & t);
  EXPECT_TYPE(IString, s | "x");
  EXPECT_TYPE(IString, "x" ^ s);
  EXPECT_TYPE(IString, s & o.buf);
  EXPECT_TYPE(IString, s ^ 'x');
  EXPECT_TYPE(IString, ~s);
  EXPECT_TYPE(IString&, s &= t);

  EXPECT_EQ("```", bytes(IString("abc") & IString("`")));
  EXPECT_EQ("abc", bytes(s & o.buf));
  EXPECT_EQ("abc", bytes(IString("ABC") | " "));
  EXPECT_EQ("ABC", bytes(s ^ ' '));
  EXPECT_EQ("A", bytes(" " ^ s));
  EXPECT_EQ("abc", bytes(~~s));
  EXPECT_EQ("\x9e\x9d\x9c", bytes(~s));
  EXPECT_EQ("abc", bytes(o.buf & s));
  EXPECT_EQ("abc", bytes(o.buf | s));
  s &= IString("\x5f");
  EXPECT_EQ("ABC", bytes(s));
  s |= " ";
  EXPECT_EQ("abc", bytes(s));
  s ^= ' ';
  EXPECT_EQ("ABC", bytes(s));
}

TEST(PointerExpressions, ConvertBothKindsOfStrings)
{
  Operands o;
  char* q = o.s;
  const char* constant = o.s;
  const char* ofConstant = o.c;
  unsigned char* asBytes = o.s;
  const signed char* asSmallNumbers = o.c;
  EXPECT_STREQ("abc", q);
  EXPECT_STREQ("abc", constant);
  EXPECT_STREQ("abc", ofConstant);
  EXPECT_EQ('a', asBytes[0]);
  EXPECT_EQ('b', asSmallNumbers[1]);
  EXPECT_TRUE(q == constant);
}

TEST(PointerExpressions, ServeWhereACTextIsExpected)
{
  Operands o;
  IString& s = o.s;
  const IString& c = o.c;
  char copied[8];
  EXPECT_EQ(3u, strlen(s));
  EXPECT_EQ(3u, strlen(c));
  EXPECT_EQ(0, strcmp(c, s));
  EXPECT_STREQ("abc", strcpy(copied, c));
  EXPECT_EQ(0, atoi(s));
  EXPECT_EQ(12, atoi(IString("12")));
  EXPECT_TRUE(getenv(IString("QUELMCL_TESTS_NEVER_SET")) == nullptr);
  EXPECT_TRUE(fopen(IString("/nowhere/at/all"), "r") == nullptr);
  EXPECT_TRUE(puts(s) >= 0);
  EXPECT_TRUE(puts(s.subString(1, 1)) >= 0);
}

TEST(PointerExpressions, ConvertByCasts)
{
  Operands o;
  IString& s = o.s;
  const IString& c = o.c;
  char copied[4];
  EXPECT_STREQ("abc", (char*)s);
  EXPECT_STREQ("abc", (char*)c);
  EXPECT_STREQ("abc", (const char*)c);
  EXPECT_STREQ("abc", static_cast<const char*>(s));
  EXPECT_EQ(4, printf("%s\n", (char*)s));
  memcpy(copied, (const char*)s, 4);
  EXPECT_STREQ("abc", copied);
}

TEST(ConditionalExpressions, WithAStringOnOneSideGiveAString)
{
  Operands o;
  IString &s = o.s, &t = o.t;
  const IString& c = o.c;
  EXPECT_TYPE(IString&, o.k ? s : t);
  EXPECT_TYPE(IString, o.k ? s : "x");
  EXPECT_TYPE(IString, o.k ? "x" : s);
  EXPECT_TYPE(IString, o.k ? s + "a" : "x");
  EXPECT_TYPE(IString, o.k ? s : s.subString(1, 1));
  EXPECT_TYPE(IString, o.k ? s : IString("x"));

  EXPECT_EQ("abc", bytes(o.k ? s : t));
  EXPECT_EQ("def", bytes(o.notK ? s : t));
  EXPECT_EQ("abc", bytes(o.notK ? t : c));
  EXPECT_EQ("abc", bytes(o.k ? s : "x"));
  EXPECT_EQ("x", bytes(o.notK ? s : "x"));
  EXPECT_EQ("x", bytes(o.k ? "x" : s));
  EXPECT_EQ("abc", bytes(o.notK ? "x" : s));
  EXPECT_EQ("abca", bytes(o.k ? s + "a" : "x"));
  EXPECT_EQ("x", bytes(o.notK ? s + "a" : "x"));
  EXPECT_EQ("a", bytes(o.notK ? s : s.subString(1, 1)));
  EXPECT_EQ("x", bytes(o.notK ? s : IString("x")));
}

TEST(ConditionalExpressions, WithACastGiveAPointer)
{
  Operands o;
  EXPECT_TYPE(const char*, o.k ? (const char*)o.s : "x");
  EXPECT_STREQ("abc", o.k ? (const char*)o.s : "x");
  EXPECT_STREQ("x", o.notK ? (const char*)o.s : "x");
}

TEST(StreamExpressions, WriteTextsAndReadWords)
{
  Operands o;
  IString &s = o.s, &t = o.t;
  std::ostringstream out;
  out << s << ' ' << o.c << ' ' << s + "x" << ' ' << s.word(1) << ' ' << s[1] << ' ' << (s == t) << (s == o.c) << ' '
      << (o.k ? s : t) << ' ' << I0String("a");
  EXPECT_EQ("abc abc abcx abc a 01 abc a", out.str());
  EXPECT_TYPE(std::ostream&, std::cout << s);

  std::istringstream in("word next");
  EXPECT_TYPE(std::istream&, std::cin >> s);
  in >> s;
  EXPECT_EQ("word", bytes(s));
}

TEST(SearchExpressions, TakeCharactersTextsAndTests)
{
  Operands o;
  IString s("abc1");
  IString t("c1");
  char buf[8] = "bc";
  EXPECT_TYPE(unsigned, s.indexOf('a'));
  EXPECT_EQ(1u, s.indexOf('a'));
  EXPECT_EQ(0u, s.indexOf('z'));
  EXPECT_EQ(1u, s.indexOf("a"));
  EXPECT_EQ(3u, s.indexOf(t));
  EXPECT_EQ(2u, s.indexOf(buf));
  EXPECT_EQ(4u, s.indexOf(IStringTest(isdigit)));
  EXPECT_EQ(4u, s.indexOf(isdigit));
  EXPECT_EQ(0u, o.c.indexOf(isdigit));
}

TEST(EditingExpressions, ChangeTheStringAsMembersAndACopyAsStatics)
{
  Operands o;
  IString s("aaa");
  IString a("a");
  EXPECT_TYPE(IString&, s.change("a", "b"));
  EXPECT_TYPE(IString, IString::change(s, "a", "b"));

  EXPECT_EQ("aba", bytes(s.change(a, "b", 2, 1)));
  EXPECT_EQ("bbb", bytes(s.change("a", "b", 0)));
  EXPECT_EQ("ccc", bytes(s.change("b", "c")));
  EXPECT_EQ("ccc", bytes(s));
  EXPECT_EQ("ccc", bytes(s.change(o.buf, o.p)));
  EXPECT_EQ("abcbc", bytes(IString("aabcbc").change("aabc", o.p)));
  EXPECT_EQ("aaa", bytes(s.change("c", a)));
  EXPECT_EQ("bbb", bytes(s.change(a, IString("b"))));

  EXPECT_EQ("ddd", bytes(IString::change(s, "b", "d")));
  EXPECT_EQ("bbb", bytes(s));
  EXPECT_EQ("bbc", bytes(IString::change("abc", "a", "b")));
  EXPECT_EQ("bbd", bytes(IString::change(s, "b", "d", 3)));
  EXPECT_EQ("bdb", bytes(IString::change(s, "b", "d", 2, 1)));
}

// A start of 0 is also a null pointer; the choice must still fall on the member, whatever mixes with it.
TEST(EditingExpressions, AreNotConfusedByAZero)
{
  IString s("abc"), b("b");
  EXPECT_EQ("axc", bytes(s.change(b, "x", 0)));
  EXPECT_EQ("abc", bytes(s.change("x", b, 0)));
  EXPECT_EQ("axc", bytes(s.change(b, IString("x"), 0)));
  EXPECT_EQ("xaxc", bytes(s.insert("x", 0)));
  EXPECT_EQ("baxc", bytes(s.overlayWith(b, 0)));
  EXPECT_EQ("", bytes(s.remove(0, 4)));
  EXPECT_EQ("", bytes(IString::remove("abc", 0)));
  EXPECT_EQ("babc", bytes(IString::insert("abc", b, 0)));
}

TEST(EditingExpressions, RemoveInsertAndCentre)
{
  IString s("abc");
  EXPECT_EQ("", bytes(IString("abc").remove(1)));
  EXPECT_EQ("", bytes(IString("abc").remove(0)));
  EXPECT_EQ("a", bytes(IString("abc").remove(2)));
  EXPECT_EQ("", bytes(IString::remove(s, 1)));
  EXPECT_EQ("abc", bytes(s));
  EXPECT_EQ("abcx", bytes(IString("abc").insert("x", 3)));
  EXPECT_EQ("ab*x", bytes(IString("ab").insert("x", 3, '*')));
  EXPECT_EQ("abcx", bytes(IString::insert(s, "x", 3)));
  EXPECT_EQ("***abc****", bytes(IString("abc").center(10, '*')));
  EXPECT_EQ("***abc****", bytes(IString::center(s, 10, '*')));
  EXPECT_EQ("abc", bytes(s));
}

TEST(EditingExpressions, ChainAndTakeLiteralsInTheStaticForms)
{
  IString s("abc");
  IString padded("  abc ");
  EXPECT_EQ("ABC", bytes(IString::upperCase("abc")));
  EXPECT_EQ("A", bytes(s.upperCase().remove(2)));
  EXPECT_EQ("A", bytes(s));
  EXPECT_EQ("abc", bytes(IString::strip(padded)));
  EXPECT_EQ("  abc ", bytes(padded));
  EXPECT_EQ("abc", bytes(padded.strip()));
  EXPECT_EQ("b", bytes(IString::strip("abc", "ac")));
  EXPECT_EQ("b", bytes(IString("abc").strip("ac")));
  EXPECT_EQ("bc", bytes(IString("abc").strip('a')));
  EXPECT_EQ("bc", bytes(IString("abc").strip("ac", IStringEnum::leading)));
  EXPECT_EQ("bc", bytes(IString("abc").strip(IString("ac"), IStringEnum::leading)));
  EXPECT_EQ("abc", bytes(IString("1abc2").strip(isdigit)));
  EXPECT_EQ("abc2", bytes(IString("1abc2").stripLeading(IStringTest(isdigit))));
  EXPECT_EQ("1abc", bytes(IString::stripTrailing("1abc2", isdigit)));
}

TEST(Expressions, NumberFormsTakeTextsAndNumbers)
{
  EXPECT_EQ("FF", bytes(IString::d2x("255")));
  EXPECT_EQ("FF", bytes(IString::d2x(255)));
  EXPECT_EQ("255", bytes(IString::x2d("ff")));
  EXPECT_EQ("1010", bytes(IString(IString::d2b(10u)).stripLeading('0')));
  IString number("255");
  EXPECT_EQ("11111111", bytes(number.d2x().x2b()));
  const IString constant("10");
  EXPECT_EQ("0A", bytes(IString::d2x(constant)));
}

bool takesString(const IString& text)
{
  return text == "x";
}
int choosesPointer(const char*)
{
  return 1;
}
int choosesPointer(const IString&)
{
  return 2;
}
int choosesTruth(bool)
{
  return 1;
}
int choosesTruth(const IString&)
{
  return 2;
}
std::string passOn(const IString& text)
{
  return bytes(text);
}

TEST(ParsingExpressions, TakeVariablesPatternsAndPositions)
{
  Operands o;
  IString a, b;
  const IString text("abc,def");
  char buf[8] = ",";
  text >> o.t;
  EXPECT_EQ("abc,def", bytes(o.t));
  text >> a >> ",";
  EXPECT_EQ("abc", bytes(a));
  text >> a >> ',';
  EXPECT_EQ("abc", bytes(a));
  text >> a >> buf >> b;
  EXPECT_EQ("def", bytes(b));
  text >> a >> IString(",") >> b;
  EXPECT_EQ("def", bytes(b));
  const IString comma(",");
  text >> a >> comma >> b;
  EXPECT_EQ("def", bytes(b));
  text >> a >> o.t[4] >> b;
  EXPECT_EQ("def", bytes(b));
  text >> a >> ispunct >> b;
  EXPECT_EQ(",def", bytes(b));
  text >> 4 >> b;
  EXPECT_EQ("def", bytes(b));
  text >> 4 >> -2 >> b;
  EXPECT_EQ("c,def", bytes(b));
  text >> 2ul >> b;
  EXPECT_EQ("c,def", bytes(b));
  text >> comma.length() >> b;
  EXPECT_EQ("bc,def", bytes(b));
  text >> 2L >> b;
  EXPECT_EQ("c,def", bytes(b));
  text << 3 >> b;
  EXPECT_EQ("c,def", bytes(b));
  IString("one two three") >> IStringParser::skipWord >> b;
  EXPECT_EQ("two three", bytes(b));
  IString("one two three") >> IStringParser::SkipWords(2) >> b;
  EXPECT_EQ("three", bytes(b));
}

TEST(ParsingExpressions, BeginWithConstantsLiteralsAndTemporaries)
{
  Operands o;
  o.c >> o.t;
  EXPECT_EQ("abc", bytes(o.t));
  "a b" >> o.t;
  EXPECT_EQ("a b", bytes(o.t));
  IString("a b") >> o.s >> o.t;
  EXPECT_EQ("a", bytes(o.s));
  EXPECT_EQ("b", bytes(o.t));
}

TEST(ArgumentExpressions, ConvertToStringParameters)
{
  EXPECT_TRUE(takesString("x"));
  EXPECT_TRUE(takesString('x'));
  EXPECT_EQ("5", passOn(5));
  EXPECT_EQ("5", passOn(5.0));
}

TEST(ArgumentExpressions, PreferTheExactOverload)
{
  Operands o;
  EXPECT_EQ(2, choosesPointer(o.s));
  EXPECT_EQ(2, choosesPointer(o.c));
  EXPECT_EQ(1, choosesPointer("x"));
  EXPECT_EQ(1, choosesTruth(o.k));
  EXPECT_EQ(2, choosesTruth(o.s));
}

TEST(StandardStringExpressions, GoThroughTheTextPointer)
{
  Operands o;
  IString& s = o.s;
  std::string x(s);
  std::string braced{s};
  std::string ofConstant(o.c);
  std::string withLength(s, s.length());
  std::string str("xx");
  EXPECT_EQ("abc", x);
  EXPECT_EQ("abc", braced);
  EXPECT_EQ("abc", ofConstant);
  EXPECT_EQ("abc", withLength);
  str = s;
  EXPECT_EQ("abc", str);
  str += s;
  EXPECT_EQ("abcabc", str);
  str.append(s);
  EXPECT_EQ("abcabcabc", str);
  EXPECT_EQ(0u, str.find(s));
  EXPECT_EQ(3u, str.find(s, 1));
  EXPECT_EQ("abc", static_cast<std::string>(s));
  EXPECT_EQ("abc", static_cast<std::string>(o.c));
  std::ifstream in(s + "/nowhere");
  EXPECT_FALSE(in.is_open());
}

TEST(StandardStringExpressions, EndAtTheFirstNulExceptWithALength)
{
  const IString s("a\0b", 3);
  EXPECT_EQ(1u, std::string(s).size());
  EXPECT_EQ(3u, std::string(s, s.length()).size());
}

TEST(MoveExpressions, LeaveAnEmptyUsableString)
{
  static_assert(std::is_nothrow_move_constructible<IString>::value, "vector growth relies on it");
  static_assert(std::is_nothrow_move_assignable<IString>::value, "swap relies on it");
  IString s("abc");
  IString m(std::move(s));
  EXPECT_EQ("abc", bytes(m));
  EXPECT_EQ("", bytes(s));
  s += "new";
  EXPECT_EQ("new", bytes(s));
  m = std::move(s);
  EXPECT_EQ("new", bytes(m));
  EXPECT_EQ(0u, s.length());
  s[1] = 'x';
  EXPECT_EQ("x", bytes(s));
}

TEST(AliasingExpressions, ReadTheOldTextToTheEnd)
{
  IString s("abc");
  s += s;
  EXPECT_EQ("abcabc", bytes(s));
  s = "abc";
  EXPECT_EQ("aabcbc", bytes(s.insert(s, 1)));
  s = "abc";
  EXPECT_EQ("def", bytes(s.change(s, "def")));
  s = "abc";
  EXPECT_EQ("xabcx", bytes(s.change("abc", IString("x") + s + "x")));
  s = "abc";
  EXPECT_EQ("aabcc", bytes(s.change("b", (char*)s)));
  s = "abc";
  s += (char*)s;
  EXPECT_EQ("abcabc", bytes(s));
  s = "abc";
  s = (const char*)s + 1;
  EXPECT_EQ("bc", bytes(s));
  s = "abc";
  EXPECT_EQ("aabc", bytes(s.overlayWith(s, 2)));
}

TEST(WordListExpressions, GoOverWordsAndTakeTheirNumbers)
{
  Operands o;
  const IWordList words(o.s);
  EXPECT_TYPE(IWordList::Word, words[1]);
  EXPECT_EQ("abc", bytes(words[o.sz].text()));
  EXPECT_TYPE(IString, words[1].text());
  unsigned length = 0;
  for (const IWordList::Word word : IWordList("a bc"))
    length += word.length();
  EXPECT_EQ(3u, length);
}

TEST(BuilderExpressions, AppendWhateverAStringCanBeMadeFrom)
{
  Operands o;
  IStringBuilder built("<");
  EXPECT_TYPE(IStringBuilder&, built.append("x"));
  EXPECT_TYPE(IStringBuilder&, built += "x");
  EXPECT_TYPE(IString, built.handOver());
  built.append(o.s).append(o.c).append(o.buf).append(o.p).append('x').append(o.n).append(o.sz).append(1.5);
  built.append("abc", 2).append("abc", o.sz).append(o.p, o.sz, "x", 1).append(nullptr).append(std::string("!"));
  EXPECT_EQ(bytes(built.handOver()), "<abcabcabcabcx111.5abaax!");

  built += o.s;
  built += o.buf;
  built += 5;
  built += 0;
  built += 'x';
  built += 1.5f;
  built += I0String("z");
  built += std::string("s");
  built += red;
  built += true;
  EXPECT_EQ(bytes(built.asString()), "abcabc50x1.5zs11");
  EXPECT_EQ(std::string(built.begin(), built.end()), "abcabc50x1.5zs11");
  std::ostringstream out;
  out << built;
  EXPECT_EQ(out.str(), "abcabc50x1.5zs11");
}

TEST(ConvertibilityClaims, KeepStringsFromTurningIntoSomethingElse)
{
  static_assert(!std::is_convertible<IString, bool>::value, "a condition would test a pointer that is never null");
  static_assert(!std::is_convertible<IString, int>::value, "no number");
  static_assert(!std::is_convertible<IString, void*>::value, "three pointer conversions");
  static_assert(!std::is_convertible<IString, std::string>::value, "std::string is made explicitly");
  static_assert(std::is_convertible<const IString&, char*>::value, "constant strings convert, too");
  static_assert(std::is_convertible<const IString&, const char*>::value, "constant strings convert, too");
  EXPECT_TRUE((std::is_constructible<std::string, const IString&>::value));
}

#ifndef QUELMCL_SYNTAX_ONLY
TEST(AssertionExpressions, WorkInGoogleTest)
{
  Operands o;
  EXPECT_EQ(o.s, "abc");
  EXPECT_EQ("abc", o.s);
  EXPECT_STREQ(o.c, "abc");
  EXPECT_LT(o.s, "b");
  EXPECT_EQ(o.s, o.c);
}
#endif

}  // namespace
