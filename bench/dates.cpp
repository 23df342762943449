// dates.cpp - benchmarks: day numbers to dates and back. The size is how many days are converted. Some arithmetic for each
// day, no memory: there is no limit but the calendar.
// Unpacked: libhowardhinnant-date-dev
#include "frame.hpp"

#include <quelmcl/idate.hpp>

#include <date/date.h>

#include <chrono>
#include <cstdint>

namespace {

using bench::Limit;
using bench::Workload;

const std::vector<bench::Goal> goals = {{1000, 1.2}, {1000000, 1.2}};

constexpr int dayOfEpoch = 2440588;  // 1 January 1970, from which the peers count

/// Only the number of days counts.
std::string oneByteForEach(std::size_t size)
{
  return std::string(size, '.');
}

/// Days in no order, within the years told.
template <int firstYear, int lastYear>
std::vector<int> daysOf(const std::string& data)
{
  std::mt19937 random(1);
  const int first = dayOfEpoch + (firstYear - 1970) * 146097 / 400;
  const unsigned count = (lastYear - firstYear) * 146097u / 400;
  std::vector<int> days(data.size());
  for (int& day : days)
    day = first + static_cast<int>(random() % count);
  return days;
}

struct Date {
  int year, month, day;
};

template <int firstYear, int lastYear>
std::vector<Date> datesOf(const std::string& data)
{
  std::vector<Date> dates;
  for (const int day : daysOf<firstYear, lastYear>(data)) {
    const IDate date(static_cast<unsigned long>(day));
    dates.push_back({date.year(), date.monthOfYear(), date.dayOfMonth()});
  }
  return dates;
}

unsigned mixed(int year, unsigned month, unsigned day)
{
  return static_cast<unsigned>(year) * 512 + month * 32 + day;
}

/// All of `items` through `convert`, summed up. The sum of dates before the change of calendars differs from the peers',
/// who have only one; there the number of days stands for it.
template <class Items, class Convert>
auto summing(Items items, bool isSumEqual, Convert convert)
{
  return [items, isSumEqual, convert] {
    std::uint64_t sum = 0;
    for (const auto& item : items)
      sum += convert(item);
    bench::keep(sum);
    return isSumEqual ? sum : items.size();
  };
}

unsigned dateOfOurs(int day)
{
  const IDate date(static_cast<unsigned long>(day));
  return mixed(date.year(), static_cast<unsigned>(date.monthOfYear()), static_cast<unsigned>(date.dayOfMonth()));
}

unsigned dateOfChrono(int day)
{
  const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(day - dayOfEpoch))};
  return mixed(static_cast<int>(date.year()), static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
}

unsigned dateOfDateLibrary(int day)
{
  const date::year_month_day date{date::sys_days(date::days(day - dayOfEpoch))};
  return mixed(static_cast<int>(date.year()), static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
}

unsigned dayOfOurs(const Date& date)
{
  return static_cast<unsigned>(IDate(static_cast<IDate::Month>(date.month), date.day, date.year).julianDate());
}

unsigned dayOfChrono(const Date& date)
{
  const std::chrono::sys_days day =
    std::chrono::year_month_day(std::chrono::year(date.year), std::chrono::month(static_cast<unsigned>(date.month)),
                                std::chrono::day(static_cast<unsigned>(date.day)));
  return static_cast<unsigned>(day.time_since_epoch().count() + dayOfEpoch);
}

unsigned dayOfDateLibrary(const Date& date)
{
  const date::sys_days day = date::year_month_day(date::year(date.year), date::month(static_cast<unsigned>(date.month)),
                                                  date::day(static_cast<unsigned>(date.day)));
  return static_cast<unsigned>(day.time_since_epoch().count() + dayOfEpoch);
}

Workload toDate("day_to_date", oneByteForEach, goals, Limit::none);
Workload toDay("date_to_day", oneByteForEach, goals, Limit::none);
Workload toJulianDate("day_to_date_before_1752", oneByteForEach, goals, Limit::none);
Workload toJulianDay("date_to_day_before_1752", oneByteForEach, goals, Limit::none);

template <int firstYear, int lastYear>
bool contenders(Workload& dates, Workload& days, bool isSumEqual)
{
  const auto toDates = [&](const char* who, auto convert) {
    dates.contender(
      who, [=](const std::string& data) { return summing(daysOf<firstYear, lastYear>(data), isSumEqual, convert); });
  };
  const auto toDays = [&](const char* who, auto convert) {
    days.contender(
      who, [=](const std::string& data) { return summing(datesOf<firstYear, lastYear>(data), isSumEqual, convert); });
  };
  // Lambdas rather than pointers to functions: whoever can be compiled into the loop is.
  toDates("quelmcl", [](int day) { return dateOfOurs(day); });
  toDates("std::chrono", [](int day) { return dateOfChrono(day); });
  toDates("date", [](int day) { return dateOfDateLibrary(day); });
  toDays("quelmcl", [](const Date& date) { return dayOfOurs(date); });
  toDays("std::chrono", [](const Date& date) { return dayOfChrono(date); });
  toDays("date", [](const Date& date) { return dayOfDateLibrary(date); });
  return true;
}

const bool all[] = {
  contenders<1800, 2200>(toDate, toDay, true),
  contenders<1000, 1750>(toJulianDate, toJulianDay, false),
};

}  // namespace
