// report_test.cpp - the report of a logged exception, line for line, as the hook sees it.
#include <quelmcl/iexcbase.hpp>

#include "hooks.hpp"
#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using quelmcl_test::AllocationWatch;

typedef std::vector<std::string> Lines;

class LongNamed : public IException {
public:
  explicit LongNamed(const std::string& className) : IException("text"), ownName(className) {}
  const char* name() const override { return ownName.c_str(); }

private:
  std::string ownName;
};

TEST(Report, OfAnEmptyExceptionIsFourLines)
{
  IException exception(nullptr, 0, IException::recoverable);
  EXPECT_EQ(reportOf(exception), (Lines{
                                   "\nIException exception thrown.\n   Location information is unavailable.",
                                   "   Error Id is unavailable.",
                                   "   Error Code group is Quelm Class Library",
                                   "   Exception text is unavailable.",
                                 }));
}

TEST(Report, ShowsEveryLineOfAFullException)
{
  IInvalidRequest exception("went wrong", 1010);
  exception.setErrorCodeGroup("My Group").addLocation(IExceptionLocation("file.cpp", "work()", 42));
  EXPECT_EQ(reportOf(exception),
            (Lines{
              "IInvalidRequest exception thrown.\n   function: work()\n   file: file.cpp\n   line: 42",
              "   Error Id is 1010",
              "   Error Code group is My Group",
              "   Exception text is:",
              "      went wrong",
            }));
}

TEST(Report, CallsANullFunctionUnknown)
{
  IException exception("text");
  exception.addLocation(IExceptionLocation("file.cpp", nullptr, 1));
  EXPECT_EQ(reportOf(exception).at(0),
            "IException exception thrown.\n   function: Unknown\n   file: file.cpp\n   line: 1");
}

TEST(Report, PrintsANullFileNameAsTheCLibraryDoes)
{
  IException exception("text");
  exception.addLocation(IExceptionLocation(nullptr, "work", 1));
  EXPECT_EQ(reportOf(exception).at(0), "IException exception thrown.\n   function: work\n   file: (null)\n   line: 1");
}

TEST(Report, ShowsTheLatestLocation)
{
  IException exception("text");
  exception.addLocation(IExceptionLocation("first.cpp", "first", 1))
    .addLocation(IExceptionLocation("second.cpp", "second", 2));
  EXPECT_EQ(reportOf(exception).at(0),
            "IException exception thrown.\n   function: second\n   file: second.cpp\n   line: 2");
}

TEST(Report, ShowsTheLatestLocationWhenFiveWereNotEnough)
{
  IException exception("text");
  for (unsigned long line = 1; line <= 7; ++line)
    exception.addLocation(IExceptionLocation("file.cpp", "work", line));
  EXPECT_EQ(reportOf(exception).at(0),
            "IException exception thrown.\n   function: work\n   file: file.cpp\n   line: 7");
}

TEST(Report, SaysThatTheGroupIsUnavailableWithOneBlankMore)
{
  IException exception(nullptr);
  exception.setErrorCodeGroup(nullptr);
  EXPECT_EQ(reportOf(exception).at(2), "    Error Code group is unavailable.");
}

TEST(Report, ShowsAnEmptyGroup)
{
  IException exception(nullptr);
  exception.setErrorCodeGroup("");
  EXPECT_EQ(reportOf(exception).at(2), "   Error Code group is ");
}

TEST(Report, ListsTheTextsFromTheOldestToTheNewest)
{
  IException exception("a");
  exception.setText("b").setText("c");
  EXPECT_EQ(reportOf(exception), (Lines{
                                   "\nIException exception thrown.\n   Location information is unavailable.",
                                   "   Error Id is unavailable.",
                                   "   Error Code group is Quelm Class Library",
                                   "   Exception text is:",
                                   "      a",
                                   "      b",
                                   "      c",
                                 }));
}

TEST(Report, ListsAnEmptyText)
{
  IException exception("");
  const Lines lines = reportOf(exception);
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[3], "   Exception text is:");
  EXPECT_EQ(lines[4], "      ");
}

TEST(Report, ListsALevelWithoutTextSafely)
{
  bool sawLevelWithoutText = false;
  for (unsigned long nth = 1; nth <= 2; ++nth) {
    IException exception("a");
    {
      quelmcl_test::FailingAllocations scope(nth, quelmcl_test::FailingAllocations::andNoOther);
      exception.setText("b");
    }
    exception.setText("c");
    if (exception.textCount() != 3)
      continue;  // it was the level that got no storage
    sawLevelWithoutText = true;
    const Lines lines = reportOf(exception);
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[4], "      a");
    EXPECT_EQ(lines[5], "      (null)");
    EXPECT_EQ(lines[6], "      c");
  }
  EXPECT_TRUE(sawLevelWithoutText);
}

TEST(Report, TakesPercentSignsAsTheyAre)
{
  IException exception("100%s %n %d");
  exception.setErrorCodeGroup("%s%n").addLocation(IExceptionLocation("%s.cpp", "%d", 1));
  EXPECT_EQ(reportOf(exception), (Lines{
                                   "IException exception thrown.\n   function: %d\n   file: %s.cpp\n   line: 1",
                                   "   Error Id is unavailable.",
                                   "   Error Code group is %s%n",
                                   "   Exception text is:",
                                   "      100%s %n %d",
                                 }));
}

TEST(Report, UsesTheNameOfTheMostDerivedClass)
{
  IOutOfMemory exception(nullptr);
  IException& base = exception;
  EXPECT_EQ(reportOf(base).at(0), "\nIOutOfMemory exception thrown.\n   Location information is unavailable.");
}

TEST(Report, PrintsNumbersAsSignedOnes)
{
  IException exception(nullptr, 4294967295u);
  exception.addLocation(IExceptionLocation("file.cpp", "work", 4294967294u));
  const Lines lines = reportOf(exception);
  EXPECT_EQ(lines.at(0), "IException exception thrown.\n   function: work\n   file: file.cpp\n   line: -2");
  EXPECT_EQ(lines.at(1), "   Error Id is -1");
}

TEST(Report, PrintsTheLargestPositiveNumbersWhole)
{
  IException exception(nullptr, 2147483647u);
  exception.addLocation(IExceptionLocation("file.cpp", "work", 2147483647u));
  const Lines lines = reportOf(exception);
  EXPECT_EQ(lines.at(0), "IException exception thrown.\n   function: work\n   file: file.cpp\n   line: 2147483647");
  EXPECT_EQ(lines.at(1), "   Error Id is 2147483647");
}

// The lengths around the 200 characters that a line has room for anyway, and far beyond them.
class ReportOfLongNames : public testing::TestWithParam<unsigned> {
protected:
  ReportOfLongNames() : longName(GetParam(), 'n') {}
  const std::string longName;
};

TEST_P(ReportOfLongNames, ShowsTheWholeText)
{
  IException exception(longName.c_str());
  EXPECT_EQ(reportOf(exception).at(4), "      " + longName);
}

TEST_P(ReportOfLongNames, ShowsTheWholeOlderText)
{
  IException exception(longName.c_str());
  exception.setText("short");
  EXPECT_EQ(reportOf(exception).at(4), "      " + longName);
  EXPECT_EQ(reportOf(exception).at(5), "      short");
}

TEST_P(ReportOfLongNames, ShowsTheWholeGroup)
{
  IException exception(nullptr);
  exception.setErrorCodeGroup(longName.c_str());
  EXPECT_EQ(reportOf(exception).at(2), "   Error Code group is " + longName);
}

TEST_P(ReportOfLongNames, ShowsTheWholeClassNameWithoutALocation)
{
  LongNamed exception(longName);
  EXPECT_EQ(reportOf(exception).at(0), "\n" + longName + " exception thrown.\n   Location information is unavailable.");
}

TEST_P(ReportOfLongNames, ShowsTheWholeClassNameWithALocation)
{
  LongNamed exception(longName);
  exception.addLocation(IExceptionLocation("file.cpp", "work", 2147483647));
  EXPECT_EQ(reportOf(exception).at(0),
            longName + " exception thrown.\n   function: work\n   file: file.cpp\n   line: 2147483647");
}

TEST_P(ReportOfLongNames, ShowsTheWholeFileName)
{
  IException exception(nullptr);
  exception.addLocation(IExceptionLocation(longName.c_str(), nullptr, 2147483647));
  EXPECT_EQ(reportOf(exception).at(0),
            "IException exception thrown.\n   function: Unknown\n   file: " + longName + "\n   line: 2147483647");
}

TEST_P(ReportOfLongNames, ShowsTheWholeFunctionName)
{
  IException exception(nullptr);
  exception.addLocation(IExceptionLocation(nullptr, longName.c_str(), 4294967295u));
  EXPECT_EQ(reportOf(exception).at(0),
            "IException exception thrown.\n   function: " + longName + "\n   file: (null)\n   line: -1");
}

INSTANTIATE_TEST_SUITE_P(Length, ReportOfLongNames,
                         testing::Values(140u, 176u, 177u, 193u, 194u, 195u, 199u, 200u, 201u, 5000u, 1000000u),
                         testing::PrintToStringParamName());

TEST(Report, ListsVeryManyTextsInOrder)
{
  const unsigned levels = 100000;
  IException exception("0");
  for (unsigned level = 1; level < levels; ++level)
    exception.setText(std::to_string(level).c_str());

  const Lines lines = reportOf(exception);
  ASSERT_EQ(lines.size(), 4 + levels);
  for (unsigned level = 0; level < levels; ++level)
    ASSERT_EQ(lines[4 + level], "      " + std::to_string(level));
}

TEST(Report, LeavesTheExceptionAsItWas)
{
  IException exception("a", 5, IException::recoverable);
  exception.setText("b").addLocation(IExceptionLocation("file.cpp", "work", 1));
  reportOf(exception);
  EXPECT_EQ(exception.textCount(), 2u);
  EXPECT_STREQ(exception.text(0), "b");
  EXPECT_STREQ(exception.text(1), "a");
  EXPECT_EQ(exception.errorId(), 5u);
  EXPECT_EQ(exception.locationCount(), 1u);
}

TEST(Report, LeaksNothing)
{
  CountingHook hook;
  InstalledHook installed(hook);
  IException exception("a");
  AllocationWatch watch;
  exception.logExceptionData();
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
  EXPECT_EQ(hook.lineCount, 5);
}

TEST(Report, CostsOneAllocation)
{
  CountingHook hook;
  InstalledHook installed(hook);
  IException exception("a");
  exception.setText("b").addLocation(IExceptionLocation("file.cpp", "work", 1));
  AllocationWatch watch;
  exception.logExceptionData();
  const unsigned long allocations = watch.allocations();
  EXPECT_EQ(allocations, 1u);
}

TEST(Report, IsCompleteWhenTheHookIsToldSo)
{
  RecordingHook hook;
  InstalledHook installed(hook);
  IException exception("a");
  exception.logExceptionData();
  EXPECT_EQ(hook.reports, 1);
  EXPECT_EQ(hook.linesAtLastReport, hook.lines.size());
  exception.logExceptionData();
  EXPECT_EQ(hook.reports, 2);
  EXPECT_EQ(hook.linesAtLastReport, 10u);
}

TEST(Report, LoggingReturnsTheException)
{
  CountingHook hook;
  InstalledHook installed(hook);
  IException exception("a");
  EXPECT_EQ(&exception.logExceptionData(), &exception);
}

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
class ThrowingHook : public IException::TraceFn {
public:
  explicit ThrowingHook(int linesBeforeThrowing) : linesLeft(linesBeforeThrowing), reports(0) {}
  void write(const char*) override
  {
    if (linesLeft-- == 0)
      throw std::runtime_error("cannot write");
  }
  int linesLeft;
  int reports;

protected:
  void exceptionLogged() override { ++reports; }
};

class HookThatLogsAgain : public RecordingHook {
public:
  HookThatLogsAgain() : hasLoggedAgain(false) {}
  void write(const char* buffer) override
  {
    const std::string line(buffer);
    if (!hasLoggedAgain) {
      hasLoggedAgain = true;
      IAccessError(nullptr).logExceptionData();
    }
    lines.push_back(line);
    lineAfterwards = buffer;
  }
  bool hasLoggedAgain;
  std::string lineAfterwards;
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

TEST(Report, ThatTheHookRefusesLeaksNothing)
{
  for (int lines = 0; lines < 5; ++lines) {
    ThrowingHook hook(lines);
    InstalledHook installed(hook);
    IException exception("a");
    AllocationWatch watch;
    bool hasArrived = false;
    try {
      exception.logExceptionData();
    } catch (const std::runtime_error&) {
      hasArrived = true;
    }
    const long live = watch.liveBlocks();
    EXPECT_TRUE(hasArrived) << "line " << lines;
    EXPECT_EQ(live, 0) << "line " << lines;
    EXPECT_EQ(hook.reports, 0) << "line " << lines;
  }
}

TEST(Report, MayLogAnotherExceptionOnItsWay)
{
  HookThatLogsAgain hook;
  InstalledHook installed(hook);
  IException exception("a");
  exception.logExceptionData();
  ASSERT_EQ(hook.lines.size(), 4u + 5u);
  EXPECT_EQ(hook.lines[0], "\nIAccessError exception thrown.\n   Location information is unavailable.");
  EXPECT_EQ(hook.lines[4], "\nIException exception thrown.\n   Location information is unavailable.");
  EXPECT_EQ(hook.lines[8], "      a");
  EXPECT_EQ(hook.reports, 2);
  EXPECT_EQ(hook.lineAfterwards, "      a");
}

}  // namespace
