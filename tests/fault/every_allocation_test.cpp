// every_allocation_test.cpp - runs each operation of the tables with its 1st, 2nd, ... allocation failing, until nothing fails any more.
//
// An allocation point is one failure of one allocation: of one operation, on texts that are shared or not, with the library's
// new-handler in force or none, in operator new alone or in malloc below everything, for once or for good.
#include "operations.hpp"
#include "support/captured_stderr.hpp"
#include "support/failing_allocations.hpp"
#include "support/failing_malloc.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <new>
#include <ostream>
#include <string>

namespace faulttests {

void PrintTo(const Operation& operation, std::ostream* stream)
{
  *stream << operation.name;
}

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::CapturedStandardError;
using quelmcl_test::FailingAllocations;
using quelmcl_test::FailingMalloc;
using quelmcl_test::MallocWatch;

enum Storage { operatorNew, malloc_ };

/// The circumstances of a failure, all but its number.
struct Circumstances {
  Sharing sharing;
  bool hasHandler;
  FailingAllocations::Extent extent;
  Storage storage;
};

std::vector<Circumstances> allCircumstances()
{
  std::vector<Circumstances> all;
  for (const Sharing sharing : {alone, shared})
    for (const bool hasHandler : {true, false})
      for (const FailingAllocations::Extent extent : {FailingAllocations::andAllLater, FailingAllocations::andNoOther})
        for (const Storage storage : {operatorNew, malloc_})
          if (storage == operatorNew || FailingMalloc::isPossible)
            all.push_back({sharing, hasHandler, extent, storage});
  return all;
}

std::string toldOf(const Circumstances& when, unsigned long nth)
{
  return "allocation " + std::to_string(nth) +
         (when.extent == FailingAllocations::andNoOther ? " alone" : " and all later") +
         (when.storage == malloc_ ? " of malloc" : " of operator new") +
         (when.hasHandler ? ", with the library's new-handler" : ", without a new-handler") +
         (when.sharing == shared ? ", text shared" : ", text not shared");
}

/// Puts a new-handler in force, and back what was there before.
class HandlerInForce {
public:
  explicit HandlerInForce(std::new_handler handler) : before(std::set_new_handler(handler)) {}
  ~HandlerInForce() { std::set_new_handler(before); }
  HandlerInForce(const HandlerInForce&) = delete;
  HandlerInForce& operator=(const HandlerInForce&) = delete;

private:
  std::new_handler before;
};

enum Thrown { nothing, outOfMemory, badAlloc, anotherException };

struct Outcome {
  unsigned long failures;
  Thrown thrown;
};

/// Tells how many allocations failed, when the scope ends.
template <class Scope>
class Failing {
public:
  Failing(unsigned long nth, const Circumstances& when, unsigned long& told) : scope(nth, when.extent), failures(told)
  {
  }
  ~Failing() { failures = scope.failures(); }
  Failing(const Failing&) = delete;
  Failing& operator=(const Failing&) = delete;

private:
  Scope scope;
  unsigned long& failures;
};

template <class Scope>
Outcome runFailing(const Operation& operation, World& world, unsigned long nth, const Circumstances& when)
{
  Outcome outcome = {0, nothing};
  try {
    const Failing<Scope> failing(nth, when, outcome.failures);
    operation.run(world);
  } catch (const IOutOfMemory& failure) {
    const bool isAsPromised = failure.errorId() == 4 && !failure.isRecoverable() && failure.locationCount() > 0;
    outcome.thrown = isAsPromised ? outOfMemory : anotherException;
  } catch (const std::bad_alloc&) {
    outcome.thrown = badAlloc;
  } catch (...) {
    outcome.thrown = anotherException;
  }
  return outcome;
}

Outcome runFailing(const Operation& operation, World& world, unsigned long nth, const Circumstances& when)
{
  return when.storage == malloc_ ? runFailing<FailingMalloc>(operation, world, nth, when)
                                 : runFailing<FailingAllocations>(operation, world, nth, when);
}

/// What the world looks like after the operation has been done without a failure.
std::string descriptionAfter(const Operation& operation, Sharing sharing)
{
  World world(sharing);
  operation.run(world);
  EXPECT_STREQ(world.brokenClaim, nullptr);
  EXPECT_TRUE(world.countsAreRight());
  return world.description();
}

/// The exception that was thrown, or that there was none, is what the operation promises.
void expectPromisedException(const Operation& operation, const Circumstances& when, const Outcome& outcome)
{
  const Thrown exhausted = when.hasHandler ? outOfMemory : badAlloc;
  switch (operation.promise) {
  case strong:
  case basic:
    EXPECT_EQ(outcome.thrown, exhausted);
    break;
  case strongButForC:
    if (when.storage == malloc_ && outcome.thrown == nothing)
      break;
    EXPECT_EQ(outcome.thrown, exhausted);
    break;
  case strongOrQuiet:
    EXPECT_TRUE(outcome.thrown == exhausted || outcome.thrown == nothing) << outcome.thrown;
    break;
  case quiet:
    EXPECT_EQ(outcome.thrown, nothing);
    break;
  case needsNone:
    ADD_FAILURE() << "storage was asked for";
  }
}

/// One run with a failure. Returns how many allocations failed: with none, the operation has fewer of them.
unsigned long failOnce(const Operation& operation, unsigned long nth, const Circumstances& when,
                       const std::string& done)
{
  World world(when.sharing);
  const std::string before = world.description();
  const std::new_handler handler = when.hasHandler ? KOLTA_Init::newHandler : nullptr;
  const HandlerInForce inForce(handler);

  const Outcome outcome = runFailing(operation, world, nth, when);
  EXPECT_TRUE(std::get_new_handler() == handler);
  EXPECT_TRUE(world.countsAreRight());
  EXPECT_STREQ(world.brokenClaim, nullptr);
  if (outcome.failures == 0) {
    EXPECT_EQ(outcome.thrown, nothing);
    EXPECT_EQ(world.description(), done);
    return 0;
  }

  expectPromisedException(operation, when, outcome);
  const bool isDone = outcome.thrown == nothing && operation.promise != quiet;
  if (outcome.thrown != nothing && operation.promise != basic) {
    EXPECT_EQ(world.description(), before);
  }
  if (!isDone)
    operation.run(world);  // the objects can be used on, and nothing of the failure is left in them
  EXPECT_EQ(world.description(), done);
  EXPECT_TRUE(world.countsAreRight());
  return outcome.failures;
}

/// All failures of one operation under the same circumstances. Returns how many there were.
unsigned long failEach(const Operation& operation, const Circumstances& when)
{
  const std::string done = descriptionAfter(operation, when.sharing);
  const unsigned referencesToNull = IBuffer::defaultBuffer()->useCount();
  for (unsigned long nth = 1;; ++nth) {
    SCOPED_TRACE(toldOf(when, nth));
    const AllocationWatch newBlocks;
    const MallocWatch mallocBlocks;
    const unsigned long failures = failOnce(operation, nth, when, done);
    tzset();  // the C library notes the name of its time zone again, if it could not when it wanted to
    if (testing::Test::HasFailure())
      return nth;
    EXPECT_EQ(newBlocks.liveBlocks(), 0) << "blocks are lost";
    EXPECT_EQ(mallocBlocks.liveBlocks(), 0) << "blocks are lost";
    EXPECT_EQ(IBuffer::defaultBuffer()->useCount(), referencesToNull);
    if (failures == 0)
      return nth - 1;
  }
}

/// What the process keeps from the first use of something on is nobody's loss.
void warmUp(const Operation& operation)
{
  tzset();
  for (const Sharing sharing : {alone, shared})
    descriptionAfter(operation, sharing);
}

template <class Scope>
unsigned long allocationsWithin(const Operation& operation, World& world)
{
  const Scope counting(FailingAllocations::never);
  operation.run(world);
  return counting.attempts();
}

/// How many allocations the operation makes when nothing fails. Under these circumstances each of them is one allocation point.
unsigned long allocationsOf(const Operation& operation, const Circumstances& when)
{
  World world(when.sharing);
  return when.storage == malloc_ ? allocationsWithin<FailingMalloc>(operation, world)
                                 : allocationsWithin<FailingAllocations>(operation, world);
}

class EveryAllocationOf : public testing::TestWithParam<Operation> {};

TEST_P(EveryAllocationOf, MayFail)
{
  const CapturedStandardError reports;  // exceptions report there when they have no storage either
  warmUp(GetParam());
  unsigned long points = 0;
  for (const Circumstances& when : allCircumstances()) {
    const unsigned long failed = failEach(GetParam(), when);
    if (HasFailure())
      return;
    EXPECT_EQ(failed, allocationsOf(GetParam(), when));
    points += failed;
  }
  EXPECT_EQ(points == 0, GetParam().promise == needsNone);
}

INSTANTIATE_TEST_SUITE_P(Operations, EveryAllocationOf, testing::ValuesIn(allOperations()),
                         [](const testing::TestParamInfo<Operation>& row) { return std::string(row.param.name); });

TEST(EveryAllocation, IsOneOfThousandsInManyOperations)
{
  const CapturedStandardError reports;
  int operations = 0;
  unsigned long points = 0;
  for (const Operation& operation : allOperations()) {
    warmUp(operation);
    const unsigned long before = points;
    for (const Circumstances& when : allCircumstances())
      points += allocationsOf(operation, when);
    operations += points > before;
  }
  std::printf("%d operations with %lu allocation points\n", operations, points);
  EXPECT_GE(operations, 60);
  EXPECT_GE(points, 2000u);
}

}  // namespace
}  // namespace faulttests
