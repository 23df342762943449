/// @file idate.hpp
/// IDate, a calendar date, and ICnrDate, its packed form.
///
///     const IDate moon(20, IDate::July, 1969);
///     moon.dayName();                               // "Sunday", in the language of the locale
///     (moon + 100).asString("%d.%m.%Y");            // "28.10.1969"
///     IDate(IDate::January, 1, 2000) - moon;        // 11122 days
///     IDate::parse("2024-02-29", "%Y-%m-%d");       // throws what is no date
///
/// **The calendar** is the Julian one up to 2 September 1752 and the Gregorian one from 14 September 1752 on; the
/// eleven days between do not exist. There is no year 0: year -1 is 1 BC, and the day after its last is 1 January of
/// year 1.
///
/// **The value** is one astronomical Julian day number, from 0 (1 January 4713 BC) to 4294967295 (in the year
/// 11754508), on every target. Day arithmetic wraps around at the ends of that range, like the 32-bit number that it
/// is.
///
/// **Lenient construction.** Dates are built from any numbers: days and months beyond the end of their month or year
/// roll on into the next ones. Ask isValid() first where that is not wanted. Nothing but parse() throws, except for
/// an exhausted heap where a text is made.
///
/// Conversions take constant time and no storage. Dates are plain values: copy them, compare them, use them as keys.
#ifndef QUELMCL_IDATE_HPP
#define QUELMCL_IDATE_HPP

#include <quelmcl/ibase.hpp>

#include <cstdint>
#include <iosfwd>

class IString;

namespace quelmcl {
namespace detail {

/// A year (negative BC, never 0), a month from 1, and a day from 1.
struct CivilDate {
  int year, month, day;
};

// The conversions for the dates that nearly all programs have, in either calendar, here so that they become part of the
// caller and that asking for day, month and year costs one of them. All other dates go through functions of the library.
// The way is that of C. Neri and L. Schneider, "Euclidean affine functions and their application to calendar
// algorithms", Software: Practice and Experience 53 (2023): years begin in March, so that the leap day is the last one
// of its year.

/// Whether a day is a Gregorian one, and so near that four times as many days have 32 bits.
inline bool isNearDay(std::uint32_t dayNumber)
{
  const std::uint32_t firstGregorianDay = 2361222, days = 1071000000;
  return dayNumber - firstGregorianDay < days;
}

inline CivilDate nearDateOf(std::uint32_t dayNumber)
{
  const std::uint32_t quarters = 4 * (dayNumber - 1721120) + 3;  // since 1 March 1 BC by this calendar
  const std::uint32_t quartersInCentury = quarters % 146097 | 3;
  const std::uint64_t years = std::uint64_t{2939745} * quartersInCentury;  // with 32 bits behind the point
  const std::uint32_t dayOfYear = static_cast<std::uint32_t>(years) / 2939745 / 4;
  const std::uint32_t monthAndDay = 2141 * dayOfYear + 197913;  // the month above bit 16, 2141 parts a day below
  const bool isAfterNewYear = dayOfYear >= 306;
  const std::uint32_t year = 100 * (quarters / 146097) + static_cast<std::uint32_t>(years >> 32) + isAfterNewYear;
  const std::uint32_t month = (monthAndDay >> 16) - (isAfterNewYear ? 12 : 0);
  return {static_cast<int>(year), static_cast<int>(month), static_cast<int>((monthAndDay & 0xFFFF) / 2141 + 1)};
}

/// Whether a day is one of the Julian calendar, which ended on 2 September 1752.
inline bool isJulianDay(std::uint32_t dayNumber)
{
  return dayNumber <= 2361221;
}

inline CivilDate julianDateOf(std::uint32_t dayNumber)
{
  const std::uint32_t quarters = 4 * (dayNumber + 1401) + 3;  // since March of a leap year, which begins a cycle
  const std::uint32_t dayOfYear = quarters % 1461 / 4;
  const std::uint32_t monthAndDay = 2141 * dayOfYear + 197913;  // as above
  const bool isAfterNewYear = dayOfYear >= 306;
  const int elapsed = static_cast<int>(quarters / 1461) - 4 + isAfterNewYear;  // since 4713 BC; there is no year 0
  const int month = static_cast<int>(monthAndDay >> 16) - (isAfterNewYear ? 12 : 0);
  return {elapsed - (elapsed < 4713 ? 4713 : 4712), month, static_cast<int>((monthAndDay & 0xFFFF) / 2141 + 1)};
}

/// Whether these are of the Gregorian calendar or of the Julian one without doubt, and near in the same sense.
inline bool isNearDate(int year, int month, int day)
{
  return static_cast<std::uint32_t>(year) - 1 < 1001753 && static_cast<std::uint32_t>(year) - 1752 >= 2 &&
         static_cast<std::uint32_t>(month) - 1 < 12 && static_cast<std::uint32_t>(day) - 1 < 31;
}

inline std::uint32_t nearDayNumberOf(int year, int month, int day)
{
  const bool isBeforeMarch = month <= 2;
  const std::uint32_t marchYear = static_cast<std::uint32_t>(year) - isBeforeMarch;
  const std::uint32_t marchMonth = static_cast<std::uint32_t>(month) + (isBeforeMarch ? 12 : 0);
  const std::uint32_t century = marchYear / 100;
  // Leap days that a Julian calendar would have more; in 1 BC the two stand two days apart the other way round.
  const std::uint32_t leftOut = year < 1752 ? 2 : century - century / 4;
  const std::uint32_t daysBeforeMonth = (979 * marchMonth - 2919) / 32;
  return 1721119 + 1461 * marchYear / 4 - leftOut + daysBeforeMonth + static_cast<std::uint32_t>(day);
}

}  // namespace detail
}  // namespace quelmcl

/// A date in four bytes, as containers keep it. It holds the years 0 to 65535 only: what does not fit is cut.
struct ICnrDate {
  unsigned char day;    ///< 1 to 31
  unsigned char month;  ///< 1 to 12
  unsigned short year;  ///< its lowest 16 bits
};

/// A calendar date: one day number.
class QUELMCL_API IDate : public IBase {
public:
  /// The months, counted from 1.
  enum Month : int {
    January = 1,
    February = 2,
    March = 3,
    April = 4,
    May = 5,
    June = 6,
    July = 7,
    August = 8,
    September = 9,
    October = 10,
    November = 11,
    December = 12
  };
  /// The days of a week, counted from 0.
  enum DayOfWeek : int { Monday = 0, Tuesday = 1, Wednesday = 2, Thursday = 3, Friday = 4, Saturday = 5, Sunday = 6 };
  /// How asString() writes the year: as the locale's date format has it, or with all its digits in any case.
  enum YearFormat : int { localeYear = 0, fourDigitYear = 1 };

  /// @name Construction
  /// @{

  /// Today.
  IDate() : julian(today().julian) {}
  /// From month, day and year. Days that the month does not have roll on, months other than 1 to 12 as well; 3 to 13
  /// September 1752 become the 2nd. Deliberate: the year 0 counts as year 1, and days that are counted from a year
  /// before 1602 across the changeover arrive a day or more late.
  IDate(Month aMonth, int aDay, int aYear)
  {
    if (quelmcl::detail::isNearDate(aYear, aMonth, aDay))
      julian = quelmcl::detail::nearDayNumberOf(aYear, aMonth, aDay);
    else
      initialize(aMonth, aDay, aYear);
  }
  /// \copydoc IDate(Month,int,int)
  IDate(int aDay, Month aMonth, int aYear) : IDate(aMonth, aDay, aYear) {}
  /// From year and day of the year, in this order. Days 247 and later of 1752 are 14 September and later. A day that
  /// the year does not have counts on from 1 January.
  IDate(int aYear, int aDay);
  /// From a Julian day number. Of a number with more than 32 bits the lower 32 are taken.
  IDate(unsigned long julianDayNumber) : julian(wrapped(julianDayNumber)) {}
  /// From the packed form, as from month, day and year.
  IDate(const ICnrDate& cnrDate);
  IDate(const IDate&) = default;
  IDate& operator=(const IDate&) = default;

  /// The current date by the system's clock and the local time zone.
  static IDate today();
  /// @}

  /// @name Parts
  /// @{
  unsigned long julianDate() const { return julian; }  ///< the day number, 0 to 4294967295
  // Marked one by one: inline functions stay hidden in the library otherwise, and programs may look for these there.
  QUELMCL_API int dayOfMonth() const { return civilDate().day; }  ///< 1 to 31
  QUELMCL_API Month monthOfYear() const { return static_cast<Month>(civilDate().month); }
  QUELMCL_API int year() const { return civilDate().year; }  ///< never 0; negative for years BC
  /// Counted from 1. Deliberate: after 2 September 1752 the missing days of that year are counted too.
  int dayOfYear() const;
  DayOfWeek dayOfWeek() const { return static_cast<DayOfWeek>(julian % 7); }
  ICnrDate asICnrDate() const;
  /// @}

  /// @name Texts
  /// In the language of the locale in force (LC_TIME).
  /// @{
  IString dayName() const;    ///< the name of this date's day of the week
  IString monthName() const;  ///< the name of this date's month
  static IString dayName(DayOfWeek aDay);
  static IString monthName(Month aMonth);

  /// The date as the locale writes dates (its "%x"). For fourDigitYear every 'y' in the locale's format becomes 'Y'.
  IString asString(YearFormat yearFormat = localeYear) const;
  /// The date as strftime writes it in this format, empty where the format says so; a null format is the locale's.
  /// The time of day is 00:00:00, in any time zone; %Z and %z tell of the zone that is in effect then.
  ///
  /// The C library knows only the Gregorian calendar. Deliberate: for dates before 14 September 1752 the day of the
  /// week and the day of the year are therefore those of the Gregorian day with the same name (dayName() and
  /// dayOfYear() tell ours), and 29 February of a year that is a leap year only here, such as 1700, is written as 1
  /// March. Deliberate: when the format has a letter y anywhere, years before 1900 are written 1900 too late, so that
  /// %y gives their last two digits.
  IString asString(const char* fmt) const;
  /// @}

  /// @name Reading
  /// Additions to the classic interface. The text has to match the format as strptime sees it, from its first byte to
  /// its last, and to name a real day: day, month and year (or year and day of the year), 1 January of year 1 to 31
  /// December 9999. A day of the week that the text names has to be that of the day; a time of day is read over.
  /// @{

  /// The date that the text names. Throws IInvalidParameter 1101, which tells the text and the format.
  static IDate parse(const IString& text, const char* format);
  /// Whether the text names a date, which is then in `result`; else `result` stays as it is.
  static bool tryParse(const IString& text, const char* format, IDate& result);
  /// @}

  /// @name Comparison
  /// @{
  bool operator==(const IDate& aDate) const { return julian == aDate.julian; }
  bool operator!=(const IDate& aDate) const { return julian != aDate.julian; }
  bool operator<(const IDate& aDate) const { return julian < aDate.julian; }
  bool operator<=(const IDate& aDate) const { return julian <= aDate.julian; }
  bool operator>(const IDate& aDate) const { return julian > aDate.julian; }
  bool operator>=(const IDate& aDate) const { return julian >= aDate.julian; }
  /// @}

  /// @name Arithmetic in days
  /// @{
  IDate operator+(int numDays) const { return IDate(julian + asDays(numDays)); }
  IDate operator-(int numDays) const { return IDate(julian - asDays(numDays)); }
  IDate& operator+=(int numDays) { return *this = *this + numDays; }
  IDate& operator-=(int numDays) { return *this = *this - numDays; }
  /// The number of days from `aDate` to this date. A difference of more than 2147483647 days wraps around.
  int operator-(const IDate& aDate) const { return static_cast<int>(static_cast<unsigned>(julian - aDate.julian)); }
  /// @}

  /// @name Facts about the calendar
  /// @{
  static int daysInMonth(Month aMonth, int aYear);  ///< 19 for September 1752; 0 for no month
  static int daysInYear(int aYear);                 ///< 355 for 1752
  /// Every fourth year (-1, -5, ... before year 1); from 1752 on only every fourth of the full centuries.
  static bool isLeapYear(int aYear);
  /// Whether there is such a day.
  static bool isValid(Month aMonth, int aDay, int aYear);
  /// \copydoc isValid(Month,int,int)
  static bool isValid(int aDay, Month aMonth, int aYear) { return isValid(aMonth, aDay, aYear); }
  /// Whether the year has such a day, counted from 1.
  static bool isValid(int aYear, int aDay) { return aYear != 0 && aDay >= 1 && aDay <= daysInYear(aYear); }
  /// @}

protected:
  /// Becomes the day that a constructor with these arguments makes.
  void initialize(Month aMonth, int aDay, int aYear);

private:
  static quelmcl::detail::CivilDate anyDateOf(std::uint32_t dayNumber);
  quelmcl::detail::CivilDate civilDate() const
  {
    const std::uint32_t dayNumber = static_cast<std::uint32_t>(julian);
    if (quelmcl::detail::isNearDay(dayNumber))
      return quelmcl::detail::nearDateOf(dayNumber);
    return quelmcl::detail::isJulianDay(dayNumber) ? quelmcl::detail::julianDateOf(dayNumber) : anyDateOf(dayNumber);
  }

  /// Day numbers have 32 bits, also where an unsigned long has more.
  static unsigned long wrapped(unsigned long number) { return number & 0xFFFFFFFFul; }
  static unsigned long asDays(int number) { return static_cast<unsigned long>(number); }

  unsigned long julian;
};

/// Writes the date as the locale writes dates.
QUELMCL_API std::ostream& operator<<(std::ostream& aStream, const IDate& aDate);

#endif
