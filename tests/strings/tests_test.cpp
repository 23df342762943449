// tests_test.cpp - IString: questions about the whole text: classes of characters, wildcards, abbreviations.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

using namespace stringtests;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Classes of characters

using Question = int (IString::*)() const;

struct ClassCase {
  const char* name;
  Question question;
  std::string members;
  std::string strangers;
};

class StringClass : public testing::TestWithParam<ClassCase> {
protected:
  bool ask(const std::string& text) const { return (made(text).*GetParam().question)() != 0; }
};

TEST_P(StringClass, HoldsForATextOfMembers)
{
  EXPECT_TRUE(ask(GetParam().members));
}

TEST_P(StringClass, HoldsForEachMemberAlone)
{
  for (const char member : GetParam().members)
    EXPECT_TRUE(ask(std::string(1, member))) << static_cast<int>(member);
}

TEST_P(StringClass, FailsForEachStrangerAloneAndAmongMembers)
{
  for (const char stranger : GetParam().strangers) {
    EXPECT_FALSE(ask(std::string(1, stranger))) << static_cast<int>(stranger);
    EXPECT_FALSE(ask(GetParam().members + stranger)) << static_cast<int>(stranger);
    EXPECT_FALSE(ask(stranger + GetParam().members)) << static_cast<int>(stranger);
  }
}

TEST_P(StringClass, FailsForTheEmptyText)
{
  EXPECT_FALSE(ask(""));
}

TEST_P(StringClass, AnswersOneOrZero)
{
  EXPECT_EQ((made(GetParam().members).*GetParam().question)(), 1);
  EXPECT_EQ((IString().*GetParam().question)(), 0);
}

const ClassCase classCases[] = {
  {"isAlphanumeric", &IString::isAlphanumeric, "abcXYZ019", bytes(" -_\0\n")},
  {"isAlphabetic", &IString::isAlphabetic, "abcXYZ", bytes("019 -\0")},
  {"isASCII", &IString::isASCII, bytes("abc 019\t\0\x7F"), "\x80\xFF"},
  {"isControl", &IString::isControl, bytes("\0\x01\t\n\x1F\x7F"), "a 0"},
  {"isDigits", &IString::isDigits, "0123456789", bytes("aA -.\0")},
  {"isGraphics", &IString::isGraphics, "abcXYZ019!~", bytes(" \t\0\x7F")},
  {"isHexDigits", &IString::isHexDigits, "0123456789abcdefABCDEF", bytes("gG x\0")},
  {"isLowerCase", &IString::isLowerCase, "abcxyz", bytes("AZ0 \0")},
  {"isPrintable", &IString::isPrintable, "abcXYZ 019!~", bytes("\t\n\0\x7F")},
  {"isPunctuation", &IString::isPunctuation, "!\"#$%&'()*+,-./:;<=>?@[]^_`{|}~\\", bytes("a0 \t\0")},
  {"isUpperCase", &IString::isUpperCase, "ABCXYZ", bytes("az0 \0")},
  {"isWhiteSpace", &IString::isWhiteSpace, " \t\n\v\f\r", bytes("a0.\0")},
  {"isBinaryDigits", &IString::isBinaryDigits, "0110", bytes("2a \0")},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringClass, testing::ValuesIn(classCases),
                         [](const testing::TestParamInfo<ClassCase>& row) { return std::string(row.param.name); });

TEST(StringClass, LettersAndADigitAreAlphanumericButNotAlphabetic)
{
  EXPECT_FALSE(IString("abc1").isAlphabetic());
  EXPECT_TRUE(IString("abc1").isAlphanumeric());
}

TEST(StringClass, BinaryDigitsAreZeroAndOneOnly)
{
  EXPECT_FALSE(IString("").isBinaryDigits());
  EXPECT_FALSE(IString("012").isBinaryDigits());
  EXPECT_TRUE(IString("0").isBinaryDigits());
  EXPECT_TRUE(IString("1").isBinaryDigits());
}

TEST(StringClass, OneByteAbove7FIsNotASCII)
{
  EXPECT_FALSE(IString("abc\xE4"
                       "def")
                 .isASCII());
}

TEST(StringCharacterSet, ATextOfSingleBytesHasNoCharactersOfSeveral)
{
  const IString text("abc");
  EXPECT_TRUE(text.isSBCS());
  EXPECT_TRUE(text.includesSBCS());
  EXPECT_FALSE(text.isMBCS());
  EXPECT_FALSE(text.isDBCS());
  EXPECT_FALSE(text.includesMBCS());
  EXPECT_FALSE(text.includesDBCS());
}

/// What a text answers when it is asked for the kinds of its characters.
struct CharacterSetAnswers {
  int isSbcs;
  int includesSbcs;
  int isValidMbcs;
  int isMbcs;
  int includesMbcs;
};

void expectAnswers(const std::string& content, const CharacterSetAnswers& expected)
{
  SCOPED_TRACE(testing::PrintToString(content));
  const IString text = made(content);
  EXPECT_EQ(text.isSBCS(), expected.isSbcs);
  EXPECT_EQ(text.includesSBCS(), expected.includesSbcs);
  EXPECT_EQ(text.isValidMBCS(), expected.isValidMbcs);
  EXPECT_EQ(text.isValidDBCS(), expected.isValidMbcs);
  EXPECT_EQ(text.isMBCS(), expected.isMbcs);
  EXPECT_EQ(text.isDBCS(), expected.isMbcs);
  EXPECT_EQ(text.includesMBCS(), expected.includesMbcs);
  EXPECT_EQ(text.includesDBCS(), expected.includesMbcs);
}

TEST(StringCharacterSet, OfTheSingleByteKindIsToldWithoutLookingOfTheOtherByEveryCharacter)
{
  const bool isMultiByte = MB_CUR_MAX > 1;
  const CharacterSetAnswers withoutLooking = {1, 1, 1, 0, 0};
  expectAnswers("", isMultiByte ? CharacterSetAnswers{1, 0, 1, 1, 0} : withoutLooking);
  expectAnswers("abc", isMultiByte ? CharacterSetAnswers{1, 1, 0, 0, 0} : withoutLooking);
  expectAnswers("\xC3\xA4\xC3\xB6", isMultiByte ? CharacterSetAnswers{0, 0, 1, 1, 1} : withoutLooking);
  expectAnswers(std::string("\xC3\xA4\xFF\0", 4), isMultiByte ? CharacterSetAnswers{0, 1, 0, 0, 1} : withoutLooking);
}

TEST(StringCharacterSet, EveryASCIIByteIsACharacterOfItsOwn)
{
  const IString text("a1 \t", 4);
  for (unsigned pos = 1; pos <= text.length(); ++pos)
    EXPECT_EQ(text.charType(pos), IStringEnum::sbcs);
}

// ---------------------------------------------------------------------------------------------------------------------
// Wildcards

struct PatternCase {
  const char* name;
  std::string text;
  std::string pattern;
  bool expected;
};

class StringPattern : public testing::TestWithParam<PatternCase> {};

TEST_P(StringPattern, MatchesTheWholeTextOrNot)
{
  const PatternCase& row = GetParam();
  EXPECT_EQ(made(row.text).isLike(made(row.pattern)) != 0, row.expected);
}

TEST_P(StringPattern, IsTheSameAsAConstantText)
{
  const PatternCase& row = GetParam();
  EXPECT_EQ(made(row.text).isLike(row.pattern.c_str()) != 0, row.expected);
}

const PatternCase patternCases[] = {
  {"a_star_stands_for_nothing", "ac", "a*c", true},
  {"a_star_stands_for_one_byte", "abc", "a*c", true},
  {"a_star_stands_for_several_bytes", "abxc", "a*c", true},
  {"the_byte_behind_a_star_must_come", "ab", "a*c", false},
  {"one_star_matches_the_empty_text", "", "*", true},
  {"one_star_matches_any_text", "abc", "*", true},
  {"many_stars_match_the_empty_text", "", "***", true},
  {"a_question_mark_stands_for_one_byte", "ab", "?b", true},
  {"a_question_mark_does_not_stand_for_nothing", "b", "?b", false},
  {"a_question_mark_does_not_stand_for_two_bytes", "aab", "?b", false},
  {"one_question_mark_does_not_match_the_empty_text", "", "?", false},
  {"the_empty_pattern_matches_the_empty_text", "", "", true},
  {"the_empty_pattern_matches_nothing_else", "a", "", false},
  {"a_pattern_without_wildcards_matches_its_own_text", "abc", "abc", true},
  {"a_pattern_without_wildcards_matches_no_longer_text", "abcd", "abc", false},
  {"a_pattern_without_wildcards_matches_no_shorter_text", "ab", "abc", false},
  {"upper_and_lower_case_differ", "ABC", "abc", false},
  {"a_star_goes_back_after_a_mismatch", "aabab", "*ab", true},
  {"a_star_goes_back_when_the_pattern_is_used_up_early", "abab", "*ab", true},
  {"only_the_last_star_goes_back", "axbxcxbxc", "a*b*c", true},
  {"stars_and_question_marks_together", "abcd", "*?d", true},
  {"a_star_before_two_question_marks_needs_two_bytes", "a", "*??", false},
  {"question_marks_after_a_star_take_the_last_bytes", "abcde", "a*??", true},
  {"a_trailing_star_matches_any_rest", "abcdef", "abc*", true},
  {"a_leading_star_matches_any_beginning", "abcdef", "*def", true},
  {"the_text_between_stars_must_be_there", "abcdef", "*xyz*", false},
  {"a_text_equal_to_the_pattern_matches_wildcards_and_all", "a?", "a?", true},
  {"a_question_mark_stands_for_a_nul", std::string("a\0b", 3), "a?b", true},
  {"bytes_above_7F_match_themselves",
   "\xE4"
   "b",
   "\xE4?", true},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringPattern, testing::ValuesIn(patternCases),
                         [](const testing::TestParamInfo<PatternCase>& row) { return std::string(row.param.name); });

TEST(StringPattern, MayUseWildcardsOfTheCallersChoice)
{
  EXPECT_TRUE(IString("abc").isLike("a%c", '%'));
  EXPECT_TRUE(IString("abc").isLike("a_c", '%', '_'));
  EXPECT_FALSE(IString("abc").isLike("a?c", '%', '_'));
  EXPECT_FALSE(IString("abc").isLike("a*c", '%', '_'));
  EXPECT_TRUE(IString("abc").isLike(IString("a_%"), '%', '_'));
}

TEST(StringPattern, WithTheSameCharacterForBothReadsItAsTheStar)
{
  EXPECT_TRUE(IString("abbbc").isLike("a*c", '*', '*'));
  EXPECT_TRUE(IString("ac").isLike("a*c", '*', '*'));
}

TEST(StringPattern, ANulIsAByteLikeAnyOther)
{
  EXPECT_TRUE(IString("a\0b", 3).isLike(made(bytes("a\0*"))));
  EXPECT_FALSE(IString("a\0b", 3).isLike("a\0*"));
  EXPECT_TRUE(IString("a\0b", 3).isLike(made(bytes("*\0?"))));
  EXPECT_FALSE(IString("axb", 3).isLike(made(bytes("a\0*"))));
}

TEST(StringPattern, ANulMayBeAWildcard)
{
  EXPECT_TRUE(IString("abbc").isLike(made(bytes("a\0c")), '\0', '?'));
  EXPECT_TRUE(IString("abc").isLike(made(bytes("a\0c")), '*', '\0'));
}

TEST(StringPattern, ANullPointerIsTheEmptyPattern)
{
  const char* const none = nullptr;
  EXPECT_TRUE(IString("").isLike(none));
  EXPECT_FALSE(IString("a").isLike(none));
}

TEST(StringPattern, ASharerOfTheTextIsEqualToIt)
{
  const IString text("?*");
  EXPECT_TRUE(text.isLike(text));
}

TEST(StringPattern, MayBeGivenByPointerAndLength)
{
  const Probe text("abc");
  EXPECT_TRUE(text.isLike("a*cxxx", 3, '*', '?'));
  EXPECT_FALSE(text.isLike("a*cxxx", 4, '*', '?'));
  EXPECT_FALSE(text.isLike("abc", 0u, '*', '?'));
  EXPECT_TRUE(Probe().isLike(nullptr, 0u, '*', '?'));
}

/// The rule, step by step as it is laid down: a pattern index, a text index and one place to resume from.
bool matchesStepByStep(const std::string& text, const std::string& pattern, char zeroOrMore, char anyChar)
{
  if (text == pattern)
    return true;
  if (pattern.empty())
    return text.empty();

  std::size_t patternAt = 0;
  std::size_t textAt = 0;
  bool canResume = false;
  std::size_t resumeAt = 0;
  std::size_t attemptBegan = 0;
  while (patternAt < pattern.size()) {
    const char wanted = pattern[patternAt++];
    if (wanted == zeroOrMore) {
      if (patternAt == pattern.size())
        return true;
      canResume = true;
      resumeAt = patternAt;
      attemptBegan = textAt;
      continue;
    }
    if (textAt == text.size())
      return false;
    const char present = text[textAt++];
    const bool matches = wanted == anyChar || wanted == present;
    const bool usedUpTooEarly = matches && patternAt == pattern.size() && textAt < text.size();
    if (matches && !(usedUpTooEarly && canResume))
      continue;
    if (!canResume)
      return false;
    patternAt = resumeAt;
    textAt = ++attemptBegan;
  }
  return textAt == text.size();
}

TEST(StringPattern, AgreesWithTheStepsOnRandomTexts)
{
  quelmcl_test::RandomTexts random(4711);
  unsigned matches = 0;
  for (int round = 0; round < 60000; ++round) {
    const std::string text = random.text(bytes("ab\0"), 8);
    const std::string pattern = random.text(round % 2 == 0 ? bytes("ab*?\0") : bytes("ab**?"), 7);
    const bool expected = matchesStepByStep(text, pattern, '*', '?');
    ASSERT_EQ(reference::isLike(text, pattern), expected);
    ASSERT_EQ(made(text).isLike(made(pattern)) != 0, expected)
      << testing::PrintToString(text) << " like " << testing::PrintToString(pattern);
    matches += expected ? 1 : 0;
  }
  EXPECT_GT(matches, 3000u);
}

TEST(StringPattern, AgreesWithTheStepsWhenWildcardsStandInTheText)
{
  quelmcl_test::RandomTexts random(4712);
  for (int round = 0; round < 20000; ++round) {
    const std::string text = random.text("a*?", 6);
    const std::string pattern = random.text("a*?", 6);
    const char zeroOrMore = round % 3 == 0 ? 'a' : '*';
    const char anyChar = round % 5 == 0 ? zeroOrMore : '?';
    ASSERT_EQ(made(text).isLike(made(pattern), zeroOrMore, anyChar) != 0,
              matchesStepByStep(text, pattern, zeroOrMore, anyChar))
      << text << " like " << pattern << ' ' << zeroOrMore << anyChar;
  }
}

// Step by step, with every star trying every length, this would take longer than anybody waits for a test.
TEST(StringPattern, WithManyStarsIsDecidedAtAll)
{
  std::string pattern;
  for (int star = 0; star < 300; ++star)
    pattern += "a*";
  const IString text = made(std::string(30000, 'a'));
  EXPECT_FALSE(text.isLike(made(pattern + "b")));
  EXPECT_TRUE(text.isLike(made(pattern + "a")));
  EXPECT_FALSE(text.isLike(made("*" + std::string(300, '?') + "b")));
}

// ---------------------------------------------------------------------------------------------------------------------
// Abbreviations

struct AbbreviationCase {
  const char* name;
  std::string text;
  std::string full;
  unsigned minimum;
  bool expected;
};

class StringAbbreviation : public testing::TestWithParam<AbbreviationCase> {};

TEST_P(StringAbbreviation, IsABeginningOfTheLeastLength)
{
  const AbbreviationCase& row = GetParam();
  EXPECT_EQ(made(row.text).isAbbreviationFor(made(row.full), row.minimum) != 0, row.expected);
  if (row.full.find('\0') != std::string::npos)
    return;  // a constant text ends at its first NUL
  EXPECT_EQ(made(row.text).isAbbreviationFor(row.full.c_str(), row.minimum) != 0, row.expected);
}

const AbbreviationCase abbreviationCases[] = {
  {"long_enough", "pri", "print", 3, true},
  {"too_short", "pr", "print", 3, false},
  {"longer_than_the_full_text", "prints", "print", 3, false},
  {"the_full_text", "print", "print", 3, true},
  {"another_beginning", "pra", "print", 3, false},
  {"case_differs", "PRI", "print", 3, false},
  {"the_empty_text_with_no_minimum", "", "print", 0, true},
  {"the_empty_text_with_a_minimum", "", "print", 1, false},
  {"the_empty_text_of_the_empty_text", "", "", 0, true},
  {"any_text_of_the_empty_text", "p", "", 0, false},
  {"no_minimum_allows_one_byte", "p", "print", 0, true},
  {"a_minimum_above_the_full_text", "print", "print", 6, false},
  {"the_largest_minimum", "print", "print", 4294967295u, false},
  {"nuls_are_bytes", std::string("a\0", 2), std::string("a\0b", 3), 0, true},
  {"another_byte_behind_a_nul", std::string("a\0c", 3), std::string("a\0b", 3), 0, false},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringAbbreviation, testing::ValuesIn(abbreviationCases),
                         [](const testing::TestParamInfo<AbbreviationCase>& row) {
                           return std::string(row.param.name);
                         });

TEST(StringAbbreviation, NeedsNoLeastLengthUnlessToldOtherwise)
{
  EXPECT_TRUE(IString("p").isAbbreviationFor("print"));
  EXPECT_TRUE(IString("").isAbbreviationFor(IString("print")));
  EXPECT_FALSE(IString("x").isAbbreviationFor("print"));
}

TEST(StringAbbreviation, ANullPointerIsTheEmptyText)
{
  const char* const none = nullptr;
  EXPECT_TRUE(IString("").isAbbreviationFor(none));
  EXPECT_FALSE(IString("a").isAbbreviationFor(none));
}

TEST(StringAbbreviation, MayBeAskedByPointerAndLength)
{
  const Probe text("pri");
  EXPECT_TRUE(text.isAbbrevFor("print", 5, 0));
  EXPECT_TRUE(text.isAbbrevFor("print", 3, 3));
  EXPECT_FALSE(text.isAbbrevFor("print", 2, 0));
  EXPECT_FALSE(text.isAbbrevFor("print", 5, 4));
  EXPECT_TRUE(Probe().isAbbrevFor(nullptr, 0, 0));
}

TEST(StringAbbreviation, AgreesWithASlowOneOnRandomTexts)
{
  quelmcl_test::RandomTexts random(4713);
  for (int round = 0; round < 3000; ++round) {
    const std::string full = random.text(bytes("ab\0"), 6);
    const std::string text = round % 2 == 0 ? full.substr(0, random.below(7)) : random.text(bytes("ab\0"), 6);
    const unsigned minimum = random.position(text.size());
    ASSERT_EQ(made(text).isAbbreviationFor(made(full), minimum) != 0, reference::isAbbreviationFor(text, full, minimum))
      << testing::PrintToString(text) << " for " << testing::PrintToString(full) << " of at least " << minimum;
  }
}

TEST(StringAbbreviation, OfItselfIsTrue)
{
  const IString text("abc");
  EXPECT_TRUE(text.isAbbreviationFor(text));
  EXPECT_TRUE(text.isAbbreviationFor(text, 3));
  EXPECT_FALSE(text.isAbbreviationFor(text, 4));
}

}  // namespace
