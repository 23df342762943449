// narrow_test.cpp - lengths at 32 bits, where the heap gives no block of more than 2 GiB: a longest text that works, lengths that are a
// question of storage, and lengths that no text can have.
#include "outcome.hpp"
#include "support/sanitizer_heap.hpp"

#ifndef QUELMCL_HEAP_OF_A_SANITIZER

using namespace limittests;

namespace {

/// What a block of the heap can hold at most, less what stands beside the text in it.
constexpr unsigned longestHere = 2147483634u;

TEST(LongestTextHere, WorksLikeAnyOther)
{
  QUELMCL_NEEDS_MEGABYTES(2500u);
  IString text(nullptr, longestHere, 'x');
  ASSERT_EQ(text.length(), longestHere);
  text[longestHere] = 'z';
  EXPECT_EQ(text.indexOf('z'), longestHere);
  EXPECT_EQ(text.lastIndexOf('x'), longestHere - 1);
  EXPECT_EQ(static_cast<const char*>(text)[longestHere], '\0');
  text.upperCase();
  EXPECT_EQ(text.indexOfAnyBut("X"), longestHere);
  EXPECT_EQ(text.remove(2), "X");
}

TEST(LongestTextHere, IsFollowedByLengthsThatAreAQuestionOfStorage)
{
  for (const unsigned length : {longestHere + 1, longestHere + 2, 2147483647u, 2147483648u, 3000000000u, longest})
    EXPECT_EQ(errorIdOf([length] { const IString text(nullptr, length, 'x'); }), outOfMemory) << length;
  for (const unsigned length : {longest + 1, longest + 2, 4294967294u, 4294967295u})
    EXPECT_EQ(errorIdOf([length] { const IString text(nullptr, length, 'x'); }), tooLong) << length;
}

/// An operation on a text; the length of its result is a text's longest, and one that no text can have.
struct Bound {
  const char* name;
  IString (*reaching)(unsigned past);
};

class BoundHere : public testing::TestWithParam<Bound> {};

TEST_P(BoundHere, IsAQuestionOfStorageUpToTheLongestTextAndOfLengthBeyond)
{
  QUELMCL_NEEDS_MEGABYTES(3000u);
  EXPECT_EQ(errorIdOf([] { GetParam().reaching(0); }), outOfMemory);
  EXPECT_EQ(errorIdOf([] { GetParam().reaching(1); }), tooLong);
}

const IString abc("abc");

const Bound bounds[] = {
  {"centred", [](unsigned past) { return IString::center(abc, longest + past); }},
  {"on_the_left", [](unsigned past) { return IString::leftJustify(abc, longest + past); }},
  {"on_the_right", [](unsigned past) { return IString::rightJustify(abc, longest + past); }},
  {"inserted", [](unsigned past) { return IString::insert(abc, "XY", longest - 2 + past); }},
  {"laid_over", [](unsigned past) { return IString::overlayWith(abc, "XY", longest - 1 + past); }},
  {"a_part", [](unsigned past) { return abc.subString(2, longest + past); }},
  {"copies", [](unsigned past) { return IString::copy(IString("x"), longest + past); }},
  {"spaces", [](unsigned past) { return IString::space(IString("a b"), longest - 2 + past); }},
  {"joined",
   [](unsigned past) {
     const IString half(nullptr, 1073741818u, 'x');
     return IString(static_cast<const char*>(half), half.length(), nullptr, longest - half.length() + past, '-');
   }},
  {"changed",
   [](unsigned past) {
     const IString replacement(nullptr, 65535, 'x');
     return IString::change(IString(nullptr, 65536, 'a') + IString(nullptr, longest - 65535u * 65536u + past, 'b'), "a",
                            replacement);
   }},
  {"binary_digits", [](unsigned past) { return IString::c2b(IString(nullptr, longest / 8 + past, 'x')); }},
  {"decimal_digits_of_a_zero", [](unsigned past) { return IString::c2d(IString(nullptr, 1431655761u + past, '\0')); }},
  {"decimal_digits", [](unsigned past) { return IString::c2d(IString(nullptr, 1431655758u + past, '\xFF')); }},
};

INSTANTIATE_TEST_SUITE_P(Rows, BoundHere, testing::ValuesIn(bounds),
                         [](const testing::TestParamInfo<Bound>& row) { return std::string(row.param.name); });

TEST(BoundHere, OfAChangeLeavesTheTextAlone)
{
  QUELMCL_NEEDS_MEGABYTES(3000u);
  IString text(nullptr, 1073741824u, 'x');
  text[1] = 'y';
  EXPECT_EQ(errorIdOf([&] { text.copy(2); }), outOfMemory);
  EXPECT_EQ(errorIdOf([&] { text.copy(4); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text += text; }), outOfMemory);
  EXPECT_EQ(text.length(), 1073741824u);
  EXPECT_EQ(text.indexOf('x'), 2u);
  EXPECT_EQ(text.indexOfAnyBut("x", 2), 0u);
}

}  // namespace

#endif
