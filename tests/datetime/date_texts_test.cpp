// date_texts_test.cpp - IDate: names of days and months, formats, streams, in any locale and time zone.
#include "slow_calendar.hpp"
#include "support/expect_text.hpp"
#include "support/lacking_package.hpp"
#include "support/random_texts.hpp"
#include "zone.hpp"

#include <quelmcl/idate.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <langinfo.h>
#include <sstream>
#include <string>
#include <vector>

using datetests::Zone;

namespace {

/// Puts a locale into effect for dates, for the length of a block.
class TimeLocale {
public:
  explicit TimeLocale(const char* name) : before(std::setlocale(LC_TIME, nullptr))
  {
    if (std::setlocale(LC_TIME, name) == nullptr)
      ADD_FAILURE() << "there is no locale " << name;
  }
  ~TimeLocale() { std::setlocale(LC_TIME, before.c_str()); }
  TimeLocale(const TimeLocale&) = delete;
  TimeLocale& operator=(const TimeLocale&) = delete;

private:
  const std::string before;
};

std::string directly(const std::string& format, const std::tm& fields)
{
  // A blank, so that nothing to write is no failure.
  char text[2000];
  const std::size_t length = std::strftime(text, sizeof text, (" " + format).c_str(), &fields);
  EXPECT_GT(length, 0u) << format;
  return length == 0 ? "" : std::string(text + 1, length - 1);
}

/// The record of a Gregorian date, made without the C library.
std::tm fieldsOf(const IDate& date)
{
  std::tm fields = {};
  fields.tm_year = date.year() - 1900;
  fields.tm_mon = date.monthOfYear() - 1;
  fields.tm_mday = date.dayOfMonth();
  fields.tm_wday = (date.dayOfWeek() + 1) % 7;
  fields.tm_yday = date.dayOfYear() - 1;
  return fields;
}

IDate october()
{
  return IDate(IDate::October, 9, 2026);
}

// ---------------------------------------------------------------------------------------------------------------------
// Names

TEST(DateNames, AreThoseOfTheLocale)
{
  const nl_item days[] = {DAY_2, DAY_3, DAY_4, DAY_5, DAY_6, DAY_7, DAY_1};
  const nl_item months[] = {MON_1, MON_2, MON_3, MON_4, MON_5, MON_6, MON_7, MON_8, MON_9, MON_10, MON_11, MON_12};
  for (int day = 0; day < 7; ++day)
    EXPECT_TEXT(IDate::dayName(static_cast<IDate::DayOfWeek>(day)), std::string(nl_langinfo(days[day])));
  for (int month = 1; month <= 12; ++month)
    EXPECT_TEXT(IDate::monthName(static_cast<IDate::Month>(month)), std::string(nl_langinfo(months[month - 1])));
}

TEST(DateNames, InEnglish)
{
  const TimeLocale locale("C");
  const char* const days[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
  for (int day = 0; day < 7; ++day)
    EXPECT_TEXT(IDate::dayName(static_cast<IDate::DayOfWeek>(day)), days[day]);
  EXPECT_TEXT(IDate::monthName(IDate::January), "January");
  EXPECT_TEXT(IDate::monthName(IDate::December), "December");
}

TEST(DateNames, InGerman)
{
  const TimeLocale locale("de_DE.UTF-8");
  EXPECT_TEXT(IDate::dayName(IDate::Monday), "Montag");
  EXPECT_TEXT(IDate::dayName(IDate::Sunday), "Sonntag");
  EXPECT_TEXT(IDate::monthName(IDate::January), "Januar");
  EXPECT_TEXT(IDate::monthName(IDate::March), "März");
}

TEST(DateNames, InGermanOfOneByteCharacters)
{
  const TimeLocale locale("de_DE.ISO-8859-1");
  EXPECT_TEXT(IDate::monthName(IDate::March), "M\xE4rz");
}

TEST(DateNames, InJapanese)
{
  const TimeLocale locale("ja_JP.EUC-JP");
  EXPECT_TEXT(IDate::dayName(IDate::Monday), "\xB7\xEE\xCD\xCB\xC6\xFC");
  EXPECT_TEXT(IDate::monthName(IDate::January), "1\xB7\xEE");
}

TEST(DateNames, OfADateAreThoseOfItsOwnDayAndMonth)
{
  const TimeLocale locale("C");
  EXPECT_TEXT(october().dayName(), "Friday");
  EXPECT_TEXT(october().monthName(), "October");
  EXPECT_TEXT(IDate(0ul).dayName(), "Monday");
  EXPECT_TEXT(IDate(IDate::September, 2, 1752).dayName(), "Wednesday");
  EXPECT_TEXT(IDate(IDate::September, 14, 1752).dayName(), "Thursday");
}

TEST(DateNames, OfWhatIsNoDayOrMonthAreQuestionMarks)
{
  EXPECT_TEXT(IDate::monthName(static_cast<IDate::Month>(0)), "?");
  EXPECT_TEXT(IDate::monthName(static_cast<IDate::Month>(13)), "?");
  EXPECT_TEXT(IDate::dayName(static_cast<IDate::DayOfWeek>(-3)), "?");
  EXPECT_TEXT(IDate::dayName(static_cast<IDate::DayOfWeek>(7)), std::string(nl_langinfo(DAY_2)));
}

// ---------------------------------------------------------------------------------------------------------------------
// Formats

std::vector<std::string> allFormats()
{
  std::vector<std::string> formats = {
    "", " ", "%", "%%", "%5", "%E", "%O", "plain text", "%Q", "100%", "%-", "%n%t", "\xC3\xA4\x80 %d", "%d.%m.%Y"};
  for (const char* flags : {"", "E", "O", "-", "_", "0", "^", "#", "20", "_12", "^E"})
    for (const char letter : std::string("aAbBcCdDeFgGhHIjklmMnprRStTuUVwWxXyY%"))  // neither zones nor %s
      formats.push_back(std::string("%") + flags + letter);
  return formats;
}

TEST(DateText, IsThatOfTheCLibraryForEveryFormat)
{
  const Zone zone("UTC0");
  const std::vector<std::string> formats = allFormats();
  std::vector<IDate> dates = {october(), IDate(IDate::January, 1, 2000), IDate(IDate::February, 29, 2000),
                              IDate(IDate::December, 31, 1900), IDate(IDate::January, 1, 1900)};
  quelmcl_test::RandomTexts random;
  for (int i = 0; i < 30; ++i)  // 1900 to 2447
    dates.push_back(IDate(2415021ul + random.below(200000)));
  for (const IDate& date : dates)
    for (const std::string& format : formats)
      ASSERT_EQ(directly(format, fieldsOf(date)), std::string(date.asString(format.c_str())))
        << format << " of day " << date.julianDate();
}

// Years that a clock of 32 bits cannot tell. No letter y: that has a rule of its own for early years.
TEST(DateText, OfEarlyAndLateYearsIsThatOfTheCLibrary)
{
  const Zone zone("CET-1CEST,M3.5.0,M10.5.0/3");
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 2000; ++round) {
    const bool isFar = random.onceIn(2);
    const IDate date(2361222ul + random.below(isFar ? 4000000000u : 300000));
    const std::string format = "%A, %d %B %Y, %j %U %W %G-%V-%u %H:%M:%S";
    ASSERT_EQ(directly(format, fieldsOf(date)), std::string(date.asString(format.c_str()))) << date.julianDate();
  }
}

TEST(DateText, OfKnownDaysBeyondTheClocksOf32Bits)
{
  const TimeLocale locale("C");
  EXPECT_TEXT(IDate(IDate::March, 14, 1879).asString("%A %d %B %Y: %j"), "Friday 14 March 1879: 073");
  EXPECT_TEXT(IDate(IDate::July, 4, 1776).asString("%A %F"), "Thursday 1776-07-04");
  EXPECT_TEXT(IDate(IDate::January, 20, 2038).asString("%A %j"), "Wednesday 020");
  EXPECT_TEXT(IDate(IDate::December, 31, 9999).asString("%A %F %j"), "Friday 9999-12-31 365");
  EXPECT_TEXT(IDate(4294967295ul).asString("%A %d.%m.%Y"), "Thursday 13.12.11754508");
}

TEST(DateText, OfADayBeforeTheChangeoverHasTheNameOfTheDayAndTheWeekdayOfTheOtherCalendar)
{
  const TimeLocale locale("C");
  EXPECT_TEXT(IDate(IDate::September, 2, 1752).asString("%d %B %Y, %A, %j"), "02 September 1752, Saturday, 246");
  EXPECT_TEXT(IDate(IDate::October, 14, 1066).asString("%d.%m.%Y"), "14.10.1066");
  EXPECT_TEXT(IDate(0ul).asString("%d.%m.%Y"), "01.01.-4713");
}

// Deliberate: the C library has no such day.
TEST(DateText, OfTheLeapDayOf1700IsTheFirstOfMarch)
{
  EXPECT_TEXT(IDate(IDate::February, 29, 1700).asString("%F"), "1700-03-01");
  EXPECT_TEXT(IDate(IDate::February, 29, 1600).asString("%F"), "1600-02-29");
  EXPECT_TEXT(IDate(IDate::February, 28, 1700).asString("%F"), "1700-02-28");
}

TEST(DateText, ALetterYMovesEarlyYears)
{
  const IDate early(IDate::July, 4, 1776);
  EXPECT_TEXT(early.asString("%d.%m.%y"), "04.07.76");
  EXPECT_TEXT(early.asString("%Y"), "1776");
  EXPECT_TEXT(early.asString("%y %Y"), "76 3676");
  EXPECT_TEXT(early.asString("in my %Y"), "in my 3676") << "any letter y at all";
  EXPECT_TEXT(early.asString("%D"), "07/04/76");
  EXPECT_TEXT(IDate(IDate::December, 31, 1899).asString("%y %Y"), "99 3799");
  EXPECT_TEXT(IDate(IDate::January, 1, 1900).asString("%y %Y"), "00 1900");
  EXPECT_TEXT(october().asString("%y my %Y"), "26 my 2026");
}

TEST(DateText, MayBeEmpty)
{
  EXPECT_TEXT(october().asString(""), "");
  const TimeLocale locale("de_DE.UTF-8");
  EXPECT_TEXT(october().asString("%p"), "");
  EXPECT_TEXT(october().asString("%p%p"), "");
}

TEST(DateText, MayBeMuchLongerThanItsFormat)
{
  const TimeLocale locale("C");
  EXPECT_TEXT(october().asString("%030000d"), std::string(29999, '0') + "9");
  EXPECT_TEXT(october().asString("%A%B"), "FridayOctober");
}

TEST(DateText, KeepsBytesThatAreNoCharacters)
{
  EXPECT_TEXT(october().asString("\x80\xFF%d\x95"), std::string("\x80\xFF"
                                                                "09"
                                                                "\x95"));
}

// ---------------------------------------------------------------------------------------------------------------------
// The locale's format

TEST(DateText, OfNoFormatIsTheLocales)
{
  const Zone zone("UTC0");
  const std::string format = nl_langinfo(D_FMT);
  const std::string expected = directly(format, fieldsOf(october()));
  EXPECT_TEXT(october().asString(), expected);
  EXPECT_TEXT(october().asString(IDate::localeYear), expected);
  EXPECT_TEXT(october().asString(nullptr), expected);
  EXPECT_TEXT(october().asString(0), expected);  // a null format, as C++ sees it
}

TEST(DateText, WithAYearOfFourDigits)
{
  {
    const TimeLocale locale("C");  // "%m/%d/%y"
    EXPECT_TEXT(october().asString(IDate::localeYear), "10/09/26");
    EXPECT_TEXT(october().asString(IDate::fourDigitYear), "10/09/2026");
    EXPECT_TEXT(IDate(IDate::July, 4, 1776).asString(IDate::localeYear), "07/04/76");
    EXPECT_TEXT(IDate(IDate::July, 4, 1776).asString(IDate::fourDigitYear), "07/04/1776");
  }
  const TimeLocale locale("de_DE.UTF-8");  // "%d.%m.%Y"
  EXPECT_TEXT(october().asString(IDate::localeYear), "09.10.2026");
  EXPECT_TEXT(october().asString(IDate::fourDigitYear), "09.10.2026");
}

TEST(DateStream, WritesTheLocalesDate)
{
  std::ostringstream stream;
  stream << october() << ' ' << IDate(0ul);
  EXPECT_EQ(std::string(october().asString(IDate::localeYear)) + " " +
              std::string(IDate(0ul).asString(IDate::localeYear)),
            stream.str());
}

// ---------------------------------------------------------------------------------------------------------------------
// Time zones

void expectMidnightOfEachDay(const IDate& first, int days)
{
  for (IDate date = first; date - first < days; date += 1) {
    std::tm fields = fieldsOf(date);
    ASSERT_EQ(directly("%Y-%m-%d %H:%M:%S %a %j", fields), std::string(date.asString("%Y-%m-%d %H:%M:%S %a %j")));
  }
}

TEST(DateText, NoZoneMovesTheDay)
{
  const char* const zones[] = {
    "UTC0",
    "EAST-14",
    "WEST12",
    "CET-1CEST,M3.5.0,M10.5.0/3",   // summer time
    "IST-1GMT0,M10.5.0,M3.5.0/1",   // standard time is that of summer
    "BRT3BRST,M10.3.0/0,M2.3.0/0",  // days without their first hour, and days that have it twice
    "Europe/Dublin",
    "Europe/Berlin",
    "America/Sao_Paulo",
    "America/Havana",
    "Pacific/Apia",
    "Africa/Monrovia",
    "Asia/Kathmandu",
    "right/Europe/London",
  };
  for (const char* name : zones) {
    SCOPED_TRACE(name);
    const Zone zone(name);
    expectMidnightOfEachDay(IDate(IDate::January, 1, 2000), 366);
    expectMidnightOfEachDay(IDate(IDate::January, 1, 2011), 365);
    expectMidnightOfEachDay(IDate(IDate::January, 1, 1945), 366);
    expectMidnightOfEachDay(IDate(IDate::December, 1, 1899), 62);
    expectMidnightOfEachDay(IDate(IDate::January, 1, 2050), 365);
  }
}

TEST(DateText, NoZoneOfTheDatabaseMovesTheDay)
{
  const std::vector<std::string> zones = Zone::allKnown();
  if (zones.size() < 300)
    QUELMCL_END_FOR_LACK_OF("tzdata");
  // The last Sunday of March and of October, when most zones set their clocks; days when some did at midnight; old ones.
  const IDate days[] = {
    IDate(IDate::March, 31, 2024),    IDate(IDate::October, 27, 2024), IDate(IDate::October, 15, 2017),
    IDate(IDate::March, 12, 2017),    IDate(IDate::January, 1, 1970),  IDate(IDate::January, 1, 1912),
    IDate(IDate::December, 30, 2011), IDate(IDate::July, 14, 1789),    IDate(IDate::June, 1, 2100)};
  for (const std::string& name : zones) {
    const Zone zone(name.c_str());
    for (const IDate& date : days)
      for (const int day : {-1, 0, 1}) {
        char expected[32];
        const IDate near = date + day;
        std::snprintf(expected, sizeof expected, "%04d-%02d-%02d 00:00:00", near.year(),
                      static_cast<int>(near.monthOfYear()), near.dayOfMonth());
        ASSERT_STREQ(near.asString("%Y-%m-%d %H:%M:%S"), expected) << name;
      }
  }
}

TEST(DateText, TheDayThatSamoaSkippedIsWrittenAllTheSame)
{
  if (!Zone::isKnown("Pacific/Apia"))
    QUELMCL_END_FOR_LACK_OF("tzdata");
  const Zone zone("Pacific/Apia");
  EXPECT_TEXT(IDate(IDate::December, 30, 2011).asString("%F %T"), "2011-12-30 00:00:00");
}

TEST(DateText, TellsOfTheZoneThatIsInEffect)
{
  {
    const Zone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_TEXT(IDate(IDate::January, 15, 2026).asString("%H %Z %z"), "00 CET +0100");
    EXPECT_TEXT(IDate(IDate::July, 15, 2026).asString("%H %Z %z"), "00 CEST +0200");
  }
  const Zone zone("IST-1GMT0,M10.5.0,M3.5.0/1");
  EXPECT_TEXT(IDate(IDate::January, 1, 2000).asString("%H %Z %z"), "00 GMT +0000");
  EXPECT_TEXT(IDate(IDate::July, 1, 2000).asString("%H %Z %z"), "00 IST +0100");
}

TEST(DateText, TellsOfZonesOfThePast)
{
  if (!Zone::isKnown("Europe/Amsterdam"))
    QUELMCL_END_FOR_LACK_OF("tzdata");
  const Zone zone("Europe/London");
  EXPECT_TEXT(IDate(IDate::July, 15, 1943).asString("%H:%M %Z %z"), "00:00 BDST +0200");
  EXPECT_TEXT(IDate(IDate::January, 15, 1800).asString("%H:%M %Z"), "00:00 LMT");
}

}  // namespace
