// length_limits_test.cpp - buffers: lengths that no text can have. What they come from is left as it was.
#include "buffer_probe.hpp"
#include "exceptions/hooks.hpp"
#include "support/captured_stderr.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"

#include <quelmcl/ibase.hpp>
#include <quelmcl/iexcbase.hpp>
#include <quelmcl/imsgtext.hpp>

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>

using namespace buffertests;
using quelmcl_test::FailingAllocations;

namespace {

/// Keeps the reports of the expected exceptions off the screen.
class LengthLimits : public testing::Test {
protected:
  CountingHook hook;

private:
  InstalledHook installed{hook};
};

// ---------------------------------------------------------------------------------------------------------------------
// Arithmetic

struct SumCase {
  const char* name;
  unsigned a;
  unsigned b;
  bool fits;
};

class CheckAddition : public LengthLimits, public testing::WithParamInterface<SumCase> {};

TEST_P(CheckAddition, AddsOrThrows)
{
  const SumCase& row = GetParam();
  unsigned sum = 0;
  EXPECT_EQ(errorIdOf([&] { sum = IBuffer::checkAddition(row.a, row.b); }), row.fits ? 0 : tooLong);
  EXPECT_EQ(sum, row.fits ? row.a + row.b : 0u);
}

const SumCase sums[] = {
  {"nothing_and_nothing", 0, 0, true},
  {"small_numbers", 2, 3, true},
  {"the_largest_sum_with_room_for_a_nul", 4294967289u, 5, true},
  {"a_sum_without_room_for_a_nul", 4294967290u, 5, false},
  {"a_sum_that_wraps_around_to_nothing", 4294967291u, 5, false},
  {"the_same_the_other_way_round", 5, 4294967290u, false},
  {"the_largest_length_and_nothing", 4294967294u, 0, true},
  {"nothing_and_the_largest_length", 0, 4294967294u, true},
  {"the_largest_number_and_nothing", 4294967295u, 0, false},
  {"nothing_and_the_largest_number", 0, 4294967295u, false},
  {"twice_the_largest_number", 4294967295u, 4294967295u, false},
  {"two_halves_that_fit", 2147483647u, 2147483647u, true},
  {"two_halves_that_do_not", 2147483648u, 2147483647u, false},
};

INSTANTIATE_TEST_SUITE_P(Rows, CheckAddition, testing::ValuesIn(sums),
                         [](const testing::TestParamInfo<SumCase>& row) { return std::string(row.param.name); });

struct ProductCase {
  const char* name;
  unsigned a;
  unsigned b;
  bool fits;
};

class CheckMultiplication : public LengthLimits, public testing::WithParamInterface<ProductCase> {};

TEST_P(CheckMultiplication, MultipliesOrThrows)
{
  const ProductCase& row = GetParam();
  unsigned product = 0;
  EXPECT_EQ(errorIdOf([&] { product = IBuffer::checkMultiplication(row.a, row.b); }), row.fits ? 0 : tooLong);
  EXPECT_EQ(product, row.fits ? row.a * row.b : 0u);
}

const ProductCase products[] = {
  {"nothing_times_something", 0, 7, true},
  {"small_numbers", 6, 7, true},
  {"the_largest_length_once", 4294967294u, 1, true},
  {"the_largest_number_once", 4294967295u, 1, false},
  {"below_half_of_the_largest_number_twice", 2147483646u, 2, true},
  {"half_of_the_largest_number_twice", 2147483647u, 2, false},
  {"one_time_the_largest_number", 1, 4294967295u, false},
  {"nothing_times_the_largest_number", 0, 4294967295u, true},
  {"just_below_a_square", 65534, 65537, true},
  {"a_product_of_exactly_the_largest_number", 65535, 65537, false},
  {"the_bound_is_rounded_down", 429496728, 10, true},
  {"and_reached_below_the_largest_number", 429496729, 10, false},
  {"a_product_that_wraps_around", 65536, 65536, false},
};

INSTANTIATE_TEST_SUITE_P(Rows, CheckMultiplication, testing::ValuesIn(products),
                         [](const testing::TestParamInfo<ProductCase>& row) { return std::string(row.param.name); });

// ---------------------------------------------------------------------------------------------------------------------
// The exception

TEST_F(LengthLimits, AreReportedByARecoverableInvalidRequestThatSaysWhere)
{
  bool isCaught = false;
  try {
    IBuffer::overflow();
  } catch (const IInvalidRequest& failure) {
    isCaught = true;
    EXPECT_EQ(failure.errorId(), 1010u);
    EXPECT_TRUE(failure.isRecoverable());
    ASSERT_EQ(failure.locationCount(), 1u);
    EXPECT_STREQ(failure.locationAtIndex(0)->fileName(), "ibuffer0");
    EXPECT_EQ(failure.locationAtIndex(0)->lineNumber(), 557u);
    EXPECT_STREQ(failure.locationAtIndex(0)->functionName(), "Unknown");  // none was given
  }
  EXPECT_TRUE(isCaught);
  EXPECT_EQ(hook.reports, 1);
}

TEST_F(LengthLimits, CarryTheTextOfMessage1010)
{
  const std::string expected = IBase::messageText(1010).text();
  ASSERT_FALSE(expected.empty());
  std::string text;
  try {
    IBuffer::overflow();
  } catch (const IInvalidRequest& failure) {
    text = failure.text();
  }
  EXPECT_EQ(text, expected);
}

// ---------------------------------------------------------------------------------------------------------------------
// Blocks

TEST_F(LengthLimits, OfABlockAreNoQuestionOfMemory)
{
  const quelmcl_test::CapturedStandardError report;  // without storage it goes there whatever the hook
  unsigned long id = 0;
  {
    FailingAllocations scope(1);
    id = errorIdOf([] { IBuffer::operator delete(IBuffer::operator new(sizeof(IBuffer), longestText + 1)); });
  }
  EXPECT_EQ(id, tooLong);
}

TEST_F(LengthLimits, LetTheHeapDecideAboutTheLongestText)
{
  bool isOutOfMemory = false;
  unsigned long id = 0;
  {
    FailingAllocations scope(1);  // so that nobody really gives four gigabytes
    try {
      id = errorIdOf([] { IBuffer::operator delete(IBuffer::operator new(sizeof(IBuffer), longestText)); });
    } catch (const IOutOfMemory&) {
      isOutOfMemory = true;
    }
  }
  EXPECT_EQ(id, 0u);
  EXPECT_TRUE(isOutOfMemory);
}

// ---------------------------------------------------------------------------------------------------------------------
// Operations

using Operation = std::function<IBuffer*(IBuffer&)>;

struct LimitCase {
  const char* name;
  std::string text;
  Operation run;
};

class TooLong : public LengthLimits, public testing::WithParamInterface<LimitCase> {};

TEST_P(TooLong, IsRefusedAndChangesNothing)
{
  const LimitCase& row = GetParam();
  for (const bool isShared : {false, true}) {
    const Owned buffer(SingleByteBuffer::holding(row.text));
    if (isShared)
      buffer->addRef();
    const int aliveBefore = SingleByteBuffer::alive;
    EXPECT_EQ(errorIdOf([&] { row.run(*buffer)->removeRef(); }), tooLong);
    EXPECT_TEXT(*buffer, row.text, isShared ? 2u : 1u);
    EXPECT_EQ(SingleByteBuffer::alive, aliveBefore);
    if (isShared)
      buffer->removeRef();
  }
}

TEST_P(TooLong, IsRefusedByBuffersOfThisProcess)
{
  const LimitCase& row = GetParam();
  const Owned buffer(ofThisProcess(row.text));
  EXPECT_EQ(errorIdOf([&] { row.run(*buffer)->removeRef(); }), tooLong);
  EXPECT_TEXT(*buffer, row.text);
}

const std::string many(2200000, 'a');

const LimitCase limitCases[] = {
  {"two_pieces_that_do_not_add_up", "abc",
   [](IBuffer& b) { return b.newBuffer(nullptr, 4294967290u, nullptr, 5, nullptr, 0, ' '); }},
  {"a_third_piece_that_is_too_much", "abc",
   [](IBuffer& b) { return b.newBuffer(nullptr, 4294967000u, nullptr, 200, nullptr, 95, ' '); }},
  {"pieces_that_wrap_around_to_nothing", "abc",
   [](IBuffer& b) { return b.newBuffer(nullptr, 2147483648u, nullptr, 2147483648u, nullptr, 0, ' '); }},
  {"pieces_that_add_up_to_more_than_a_block_holds", "abc",
   [](IBuffer& b) { return b.newBuffer(nullptr, 4294967270u, nullptr, 4, nullptr, 1, ' '); }},
  {"a_buffer_of_more_than_a_block_holds", "abc", [](IBuffer& b) { return b.allocate(longestText + 1); }},
  {"a_buffer_of_the_largest_number", "abc", [](IBuffer& b) { return b.allocate(largest); }},
  {"copies_whose_product_is_too_large", "ab", [](IBuffer& b) { return b.copy(2147483648u); }},
  {"copies_whose_product_fits_a_number_only", "ab", [](IBuffer& b) { return b.copy(2147483647u); }},
  {"the_largest_number_of_copies", "abc", [](IBuffer& b) { return b.copy(largest); }},
  {"the_largest_number_of_copies_of_a_byte", "a", [](IBuffer& b) { return b.copy(largest); }},
  {"copies_that_wrap_around_to_nothing", std::string(65536, 'a'), [](IBuffer& b) { return b.copy(65536); }},
  {"one_copy_more_than_a_block_holds", "a", [](IBuffer& b) { return b.copy(longestText + 1); }},
  {"centred_in_the_largest_number", "abc", [](IBuffer& b) { return b.center(largest, ' '); }},
  {"centred_in_more_than_a_block_holds", "abc", [](IBuffer& b) { return b.center(longestText + 1, ' '); }},
  {"on_the_left_of_the_largest_number", "abc", [](IBuffer& b) { return b.leftJustify(largest, ' '); }},
  {"on_the_left_of_more_than_a_block_holds", "abc", [](IBuffer& b) { return b.leftJustify(longestText + 1, ' '); }},
  {"on_the_right_of_the_largest_number", "abc", [](IBuffer& b) { return b.rightJustify(largest, ' '); }},
  {"on_the_right_of_more_than_a_block_holds", "abc", [](IBuffer& b) { return b.rightJustify(longestText + 1, ' '); }},
  {"inserted_at_the_largest_number", "abc", [](IBuffer& b) { return b.insert("XY", 2, largest, ' '); }},
  {"inserted_so_that_the_sum_wraps_around", "abc", [](IBuffer& b) { return b.insert("XY", 2, largest - 1, ' '); }},
  {"nothing_inserted_at_the_largest_number", "abc", [](IBuffer& b) { return b.insert("", 0, largest, ' '); }},
  {"inserted_one_byte_too_far", "abc", [](IBuffer& b) { return b.insert("XY", 2, longestText - 1, ' '); }},
  {"laid_over_at_the_largest_number", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, largest, ' '); }},
  {"nothing_laid_over_at_the_largest_number", "abc", [](IBuffer& b) { return b.overlayWith("", 0, largest, ' '); }},
  {"laid_over_one_byte_too_far", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, longestText, ' '); }},
  {"a_part_of_the_largest_number", "abc", [](IBuffer& b) { return b.subString(1, largest, ' '); }},
  {"a_part_of_the_largest_number_from_past_the_end", "abc", [](IBuffer& b) { return b.subString(9, largest, ' '); }},
  {"a_part_of_more_than_a_block_holds", "abc", [](IBuffer& b) { return b.subString(2, longestText + 1, ' '); }},
  {"changes_that_lengthen_the_text_too_often", std::string(2000, 'a'),
   [](IBuffer& b) { return b.change("a", 1, many.data(), static_cast<unsigned>(many.size()), 1, largest); }},
  {"changes_that_wrap_around_to_a_short_text", std::string(4096, 'a'),
   [](IBuffer& b) { return b.change("a", 1, many.data(), 1048577, 1, largest); }},
};

INSTANTIATE_TEST_SUITE_P(Rows, TooLong, testing::ValuesIn(limitCases),
                         [](const testing::TestParamInfo<LimitCase>& row) { return std::string(row.param.name); });

class LongestOfAll : public LengthLimits, public testing::WithParamInterface<LimitCase> {};

// These lengths a text may have; only the heap, which is made to refuse here, stands against them.
TEST_P(LongestOfAll, IsAQuestionOfMemoryOnly)
{
  const LimitCase& row = GetParam();
  const Owned buffer(SingleByteBuffer::holding(row.text));
  bool isOutOfMemory = false;
  unsigned long id = 0;
  {
    FailingAllocations scope(1);
    try {
      id = errorIdOf([&] { row.run(*buffer)->removeRef(); });
    } catch (const IOutOfMemory&) {
      isOutOfMemory = true;
    }
  }
  EXPECT_EQ(id, 0u);
  EXPECT_TRUE(isOutOfMemory);
  EXPECT_TEXT(*buffer, row.text, 1);
}

const LimitCase longestCases[] = {
  {"three_pieces", "abc", [](IBuffer& b) { return b.newBuffer(nullptr, 4294967270u, nullptr, 3, nullptr, 1, ' '); }},
  {"a_buffer", "abc", [](IBuffer& b) { return b.allocate(longestText); }},
  {"copies", "a", [](IBuffer& b) { return b.copy(longestText); }},
  {"centred", "abc", [](IBuffer& b) { return b.center(longestText, ' '); }},
  {"on_the_left", "abc", [](IBuffer& b) { return b.leftJustify(longestText, ' '); }},
  {"on_the_right", "abc", [](IBuffer& b) { return b.rightJustify(longestText, ' '); }},
  {"inserted", "abc", [](IBuffer& b) { return b.insert("XY", 2, longestText - 2, ' '); }},
  {"laid_over", "abc", [](IBuffer& b) { return b.overlayWith("XY", 2, longestText - 1, ' '); }},
  {"a_part", "abc", [](IBuffer& b) { return b.subString(2, longestText, ' '); }},
};

INSTANTIATE_TEST_SUITE_P(Rows, LongestOfAll, testing::ValuesIn(longestCases),
                         [](const testing::TestParamInfo<LimitCase>& row) { return std::string(row.param.name); });

}  // namespace
