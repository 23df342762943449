// zero_based_test.cpp - I0String: the string whose positions count from 0, against the one that counts from 1.
#include "string_probe.hpp"
#include "support/expect_text.hpp"

#include <quelmcl/i0string.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <climits>
#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>

using namespace stringtests;

namespace {

constexpr unsigned none = 4294967295u;

// ---------------------------------------------------------------------------------------------------------------------
// Construction

TEST(ZeroBasedConstruction, TakesWhatAStringTakes)
{
  const unsigned char asUnsigned[] = {'x', 'y', 0};
  const signed char asSigned[] = {'z', 'w', 0};
  EXPECT_TEXT(I0String(), "");
  EXPECT_TEXT(I0String(nullptr), "");
  EXPECT_TEXT(I0String(-5), "-5");
  EXPECT_TEXT(I0String(0), "0");
  EXPECT_TEXT(I0String(UINT_MAX), "4294967295");
  EXPECT_TEXT(I0String(LONG_MIN), std::to_string(LONG_MIN));
  EXPECT_TEXT(I0String(ULONG_MAX), std::to_string(ULONG_MAX));
  EXPECT_TEXT(I0String(static_cast<short>(-1)), "-1");
  EXPECT_TEXT(I0String(static_cast<unsigned short>(65535)), "65535");
  EXPECT_TEXT(I0String(LLONG_MIN), "-9223372036854775808");
  EXPECT_TEXT(I0String(ULLONG_MAX), "18446744073709551615");
  EXPECT_TEXT(I0String(0.1), "0.1");
  EXPECT_TEXT(I0String('a'), "a");
  EXPECT_TEXT(I0String(static_cast<unsigned char>('b')), "b");
  EXPECT_TEXT(I0String(static_cast<signed char>('c')), "c");
  EXPECT_TEXT(I0String("abc"), "abc");
  EXPECT_TEXT(I0String(asUnsigned), "xy");
  EXPECT_TEXT(I0String(asSigned), "zw");
  EXPECT_TEXT(I0String("a\0b", 3), bytes("a\0b"));
  EXPECT_TEXT(I0String(nullptr, 3u, '*'), "***");
  EXPECT_TEXT(I0String(nullptr, 2u), "  ");
  EXPECT_TEXT(I0String("ab", 2, "cd", 2), "abcd");
  EXPECT_TEXT(I0String("ab", 2, nullptr, 2, '-'), "ab--");
  EXPECT_TEXT(I0String("ab", 2, "cd", 2, "ef", 2), "abcdef");
  EXPECT_TEXT(I0String("ab", 2, nullptr, 1, "ef", 2, '-'), "ab-ef");
  EXPECT_TEXT(I0String("abc", static_cast<std::size_t>(2)), "ab");
}

TEST(ZeroBasedConstruction, FromAStringSharesItsText)
{
  const IString source("abc");
  const I0String copy(source);
  const I0String another(copy);
  EXPECT_TRUE(shareText(source, copy));
  EXPECT_TRUE(shareText(source, another));
  EXPECT_EQ(useCountOf(source), 3u);
}

TEST(ZeroBasedConstruction, FromATemporaryTakesItsText)
{
  IString source("abc");
  const I0String taken(std::move(source));
  EXPECT_TEXT(taken, "abc");
  EXPECT_EQ(useCountOf(taken), 1u);
  EXPECT_TEXT(source, "");
}

TEST(ZeroBasedConstruction, MovesWithoutThrowing)
{
  static_assert(std::is_nothrow_move_constructible<I0String>::value, "a moved string allocates nothing");
  static_assert(std::is_nothrow_move_assignable<I0String>::value, "a moved string allocates nothing");
  I0String source("abc");
  I0String target(std::move(source));
  EXPECT_TEXT(target, "abc");
  EXPECT_TEXT(source, "");
  source = std::move(target);
  EXPECT_TEXT(source, "abc");
  EXPECT_TEXT(target, "");
  target += "x";
  EXPECT_TEXT(target, "x");
}

TEST(ZeroBasedConstruction, AssignsTextsOfEitherKind)
{
  I0String text("old");
  const I0String other("abc");
  EXPECT_EQ(&(text = other), &text);
  EXPECT_TEXT(text, "abc");
  text = IString("def");
  EXPECT_TEXT(text, "def");
  text = "ghi";
  EXPECT_TEXT(text, "ghi");
  EXPECT_EQ(&(text = std::string("j\0k", 3)), &text);
  EXPECT_TEXT(text, "j\0k");
  I0String& same = text;
  text = same;
  EXPECT_TEXT(text, "j\0k");
}

TEST(ZeroBasedConstruction, IsAStringWithAVirtualDestructor)
{
  static_assert(std::is_base_of<IString, I0String>::value, "a zero-based string is a string");
  static_assert(std::has_virtual_destructor<I0String>::value, "classes may be derived from it");
  static_assert(!std::is_polymorphic<IString>::value, "a plain string is one pointer");
  static_assert(sizeof(I0String) == 2 * sizeof(void*), "it adds a virtual-table pointer and nothing else");
  const IString shared("abc");
  const I0String* const owned = new I0String(shared);
  EXPECT_EQ(useCountOf(shared), 2u);
  delete owned;
  EXPECT_EQ(useCountOf(shared), 1u);
}

// ---------------------------------------------------------------------------------------------------------------------
// The shift

TEST(ZeroBasedShift, IsByOneAndWrapsAround)
{
  EXPECT_EQ(I0String::adjustArg(0u), 1u);
  EXPECT_EQ(I0String::adjustArg(none), 0u);
  EXPECT_EQ(I0String::adjustArg(4), 5);
  EXPECT_EQ(I0String::adjustArg(-1), 0);
  EXPECT_EQ(I0String::adjustArg(INT_MAX), INT_MIN);
  EXPECT_EQ(I0String::adjustResult(1u), 0u);
  EXPECT_EQ(I0String::adjustResult(0u), none);
  EXPECT_EQ(I0String::adjustResult(5), 4);
  EXPECT_EQ(I0String::adjustResult(0), -1);
  EXPECT_EQ(I0String::adjustResult(INT_MIN), INT_MAX);
}

TEST(ZeroBasedShift, NotFoundIsTheLargestUnsignedNumber)
{
  const unsigned* const address = &I0String::notFound;
  EXPECT_EQ(*address, none);
}

// ---------------------------------------------------------------------------------------------------------------------
// Single bytes and parts

TEST(ZeroBasedIndexing, CountsFromZeroInEveryIntegerType)
{
  const I0String constant("abc");
  I0String text("abc");
  EXPECT_EQ(constant[0], 'a');
  EXPECT_EQ(constant[0u], 'a');
  EXPECT_EQ(constant[0L], 'a');
  EXPECT_EQ(constant[0UL], 'a');
  EXPECT_EQ(constant[2], 'c');
  EXPECT_EQ(constant[2u], 'c');
  EXPECT_EQ(constant[2L], 'c');
  EXPECT_EQ(constant[2UL], 'c');
  EXPECT_EQ(text[0], 'a');
  EXPECT_EQ(text[1u], 'b');
  EXPECT_EQ(text[2L], 'c');
  EXPECT_EQ(text[1UL], 'b');
}

TEST(ZeroBasedIndexing, ReadingPastTheEndIsRefused)
{
  const I0String text("abc");
  EXPECT_EQ(errorIdOf([&] { (void)text[3]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[3u]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[3L]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[3UL]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[none - 1]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[INT_MAX]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[LONG_MAX]; }), pastEnd);
  EXPECT_EQ(errorIdOf([] {
              const I0String empty;
              (void)empty[0];
            }),
            pastEnd);
}

TEST(ZeroBasedIndexing, ANegativePositionThatStaysNegativeIsRefused)
{
  const I0String constant("abc");
  I0String text("abc");
  EXPECT_EQ(errorIdOf([&] { (void)constant[-2]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)constant[-2L]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[-2]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[-2L]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[INT_MIN]; }), pastEnd);
  EXPECT_EQ(errorIdOf([&] { (void)text[LONG_MIN]; }), pastEnd);
  EXPECT_TEXT(text, "abc");
}

TEST(ZeroBasedIndexing, WritesInPlaceUnsharesAndLengthens)
{
  I0String text("abc");
  const IString sharer(text);
  text[1] = 'X';
  EXPECT_TEXT(text, "aXc");
  EXPECT_TEXT(sharer, "abc");
  const char* const before = text;
  text[0u] = 'Y';
  EXPECT_EQ(static_cast<const char*>(text), before);
  text[4L] = 'Z';
  EXPECT_TEXT(text, "YXc Z");
  text[5UL] = '!';
  EXPECT_TEXT(text, "YXc Z!");
}

TEST(ZeroBasedIndexing, ShiftsTheTypeOfACharacterToo)
{
  const I0String text("abc");
  EXPECT_EQ(text.charType(0), IStringEnum::sbcs);
  EXPECT_EQ(text.charType(2), IStringEnum::sbcs);
}

TEST(ZeroBasedPart, IsAZeroBasedStringAgain)
{
  static_assert(std::is_same<decltype(std::declval<const I0String&>().subString(1, 2)), I0String>::value, "");
  static_assert(std::is_same<decltype(std::declval<const I0String&>().subString(1)), I0String>::value, "");
  const I0String text("abc");
  EXPECT_TEXT(text.subString(1, 2), "bc");
  EXPECT_EQ(text.subString(1, 2)[0], 'b');
}

TEST(ZeroBasedPart, CountsItsStartFromZero)
{
  const I0String text("abc");
  EXPECT_TEXT(text.subString(0), "abc");
  EXPECT_TEXT(text.subString(2), "c");
  EXPECT_TEXT(text.subString(3), "");
  EXPECT_TEXT(text.subString(0, 2), "ab");
  EXPECT_TEXT(text.subString(2, 3), "c  ");
  EXPECT_TEXT(text.subString(2, 3, '*'), "c**");
  EXPECT_TEXT(text.subString(9, 2, '.'), "..");
}

TEST(ZeroBasedPart, FromNotFoundWrapsAroundToTheFront)
{
  const I0String text("abc");
  EXPECT_TEXT(text.subString(none, 2), "ab");
  EXPECT_TEXT(text.subString(none), "abc ");
}

// ---------------------------------------------------------------------------------------------------------------------
// Searching

TEST(ZeroBasedSearch, GivesThePositionFromZeroOrNotFound)
{
  const I0String text("abc");
  EXPECT_EQ(text.indexOf('b'), 1u);
  EXPECT_EQ(text.indexOf('a'), 0u);
  EXPECT_EQ(text.indexOf('z'), I0String::notFound + 0u);
}

TEST(ZeroBasedSearch, ForwardBeginsAtTheFrontUnlessToldOtherwise)
{
  const I0String text("abcabc");
  EXPECT_EQ(text.indexOf(IString("a")), 0u);
  EXPECT_EQ(text.indexOf("bc"), 1u);
  EXPECT_EQ(text.indexOf('c'), 2u);
  EXPECT_EQ(text.indexOf(isalpha), 0u);
  EXPECT_EQ(text.indexOfAnyOf(IString("cb")), 1u);
  EXPECT_EQ(text.indexOfAnyOf("cb"), 1u);
  EXPECT_EQ(text.indexOfAnyOf('c'), 2u);
  EXPECT_EQ(text.indexOfAnyOf(isalpha), 0u);
  EXPECT_EQ(text.indexOfAnyBut(IString("ab")), 2u);
  EXPECT_EQ(text.indexOfAnyBut("ab"), 2u);
  EXPECT_EQ(text.indexOfAnyBut('a'), 1u);
  EXPECT_EQ(text.indexOfAnyBut(isdigit), 0u);
  EXPECT_EQ(text.occurrencesOf(IString("a")), 2u);
  EXPECT_EQ(text.occurrencesOf("bc"), 2u);
  EXPECT_EQ(text.occurrencesOf('c'), 2u);
  EXPECT_EQ(text.occurrencesOf(isalpha), 6u);
}

TEST(ZeroBasedSearch, BackwardBeginsAtTheEndUnlessToldOtherwise)
{
  const I0String text("abcabc");
  EXPECT_EQ(text.lastIndexOf(IString("a")), 3u);
  EXPECT_EQ(text.lastIndexOf("bc"), 4u);
  EXPECT_EQ(text.lastIndexOf('c'), 5u);
  EXPECT_EQ(text.lastIndexOf(isalpha), 5u);
  EXPECT_EQ(text.lastIndexOfAnyOf(IString("ab")), 4u);
  EXPECT_EQ(text.lastIndexOfAnyOf("ab"), 4u);
  EXPECT_EQ(text.lastIndexOfAnyOf('c'), 5u);
  EXPECT_EQ(text.lastIndexOfAnyOf(isalpha), 5u);
  EXPECT_EQ(text.lastIndexOfAnyBut(IString("bc")), 3u);
  EXPECT_EQ(text.lastIndexOfAnyBut("bc"), 3u);
  EXPECT_EQ(text.lastIndexOfAnyBut('c'), 4u);
  EXPECT_EQ(text.lastIndexOfAnyBut(isdigit), 5u);
}

TEST(ZeroBasedSearch, BackwardFromTheLastPositionOrAnyLargerOneSearchesAll)
{
  const I0String text("abcabc");
  EXPECT_EQ(text.lastIndexOf("bc", 5), 4u);
  EXPECT_EQ(text.lastIndexOf("bc", 6), 4u);
  EXPECT_EQ(text.lastIndexOf("bc", none - 1), 4u);
}

TEST(ZeroBasedSearch, BackwardFromNotFoundFindsNothing)
{
  const I0String text("abcabc");
  EXPECT_EQ(text.lastIndexOf("bc", none), none);
  EXPECT_EQ(text.lastIndexOf('a', none), none);
  EXPECT_EQ(text.lastIndexOfAnyOf("abc", none), none);
  EXPECT_EQ(text.lastIndexOfAnyBut("x", none), none);
  EXPECT_EQ(text.lastIndexOf(isalpha, none), none);
}

TEST(ZeroBasedSearch, ForwardFromNotFoundWrapsAroundToTheFront)
{
  const I0String text("abcabc");
  EXPECT_EQ(text.indexOf("bc", none), 1u);
  EXPECT_EQ(text.occurrencesOf('a', none), 2u);
}

/// Both classes are asked the same question; the answers must differ by the shift alone, also where it wraps around.
template <class Sought>
void expectShiftedSearches(const IString& oneBased, const Sought& sought)
{
  const I0String zeroBased(oneBased);
  const unsigned length = oneBased.length();
  for (const unsigned start : {0u, 1u, length / 2, length - 1, length, length + 1, none - 1, none}) {
    EXPECT_EQ(zeroBased.indexOf(sought, start), oneBased.indexOf(sought, start + 1) - 1) << start;
    EXPECT_EQ(zeroBased.indexOfAnyOf(sought, start), oneBased.indexOfAnyOf(sought, start + 1) - 1) << start;
    EXPECT_EQ(zeroBased.indexOfAnyBut(sought, start), oneBased.indexOfAnyBut(sought, start + 1) - 1) << start;
    EXPECT_EQ(zeroBased.lastIndexOf(sought, start), oneBased.lastIndexOf(sought, start + 1) - 1) << start;
    EXPECT_EQ(zeroBased.lastIndexOfAnyOf(sought, start), oneBased.lastIndexOfAnyOf(sought, start + 1) - 1) << start;
    EXPECT_EQ(zeroBased.lastIndexOfAnyBut(sought, start), oneBased.lastIndexOfAnyBut(sought, start + 1) - 1) << start;
    EXPECT_EQ(zeroBased.occurrencesOf(sought, start), oneBased.occurrencesOf(sought, start + 1)) << start;
  }
}

TEST(ZeroBasedSearch, IsTheOneBasedSearchShiftedForEveryKindOfArgument)
{
  const char* const nothing = nullptr;
  for (const std::string& sample : {bytes("abcabc"), bytes(""), bytes("a"), bytes("aa\0b 1")}) {
    const IString text = made(sample);
    expectShiftedSearches(text, IString("bc"));
    expectShiftedSearches(text, made(bytes("\0b")));
    expectShiftedSearches(text, IString());
    expectShiftedSearches(text, "a");
    expectShiftedSearches(text, "bc");
    expectShiftedSearches(text, "");
    expectShiftedSearches(text, nothing);
    expectShiftedSearches(text, 'b');
    expectShiftedSearches(text, '\0');
    expectShiftedSearches(text, IStringTest(isalpha));
  }
}

TEST(ZeroBasedWords, GiveThePositionFromZeroAndCountFromOne)
{
  const I0String text("first second first second");
  EXPECT_EQ(text.indexOfWord(1), 0u);
  EXPECT_EQ(text.indexOfWord(2), 6u);
  EXPECT_EQ(text.indexOfWord(0), none);
  EXPECT_EQ(text.indexOfWord(5), none);
  EXPECT_EQ(text.indexOfPhrase("first second"), 0u);
  EXPECT_EQ(text.indexOfPhrase("second"), 6u);
  EXPECT_EQ(text.indexOfPhrase("second", 3), 19u);
  EXPECT_EQ(text.indexOfPhrase("first second", 2), 13u);
  EXPECT_EQ(text.indexOfPhrase("third"), none);
}

TEST(ZeroBasedWords, AreInheritedWhereNoPositionIsInvolved)
{
  const I0String text("first second");
  EXPECT_EQ(text.numWords(), 2u);
  EXPECT_TEXT(text.word(2), "second");
  EXPECT_EQ(text.wordIndexOfPhrase("second"), 2u);
  EXPECT_EQ(text.lengthOfWord(1), 5u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Editing

TEST(ZeroBasedEditing, ReturnsTheStringItself)
{
  I0String text("abc");
  EXPECT_EQ(&text.change(IString("a"), IString("x")), &text);
  EXPECT_EQ(&text.change(IString("b"), "x"), &text);
  EXPECT_EQ(&text.change("c", IString("x")), &text);
  EXPECT_EQ(&text.change("x", "y"), &text);
  EXPECT_EQ(&text.insert(IString("a")), &text);
  EXPECT_EQ(&text.insert("b"), &text);
  EXPECT_EQ(&text.overlayWith(IString("c")), &text);
  EXPECT_EQ(&text.overlayWith("d", 1), &text);
  EXPECT_TEXT(text, "cdyyy");
  EXPECT_EQ(&text.remove(4), &text);
  EXPECT_EQ(&text.remove(0, 1), &text);
  EXPECT_TEXT(text, "dyy");
  EXPECT_EQ(&text.remove(none), &text);
}

TEST(ZeroBasedEditing, ChangesFromAPositionCountedFromZero)
{
  const I0String text("aaaa");
  EXPECT_TEXT(I0String(text).change("a", "b"), "bbbb");
  EXPECT_TEXT(I0String(text).change("a", "b", 0), "bbbb");
  EXPECT_TEXT(I0String(text).change("a", "b", 1), "abbb");
  EXPECT_TEXT(I0String(text).change("a", "b", 1, 2), "abba");
  EXPECT_TEXT(I0String(text).change("a", IString("xy"), 3), "aaaxy");
  EXPECT_TEXT(I0String(text).change(IString("aa"), "b", 1), "aba");
  EXPECT_TEXT(I0String(text).change(IString("aa"), IString(""), 2), "aa");
  EXPECT_TEXT(I0String(text).change("a", "b", 4), "aaaa");
  EXPECT_TEXT(I0String(text).change("a", "b", none), "bbbb");
  EXPECT_TEXT(I0String(text).change("a", "b", 0, 0), "aaaa");
}

TEST(ZeroBasedEditing, ChangesACopyInAllMixesOfTexts)
{
  const I0String text("aaaa");
  EXPECT_TEXT(I0String::change(text, "a", "b"), "bbbb");
  EXPECT_TEXT(I0String::change(text, IString("a"), "b", 1), "abbb");
  EXPECT_TEXT(I0String::change(text, "a", IString("b"), 1, 1), "abaa");
  EXPECT_TEXT(I0String::change(text, IString("a"), IString("b"), none), "bbbb");
  EXPECT_TEXT(text, "aaaa");
}

TEST(ZeroBasedEditing, InsertsBehindThePosition)
{
  const I0String text("abc");
  EXPECT_TEXT(I0String(text).insert("XY", 0), "aXYbc");
  EXPECT_TEXT(I0String(text).insert(IString("XY"), 2), "abcXY");
  EXPECT_TEXT(I0String(text).insert("XY", 4, '-'), "abc--XY");
  EXPECT_TEXT(I0String(text).insert("XY", 4), "abc  XY");
}

TEST(ZeroBasedEditing, InsertsInFrontFromNotFoundAndUnlessToldOtherwise)
{
  const I0String text("abc");
  EXPECT_TEXT(I0String(text).insert("XY", none), "XYabc");
  EXPECT_TEXT(I0String(text).insert("XY"), "XYabc");
  EXPECT_TEXT(I0String(text).insert(IString("XY")), "XYabc");
}

TEST(ZeroBasedEditing, OverlaysFromThePosition)
{
  const I0String text("abc");
  EXPECT_TEXT(I0String(text).overlayWith("XY"), "XYc");
  EXPECT_TEXT(I0String(text).overlayWith("XY", 0), "XYc");
  EXPECT_TEXT(I0String(text).overlayWith(IString("XY"), 2), "abXY");
  EXPECT_TEXT(I0String(text).overlayWith("XY", 5, '-'), "abc--XY");
  EXPECT_TEXT(I0String(text).overlayWith("XY", none), "XYc");
}

TEST(ZeroBasedRemove, IsFromThePosition)
{
  const I0String text("abcde");
  EXPECT_TEXT(I0String(text).remove(0), "");
  EXPECT_TEXT(I0String(text).remove(2), "ab");
  EXPECT_TEXT(I0String(text).remove(5), "abcde");
  EXPECT_TEXT(I0String(text).remove(0, 1), "bcde");
  EXPECT_TEXT(I0String(text).remove(1, 3), "ae");
  EXPECT_TEXT(I0String(text).remove(1, 100), "a");
  EXPECT_TEXT(I0String(text).remove(1, 0), "abcde");
}

TEST(ZeroBasedRemove, FromNotFoundLeavesTheTextAlone)
{
  I0String text("abcde");
  const IString sharer(text);
  EXPECT_TEXT(text.remove(none), "abcde");
  EXPECT_TEXT(text.remove(none, 2), "abcde");
  EXPECT_TEXT(text.remove(text.indexOf('x')), "abcde");
  EXPECT_TRUE(shareText(text, sharer));
}

TEST(ZeroBasedEditing, TheStaticFormsGiveACopy)
{
  const I0String text("abc");
  static_assert(std::is_same<decltype(I0String::insert(text, "X")), I0String>::value, "");
  static_assert(std::is_same<decltype(I0String::overlayWith(text, "X")), I0String>::value, "");
  static_assert(std::is_same<decltype(I0String::remove(text, 1)), I0String>::value, "");
  static_assert(std::is_same<decltype(I0String::change(text, "a", "b")), I0String>::value, "");
  EXPECT_TEXT(I0String::insert(text, "X"), "Xabc");
  EXPECT_TEXT(I0String::insert(text, "X", 0), "aXbc");
  EXPECT_TEXT(I0String::insert(text, IString("X"), 4, '-'), "abc--X");
  EXPECT_TEXT(I0String::overlayWith(text, "X"), "Xbc");
  EXPECT_TEXT(I0String::overlayWith(text, "X", 1), "aXc");
  EXPECT_TEXT(I0String::overlayWith(text, IString("X"), 4, '-'), "abc-X");
  EXPECT_TEXT(I0String::remove(text, 1), "a");
  EXPECT_TEXT(I0String::remove(text, none), "abc");
  EXPECT_TEXT(I0String::remove(text, 0, 1), "bc");
  EXPECT_TEXT(I0String::remove(text, none, 1), "abc");
  EXPECT_TEXT(text, "abc");
}

TEST(ZeroBasedEditing, LeavesTheOtherSharersTheirText)
{
  I0String text("abc");
  const IString sharer(text);
  text.change("b", "X").insert("Y", 0).overlayWith("Z", 3).remove(0, 1);
  EXPECT_TEXT(text, "YXZ");
  EXPECT_TEXT(sharer, "abc");
  EXPECT_EQ(useCountOf(sharer), 1u);
}

/// Whether a text of this class can be edited with others of its class, without naming IString.
template <class Text>
concept IsEditedWithItsLike = requires(Text text, const Text other)
{
  text.insert(other, 0);
  text.insert(other, 0u);
  text.overlayWith(other, 1);
  text.change(other, other, 1);
  text.change(other, other, 1, 2);
};

TEST(ZeroBasedEditing, TakesZeroBasedTextsAsArguments)
{
  EXPECT_TRUE(IsEditedWithItsLike<IString>);
  EXPECT_TRUE(IsEditedWithItsLike<I0String>);
}

TEST(ZeroBasedEditing, ReadsArgumentsInsideTheTextFirst)
{
  I0String inserted("abc");
  const IString& itself = inserted;
  inserted.insert(itself, 0);
  EXPECT_TEXT(inserted, "aabcbc");
  I0String overlaid("abc");
  overlaid.overlayWith(static_cast<char*>(overlaid), 1);
  EXPECT_TEXT(overlaid, "aabc");
  I0String changed("abc");
  changed.change("b", static_cast<char*>(changed));
  EXPECT_TEXT(changed, "aabcc");
}

TEST(ZeroBasedEditing, IsInheritedWhereNoPositionIsInvolved)
{
  I0String text("abc");
  text.upperCase();
  EXPECT_TEXT(text, "ABC");
  text += "D";
  EXPECT_TEXT(text, "ABCD");
  EXPECT_TEXT(text + "E", "ABCDE");
  EXPECT_TEXT(IString::lowerCase(text), "abcd");
  EXPECT_TRUE(text == "ABCD");
}

TEST(ZeroBasedEditing, RefusesLengthsThatNoStringCanHave)
{
  I0String text("abc");
  EXPECT_EQ(errorIdOf([&] { text.insert("x", none - 1); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text.overlayWith("x", none - 1); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text[none - 1] = 'x'; }), tooLong);
  EXPECT_TEXT(text, "abc");
}

}  // namespace
