/// @file slow_calendar.hpp
/// The calendar as one would tell it to a child: month after month, day after day. What the library computes is compared
/// with it.
#ifndef QUELMCL_TESTS_DATETIME_SLOW_CALENDAR_HPP
#define QUELMCL_TESTS_DATETIME_SLOW_CALENDAR_HPP

#include <cstdint>

namespace slowcalendar {

inline bool isLeap(int year)
{
  const int astronomicalYear = year < 0 ? year + 1 : year;  // which has a year 0
  if (year < 1752)
    return astronomicalYear % 4 == 0;
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

inline int lastDayOf(int month, int year)
{
  switch (month) {
  case 2:
    return isLeap(year) ? 29 : 28;
  case 4:
  case 6:
  case 9:
  case 11:
    return 30;
  default:
    return 31;
  }
}

/// A day with all that is asked of it, which can go on to the next one.
struct Day {
  std::uint32_t number = 0;
  int year = -4713, month = 1, day = 1;
  int dayOfYear = 1;  // as if no days were missing
  int dayOfWeek = 0;  // from Monday

  void next()
  {
    ++number;
    dayOfWeek = dayOfWeek == 6 ? 0 : dayOfWeek + 1;
    if (year == 1752 && month == 9 && day == 2) {
      day = 14;
      dayOfYear += 12;
      return;
    }
    ++dayOfYear;
    if (++day <= lastDayOf(month, year))
      return;
    day = 1;
    if (++month <= 12)
      return;
    month = 1;
    dayOfYear = 1;
    year = year == -1 ? 1 : year + 1;
  }
};

inline std::int64_t flooredQuotient(std::int64_t number, std::int64_t divisor)
{
  std::int64_t quotient = number / divisor;
  if (quotient * divisor > number)
    --quotient;
  return quotient;
}

/// The conversion to a day number by its rule, step by step and in numbers that are always wide enough. The month is one.
inline std::uint32_t numberByTheRule(int year, int month, std::int64_t day)
{
  const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const std::int64_t elapsed = std::int64_t{year} + 4713 - (year >= 1);
  bool leap = elapsed % 4 == 0;
  if (year > 1752 && year % 100 == 0 && year % 400 != 0)
    leap = false;
  std::int64_t number = day + 365 * elapsed + flooredQuotient(elapsed + 3, 4) - 1;
  for (int m = 1; m < month; ++m)
    number += lengths[m - 1] + (m == 2 && leap);
  if (number >= 2361222) {
    const std::int64_t centuries = (std::int64_t{year} - 1601) / 400 - (std::int64_t{year} - 1701) / 100;
    number = number + centuries < 2361233 ? 2361221 : number + centuries - 11;
  }
  return static_cast<std::uint32_t>(number);
}

}  // namespace slowcalendar

#endif
