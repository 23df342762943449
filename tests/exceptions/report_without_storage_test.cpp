// report_without_storage_test.cpp - when there is no room for a line, the report goes straight to standard error, in a form
// that differs in details.
#include <quelmcl/iexcbase.hpp>

#include "hooks.hpp"
#include "support/captured_stderr.hpp"
#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::CapturedStandardError;
using quelmcl_test::FailingAllocations;

class ReportWithoutStorage : public testing::Test {
protected:
  ReportWithoutStorage() : installed(hook), failures(0) {}

  std::string reportOnStandardError(IException& exception)
  {
    CapturedStandardError output;
    {
      FailingAllocations scope(1);
      exception.logExceptionData();
      failures = scope.failures();
    }
    return output.text();
  }

  CountingHook hook;
  InstalledHook installed;
  unsigned long failures;
};

TEST(Report, GoesToStandardErrorWithoutStorage)
{
  CountingHook hook;
  InstalledHook installed(hook);
  IException exception("a", 5);
  CapturedStandardError output;
  {
    FailingAllocations scope(1);
    exception.logExceptionData();
  }
  EXPECT_EQ(output.text(),
            "\nIException exception thrown.\n"
            "   Location information is unavailable.\n"
            "   Error ID is 5\n"
            " Error Code group is Quelm Class Library\n"
            "   Exception text is:\n"
            "      a\n");
  EXPECT_EQ(hook.lineCount, 0);
}

TEST_F(ReportWithoutStorage, OfAnEmptyExceptionSaysThatEverythingIsUnavailable)
{
  IException exception(nullptr);
  exception.setErrorCodeGroup(nullptr);
  EXPECT_EQ(reportOnStandardError(exception),
            "\nIException exception thrown.\n"
            "   Location information is unavailable.\n"
            "   Error ID is unavailable.\n"
            "   Error Code group is unavailable.\n"
            "   Exception text is unavailable.\n");
  EXPECT_GT(failures, 0u);
}

TEST_F(ReportWithoutStorage, OfAFullExceptionShowsEverything)
{
  IDeviceError exception("older", 1010);
  exception.setText("newer")
    .setErrorCodeGroup("My Group")
    .addLocation(IExceptionLocation("first.cpp", "first", 1))
    .addLocation(IExceptionLocation("second.cpp", "second", 2));
  EXPECT_EQ(reportOnStandardError(exception),
            "IDeviceError exception thrown.\n"
            "   function: second\n"
            "   file: second.cpp\n"
            "   line: 2.\n"
            "   Error ID is 1010\n"
            " Error Code group is My Group\n"
            "   Exception text is:\n"
            "      older\n"
            "      newer\n");
  EXPECT_GT(failures, 0u);
}

TEST_F(ReportWithoutStorage, CallsANullFunctionUnknownAndPrintsANullFileName)
{
  IException exception(nullptr);
  exception.addLocation(IExceptionLocation(nullptr, nullptr, 3));
  EXPECT_EQ(reportOnStandardError(exception),
            "IException exception thrown.\n"
            "   function: Unknown\n"
            "   file: (null)\n"
            "   line: 3.\n"
            "   Error ID is unavailable.\n"
            " Error Code group is Quelm Class Library\n"
            "   Exception text is unavailable.\n");
}

TEST_F(ReportWithoutStorage, ShowsAnEmptyText)
{
  IException exception("");
  EXPECT_EQ(reportOnStandardError(exception),
            "\nIException exception thrown.\n"
            "   Location information is unavailable.\n"
            "   Error ID is unavailable.\n"
            " Error Code group is Quelm Class Library\n"
            "   Exception text is:\n"
            "      \n");
}

TEST_F(ReportWithoutStorage, ShowsLongTextsWhole)
{
  const std::string longText(100000, 'x');
  IException exception(longText.c_str(), 1);
  exception.setErrorCodeGroup(longText.c_str());
  EXPECT_EQ(reportOnStandardError(exception),
            "\nIException exception thrown.\n"
            "   Location information is unavailable.\n"
            "   Error ID is 1\n"
            " Error Code group is " +
              longText +
              "\n"
              "   Exception text is:\n"
              "      " +
              longText + "\n");
}

TEST_F(ReportWithoutStorage, TakesPercentSignsAsTheyAre)
{
  IException exception("100%s %n");
  exception.setErrorCodeGroup("%s%n").addLocation(IExceptionLocation("%s.cpp", "%d", 1));
  EXPECT_EQ(reportOnStandardError(exception),
            "IException exception thrown.\n"
            "   function: %d\n"
            "   file: %s.cpp\n"
            "   line: 1.\n"
            "   Error ID is unavailable.\n"
            " Error Code group is %s%n\n"
            "   Exception text is:\n"
            "      100%s %n\n");
}

TEST_F(ReportWithoutStorage, ReachesStandardErrorAndNotTheHook)
{
  IException exception("a");
  reportOnStandardError(exception);
  EXPECT_EQ(hook.lineCount, 0);
}

TEST_F(ReportWithoutStorage, DoesNotTellTheHookThatItWasLogged)
{
  IException exception("a");
  reportOnStandardError(exception);
  EXPECT_EQ(hook.reports, 0);
}

TEST_F(ReportWithoutStorage, ReturnsTheException)
{
  IException exception("a");
  CapturedStandardError output;
  IException* result = nullptr;
  {
    FailingAllocations scope(1);
    result = &exception.logExceptionData();
  }
  EXPECT_EQ(result, &exception);
}

TEST_F(ReportWithoutStorage, GivesWayToTheHookWhenThereIsStorageAgain)
{
  IException exception("a");
  reportOnStandardError(exception);
  exception.logExceptionData();
  EXPECT_EQ(hook.lineCount, 5);
  EXPECT_EQ(hook.reports, 1);
}

TEST_F(ReportWithoutStorage, OfALevelWithoutTextIsSafe)
{
  bool sawLevelWithoutText = false;
  for (unsigned long nth = 1; nth <= 2; ++nth) {
    IException exception(nullptr);
    {
      FailingAllocations scope(nth, FailingAllocations::andNoOther);
      exception.setText("a");
    }
    if (exception.textCount() != 1)
      continue;  // it was the level that got no storage
    sawLevelWithoutText = true;
    EXPECT_EQ(reportOnStandardError(exception),
              "\nIException exception thrown.\n"
              "   Location information is unavailable.\n"
              "   Error ID is unavailable.\n"
              " Error Code group is Quelm Class Library\n"
              "   Exception text is:\n"
              "      (null)\n");
  }
  EXPECT_TRUE(sawLevelWithoutText);
}

}  // namespace
