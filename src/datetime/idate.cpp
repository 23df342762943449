// idate.cpp - IDate: the calendar, texts of dates. The arithmetic stands in calendar.hpp.
// Tests: tests/datetime/calendar_test.cpp, date_test.cpp, date_texts_test.cpp, reading_test.cpp
#include <quelmcl/idate.hpp>
#include <quelmcl/istring.hpp>

#include "datetime/calendar.hpp"
#include "datetime/texts.hpp"

#include <cstring>
#include <langinfo.h>
#include <ostream>

using quelmcl::detail::changeoverYear;
using quelmcl::detail::CivilDate;
using quelmcl::detail::daysToMonth;
using quelmcl::detail::formatted;
using quelmcl::detail::isLeap;
using quelmcl::detail::missingDays;

namespace {

enum Message : unsigned long { noDate = 1101 };

bool isMonth(int month)
{
  return month >= 1 && month <= 12;
}

bool isIn(int number, int limit)
{
  return number > -limit && number < limit;
}

bool isChangeover(int month, int year)
{
  return month == IDate::September && year == changeoverYear;
}

bool isLeapInGregorianCalendar(int year)
{
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// The day of the week that the C library gives a date: that of the Gregorian calendar, as if it had always been.
int gregorianDayOfWeek(int year, int month, int day)
{
  std::tm fields = {};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  timegm(&fields);
  return fields.tm_wday;
}

// What strptime leaves as it is where a text does not name it: none of them can be part of a date.
constexpr int noYear = -1900, noMonth = -1, noDay = 0, unknown = -1;

/// Whether the day of the week, named by the text or computed by the C library, is that of the date. Before the
/// changeover the C library's own is another one.
bool isDayOfWeek(int dayFromSunday, const IDate& date)
{
  return dayFromSunday == unknown || dayFromSunday == (date.dayOfWeek() + 1) % 7 ||
         dayFromSunday == gregorianDayOfWeek(date.year(), date.monthOfYear(), date.dayOfMonth());
}

/// Whether the day of the year, named by the text or computed by the C library, is that of the other fields. Both the C
/// library and strftime count by the Gregorian calendar.
bool isDayOfYear(int daysBefore, const IDate& date)
{
  const bool leap = isLeapInGregorianCalendar(date.year());
  return daysBefore == unknown || daysBefore == daysToMonth[leap][date.monthOfYear() - 1] + date.dayOfMonth() - 1;
}

// These become part of their callers; here they are made once more, for whoever looks for them in the library.
[[gnu::used]] int (IDate::*const dayOfMonthInLibrary)() const = &IDate::dayOfMonth;
[[gnu::used]] IDate::Month (IDate::*const monthOfYearInLibrary)() const = &IDate::monthOfYear;
[[gnu::used]] int (IDate::*const yearInLibrary)() const = &IDate::year;

}  // namespace

// ---- construction ----

IDate::IDate(int aYear, int aDay)
{
  const int lastDayBeforeTheGap = 246;
  const bool isAfterTheGap = aYear == changeoverYear && aDay > lastDayBeforeTheGap && aDay <= daysInYear(aYear);
  initialize(January, isAfterTheGap ? aDay + missingDays : aDay, aYear);
}

IDate::IDate(const ICnrDate& cnrDate)
{
  initialize(static_cast<Month>(cnrDate.month), cnrDate.day, cnrDate.year);
}

IDate IDate::today()
{
  const std::tm now = quelmcl::detail::localTime();
  return IDate(static_cast<Month>(now.tm_mon + 1), now.tm_mday, now.tm_year + 1900);
}

void IDate::initialize(Month aMonth, int aDay, int aYear)
{
  const int month = aMonth;
  const int farAway = 1000000;  // up to here everything fits in 32 bits
  if (isIn(aYear, farAway) && isIn(month, farAway) && isIn(aDay, farAway))
    julian = static_cast<std::uint32_t>(quelmcl::detail::dayNumberOf<std::int32_t>(aYear, month, aDay));
  else
    julian = static_cast<std::uint32_t>(quelmcl::detail::dayNumberOf<std::int64_t>(aYear, month, aDay));
}

// ---- parts ----

quelmcl::detail::CivilDate IDate::anyDateOf(std::uint32_t dayNumber)
{
  return quelmcl::detail::dateOf(dayNumber);
}

int IDate::dayOfYear() const
{
  const CivilDate date = civilDate();
  // Deliberate: the days that 1752 lacks are counted.  Test: DateParts.TheDayOfTheYearCountsTheMissingDays
  return date.day + daysToMonth[isLeap(date.year)][date.month - 1];
}

ICnrDate IDate::asICnrDate() const
{
  const CivilDate date = civilDate();
  return {static_cast<unsigned char>(date.day), static_cast<unsigned char>(date.month),
          static_cast<unsigned short>(date.year)};
}

// ---- texts ----

IString IDate::dayName() const
{
  return dayName(dayOfWeek());
}

IString IDate::monthName() const
{
  return monthName(monthOfYear());
}

IString IDate::dayName(DayOfWeek aDay)
{
  std::tm fields = {};
  fields.tm_wday = static_cast<int>((static_cast<long long>(aDay) + 1) % 7);
  return formatted("%A", fields);
}

IString IDate::monthName(Month aMonth)
{
  std::tm fields = {};
  fields.tm_mon = static_cast<int>(static_cast<long long>(aMonth) - 1);
  return formatted("%B", fields);
}

IString IDate::asString(YearFormat yearFormat) const
{
  const IString format(nl_langinfo(D_FMT));
  return asString(
    static_cast<const char*>(yearFormat == fourDigitYear ? IString::translate(format, "y", "Y") : format));
}

IString IDate::asString(const char* fmt) const
{
  if (fmt == nullptr)
    return asString(localeYear);
  const CivilDate date = civilDate();
  // Deliberate: any letter y is taken for a year of two digits.  Test: DateText.ALetterYMovesEarlyYears
  const bool isTwoDigitYear = date.year < 1900 && std::strchr(fmt, 'y') != nullptr;
  std::tm fields = {};
  fields.tm_year = isTwoDigitYear ? date.year : date.year - 1900;
  fields.tm_mon = date.month - 1;
  fields.tm_mday = date.day;
  return formatted(fmt, quelmcl::detail::normalised(fields));
}

std::ostream& operator<<(std::ostream& aStream, const IDate& aDate)
{
  return aStream << aDate.asString(IDate::localeYear);
}

// ---- reading ----

bool IDate::tryParse(const IString& text, const char* format, IDate& result)
{
  std::tm fields = {};
  fields.tm_year = noYear;
  fields.tm_mon = noMonth;
  fields.tm_mday = noDay;
  fields.tm_wday = fields.tm_yday = unknown;
  if (!quelmcl::detail::readWhole(text, format, fields))
    return false;

  const Month month = static_cast<Month>(fields.tm_mon + 1);
  const int year = fields.tm_year + 1900;
  if (!isValid(month, fields.tm_mday, year))
    return false;
  const IDate date(month, fields.tm_mday, year);
  if (!isDayOfWeek(fields.tm_wday, date) || !isDayOfYear(fields.tm_yday, date))
    return false;
  result = date;
  return true;
}

IDate IDate::parse(const IString& text, const char* format)
{
  IDate result(0ul);
  if (!tryParse(text, format, result))
    quelmcl::detail::throwUnreadable(noDate, text, format, IExceptionLocation("idate", nullptr, __LINE__));
  return result;
}

// ---- facts about the calendar ----

int IDate::daysInMonth(Month aMonth, int aYear)
{
  const int month = aMonth;
  if (!isMonth(month))
    return 0;
  const auto& days = daysToMonth[isLeapYear(aYear)];
  return days[month] - days[month - 1] - (isChangeover(month, aYear) ? missingDays : 0);
}

int IDate::daysInYear(int aYear)
{
  return (aYear == changeoverYear ? 365 - missingDays : 365) + isLeapYear(aYear);
}

bool IDate::isLeapYear(int aYear)
{
  // Deliberate: the year 0, which does not exist, is one.  Test: CalendarFacts.TheYearThatDoesNotExistIsCalledLeap
  return aYear == 0 || isLeap(static_cast<long long>(aYear));
}

bool IDate::isValid(Month aMonth, int aDay, int aYear)
{
  const int month = aMonth;
  if (!isMonth(month) || aDay < 1 || aYear == 0)
    return false;
  if (isChangeover(month, aYear))
    return aDay <= 2 || (aDay >= 14 && aDay <= 30);
  return aDay <= daysInMonth(aMonth, aYear);
}
