// editing_promises_test.cpp - IString: what every operation that edits promises, whatever it does: sharers keep their text, a failure
// leaves everything as it was, nothing is copied that need not be, what is too long is refused, arguments may lie inside the text.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <functional>
#include <string>
#include <vector>

using namespace stringtests;

namespace {

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

}  // namespace
