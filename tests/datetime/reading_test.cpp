// reading_test.cpp - dates and times out of texts.
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/idate.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/itime.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <initializer_list>
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

/// What is read, in which form, and what it is.
template <class Value>
struct Reads {
  const char* text;
  const char* format;
  Value expected;
};

template <class Value>
void expectParsed(std::initializer_list<Reads<Value>> rows)
{
  for (const Reads<Value>& row : rows)
    EXPECT_EQ(row.expected, Value::parse(row.text, row.format)) << row.text << " as " << row.format;
}

/// A text and a form, nullptr for none.
struct Attempt {
  IString text;
  const char* format;
};

/// Tries to read each; what is none leaves the result as it was, which is a value that no row means.
template <class Value>
void expectRead(bool isOne, const Value& before, std::initializer_list<Attempt> rows)
{
  for (const Attempt& row : rows) {
    Value result = before;
    EXPECT_EQ(isOne, Value::tryParse(row.text, row.format, result)) << row.text << " as " << row.format;
    EXPECT_EQ(isOne, result != before) << row.text;
  }
}

void expectDates(std::initializer_list<Attempt> rows)
{
  expectRead(true, IDate(7ul), rows);
}

void expectNoDates(std::initializer_list<Attempt> rows)
{
  expectRead(false, IDate(7ul), rows);
}

void expectNoTimes(std::initializer_list<Attempt> rows)
{
  expectRead(false, ITime(-86400), rows);
}

// ---------------------------------------------------------------------------------------------------------------------
// Dates

TEST_F(DateReading, FindsTheDateThatTheFormatDescribes)
{
  expectParsed<IDate>({
    {"2024-02-29", "%Y-%m-%d", IDate(IDate::February, 29, 2024)},
    {"20.7.1969", "%d.%m.%Y", IDate(IDate::July, 20, 1969)},
    {"07/20/69", "%D", IDate(IDate::July, 20, 1969)},
    {"07/20/68", "%m/%d/%y", IDate(IDate::July, 20, 2068)},
    {"Sunday, 20 July 1969", "%A, %d %B %Y", IDate(IDate::July, 20, 1969)},
    {"sun 20 JUL 1969 22:56:15", "%a %d %b %Y %H:%M:%S", IDate(IDate::July, 20, 1969)},
    {"1969 201", "%Y %j", IDate(IDate::July, 20, 1969)},
    {"on 1969/07/20!", "on %Y/%m/%d!", IDate(IDate::July, 20, 1969)},
    {"1066-10-14", "%F", IDate(IDate::October, 14, 1066)},
  });
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
  expectNoDates({
    {"2024-02-29 ", "%Y-%m-%d"},
    {"2024-02-29x", "%Y-%m-%d"},
    {"2024-02", "%Y-%m-%d"},
    {"", "%Y-%m-%d"},
    {IString("2024-02-29\0", 11), "%Y-%m-%d"},
    {IString("2024-02-29\0x", 12), "%Y-%m-%d"},
  });
  expectDates({{"2024-02-29", "%Y-%m-%d"}});
}

TEST_F(DateReading, WantsAWholeFormat)
{
  expectNoDates({
    {"2024-02-29", nullptr},
    {"", ""},
    {"2024-02", "%Y-%m"},
    {"2024 29", "%Y %d"},
    {"29 Feb", "%d %b"},
    {"2024", "%Y"},
    {"12:30", "%H:%M"},
    {"Sunday", "%A"},
    {"060", "%j"},
  });
}

TEST_F(DateReading, WantsARealDay)
{
  expectNoDates({
    {"2023-02-29", "%F"},
    {"2024-04-31", "%F"},
    {"1900-02-29", "%F"},
    {"2024-13-01", "%F"},
    {"2024-00-10", "%F"},
    {"2024-01-00", "%F"},
    {"0000-01-01", "%F"},
    {"1752-09-05", "%F"},
    {"2023 366", "%Y %j"},
    {"2023 000", "%Y %j"},
  });
  expectDates({
    {"1700-02-29", "%F"},
    {"0001-01-01", "%F"},
    {"1752-09-14", "%F"},
    {"2024 366", "%Y %j"},
  });
}

TEST_F(DateReading, WantsPartsThatAgree)
{
  expectDates({
    {"Sun 1969-07-20", "%a %F"},
    {"1969-07-20 201", "%F %j"},
  });
  expectNoDates({
    {"Mon 1969-07-20", "%a %F"},
    {"1969-07-20 200", "%F %j"},
  });
}

// Before the changeover both our own day of the week and the one that asString() writes are taken.
TEST_F(DateReading, TakesEitherDayOfTheWeekOfOldDates)
{
  expectDates({
    {"Wednesday 1752-09-02", "%A %F"},
    {"Saturday 1752-09-02", "%A %F"},
  });
  expectNoDates({{"Monday 1752-09-02", "%A %F"}});
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
  expectParsed<IDate>({{"Dienstag, 3. März 2026", "%A, %d. %B %Y", IDate(IDate::March, 3, 2026)}});
  expectNoDates({{"mardi, 3. mars 2026", "%A, %d. %B %Y"}});
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
    const std::string bytes = "0123456789-/. :MonJanFeb";
    std::string text = random.text(bytes, 24);
    std::string format = random.text("%%%%%%YmdjUWaAbBCeHIpyDFgGVuw -/.:", 12);
    if (round % 2 != 0) {  // nearly a date
      format = "%A %d.%m.%Y";
      text = IDate(2451545ul + random.below(100000)).asString(format.c_str());
      text[random.below(static_cast<unsigned>(text.size()))] = bytes[random.below(static_cast<unsigned>(bytes.size()))];
    }
    IDate date(0ul);
    if (!IDate::tryParse(IString(text.data(), text.size()), format.c_str(), date))
      continue;
    ++dates;
    ASSERT_TRUE(IDate::isValid(date.monthOfYear(), date.dayOfMonth(), date.year())) << text << " as " << format;
  }
  EXPECT_GT(dates, 0);
  EXPECT_LT(dates, 50000);
}

// ---------------------------------------------------------------------------------------------------------------------
// Times

TEST_F(TimeReading, FindsTheTimeThatTheFormatDescribes)
{
  expectParsed<ITime>({
    {"7:05 pm", "%I:%M %p", ITime(19, 5, 0)},
    {"12:30 AM", "%I:%M %p", ITime(0, 30, 0)},
    {"12:30 PM", "%I:%M %p", ITime(12, 30, 0)},
    {"23:59:59", "%T", ITime(23, 59, 59)},
    {"14", "%H", ITime(14, 0, 0)},
    {"14 5", "%H %S", ITime(14, 0, 5)},
    {"1969-07-20T22:56:15", "%Y-%m-%dT%H:%M:%S", ITime(22, 56, 15)},
  });
}

TEST_F(TimeReading, WantsTheWholeTextAndFormat)
{
  expectNoTimes({
    {"12:30 ", "%H:%M"},
    {"12:30", "%H:%M:%S"},
    {IString("12:30\0", 6), "%H:%M"},
    {"", ""},
    {"12:30", nullptr},
    {"30", "%M"},
    {"pm", "%p"},
    {"2024-02-29", "%F"},
  });
}

TEST_F(TimeReading, WantsARealTime)
{
  expectNoTimes({
    {"24:00", "%H:%M"},
    {"12:60", "%H:%M"},
    {"23:59:60", "%T"},
    {"13:00 pm", "%I:%M %p"},
    {"-1:00", "%H:%M"},
  });
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
