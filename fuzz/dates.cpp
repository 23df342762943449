// dates.cpp - fuzz target: day numbers, dates, times and their texts, beside tests/datetime/slow_calendar.hpp and the C library.
#include "datetime/slow_calendar.hpp"
#include "input.hpp"
#include "strings/string_probe.hpp"

#include <quelmcl/idate.hpp>
#include <quelmcl/itime.hpp>

#include <algorithm>
#include <cstdlib>
#include <ctime>

using fuzz::agree;
using slowcalendar::Day;
using stringtests::made;

namespace {

// Texts to read, and pieces of formats: neither time zones nor %s, which depend on where one is.
const std::vector<fuzz::Palette> palettes = {
  {"%Y", "-", "%m", "%d", "%B", "%A", "%j", "%H", "%M", "%S", "%U", "%G", "%u", "%C", "%e", " ", "x"},
  {"%y", "y", "%D", "%x", "%c", "%E", "%O", "%-", "%_", "%0", "%20", "^", "%%", "%", "%n", "d", "Y", "\xC3\xA4"},
  fuzz::bytesOf("0123456789-:. "),
  {"2024", "1752", "1700", "-", "09", "02", "29", "14", "366", "12", ":", "Sunday", "July", "am", " "},
};

/// The first of every month that the slow calendar walks through, up to the year 3500.
const std::vector<Day>& firstOfMonths()
{
  static const std::vector<Day> months = [] {
    std::vector<Day> found;
    for (Day day; day.year <= 3500; day.next())
      if (day.day == 1)
        found.push_back(day);
    return found;
  }();
  return months;
}

constexpr std::uint32_t cycle = 146097;  // days after which the Gregorian calendar begins anew, 400 years later

/// The day of that number by the slow calendar, or its twin some cycles later.
Day dayOf(std::uint32_t number)
{
  const std::uint32_t firstFarDay = 2451545;
  const std::uint32_t cycles = number < firstFarDay ? 0 : (number - firstFarDay) / cycle;
  const std::uint32_t near = number - cycles * cycle;
  const std::vector<Day>& months = firstOfMonths();
  Day day = *(std::upper_bound(months.begin(), months.end(), near,
                               [](std::uint32_t wanted, const Day& first) { return wanted < first.number; }) -
              1);
  while (day.number != near)
    day.next();
  day.number = number;
  day.year += static_cast<int>(cycles) * 400;
  day.dayOfWeek = static_cast<int>(number % 7);
  return day;
}

/// Whether the slow calendar has such a day.
bool isDay(int year, int month, int day)
{
  if (year == 0 || month < 1 || month > 12 || day < 1 || day > slowcalendar::lastDayOf(month, year))
    return false;
  return year != 1752 || month != 9 || day <= 2 || day >= 14;
}

int daysBetween(int year, int firstDay, int lastDay)
{
  int days = 0;
  for (int month = 1; month <= 12; ++month)
    for (int day = 1; day <= slowcalendar::lastDayOf(month, year); ++day)
      days += isDay(year, month, day) && firstDay <= month * 100 + day && month * 100 + day <= lastDay ? 1 : 0;
  return days;
}

/// A year near ours or near zero, or any at all.
int yearOf(fuzz::Input& input)
{
  switch (input.below(4)) {
  case 0:
    return input.anyInt();
  case 1:
    return static_cast<int>(input.below(24)) - 12;
  case 2:
    return 1740 + static_cast<int>(input.below(24));
  default:
    return 1600 + static_cast<int>(input.below(256)) * 3;
  }
}

std::uint32_t dayNumberOf(fuzz::Input& input)
{
  if (input.below(4) == 0)
    return input.number();
  return 2361222 - 400 * 256 + input.number() % 300000;  // 1471 to 2292
}

struct Operands {
  explicit Operands(fuzz::Input& input)
    : dayNumber(dayNumberOf(input)),
      year(yearOf(input)),
      month(static_cast<int>(input.below(20)) - 3),
      day(input.flag() ? static_cast<int>(input.below(40)) - 4 : input.anyInt()),
      days(input.anyInt()),
      other(input.anyInt()),
      format(input.text(8).c_str()),
      text(input.text(10)),
      date(static_cast<unsigned long>(dayNumber))
  {
  }

  std::uint32_t dayNumber;
  int year, month, day, days, other;
  std::string format, text;
  IDate date;
};

std::string byTheCLibrary(const std::string& format, const std::tm& fields)
{
  char text[1000];  // ample for eight pieces, each at most twenty wide
  const std::size_t length = std::strftime(text, sizeof text, ("." + format).c_str(), &fields);
  return length == 0 ? "" : std::string(text + 1, length - 1);
}

/// The record that the C library has for a date: that of the Gregorian day of the same name, as if this calendar had
/// always been.
std::tm gregorianFields(int year, int month, int dayOfMonth)
{
  const int far = year % 400 + (year % 400 < 0 ? 400 : 0);
  Day day =
    dayOf(slowcalendar::numberByTheRule(2000 + far, month, dayOfMonth));  // as long as it is a leap year there, too
  std::tm fields = {};
  fields.tm_year = year + (day.year - 2000 - far) - 1900;
  fields.tm_mon = day.month - 1;
  fields.tm_mday = day.day;
  fields.tm_wday = (day.dayOfWeek + 1) % 7;
  fields.tm_yday = day.dayOfYear - 1;
  return fields;
}

const char* const readable[] = {"%Y-%m-%d", "%d.%m.%Y", "%A, %d %B %Y", "%m/%d/%Y %H:%M:%S", "%Y %j", "%F"};

const fuzz::Operation<Operands> operations[] = {
  {"parts of a day number",
   [](const Operands& on) {
     const Day day = dayOf(on.dayNumber);
     agree(on.date.julianDate(), static_cast<unsigned long>(on.dayNumber));
     agree(on.date.year(), day.year);
     agree(static_cast<int>(on.date.monthOfYear()), day.month);
     agree(on.date.dayOfMonth(), day.day);
     agree(on.date.dayOfYear(), day.dayOfYear);
     agree(static_cast<int>(on.date.dayOfWeek()), day.dayOfWeek);
     agree(IDate(on.date.monthOfYear(), day.day, day.year) == on.date, "its parts make the same date again");
   }},
  {"packed",
   [](const Operands& on) {
     const Day day = dayOf(on.dayNumber);
     const ICnrDate packed = on.date.asICnrDate();
     agree(int{packed.day}, day.day);
     agree(int{packed.month}, day.month);
     agree(unsigned{packed.year}, static_cast<unsigned>(day.year) & 0xFFFFu);
     if (day.year > 0 && day.year <= 65535)
       agree(IDate(packed) == on.date, "the packed form comes back");
   }},
  {"day number of parts",
   [](const Operands& on) {
     const int month = 1 + (on.month + 12) % 12;
     agree(IDate(static_cast<IDate::Month>(month), on.day, on.year).julianDate(),
           static_cast<unsigned long>(slowcalendar::numberByTheRule(on.year, month, on.day)));
   }},
  {"day number of a month beyond its year",
   [](const Operands& on) {
     const int years[] = {-1000, -1, 1, 5, 1751, 1752, 1753, 2024};
     const int written = years[static_cast<unsigned>(on.other) % 8];
     int year = written, month = on.month;
     for (; month < 1; month += 12)
       year = year == 1 ? -1 : year - 1;
     for (; month > 12; month -= 12)
       year = year == -1 ? 1 : year + 1;
     agree(IDate(static_cast<IDate::Month>(on.month), 1, written).julianDate(),
           static_cast<unsigned long>(slowcalendar::numberByTheRule(year, month, 1)));
   }},
  {"arithmetic",
   [](const Operands& on) {
     const IDate other = on.date + on.days;
     agree(other.julianDate(), static_cast<unsigned long>(on.dayNumber + static_cast<std::uint32_t>(on.days)));
     agree(other - on.days == on.date, "what was added can be subtracted");
     agree(other - on.date, on.days);
     agree((on.date < other) == (on.date.julianDate() < other.julianDate()), "dates have the order of their numbers");
   }},
  {"facts about years",
   [](const Operands& on) {
     agree(IDate::isLeapYear(on.year), slowcalendar::isLeap(on.year));
     if (on.year != 0)
       agree(IDate::daysInYear(on.year), daysBetween(on.year, 101, 1231));
     for (int month = 1; on.year != 0 && month <= 12; ++month)
       agree(IDate::daysInMonth(static_cast<IDate::Month>(month), on.year),
             daysBetween(on.year, month * 100 + 1, month * 100 + 31));
   }},
  {"validity",
   [](const Operands& on) {
     agree(IDate::isValid(static_cast<IDate::Month>(on.month), on.day, on.year), isDay(on.year, on.month, on.day));
     agree(IDate::isValid(on.year, on.day), on.year != 0 && on.day >= 1 && on.day <= daysBetween(on.year, 101, 1231));
   }},
  {"text of a date",
   [](const Operands& on) {
     const Day day = dayOf(on.dayNumber);
     const bool isMoved = day.year < 1900 && on.format.find('y') != std::string::npos;
     agree(on.date.asString(on.format.c_str()),
           byTheCLibrary(on.format, gregorianFields(isMoved ? day.year + 1900 : day.year, day.month, day.day)));
   }},
  {"a date comes back from its text",
   [](const Operands& on) {
     const Day day = dayOf(on.dayNumber);
     if (day.year < 1 || day.year > 9999)
       return;
     for (const char* const format : readable) {
       const bool isLeapHereOnly = day.year < 1752 && day.year % 100 == 0 && day.year % 400 != 0;
       if (isLeapHereOnly)
         continue;  // 29 February is written as 1 March
       IDate read(0ul);
       agree(IDate::tryParse(on.date.asString(format), format, read), "the text can be read");
       agree(read == on.date, "the same date comes back");
     }
   }},
  {"reading a date from any text",
   [](const Operands& on) {
     const char* const format = readable[static_cast<unsigned>(on.other) % 6];
     const IDate before(7ul);
     IDate date(before);
     if (IDate::tryParse(made(on.text), format, date)) {
       agree(date.year() >= 1 && date.year() <= 9999, "a date that was read has four digits for its year");
       agree(IDate::isValid(date.monthOfYear(), date.dayOfMonth(), date.year()), "a date that was read is valid");
     } else {
       agree(date == before, "a failed reading leaves the result alone");
     }
   }},
  {"times",
   [](const Operands& on) {
     const long long seconds = (on.days % 86400LL + 86400) % 86400;
     const bool isWholeDaysBefore = on.days < 0 && seconds == 0;
     const ITime time(static_cast<long>(on.days));
     agree(time.asSeconds(), static_cast<long>(isWholeDaysBefore ? 86400 : seconds));
     const ITime other(static_cast<unsigned>(on.other), static_cast<unsigned>(on.day), static_cast<unsigned>(on.year));
     const unsigned long long sum = static_cast<unsigned>(on.other) * 3600ULL + static_cast<unsigned>(on.day) * 60ULL +
                                    static_cast<unsigned>(on.year);
     agree(other.asSeconds(), static_cast<long>(sum % 86400));
     agree((time + other).asSeconds(), static_cast<long>((seconds + other.asSeconds()) % 86400));
     agree(static_cast<long>(other.hours() * 3600 + other.minutes() * 60 + other.seconds()), other.asSeconds());
   }},
  {"text of a time",
   [](const Operands& on) {
     const ITime time(static_cast<long>(on.other & 0xFFFFF));
     std::tm fields = gregorianFields(1899, 12, 31);
     fields.tm_hour = static_cast<int>(time.hours());
     fields.tm_min = static_cast<int>(time.minutes());
     fields.tm_sec = static_cast<int>(time.seconds());
     agree(time.asString(on.format.c_str()), byTheCLibrary(on.format, fields));
     ITime read(7L);
     agree(ITime::tryParse(time.asString("%H:%M:%S"), "%H:%M:%S", read) && read == time, "a time comes back");
   }},
  {"reading a time from any text",
   [](const Operands& on) {
     const ITime before(-86400L);
     ITime time(before);
     if (!ITime::tryParse(made(on.text), on.format.c_str(), time))
       agree(time == before, "a failed reading leaves the result alone");
     else
       agree(time.asSeconds() >= 0 && time.asSeconds() < 86400, "a time that was read is within the day");
   }},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  static const int isZoneSet = setenv("TZ", "UTC0", 1);  // texts of dates ask the C library for the zone of each
  static_cast<void>(isZoneSet);
  fuzz::Input input(bytes, count, palettes);
  fuzz::runOne(operations, input);
  return 0;
}
