// trace_function_test.cpp - the hook: which one is in effect, what the library's own does, how one replaces another.
#include <quelmcl/iexcbase.hpp>
#include <quelmcl/iexcept.hpp>
#include <quelmcl/istartup.hpp>

#include "hooks.hpp"
#include "support/captured_stderr.hpp"
#include "support/fresh_process.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using quelmcl_test::CapturedStandardError;

static_assert(!std::is_default_constructible<IException::TraceFn>::value, "hooks are derived, not built");
static_assert(std::is_base_of<IException::TraceFn, IExceptTraceFn>::value, "the library's own hook is one of them");

TEST(TraceFunction, InstallingReturnsTheOneBefore)
{
  RecordingHook first;
  RecordingHook second;
  RecordingHook third;
  InstalledHook installed(first);
  EXPECT_EQ(IException::setTraceFunction(second), &first);
  EXPECT_EQ(IException::setTraceFunction(third), &second);
}

TEST(TraceFunction, InstallingTheSameAgainReturnsIt)
{
  RecordingHook hook;
  InstalledHook installed(hook);
  EXPECT_EQ(IException::setTraceFunction(hook), &hook);
}

TEST(TraceFunction, InEffectIsTheOneInstalledLast)
{
  RecordingHook first;
  RecordingHook second;
  InstalledHook installedFirst(first);
  EXPECT_EQ(IExceptStaticPtr::traceFunction(), &first);
  InstalledHook installedSecond(second);
  EXPECT_EQ(IExceptStaticPtr::traceFunction(), &second);

  IException("a").logExceptionData();
  EXPECT_TRUE(first.lines.empty());
  EXPECT_EQ(second.lines.size(), 5u);
}

TEST(TraceFunction, ReceivesTheLinesOfAReportBuiltByAnotherHook)
{
  RecordingHook inEffect;
  RecordingHook other;
  InstalledHook installed(inEffect);
  IException exception("a");
  other.logData(exception);
  EXPECT_EQ(inEffect.lines.size(), 5u);
  EXPECT_TRUE(other.lines.empty());
}

TEST(TraceFunction, ThatBuiltTheReportIsToldWhenItIsComplete)
{
  RecordingHook inEffect;
  RecordingHook other;
  InstalledHook installed(inEffect);
  IException exception("a");
  other.logData(exception);
  EXPECT_EQ(other.reports, 1);
  EXPECT_EQ(inEffect.reports, 0);
}

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
class HookWithItsOwnReport : public RecordingHook {
public:
  HookWithItsOwnReport() : seen(nullptr) {}
  void logData(IException& exception) override { seen = &exception; }
  IException* seen;
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

TEST(TraceFunction, MayBuildAReportOfItsOwn)
{
  HookWithItsOwnReport hook;
  InstalledHook installed(hook);
  IException exception("a");
  exception.logExceptionData();
  EXPECT_EQ(hook.seen, &exception);
  EXPECT_TRUE(hook.lines.empty());
}

TEST(LibrarysOwnTraceFunction, WritesALineAndANewlineToStandardError)
{
  IExceptTraceFn hook;
  CapturedStandardError output;
  hook.write("one line");
  EXPECT_EQ(output.text(), "one line\n");
}

TEST(LibrarysOwnTraceFunction, TakesPercentSignsAsTheyAre)
{
  IExceptTraceFn hook;
  CapturedStandardError output;
  hook.write("100%s%n");
  hook.write("");
  EXPECT_EQ(output.text(), "100%s%n\n\n");
}

TEST(LibrarysOwnTraceFunction, WritesWholeReportsToStandardError)
{
  IExceptTraceFn hook;
  InstalledHook installed(hook);
  IAccessError exception("older", 5);
  exception.setText("newer").addLocation(IExceptionLocation("file.cpp", "work", 9));
  CapturedStandardError output;
  exception.logExceptionData();
  EXPECT_EQ(output.text(),
            "IAccessError exception thrown.\n"
            "   function: work\n"
            "   file: file.cpp\n"
            "   line: 9\n"
            "   Error Id is 5\n"
            "   Error Code group is Quelm Class Library\n"
            "   Exception text is:\n"
            "      older\n"
            "      newer\n");
}

// What follows is about a process in which nobody has installed a hook but the library itself, when it was loaded.

void switchTraceOn()
{
  setenv("KOLTA_TRACE", "noprefix", 1);
  setenv("KOLTA_TRACETO", "stderr", 1);
}

void throwAndCatch()
{
  try {
    IException::assertParameter("a", IExceptionLocation("file.cpp", "work", 3));
  } catch (const IAssertionFailure&) {
    std::fputs("caught\n", stderr);
  }
}

TEST(TraceFunctionDeathTest, ReportsGoNowhereWhileTheTraceIsOff)
{
  EXPECT_FRESH_PROCESS_WRITES("", IException("a").logExceptionData());
}

TEST(TraceFunctionDeathTest, AnExceptionReportedToNowhereIsThrownAllTheSame)
{
  EXPECT_FRESH_PROCESS_WRITES("caught\n", throwAndCatch());
}

TEST(TraceFunctionDeathTest, ReportsGoToTheTraceWhileItIsOn)
{
  EXPECT_FRESH_PROCESS_WRITES(
    ">\n"
    ">IException exception thrown.\n"
    ">   Location information is unavailable.\n"
    ">   Error Id is unavailable.\n"
    ">   Error Code group is Quelm Class Library\n"
    ">   Exception text is:\n"
    ">      a\n",
    switchTraceOn();
    IException("a").logExceptionData());
}

TEST(TraceFunctionDeathTest, ThrowFunctionsReportToTheTraceWhileItIsOn)
{
  EXPECT_FRESH_PROCESS_WRITES(
    ">IAssertionFailure exception thrown.\n"
    ">   function: work\n"
    ">   file: file.cpp\n"
    ">   line: 3\n"
    ">   Error Id is unavailable.\n"
    ">   Error Code group is Other Error Group\n"
    ">   Exception text is:\n"
    ">      a\n"
    "caught\n",
    switchTraceOn();
    throwAndCatch());
}

TEST(TraceFunctionDeathTest, ReportsGoToTheProgramsHookAndNotToTheTraceOnceThereIsOne)
{
  RecordingHook hook;
  EXPECT_FRESH_PROCESS_WRITES("caught\n", switchTraceOn(); IException::setTraceFunction(hook); throwAndCatch());
}

void sayWhatWasInEffect(IException::TraceFn* hook)
{
  std::fputs(dynamic_cast<KOLTA_Init*>(hook) != nullptr ? "the one that traces" : "some other", stderr);
}

TEST(TraceFunctionDeathTest, InstallingTheFirstReturnsTheOneThatTraces)
{
  RecordingHook hook;
  EXPECT_FRESH_PROCESS_WRITES("the one that traces", sayWhatWasInEffect(IException::setTraceFunction(hook)));
}

TEST(TraceFunctionDeathTest, InEffectAtFirstIsTheOneThatTraces)
{
  EXPECT_FRESH_PROCESS_WRITES("the one that traces", sayWhatWasInEffect(IExceptStaticPtr::traceFunction()));
}

TEST(TraceFunctionDeathTest, TheOneThatTracesIsAlwaysTheSame)
{
  RecordingHook hook;
  EXPECT_FRESH_PROCESS_WRITES(
    "the same", IException::TraceFn* const before = IExceptStaticPtr::traceFunction();
    IException::TraceFn* const replaced = IException::setTraceFunction(hook);
    std::fputs(before == replaced && IExceptStaticPtr::traceFunction() == &hook ? "the same" : "different", stderr));
}

TEST(TraceFunctionDeathTest, TheOneThatTracesCanBeInstalledAgain)
{
  RecordingHook hook;
  EXPECT_FRESH_PROCESS_WRITES(
    ">line\n", switchTraceOn(); IException::TraceFn* const own = IException::setTraceFunction(hook);
    hook.write("not this one"); IException::setTraceFunction(*own); IExceptStaticPtr::traceFunction()->write("line"));
}

}  // namespace
