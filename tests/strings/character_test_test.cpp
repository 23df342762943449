// character_test_test.cpp - IStringTest: predicates over one character, from functions and from derived classes.
#include "string_probe.hpp"
#include "support/expect_text.hpp"

#include <quelmcl/istring.hpp>
#include <quelmcl/istrtest.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <vector>

using namespace stringtests;

namespace {

TEST(StringTest, FromIsdigitPassesDigitsAndNothingElse)
{
  const IStringTest digits(isdigit);
  for (int character = -128; character <= 255; ++character) {
    const bool isDecimalDigit = character >= '0' && character <= '9';
    EXPECT_EQ(digits.test(character) != 0, isDecimalDigit) << character;
  }
}

int doubled(int character)
{
  return character * 2;
}

TEST(StringTest, GivesTheFunctionsOwnAnswer)
{
  EXPECT_EQ(IStringTest(doubled).test(21), 42);
  EXPECT_EQ(IStringTest(doubled).test(-3), -6);
  EXPECT_EQ(IStringTest(doubled).test(0), 0);
}

/// Holds a kind of test that the base class knows nothing of.
class Unanswered : public IStringTest {
public:
  explicit Unanswered(FnType kind) : IStringTest(kind, nullptr) {}
};

TEST(StringTest, OfAKindThatNobodyAnswersPassesNothing)
{
  for (const IStringTest::FnType kind :
       {IStringTest::user, IStringTest::cpp, IStringTest::memFn, IStringTest::cMemFn}) {
    const Unanswered unanswered(kind);
    for (int character = -128; character <= 255; ++character)
      EXPECT_EQ(unanswered.test(character), 0) << kind << ' ' << character;
  }
}

TEST(StringTest, KindsAreNumberedAsWritten)
{
  EXPECT_EQ(IStringTest::user, 0);
  EXPECT_EQ(IStringTest::c, 1);
  EXPECT_EQ(IStringTest::cpp, 2);
  EXPECT_EQ(IStringTest::memFn, 3);
  EXPECT_EQ(IStringTest::cMemFn, 4);
}

/// Opens the fields.
class OpenTest : public IStringTest {
public:
  explicit OpenTest(int (*tested)(int)) : IStringTest(tested) {}
  OpenTest(FnType kind, void* userData) : IStringTest(kind, userData) {}
  FnType kind() const { return type; }
  int (*function() const)(int) { return data.cFn; }
  void* userData() const { return data.user; }
};

TEST(StringTest, KeepsItsKindAndWhatItWasGiven)
{
  int own = 0;
  const OpenTest fromFunction(isalpha);
  const OpenTest fromPointer(IStringTest::memFn, &own);
  EXPECT_EQ(fromFunction.kind(), IStringTest::c);
  EXPECT_EQ(fromFunction.function(), static_cast<int (*)(int)>(isalpha));
  EXPECT_EQ(fromPointer.kind(), IStringTest::memFn);
  EXPECT_EQ(fromPointer.userData(), &own);
}

/// A test with a state: the characters it was asked about.
class Listener : public IStringTest {
public:
  explicit Listener(std::vector<int>& asked) : IStringTest(user, &asked) {}
  int test(int character) const override
  {
    static_cast<std::vector<int>*>(data.user)->push_back(character);
    return 0;
  }
};

TEST(StringTest, IsAskedAboutEachByteInTurnWithItsSign)
{
  std::vector<int> asked;
  EXPECT_EQ(IString("a\0\xFF", 3).indexOf(Listener(asked)), 0u);
  EXPECT_EQ(asked, (std::vector<int>{'a', 0, -1}));
}

TEST(StringTest, ConvertsFromAFunctionWhereAnOperationTakesATest)
{
  EXPECT_EQ(IString("ab1").indexOf(isdigit), 3u);
  EXPECT_EQ(IString("ab1").indexOf(IStringTest(isdigit)), 3u);
  EXPECT_EQ(IString("12a").indexOfAnyBut(isdigit), 3u);
  EXPECT_EQ(IString("a1b").lastIndexOf(isalpha), 3u);
  EXPECT_EQ(IString("1a2").occurrencesOf(isdigit), 2u);
  EXPECT_TEXT(IString("..a..").strip(IStringTest(ispunct)), "a");
}

struct Vowel : IStringTest {
  Vowel() : IStringTest(user, nullptr) {}
  int test(int letter) const override { return letter == 'a' || letter == 'e' || letter == 'i'; }
};

TEST(StringTest, OfADerivedClassServesEveryOperation)
{
  const Vowel vowel;
  const IString text("breathing");
  EXPECT_EQ(text.indexOf(vowel), 3u);
  EXPECT_EQ(text.indexOfAnyOf(vowel, 4), 4u);
  EXPECT_EQ(text.lastIndexOf(vowel), 7u);
  EXPECT_EQ(text.occurrencesOf(vowel), 3u);
  EXPECT_TEXT(IString("aexia").strip(vowel), "x");
}

}  // namespace
