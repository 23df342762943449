// life_cycle_test.cpp - buffers: blocks, references, kinds, building from pieces, debug text.
#include "buffer_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"

#include <quelmcl/idbcsb.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <new>
#include <string>

using namespace buffertests;
using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// References

TEST(Buffer, StartsWithOneReferenceItsLengthAndANulBehindTheText)
{
  const Owned buffer(IBuffer::defaultBuffer()->allocate(5));
  EXPECT_EQ(buffer->useCount(), 1u);
  EXPECT_EQ(buffer->length(), 5u);
  EXPECT_EQ(buffer->contents()[5], '\0');
}

TEST(Buffer, IsFoundFromItsText)
{
  const Owned buffer(SingleByteBuffer::holding("abc"));
  EXPECT_EQ(IBuffer::fromContents(buffer->contents()), buffer.get());
}

TEST(Buffer, ShowsTheSameTextAsAConstant)
{
  const Owned buffer(SingleByteBuffer::holding("abc"));
  const IBuffer& constant = *buffer;
  EXPECT_EQ(constant.contents(), buffer->contents());
}

TEST(Buffer, CountsReferencesUpAndDown)
{
  const Owned buffer(SingleByteBuffer::holding("abc"));
  EXPECT_EQ(buffer->addRef(), buffer.get());
  EXPECT_EQ(buffer->useCount(), 2u);
  buffer->addRef();
  EXPECT_EQ(buffer->useCount(), 3u);
  buffer->removeRef();
  buffer->removeRef();
  EXPECT_TEXT(*buffer, "abc", 1);
}

TEST(Buffer, IsDestroyedThroughItsOwnDestructorWithItsLastReference)
{
  const int aliveBefore = SingleByteBuffer::alive;
  IBuffer* const buffer = SingleByteBuffer::holding("abc");
  buffer->addRef();
  buffer->removeRef();
  EXPECT_EQ(SingleByteBuffer::alive, aliveBefore + 1);
  buffer->removeRef();
  EXPECT_EQ(SingleByteBuffer::alive, aliveBefore);
}

TEST(Buffer, IsOneBlockThatIsGivenBack)
{
  const IBuffer* const model = IBuffer::defaultBuffer();
  AllocationWatch watch;
  IBuffer* const buffer = model->allocate(1000);
  const unsigned long blocks = watch.allocations();
  const long live = watch.liveBlocks();
  buffer->removeRef();

  EXPECT_EQ(blocks, 1u);
  EXPECT_EQ(live, 1);
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST(Buffer, AsksAProgramsOwnOperatorNewForEachBlock)
{
  AllocationWatch watch;
  for (int made = 0; made < 10; ++made)
    SingleByteBuffer::holding("abc")->removeRef();
  EXPECT_EQ(watch.allocations(), 10u);
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST(Buffer, KeepsItsTextInItsOwnBlock)
{
  const Owned buffer(SingleByteBuffer::holding("abc"));
  const char* const record = reinterpret_cast<const char*>(buffer.get());
  EXPECT_EQ(buffer->contents() - record, static_cast<std::ptrdiff_t>(sizeof(void*) + 2 * sizeof(unsigned)));
}

TEST(Buffer, IgnoresANullPointerToFree)
{
  AllocationWatch watch;
  IBuffer::operator delete(nullptr);
  EXPECT_EQ(watch.liveBlocks(), 0);
}

// ---------------------------------------------------------------------------------------------------------------------
// Kinds

/// Another locale for the length of a block.
class LocaleScope {
public:
  explicit LocaleScope(const char* name) : before(std::setlocale(LC_ALL, nullptr))
  {
    isSet = std::setlocale(LC_ALL, name);
  }
  ~LocaleScope() { std::setlocale(LC_ALL, before.c_str()); }
  LocaleScope(const LocaleScope&) = delete;
  LocaleScope& operator=(const LocaleScope&) = delete;

  bool isSet;

private:
  const std::string before;
};

TEST(BufferKind, FollowsTheLocaleOfTheFirstNeed)
{
  EXPECT_STREQ(IBuffer::defaultBuffer()->className(), localeIsMultiByte() ? "IDBCSBuffer" : "IBuffer");
}

TEST(BufferKind, OfTheNullBufferOutlivesAChangeOfLocale)
{
  IBuffer* const before = IBuffer::defaultBuffer();
  const std::string kind = before->className();
  const LocaleScope other(localeIsMultiByte() ? "C" : "C.UTF-8");
  ASSERT_TRUE(other.isSet);
  EXPECT_EQ(IBuffer::defaultBuffer(), before);
  EXPECT_EQ(IBuffer::defaultBuffer()->className(), kind);
}

TEST(BufferKind, IsAskedOfTheLocaleAtEveryAllocationOfASingleByteBuffer)
{
  const Owned model(SingleByteBuffer::holding("abc"));
  for (const char* const locale : {"C", "C.UTF-8", "C"}) {
    const LocaleScope scope(locale);
    ASSERT_TRUE(scope.isSet) << locale;
    const Owned made(model->IBuffer::allocate(3));
    EXPECT_STREQ(made->className(), localeIsMultiByte() ? "IDBCSBuffer" : "IBuffer") << locale;
    EXPECT_EQ(made->length(), 3u);
    EXPECT_EQ(made->useCount(), 1u);
    EXPECT_EQ(made->contents()[3], '\0');
  }
}

TEST(BufferKind, StaysMultiByteForWhatAMultiByteBufferAllocates)
{
  const Owned model(SingleByteBuffer::holding("abc"));
  const LocaleScope multiByte("C.UTF-8");
  ASSERT_TRUE(multiByte.isSet);
  const Owned multiByteBuffer(model->IBuffer::allocate(1));
  const LocaleScope singleByte("C");
  ASSERT_TRUE(singleByte.isSet);
  const Owned made(multiByteBuffer->allocate(3));
  EXPECT_STREQ(made->className(), "IDBCSBuffer");
  EXPECT_EQ(made->length(), 3u);
  EXPECT_EQ(made->useCount(), 1u);
  EXPECT_EQ(made->contents()[3], '\0');
}

TEST(BufferKind, OfAResultIsWhatItsMakerAllocates)
{
  const Owned model(SingleByteBuffer::holding("abc"));
  const int allocationsBefore = SingleByteBuffer::allocations;
  const Owned made(model->newBuffer("ab", 2, nullptr, 0, nullptr, 0, 0));
  EXPECT_EQ(SingleByteBuffer::allocations, allocationsBefore + 1);
  EXPECT_NE(dynamic_cast<SingleByteBuffer*>(made.get()), nullptr);
}

// ---------------------------------------------------------------------------------------------------------------------
// Building from pieces

TEST(NewBuffer, PutsItsPiecesOneAfterTheOther)
{
  const Owned made(IBuffer::defaultBuffer()->newBuffer("abX", 2, "cX", 1, "defX", 3, '*'));
  EXPECT_TEXT(*made, "abcdef", 1);
}

TEST(NewBuffer, FillsAPieceWithoutAPointerWithThePadCharacter)
{
  const IBuffer& maker = *IBuffer::defaultBuffer();
  EXPECT_TEXT(*Owned(maker.newBuffer(nullptr, 5, nullptr, 0, nullptr, 0, '*')), "*****", 1);
  EXPECT_TEXT(*Owned(maker.newBuffer("a", 1, nullptr, 2, "b", 1, '-')), "a--b", 1);
  EXPECT_TEXT(*Owned(maker.newBuffer("a", 1, "b", 1, nullptr, 3, '\0')), "ab\0\0\0", 1);
  EXPECT_TEXT(*Owned(maker.newBuffer(nullptr, 1, nullptr, 1, nullptr, 1, '\xFF')), "\xFF\xFF\xFF", 1);
}

TEST(NewBuffer, CopiesNulsInsideOfAPiece)
{
  EXPECT_TEXT(*Owned(IBuffer::defaultBuffer()->newBuffer("a\0b", 3, "\0", 1, nullptr, 0, 0)), "a\0b\0", 1);
}

TEST(NewBuffer, ReadsNoFurtherThanItsPiecesReach)
{
  const Exactly first("abc");
  const Exactly last("de");
  EXPECT_TEXT(
    *Owned(IBuffer::defaultBuffer()->newBuffer(first.data(), first.size(), nullptr, 0, last.data(), last.size(), 0)),
    "abcde", 1);
}

TEST(NewBuffer, MayCopyFromTheTextOfItsMaker)
{
  const Owned maker(SingleByteBuffer::holding("abc"));
  EXPECT_TEXT(*Owned(maker->newBuffer(maker->contents() + 1, 2, maker->contents(), 3, nullptr, 0, 0)), "bcabc", 1);
  EXPECT_TEXT(*maker, "abc", 1);
}

TEST(NewBuffer, AllocatesOnceForATextAndNotAtAllForNone)
{
  const IBuffer& maker = *IBuffer::defaultBuffer();
  AllocationWatch watch;
  IBuffer* const none = maker.newBuffer("abc", 0, nullptr, 0, nullptr, 0, '*');
  const unsigned long forNone = watch.allocations();
  IBuffer* const some = maker.newBuffer("abc", 3, nullptr, 100, "def", 3, '*');
  const unsigned long forSome = watch.allocations();
  none->removeRef();
  some->removeRef();

  EXPECT_EQ(forNone, 0u);
  EXPECT_EQ(forSome, 1u);
}

TEST(NewBuffer, LeavesNothingBehindWithoutStorage)
{
  const Owned maker(SingleByteBuffer::holding("abc"));
  bool hasThrown = false;
  AllocationWatch watch;
  {
    FailingAllocations scope(1);
    try {
      maker->newBuffer("abc", 3, nullptr, 0, nullptr, 0, 0);
    } catch (const IOutOfMemory&) {
      hasThrown = true;
    }
  }
  EXPECT_TRUE(hasThrown);
  EXPECT_EQ(watch.liveBlocks(), 0);
  EXPECT_TEXT(*maker, "abc", 1);
}

// ---------------------------------------------------------------------------------------------------------------------
// Debug text

std::string debugTextOf(const IBuffer& buffer)
{
  const IString text = buffer.asDebugInfo();
  return std::string(static_cast<const char*>(text), text.length());
}

std::string addressOf(const IBuffer& buffer)
{
  return std::to_string(reinterpret_cast<std::uintptr_t>(&buffer));
}

TEST(BufferDebugText, ShowsClassAddressCountLengthAndText)
{
  const Owned buffer(SingleByteBuffer::holding("hello"));
  const Owned sharer(buffer->addRef());
  EXPECT_EQ(debugTextOf(*buffer), "IBuffer(@" + addressOf(*buffer) + ",refs=2,len=5,data=[hello])");
}

TEST(BufferDebugText, NamesTheKindOfThisProcess)
{
  const Owned buffer(ofThisProcess("hello"));
  const std::string kind = localeIsMultiByte() ? "IDBCSBuffer" : "IBuffer";
  EXPECT_EQ(debugTextOf(*buffer), kind + "(@" + addressOf(*buffer) + ",refs=1,len=5,data=[hello])");
}

struct DebugCase {
  const char* name;
  std::string text;
  std::string shown;
};

class BufferDebugTextData : public testing::TestWithParam<DebugCase> {};

TEST_P(BufferDebugTextData, IsShownSo)
{
  const Owned buffer(SingleByteBuffer::holding(GetParam().text));
  EXPECT_EQ(debugTextOf(*buffer), "IBuffer(@" + addressOf(*buffer) + ",refs=1,len=" +
                                    std::to_string(GetParam().text.size()) + ",data=[" + GetParam().shown + "])");
}

const DebugCase debugCases[] = {
  {"no_text", "", ""},
  {"twenty_three_bytes_are_shown_whole", "abcdefghijklmnopqrstuvw", "abcdefghijklmnopqrstuvw"},
  {"of_twenty_four_bytes_both_ends", "abcdefghijklmnopqrstuvwx", "abcdefghij...opqrstuvwx"},
  {"of_a_long_text_both_ends", "abcdefghij" + std::string(1000, '-') + "0123456789", "abcdefghij...0123456789"},
  {"a_short_text_ends_at_its_first_nul", bytes("abc\0def\0g"), "abc"},
  {"twenty_three_bytes_end_at_their_first_nul", bytes("abcdefghijklmnopqrst\0vw"), "abcdefghijklmnopqrst"},
  {"a_text_that_begins_with_a_nul", bytes("\0abc"), ""},
  {"the_ends_of_a_long_text_keep_their_nuls", bytes("abc\0efghijklmnopqrstuv\0x"), bytes("abc\0efghij...opqrstuv\0x")},
  {"brackets_are_not_marked", "a])", "a])"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BufferDebugTextData, testing::ValuesIn(debugCases),
                         [](const testing::TestParamInfo<DebugCase>& row) { return std::string(row.param.name); });

TEST(BufferDebugText, LeavesTheCountAsItWas)
{
  const Owned buffer(SingleByteBuffer::holding("hello"));
  buffer->asDebugInfo();
  EXPECT_TEXT(*buffer, "hello", 1);
}

}  // namespace
