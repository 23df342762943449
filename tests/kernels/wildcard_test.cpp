// wildcard_test.cpp - kernels: matching a text against a pattern with wildcards.
#include "kernels/wildcard.hpp"

#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using quelmcl::detail::matchesWildcards;
using quelmcl_test::RandomTexts;

namespace {

bool matches(const std::string& text, const std::string& pattern, char zeroOrMore = '*', char anyChar = '?')
{
  return matchesWildcards(text.data(), text.size(), pattern.data(), pattern.size(), zeroOrMore, anyChar);
}

/// What the wildcards mean, for all beginnings of the text and the pattern at once.
bool matchesByDefinition(const std::string& text, const std::string& pattern, char zeroOrMore, char anyChar)
{
  std::vector<char> row(text.size() + 1, false);  // whether the pattern so far matches the first i bytes
  row[0] = true;
  for (const char wanted : pattern) {
    std::vector<char> next(text.size() + 1, false);
    for (std::size_t i = 0; i <= text.size(); ++i) {
      if (wanted == zeroOrMore)
        next[i] = row[i] || (i > 0 && next[i - 1]);
      else
        next[i] = i > 0 && row[i - 1] && (wanted == anyChar || wanted == text[i - 1]);
    }
    row = next;
  }
  return row[text.size()];
}

struct MatchCase {
  const char* name;
  std::string text;
  std::string pattern;
  bool expected;
};

class Wildcards : public testing::TestWithParam<MatchCase> {};

TEST_P(Wildcards, MatchTheWholeText)
{
  EXPECT_EQ(matches(GetParam().text, GetParam().pattern), GetParam().expected);
}

const MatchCase matchCases[] = {
  {"equal_texts", "abc", "abc", true},
  {"another_byte", "abc", "abd", false},
  {"pattern_too_short", "abc", "ab", false},
  {"pattern_too_long", "ab", "abc", false},
  {"nothing_matches_nothing", "", "", true},
  {"an_empty_pattern_matches_nothing_else", "a", "", false},
  {"a_star_matches_nothing", "", "*", true},
  {"a_star_matches_everything", "abc", "*", true},
  {"a_star_in_the_middle_stands_for_nothing", "ac", "a*c", true},
  {"a_star_in_the_middle_stands_for_one", "abc", "a*c", true},
  {"a_star_in_the_middle_stands_for_several", "abxc", "a*c", true},
  {"a_star_does_not_stand_for_what_follows", "ab", "a*c", false},
  {"a_star_takes_more_when_the_rest_ends_too_early", "abcbc", "a*bc", true},
  {"a_star_takes_as_much_as_the_last_occurrence_needs", "aXbXbY", "a*bY", true},
  {"two_stars", "abcde", "*b*d*", true},
  {"two_stars_in_the_wrong_order", "abcde", "*d*b*", false},
  {"stars_side_by_side", "ab", "a**b", true},
  {"a_question_mark_is_one_byte", "ab", "?b", true},
  {"a_question_mark_is_not_nothing", "b", "?b", false},
  {"only_question_marks", "abc", "???", true},
  {"too_many_question_marks", "abc", "????", false},
  {"a_star_and_question_marks", "abc", "*???", true},
  {"a_star_and_too_many_question_marks", "ab", "*???", false},
  {"wildcards_in_the_text_are_bytes", "a*c", "abc", false},
};

INSTANTIATE_TEST_SUITE_P(Rows, Wildcards, testing::ValuesIn(matchCases),
                         [](const testing::TestParamInfo<MatchCase>& row) { return std::string(row.param.name); });

TEST(WildcardCharacters, CanBeAnyBytes)
{
  EXPECT_TRUE(matches(std::string("a\0b", 3), "aXb", '*', 'X'));
  EXPECT_TRUE(matches("a*b", "a*b", '\0', '\xFF'));
  EXPECT_FALSE(matches("axb", "a*b", '\0', '\xFF'));
  EXPECT_TRUE(matches("axxb", std::string("a\0b", 3), '\0', '\xFF'));
  EXPECT_TRUE(matches("axb",
                      "a\xFF"
                      "b",
                      '\0', '\xFF'));
}

TEST(WildcardCharacters, ThatAreOneAndTheSameStandForAnyBytes)
{
  EXPECT_TRUE(matches("abc", "a*", '*', '*'));
  EXPECT_TRUE(matches("a", "a*", '*', '*'));
}

TEST(WildcardMatching, AgreesWithTheDefinitionAndTheReference)
{
  RandomTexts random;
  int hits = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string text = random.text(random.onceIn(2) ? std::string("ab") : std::string("ab*?\0", 5), 10);
    const std::string pattern = random.text(random.onceIn(2) ? "ab*?" : "ab**", 8);
    const bool expected = matchesByDefinition(text, pattern, '*', '?');
    ASSERT_EQ(matches(text, pattern), expected)
      << quelmcl_test::quoted(text) << " like " << quelmcl_test::quoted(pattern);
    ASSERT_EQ(reference::isLike(text, pattern), expected)
      << quelmcl_test::quoted(text) << " like " << quelmcl_test::quoted(pattern);
    hits += expected;
  }
  EXPECT_GT(hits, 1000);
}

// A matcher that tries every division of the text among the stars would not come back from this.
TEST(WildcardMatching, OfManyStarsTakesNoExponentialTime)
{
  std::string pattern;
  for (int i = 0; i < 50; ++i)
    pattern += "a*";
  const std::string text(2000, 'a');
  EXPECT_FALSE(matches(text, pattern + "b"));
  EXPECT_TRUE(matches(text, pattern + "a"));
}

}  // namespace
