// builder_test.cpp - IStringBuilder: appending, growth, shorter texts, handing over, sharing, limits, failures.
#include "exceptions/hooks.hpp"
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/i0string.hpp>
#include <quelmcl/istrbld.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

using namespace stringtests;
using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;
using quelmcl_test::RandomTexts;

namespace {

constexpr unsigned longestText = 4294967274u;

/// The text of a builder, whose length and NUL are checked on the way.
std::string built(const IStringBuilder& builder)
{
  EXPECT_EQ(builder.text()[builder.length()], '\0');
  EXPECT_EQ(builder.end() - builder.begin(), static_cast<std::ptrdiff_t>(builder.size()));
  EXPECT_GE(builder.capacity(), builder.length());
  return std::string(builder.text(), builder.length());
}

/// Makes what is made once for a whole process before allocations are counted.
void warmUp()
{
  IBase::messageFile();
  IBuffer::defaultBuffer();
  const IString first;
}

// ---------------------------------------------------------------------------------------------------------------------
// Appending

TEST(BuilderAppend, ANewBuilderIsEmptyAndTakesNoStorage)
{
  warmUp();
  const AllocationWatch watch;
  const IStringBuilder builder;
  EXPECT_EQ(watch.allocations(), 0u);
  EXPECT_EQ(built(builder), "");
  EXPECT_EQ(builder.capacity(), 0u);
}

TEST(BuilderAppend, ChainsPieces)
{
  IStringBuilder builder;
  builder.append("name=").append(IString("x")).append(',').append(42).append(1.5);
  EXPECT_EQ(built(builder), "name=x,421.5");
}

TEST(BuilderAppend, TakesTextsWithLengthsAndTheirNuls)
{
  IStringBuilder builder;
  builder.append("a\0b", 3).append("", 0).append("c\0", 2u);
  EXPECT_EQ(built(builder), bytes("a\0bc\0"));
}

TEST(BuilderAppend, TakesTwoAndThreePieces)
{
  IStringBuilder builder;
  builder.append("ab", 2, "cd", 1).append("x", 1, nullptr, 2, "yz", 2, '*');
  EXPECT_EQ(built(builder), "abcx**yz");
}

TEST(BuilderAppend, PadsWhereThePointerIsNull)
{
  const void* const nothing = nullptr;
  IStringBuilder builder;
  builder.append(nothing, 2u).append(nothing, 3, '-').appendPadding(2).appendPadding(1, '+').appendPadding(0, '!');
  EXPECT_EQ(built(builder), "  ---  +");
}

TEST(BuilderAppend, NullTextsAndEmptyOnesChangeNothing)
{
  const char* const nothing = nullptr;
  warmUp();
  const AllocationWatch watch;
  IStringBuilder builder;
  builder.append(nothing).append(nullptr).append("").append(IString()).append(IStringBuilder());
  EXPECT_EQ(watch.allocations(), 0u);
  EXPECT_EQ(built(builder), "");
}

TEST(BuilderAppend, TakesTextsOfTheStandardLibraryWhole)
{
  IStringBuilder builder;
  builder.append(bytes("a\0b")).append(std::string_view("cde", 2));
  builder += std::string("f");
  EXPECT_EQ(built(builder), bytes("a\0bcdf"));
}

TEST(BuilderAppend, TakesZeroBasedStringsAndBuilders)
{
  IStringBuilder other;
  other.append("two");
  IStringBuilder builder;
  builder.append(I0String("one,")).append(other);
  EXPECT_EQ(built(builder), "one,two");
}

TEST(BuilderAppend, TakesTextsOfEveryCharacterType)
{
  const unsigned char unsignedText[] = {'a', 'b', 0};
  const signed char signedText[] = {'c', 0};
  char writable[8] = "d";
  IStringBuilder builder;
  builder.append(unsignedText).append(signedText).append(writable);
  builder.append(static_cast<unsigned char>('e')).append(static_cast<signed char>('f'));
  EXPECT_EQ(built(builder), "abcdef");
}

TEST(BuilderAppend, PlusEqualsAppendsTheSame)
{
  IStringBuilder builder;
  builder += "a";
  builder += 'b';
  builder += 5;
  builder += IString("c");
  builder += 0;
  builder += builder;
  EXPECT_EQ(built(builder), "ab5c0ab5c0");
}

/// Whether a builder spells the number as a string made from it does.
template <class Number>
void expectSpelledAsByAString(Number number)
{
  IStringBuilder builder;
  builder.append("<").append(number).append(">");
  EXPECT_EQ(built(builder), "<" + bytesOf(IString(number)) + ">");
}

template <class Integer>
void expectIntegersSpelledAsByAString()
{
  for (const Integer number : {std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max(), Integer{0},
                               static_cast<Integer>(-1), Integer{7}})
    expectSpelledAsByAString(number);
}

TEST(BuilderAppend, SpellsNumbersAsAStringDoes)
{
  expectIntegersSpelledAsByAString<int>();
  expectIntegersSpelledAsByAString<unsigned>();
  expectIntegersSpelledAsByAString<short>();
  expectIntegersSpelledAsByAString<unsigned short>();
  expectIntegersSpelledAsByAString<long>();
  expectIntegersSpelledAsByAString<unsigned long>();
  expectIntegersSpelledAsByAString<long long>();
  expectIntegersSpelledAsByAString<unsigned long long>();
  for (const double number : {0.1, 1.0 / 3, -1e300, 1e-300, 1e20, 3.0, 123456789.0, -0.0})
    expectSpelledAsByAString(number);
  expectSpelledAsByAString(0.5f);
  expectSpelledAsByAString(true);
}

TEST(BuilderAppend, SpellsTheExtremesInDigits)
{
  IStringBuilder builder;
  builder.append(LLONG_MIN).append(' ').append(ULLONG_MAX).append(' ').append(0.1).append(' ').append(1e20);
  EXPECT_EQ(built(builder), "-9223372036854775808 18446744073709551615 0.1 1e+20");
}

TEST(BuilderAppend, TakesAPartOfItselfAlsoWhileItGrows)
{
  for (const unsigned offset : {0u, 1u, 20u, 46u}) {
    IStringBuilder builder;
    std::string model;
    while (model.size() < 47)
      model += static_cast<char>('a' + model.size() % 26);
    builder.append(model);
    ASSERT_EQ(builder.capacity(), builder.length()) << "the next piece makes it grow";
    builder.append(builder.text() + offset, builder.length() - offset);
    model += model.substr(offset);
    EXPECT_EQ(built(builder), model);
    builder.append(builder).append(builder.text());
    EXPECT_EQ(built(builder), model + model + model + model);
  }
}

TEST(BuilderAppend, TakesPiecesOfItselfBesideOthersWhileItGrows)
{
  IStringBuilder builder;
  builder.append("abc").reserve(3);
  builder.append(builder.text(), 2, "-", 1, builder.text() + 1, 2);
  EXPECT_EQ(built(builder), "abcab-bc");
}

// ---------------------------------------------------------------------------------------------------------------------
// Growth

TEST(BuilderGrowth, AMillionPiecesTakeAFewBlocks)
{
  warmUp();
  const AllocationWatch watch;
  IStringBuilder builder;
  for (unsigned count = 0; count < 1000000; ++count)
    builder.append("12345678", 8);
  EXPECT_EQ(builder.length(), 8000000u);
  EXPECT_LE(watch.allocations(), 20u);
  EXPECT_EQ(watch.liveBlocks(), 1);
  EXPECT_LE(builder.capacity(), 2 * builder.length());
}

TEST(BuilderGrowth, ReserveTakesExactlyThatMuchAndOnce)
{
  warmUp();
  const AllocationWatch watch;
  IStringBuilder builder;
  builder.reserve(1000);
  EXPECT_EQ(builder.capacity(), 1000u);
  for (unsigned count = 0; count < 1000; ++count)
    builder.append('x');
  EXPECT_EQ(watch.allocations(), 1u);
  EXPECT_EQ(builder.capacity(), 1000u);
  builder.append('x');
  EXPECT_EQ(watch.allocations(), 2u);
  EXPECT_EQ(built(builder), std::string(1001, 'x'));
}

TEST(BuilderGrowth, ReserveKeepsTheTextAndNeverShrinks)
{
  IStringBuilder builder;
  builder.append("abc").reserve(500).reserve(10).reserve(0);
  EXPECT_EQ(builder.capacity(), 500u);
  EXPECT_EQ(built(builder), "abc");
}

// ---------------------------------------------------------------------------------------------------------------------
// Shorter texts

TEST(BuilderTruncate, RemovesTheEndAndKeepsTheStorage)
{
  IStringBuilder builder;
  builder.append("abcdef").reserve(100).truncate(4);
  EXPECT_EQ(built(builder), "abcd");
  EXPECT_EQ(builder.capacity(), 100u);
  builder.truncate(4).truncate(5).truncate(largest);
  EXPECT_EQ(built(builder), "abcd");
  builder.truncate(0);
  EXPECT_EQ(built(builder), "");
  EXPECT_EQ(builder.capacity(), 100u);
}

TEST(BuilderClear, KeepsTheStorageForTheNextText)
{
  warmUp();
  IStringBuilder builder;
  builder.append("a first text that is longer than the second").clear();
  EXPECT_EQ(built(builder), "");
  const AllocationWatch watch;
  builder.append("second");
  EXPECT_EQ(built(builder), "second");
  EXPECT_EQ(watch.allocations(), 0u);
}

TEST(BuilderClear, OfAnEmptyBuilderDoesNothing)
{
  IStringBuilder builder;
  EXPECT_EQ(built(builder.clear().truncate(0)), "");
}

// ---------------------------------------------------------------------------------------------------------------------
// Handing over

TEST(BuilderHandOver, GivesTheBlockItselfAway)
{
  warmUp();
  IStringBuilder builder;
  builder.append("abc");
  const char* const bytesOfBuilder = builder.text();
  const AllocationWatch watch;
  const IString text = builder.handOver();
  EXPECT_EQ(watch.allocations(), 0u);
  EXPECT_EQ(static_cast<const char*>(text), bytesOfBuilder);
  EXPECT_TEXT(text, "abc", 1);
}

TEST(BuilderHandOver, LeavesAnEmptyBuilderThatCanBeUsedOn)
{
  IStringBuilder builder;
  builder.append("abc");
  const IString first = builder.handOver();
  EXPECT_EQ(built(builder), "");
  EXPECT_EQ(builder.capacity(), 0u);
  builder.append("def");
  const IString second = builder.handOver();
  EXPECT_TEXT(first, "abc", 1);
  EXPECT_TEXT(second, "def", 1);
}

TEST(BuilderHandOver, OfNoTextIsTheSharedEmptyStringAndKeepsTheStorage)
{
  IStringBuilder builder;
  EXPECT_TRUE(shareText(builder.handOver(), IString()));
  builder.reserve(100);
  EXPECT_TRUE(shareText(builder.handOver(), IString()));
  builder.append("abc").clear();
  EXPECT_TRUE(shareText(builder.handOver(), IString()));
  EXPECT_EQ(builder.capacity(), 100u);
  EXPECT_EQ(IBuffer::defaultBuffer()->length(), 0u);
}

TEST(BuilderHandOver, GivesAStringThatIsEditedAndSharedLikeAnyOther)
{
  IStringBuilder builder;
  builder.append("abc").reserve(1000);
  IString text = builder.handOver();
  const IString sharer(text);
  text.upperCase() += "d";
  text.insert("-", 1).remove(2, 1);
  EXPECT_TEXT(text, "ABCd", 1);
  EXPECT_TEXT(sharer, "abc", 1);
  EXPECT_TRUE(IString::copy(sharer, 2) == "abcabc");
}

TEST(BuilderHandOver, TheBlockGoesWithItsString)
{
  warmUp();
  const AllocationWatch watch;
  {
    IStringBuilder builder;
    for (unsigned count = 0; count < 1000; ++count)
      builder.append(count);
    const IString text = builder.handOver();
    builder.append("more");
  }
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST(BuilderHandOver, MakesBuffersOfTheKindThatStringsHave)
{
  IStringBuilder builder;
  builder.append("a").appendPadding(1000);
  EXPECT_EQ(bufferOf(builder.handOver())->className(), bufferOf(IString("a"))->className());
  IStringBuilder continued(IString("a"));
  continued.appendPadding(1000);
  EXPECT_EQ(bufferOf(continued.handOver())->className(), bufferOf(IString("a"))->className());
}

TEST(BuilderAsString, IsACopyThatFits)
{
  IStringBuilder builder;
  builder.append("abc").reserve(1000);
  const IString text = builder.asString();
  builder.append("def");
  EXPECT_TEXT(text, "abc", 1);
  EXPECT_EQ(built(builder), "abcdef");
  EXPECT_TRUE(shareText(IStringBuilder().asString(), IString()));
  EXPECT_TRUE(shareText(builder.clear().asString(), IString()));
}

// ---------------------------------------------------------------------------------------------------------------------
// Beginning with a string

TEST(BuilderFromString, SharesTheTextUntilTheFirstChange)
{
  const IString start("start");
  IStringBuilder builder(start);
  EXPECT_EQ(built(builder), "start");
  EXPECT_EQ(static_cast<const void*>(builder.text()), static_cast<const char*>(start));
  EXPECT_TEXT(start, "start", 2);
  EXPECT_TRUE(shareText(builder.asString(), start));
  builder.append("ed");
  EXPECT_EQ(built(builder), "started");
  EXPECT_TEXT(start, "start", 1);
}

TEST(BuilderFromString, HandsAnUnchangedTextBackShared)
{
  const IString start("start");
  IStringBuilder builder(start);
  const IString text = builder.handOver();
  EXPECT_TRUE(shareText(text, start));
  EXPECT_TEXT(start, "start", 2);
  EXPECT_EQ(built(builder), "");
}

TEST(BuilderFromString, ShortensACopy)
{
  const IString start("start");
  IStringBuilder shorter(start);
  EXPECT_EQ(built(shorter.truncate(3)), "sta");
  IStringBuilder reserving(start);
  EXPECT_EQ(built(reserving.reserve(100).append('!')), "start!");
  IStringBuilder cleared(start);
  EXPECT_EQ(built(cleared.clear()), "");
  EXPECT_EQ(built(cleared.append("x")), "x");
  IStringBuilder cut(start);
  EXPECT_EQ(built(cut.truncate(0)), "");
  EXPECT_TEXT(start, "start", 1);
}

TEST(BuilderFromString, AppendsItsOwnSharedText)
{
  const IString start("start");
  IStringBuilder builder(start);
  builder.append(start).append(builder.text() + 1, 2);
  EXPECT_EQ(built(builder), "startstartta");
}

TEST(BuilderFromString, TakesWhateverAStringCanBeMadeFrom)
{
  EXPECT_EQ(built(IStringBuilder("abc")), "abc");
  EXPECT_EQ(built(IStringBuilder(5)), "5");
  EXPECT_EQ(built(IStringBuilder('c')), "c");
  EXPECT_EQ(built(IStringBuilder("")), "");
}

TEST(BuilderFromString, TheEmptyStringStaysEmpty)
{
  IStringBuilder builder{IString()};
  builder.append("text");
  EXPECT_EQ(built(builder), "text");
  EXPECT_TEXT(IString(), "");
}

// ---------------------------------------------------------------------------------------------------------------------
// Copies, moves, other forms

TEST(BuilderCopy, IsIndependent)
{
  IStringBuilder builder;
  builder.append("abc").reserve(100);
  IStringBuilder copy(builder);
  copy.append("x");
  builder.append("y");
  EXPECT_EQ(built(copy), "abcx");
  EXPECT_EQ(built(builder), "abcy");
  copy = builder;
  builder.truncate(1);
  EXPECT_EQ(built(copy), "abcy");
  const IStringBuilder& itself = copy;
  copy = itself;
  EXPECT_EQ(built(copy), "abcy");
  copy = IStringBuilder();
  EXPECT_EQ(built(copy), "");
}

TEST(BuilderMove, TakesTheStorageAndLeavesAnEmptyBuilder)
{
  static_assert(std::is_nothrow_move_constructible_v<IStringBuilder>);
  static_assert(std::is_nothrow_move_assignable_v<IStringBuilder>);
  IStringBuilder builder;
  builder.append("abc").reserve(100);
  IStringBuilder moved(std::move(builder));
  EXPECT_EQ(built(moved), "abc");
  EXPECT_EQ(moved.capacity(), 100u);
  EXPECT_EQ(built(builder), "");
  builder.append("new");
  moved = std::move(builder);
  EXPECT_EQ(built(moved), "new");
  EXPECT_EQ(built(builder), "");
  IStringBuilder& itself = moved;
  moved = std::move(itself);
  EXPECT_EQ(built(moved), "new");
}

TEST(BuilderMove, LetsBuildersStandInContainers)
{
  std::vector<IStringBuilder> builders;
  for (unsigned count = 0; count < 20; ++count) {
    builders.emplace_back();
    for (IStringBuilder& builder : builders)
      builder.append(count).append(' ');
  }
  EXPECT_EQ(built(builders[17]), "17 18 19 ");
}

TEST(BuilderOutput, WritesTheTextUpToItsFirstNul)
{
  IStringBuilder builder;
  builder.append("ab\0c", 4);
  std::ostringstream out;
  out << std::setw(4) << builder << IStringBuilder() << '|';
  EXPECT_EQ(out.str(), "  ab|");
}

TEST(BuilderDebugText, TellsLengthAndCapacity)
{
  IStringBuilder builder;
  builder.append("abc").reserve(90);
  const std::string address = std::to_string(reinterpret_cast<std::uintptr_t>(&builder));
  EXPECT_TEXT(builder.asDebugInfo(), "IStringBuilder(@" + address + ",length=3,capacity=90)");
}

// ---------------------------------------------------------------------------------------------------------------------
// Limits and failures

/// Keeps the reports of the expected exceptions off the screen.
class BuilderFailures : public testing::Test {
protected:
  CountingHook hook;

private:
  InstalledHook installed{hook};
};

TEST_F(BuilderFailures, LengthsThatNoTextCanHaveAreRefused)
{
  IStringBuilder builder;
  builder.append("abc");
  const void* const nothing = nullptr;
  EXPECT_EQ(errorIdOf([&] { builder.append(nothing, largest); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.appendPadding(largest - 3); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.appendPadding(longestText - 2); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.append("x", largest, "y", 1); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.append("x", 1, "y", 1, nothing, largest - 1); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.reserve(longestText + 1); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.reserve(largest); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { IStringBuilder().appendPadding(longestText + 1); }), tooLong);
  EXPECT_EQ(built(builder), "abc");
}

TEST_F(BuilderFailures, LengthsOfMoreBitsAreRefusedRatherThanCut)
{
  IStringBuilder builder;
  builder.append("abc");
  const unsigned long long wide = 4294967296ull;
  EXPECT_EQ(errorIdOf([&] { builder.append("x", wide); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.append("x", 1u, "y", wide + 1); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.append("x", 1u, "y", 1u, "z", wide + 1); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { builder.appendPadding(wide + 1); }), tooLong);
  EXPECT_EQ(built(builder), "abc");
  builder.append("de", 2ull).append("f", 1ull, nullptr, 1, "g", 1ull, '-').appendPadding(1ull, '.');
  EXPECT_EQ(built(builder), "abcdef-g.");
}

/// Does `change` to a builder of "abc" that is full while the first allocation fails.
template <class Change>
void expectUntouchedWithoutStorage(const char* what, Change change)
{
  IStringBuilder builder;
  builder.reserve(3).append("abc");
  const char* const before = builder.text();
  bool failed = false;
  {
    FailingAllocations scope(1, FailingAllocations::andNoOther);
    try {
      change(builder);
    } catch (const IOutOfMemory&) {
      failed = true;
    }
  }
  EXPECT_TRUE(failed) << what;
  EXPECT_EQ(static_cast<const void*>(builder.text()), before) << what;
  EXPECT_EQ(built(builder), "abc") << what;
  EXPECT_EQ(builder.capacity(), 3u) << what;
}

TEST_F(BuilderFailures, WithoutStorageTheBuilderIsAsItWas)
{
  warmUp();
  const AllocationWatch watch;
  expectUntouchedWithoutStorage("text", [](IStringBuilder& builder) { builder.append("x"); });
  expectUntouchedWithoutStorage("character", [](IStringBuilder& builder) { builder.append('x'); });
  expectUntouchedWithoutStorage("number", [](IStringBuilder& builder) { builder.append(5); });
  expectUntouchedWithoutStorage("padding", [](IStringBuilder& builder) { builder.appendPadding(9); });
  expectUntouchedWithoutStorage("pieces", [](IStringBuilder& builder) { builder.append("x", 1, "y", 1); });
  expectUntouchedWithoutStorage("itself", [](IStringBuilder& builder) { builder.append(builder); });
  expectUntouchedWithoutStorage("reserve", [](IStringBuilder& builder) { builder.reserve(4); });
  expectUntouchedWithoutStorage("copy", [](IStringBuilder& builder) { const IStringBuilder copy(builder); });
  expectUntouchedWithoutStorage("assignment", [](IStringBuilder& builder) {
    IStringBuilder other;
    other = builder;
  });
  expectUntouchedWithoutStorage("string", [](IStringBuilder& builder) { builder.asString(); });
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST_F(BuilderFailures, WithoutStorageASharedTextStaysShared)
{
  warmUp();
  const IString start("start");
  IStringBuilder builder(start);
  unsigned failures = 0;
  for (unsigned which = 0; which < 3; ++which) {
    FailingAllocations scope(1, FailingAllocations::andNoOther);
    try {
      which == 0 ? builder.append('x') : which == 1 ? builder.truncate(2) : builder.reserve(100);
    } catch (const IOutOfMemory&) {
      ++failures;
    }
  }
  EXPECT_EQ(failures, 3u);
  EXPECT_TRUE(shareText(builder.asString(), start));
  EXPECT_EQ(built(builder), "start");
}

TEST_F(BuilderFailures, WithoutStorageAWordBeingReadLeavesTheString)
{
  warmUp();
  std::istringstream in("aWordLongEnoughToNeedStorage next");
  IString text("old");
  bool failed = false;
  {
    FailingAllocations scope(1, FailingAllocations::andNoOther);
    try {
      in >> text;
    } catch (const IOutOfMemory&) {
      failed = true;
    }
  }
  EXPECT_TRUE(failed);
  EXPECT_TEXT(text, "old");
}

// ---------------------------------------------------------------------------------------------------------------------
// Random operations beside std::string

class BuilderAndModel {
public:
  void step(RandomTexts& random)
  {
    const std::string piece = random.text();
    switch (random.below(14)) {
    case 0:
      builder.append(piece.data(), static_cast<unsigned>(piece.size()));
      model += piece;
      break;
    case 1:
      builder.append(piece);
      model += piece;
      break;
    case 2:
      builder.append(made(piece));
      model += piece;
      break;
    case 3:
      builder.append(piece.c_str());
      model += piece.c_str();
      break;
    case 4:
      appendByte(random.byte());
      break;
    case 5:
      appendNumber(random.below(1000000));
      break;
    case 6:
      appendRun(random.below(100), random.byte());
      break;
    case 7:
      appendOwnPart(random);
      break;
    case 8:
      truncate(random.position(model.size()));
      break;
    case 9:
      builder.reserve(random.newLength(model.size()));
      break;
    case 10:
      handOver();
      break;
    case 11:
      builder = IStringBuilder(builder.asString());
      break;
    case 12:
      if (random.onceIn(5))
        clear();
      break;
    default:
      appendThree(piece, random.byte(), random.below(5));
    }
  }

  void check() const
  {
    ASSERT_EQ(built(builder), model);
    for (const auto& [text, expected] : handedOver)
      expectText(text, expected);
  }

private:
  void expectText(const IString& text, const std::string& expected) const { EXPECT_TEXT(text, expected, 1); }

  void appendByte(char byte)
  {
    builder.append(byte);
    model += byte;
  }

  void appendNumber(unsigned number)
  {
    builder.append(number);
    model += std::to_string(number);
  }

  void appendRun(unsigned count, char byte)
  {
    builder.appendPadding(count, byte);
    model.append(count, byte);
  }

  void appendOwnPart(RandomTexts& random)
  {
    if (model.size() > 5000)
      return clear();
    const unsigned offset = random.below(static_cast<unsigned>(model.size()) + 1);
    const unsigned length = random.below(static_cast<unsigned>(model.size()) - offset + 1);
    builder.append(builder.text() + offset, length);
    model += model.substr(offset, length);
  }

  void appendThree(const std::string& piece, char pad, unsigned count)
  {
    builder.append(piece.data(), piece.size(), nullptr, count, piece.data(), piece.size(), pad);
    model += piece + std::string(count, pad) + piece;
  }

  void truncate(unsigned newLength)
  {
    builder.truncate(newLength);
    model.resize(std::min<std::size_t>(model.size(), newLength));
  }

  void clear()
  {
    builder.clear();
    model.clear();
  }

  void handOver()
  {
    if (handedOver.size() > 10)
      handedOver.clear();
    if (!model.empty())
      handedOver.emplace_back(builder.handOver(), model);
    model.clear();
  }

  IStringBuilder builder;
  std::string model;
  std::vector<std::pair<IString, std::string>> handedOver;
};

TEST(BuilderRandom, AgreesWithAStandardString)
{
  RandomTexts random;
  for (unsigned round = 0; round < 40; ++round) {
    BuilderAndModel both;
    for (unsigned step = 0; step < 200; ++step) {
      both.step(random);
      both.check();
      ASSERT_FALSE(testing::Test::HasFatalFailure()) << "round " << round << ", step " << step;
    }
  }
}

}  // namespace
