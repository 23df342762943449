// macros_test.cpp - the macros that trace functions, blocks and texts, and the flag that makes them vanish.
#include <quelmcl/istring.hpp>
#include <quelmcl/itrace.hpp>

#include "macros_off.hpp"
#include "support/captured_stderr.hpp"

#include <gtest/gtest.h>

#include <type_traits>
#include <unistd.h>

namespace {

using quelmcl_test::CapturedStandardError;

static_assert(!std::is_copy_constructible<ITrace>::value, "a copy would leave twice");
static_assert(!std::is_copy_assignable<ITrace>::value, "nor can it become another one");
static_assert(!std::is_convertible<const char*, ITrace>::value, "texts do not turn into traces");
static_assert(std::is_base_of<IVBase, ITrace>::value, "handled through base pointers");
static_assert(std::has_virtual_destructor<ITrace>::value, "and ended through them");

class TraceMacros : public testing::Test {
protected:
  TraceMacros()
  {
    ITraceSetup::initialize();
    ITrace::writeToStandardError();
    ITrace::disableWritePrefix();
    ITrace::enableTrace();
  }
  ~TraceMacros() override
  {
    ITrace::disableTrace();
    ITrace::writeToStandardOutput();
  }
};

// clang-format off
#line 1001
int doubled(int number) { QUELMCL_TRACE_FUNCTION();
  QUELMCL_TRACE_WRITE("working");
  return 2 * number; }
// clang-format on

struct Machine {
  void run()
  {
    QUELMCL_TRACE_FUNCTION();
    {
      QUELMCL_TRACE_SCOPE("inner part");
      QUELMCL_TRACE_WRITE(IString("step ") + IString(steps));
    }
  }
  int steps;
};

TEST_F(TraceMacros, TraceAFunctionWithItsNameAndLine)
{
  CapturedStandardError output;
  EXPECT_EQ(doubled(2), 4);
  EXPECT_EQ(output.text(), "+doubled(1001)\n  >working\n-doubled\n");
}

TEST_F(TraceMacros, TraceBlocksWithinFunctions)
{
  ITrace::disableWriteLineNumber();
  CapturedStandardError output;
  Machine{7}.run();
  EXPECT_EQ(output.text(), "+run\n  +inner part\n    >step 7\n  -inner part\n-run\n");
}

TEST_F(TraceMacros, AreSingleStatements)
{
  CapturedStandardError output;
  for (const bool isTrue : {true, false})
    if (isTrue)
      QUELMCL_TRACE_WRITE("yes");
    else
      QUELMCL_TRACE_WRITE("no");
  EXPECT_EQ(output.text(), ">yes\n>no\n");
}

TEST_F(TraceMacros, EvaluateTheirTextOnlyWhileTracingIsOn)
{
  int evaluated = 0;
  const auto text = [&evaluated] {
    ++evaluated;
    return "x";
  };
  CapturedStandardError output;
  QUELMCL_TRACE_WRITE(text());
  ITrace::disableTrace();
  QUELMCL_TRACE_WRITE(text());
  EXPECT_EQ(output.text(), ">x\n");
  EXPECT_EQ(evaluated, 1);
}

TEST_F(TraceMacros, VanishUnderTheBuildFlag)
{
  CapturedStandardError output;
  EXPECT_EQ(sumTracedToNowhere(2, 3), 5);
  EXPECT_EQ(output.text(), "");
}

TEST_F(TraceMacros, AreNotNeededForTracesOnTheHeap)
{
  CapturedStandardError output;
  IVBase* const base = new ITrace("A");
  EXPECT_STREQ(base->asString(), "IVBase object");
  delete base;
  EXPECT_EQ(output.text(), "+A\n-A\n");
}

TEST(TraceFlags, AreSetClearedAndTestedOneByOne)
{
  ITraceSetup::initialize();
  ITrace::enableTrace();
  EXPECT_TRUE(ITrace::isTraceEnabled());
  EXPECT_TRUE(ITraceSetup::traceOn());
  ITrace::disableWriteLineNumber();
  EXPECT_FALSE(ITrace::isWriteLineNumberEnabled());
  EXPECT_TRUE(ITrace::isTraceEnabled());
  EXPECT_TRUE(ITrace::isWritePrefixEnabled());
  ITrace::enableWriteLineNumber();
  ITrace::disableWritePrefix();
  EXPECT_TRUE(ITrace::isWriteLineNumberEnabled());
  EXPECT_FALSE(ITrace::isWritePrefixEnabled());
  ITrace::enableWritePrefix();
  ITrace::disableTrace();
  EXPECT_TRUE(ITrace::isWritePrefixEnabled());
  EXPECT_FALSE(ITrace::isTraceEnabled());
  EXPECT_FALSE(ITraceSetup::traceOn());
}

TEST(TraceFlags, DestinationIsTheOneChosenLast)
{
  ITrace::writeToQueue();
  EXPECT_EQ(ITrace::traceDestination(), ITrace::queue);
  ITrace::writeToStandardError();
  EXPECT_EQ(ITrace::traceDestination(), ITrace::standardError);
  ITrace::writeToFile();
  EXPECT_EQ(ITrace::traceDestination(), ITrace::file);
  ITrace::writeToStandardOutput();
  EXPECT_EQ(ITrace::traceDestination(), ITrace::standardOutput);
}

struct Inside : ITrace {
  using ITrace::fCheckMemory;
  using ITrace::remainingStack;
  using ITrace::threadId;
  using ITrace::ulClProcessId;
};

TEST(TraceInside, AllThreadsAreNumberOneAndTheStackIsUnknown)
{
  EXPECT_EQ(Inside::threadId(), 1u);
  EXPECT_EQ(Inside::ulClProcessId, static_cast<unsigned long>(getpid()));
  EXPECT_EQ(Inside::remainingStack(), 0u);
  EXPECT_EQ(Inside::fCheckMemory, 0);
}

}  // namespace
