// storage_test.cpp - what the trace takes from the heap, what it does without, and what it leaves alone.
#include <quelmcl/istring.hpp>
#include <quelmcl/itrace.hpp>

#include "support/captured_stderr.hpp"
#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <string>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::CapturedStandardError;
using quelmcl_test::FailingAllocations;

/// Tracing to standard error without prefix; afterwards it is off again.
class TraceWithoutStorage : public testing::Test {
protected:
  TraceWithoutStorage()
  {
    ITraceSetup::initialize();
    ITrace::writeToStandardError();
    ITrace::disableWritePrefix();
    ITrace::enableTrace();
  }
  ~TraceWithoutStorage() override
  {
    ITrace::disableTrace();
    ITrace::writeToStandardOutput();
  }
};

TEST_F(TraceWithoutStorage, WritesShortLinesAllTheSame)
{
  CapturedStandardError output;
  {
    FailingAllocations scope(1);
    const ITrace trace("A", 3);
    ITrace::write("x\ny");
  }
  EXPECT_EQ(output.text(), "+A(3)\n  >x\n  >y\n-A\n");
}

TEST_F(TraceWithoutStorage, LeavesLongLinesOutAndKeepsTheIndentation)
{
  const std::string name(5000, 'n');
  CapturedStandardError output;
  unsigned long failures = 0;
  {
    FailingAllocations scope(1);
    const ITrace outer("A");
    const ITrace inner(name.c_str());
    ITrace::write("x");
    failures = scope.failures();
  }
  EXPECT_EQ(output.text(), "+A\n    >x\n-A\n");
  EXPECT_EQ(failures, 1u);
}

int handlerCalls = 0;

void countAndGiveUp()
{
  ++handlerCalls;
  throw std::bad_alloc();
}

TEST_F(TraceWithoutStorage, NeitherCallsTheNewHandlerNorLosesIt)
{
  const std::string text(5000, 'x');
  CapturedStandardError output;
  handlerCalls = 0;
  const std::new_handler former = std::set_new_handler(countAndGiveUp);
  {
    FailingAllocations scope(1);
    ITrace::write(text.c_str());
  }
  const std::new_handler after = std::set_new_handler(former);
  EXPECT_EQ(output.text(), "");
  EXPECT_EQ(handlerCalls, 0);
  EXPECT_EQ(after, countAndGiveUp);
}

TEST_F(TraceWithoutStorage, GivesBackWhatALongLineTook)
{
  const IString text = IString::copy(IString("x"), 5000);
  CapturedStandardError output;
  AllocationWatch watch;
  ITrace::write(text);
  EXPECT_EQ(watch.allocations(), 1u);
  EXPECT_EQ(watch.liveBlocks(), 0);
  EXPECT_EQ(output.text(), ">" + std::string(5000, 'x') + "\n");
}

TEST(TraceThatIsOff, BuildsNothing)
{
  ITraceSetup::initialize();
  ASSERT_FALSE(ITraceSetup::traceOn()) << "the environment of this test switches tracing on";
  const IString name("a name that is long enough for a buffer of its own");
  AllocationWatch watch;
  {
    QUELMCL_TRACE_FUNCTION();
    QUELMCL_TRACE_WRITE(name + " and more");
    const ITrace trace("A", 3);
    ITrace::write("x");
    ITrace::write(name);
  }
  EXPECT_EQ(watch.allocations(), 0u);
}

TEST_F(TraceWithoutStorage, LeavesErrnoAlone)
{
  CapturedStandardError output;
  for (const ITrace::Destination place : {ITrace::standardError, ITrace::file}) {
    if (place == ITrace::file) {
      setenv("KOLTA_TRACEFILE", "/nowhere/at/all", 1);
      ITrace::writeToFile();
    }
    errno = EDOM;
    ITrace::write("x");
    EXPECT_EQ(errno, EDOM);
    unsetenv("KOLTA_TRACEFILE");
  }
}

}  // namespace
