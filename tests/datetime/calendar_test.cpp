// calendar_test.cpp - day numbers and dates against a calendar that walks from day to day, and far beyond it.
#include "slow_calendar.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/idate.hpp>

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using slowcalendar::Day;
using slowcalendar::numberByTheRule;

bool isDay(const IDate& date, const Day& day)
{
  return date.julianDate() == day.number && date.year() == day.year && date.monthOfYear() == day.month &&
         date.dayOfMonth() == day.day && date.dayOfYear() == day.dayOfYear && date.dayOfWeek() == day.dayOfWeek;
}

TEST(EveryDay, UpToThreeMillionIsThatOfTheSlowCalendarBothWays)
{
  for (Day day; day.number <= 3000000; day.next()) {
    const IDate::Month month = static_cast<IDate::Month>(day.month);
    if (!isDay(IDate(day.number), day) || IDate(month, day.day, day.year).julianDate() != day.number ||
        IDate(day.day, month, day.year).julianDate() != day.number || !IDate::isValid(month, day.day, day.year))
      FAIL() << "day number " << day.number << ": " << day.year << '-' << day.month << '-' << day.day;
  }
}

// A year and a number of days say the same as that many steps through the year, for every year of the slow calendar.
TEST(EveryDay, CountedThroughItsYearIsTheSameDay)
{
  int dayInYear = 1;
  for (Day day; day.number <= 3000000; ++dayInYear) {
    if (IDate(day.year, dayInYear).julianDate() != day.number || !IDate::isValid(day.year, dayInYear))
      FAIL() << "day number " << day.number << " is not day " << dayInYear << " of " << day.year;
    const int year = day.year;
    day.next();
    if (day.year == year)
      continue;
    if (IDate::daysInYear(year) != dayInYear || IDate::isValid(year, dayInYear + 1))
      FAIL() << year << " has " << IDate::daysInYear(year) << " days, not " << dayInYear;
    dayInYear = 0;
  }
}

// What the calendar says of months and years, and what it calls valid, in every year of the slow calendar.
TEST(EveryYear, HasTheMonthsOfTheSlowCalendar)
{
  for (int year = -4713; year <= 3501; ++year) {
    if (year == 0)
      continue;
    ASSERT_EQ(slowcalendar::isLeap(year), IDate::isLeapYear(year)) << year;
    for (int number = 1; number <= 12; ++number) {
      const IDate::Month month = static_cast<IDate::Month>(number);
      const bool isChangeover = year == 1752 && number == 9;
      const int last = slowcalendar::lastDayOf(number, year);
      ASSERT_EQ(isChangeover ? 19 : last, IDate::daysInMonth(month, year)) << number << ' ' << year;
      for (int day = -1; day <= 33; ++day)
        ASSERT_EQ(day >= 1 && day <= last && !(isChangeover && day > 2 && day < 14), IDate::isValid(month, day, year))
          << day << ' ' << number << ' ' << year;
    }
  }
}

// The Gregorian calendar repeats itself every 400 years, so a day beyond the slow calendar has a twin within it.
void expectTwinOf(std::uint32_t number)
{
  const std::uint32_t cycles = (number - 2451545) / 146097;
  const IDate twin(number - cycles * 146097ul);
  const IDate date(number);
  ASSERT_EQ(number, date.julianDate());
  ASSERT_EQ(twin.year() + static_cast<int>(cycles) * 400, date.year()) << number;
  ASSERT_EQ(twin.monthOfYear(), date.monthOfYear()) << number;
  ASSERT_EQ(twin.dayOfMonth(), date.dayOfMonth()) << number;
  ASSERT_EQ(twin.dayOfYear(), date.dayOfYear()) << number;
  ASSERT_EQ(number, IDate(date.monthOfYear(), date.dayOfMonth(), date.year()).julianDate()) << number;
  ASSERT_EQ(number, IDate(date.year(), date.dayOfYear()).julianDate()) << number;
  ASSERT_TRUE(IDate::isValid(date.monthOfYear(), date.dayOfMonth(), date.year())) << number;
  ASSERT_EQ(static_cast<int>(number % 7), date.dayOfWeek());
}

TEST(FarDays, RandomOnesHaveATwinInOurCenturies)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 300000; ++round) {
    expectTwinOf(2451545 + random.below(4294967295u - 2451545));
    if (HasFatalFailure())
      return;
  }
}

TEST(FarDays, TheLastOnesOfAllHaveTwins)
{
  for (std::uint32_t number = 4294967295u; number > 4294667295u; --number) {
    expectTwinOf(number);
    if (HasFatalFailure())
      return;
  }
}

TEST(FarDays, AroundEachPowerOfTwoHaveATwin)
{
  for (unsigned bit = 22; bit < 32; ++bit)
    for (std::uint32_t number = (1u << bit) - 1000; number != (1u << bit) + 1000; ++number) {
      expectTwinOf(number);
      if (HasFatalFailure())
        return;
    }
}

TEST(FarDays, TheLastOfAllIsKnown)
{
  const IDate last(4294967295ul);
  EXPECT_EQ(11754508, last.year());
  EXPECT_EQ(IDate::December, last.monthOfYear());
  EXPECT_EQ(13, last.dayOfMonth());
  EXPECT_EQ(4294967295ul, IDate(IDate::December, 13, 11754508).julianDate());
}

int anyInt(quelmcl_test::RandomTexts& random)
{
  const unsigned limits[] = {60, 2000, 5000, 2000000, 2147483647};
  const unsigned limit = limits[random.below(5)];
  const int number = static_cast<int>(random.below(limit));
  return random.onceIn(2) ? number : -number;
}

TEST(DateFromParts, FollowsItsRuleForAnyNumbersAtAll)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 300000; ++round) {
    const int year = anyInt(random), day = anyInt(random), month = 1 + static_cast<int>(random.below(12));
    ASSERT_EQ(numberByTheRule(year, month, day), IDate(static_cast<IDate::Month>(month), day, year).julianDate())
      << year << '-' << month << '-' << day;
  }
  const int extremes[] = {-2147483647 - 1,
                          -2147483647,
                          -1000001,
                          -1000000,
                          -999999,
                          -4714,
                          -4713,
                          -1,
                          0,
                          1,
                          1600,
                          1601,
                          1602,
                          1751,
                          1752,
                          1753,
                          999999,
                          1000000,
                          1000001,
                          2147483647};
  for (const int year : extremes)
    for (const int day : extremes)
      for (int month = 1; month <= 12; ++month)
        ASSERT_EQ(numberByTheRule(year, month, day), IDate(static_cast<IDate::Month>(month), day, year).julianDate())
          << year << '-' << month << '-' << day;
}

}  // namespace
