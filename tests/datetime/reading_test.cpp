// reading_test.cpp - dates and times out of texts.
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/idate.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/itime.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace {

/// Reports go nowhere while a test waits for exceptions.
QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
struct QuietHook : IException::TraceFn {
  void logData(IException&) override {}
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

class Reading : public testing::Test {
protected:
  void SetUp() override
  {
    static QuietHook quiet;
    IException::setTraceFunction(quiet);
    std::setlocale(LC_TIME, "C");
  }
  void TearDown() override { std::setlocale(LC_TIME, std::getenv("QUELMCL_TEST_LOCALE")); }
};

using DateReading = Reading;
using TimeReading = Reading;

bool isDate(const IString& text, const char* format)
{
  IDate date(7ul);
  const bool isOne = IDate::tryParse(text, format, date);
  EXPECT_EQ(isOne, date != IDate(7ul)) << text << " leaves the result alone unless it is a date";
  return isOne;
}

bool isTime(const IString& text, const char* format)
{
  ITime time(-86400);
  const bool isOne = ITime::tryParse(text, format, time);
  EXPECT_EQ(isOne, time != ITime(-86400)) << text << " leaves the result alone unless it is a time";
  return isOne;
}

// ---------------------------------------------------------------------------------------------------------------------
// Dates

TEST_F(DateReading, FindsTheDateThatTheFormatDescribes)
{
  EXPECT_EQ(IDate(IDate::February, 29, 2024), IDate::parse("2024-02-29", "%Y-%m-%d"));
  EXPECT_EQ(IDate(IDate::July, 20, 1969), IDate::parse("20.7.1969", "%d.%m.%Y"));
  EXPECT_EQ(IDate(IDate::July, 20, 1969), IDate::parse("07/20/69", "%D"));
  EXPECT_EQ(IDate(IDate::July, 20, 2068), IDate::parse("07/20/68", "%m/%d/%y"));
  EXPECT_EQ(IDate(IDate::July, 20, 1969), IDate::parse("Sunday, 20 July 1969", "%A, %d %B %Y"));
  EXPECT_EQ(IDate(IDate::July, 20, 1969), IDate::parse("sun 20 JUL 1969 22:56:15", "%a %d %b %Y %H:%M:%S"));
  EXPECT_EQ(IDate(IDate::July, 20, 1969), IDate::parse("1969 201", "%Y %j"));
  EXPECT_EQ(IDate(IDate::July, 20, 1969), IDate::parse("on 1969/07/20!", "on %Y/%m/%d!"));
  EXPECT_EQ(IDate(IDate::October, 14, 1066), IDate::parse("1066-10-14", "%F"));
}

TEST_F(DateReading, TriesWithoutThrowing)
{
  IDate date(0ul);
  EXPECT_TRUE(IDate::tryParse("1999-12-31", "%Y-%m-%d", date));
  EXPECT_EQ(IDate(IDate::December, 31, 1999), date);
  EXPECT_FALSE(IDate::tryParse("1999-12-32", "%Y-%m-%d", date));
  EXPECT_EQ(IDate(IDate::December, 31, 1999), date);
}

TEST_F(DateReading, WantsTheWholeText)
{
  EXPECT_FALSE(isDate("2024-02-29 ", "%Y-%m-%d"));
  EXPECT_FALSE(isDate("2024-02-29x", "%Y-%m-%d"));
  EXPECT_FALSE(isDate("2024-02", "%Y-%m-%d"));
  EXPECT_FALSE(isDate("", "%Y-%m-%d"));
  EXPECT_FALSE(isDate(IString("2024-02-29\0", 11), "%Y-%m-%d"));
  EXPECT_FALSE(isDate(IString("2024-02-29\0x", 12), "%Y-%m-%d"));
  EXPECT_TRUE(isDate("2024-02-29", "%Y-%m-%d"));
}

TEST_F(DateReading, WantsAWholeFormat)
{
  EXPECT_FALSE(isDate("2024-02-29", nullptr));
  EXPECT_FALSE(isDate("", ""));
  EXPECT_FALSE(isDate("2024-02", "%Y-%m"));
  EXPECT_FALSE(isDate("2024 29", "%Y %d"));
  EXPECT_FALSE(isDate("29 Feb", "%d %b"));
  EXPECT_FALSE(isDate("2024", "%Y"));
  EXPECT_FALSE(isDate("12:30", "%H:%M"));
  EXPECT_FALSE(isDate("Sunday", "%A"));
  EXPECT_FALSE(isDate("060", "%j"));
}

TEST_F(DateReading, WantsARealDay)
{
  EXPECT_FALSE(isDate("2023-02-29", "%F"));
  EXPECT_FALSE(isDate("2024-04-31", "%F"));
  EXPECT_FALSE(isDate("1900-02-29", "%F"));
  EXPECT_TRUE(isDate("1700-02-29", "%F"));
  EXPECT_FALSE(isDate("2024-13-01", "%F"));
  EXPECT_FALSE(isDate("2024-00-10", "%F"));
  EXPECT_FALSE(isDate("2024-01-00", "%F"));
  EXPECT_FALSE(isDate("0000-01-01", "%F"));
  EXPECT_TRUE(isDate("0001-01-01", "%F"));
  EXPECT_FALSE(isDate("1752-09-05", "%F"));
  EXPECT_TRUE(isDate("1752-09-14", "%F"));
  EXPECT_TRUE(isDate("2024 366", "%Y %j"));
  EXPECT_FALSE(isDate("2023 366", "%Y %j"));
  EXPECT_FALSE(isDate("2023 000", "%Y %j"));
}

TEST_F(DateReading, WantsPartsThatAgree)
{
  EXPECT_TRUE(isDate("Sun 1969-07-20", "%a %F"));
  EXPECT_FALSE(isDate("Mon 1969-07-20", "%a %F"));
  EXPECT_TRUE(isDate("1969-07-20 201", "%F %j"));
  EXPECT_FALSE(isDate("1969-07-20 200", "%F %j"));
}

// Before the changeover both our own day of the week and the one that asString() writes are taken.
TEST_F(DateReading, TakesEitherDayOfTheWeekOfOldDates)
{
  EXPECT_TRUE(isDate("Wednesday 1752-09-02", "%A %F"));
  EXPECT_TRUE(isDate("Saturday 1752-09-02", "%A %F"));
  EXPECT_FALSE(isDate("Monday 1752-09-02", "%A %F"));
}

TEST_F(DateReading, ReadsWhatWasWritten)
{
  const char* const formats[] = {"%Y-%m-%d", "%d.%m.%Y", "%A, %d %B %Y", "%b %e %Y", "%m/%d/%Y", "%F %T", "%c"};
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 20000; ++round) {
    const IDate date(1721424ul + random.below(5373484 - 1721424));
    const char* const format = formats[random.below(7)];
    if (date.dayOfMonth() == 29 && date.monthOfYear() == IDate::February && date.year() < 1752)
      continue;  // some of these are written as 1 March
    ASSERT_EQ(date, IDate::parse(date.asString(format), format)) << date.julianDate() << ' ' << format;
  }
}

TEST_F(DateReading, KnowsTheNamesOfTheLocale)
{
  ASSERT_NE(nullptr, std::setlocale(LC_TIME, "de_DE.UTF-8"));
  EXPECT_EQ(IDate(IDate::March, 3, 2026), IDate::parse("Dienstag, 3. März 2026", "%A, %d. %B %Y"));
  EXPECT_FALSE(isDate("mardi, 3. mars 2026", "%A, %d. %B %Y"));
}

TEST_F(DateReading, ThrowsWhatIsNoDate)
{
  try {
    IDate::parse("30 February", "%d %B %Y");
    FAIL() << "nothing was thrown";
  } catch (const IInvalidParameter& failure) {
    EXPECT_EQ(1101u, failure.errorId());
    EXPECT_TRUE(failure.isRecoverable());
    EXPECT_STREQ("\"30 February\" is no date in the form \"%d %B %Y\".", failure.text());
    EXPECT_EQ(1u, failure.locationCount());
  }
  EXPECT_THROW(IDate::parse("", ""), IInvalidParameter);
  EXPECT_THROW(IDate::parse("2024-02-29", nullptr), IInvalidParameter);
  EXPECT_THROW(IDate::parse("2023-02-29", "%F"), IInvalidParameter);
}

// Rubbish is refused or is a date, but nothing else happens.
TEST_F(DateReading, WithstandsRubbish)
{
  quelmcl_test::RandomTexts random;
  int dates = 0;
  for (int round = 0; round < 50000; ++round) {
    const std::string text = random.text("0123456789-/. :MonJanFeb", 24);
    const std::string format = random.text("%%%%%%YmdjUWaAbBCeHIpyDFgGVuw -/.:", 12);
    IDate date(0ul);
    if (!IDate::tryParse(IString(text.data(), text.size()), format.c_str(), date))
      continue;
    ++dates;
    ASSERT_TRUE(IDate::isValid(date.monthOfYear(), date.dayOfMonth(), date.year())) << text << " as " << format;
  }
  EXPECT_LT(dates, 50000);
}

// ---------------------------------------------------------------------------------------------------------------------
// Times

TEST_F(TimeReading, FindsTheTimeThatTheFormatDescribes)
{
  EXPECT_EQ(ITime(19, 5, 0), ITime::parse("7:05 pm", "%I:%M %p"));
  EXPECT_EQ(ITime(0, 30, 0), ITime::parse("12:30 AM", "%I:%M %p"));
  EXPECT_EQ(ITime(12, 30, 0), ITime::parse("12:30 PM", "%I:%M %p"));
  EXPECT_EQ(ITime(23, 59, 59), ITime::parse("23:59:59", "%T"));
  EXPECT_EQ(ITime(14, 0, 0), ITime::parse("14", "%H"));
  EXPECT_EQ(ITime(14, 0, 5), ITime::parse("14 5", "%H %S"));
  EXPECT_EQ(ITime(22, 56, 15), ITime::parse("1969-07-20T22:56:15", "%Y-%m-%dT%H:%M:%S"));
}

TEST_F(TimeReading, WantsTheWholeTextAndFormat)
{
  EXPECT_FALSE(isTime("12:30 ", "%H:%M"));
  EXPECT_FALSE(isTime("12:30", "%H:%M:%S"));
  EXPECT_FALSE(isTime(IString("12:30\0", 6), "%H:%M"));
  EXPECT_FALSE(isTime("", ""));
  EXPECT_FALSE(isTime("12:30", nullptr));
  EXPECT_FALSE(isTime("30", "%M"));
  EXPECT_FALSE(isTime("pm", "%p"));
  EXPECT_FALSE(isTime("2024-02-29", "%F"));
}

TEST_F(TimeReading, WantsARealTime)
{
  EXPECT_FALSE(isTime("24:00", "%H:%M"));
  EXPECT_FALSE(isTime("12:60", "%H:%M"));
  EXPECT_FALSE(isTime("23:59:60", "%T"));
  EXPECT_FALSE(isTime("13:00 pm", "%I:%M %p"));
  EXPECT_FALSE(isTime("-1:00", "%H:%M"));
}

TEST_F(TimeReading, ReadsEverySecondThatWasWritten)
{
  for (long second = 0; second < 86400; second += 7)
    for (const char* format : {"%X", "%I.%M.%S %p", "%k|%M|%S"})
      ASSERT_EQ(ITime(second), ITime::parse(ITime(second).asString(format), format)) << second << ' ' << format;
}

TEST_F(TimeReading, ThrowsWhatIsNoTime)
{
  try {
    ITime::parse("noon", "%H:%M");
    FAIL() << "nothing was thrown";
  } catch (const IInvalidParameter& failure) {
    EXPECT_EQ(1102u, failure.errorId());
    EXPECT_TRUE(failure.isRecoverable());
    EXPECT_STREQ("\"noon\" is no time of day in the form \"%H:%M\".", failure.text());
  }
  EXPECT_THROW(ITime::parse("12:00", nullptr), IInvalidParameter);
}

}  // namespace
