// null_buffer_test.cpp - buffers: the ones that all empty texts share, and replacing the default one.
#include "buffer_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/fresh_process.hpp"

#include <quelmcl/idbcsb.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <sys/single_threaded.h>

#include <cstdio>
#include <memory>
#include <string>
#include <thread>

using namespace buffertests;
using quelmcl_test::AllocationWatch;

namespace {

/// A single-byte buffer that gives its kind a name of its own: the same letters at another address.
class RenamedBuffer : public SingleByteBuffer {
public:
  static RenamedBuffer* empty() { return new (0u) RenamedBuffer(0); }
  const char* className() const override
  {
    static const char name[] = "IBuffer";
    return name;
  }

private:
  explicit RenamedBuffer(unsigned newLen) : SingleByteBuffer(newLen) {}
};

/// Replaces the default null buffer for the length of a block.
class DefaultBufferScope {
public:
  /// Gives one reference to the new default away.
  explicit DefaultBufferScope(IBuffer* newDefault) : before(IBuffer::defaultBuffer()->addRef())
  {
    IBuffer::setDefaultBuffer(newDefault);
  }
  ~DefaultBufferScope() { IBuffer::setDefaultBuffer(before); }
  DefaultBufferScope(const DefaultBufferScope&) = delete;
  DefaultBufferScope& operator=(const DefaultBufferScope&) = delete;

private:
  IBuffer* const before;  // a reference that goes back to the library
};

const char* nullTextOf(const IString& text)
{
  return text;
}

// ---------------------------------------------------------------------------------------------------------------------
// Sharing

TEST(NullBuffer, IsAnEmptyTextWithANulBehindIt)
{
  EXPECT_TEXT(*IBuffer::defaultBuffer(), "");
}

TEST(NullBuffer, IsAlwaysTheSameAndAskingForItAddsNoReference)
{
  IBuffer* const buffer = IBuffer::defaultBuffer();
  const unsigned count = buffer->useCount();
  EXPECT_EQ(IBuffer::defaultBuffer(), buffer);
  EXPECT_EQ(buffer->null(), buffer);
  EXPECT_EQ(buffer->useCount(), count);
}

TEST(NullBuffer, IsWhatThreePiecesWithoutLengthGiveWithOneReferenceMore)
{
  const Owned text(ofThisProcess("abc"));
  IBuffer* const null = text->null();
  EXPECT_STREQ(null->className(), text->className());
  const unsigned count = null->useCount();
  IBuffer* const made = text->newBuffer("abc", 0, nullptr, 0, "def", 0, '*');
  EXPECT_EQ(made, null);
  EXPECT_EQ(null->useCount(), count + 1);
  made->removeRef();
  EXPECT_EQ(null->useCount(), count);
}

TEST(NullBuffer, OfASingleByteBufferIsOfThatKindInEveryLocale)
{
  IBuffer::defaultBuffer();
  const Owned text(SingleByteBuffer::holding("abc"));
  IBuffer* const null = text->null();
  EXPECT_STREQ(null->className(), "IBuffer");
  EXPECT_TEXT(*null, "");
  EXPECT_EQ(null == IBuffer::defaultBuffer(), !localeIsMultiByte());

  const unsigned count = null->useCount();
  const Owned made(text->newBuffer(nullptr, 0, nullptr, 0, nullptr, 0, '*'));
  EXPECT_EQ(made.get(), null);
  EXPECT_EQ(null->useCount(), count + 1);
}

TEST(NullBuffer, IsChosenByTheAddressOfTheClassNameNotByItsLetters)
{
  IBuffer::defaultBuffer();
  const Owned renamed(RenamedBuffer::empty());
  ASSERT_STREQ(renamed->className(), "IBuffer");
  EXPECT_EQ(renamed->null(), IBuffer::defaultBuffer());
  EXPECT_EQ(Owned(renamed->newBuffer(nullptr, 0, nullptr, 0, nullptr, 0, 0)).get(), IBuffer::defaultBuffer());
}

TEST(NullBuffer, StaysWhenItsLastReferenceGoes)
{
  IBuffer* const null = IBuffer::defaultBuffer();
  const unsigned count = null->useCount();
  for (unsigned i = 0; i < count; ++i)
    null->removeRef();
  EXPECT_EQ(IBuffer::defaultBuffer(), null);
  EXPECT_TEXT(*null, "");
  for (unsigned i = 0; i < count; ++i)
    null->addRef();
  EXPECT_EQ(null->useCount(), count);
}

TEST(NullBuffer, MadeAnewIsOfTheLocalesKindAndHoldsOneReference)
{
  const Owned made(IBuffer::initialize());
  EXPECT_TEXT(*made, "", 1);
  EXPECT_STREQ(made->className(), localeIsMultiByte() ? "IDBCSBuffer" : "IBuffer");
}

TEST(NullBuffer, IsSharedByEmptyStrings)
{
  const IString one;
  const IString other("");
  EXPECT_EQ(nullTextOf(one), IBuffer::defaultBuffer()->contents());
  EXPECT_EQ(nullTextOf(other), IBuffer::defaultBuffer()->contents());
}

// ---------------------------------------------------------------------------------------------------------------------
// Replacing the default

TEST(SetDefaultBuffer, TakesTheCallersReferenceOver)
{
  SingleByteBuffer* const replacement = SingleByteBuffer::holding("");
  const DefaultBufferScope scope(replacement);
  EXPECT_EQ(IBuffer::defaultBuffer(), replacement);
  EXPECT_EQ(replacement->useCount(), 1u);
}

TEST(SetDefaultBuffer, GivesTheReferenceToTheFormerDefaultBack)
{
  IBuffer* const former = IBuffer::defaultBuffer();
  const unsigned count = former->useCount();
  former->addRef();
  IBuffer::setDefaultBuffer(SingleByteBuffer::holding(""));
  EXPECT_EQ(former->useCount(), count);
  IBuffer::setDefaultBuffer(former);
  EXPECT_EQ(former->useCount(), count);
}

TEST(SetDefaultBuffer, ToTheDefaultItselfOnlyTakesTheReference)
{
  IBuffer* const null = IBuffer::defaultBuffer();
  const unsigned count = null->useCount();
  IBuffer::setDefaultBuffer(null->addRef());
  EXPECT_EQ(IBuffer::defaultBuffer(), null);
  EXPECT_EQ(null->useCount(), count);
  EXPECT_TEXT(*null, "");
}

TEST(SetDefaultBuffer, IsWhereLaterStringsStart)
{
  SingleByteBuffer* const replacement = SingleByteBuffer::holding("");
  const IString before;
  const DefaultBufferScope scope(replacement);
  const IString after;
  EXPECT_EQ(nullTextOf(after), replacement->contents());
  EXPECT_NE(nullTextOf(before), replacement->contents());
  EXPECT_TEXT(after, "", 2);
}

TEST(SetDefaultBuffer, DecidesTheKindOfLaterTexts)
{
  const DefaultBufferScope scope(SingleByteBuffer::holding(""));
  const int allocationsBefore = SingleByteBuffer::allocations;
  const IString text("abc");
  EXPECT_EQ(SingleByteBuffer::allocations, allocationsBefore + 1);
  EXPECT_TEXT(text, "abc", 1);
}

TEST(SetDefaultBuffer, DestroysAFormerDefaultThatNobodyHolds)
{
  ASSERT_TRUE(__libc_single_threaded);
  const int aliveBefore = SingleByteBuffer::alive;
  {
    const DefaultBufferScope scope(SingleByteBuffer::holding(""));
    EXPECT_EQ(SingleByteBuffer::alive, aliveBefore + 1);
  }
  EXPECT_EQ(SingleByteBuffer::alive, aliveBefore);
}

TEST(SetDefaultBuffer, KeepsAFormerDefaultUntilItsLastStringEnds)
{
  ASSERT_TRUE(__libc_single_threaded);
  const int aliveBefore = SingleByteBuffer::alive;
  {
    auto scope = std::make_unique<DefaultBufferScope>(SingleByteBuffer::holding(""));
    auto first = std::make_unique<IString>();
    const IString last;
    scope.reset();
    EXPECT_EQ(SingleByteBuffer::alive, aliveBefore + 1);
    first.reset();
    EXPECT_EQ(SingleByteBuffer::alive, aliveBefore + 1);
    EXPECT_TEXT(last, "", 1);
  }
  EXPECT_EQ(SingleByteBuffer::alive, aliveBefore);
}

TEST(SetDefaultBuffer, MayComeBackToAFormerDefault)
{
  const int aliveBefore = SingleByteBuffer::alive;
  {
    const Owned held(SingleByteBuffer::holding(""));
    {
      const DefaultBufferScope first(held->addRef());
    }
    {
      const DefaultBufferScope second(held->addRef());
      EXPECT_EQ(IBuffer::defaultBuffer(), held.get());
    }
    EXPECT_TEXT(*held, "", 1);
  }
  EXPECT_EQ(SingleByteBuffer::alive, aliveBefore);
}

TEST(SetDefaultBuffer, LeavesAllAsItWasWithoutStorage)
{
  IBuffer* const former = IBuffer::defaultBuffer();
  SingleByteBuffer* const replacement = SingleByteBuffer::holding("");
  former->addRef();  // for the way back
  const unsigned count = former->useCount();
  bool hasThrown = false;
  {
    quelmcl_test::FailingAllocations scope(1);
    try {
      IBuffer::setDefaultBuffer(replacement);
    } catch (const IOutOfMemory&) {
      hasThrown = true;
    }
  }
  if (hasThrown) {
    EXPECT_EQ(IBuffer::defaultBuffer(), former);
    EXPECT_EQ(former->useCount(), count);
    EXPECT_TEXT(*replacement, "", 1);
    replacement->removeRef();
    former->removeRef();
    return;
  }
  EXPECT_EQ(IBuffer::defaultBuffer(), replacement);
  IBuffer::setDefaultBuffer(former);
}

// Threads count on null buffers without a lock, so a count may have lost some. Here one is lost on purpose.
TEST(SetDefaultBufferDeathTest, NeverFreesAFormerDefaultOnceThereWereThreads)
{
  EXPECT_FRESH_PROCESS_WRITES("kept", {
    IBuffer* const original = IBuffer::defaultBuffer()->addRef();
    IBuffer* const replacement = SingleByteBuffer::holding("");
    IBuffer::setDefaultBuffer(replacement);
    const IString held;
    std::thread([] { const IString other; }).join();
    IBuffer::setDefaultBuffer(original);
    replacement->removeRef();  // that of `held`: as if it had never been counted
    std::fputs(SingleByteBuffer::alive == 1 && held.length() == 0 ? "kept" : "freed", stderr);
    replacement->addRef();
  });
}

TEST(SetDefaultBufferDeathTest, NeverFreesADefaultThatWasInUse)
{
  EXPECT_FRESH_PROCESS_WRITES("kept", {
    IBuffer* const replacement = SingleByteBuffer::holding("");
    IBuffer::setDefaultBuffer(replacement);
    replacement->removeRef();
    std::fputs(SingleByteBuffer::alive == 1 ? "kept" : "freed", stderr);
    replacement->addRef();
  });
}

}  // namespace
