// editing_test.cpp - IString: center, change, copy, insert, justify, case, overlay, remove, reverse, strip, translate.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <string>
#include <vector>

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

// ---------------------------------------------------------------------------------------------------------------------
// The shape that all editing operations share

struct Edit {
  const char* name;
  const char* text;
  std::function<IString&(IString&)> apply;
  const char* expected;
  bool isAlwaysNewInMultiByte = false;  ///< that kind of buffer makes a new one in any case
};

void PrintTo(const Edit& edit, std::ostream* stream)
{
  *stream << edit.name;
}

bool makesNewBuffer(const Edit& edit, const IString& text)
{
  return edit.isAlwaysNewInMultiByte && bufferOf(text)->className() == std::string("IDBCSBuffer");
}

/// Every editing operation, each with arguments that make it change the text.
const std::vector<Edit>& edits()
{
  static const std::vector<Edit> all = {
    {"center", "abc", [](IString& text) -> IString& { return text.center(5, '*'); }, "*abc*"},
    {"center_cutting", "abc", [](IString& text) -> IString& { return text.center(1); }, "b"},
    {"change_to_shorter", "abcb", [](IString& text) -> IString& { return text.change("b", ""); }, "ac"},
    {"change_to_equal", "abcb", [](IString& text) -> IString& { return text.change("b", "x"); }, "axcx"},
    {"change_to_longer", "abcb", [](IString& text) -> IString& { return text.change("b", "xyz"); }, "axyzcxyz"},
    {"copy", "abc", [](IString& text) -> IString& { return text.copy(2); }, "abcabc"},
    {"insert", "abc", [](IString& text) -> IString& { return text.insert("x", 1); }, "axbc"},
    {"insert_past_the_end", "abc", [](IString& text) -> IString& { return text.insert("x", 4); }, "abc x"},
    {"leftJustify", "abc", [](IString& text) -> IString& { return text.leftJustify(4); }, "abc "},
    {"lowerCase", "aBC", [](IString& text) -> IString& { return text.lowerCase(); }, "abc"},
    {"overlayWith", "abc", [](IString& text) -> IString& { return text.overlayWith("x", 2); }, "axc"},
    {"remove", "abc", [](IString& text) -> IString& { return text.remove(2, 1); }, "ac"},
    {"remove_to_the_end", "abc", [](IString& text) -> IString& { return text.remove(2); }, "a"},
    {"reverse", "abc", [](IString& text) -> IString& { return text.reverse(); }, "cba"},
    {"rightJustify", "abc", [](IString& text) -> IString& { return text.rightJustify(4); }, " abc"},
    {"strip", " abc ", [](IString& text) -> IString& { return text.strip(); }, "abc"},
    {"strip_a_character", "-abc-", [](IString& text) -> IString& { return text.strip('-'); }, "abc"},
    {"strip_a_set", "-abc.", [](IString& text) -> IString& { return text.strip(".-"); }, "abc"},
    {"strip_a_test", "1abc2", [](IString& text) -> IString& { return text.strip(isdigit); }, "abc"},
    {"stripLeading", " abc ", [](IString& text) -> IString& { return text.stripLeading(); }, "abc "},
    {"stripTrailing", " abc ", [](IString& text) -> IString& { return text.stripTrailing(); }, " abc"},
    {"translate", "abc", [](IString& text) -> IString& { return text.translate("b", "x"); }, "axc"},
    {"upperCase", "abc", [](IString& text) -> IString& { return text.upperCase(); }, "ABC"},
    {"removeWords", "a b c", [](IString& text) -> IString& { return text.removeWords(2, 1); }, "a c"},
    {"space", " a  b ", [](IString& text) -> IString& { return text.space(2, '-'); }, "a--b"},
    {"c2x", "abc", [](IString& text) -> IString& { return text.c2x(); }, "616263"},
    {"d2c", "65", [](IString& text) -> IString& { return text.d2c(); }, "A"},
    {"d2c_of_many_digits", "0000000000000065", [](IString& text) -> IString& { return text.d2c(); }, "A"},
    {"append", "abc", [](IString& text) -> IString& { return text += "d"; }, "abcd"},
    {"exclusive_or", "abc", [](IString& text) -> IString& { return text ^= " "; }, "ABC"},
    {"assign", "abc", [](IString& text) -> IString& { return text = "def"; }, "def"},
  };
  return all;
}

class StringEdit : public testing::TestWithParam<Edit> {};

INSTANTIATE_TEST_SUITE_P(Rows, StringEdit, testing::ValuesIn(edits()),
                         [](const testing::TestParamInfo<Edit>& row) { return std::string(row.param.name); });

TEST_P(StringEdit, OfASoleOwnerReturnsTheStringItself)
{
  IString text(GetParam().text);
  EXPECT_EQ(&GetParam().apply(text), &text);
  EXPECT_TEXT(text, GetParam().expected);
  EXPECT_EQ(useCountOf(text), 1u);
}

TEST_P(StringEdit, OfASharedTextLeavesTheOtherSharers)
{
  IString text(GetParam().text);
  const IString sharer(text);
  const IString another(text);
  EXPECT_EQ(&GetParam().apply(text), &text);
  EXPECT_TEXT(text, GetParam().expected);
  EXPECT_TEXT(sharer, GetParam().text);
  EXPECT_TEXT(another, GetParam().text);
  EXPECT_EQ(useCountOf(text), 1u);
  EXPECT_EQ(useCountOf(sharer), 2u);
}

TEST_P(StringEdit, LeaksNoBlock)
{
  IString warmUp(GetParam().text);
  GetParam().apply(warmUp);
  const quelmcl_test::AllocationWatch watch;
  {
    IString text(GetParam().text);
    const IString sharer(text);
    GetParam().apply(text);
  }
  EXPECT_EQ(watch.liveBlocks(), 0);
}

/// Applies the edit with the `nth` allocation failing; whether it failed for lack of storage.
bool failsAtAllocation(unsigned long nth, const Edit& edit, IString& text)
{
  const quelmcl_test::FailingAllocations scope(nth);
  try {
    edit.apply(text);
  } catch (const IOutOfMemory&) {
    return true;
  }
  return false;
}

TEST_P(StringEdit, ThatFindsNoStorageLeavesEverythingAsItWas)
{
  unsigned failures = 0;
  for (unsigned long nth = 1;; ++nth) {
    IString text(GetParam().text);
    const IString sharer(text);
    const IBuffer* const before = bufferOf(text);
    const quelmcl_test::AllocationWatch watch;
    if (!failsAtAllocation(nth, GetParam(), text)) {
      EXPECT_TEXT(text, GetParam().expected);
      EXPECT_TEXT(sharer, GetParam().text);
      break;
    }
    ++failures;
    EXPECT_EQ(watch.liveBlocks(), 0);
    EXPECT_TEXT(text, GetParam().text);
    EXPECT_EQ(bufferOf(text), before);
    EXPECT_EQ(useCountOf(text), 2u);
    ASSERT_LT(nth, 1000u);
  }
  EXPECT_GT(failures, 0u);  // a shared text cannot change without a new buffer
}

TEST_P(StringEdit, OfASoleOwnerThatFindsNoStorageLeavesItAsItWas)
{
  for (unsigned long nth = 1;; ++nth) {
    IString text(GetParam().text);
    const IBuffer* const before = bufferOf(text);
    if (!failsAtAllocation(nth, GetParam(), text)) {
      EXPECT_TEXT(text, GetParam().expected);
      break;
    }
    EXPECT_TEXT(text, GetParam().text);
    EXPECT_EQ(bufferOf(text), before);
    EXPECT_EQ(useCountOf(text), 1u);
    ASSERT_LT(nth, 1000u);
  }
}

class StringEditInPlace : public testing::TestWithParam<Edit> {};

TEST_P(StringEditInPlace, OfASoleOwnerKeepsTheBufferAndAllocatesNoText)
{
  IString text(std::string(5000, 'a').c_str());
  text[1] = 'B';
  const IBuffer* const before = bufferOf(text);
  GetParam().apply(text);
  EXPECT_EQ(bufferOf(text) == before, !makesNewBuffer(GetParam(), text));
  EXPECT_EQ(useCountOf(text), 1u);
  EXPECT_FALSE(text == IString("B" + IString("a").copy(4999)));
  EXPECT_EQ(text.length(), 5000u);
}

TEST_P(StringEditInPlace, OfASharedTextTakesANewBuffer)
{
  IString text("Ba");
  const IString sharer(text);
  GetParam().apply(text);
  EXPECT_FALSE(shareText(text, sharer));
  EXPECT_TEXT(sharer, "Ba");
}

const Edit editsInPlace[] = {
  {"lowerCase", "", [](IString& text) -> IString& { return text.lowerCase(); }, ""},
  {"upperCase", "", [](IString& text) -> IString& { return text.upperCase(); }, ""},
  {"reverse", "", [](IString& text) -> IString& { return text.reverse(); }, "", true},
  {"translate", "", [](IString& text) -> IString& { return text.translate("a", "x"); }, "", true},
  {"change_to_a_text_of_equal_length", "", [](IString& text) -> IString& { return text.change("a", "x"); }, ""},
  {"bits", "", [](IString& text) -> IString& { return text ^= "\x01"; }, ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringEditInPlace, testing::ValuesIn(editsInPlace),
                         [](const testing::TestParamInfo<Edit>& row) { return std::string(row.param.name); });

TEST(StringEditInPlace, MapsLettersAndBitsWithoutTouchingTheHeap)
{
  IString text("aBc");
  const quelmcl_test::AllocationWatch watch;
  text.upperCase().lowerCase();
  text ^= " ";
  const unsigned long allocations = watch.allocations();
  EXPECT_EQ(allocations, 0u);
  EXPECT_TEXT(text, "ABC");
}

/// Editing operations with arguments that leave the text as it is.
const Edit idleEdits[] = {
  {"center_to_the_same_length", "abc", [](IString& text) -> IString& { return text.center(3); }, "abc"},
  {"leftJustify_to_the_same_length", "abc", [](IString& text) -> IString& { return text.leftJustify(3); }, "abc"},
  {"rightJustify_to_the_same_length", "abc", [](IString& text) -> IString& { return text.rightJustify(3); }, "abc"},
  {"change_of_what_is_not_there", "abc", [](IString& text) -> IString& { return text.change("x", "y"); }, "abc"},
  {"change_of_the_empty_pattern", "abc", [](IString& text) -> IString& { return text.change("", "y"); }, "abc"},
  {"change_none", "abc", [](IString& text) -> IString& { return text.change("a", "y", 1, 0); }, "abc"},
  {"copy_once", "abc", [](IString& text) -> IString& { return text.copy(1); }, "abc"},
  {"insert_nothing", "abc", [](IString& text) -> IString& { return text.insert("", 3); }, "abc"},
  {"overlay_with_nothing", "abc", [](IString& text) -> IString& { return text.overlayWith("", 3); }, "abc"},
  {"remove_past_the_end", "abc", [](IString& text) -> IString& { return text.remove(4); }, "abc"},
  {"remove_no_bytes", "abc", [](IString& text) -> IString& { return text.remove(2, 0); }, "abc"},
  {"reverse_one_byte", "a", [](IString& text) -> IString& { return text.reverse(); }, "a"},
  {"lowerCase_of_small_letters", "abc1", [](IString& text) -> IString& { return text.lowerCase(); }, "abc1"},
  {"upperCase_of_capitals", "ABC1", [](IString& text) -> IString& { return text.upperCase(); }, "ABC1"},
  {"strip_nothing", "a b", [](IString& text) -> IString& { return text.strip(); }, "a b"},
  {"strip_an_empty_set", " a ", [](IString& text) -> IString& { return text.strip(""); }, " a "},
  {"strip_trailing_nothing", " a", [](IString& text) -> IString& { return text.stripTrailing(); }, " a"},
  {"strip_leading_nothing", "a ", [](IString& text) -> IString& { return text.stripLeading(); }, "a "},
  {"translate_nothing", "abc", [](IString& text) -> IString& { return text.translate("xyz", "abc"); }, "abc", true},
  {"translate_no_list", "abc", [](IString& text) -> IString& { return text.translate("", "abc"); }, "abc", true},
  {"removeWords_none", "a b", [](IString& text) -> IString& { return text.removeWords(1, 0); }, "a b"},
};

class StringIdleEdit : public testing::TestWithParam<Edit> {};

TEST_P(StringIdleEdit, KeepsTheSharedBufferAndAllocatesNothing)
{
  IString text(GetParam().text);
  const IString sharer(text);
  const quelmcl_test::AllocationWatch watch;
  const IString* const result = &GetParam().apply(text);
  const unsigned long allocations = watch.allocations();
  const bool isNew = makesNewBuffer(GetParam(), text);
  EXPECT_EQ(allocations == 0, !isNew);
  EXPECT_EQ(result, &text);
  EXPECT_TEXT(text, GetParam().expected);
  EXPECT_EQ(shareText(text, sharer), !isNew);
  EXPECT_EQ(useCountOf(text), isNew ? 1u : 2u);
}

INSTANTIATE_TEST_SUITE_P(Rows, StringIdleEdit, testing::ValuesIn(idleEdits),
                         [](const testing::TestParamInfo<Edit>& row) { return std::string(row.param.name); });

TEST(StringEdits, Chain)
{
  IString text("  one two  ");
  text.strip().upperCase().change("O", "0").insert("<", 0).reverse().remove(1, 1);
  EXPECT_TEXT(text, "WT EN0<");
  EXPECT_TEXT(IString::upperCase("abc").remove(2), "A");
}

// ---------------------------------------------------------------------------------------------------------------------
// Results that no string can hold

struct TooLongCase {
  const char* name;
  std::function<void(IString&)> apply;
};

void PrintTo(const TooLongCase& row, std::ostream* stream)
{
  *stream << row.name;
}

class StringTooLong : public testing::TestWithParam<TooLongCase> {};

TEST_P(StringTooLong, IsRefusedAndChangesNothing)
{
  IString text("abc");
  const IString sharer(text);
  IBase::messageFile();  // the first error of a process keeps the name of the catalog; that is no leak
  const quelmcl_test::AllocationWatch watch;
  EXPECT_EQ(errorIdOf([&] { GetParam().apply(text); }), tooLong);
  EXPECT_EQ(watch.liveBlocks(), 0);
  EXPECT_TEXT(text, "abc");
  EXPECT_TRUE(shareText(text, sharer));
  EXPECT_EQ(useCountOf(text), 2u);
}

const TooLongCase tooLongCases[] = {
  {"center", [](IString& text) { text.center(largest); }},
  {"center_by_the_limit_of_storage", [](IString& text) { text.center(4294967275u); }},
  {"leftJustify", [](IString& text) { text.leftJustify(largest); }},
  {"leftJustify_by_the_limit_of_storage", [](IString& text) { text.leftJustify(4294967275u); }},
  {"rightJustify", [](IString& text) { text.rightJustify(largest); }},
  {"rightJustify_by_the_limit_of_storage", [](IString& text) { text.rightJustify(4294967294u); }},
  {"insert_at_the_largest_index", [](IString& text) { text.insert("x", largest); }},
  {"insert_that_just_overflows", [](IString& text) { text.insert("x", 4294967294u); }},
  {"overlayWith_at_the_largest_index", [](IString& text) { text.overlayWith("x", largest); }},
  {"overlayWith_nothing_at_the_largest_index", [](IString& text) { text.overlayWith("", largest); }},
  {"copy", [](IString& text) { text.copy(largest); }},
  {"copy_that_just_overflows", [](IString& text) { text.copy(1431655766u); }},
  {"copy_whose_product_wraps_to_a_small_number", [](IString& text) { text.copy(1431655767u); }},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringTooLong, testing::ValuesIn(tooLongCases),
                         [](const testing::TestParamInfo<TooLongCase>& row) { return std::string(row.param.name); });

TEST(StringChangeTooLong, IsRefusedWhenTheProductOverflows)
{
  IString text = IString("a").copy(70000);
  const IString sharer(text);
  const IString replacement = IString("b").copy(70000);
  EXPECT_EQ(errorIdOf([&] { text.change("a", replacement); }), tooLong);
  EXPECT_TRUE(shareText(text, sharer));
  EXPECT_EQ(useCountOf(text), 2u);
}

TEST(StringChangeTooLong, IsRefusedWhenTheSumOverflows)
{
  // 65536 changes by 65535 bytes each leave room for less than the 65536 bytes that the text has already.
  IString text = IString("a").copy(65536);
  const IString replacement = IString("b").copy(65536);
  const IString sharer(text);
  EXPECT_EQ(errorIdOf([&] { text.change("a", replacement); }), tooLong);
  EXPECT_TRUE(shareText(text, sharer));
}

// ---------------------------------------------------------------------------------------------------------------------
// Arguments inside the text itself

struct OwnTextCase {
  const char* name;
  std::function<void(IString&)> apply;
  const char* expected;
};

void PrintTo(const OwnTextCase& row, std::ostream* stream)
{
  *stream << row.name;
}

class StringOwnText : public testing::TestWithParam<OwnTextCase> {};

TEST_P(StringOwnText, IsReadAsItWasWhenTheStringIsTheSoleOwner)
{
  IString text("abcb");
  GetParam().apply(text);
  EXPECT_TEXT(text, GetParam().expected);
  EXPECT_EQ(useCountOf(text), 1u);
}

TEST_P(StringOwnText, IsReadAsItWasWhenTheTextIsShared)
{
  IString text("abcb");
  const IString sharer(text);
  GetParam().apply(text);
  EXPECT_TEXT(text, GetParam().expected);
  EXPECT_TEXT(sharer, "abcb");
  EXPECT_EQ(useCountOf(sharer), 1u);
}

const OwnTextCase ownTextCases[] = {
  {"change_a_part_by_the_whole", [](IString& text) { text.change("b", text); }, "aabcbcabcb"},
  {"change_a_part_by_the_pointer", [](IString& text) { text.change("b", static_cast<char*>(text)); }, "aabcbcabcb"},
  {"change_the_whole", [](IString& text) { text.change(text, "xy"); }, "xy"},
  {"change_the_whole_by_a_text_of_equal_length", [](IString& text) { text.change(text, "wxyz"); }, "wxyz"},
  {"change_a_later_part_given_by_pointer", [](IString& text) { text.change(static_cast<const char*>(text) + 3, "xy"); },
   "axycxy"},
  {"change_by_a_later_part_of_equal_length",
   [](IString& text) {
     text.change("b", static_cast<const char*>(text) + 3, 1, 1);
     text.change("a", "b");
   },
   "bbcb"},
  {"change_to_an_equally_long_part_of_itself",
   [](IString& text) { text.change("ab", static_cast<const char*>(text) + 2); }, "cbcb"},
  {"change_pattern_and_replacement_inside_equal_length",
   [](IString& text) {
     text.change(static_cast<const char*>(text) + 3, "x").change("x", static_cast<const char*>(text) + 3);
   },
   "axcx"},
  {"insert_itself", [](IString& text) { text.insert(text, 1); }, "aabcbbcb"},
  {"insert_a_part", [](IString& text) { text.insert(static_cast<const char*>(text) + 2, 1); }, "acbbcb"},
  {"insert_itself_past_the_end", [](IString& text) { text.insert(text, 5); }, "abcb abcb"},
  {"overlay_itself", [](IString& text) { text.overlayWith(text, 2); }, "aabcb"},
  {"overlay_a_part", [](IString& text) { text.overlayWith(static_cast<const char*>(text) + 1); }, "bcbb"},
  {"strip_its_own_bytes",
   [](IString& text) {
     text.strip(text, IStringEnum::both);
     text += "x";
   },
   "x"},
  {"strip_a_part", [](IString& text) { text.strip(static_cast<const char*>(text) + 3); }, "abc"},
  {"translate_its_own_bytes", [](IString& text) { text.translate(text, "xyz"); }, "xyzy"},
  {"translate_to_its_own_bytes", [](IString& text) { text.translate("cba", text); }, "cbab"},
  {"translate_a_part_given_by_pointer",
   [](IString& text) { text.translate(static_cast<const char*>(text) + 2, static_cast<const char*>(text)); }, "abab"},
  {"translate_one_byte_of_itself_by_another",
   [](IString& text) { text.translate(static_cast<const char*>(text) + 3, static_cast<const char*>(text) + 2); },
   "accc"},
  {"append_itself", [](IString& text) { text += text; }, "abcbabcb"},
  {"append_a_part", [](IString& text) { text += static_cast<char*>(text) + 2; }, "abcbcb"},
  {"assign_a_part", [](IString& text) { text = static_cast<const char*>(text) + 1; }, "bcb"},
};

INSTANTIATE_TEST_SUITE_P(Rows, StringOwnText, testing::ValuesIn(ownTextCases),
                         [](const testing::TestParamInfo<OwnTextCase>& row) { return std::string(row.param.name); });

TEST(StringOwnText, ASharerOfTheTextMayBeTheArgument)
{
  IString text("abc");
  const IString sharer(text);
  text.change("b", sharer);
  EXPECT_TEXT(text, "aabcc");
  EXPECT_TEXT(sharer, "abc");
}

// ---------------------------------------------------------------------------------------------------------------------
// Every operation against a slow one, on random texts

/// Applies the edit to a sole owner and to a string that shares its text, and expects the same of both.
template <class EditOperation>
void expectEdited(const std::string& text, const std::string& expected, EditOperation edit)
{
  IString sole = made(text);
  EXPECT_EQ(&edit(sole), &sole);
  EXPECT_TEXT(sole, expected);

  IString sharing = made(text);
  const IString sharer(sharing);
  EXPECT_EQ(&edit(sharing), &sharing);
  EXPECT_TEXT(sharing, expected);
  EXPECT_TEXT(sharer, text);
}

class StringEditOnRandomTexts : public testing::Test {
protected:
  template <class Check>
  void onManyTexts(Check check)
  {
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
      const std::string text = random.text(bytes("aabB\0c "), 12);
      SCOPED_TRACE(testing::PrintToString(text));
      check(text, static_cast<unsigned>(text.size()));
    }
  }

  quelmcl_test::RandomTexts random{20260108};
};

TEST_F(StringEditOnRandomTexts, JustifiesAndRepeats)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const unsigned newLength = random.below(2 * length + 3);
    const unsigned copies = random.below(6);
    SCOPED_TRACE(std::to_string(newLength) + " bytes, " + std::to_string(copies) + " copies");
    expectEdited(text, reference::center(text, newLength, '*'),
                 [=](IString& string) -> IString& { return string.center(newLength, '*'); });
    expectEdited(text, reference::leftJustify(text, newLength, '*'),
                 [=](IString& string) -> IString& { return string.leftJustify(newLength, '*'); });
    expectEdited(text, reference::rightJustify(text, newLength, '*'),
                 [=](IString& string) -> IString& { return string.rightJustify(newLength, '*'); });
    expectEdited(text, reference::copy(text, copies), [=](IString& string) -> IString& { return string.copy(copies); });
    EXPECT_TEXT(made(text).subString(newLength, copies, '*'), reference::subString(text, newLength, copies, '*'));
  });
}

TEST_F(StringEditOnRandomTexts, ChangesOccurrences)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const std::string pattern = random.text(bytes("aab\0"), 3);
    const std::string replacement = random.text(bytes("ab\0x"), 4);
    const std::string cPattern = asCText(pattern);
    const std::string cReplacement = asCText(replacement);
    const unsigned start = random.position(length);
    const unsigned limit = random.below(3) == 0 ? random.below(3) : largest;
    SCOPED_TRACE(testing::PrintToString(pattern) + " to " + testing::PrintToString(replacement) + " from " +
                 std::to_string(start) + " limit " + std::to_string(limit));
    expectEdited(text, reference::change(text, pattern, replacement, start, limit), [&](IString& string) -> IString& {
      return string.change(made(pattern), made(replacement), start, limit);
    });
    expectEdited(text, reference::change(text, pattern, cReplacement, start, limit), [&](IString& string) -> IString& {
      return string.change(made(pattern), replacement.c_str(), start, limit);
    });
    expectEdited(text, reference::change(text, cPattern, replacement, start, limit), [&](IString& string) -> IString& {
      return string.change(pattern.c_str(), made(replacement), start, limit);
    });
    expectEdited(text, reference::change(text, cPattern, cReplacement, start, limit), [&](IString& string) -> IString& {
      return string.change(pattern.c_str(), replacement.c_str(), start, limit);
    });
  });
}

TEST_F(StringEditOnRandomTexts, ChangesPartsOfItselfByPartsOfItself)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const unsigned patternAt = random.below(length + 1);
    const unsigned replacementAt = random.below(length + 1);
    const std::string cPattern = asCText(text.substr(patternAt));
    const std::string cReplacement = asCText(text.substr(replacementAt));
    SCOPED_TRACE(std::to_string(patternAt) + " by " + std::to_string(replacementAt));
    expectEdited(text, reference::change(text, cPattern, cReplacement, 1, largest), [=](IString& string) -> IString& {
      return string.change(static_cast<const char*>(string) + patternAt,
                           static_cast<const char*>(string) + replacementAt);
    });
    expectEdited(text, reference::change(text, cPattern, text, 1, largest), [=](IString& string) -> IString& {
      return string.change(static_cast<const char*>(string) + patternAt, string);
    });
    expectEdited(text, reference::change(text, "a", cReplacement, 1, largest), [=](IString& string) -> IString& {
      return string.change("a", static_cast<const char*>(string) + replacementAt);
    });
    expectEdited(text, reference::translate(text, cPattern, cReplacement, '-'), [=](IString& string) -> IString& {
      return string.translate(static_cast<const char*>(string) + patternAt,
                              static_cast<const char*>(string) + replacementAt, '-');
    });
  });
}

TEST_F(StringEditOnRandomTexts, InsertsOverlaysAndRemoves)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const std::string argument = random.text(bytes("xy\0"), 4);
    const std::string cArgument = asCText(argument);
    const unsigned place = random.newLength(length);
    const unsigned start = random.position(length);
    const unsigned count = random.position(length);
    const unsigned ownPart = random.below(length + 1);
    const std::string cOwnPart = asCText(text.substr(ownPart));
    SCOPED_TRACE(testing::PrintToString(argument) + " at " + std::to_string(place) + ", " + std::to_string(count) +
                 " bytes from " + std::to_string(start) + ", own part at " + std::to_string(ownPart));
    expectEdited(text, reference::insert(text, argument, place, '-'),
                 [&](IString& string) -> IString& { return string.insert(made(argument), place, '-'); });
    expectEdited(text, reference::insert(text, cArgument, place, '-'),
                 [&](IString& string) -> IString& { return string.insert(argument.c_str(), place, '-'); });
    expectEdited(text, reference::insert(text, text, place, '-'),
                 [&](IString& string) -> IString& { return string.insert(string, place, '-'); });
    expectEdited(text, reference::insert(text, cOwnPart, place, '-'), [&](IString& string) -> IString& {
      return string.insert(static_cast<const char*>(string) + ownPart, place, '-');
    });
    expectEdited(text, reference::overlayWith(text, argument, place, '-'),
                 [&](IString& string) -> IString& { return string.overlayWith(made(argument), place, '-'); });
    expectEdited(text, reference::overlayWith(text, cArgument, place, '-'),
                 [&](IString& string) -> IString& { return string.overlayWith(argument.c_str(), place, '-'); });
    expectEdited(text, reference::overlayWith(text, text, place, '-'),
                 [&](IString& string) -> IString& { return string.overlayWith(string, place, '-'); });
    expectEdited(text, reference::overlayWith(text, cOwnPart, place, '-'), [&](IString& string) -> IString& {
      return string.overlayWith(static_cast<const char*>(string) + ownPart, place, '-');
    });
    expectEdited(text, reference::remove(text, start, count),
                 [&](IString& string) -> IString& { return string.remove(start, count); });
    expectEdited(text, reference::remove(text, start, largest),
                 [&](IString& string) -> IString& { return string.remove(start); });
  });
}

TEST_F(StringEditOnRandomTexts, MapsCaseReversesAndTranslates)
{
  onManyTexts([this](const std::string& text, unsigned) {
    const std::string input = random.text(bytes("aabc\0"), 4);
    const std::string output = random.text(bytes("xyz\0"), 4);
    const std::string cInput = asCText(input);
    const std::string cOutput = asCText(output);
    SCOPED_TRACE(testing::PrintToString(input) + " to " + testing::PrintToString(output));
    expectEdited(text, reference::upperCase(text), [](IString& string) -> IString& { return string.upperCase(); });
    expectEdited(text, reference::lowerCase(text), [](IString& string) -> IString& { return string.lowerCase(); });
    expectEdited(text, reference::reverse(text), [](IString& string) -> IString& { return string.reverse(); });
    expectEdited(text, reference::translate(text, input, output, '-'),
                 [&](IString& string) -> IString& { return string.translate(made(input), made(output), '-'); });
    expectEdited(text, reference::translate(text, input, cOutput, '-'),
                 [&](IString& string) -> IString& { return string.translate(made(input), output.c_str(), '-'); });
    expectEdited(text, reference::translate(text, cInput, output, '-'),
                 [&](IString& string) -> IString& { return string.translate(input.c_str(), made(output), '-'); });
    expectEdited(text, reference::translate(text, cInput, cOutput, '-'),
                 [&](IString& string) -> IString& { return string.translate(input.c_str(), output.c_str(), '-'); });
  });
}

int passesLetterA(int character)
{
  return character == 'a' || character == 'A';
}

TEST_F(StringEditOnRandomTexts, StripsTheEnds)
{
  onManyTexts([this](const std::string& text, unsigned) {
    const std::string set = random.text(bytes("aab\0"), 3);
    const IStringEnum::StripMode mode = static_cast<IStringEnum::StripMode>(random.below(3));
    SCOPED_TRACE(testing::PrintToString(set) + " mode " + std::to_string(mode));
    expectEdited(text, reference::strip(text, set, mode),
                 [&](IString& string) -> IString& { return string.strip(made(set), mode); });
    expectEdited(text, reference::strip(text, asCText(set), mode),
                 [&](IString& string) -> IString& { return string.strip(set.c_str(), mode); });
    expectEdited(text, reference::strip(text, "a", mode),
                 [&](IString& string) -> IString& { return string.strip('a', mode); });
    expectEdited(text, reference::strip(text, passesLetterA, mode),
                 [&](IString& string) -> IString& { return string.strip(IStringTest(passesLetterA), mode); });
    expectEdited(text, reference::strip(text, " \t\n\v\f\r"),
                 [&](IString& string) -> IString& { return string.strip(); });
  });
}

}  // namespace
