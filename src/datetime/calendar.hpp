// calendar.hpp - day numbers to dates and back, in constant time, for every number and any parts. The header of IDate has
// the conversions for most dates; what follows is for all.
//
// From a day number to a date the way is the same as there: years begin in March, so that a leap day is the last one of
// its year, and dividing 4n+3 by the length of four years (or centuries) gives the year and, as the remainder, four
// times the day in it. Our calendar is the Julian one before the changeover of 1752 and the Gregorian one after it, so
// there are two first steps and one second.
#ifndef QUELMCL_SRC_DATETIME_CALENDAR_HPP
#define QUELMCL_SRC_DATETIME_CALENDAR_HPP

#include <quelmcl/idate.hpp>

#include <cstdint>

namespace quelmcl::detail {

constexpr std::uint32_t lastJulianDay = 2361221;  // 2 September 1752; the next day is the 14th
constexpr int changeoverYear = 1752;
constexpr int missingDays = 11;

/// The days before each month of a common and of a leap year, and the length of that year.
constexpr std::uint16_t daysToMonth[2][13] = {
  {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365},
  {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366},
};

/// The years from 4713 BC to `year`; there is no year 0.
template <class Number>
constexpr Number yearsElapsed(Number year)
{
  return year + 4713 - (year >= 1 ? 1 : 0);
}

template <class Number>
constexpr Number yearAfter(Number elapsed)
{
  return elapsed < 4713 ? elapsed - 4713 : elapsed - 4712;
}

template <class Number>
constexpr bool isLeap(Number year)
{
  if (yearsElapsed(year) % 4 != 0)
    return false;
  return year <= changeoverYear || year % 100 != 0 || year % 400 == 0;
}

/// The Gregorian calendar repeats itself every 400 years of 146097 days, so a far date has a near twin.
inline CivilDate gregorianDateOf(std::uint32_t dayNumber)
{
  const std::uint32_t cycles = (dayNumber - lastJulianDay) / 146097;
  CivilDate date = nearDateOf(dayNumber - cycles * 146097);
  date.year += 400 * static_cast<int>(cycles);
  return date;
}

/// The date of any day number.
inline CivilDate dateOf(std::uint32_t dayNumber)
{
  return dayNumber <= lastJulianDay ? julianDateOf(dayNumber) : gregorianDateOf(dayNumber);
}

/// The day number of any year, month and day: what there is too much of rolls on. A year 0 counts as year 1, and the 3rd
/// to the 13th of September 1752 as the 2nd. Number is as wide as the days need.
template <class Number>
constexpr Number dayNumberOf(Number year, Number month, Number day)
{
  Number elapsed = yearsElapsed(year);
  Number monthsBefore = month - 1;
  if (monthsBefore < 0 || monthsBefore > 11) {
    const Number years = (monthsBefore - (monthsBefore < 0 ? 11 : 0)) / 12;
    monthsBefore -= 12 * years;
    elapsed += years;
    year = yearAfter(elapsed);
  }

  const Number daysBeforeYear = 365 * elapsed + ((elapsed + 3) >> 2);  // as if the Julian calendar went on
  const Number julian = daysBeforeYear + daysToMonth[isLeap(year)][monthsBefore] + day - 1;
  if (julian <= Number{lastJulianDay})
    return julian;

  // Deliberate: the divisions round towards zero, also for years long before the changeover whose days were made to
  // reach beyond it.  Test: DateFromParts.DaysThatReachTheChangeoverFromFarBeforeItArriveLate
  const Number gregorian = julian + (year - 1601) / 400 - (year - 1701) / 100;
  const Number firstKept = Number{lastJulianDay} + missingDays + 1;
  return gregorian < firstKept ? Number{lastJulianDay} : gregorian - missingDays;
}

}  // namespace quelmcl::detail

#endif
