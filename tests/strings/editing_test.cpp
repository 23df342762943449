// editing_test.cpp - IString: center, change, copy, insert, justify, case, overlay, remove, reverse, strip, translate, operation by
// operation. What all of them promise: editing_promises_test.cpp; beside slow ones on random texts: editing_random_test.cpp.
#include "string_probe.hpp"
#include "support/expect_text.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <string>

using namespace stringtests;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Length: center, justify, copy

struct LengthCase {
  const char* name;
  const char* text;
  unsigned newLength;
  char pad;
  const char* centred;
  const char* onTheLeft;
  const char* onTheRight;
};

class StringJustify : public testing::TestWithParam<LengthCase> {};

TEST_P(StringJustify, PadsOrCutsTheEnds)
{
  const LengthCase& row = GetParam();
  const IString text(row.text);
  EXPECT_TEXT(IString(text).center(row.newLength, row.pad), row.centred);
  EXPECT_TEXT(IString(text).leftJustify(row.newLength, row.pad), row.onTheLeft);
  EXPECT_TEXT(IString(text).rightJustify(row.newLength, row.pad), row.onTheRight);
  EXPECT_TEXT(text, row.text);
}

TEST_P(StringJustify, HasStaticFormsThatGiveACopy)
{
  const LengthCase& row = GetParam();
  const IString text(row.text);
  EXPECT_TEXT(IString::center(text, row.newLength, row.pad), row.centred);
  EXPECT_TEXT(IString::leftJustify(text, row.newLength, row.pad), row.onTheLeft);
  EXPECT_TEXT(IString::rightJustify(text, row.newLength, row.pad), row.onTheRight);
  EXPECT_TEXT(text, row.text);
}

const LengthCase lengthCases[] = {
  {"same_length_is_untouched", "abcde", 5, '*', "abcde", "abcde", "abcde"},
  {"an_even_pad_is_shared_out_equally", "abcde", 9, '*', "**abcde**", "abcde****", "****abcde"},
  {"an_odd_pad_puts_its_extra_byte_on_the_right", "abcde", 8, '*', "*abcde**", "abcde***", "***abcde"},
  {"a_pad_of_one_goes_to_the_right", "abcde", 6, '*', "abcde*", "abcde*", "*abcde"},
  {"an_even_surplus_is_cut_equally", "abcde", 3, '*', "bcd", "abc", "cde"},
  {"an_odd_surplus_loses_its_extra_byte_on_the_right", "abcde", 2, '*', "bc", "ab", "de"},
  {"a_surplus_of_one_is_cut_on_the_right", "abcde", 4, '*', "abcd", "abcd", "bcde"},
  {"two_more_with_points", "abcde", 7, '.', ".abcde.", "abcde..", "..abcde"},
  {"to_one_byte", "abcde", 1, '*', "c", "a", "e"},
  {"to_nothing", "abcde", 0, '*', "", "", ""},
  {"from_nothing", "", 3, '-', "---", "---", "---"},
  {"nothing_to_nothing", "", 0, '-', "", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringJustify, testing::ValuesIn(lengthCases),
                         [](const testing::TestParamInfo<LengthCase>& row) { return std::string(row.param.name); });

TEST(StringJustify, PadsWithBlanksUnlessToldOtherwise)
{
  const IString text("ab");
  EXPECT_TEXT(IString(text).center(5), " ab  ");
  EXPECT_TEXT(IString(text).leftJustify(4), "ab  ");
  EXPECT_TEXT(IString(text).rightJustify(4), "  ab");
  EXPECT_TEXT(IString::center("ab", 5), " ab  ");
  EXPECT_TEXT(IString::leftJustify("ab", 4), "ab  ");
  EXPECT_TEXT(IString::rightJustify("ab", 4), "  ab");
}

TEST(StringJustify, PadsWithNulsWhenToldTo)
{
  EXPECT_TEXT(IString("a").rightJustify(3, '\0'), bytes("\0\0a"));
  EXPECT_TEXT(IString("a").leftJustify(3, '\0'), bytes("a\0\0"));
}

TEST(StringMultiply, RepeatsTheText)
{
  EXPECT_TEXT(IString("ab").copy(3), "ababab");
  EXPECT_TEXT(IString("ab").copy(1), "ab");
  EXPECT_TEXT(IString("ab").copy(2), "abab");
  EXPECT_TEXT(IString("abc").copy(7), "abcabcabcabcabcabcabc");
  EXPECT_TEXT(IString("x").copy(5), "xxxxx");
  EXPECT_TEXT(IString("a\0", 2).copy(2), bytes("a\0a\0"));
  EXPECT_TEXT(IString::copy("ab", 3), "ababab");
}

TEST(StringMultiply, ByZeroIsTheSharedEmptyText)
{
  IString text("ab");
  text.copy(0);
  EXPECT_TRUE(shareText(text, IString()));
}

TEST(StringMultiply, OfTheEmptyTextIsEmpty)
{
  EXPECT_TEXT(IString("").copy(0), "");
  EXPECT_TEXT(IString("").copy(5), "");
  EXPECT_TEXT(IString("").copy(largest), "");
}

TEST(StringMultiply, FillsLargeResultsCompletely)
{
  const IString many = IString("abc").copy(33333);
  EXPECT_EQ(many.length(), 99999u);
  EXPECT_EQ(many.occurrencesOf("abc"), 33333u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Change

struct ChangeCase {
  const char* name;
  std::string text;
  const char* pattern;
  const char* replacement;
  unsigned start;
  unsigned limit;
  std::string expected;
};

class StringChange : public testing::TestWithParam<ChangeCase> {};

TEST_P(StringChange, GivesTheSameForEveryMixOfTexts)
{
  const ChangeCase& row = GetParam();
  const IString text = made(row.text);
  const IString pattern(row.pattern);
  const IString replacement(row.replacement);
  EXPECT_TEXT(IString(text).change(pattern, replacement, row.start, row.limit), row.expected);
  EXPECT_TEXT(IString(text).change(pattern, row.replacement, row.start, row.limit), row.expected);
  EXPECT_TEXT(IString(text).change(row.pattern, replacement, row.start, row.limit), row.expected);
  EXPECT_TEXT(IString(text).change(row.pattern, row.replacement, row.start, row.limit), row.expected);
  EXPECT_TEXT(IString::change(text, pattern, replacement, row.start, row.limit), row.expected);
  EXPECT_TEXT(IString::change(text, row.pattern, row.replacement, row.start, row.limit), row.expected);
  EXPECT_TEXT(text, row.text);
}

const ChangeCase changeCases[] = {
  {"to_a_shorter_text", "aaaa", "aa", "b", 1, largest, "bb"},
  {"to_a_shorter_text_once", "aaaa", "aa", "b", 1, 1, "baa"},
  {"to_a_text_of_equal_length", "abcabc", "bc", "XY", 1, largest, "aXYaXY"},
  {"to_a_longer_text", "abcabc", "b", "<->", 1, largest, "a<->ca<->c"},
  {"to_the_empty_text", "abcabc", "b", "", 1, largest, "acac"},
  {"all_to_the_empty_text", "aaaa", "a", "", 1, largest, ""},
  {"an_empty_pattern_changes_nothing", "abc", "", "x", 1, largest, "abc"},
  {"an_absent_pattern_changes_nothing", "abc", "x", "y", 1, largest, "abc"},
  {"no_changes_allowed", "aaaa", "a", "b", 1, 0, "aaaa"},
  {"from_zero_is_from_one", "abab", "a", "x", 0, largest, "xbxb"},
  {"from_the_middle", "abab", "a", "x", 2, largest, "abxb"},
  {"from_inside_an_occurrence", "aabaab", "aab", "x", 2, largest, "aabx"},
  {"from_the_last_byte", "aaaa", "a", "xy", 4, largest, "aaaxy"},
  {"from_past_the_end", "aaaa", "a", "b", 5, largest, "aaaa"},
  {"from_the_largest_position", "aaaa", "a", "b", largest, largest, "aaaa"},
  {"with_fewer_changes_than_occurrences", "aaaa", "a", "xy", 1, 3, "xyxyxya"},
  {"occurrences_do_not_overlap", "aaaaa", "aa", "b", 1, largest, "bba"},
  {"replacements_are_not_searched_again", "ab", "a", "aa", 1, largest, "aab"},
  {"at_both_ends", "xabcx", "x", "yy", 1, largest, "yyabcyy"},
  {"the_whole_text", "abc", "abc", "x", 1, largest, "x"},
  {"a_pattern_longer_than_the_text", "ab", "abc", "x", 1, largest, "ab"},
  {"in_the_empty_text", "", "a", "b", 1, largest, ""},
  {"around_nuls", std::string("a\0b\0a", 5), "a", "xy", 1, largest, std::string("xy\0b\0xy", 7)},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringChange, testing::ValuesIn(changeCases),
                         [](const testing::TestParamInfo<ChangeCase>& row) { return std::string(row.param.name); });

TEST(StringChange, ChangesAllFromTheFrontUnlessToldOtherwise)
{
  EXPECT_TEXT(IString("aaa").change("a", "b"), "bbb");
  EXPECT_TEXT(IString("aaa").change("a", "b", 2), "abb");
  EXPECT_TEXT(IString::change("aaa", "a", "b"), "bbb");
  EXPECT_TEXT(IString::change("aaa", "a", "b", 2), "abb");
}

TEST(StringChange, TakesPatternsAndReplacementsWithNuls)
{
  const IString text("a\0b\0c", 5);
  EXPECT_TEXT(IString(text).change(made(bytes("\0")), "-"), "a-b-c");
  EXPECT_TEXT(IString("a-b").change("-", made(bytes("\0\0"))), bytes("a\0\0b"));
  EXPECT_TEXT(IString(text).change(made(bytes("\0c")), IString()), bytes("a\0b"));
}

TEST(StringChange, ANullPointerIsTheEmptyText)
{
  const char* const none = nullptr;
  EXPECT_TEXT(IString("aba").change("a", none), "b");
  EXPECT_TEXT(IString("aba").change(none, "x"), "aba");
}

TEST(StringChange, OfALargeTextIsComplete)
{
  IString text = IString("ab").copy(50000);
  text.change("b", "cde");
  EXPECT_EQ(text.length(), 200000u);
  EXPECT_EQ(text.occurrencesOf("acde"), 50000u);
  text.change("cde", "b");
  EXPECT_TRUE(text == IString("ab").copy(50000));
}

// ---------------------------------------------------------------------------------------------------------------------
// Insert and overlay

struct PlaceCase {
  const char* name;
  const char* text;
  const char* argument;
  unsigned index;
  char pad;
  const char* expected;
};

class StringInsert : public testing::TestWithParam<PlaceCase> {};

TEST_P(StringInsert, PutsTheArgumentBehindThePosition)
{
  const PlaceCase& row = GetParam();
  const IString text(row.text);
  EXPECT_TEXT(IString(text).insert(row.argument, row.index, row.pad), row.expected);
  EXPECT_TEXT(IString(text).insert(IString(row.argument), row.index, row.pad), row.expected);
  EXPECT_TEXT(IString::insert(text, row.argument, row.index, row.pad), row.expected);
  EXPECT_TEXT(text, row.text);
}

const PlaceCase insertCases[] = {
  {"at_the_front", "abc", "XY", 0, '-', "XYabc"},   {"inside", "abc", "XY", 1, '-', "aXYbc"},
  {"at_the_end", "abc", "XY", 3, '-', "abcXY"},     {"one_past_the_end", "abc", "XY", 4, '-', "abc-XY"},
  {"past_the_end", "abc", "XY", 5, '-', "abc--XY"}, {"nothing_inside", "abc", "", 2, '-', "abc"},
  {"nothing_at_the_end", "abc", "", 3, '-', "abc"}, {"nothing_past_the_end_still_pads", "abc", "", 5, '-', "abc--"},
  {"into_nothing", "", "XY", 0, '-', "XY"},         {"into_nothing_past_the_end", "", "XY", 2, '-', "--XY"},
  {"nothing_into_nothing", "", "", 0, '-', ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringInsert, testing::ValuesIn(insertCases),
                         [](const testing::TestParamInfo<PlaceCase>& row) { return std::string(row.param.name); });

TEST(StringInsert, IsAtTheFrontAndPadsWithBlanksUnlessToldOtherwise)
{
  EXPECT_TEXT(IString("abc").insert("XY"), "XYabc");
  EXPECT_TEXT(IString("abc").insert(IString("XY")), "XYabc");
  EXPECT_TEXT(IString("abc").insert("XY", 5), "abc  XY");
  EXPECT_TEXT(IString("abc").insert(IString("XY"), 5), "abc  XY");
  EXPECT_TEXT(IString::insert("abc", "XY"), "XYabc");
  EXPECT_TEXT(IString::insert("abc", "XY", 5), "abc  XY");
}

TEST(StringInsert, KeepsNulsAndTakesNullAsNothing)
{
  const char* const none = nullptr;
  EXPECT_TEXT(IString("a\0b", 3).insert(made(bytes("\0\0")), 2), bytes("a\0\0\0b"));
  EXPECT_TEXT(IString("ab").insert("X\0Y", 1), "aXb");
  EXPECT_TEXT(IString("ab").insert(none, 1), "ab");
  EXPECT_TEXT(IString("ab").insert("X", 3, '\0'), bytes("ab\0X"));
}

class StringOverlay : public testing::TestWithParam<PlaceCase> {};

TEST_P(StringOverlay, WritesOverTheTextFromThePosition)
{
  const PlaceCase& row = GetParam();
  const IString text(row.text);
  EXPECT_TEXT(IString(text).overlayWith(row.argument, row.index, row.pad), row.expected);
  EXPECT_TEXT(IString(text).overlayWith(IString(row.argument), row.index, row.pad), row.expected);
  EXPECT_TEXT(IString::overlayWith(text, row.argument, row.index, row.pad), row.expected);
  EXPECT_TEXT(text, row.text);
}

const PlaceCase overlayCases[] = {
  {"from_zero", "abc", "XY", 0, '-', "XYc"},
  {"from_one", "abc", "XY", 1, '-', "XYc"},
  {"from_the_middle_to_the_end", "abc", "XY", 2, '-', "aXY"},
  {"beyond_the_end", "abc", "XY", 3, '-', "abXY"},
  {"just_behind_the_end", "abc", "XY", 4, '-', "abcXY"},
  {"one_past_that", "abc", "XY", 5, '-', "abc-XY"},
  {"past_the_end", "abc", "XY", 6, '-', "abc--XY"},
  {"nothing_inside", "abc", "", 2, '-', "abc"},
  {"nothing_at_the_last_byte", "abc", "", 3, '-', "abc"},
  {"nothing_just_behind_the_end", "abc", "", 4, '-', "abc"},
  {"nothing_past_the_end_still_pads", "abc", "", 6, '-', "abc--"},
  {"longer_than_the_text", "abc", "UVWXYZ", 1, '-', "UVWXYZ"},
  {"on_nothing", "", "XY", 1, '-', "XY"},
  {"on_nothing_past_the_end", "", "XY", 3, '-', "--XY"},
  {"of_equal_length", "abc", "XYZ", 1, '-', "XYZ"},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringOverlay, testing::ValuesIn(overlayCases),
                         [](const testing::TestParamInfo<PlaceCase>& row) { return std::string(row.param.name); });

TEST(StringOverlay, IsFromTheFrontAndPadsWithBlanksUnlessToldOtherwise)
{
  EXPECT_TEXT(IString("abc").overlayWith("XY"), "XYc");
  EXPECT_TEXT(IString("abc").overlayWith(IString("XY")), "XYc");
  EXPECT_TEXT(IString("abc").overlayWith("XY", 6), "abc  XY");
  EXPECT_TEXT(IString("abc").overlayWith(IString("XY"), 6), "abc  XY");
  EXPECT_TEXT(IString::overlayWith("abc", "XY"), "XYc");
  EXPECT_TEXT(IString::overlayWith("abc", "XY", 6), "abc  XY");
}

TEST(StringOverlay, KeepsNulsAndTakesNullAsNothing)
{
  const char* const none = nullptr;
  EXPECT_TEXT(IString("a\0b\0c", 5).overlayWith(made(bytes("\0X")), 2), bytes("a\0X\0c"));
  EXPECT_TEXT(IString("ab").overlayWith(none, 1), "ab");
  EXPECT_TEXT(IString("ab").overlayWith("X", 4, '\0'), bytes("ab\0X"));
}

// ---------------------------------------------------------------------------------------------------------------------
// Remove

struct RemoveCase {
  const char* name;
  std::string text;
  unsigned start;
  unsigned count;
  std::string expected;
};

class StringRemove : public testing::TestWithParam<RemoveCase> {};

TEST_P(StringRemove, TakesBytesOutFromThePosition)
{
  const RemoveCase& row = GetParam();
  const IString text = made(row.text);
  EXPECT_TEXT(IString(text).remove(row.start, row.count), row.expected);
  EXPECT_TEXT(IString::remove(text, row.start, row.count), row.expected);
  EXPECT_TEXT(text, row.text);
}

const RemoveCase removeCases[] = {
  {"inside", "abcde", 2, 2, "ade"},
  {"more_than_there_are", "abcde", 2, 100, "a"},
  {"exactly_to_the_end", "abcde", 2, 4, "a"},
  {"all_but_the_last", "abcde", 2, 3, "ae"},
  {"from_zero_is_from_one", "abcde", 0, 1, "bcde"},
  {"just_past_the_end", "abcde", 6, 1, "abcde"},
  {"from_the_largest_position", "abcde", largest, largest, "abcde"},
  {"the_largest_count", "abcde", 3, largest, "ab"},
  {"the_largest_count_from_zero", "abcde", 0, largest, ""},
  {"none", "abcde", 3, 0, "abcde"},
  {"the_last_byte", "abcde", 5, 1, "abcd"},
  {"everything", "abcde", 1, 5, ""},
  {"from_the_empty_text", "", 1, 1, ""},
  {"from_the_empty_text_at_zero", "", 0, 1, ""},
  {"around_nuls", std::string("a\0b\0c", 5), 2, 1, std::string("ab\0c", 4)},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringRemove, testing::ValuesIn(removeCases),
                         [](const testing::TestParamInfo<RemoveCase>& row) { return std::string(row.param.name); });

TEST(StringRemove, WithoutACountGoesToTheEnd)
{
  const IString text("abcde");
  EXPECT_TEXT(IString(text).remove(3), "ab");
  EXPECT_TEXT(IString(text).remove(5), "abcd");
  EXPECT_TEXT(IString(text).remove(6), "abcde");
  EXPECT_TEXT(IString(text).remove(1), "");
  EXPECT_TEXT(IString(text).remove(0), "");
  EXPECT_TEXT(IString::remove(text, 3), "ab");
  EXPECT_TEXT(text, "abcde");
}

// ---------------------------------------------------------------------------------------------------------------------
// Case, reversal

TEST(StringCase, IsMappedForTheLettersOfASCII)
{
  EXPECT_TEXT(IString("Hello, World 123").lowerCase(), "hello, world 123");
  EXPECT_TEXT(IString("Hello, World 123").upperCase(), "HELLO, WORLD 123");
  EXPECT_TEXT(IString("abcdefghijklmnopqrstuvwxyz").upperCase(), "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_TEXT(IString("ABCDEFGHIJKLMNOPQRSTUVWXYZ").lowerCase(), "abcdefghijklmnopqrstuvwxyz");
}

TEST(StringCase, LeavesTheNeighboursOfTheLetters)
{
  EXPECT_TEXT(IString("@[`{").lowerCase(), "@[`{");
  EXPECT_TEXT(IString("@[`{").upperCase(), "@[`{");
}

TEST(StringCase, LeavesEveryByteAbove7FWhateverTheLocale)
{
  std::string high;
  for (int value = 128; value < 256; ++value)
    high += static_cast<char>(value);
  EXPECT_EQ(bytesOf(made("A" + high + "Z").lowerCase()), "a" + high + "z");
  EXPECT_EQ(bytesOf(made("a" + high + "z").upperCase()), "A" + high + "Z");
  EXPECT_EQ(bytesOf(IString("\xC4").lowerCase()), "\xC4");
  EXPECT_EQ(bytesOf(IString("\xE4").upperCase()), "\xE4");
}

TEST(StringCase, IsMappedBehindANul)
{
  EXPECT_TEXT(IString("a\0b", 3).upperCase(), bytes("A\0B"));
  EXPECT_TEXT(IString("A\0B", 3).lowerCase(), bytes("a\0b"));
}

TEST(StringCase, HasStaticFormsThatGiveACopy)
{
  const IString text("aBc");
  EXPECT_TEXT(IString::upperCase(text), "ABC");
  EXPECT_TEXT(IString::lowerCase(text), "abc");
  EXPECT_TEXT(IString::upperCase("abc"), "ABC");
  EXPECT_TEXT(text, "aBc");
}

TEST(StringCase, OfTheEmptyTextIsEmpty)
{
  EXPECT_TEXT(IString().upperCase(), "");
  EXPECT_TEXT(IString().lowerCase(), "");
}

TEST(StringReversal, TurnsTheOrderAround)
{
  EXPECT_TEXT(IString("abcd").reverse(), "dcba");
  EXPECT_TEXT(IString("abcde").reverse(), "edcba");
  EXPECT_TEXT(IString("ab").reverse(), "ba");
  EXPECT_TEXT(IString("a").reverse(), "a");
  EXPECT_TEXT(IString().reverse(), "");
  EXPECT_TEXT(IString("a\0b\0", 4).reverse(), bytes("\0b\0a"));
}

TEST(StringReversal, HasAStaticFormThatGivesACopy)
{
  const IString text("abc");
  EXPECT_TEXT(IString::reverse(text), "cba");
  EXPECT_TEXT(IString::reverse("abc"), "cba");
  EXPECT_TEXT(text, "abc");
}

// ---------------------------------------------------------------------------------------------------------------------
// Strip

struct StripCase {
  const char* name;
  const char* text;
  const char* set;
  const char* fromBoth;
  const char* leading;
  const char* trailing;
};

class StringStrip : public testing::TestWithParam<StripCase> {};

TEST_P(StringStrip, TakesMembersOfASetFromTheEndsNamed)
{
  const StripCase& row = GetParam();
  const IString text(row.text);
  const IString set(row.set);
  EXPECT_TEXT(IString(text).strip(row.set), row.fromBoth);
  EXPECT_TEXT(IString(text).strip(row.set, IStringEnum::both), row.fromBoth);
  EXPECT_TEXT(IString(text).strip(row.set, IStringEnum::leading), row.leading);
  EXPECT_TEXT(IString(text).strip(row.set, IStringEnum::trailing), row.trailing);
  EXPECT_TEXT(IString(text).strip(set, IStringEnum::both), row.fromBoth);
  EXPECT_TEXT(IString(text).strip(set, IStringEnum::leading), row.leading);
  EXPECT_TEXT(IString(text).strip(set, IStringEnum::trailing), row.trailing);
  EXPECT_TEXT(IString(text).stripLeading(row.set), row.leading);
  EXPECT_TEXT(IString(text).stripTrailing(row.set), row.trailing);
  EXPECT_TEXT(text, row.text);
}

TEST_P(StringStrip, HasStaticFormsThatGiveACopy)
{
  const StripCase& row = GetParam();
  const IString text(row.text);
  const IString set(row.set);
  EXPECT_TEXT(IString::strip(text, set), row.fromBoth);
  EXPECT_TEXT(IString::strip(text, set, IStringEnum::leading), row.leading);
  EXPECT_TEXT(IString::strip(text, set, IStringEnum::trailing), row.trailing);
  EXPECT_TEXT(IString::stripLeading(text, set), row.leading);
  EXPECT_TEXT(IString::stripTrailing(text, set), row.trailing);
  EXPECT_TEXT(text, row.text);
}

const StripCase stripCases[] = {
  {"at_both_ends", "--ab-c--", "-", "ab-c", "ab-c--", "--ab-c"},
  {"several_members", "-.-ab.-", ".-", "ab", "ab.-", "-.-ab"},
  {"at_the_front_only", "--ab", "-", "ab", "ab", "--ab"},
  {"at_the_end_only", "ab--", "-", "ab", "ab--", "ab"},
  {"nothing_to_strip", "abc", "-", "abc", "abc", "abc"},
  {"members_inside_stay", "a--b", "-", "a--b", "a--b", "a--b"},
  {"nothing_but_members", "----", "-", "", "", ""},
  {"nothing_but_one_member", "-", "-", "", "", ""},
  {"an_empty_set", " ab ", "", " ab ", " ab ", " ab "},
  {"the_empty_text", "", "-", "", "", ""},
  {"blanks", "  ab  ", " ", "ab", "ab  ", "  ab"},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringStrip, testing::ValuesIn(stripCases),
                         [](const testing::TestParamInfo<StripCase>& row) { return std::string(row.param.name); });

TEST(StringStrip, WithoutArgumentTakesWhiteSpace)
{
  const IString text(" \t\n\v\f\rab c \t\n\v\f\r");
  EXPECT_TEXT(IString(text).strip(), "ab c");
  EXPECT_TEXT(IString(text).stripLeading(), "ab c \t\n\v\f\r");
  EXPECT_TEXT(IString(text).stripTrailing(), " \t\n\v\f\rab c");
  EXPECT_TEXT(IString::strip(text), "ab c");
  EXPECT_TEXT(IString::stripLeading(text), "ab c \t\n\v\f\r");
  EXPECT_TEXT(IString::stripTrailing(text), " \t\n\v\f\rab c");
}

TEST(StringStrip, OfATextOfBlanksIsEmptyInEveryMode)
{
  const IString blanks("   ");
  for (const IStringEnum::StripMode mode : {IStringEnum::leading, IStringEnum::trailing, IStringEnum::both}) {
    EXPECT_TEXT(IString(blanks).strip(' ', mode), "");
    EXPECT_TEXT(IString(blanks).strip(" ", mode), "");
    EXPECT_TEXT(IString(blanks).strip(IStringTest(isspace), mode), "");
    EXPECT_TRUE(shareText(IString(blanks).strip(' ', mode), IString()));
  }
  EXPECT_TEXT(IString(blanks).strip(), "");
  EXPECT_TEXT(IString(blanks).stripLeading(), "");
  EXPECT_TEXT(IString(blanks).stripTrailing(), "");
}

TEST(StringStrip, TakesOneCharacter)
{
  const IString text("--a-b--");
  EXPECT_TEXT(IString(text).strip('-'), "a-b");
  EXPECT_TEXT(IString(text).strip('-', IStringEnum::leading), "a-b--");
  EXPECT_TEXT(IString(text).strip('-', IStringEnum::trailing), "--a-b");
  EXPECT_TEXT(IString(text).stripLeading('-'), "a-b--");
  EXPECT_TEXT(IString(text).stripTrailing('-'), "--a-b");
  EXPECT_TEXT(IString("\0a\0", 3).strip('\0'), "a");
  EXPECT_TEXT(IString::strip(text, '-'), "a-b");
}

TEST(StringStrip, TakesWhatPassesATest)
{
  const IString text("12a3b45");
  const IStringTest digits(isdigit);
  EXPECT_TEXT(IString(text).strip(digits), "a3b");
  EXPECT_TEXT(IString(text).strip(digits, IStringEnum::leading), "a3b45");
  EXPECT_TEXT(IString(text).strip(digits, IStringEnum::trailing), "12a3b");
  EXPECT_TEXT(IString(text).strip(isdigit), "a3b");
  EXPECT_TEXT(IString(text).stripLeading(digits), "a3b45");
  EXPECT_TEXT(IString(text).stripTrailing(digits), "12a3b");
  EXPECT_TEXT(IString("123").strip(digits), "");
  EXPECT_TEXT(IString("123").strip(digits, IStringEnum::trailing), "");
  EXPECT_TEXT(IString::strip(text, digits), "a3b");
  EXPECT_TEXT(IString::strip(text, digits, IStringEnum::leading), "a3b45");
  EXPECT_TEXT(IString::stripLeading(text, digits), "a3b45");
  EXPECT_TEXT(IString::stripTrailing(text, digits), "12a3b");
}

TEST(StringStrip, TakesSetsWithNulsAndNullAsTheEmptySet)
{
  const char* const none = nullptr;
  EXPECT_TEXT(IString("\0-a-\0", 5).strip(made(bytes("-\0")), IStringEnum::both), "a");
  EXPECT_TEXT(IString(" a ").strip(none), " a ");
  EXPECT_TEXT(IString(" a ").stripLeading(none), " a ");
  EXPECT_TEXT(IString(" a ").stripTrailing(none), " a ");
}

TEST(StringStrip, TakesAnyOtherModeAsBoth)
{
  EXPECT_TEXT(IString("--a--").strip('-', static_cast<IStringEnum::StripMode>(3)), "a");
}

// ---------------------------------------------------------------------------------------------------------------------
// Translate

struct TranslateCase {
  const char* name;
  const char* text;
  const char* input;
  const char* output;
  char pad;
  const char* expected;
};

class StringTranslate : public testing::TestWithParam<TranslateCase> {};

TEST_P(StringTranslate, GivesTheSameForEveryMixOfTexts)
{
  const TranslateCase& row = GetParam();
  const IString text(row.text);
  const IString input(row.input);
  const IString output(row.output);
  EXPECT_TEXT(IString(text).translate(input, output, row.pad), row.expected);
  EXPECT_TEXT(IString(text).translate(input, row.output, row.pad), row.expected);
  EXPECT_TEXT(IString(text).translate(row.input, output, row.pad), row.expected);
  EXPECT_TEXT(IString(text).translate(row.input, row.output, row.pad), row.expected);
  EXPECT_TEXT(IString::translate(text, input, output, row.pad), row.expected);
  EXPECT_TEXT(text, row.text);
}

const TranslateCase translateCases[] = {
  {"place_by_place", "abcabc", "abc", "xyz", '-', "xyzxyz"},
  {"a_short_output_list_is_padded", "abc", "ab", "x", '-', "x-c"},
  {"an_empty_output_list_is_all_pad", "abc", "ab", "", '-', "--c"},
  {"a_long_output_list_is_cut", "abc", "a", "xyz", '-', "xbc"},
  {"the_first_place_of_a_byte_counts", "abab", "aa", "xy", '-', "xbxb"},
  {"bytes_are_translated_once", "abc", "ab", "ba", '-', "bac"},
  {"nothing_listed", "abc", "", "xyz", '-', "abc"},
  {"nothing_found", "abc", "xyz", "abc", '-', "abc"},
  {"the_empty_text", "", "abc", "xyz", '-', ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringTranslate, testing::ValuesIn(translateCases),
                         [](const testing::TestParamInfo<TranslateCase>& row) { return std::string(row.param.name); });

TEST(StringTranslate, PadsWithBlanksUnlessToldOtherwise)
{
  EXPECT_TEXT(IString("abc").translate("ab", "x"), "x c");
  EXPECT_TEXT(IString("abc").translate(IString("ab"), IString("x")), "x c");
  EXPECT_TEXT(IString("abc").translate(IString("ab"), "x"), "x c");
  EXPECT_TEXT(IString("abc").translate("ab", IString("x")), "x c");
  EXPECT_TEXT(IString::translate("abc", "ab", "x"), "x c");
}

TEST(StringTranslate, TakesListsWithNulsAndNullAsTheEmptyList)
{
  const char* const none = nullptr;
  EXPECT_TEXT(IString("a\0b", 3).translate(made(bytes("\0b")), "-+"), "a-+");
  EXPECT_TEXT(IString("ab").translate("b", made(bytes("\0"))), bytes("a\0"));
  EXPECT_TEXT(IString("ab").translate(none, "x"), "ab");
  EXPECT_TEXT(IString("ab").translate("b", none), "a ");
}

}  // namespace
