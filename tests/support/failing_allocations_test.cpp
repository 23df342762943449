// failing_allocations_test.cpp - the tests' own view of the heap: it must see, count and refuse what it claims to.
#include "support/failing_allocations.hpp"

#include <quelmcl/iexcbase.hpp>

#include <gtest/gtest.h>

#include <future>
#include <new>
#include <thread>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;

int handlerCalls = 0;

void countAndGiveUp()
{
  ++handlerCalls;
  throw std::bad_alloc();
}

void countAndUninstall()
{
  ++handlerCalls;
  std::set_new_handler(nullptr);
}

class NewHandlerScope {
public:
  explicit NewHandlerScope(std::new_handler handler) : previous(std::set_new_handler(handler)) { handlerCalls = 0; }
  ~NewHandlerScope() { std::set_new_handler(previous); }

private:
  const std::new_handler previous;
};

bool throwingFormFails()
{
  try {
    ::operator delete(::operator new(8));
    return false;
  } catch (const std::bad_alloc&) {
    return true;
  }
}

bool quietFormFails()
{
  void* const block = ::operator new(8, std::nothrow);
  ::operator delete(block);
  return block == nullptr;
}

TEST(AllocationWatch, CountsBlocksUntilTheyAreReleased)
{
  AllocationWatch watch;
  void* const block = ::operator new(8);
  const unsigned long allocations = watch.allocations();
  const long live = watch.liveBlocks();
  ::operator delete(block);
  const long liveAtTheEnd = watch.liveBlocks();

  EXPECT_EQ(allocations, 1u);
  EXPECT_EQ(live, 1);
  EXPECT_EQ(liveAtTheEnd, 0);
}

TEST(AllocationWatch, CountsTheBlocksOfEveryForm)
{
  AllocationWatch watch;
  void* const blocks[] = {::operator new(1), ::operator new[](0), ::operator new(1, std::nothrow),
                          ::operator new[](1, std::nothrow)};
  const long live = watch.liveBlocks();
  ::operator delete(blocks[0]);
  ::operator delete[](blocks[1]);
  ::operator delete(blocks[2], std::nothrow);
  ::operator delete[](blocks[3], std::nothrow);
  const long liveAtTheEnd = watch.liveBlocks();

  EXPECT_EQ(live, 4);
  EXPECT_EQ(liveAtTheEnd, 0);
}

#ifdef __cpp_aligned_new
TEST(AllocationWatch, CountsAlignedBlocksAndAlignsThem)
{
  AllocationWatch watch;
  void* const block = ::operator new(3, std::align_val_t(256));
  const long live = watch.liveBlocks();
  const auto address = reinterpret_cast<std::size_t>(block);
  ::operator delete(block, std::align_val_t(256));

  EXPECT_EQ(live, 1);
  EXPECT_EQ(address % 256, 0u);
  EXPECT_EQ(watch.liveBlocks(), 0);
}
#endif

TEST(AllocationWatch, SeesTheBlocksOfTheLibrary)
{
  AllocationWatch watch;
  {
    const IException failure("text");
    const long live = watch.liveBlocks();
    EXPECT_GT(live, 0);
  }
  EXPECT_EQ(watch.liveBlocks(), 0);
}

/// What the language itself does about a failed allocation: the library's new-handler, which throws an exception of its own and needs
/// storage for it, is out of the way.
class FailingAllocationsScope : public testing::Test {
private:
  const NewHandlerScope noHandler{nullptr};
};

TEST_F(FailingAllocationsScope, FailsTheNthAllocationAndAllLaterOnes)
{
  bool failed[4];
  unsigned long attempts = 0;
  unsigned long failures = 0;
  {
    FailingAllocations scope(3);
    for (bool& answer : failed)
      answer = throwingFormFails();
    attempts = scope.attempts();
    failures = scope.failures();
  }

  EXPECT_FALSE(failed[0]);
  EXPECT_FALSE(failed[1]);
  EXPECT_TRUE(failed[2]);
  EXPECT_TRUE(failed[3]);
  EXPECT_EQ(attempts, 4u);
  EXPECT_EQ(failures, 2u);
}

TEST_F(FailingAllocationsScope, FailsOnlyTheNthAllocationWhenAskedTo)
{
  bool failed[3];
  {
    FailingAllocations scope(2, FailingAllocations::andNoOther);
    for (bool& answer : failed)
      answer = quietFormFails();
  }

  EXPECT_FALSE(failed[0]);
  EXPECT_TRUE(failed[1]);
  EXPECT_FALSE(failed[2]);
}

TEST_F(FailingAllocationsScope, NeverOnlyCounts)
{
  bool failed = true;
  unsigned long attempts = 0;
  {
    FailingAllocations scope(FailingAllocations::never);
    failed = throwingFormFails() || quietFormFails();
    attempts = scope.attempts();
  }

  EXPECT_FALSE(failed);
  EXPECT_EQ(attempts, 2u);
}

TEST_F(FailingAllocationsScope, EndsWithItsBlock)
{
  {
    FailingAllocations scope(1);
  }
  EXPECT_FALSE(throwingFormFails());
}

TEST_F(FailingAllocationsScope, GivesWayToAnInnerScopeAndComesBack)
{
  bool inner = true;
  bool outer = false;
  {
    FailingAllocations scope(1);
    {
      FailingAllocations innerScope(FailingAllocations::never);
      inner = throwingFormFails();
    }
    outer = throwingFormFails();
  }

  EXPECT_FALSE(inner);
  EXPECT_TRUE(outer);
}

TEST_F(FailingAllocationsScope, LeavesOtherThreadsAlone)
{
  bool failedHere = false;
  bool failedThere = true;
  std::promise<void> isArmed;
  std::future<void> armed = isArmed.get_future();
  std::thread other([&] {
    armed.wait();
    failedThere = throwingFormFails();
  });
  {
    FailingAllocations scope(1);
    failedHere = throwingFormFails();
    isArmed.set_value();
    other.join();
  }
  EXPECT_TRUE(failedHere);
  EXPECT_FALSE(failedThere);
}

TEST_F(FailingAllocationsScope, ReachesTheLibrary)
{
  unsigned long failures = 0;
  {
    FailingAllocations scope(1);
    const IException failure("text");
    failures = scope.failures();
  }
  EXPECT_GT(failures, 0u);
}

TEST_F(FailingAllocationsScope, BothFormsCallTheNewHandler)
{
  NewHandlerScope handler(countAndGiveUp);
  bool failed = false;
  {
    FailingAllocations scope(1);
    failed = throwingFormFails() && quietFormFails();
  }

  EXPECT_TRUE(failed);
  EXPECT_EQ(handlerCalls, 2);
}

TEST_F(FailingAllocationsScope, TriesAgainAfterAHandlerThatReturns)
{
  NewHandlerScope handler(countAndUninstall);
  bool failed = true;
  {
    FailingAllocations scope(1, FailingAllocations::andNoOther);
    failed = throwingFormFails();
  }

  EXPECT_FALSE(failed);
  EXPECT_EQ(handlerCalls, 1);
}

}  // namespace
