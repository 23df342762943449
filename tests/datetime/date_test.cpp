// date_test.cpp - IDate: construction, parts, packed form, comparison, arithmetic, facts about the calendar.
#include "zone.hpp"

#include <quelmcl/idate.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <type_traits>

namespace {

IDate::Month monthOf(int number)
{
  return static_cast<IDate::Month>(number);
}

// ---------------------------------------------------------------------------------------------------------------------
// Day numbers and parts

struct KnownDay {
  const char* name;
  unsigned long number;
  int year, month, day;
  IDate::DayOfWeek dayOfWeek;
  int dayOfYear;
};

class KnownDays : public testing::TestWithParam<KnownDay> {};

TEST_P(KnownDays, HaveTheirNumberAndParts)
{
  const KnownDay& row = GetParam();
  const IDate date(row.number);
  EXPECT_EQ(row.number, date.julianDate());
  EXPECT_EQ(row.year, date.year());
  EXPECT_EQ(row.month, date.monthOfYear());
  EXPECT_EQ(row.day, date.dayOfMonth());
  EXPECT_EQ(row.dayOfWeek, date.dayOfWeek());
  EXPECT_EQ(row.dayOfYear, date.dayOfYear());
  EXPECT_EQ(row.number, IDate(monthOf(row.month), row.day, row.year).julianDate());
  EXPECT_EQ(row.number, IDate(row.day, monthOf(row.month), row.year).julianDate());
}

const KnownDay knownDays[] = {
  {"day_0_is_1_January_4713_BC_and_a_Monday", 0, -4713, 1, 1, IDate::Monday, 1},
  {"the_end_of_the_first_year", 365, -4713, 12, 31, IDate::Tuesday, 366},
  {"the_last_day_before_our_era", 1721423, -1, 12, 31, IDate::Friday, 366},
  {"the_first_day_of_our_era", 1721424, 1, 1, 1, IDate::Saturday, 1},
  {"the_battle_of_Hastings", 2110701, 1066, 10, 14, IDate::Saturday, 287},
  {"a_leap_day_of_the_Julian_calendar_only", 2342042, 1700, 2, 29, IDate::Thursday, 60},
  {"the_last_Julian_day", 2361221, 1752, 9, 2, IDate::Wednesday, 246},
  {"the_first_Gregorian_day", 2361222, 1752, 9, 14, IDate::Thursday, 258},
  {"the_end_of_the_short_year", 2361330, 1752, 12, 31, IDate::Sunday, 366},
  {"the_first_landing_on_the_moon", 2440423, 1969, 7, 20, IDate::Sunday, 201},
  {"the_first_day_that_computers_know", 2440588, 1970, 1, 1, IDate::Thursday, 1},
  {"1_January_2000_is_day_2451545", 2451545, 2000, 1, 1, IDate::Saturday, 1},
  {"a_leap_day", 2451604, 2000, 2, 29, IDate::Tuesday, 60},
  {"the_last_day_of_32_bit_clocks", 2465443, 2038, 1, 19, IDate::Tuesday, 19},
  {"no_leap_day_in_2100", 2488129, 2100, 3, 1, IDate::Monday, 60},
  {"the_last_day_of_all", 4294967295ul, 11754508, 12, 13, IDate::Thursday, 348},
};

INSTANTIATE_TEST_SUITE_P(Rows, KnownDays, testing::ValuesIn(knownDays),
                         [](const testing::TestParamInfo<KnownDay>& row) { return std::string(row.param.name); });

// Deliberate: the days that 1752 lacks are counted.
TEST(DateParts, TheDayOfTheYearCountsTheMissingDays)
{
  EXPECT_EQ(246, IDate(IDate::September, 2, 1752).dayOfYear());
  EXPECT_EQ(258, IDate(IDate::September, 14, 1752).dayOfYear());
  EXPECT_EQ(366, IDate(IDate::December, 31, 1752).dayOfYear());
}

// ---------------------------------------------------------------------------------------------------------------------
// Construction from parts

TEST(DateFromParts, TheMissingDaysOf1752AreTheSecondOfSeptember)
{
  for (int day = 3; day <= 13; ++day)
    EXPECT_EQ(IDate(IDate::September, 2, 1752), IDate(IDate::September, day, 1752)) << day;
  EXPECT_EQ(IDate(IDate::September, 2, 1752).julianDate(), 2361221ul);
  EXPECT_EQ(IDate(IDate::September, 14, 1752).julianDate(), 2361222ul);
}

TEST(DateFromParts, DaysBeyondTheMonthRollForward)
{
  EXPECT_EQ(IDate(IDate::March, 1, 2001), IDate(IDate::February, 29, 2001));
  EXPECT_EQ(IDate(IDate::May, 10, 2024), IDate(IDate::April, 40, 2024));
  EXPECT_EQ(IDate(IDate::January, 1, 2025), IDate(IDate::December, 32, 2024));
  EXPECT_EQ(IDate(IDate::September, 14, 1752), IDate(IDate::August, 45, 1752));
  EXPECT_EQ(IDate(IDate::September, 2, 1752), IDate(IDate::August, 44, 1752));
}

TEST(DateFromParts, DaysBelowOneRollBack)
{
  EXPECT_EQ(IDate(IDate::February, 29, 2024), IDate(IDate::March, 0, 2024));
  EXPECT_EQ(IDate(IDate::December, 30, 2023), IDate(IDate::January, -1, 2024));
}

TEST(DateFromParts, MonthsThatDoNotExistRollOnIntoOtherYears)
{
  EXPECT_EQ(IDate(IDate::January, 5, 2025), IDate(monthOf(13), 5, 2024));
  EXPECT_EQ(IDate(IDate::December, 5, 2023), IDate(monthOf(0), 5, 2024));
  EXPECT_EQ(IDate(IDate::November, 5, 2023), IDate(monthOf(-1), 5, 2024));
  EXPECT_EQ(IDate(IDate::January, 5, 2023), IDate(monthOf(-11), 5, 2024));
  EXPECT_EQ(IDate(IDate::December, 5, 2022), IDate(monthOf(-12), 5, 2024));
  EXPECT_EQ(IDate(IDate::March, 5, 2045), IDate(monthOf(255), 5, 2024));
  EXPECT_EQ(IDate(IDate::January, 1, 1), IDate(monthOf(13), 1, -1)) << "there is no year 0 to roll into";
  EXPECT_EQ(IDate(IDate::December, 1, -1), IDate(monthOf(0), 1, 1));
}

TEST(DateFromParts, TheYearThatDoesNotExistCountsAsTheFirst)
{
  EXPECT_EQ(IDate(IDate::January, 1, 1), IDate(IDate::January, 1, 0));
  EXPECT_EQ(IDate(IDate::December, 31, 1), IDate(IDate::December, 31, 0));
}

TEST(DateFromParts, LeapDaysAreThoseOfTheCalendarOfTheirTime)
{
  EXPECT_EQ(29, IDate(IDate::February, 29, 1700).dayOfMonth());
  EXPECT_EQ(1, IDate(IDate::February, 29, 1800).dayOfMonth());
  EXPECT_EQ(1, IDate(IDate::February, 29, 1900).dayOfMonth());
  EXPECT_EQ(29, IDate(IDate::February, 29, 2000).dayOfMonth());
  EXPECT_EQ(29, IDate(IDate::February, 29, -1).dayOfMonth());
  EXPECT_EQ(29, IDate(IDate::February, 29, -5).dayOfMonth());
}

TEST(DateFromParts, DaysThatReachTheChangeoverFromFarBeforeItArriveLate)
{
  const int days = 2400000 - static_cast<int>(IDate(IDate::January, 1, 1602).julianDate()) + 11;
  EXPECT_EQ(2400000ul, IDate(IDate::January, days + 1, 1602).julianDate());
  const int more = days + 365;
  EXPECT_EQ(2400001ul, IDate(IDate::January, more + 1, 1601).julianDate());
}

// ---------------------------------------------------------------------------------------------------------------------
// Construction from the day of the year

TEST(DateFromDayOfYear, TheGapOf1752IsSkipped)
{
  EXPECT_EQ(IDate(IDate::September, 2, 1752), IDate(1752, 246));
  EXPECT_EQ(IDate(IDate::September, 14, 1752), IDate(1752, 247));
  EXPECT_EQ(IDate(IDate::September, 30, 1752), IDate(1752, 263));
  EXPECT_EQ(IDate(IDate::October, 1, 1752), IDate(1752, 264));
  EXPECT_EQ(IDate(IDate::December, 31, 1752), IDate(1752, 355));
}

TEST(DateFromDayOfYear, DaysThatTheYearDoesNotHaveRollForward)
{
  EXPECT_EQ(IDate(IDate::February, 4, 2002), IDate(2001, 400));
  EXPECT_EQ(IDate(IDate::January, 1, 2001), IDate(2000, 367));
  EXPECT_EQ(IDate(IDate::December, 31, 2000), IDate(2001, 0));
  EXPECT_EQ(IDate(IDate::December, 30, 2000), IDate(2001, -1));
}

// Out of range the days are counted on from January, where the eleven are counted, too.
TEST(DateFromDayOfYear, Day356Of1752IsBackInDecember)
{
  EXPECT_EQ(IDate(IDate::December, 21, 1752), IDate(1752, 356));
  EXPECT_EQ(IDate(IDate::January, 1, 1753), IDate(1752, 367));
}

TEST(DateFromDayOfYear, OfTheYearThatDoesNotExistIsOfTheFirst)
{
  EXPECT_EQ(IDate(IDate::January, 10, 1), IDate(0, 10));
}

TEST(DateFromDayOfYear, TheLargestNumbersHaveAValue)
{
  EXPECT_EQ(IDate(IDate::January, INT_MAX, 2000), IDate(2000, INT_MAX));
  EXPECT_EQ(IDate(IDate::January, INT_MIN, 2000), IDate(2000, INT_MIN));
  EXPECT_EQ(IDate(IDate::January, 1, 2000) + (INT_MAX - 1), IDate(2000, INT_MAX));
}

// ---------------------------------------------------------------------------------------------------------------------
// Other construction

TEST(DateConstruction, OfNothingIsToday)
{
  const IDate before = IDate::today();
  const IDate date;
  const IDate after = IDate::today();
  EXPECT_LE(before, date);
  EXPECT_LE(date, after);
}

TEST(DateConstruction, TodayIsThatOfTheLocalTimeZone)
{
  long far = 0, near = 0;
  {
    const datetests::Zone zone("EAST-14");
    far = static_cast<long>(IDate::today().julianDate());
  }
  {
    const datetests::Zone zone("WEST12");
    near = static_cast<long>(IDate::today().julianDate());
  }
  EXPECT_GE(far - near, 1);  // 26 hours apart
  EXPECT_LE(far - near, 2);
}

TEST(DateConstruction, TodayIsWhatTheClockSays)
{
  const datetests::Zone zone("UTC0");
  const std::time_t before = std::time(nullptr);
  const unsigned long today = IDate::today().julianDate();
  const std::time_t after = std::time(nullptr);
  EXPECT_GE(today, 2440588ul + static_cast<unsigned long>(before / 86400));
  EXPECT_LE(today, 2440588ul + static_cast<unsigned long>(after / 86400));
}

TEST(DateConstruction, CopiesAreEqual)
{
  const IDate date(IDate::July, 20, 1969);
  const IDate copy(date);
  EXPECT_EQ(date, copy);
  IDate other(0ul);
  other = date;
  EXPECT_EQ(date, other);
  EXPECT_TRUE(std::is_trivially_copyable<IDate>::value);
}

TEST(DateConstruction, DayNumbersHave32Bits)
{
  const unsigned long long wide = 0x100000000ull + 2451545;
  if (sizeof(long) == 8) {
    EXPECT_EQ(2451545ul, IDate(static_cast<unsigned long>(wide)).julianDate());
  }
  EXPECT_EQ(4294967295ul, (IDate(0ul) - 1).julianDate());
  EXPECT_EQ(0ul, (IDate(4294967295ul) + 1).julianDate());
}

TEST(DateConstruction, BeforeDayZeroWrapsAround)
{
  EXPECT_EQ(4294967295ul, IDate(IDate::December, 31, -4714).julianDate());
}

// ---------------------------------------------------------------------------------------------------------------------
// Packed form

TEST(PackedDate, ComesBack)
{
  const IDate date(IDate::July, 20, 1969);
  const ICnrDate packed = date.asICnrDate();
  EXPECT_EQ(20, packed.day);
  EXPECT_EQ(7, packed.month);
  EXPECT_EQ(1969, packed.year);
  EXPECT_EQ(date, IDate(packed));
}

TEST(PackedDate, CutsTheYearTo16Bits)
{
  EXPECT_EQ(65535, IDate(IDate::January, 1, -1).asICnrDate().year);
  EXPECT_EQ(65535, IDate(IDate::January, 1, 65535).asICnrDate().year);
  EXPECT_EQ(0, IDate(IDate::January, 1, 65536).asICnrDate().year);
}

TEST(PackedDate, MayHoldAnything)
{
  const ICnrDate empty = {0, 0, 0};
  EXPECT_EQ(IDate(IDate::November, 30, -1), IDate(empty));
  const ICnrDate full = {255, 255, 65535};
  EXPECT_EQ(IDate(IDate::March, 255, 65556), IDate(full));
}

// ---------------------------------------------------------------------------------------------------------------------
// Comparison and arithmetic

TEST(DateComparison, IsThatOfTheDayNumbers)
{
  const IDate early(2361221ul), late(2361222ul);
  const IDate same(IDate::September, 2, 1752);
  EXPECT_TRUE(early == same);
  EXPECT_FALSE(early == late);
  EXPECT_TRUE(early != late);
  EXPECT_FALSE(early != same);
  EXPECT_TRUE(early < late);
  EXPECT_FALSE(early < same);
  EXPECT_FALSE(late < early);
  EXPECT_TRUE(early <= late);
  EXPECT_TRUE(early <= same);
  EXPECT_FALSE(late <= early);
  EXPECT_TRUE(late > early);
  EXPECT_FALSE(same > early);
  EXPECT_TRUE(late >= early);
  EXPECT_TRUE(same >= early);
  EXPECT_FALSE(early >= late);
}

TEST(DateComparison, MakesKeys)
{
  std::map<IDate, int> days;
  days[IDate(IDate::July, 20, 1969)] = 1;
  days[IDate(20, IDate::July, 1969)] += 1;
  EXPECT_EQ(1u, days.size());
  EXPECT_EQ(2, days.begin()->second);
}

TEST(DateArithmetic, AddsAndSubtractsDays)
{
  IDate date(IDate::February, 28, 2024);
  EXPECT_EQ(IDate(IDate::February, 29, 2024), date + 1);
  EXPECT_EQ(IDate(IDate::March, 1, 2024), date + 2);
  EXPECT_EQ(IDate(IDate::February, 27, 2024), date - 1);
  EXPECT_EQ(IDate(IDate::February, 27, 2024), date + -1);
  EXPECT_EQ(IDate(IDate::March, 1, 2024), date - -2);
  EXPECT_EQ(&date, &(date += 366));
  EXPECT_EQ(IDate(IDate::February, 28, 2025), date);
  EXPECT_EQ(&date, &(date -= 365));
  EXPECT_EQ(IDate(IDate::February, 29, 2024), date);
}

TEST(DateArithmetic, StepsOverTheGap)
{
  EXPECT_EQ(IDate(IDate::September, 14, 1752), IDate(IDate::September, 2, 1752) + 1);
  EXPECT_EQ(IDate(IDate::September, 2, 1752), IDate(IDate::September, 14, 1752) - 1);
  EXPECT_EQ(1, IDate(IDate::September, 14, 1752) - IDate(IDate::September, 2, 1752));
}

TEST(DateArithmetic, StepsOverTheYearThatDoesNotExist)
{
  EXPECT_EQ(IDate(IDate::January, 1, 1), IDate(IDate::December, 31, -1) + 1);
}

TEST(DateArithmetic, DifferencesHaveASign)
{
  const IDate moon(IDate::July, 20, 1969), millennium(IDate::January, 1, 2000);
  EXPECT_EQ(11122, millennium - moon);
  EXPECT_EQ(-11122, moon - millennium);
  EXPECT_EQ(0, moon - moon);
}

TEST(DateArithmetic, WrapsAroundAt32Bits)
{
  EXPECT_EQ(IDate(2147483647ul), IDate(0ul) + INT_MAX);
  EXPECT_EQ(IDate(2147483648ul), IDate(0ul) + INT_MIN);
  EXPECT_EQ(IDate(2147483648ul), IDate(0ul) - INT_MIN);
  EXPECT_EQ(IDate(5ul), IDate(4294967290ul) + 11);
  EXPECT_EQ(IDate(4294967290ul), IDate(5ul) - 11);
  EXPECT_EQ(-1, IDate(4294967295ul) - IDate(0ul));
  EXPECT_EQ(INT_MIN, IDate(2147483648ul) - IDate(0ul));
  EXPECT_EQ(INT_MAX, IDate(2147483647ul) - IDate(0ul));
}

// ---------------------------------------------------------------------------------------------------------------------
// Facts about the calendar

TEST(CalendarFacts, LeapYears)
{
  EXPECT_TRUE(IDate::isLeapYear(1700));
  EXPECT_FALSE(IDate::isLeapYear(1800));
  EXPECT_FALSE(IDate::isLeapYear(1900));
  EXPECT_TRUE(IDate::isLeapYear(2000));
  EXPECT_TRUE(IDate::isLeapYear(1752));
  EXPECT_FALSE(IDate::isLeapYear(1751));
  EXPECT_TRUE(IDate::isLeapYear(-1));
  EXPECT_TRUE(IDate::isLeapYear(-5));
  EXPECT_FALSE(IDate::isLeapYear(-4));
  EXPECT_TRUE(IDate::isLeapYear(-4713));
  EXPECT_FALSE(IDate::isLeapYear(INT_MAX));
  EXPECT_FALSE(IDate::isLeapYear(INT_MIN));  // 2147483648 BC: one after a leap year
  EXPECT_TRUE(IDate::isLeapYear(INT_MIN + 3));
}

// The year 0 is four years after 5 BC and four years before 4, so the rule, asked about it, says yes.
TEST(CalendarFacts, TheYearThatDoesNotExistIsCalledLeap)
{
  EXPECT_TRUE(IDate::isLeapYear(0));
  EXPECT_EQ(366, IDate::daysInYear(0));
}

TEST(CalendarFacts, DaysInYears)
{
  EXPECT_EQ(355, IDate::daysInYear(1752));
  EXPECT_EQ(365, IDate::daysInYear(1751));
  EXPECT_EQ(366, IDate::daysInYear(1700));
  EXPECT_EQ(365, IDate::daysInYear(1900));
  EXPECT_EQ(366, IDate::daysInYear(2000));
  EXPECT_EQ(366, IDate::daysInYear(-1));
}

TEST(CalendarFacts, DaysInMonths)
{
  EXPECT_EQ(19, IDate::daysInMonth(IDate::September, 1752));
  EXPECT_EQ(30, IDate::daysInMonth(IDate::September, 1753));
  EXPECT_EQ(29, IDate::daysInMonth(IDate::February, 1752));
  EXPECT_EQ(31, IDate::daysInMonth(IDate::December, 1752));
  EXPECT_EQ(28, IDate::daysInMonth(IDate::February, 1900));
  EXPECT_EQ(29, IDate::daysInMonth(IDate::February, -1));
  EXPECT_EQ(0, IDate::daysInMonth(monthOf(0), 2000));
  EXPECT_EQ(0, IDate::daysInMonth(monthOf(13), 2000));
}

struct ValidityCase {
  const char* name;
  int month, day, year;
  bool isValid;
};

class DateValidity : public testing::TestWithParam<ValidityCase> {};

TEST_P(DateValidity, IsToldOfMonthDayAndYear)
{
  const ValidityCase& row = GetParam();
  EXPECT_EQ(row.isValid, IDate::isValid(monthOf(row.month), row.day, row.year));
  EXPECT_EQ(row.isValid, IDate::isValid(row.day, monthOf(row.month), row.year));
}

const ValidityCase validityCases[] = {
  {"an_ordinary_day", 7, 20, 1969, true},
  {"day_0", 7, 0, 1969, false},
  {"a_negative_day", 7, -1, 1969, false},
  {"the_last_of_a_long_month", 7, 31, 1969, true},
  {"one_more", 7, 32, 1969, false},
  {"day_31_of_a_short_month", 6, 31, 1969, false},
  {"month_0", 0, 1, 1969, false},
  {"month_13", 13, 1, 1969, false},
  {"a_negative_month", -1, 1, 1969, false},
  {"no_year_0", 1, 1, 0, false},
  {"before_the_changeover", 9, 2, 1752, true},
  {"the_first_missing_day", 9, 3, 1752, false},
  {"5_September_1752", 9, 5, 1752, false},
  {"the_last_missing_day", 9, 13, 1752, false},
  {"14_September_1752", 9, 14, 1752, true},
  {"the_end_of_the_short_month", 9, 30, 1752, true},
  {"31_September_1752", 9, 31, 1752, false},
  {"the_same_days_a_year_before", 9, 5, 1751, true},
  {"29_February_1900", 2, 29, 1900, false},
  {"29_February_1600", 2, 29, 1600, true},
  {"29_February_1700", 2, 29, 1700, true},
  {"29_February_2000", 2, 29, 2000, true},
  {"29_February_1_BC", 2, 29, -1, true},
  {"29_February_4_BC", 2, 29, -4, false},
  {"the_year_before_the_day_numbers", 12, 31, -4714, true},
};

INSTANTIATE_TEST_SUITE_P(Rows, DateValidity, testing::ValuesIn(validityCases),
                         [](const testing::TestParamInfo<ValidityCase>& row) { return std::string(row.param.name); });

TEST(DateValidityInYear, IsToldOfYearAndDay)
{
  EXPECT_TRUE(IDate::isValid(2000, 366));
  EXPECT_FALSE(IDate::isValid(2000, 367));
  EXPECT_FALSE(IDate::isValid(2001, 366));
  EXPECT_FALSE(IDate::isValid(2001, 0));
  EXPECT_FALSE(IDate::isValid(2001, -1));
  EXPECT_TRUE(IDate::isValid(1752, 355));
  EXPECT_FALSE(IDate::isValid(1752, 356));
  EXPECT_FALSE(IDate::isValid(0, 1));
}

}  // namespace
