// editing_test.cpp - buffers: what each editing operation makes of a text, in both kinds.
#include "buffer_probe.hpp"
#include "support/expect_text.hpp"

#include <gtest/gtest.h>

#include <ctype.h>

#include <functional>
#include <string>

using namespace buffertests;

namespace {

struct EditCase {
  const char* name;
  std::string text;
  std::function<IBuffer*(IBuffer&)> run;
  std::string expected;
};

class BufferEditing : public testing::TestWithParam<EditCase> {};

TEST_P(BufferEditing, GivesTheText)
{
  const Owned buffer(SingleByteBuffer::holding(GetParam().text));
  EXPECT_TEXT(*Owned(GetParam().run(*buffer)), GetParam().expected);
}

TEST_P(BufferEditing, GivesTheTextInTheKindOfThisProcess)
{
  const Owned buffer(ofThisProcess(GetParam().text));
  EXPECT_TEXT(*Owned(GetParam().run(*buffer)), GetParam().expected);
}

TEST_P(BufferEditing, LeavesASharedTextAlone)
{
  const Owned buffer(SingleByteBuffer::holding(GetParam().text));
  const Owned sharer(buffer->addRef());
  EXPECT_TEXT(*Owned(GetParam().run(*buffer)), GetParam().expected);
  EXPECT_TEXT(*sharer, GetParam().text, 2);
}

std::string nameOf(const testing::TestParamInfo<EditCase>& row)
{
  return row.param.name;
}

// ---------------------------------------------------------------------------------------------------------------------
// Fitting into a length

const EditCase fitting[] = {
  {"centre_of_an_odd_surplus_loses_more_on_the_right", "abcde", [](IBuffer& b) { return b.center(2, '*'); }, "bc"},
  {"centre_of_an_even_surplus", "abcde", [](IBuffer& b) { return b.center(3, '*'); }, "bcd"},
  {"centre_cut_by_one_loses_the_last", "abcde", [](IBuffer& b) { return b.center(4, '*'); }, "abcd"},
  {"centre_in_an_odd_pad_gets_more_on_the_right", "abcde", [](IBuffer& b) { return b.center(8, '*'); }, "*abcde**"},
  {"centre_in_an_even_pad", "abcde", [](IBuffer& b) { return b.center(7, '*'); }, "*abcde*"},
  {"centre_in_one_more_pads_on_the_right", "abcde", [](IBuffer& b) { return b.center(6, '*'); }, "abcde*"},
  {"centre_in_the_same_length", "abcde", [](IBuffer& b) { return b.center(5, '*'); }, "abcde"},
  {"centre_in_nothing", "abcde", [](IBuffer& b) { return b.center(0, '*'); }, ""},
  {"centre_of_nothing", "", [](IBuffer& b) { return b.center(3, '*'); }, "***"},
  {"left_cut", "abcde", [](IBuffer& b) { return b.leftJustify(2, '.'); }, "ab"},
  {"left_padded", "abcde", [](IBuffer& b) { return b.leftJustify(7, '.'); }, "abcde.."},
  {"left_in_nothing", "abcde", [](IBuffer& b) { return b.leftJustify(0, '.'); }, ""},
  {"left_of_nothing", "", [](IBuffer& b) { return b.leftJustify(2, '.'); }, ".."},
  {"right_cut", "abcde", [](IBuffer& b) { return b.rightJustify(2, '.'); }, "de"},
  {"right_padded", "abcde", [](IBuffer& b) { return b.rightJustify(7, '.'); }, "..abcde"},
  {"right_in_nothing", "abcde", [](IBuffer& b) { return b.rightJustify(0, '.'); }, ""},
  {"right_of_nothing", "", [](IBuffer& b) { return b.rightJustify(2, '.'); }, ".."},
  {"padded_with_nuls", "a", [](IBuffer& b) { return b.center(3, '\0'); }, bytes("\0a\0")},
};
INSTANTIATE_TEST_SUITE_P(Fitting, BufferEditing, testing::ValuesIn(fitting), nameOf);

// ---------------------------------------------------------------------------------------------------------------------
// Putting in, over and out

const EditCase placing[] = {
  {"insert_at_the_front", "abc", [](IBuffer& b) { return b.insert("XY", 2, 0, '-'); }, "XYabc"},
  {"insert_after_the_first", "abc", [](IBuffer& b) { return b.insert("XY", 2, 1, '-'); }, "aXYbc"},
  {"insert_at_the_end", "abc", [](IBuffer& b) { return b.insert("XY", 2, 3, '-'); }, "abcXY"},
  {"insert_past_the_end_pads", "abc", [](IBuffer& b) { return b.insert("XY", 2, 5, '-'); }, "abc--XY"},
  {"insert_nothing_within", "abc", [](IBuffer& b) { return b.insert("", 0, 3, '-'); }, "abc"},
  {"insert_nothing_past_the_end_pads", "abc", [](IBuffer& b) { return b.insert("", 0, 5, '-'); }, "abc--"},
  {"insert_into_nothing", "", [](IBuffer& b) { return b.insert("XY", 2, 0, '-'); }, "XY"},
  {"insert_past_the_end_of_nothing", "", [](IBuffer& b) { return b.insert("XY", 2, 1, '-'); }, "-XY"},
  {"overlay_at_0_means_1", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, 0, '-'); }, "XYc"},
  {"overlay_at_1", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, 1, '-'); }, "XYc"},
  {"overlay_over_the_end_lengthens", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, 3, '-'); }, "abXY"},
  {"overlay_just_past_the_end", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, 4, '-'); }, "abcXY"},
  {"overlay_further_past_the_end_pads", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, 6, '-'); }, "abc--XY"},
  {"overlay_of_all", "abc", [](IBuffer& b) { return b.overlayWith("WXYZ", 4, 1, '-'); }, "WXYZ"},
  {"overlay_with_nothing_within", "abc", [](IBuffer& b) { return b.overlayWith("", 0, 2, '-'); }, "abc"},
  {"overlay_with_nothing_just_past_the_end", "abc", [](IBuffer& b) { return b.overlayWith("", 0, 4, '-'); }, "abc"},
  {"overlay_with_nothing_past_the_end_pads", "abc", [](IBuffer& b) { return b.overlayWith("", 0, 6, '-'); }, "abc--"},
  {"overlay_of_nothing", "", [](IBuffer& b) { return b.overlayWith("XY", 2, 1, '-'); }, "XY"},
  {"remove_more_than_there_is", "abcde", [](IBuffer& b) { return b.remove(2, 100); }, "a"},
  {"remove_as_much_as_the_largest_count", "abcde", [](IBuffer& b) { return b.remove(2, largest); }, "a"},
  {"remove_from_0_means_1", "abcde", [](IBuffer& b) { return b.remove(0, 1); }, "bcde"},
  {"remove_past_the_end", "abcde", [](IBuffer& b) { return b.remove(6, 1); }, "abcde"},
  {"remove_the_last", "abcde", [](IBuffer& b) { return b.remove(5, 1); }, "abcd"},
  {"remove_in_the_middle", "abcde", [](IBuffer& b) { return b.remove(2, 3); }, "ae"},
  {"remove_nothing", "abcde", [](IBuffer& b) { return b.remove(2, 0); }, "abcde"},
  {"remove_all", "abcde", [](IBuffer& b) { return b.remove(1, 5); }, ""},
  {"remove_from_nothing", "", [](IBuffer& b) { return b.remove(0, 1); }, ""},
};
INSTANTIATE_TEST_SUITE_P(Placing, BufferEditing, testing::ValuesIn(placing), nameOf);

// ---------------------------------------------------------------------------------------------------------------------
// Copies and every character

const EditCase everyCharacter[] = {
  {"copy_three_times", "ab", [](IBuffer& b) { return b.copy(3); }, "ababab"},
  {"copy_twice", "ab", [](IBuffer& b) { return b.copy(2); }, "abab"},
  {"copy_seven_times", "abc", [](IBuffer& b) { return b.copy(7); }, "abcabcabcabcabcabcabc"},
  {"copy_once", "ab", [](IBuffer& b) { return b.copy(1); }, "ab"},
  {"copy_never", "ab", [](IBuffer& b) { return b.copy(0); }, ""},
  {"copy_nothing", "", [](IBuffer& b) { return b.copy(largest); }, ""},
  {"copy_nuls", bytes("a\0"), [](IBuffer& b) { return b.copy(2); }, bytes("a\0a\0")},
  {"reverse_an_even_length", "abcd", [](IBuffer& b) { return b.reverse(); }, "dcba"},
  {"reverse_an_odd_length", "abc", [](IBuffer& b) { return b.reverse(); }, "cba"},
  {"reverse_a_byte", "a", [](IBuffer& b) { return b.reverse(); }, "a"},
  {"reverse_nothing", "", [](IBuffer& b) { return b.reverse(); }, ""},
  {"reverse_nuls", bytes("\0ab"), [](IBuffer& b) { return b.reverse(); }, bytes("ba\0")},
  {"lower_changes_capitals_only", "aZ@A[09", [](IBuffer& b) { return b.lowerCase(); }, "az@a[09"},
  {"lower_leaves_bytes_above_7F", "A\xC4 \xC0Z", [](IBuffer& b) { return b.lowerCase(); }, "a\xC4 \xC0z"},
  {"lower_goes_on_after_a_nul", bytes("A\0B"), [](IBuffer& b) { return b.lowerCase(); }, bytes("a\0b")},
  {"lower_of_the_alphabet", "ABCDEFGHIJKLMNOPQRSTUVWXYZ", [](IBuffer& b) { return b.lowerCase(); },
   "abcdefghijklmnopqrstuvwxyz"},
  {"lower_of_nothing", "", [](IBuffer& b) { return b.lowerCase(); }, ""},
  {"upper_changes_small_letters_only", "Az`a{09", [](IBuffer& b) { return b.upperCase(); }, "AZ`A{09"},
  {"upper_leaves_bytes_above_7F", "a\xE4 \xE0z", [](IBuffer& b) { return b.upperCase(); }, "A\xE4 \xE0Z"},
  {"upper_goes_on_after_a_nul", bytes("a\0b"), [](IBuffer& b) { return b.upperCase(); }, bytes("A\0B")},
  {"upper_of_the_alphabet", "abcdefghijklmnopqrstuvwxyz", [](IBuffer& b) { return b.upperCase(); },
   "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
  {"translate_pads_a_short_output", "abc", [](IBuffer& b) { return b.translate("ab", 2, "x", 1, '-'); }, "x-c"},
  {"translate_by_the_first_of_equal_inputs", "abca", [](IBuffer& b) { return b.translate("aa", 2, "xy", 2, '-'); },
   "xbcx"},
  {"translate_ignores_surplus_output", "abc", [](IBuffer& b) { return b.translate("a", 1, "xyz", 3, '-'); }, "xbc"},
  {"translate_does_not_translate_again", "abc", [](IBuffer& b) { return b.translate("abc", 3, "bca", 3, '-'); }, "bca"},
  {"translate_without_output_pads", "abc", [](IBuffer& b) { return b.translate("ac", 2, "", 0, '-'); }, "-b-"},
  {"translate_without_input", "abc", [](IBuffer& b) { return b.translate("", 0, "xyz", 3, '-'); }, "abc"},
  {"translate_what_is_not_there", "abc", [](IBuffer& b) { return b.translate("xyz", 3, "abc", 3, '-'); }, "abc"},
  {"translate_of_nothing", "", [](IBuffer& b) { return b.translate("a", 1, "b", 1, '-'); }, ""},
};
INSTANTIATE_TEST_SUITE_P(EveryCharacter, BufferEditing, testing::ValuesIn(everyCharacter), nameOf);

TEST(BufferTranslate, ReplacesNulsAndByNuls)
{
  const Owned buffer(SingleByteBuffer::holding(bytes("a\0b")));
  EXPECT_TEXT(*Owned(buffer->translate("\0b", 2, "-\0", 2, ' ')), "a-\0");
}

// ---------------------------------------------------------------------------------------------------------------------
// Both ends

constexpr IStringEnum::StripMode leading = IStringEnum::leading;
constexpr IStringEnum::StripMode trailing = IStringEnum::trailing;
constexpr IStringEnum::StripMode both = IStringEnum::both;

const EditCase stripping[] = {
  {"leading", "  a b  ", [](IBuffer& b) { return b.strip(" ", 1, leading); }, "a b  "},
  {"trailing", "  a b  ", [](IBuffer& b) { return b.strip(" ", 1, trailing); }, "  a b"},
  {"both", "  a b  ", [](IBuffer& b) { return b.strip(" ", 1, both); }, "a b"},
  {"any_other_mode_is_both", "  a b  ",
   [](IBuffer& b) { return b.strip(" ", 1, static_cast<IStringEnum::StripMode>(3)); }, "a b"},
  {"a_set", "xyxaxyx", [](IBuffer& b) { return b.strip("yx", 2, both); }, "a"},
  {"an_empty_set_strips_nothing", "  a  ", [](IBuffer& b) { return b.strip("", 0, both); }, "  a  "},
  {"only_blanks_leading", "   ", [](IBuffer& b) { return b.strip(" ", 1, leading); }, ""},
  {"only_blanks_trailing", "   ", [](IBuffer& b) { return b.strip(" ", 1, trailing); }, ""},
  {"only_blanks_both", "   ", [](IBuffer& b) { return b.strip(" ", 1, both); }, ""},
  {"only_members_of_a_set_leading", "xyxy", [](IBuffer& b) { return b.strip("xy", 2, leading); }, ""},
  {"only_members_of_a_set_trailing", "xyxy", [](IBuffer& b) { return b.strip("xy", 2, trailing); }, ""},
  {"only_members_of_a_set_both", "xyxy", [](IBuffer& b) { return b.strip("xy", 2, both); }, ""},
  {"nothing_to_strip_leading", "a  ", [](IBuffer& b) { return b.strip(" ", 1, leading); }, "a  "},
  {"nothing_to_strip_trailing", "  a", [](IBuffer& b) { return b.strip(" ", 1, trailing); }, "  a"},
  {"nothing_to_strip_both", "a b", [](IBuffer& b) { return b.strip(" ", 1, both); }, "a b"},
  {"one_byte_kept", " a ", [](IBuffer& b) { return b.strip(" ", 1, both); }, "a"},
  {"no_text", "", [](IBuffer& b) { return b.strip(" ", 1, both); }, ""},
  {"nuls", bytes("\0\0a\0"), [](IBuffer& b) { return b.strip("\0", 1, both); }, "a"},
  {"by_test_leading", "12a34", [](IBuffer& b) { return b.strip(isdigit, leading); }, "a34"},
  {"by_test_trailing", "12a34", [](IBuffer& b) { return b.strip(isdigit, trailing); }, "12a"},
  {"by_test_both", "12a34", [](IBuffer& b) { return b.strip(isdigit, both); }, "a"},
  {"by_test_all_leading", "1234", [](IBuffer& b) { return b.strip(isdigit, leading); }, ""},
  {"by_test_all_trailing", "1234", [](IBuffer& b) { return b.strip(isdigit, trailing); }, ""},
  {"by_test_all_both", "1234", [](IBuffer& b) { return b.strip(isdigit, both); }, ""},
  {"by_test_nothing", "a1b", [](IBuffer& b) { return b.strip(isdigit, both); }, "a1b"},
};
INSTANTIATE_TEST_SUITE_P(Stripping, BufferEditing, testing::ValuesIn(stripping), nameOf);

// ---------------------------------------------------------------------------------------------------------------------
// Change

const EditCase changing[] = {
  {"shorter_everywhere", "aaaa", [](IBuffer& b) { return b.change("aa", 2, "b", 1, 1, largest); }, "bb"},
  {"shorter_once", "aaaa", [](IBuffer& b) { return b.change("aa", 2, "b", 1, 1, 1); }, "baa"},
  {"occurrences_do_not_overlap", "aaaaa", [](IBuffer& b) { return b.change("aa", 2, "b", 1, 1, largest); }, "bba"},
  {"longer", "abab", [](IBuffer& b) { return b.change("a", 1, "xyz", 3, 1, largest); }, "xyzbxyzb"},
  {"of_equal_length", "abcabc", [](IBuffer& b) { return b.change("bc", 2, "XY", 2, 1, largest); }, "aXYaXY"},
  {"of_equal_length_once", "abcabc", [](IBuffer& b) { return b.change("bc", 2, "XY", 2, 1, 1); }, "aXYabc"},
  {"to_nothing", "abcabc", [](IBuffer& b) { return b.change("bc", 2, "", 0, 1, largest); }, "aa"},
  {"all_to_nothing", "abab", [](IBuffer& b) { return b.change("ab", 2, "", 0, 1, largest); }, ""},
  {"an_empty_pattern_changes_nothing", "abc", [](IBuffer& b) { return b.change("", 0, "X", 1, 1, largest); }, "abc"},
  {"no_changes_change_nothing", "abc", [](IBuffer& b) { return b.change("a", 1, "X", 1, 1, 0); }, "abc"},
  {"from_0_means_1", "aba", [](IBuffer& b) { return b.change("a", 1, "XX", 2, 0, largest); }, "XXbXX"},
  {"from_a_position_on", "aba", [](IBuffer& b) { return b.change("a", 1, "XX", 2, 2, largest); }, "abXX"},
  {"from_past_the_end", "aba", [](IBuffer& b) { return b.change("a", 1, "XX", 2, 4, largest); }, "aba"},
  {"from_the_largest_position", "aba", [](IBuffer& b) { return b.change("a", 1, "XX", 2, largest, largest); }, "aba"},
  {"what_is_not_there", "abc", [](IBuffer& b) { return b.change("x", 1, "y", 1, 1, largest); }, "abc"},
  {"the_replacement_is_not_searched", "ab", [](IBuffer& b) { return b.change("a", 1, "aa", 2, 1, largest); }, "aab"},
  {"the_whole_text", "abc", [](IBuffer& b) { return b.change("abc", 3, "x", 1, 1, largest); }, "x"},
  {"nuls", bytes("a\0b\0"), [](IBuffer& b) { return b.change("\0", 1, "--", 2, 1, largest); }, "a--b--"},
  {"by_nuls", "abc", [](IBuffer& b) { return b.change("b", 1, "\0\0", 2, 1, largest); }, bytes("a\0\0c")},
  {"of_nothing", "", [](IBuffer& b) { return b.change("a", 1, "b", 1, 1, largest); }, ""},
};
INSTANTIATE_TEST_SUITE_P(Changing, BufferEditing, testing::ValuesIn(changing), nameOf);

// ---------------------------------------------------------------------------------------------------------------------
// What other kinds can rely on

/// Finds nothing, and every character to be kept in the middle.
class BlindBuffer : public SingleByteBuffer {
public:
  static BlindBuffer* holding(const std::string& text)
  {
    const unsigned length = static_cast<unsigned>(text.size());
    BlindBuffer* const buffer = new (length) BlindBuffer(length);
    std::memcpy(buffer->contents(), text.data(), length);
    return buffer;
  }

  unsigned indexOf(const char*, unsigned, unsigned) const override { return 0; }
  unsigned indexOf(const IStringTest&, unsigned) const override { return 0; }
  unsigned indexOfAnyOf(const char*, unsigned, unsigned) const override { return 0; }
  unsigned indexOfAnyOf(const IStringTest&, unsigned) const override { return 0; }
  unsigned indexOfAnyBut(const char*, unsigned, unsigned) const override { return 3; }
  unsigned indexOfAnyBut(const IStringTest&, unsigned) const override { return 3; }
  unsigned lastIndexOfAnyBut(const char*, unsigned, unsigned) const override { return 4; }
  unsigned lastIndexOfAnyBut(const IStringTest&, unsigned) const override { return 4; }

private:
  explicit BlindBuffer(unsigned newLen) : SingleByteBuffer(newLen) {}
};

TEST(EditingOfOtherKinds, SearchesWithTheirSearches)
{
  const Owned text(BlindBuffer::holding("AaBbAa"));
  EXPECT_EQ(Owned(text->change("a", 1, "x", 1, 1, largest)).get(), text.get());
  EXPECT_EQ(Owned(text->lowerCase()).get(), text.get());
  EXPECT_EQ(Owned(text->upperCase()).get(), text.get());
  EXPECT_EQ(Owned(text->translate("a", 1, "x", 1, ' ')).get(), text.get());
  EXPECT_TEXT(*Owned(text->strip("x", 1, both)), "Bb");
  EXPECT_TEXT(*Owned(text->strip(isdigit, both)), "Bb");
  EXPECT_TEXT(*Owned(text->strip("x", 1, leading)), "BbAa");
  EXPECT_TEXT(*Owned(text->strip("x", 1, trailing)), "AaBb");
  EXPECT_TEXT(*text, "AaBbAa", 1);
}

}  // namespace
