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

}  // namespace slowcalendar

#endif
