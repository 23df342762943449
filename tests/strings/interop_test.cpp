// interop_test.cpp - IString beside the standard library: its texts in and out, mixed comparison, order, hashes, iteration over
// bytes and characters, literals, and how GoogleTest shows strings. (That the expressions compile in every language version, and
// choose the right overload: tests/expressions/modern_test.cpp.)
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/quelmcl.hpp>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <clocale>
#include <compare>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

using namespace stringtests;
using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;
using quelmcl_test::RandomTexts;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Texts of the standard library, in

TEST(StandardText, IsTakenWithAllItsNuls)
{
  const std::string text = bytes("\0a\0b\0");
  IString assigned("old");
  assigned = text;
  EXPECT_TEXT(assigned, text, 1);
  assigned = std::string_view(text).substr(1, 2);
  EXPECT_TEXT(assigned, bytes("a\0"), 1);
  EXPECT_TEXT(IString(text), text);
  EXPECT_TEXT(IString(std::string_view(text)), text);
  EXPECT_TEXT(IString("x") + text, "x" + text);
  EXPECT_TEXT(text + IString("x"), text + "x");
  EXPECT_TEXT(IString("x") += std::string_view(text), "x" + text);
}

TEST(StandardText, OfNoBytesIsTheSharedEmptyText)
{
  const IString empty;
  EXPECT_TRUE(shareText(IString(std::string()), empty));
  EXPECT_TRUE(shareText(IString(std::string_view()), empty));
  IString text("abc");
  text = std::string_view();
  EXPECT_TRUE(shareText(text, empty));
}

TEST(StandardText, AppendedEmptyLeavesTheSharedBuffer)
{
  IString text("abc");
  const IString sharer(text);
  text += std::string_view();
  text += std::string();
  EXPECT_TRUE(shareText(text, sharer));
}

TEST(StandardText, MayPointIntoTheStringThatChanges)
{
  IString text("abcdef");
  text += std::string_view(text).substr(2, 2);
  EXPECT_TEXT(text, "abcdefcd");
  text = std::string_view(text).substr(1, 3);
  EXPECT_TEXT(text, "bcd");
  text += text.as<std::string_view>();
  EXPECT_TEXT(text, "bcdbcd");
}

TEST(StandardText, IsCopiedOnce)
{
  const std::string_view view("a text that is not short");
  IString text("some other text");
  IBuffer::defaultBuffer();
  const AllocationWatch watch;
  const IString made(view);
  EXPECT_EQ(watch.allocations(), 1u);
  text += view;
  EXPECT_EQ(watch.allocations(), 2u);
  const IString joined = text + view;
  EXPECT_EQ(watch.allocations(), 3u);
}

TEST(StandardText, ThatFindsNoStorageLeavesTheStringAsItWas)
{
  const std::string_view view("a text");
  IString text("old");
  IBase::messageFile();
  bool assigned = true, appended = true;
  {
    const FailingAllocations scope(1);
    try {
      text = view;
    } catch (const std::bad_alloc&) {
      assigned = false;
    } catch (const IOutOfMemory&) {
      assigned = false;
    }
  }
  {
    const FailingAllocations scope(1);
    try {
      text += view;
    } catch (const std::bad_alloc&) {
      appended = false;
    } catch (const IOutOfMemory&) {
      appended = false;
    }
  }
  EXPECT_FALSE(assigned);
  EXPECT_FALSE(appended);
  EXPECT_TEXT(text, "old", 1);
}

/// A view that claims a length that no string can hold. Its bytes are never looked at: the refusal comes first.
std::string_view hugeView()
{
  return std::string_view("abc", std::numeric_limits<std::size_t>::max());
}

TEST(StandardText, OfALengthThatNoStringCanHoldIsRefused)
{
  const std::string_view huge = hugeView();
  IString text("abc");
  EXPECT_EQ(errorIdOf([&] { IString made(huge); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { I0String made(huge); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text = huge; }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text += huge; }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(text + huge); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(huge + text); }), tooLong);
  EXPECT_TEXT(text, "abc", 1);
}

#if SIZE_MAX > 0xFFFFFFFF
// Cut to 32 bits this length would be 3: the text would be taken, found and joined.
TEST(StandardText, OfMoreThan32BitsIsNeverCut)
{
  const std::string_view wide("abc", 0x100000003u);
  IString text("abc");
  EXPECT_EQ(errorIdOf([&] { IString made(wide); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text += wide; }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(text.indexOf(wide)); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(text.lastIndexOf(wide)); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(text.occurrencesOf(wide)); }), tooLong);
  EXPECT_TEXT(text, "abc", 1);
}

TEST(StandardText, OfMoreThan32BitsIsGreaterThanItsBeginning)
{
  const std::string_view wide("abc", 0x100000003u);
  const IString text("abc");
  EXPECT_FALSE(text == wide);
  EXPECT_TRUE(text < wide);
  EXPECT_TRUE(wide > text);
  EXPECT_TRUE((text <=> wide) < 0);
}
#endif

// ---------------------------------------------------------------------------------------------------------------------
// Out

TEST(StandardText, IsMadeOfTheWholeTextByName)
{
  const IString text = made(bytes("a\0b"));
  EXPECT_EQ(text.as<std::string>(), bytes("a\0b"));
  EXPECT_EQ(text.as<std::string_view>(), bytes("a\0b"));
  EXPECT_EQ(std::string(text), "a");  // through the pointer
}

TEST(StringView, IsTheTextItself)
{
  const IString text("abc");
  const std::string_view view = text;
  EXPECT_EQ(view.data(), static_cast<const char*>(text));
  EXPECT_EQ(view.size(), 3u);
  EXPECT_EQ(useCountOf(text), 1u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Searching

TEST(StandardText, IsFoundWhereTheSameStringIs)
{
  RandomTexts random;
  for (int round = 0; round < 3000; ++round) {
    const std::string text = random.text();
    const std::string sought = random.needleFor(text);
    const unsigned start = random.position(text.size());
    const IString string = made(text);
    const IString soughtString = made(sought);
    const std::string_view view = sought;
    EXPECT_EQ(string.indexOf(sought, start), string.indexOf(soughtString, start));
    EXPECT_EQ(string.indexOf(view, start), string.indexOf(soughtString, start));
    EXPECT_EQ(string.lastIndexOf(view, start), string.lastIndexOf(soughtString, start));
    EXPECT_EQ(string.occurrencesOf(view, start), string.occurrencesOf(soughtString, start));
    EXPECT_EQ(I0String(string).indexOf(view, start), I0String(string).indexOf(soughtString, start));
    EXPECT_EQ(I0String(string).lastIndexOf(view, start), I0String(string).lastIndexOf(soughtString, start));
    EXPECT_EQ(I0String(string).occurrencesOf(view, start), I0String(string).occurrencesOf(soughtString, start));
  }
}

// Under UTF-8 the byte alone begins a longer character, and the byte behind the view would complete it.
TEST(StandardText, IsNotReadBeyondItsEnd)
{
  const char letter[] = "\xC3\xA9";
  const std::string_view firstByte(letter, 1);
  const IString text("x\xC3\xA9y\xC3");
  EXPECT_EQ(text.indexOf(firstByte), text.indexOf(IString(letter, 1)));
  EXPECT_EQ(text.lastIndexOf(firstByte), text.lastIndexOf(IString(letter, 1)));
  EXPECT_EQ(text.occurrencesOf(firstByte), text.occurrencesOf(IString(letter, 1)));
}

// ---------------------------------------------------------------------------------------------------------------------
// Comparison

TEST(StringOrder, IsThatOfTheUnsignedBytesHoweverItIsAsked)
{
  RandomTexts random;
  for (int round = 0; round < 3000; ++round) {
    const std::string left = random.text();
    const std::string right = random.onceIn(4) ? left : random.textLike(left, 8);
    const std::strong_ordering expected = left <=> right;  // std::string compares its bytes as unsigned
    const IString string = made(left);
    const IString other = made(right);
    const std::string_view view = right;

    EXPECT_TRUE((string <=> other) == expected);
    EXPECT_TRUE((string <=> right) == expected);
    EXPECT_TRUE((string <=> view) == expected);
    EXPECT_TRUE((view <=> string) == (right <=> left));
    EXPECT_EQ(string == view, expected == 0);
    EXPECT_EQ(string != view, expected != 0);
    EXPECT_EQ(string < view, expected < 0);
    EXPECT_EQ(string <= view, expected <= 0);
    EXPECT_EQ(string > view, expected > 0);
    EXPECT_EQ(string >= view, expected >= 0);
    EXPECT_EQ(left == other, expected == 0);
    EXPECT_EQ(left != other, expected != 0);
    EXPECT_EQ(left < other, expected < 0);
    EXPECT_EQ(left <= other, expected <= 0);
    EXPECT_EQ(left > other, expected > 0);
    EXPECT_EQ(left >= other, expected >= 0);
  }
}

TEST(StringOrder, TakesNullPointersAndNullViewsForTheEmptyText)
{
  const char* const noText = nullptr;
  EXPECT_TRUE((IString() <=> noText) == 0);
  EXPECT_TRUE((IString("a") <=> noText) > 0);
  EXPECT_TRUE(IString() == std::string_view());
  EXPECT_TRUE(std::string_view() < IString("a"));
}

TEST(StringOrder, AllocatesNothing)
{
  const IString text("a text that is not short");
  const std::string_view view("a text that is not short either");
  const AllocationWatch watch;
  EXPECT_TRUE(text != view);
  EXPECT_TRUE((text <=> view) < 0);
  EXPECT_TRUE((text <=> "b") < 0);
  EXPECT_EQ(watch.allocations(), 0u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Hashes

TEST(StringHash, IsTheSameForEqualTextsOfEveryType)
{
  RandomTexts random;
  const quelmcl::TextHash hash;
  for (int round = 0; round < 1000; ++round) {
    const std::string text = random.text();
    const IString string = made(text);
    const std::size_t expected = std::hash<IString>()(string);
    EXPECT_EQ(std::hash<I0String>()(I0String(string)), expected);
    EXPECT_EQ(hash(string), expected);
    EXPECT_EQ(hash(text), expected);
    EXPECT_EQ(hash(std::string_view(text)), expected);
    EXPECT_EQ(hash(asCText(text).c_str()), hash(asCText(text)));
    EXPECT_EQ(made(text).hash(), expected);
  }
  EXPECT_EQ(hash(static_cast<const char*>(nullptr)), IString().hash());
  EXPECT_EQ(hash(std::string_view()), IString().hash());
}

TEST(StringHash, LooksAtEveryByte)
{
  const std::string text = bytes("abc\0defghijklmnopq");
  std::unordered_set<std::size_t> hashes{made(text).hash()};
  for (std::size_t offset = 0; offset < text.size(); ++offset) {
    std::string changed = text;
    changed[offset] = static_cast<char>(changed[offset] ^ 1);
    hashes.insert(made(changed).hash());
    hashes.insert(made(text.substr(0, offset)).hash());
  }
  EXPECT_EQ(hashes.size(), 2 * text.size() + 1);
}

TEST(StringHash, LetsAContainerFindTextsOfOtherTypesWithoutAnAllocation)
{
  std::unordered_map<IString, int, quelmcl::TextHash, std::equal_to<>> counts;
  counts[IString("a key that is not short")] = 7;
  const std::string_view view("a key that is not short");
  const AllocationWatch watch;
  EXPECT_EQ(counts.find(view)->second, 7);
  EXPECT_EQ(counts.find("a key that is not short")->second, 7);
  EXPECT_TRUE(counts.find("a key that is not there") == counts.end());
  EXPECT_EQ(watch.allocations(), 0u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Iteration

TEST(StringIteration, GivesEveryByteOnce)
{
  RandomTexts random;
  for (int round = 0; round < 300; ++round) {
    const std::string text = random.text();
    const IString string = made(text);
    std::string seen;
    for (const char byte : string)
      seen += byte;
    EXPECT_EQ(seen, text);
    EXPECT_EQ(std::string(string.begin(), string.end()), text);
  }
}

TEST(StringIteration, OfAStringThatMayChangeKeepsTheBufferShared)
{
  IString text("abc");
  const IString sharer(text);
  for (const char byte : text)
    EXPECT_NE(byte, '\0');
  EXPECT_TRUE(shareText(text, sharer));
}

/// The offsets at which characters begin by the C library's account, under the locale in force.
std::vector<unsigned> characterOffsets(const std::string& text)
{
  std::vector<unsigned> offsets;
  for (std::size_t offset = 0; offset < text.size();) {
    offsets.push_back(static_cast<unsigned>(offset));
    static_cast<void>(std::mblen(nullptr, 0));
    const int length = std::mblen(text.data() + offset, text.size() - offset);
    offset += length > 0 ? static_cast<std::size_t>(length) : 1;
  }
  return offsets;
}

void expectCharacters(const std::string& text)
{
  const IString string = made(text);
  std::vector<unsigned> offsets;
  std::string joined;
  for (const quelmcl::Character letter : string.characters()) {
    offsets.push_back(letter.offset());
    joined.append(letter.begin(), letter.end());
    EXPECT_EQ(letter.position(), letter.offset() + 1);
    EXPECT_EQ(letter.view(), std::string_view(text).substr(letter.offset(), letter.length()));
    EXPECT_TEXT(letter.text(), std::string(letter.view()));
  }
  EXPECT_EQ(offsets, characterOffsets(text)) << quelmcl_test::quoted(text);
  EXPECT_EQ(string.numCharacters(), offsets.size()) << quelmcl_test::quoted(text);
  EXPECT_EQ(joined, text);
}

TEST(StringCharacters, StepAsTheCLibraryDoes)
{
  expectCharacters("");
  expectCharacters("abc");
  expectCharacters("n\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z");
  expectCharacters(bytes("a\0\xC3\xA9\0"));
  RandomTexts random;
  for (int round = 0; round < 500; ++round)
    expectCharacters(random.text("ab\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", 30));
}

TEST(StringCharacters, AreWholeUnderUtf8AndBytesUnderTheCLocale)
{
  const IString text("\xC3\xA9x");
  const quelmcl::Characters letters = text.characters();
  const bool isUtf8 = MB_CUR_MAX > 1;
  EXPECT_EQ(letters.begin()->length(), isUtf8 ? 2u : 1u);
  EXPECT_EQ(std::distance(letters.begin(), letters.end()), isUtf8 ? 2 : 3);
}

TEST(StringCharacters, OfNothingAreNone)
{
  const quelmcl::Characters none = IString().characters();
  EXPECT_TRUE(none.empty());
  EXPECT_TRUE(none.begin() == none.end());
}

TEST(StringCharacters, OutliveAChangeOfTheString)
{
  IString text("abc");
  std::string seen;
  for (const quelmcl::Character letter : text.characters()) {
    text += letter.text();
    seen += letter.view();
  }
  EXPECT_EQ(seen, "abc");
  EXPECT_TEXT(text, "abcabc");
}

TEST(StringCharacters, CanBePassedSeveralTimes)
{
  const quelmcl::Characters letters = IString("abc").characters();
  quelmcl::Characters::Iterator one = letters.begin();
  const quelmcl::Characters::Iterator before = one++;
  EXPECT_EQ((*before).view(), "a");
  EXPECT_EQ(one->view(), "b");
  EXPECT_TRUE(before == letters.begin());
  EXPECT_TRUE(before != one);
}

// ---------------------------------------------------------------------------------------------------------------------
// Literals and how tests show strings

TEST(StringLiteral, HasAllBytesOfTheLiteral)
{
  using namespace quelmcl::literals;
  EXPECT_TEXT("a\0b"_text, bytes("a\0b"));
  EXPECT_TEXT(""_text, "");
}

std::string quotedForm(const IString& text)
{
  std::ostringstream out;
  text.writeQuoted(out);
  return out.str();
}

TEST(QuotedString, LooksAsInSourceCode)
{
  EXPECT_EQ(quotedForm("abc"), R"("abc")");
  EXPECT_EQ(quotedForm(""), R"("")");
  EXPECT_EQ(quotedForm(R"(say "\o/")"), R"("say \"\\o/\"")");
  EXPECT_EQ(quotedForm("tab\tline\nreturn\rdelete\x7F"), R"("tab\tline\nreturn\015delete\177")");
  EXPECT_EQ(quotedForm(made(bytes("a\0"
                                  "1"))),
            R"("a\0001")");
  EXPECT_EQ(quotedForm("\xC3\xA9"), "\"\xC3\xA9\"");
}

TEST(QuotedString, IsWhatFailedTestsShow)
{
  EXPECT_EQ(testing::PrintToString(IString("abc")), R"("abc")");
  EXPECT_EQ(testing::PrintToString(I0String("abc")), R"("abc")");
  EXPECT_EQ(testing::PrintToString(made(bytes("a\0b"))), R"("a\000b")");
  EXPECT_NONFATAL_FAILURE(EXPECT_EQ(IString("seen text"), "expected"), R"("seen text")");
  EXPECT_NONFATAL_FAILURE(EXPECT_EQ(std::string("expected"), IString("seen text")), R"("seen text")");
  EXPECT_NONFATAL_FAILURE(EXPECT_LT(IString("seen text"), "b"), R"("seen text")");
}

}  // namespace
