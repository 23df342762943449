// time_test.cpp - ITime: construction, parts, packed form, arithmetic, texts.
#include "support/expect_text.hpp"
#include "zone.hpp"

#include <quelmcl/istring.hpp>
#include <quelmcl/itime.hpp>

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <sstream>
#include <string>
#include <type_traits>

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Construction

TEST(TimeFromSeconds, StaysWithinOneDay)
{
  EXPECT_EQ(0, ITime(0).asSeconds());
  EXPECT_EQ(86399, ITime(86399).asSeconds());
  EXPECT_EQ(0, ITime(86400).asSeconds());
  EXPECT_EQ(1, ITime(86401).asSeconds());
  EXPECT_EQ(INT_MAX % 86400, ITime(INT_MAX).asSeconds());
}

TEST(TimeFromSeconds, NegativeOnesCountBackFromMidnight)
{
  EXPECT_EQ(86399, ITime(-1).asSeconds());
  EXPECT_TEXT(ITime(-1).asString("%H:%M:%S"), "23:59:59");
  EXPECT_EQ(1, ITime(-86399).asSeconds());
  EXPECT_EQ(86399, ITime(-86401).asSeconds());
}

TEST(TimeFromSeconds, WholeNegativeDaysAreTwentyFourHours)
{
  const ITime time(-86400);
  EXPECT_EQ(86400, time.asSeconds());
  EXPECT_EQ(24u, time.hours());
  EXPECT_EQ(0u, time.minutes());
  EXPECT_EQ(0u, time.seconds());
  EXPECT_EQ(24, time.asICnrTime().hours);
  EXPECT_TRUE(time > ITime(86399));
  EXPECT_FALSE(time == ITime(0));
  EXPECT_TEXT(time.asString("%H:%M:%S"), "00:00:00");
  EXPECT_EQ(86400, ITime(-3 * 86400).asSeconds());
}

TEST(TimeFromSeconds, TheMostNegativeNumberHasAValue)
{
  EXPECT_EQ(74752, ITime(INT_MIN).asSeconds());
  const unsigned long long before = sizeof(long) == 4 ? 2147483648ull : 9223372036854775808ull;
  EXPECT_EQ(86400 - static_cast<long>(before % 86400), ITime(LONG_MIN).asSeconds());
}

TEST(TimeFromParts, IsHoursMinutesAndSeconds)
{
  const ITime time(13, 45, 59);
  EXPECT_EQ(13 * 3600 + 45 * 60 + 59, time.asSeconds());
  EXPECT_EQ(13u, time.hours());
  EXPECT_EQ(45u, time.minutes());
  EXPECT_EQ(59u, time.seconds());
}

TEST(TimeFromParts, WhatIsTooMuchWrapsAround)
{
  EXPECT_EQ(ITime(1, 0, 0), ITime(25, 0, 0));
  EXPECT_EQ(ITime(2, 1, 1), ITime(0, 120, 61));
  EXPECT_EQ(ITime(0, 0, 0), ITime(23, 59, 60));
  // 4294967295 hours are 178956970 days and 15 hours; as many minutes end at 04:15, as many seconds at 06:28:15.
  EXPECT_EQ(ITime(15, 0, 0), ITime(4294967295u, 0, 0));
  EXPECT_EQ(ITime(4, 15, 0), ITime(0, 4294967295u, 0));
  EXPECT_EQ(ITime(6, 28, 15), ITime(0, 0, 4294967295u));
  EXPECT_EQ(ITime(1, 43, 15), ITime(4294967295u, 4294967295u, 4294967295u));
}

TEST(TimeConstruction, OfNothingIsNow)
{
  const datetests::Zone zone("UTC0");
  const long before = static_cast<long>(std::time(nullptr) % 86400);
  const long time = ITime().asSeconds();
  const long after = static_cast<long>(std::time(nullptr) % 86400);
  if (before <= after) {
    EXPECT_LE(before, time);
    EXPECT_LE(time, after);
  } else {  // midnight came between
    EXPECT_TRUE(time >= before || time <= after);
  }
}

TEST(TimeConstruction, NowIsThatOfTheLocalTimeZone)
{
  long here = 0, there = 0;
  {
    const datetests::Zone zone("HERE0");
    here = ITime::now().asSeconds();
  }
  {
    const datetests::Zone zone("THERE-5:30");
    there = ITime::now().asSeconds();
  }
  const long ahead = (there - here + 86400) % 86400;
  EXPECT_GE(ahead, 19800);
  EXPECT_LE(ahead, 19800 + 60);
}

TEST(TimeConstruction, CopiesAreEqual)
{
  const ITime time(13, 45, 59);
  const ITime copy(time);
  EXPECT_EQ(time, copy);
  ITime other(0);
  other = time;
  EXPECT_EQ(time, other);
  EXPECT_TRUE(std::is_trivially_copyable<ITime>::value);
}

// ---------------------------------------------------------------------------------------------------------------------
// Packed form

ICnrTime packed(unsigned char hours, unsigned char minutes, unsigned char seconds)
{
  return {hours, minutes, seconds, 77};
}

TEST(PackedTime, TheLastSecondComesBackUnchanged)
{
  const ITime time(packed(23, 59, 59));
  EXPECT_EQ(86399, time.asSeconds());
  const ICnrTime back = time.asICnrTime();
  EXPECT_EQ(23, back.hours);
  EXPECT_EQ(59, back.minutes);
  EXPECT_EQ(59, back.seconds);
  EXPECT_EQ(0, back.ucReserved);
}

TEST(PackedTime, WhatIsTooMuchWrapsAround)
{
  EXPECT_EQ(0, ITime(packed(24, 0, 0)).asSeconds());
  EXPECT_EQ(3600, ITime(packed(25, 0, 0)).asSeconds());
  EXPECT_EQ((255 * 3600 + 255 * 60 + 255) % 86400, ITime(packed(255, 255, 255)).asSeconds());
}

TEST(PackedTime, EverySecondComesBack)
{
  for (long second = 0; second < 86400; ++second) {
    const ICnrTime back = ITime(second).asICnrTime();
    if (ITime(back).asSeconds() != second || back.minutes > 59 || back.seconds > 59)
      FAIL() << second;
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Comparison and arithmetic

TEST(TimeComparison, IsThatOfTheSeconds)
{
  const ITime early(100), late(101), same(0, 1, 40);
  EXPECT_TRUE(early == same);
  EXPECT_FALSE(early == late);
  EXPECT_TRUE(early != late);
  EXPECT_FALSE(early != same);
  EXPECT_TRUE(early < late);
  EXPECT_FALSE(early < same);
  EXPECT_TRUE(early <= same);
  EXPECT_FALSE(late <= early);
  EXPECT_TRUE(late > early);
  EXPECT_FALSE(same > early);
  EXPECT_TRUE(same >= early);
  EXPECT_FALSE(early >= late);
}

TEST(TimeArithmetic, WrapsAroundMidnight)
{
  ITime time(22, 30, 0);
  EXPECT_EQ(ITime(1, 30, 0), time + ITime(3, 0, 0));
  EXPECT_EQ(ITime(19, 30, 0), time - ITime(3, 0, 0));
  EXPECT_EQ(ITime(23, 0, 0), ITime(1, 0, 0) - ITime(2, 0, 0));
  EXPECT_EQ(ITime(0), time - time);
  EXPECT_EQ(ITime(22, 30, 30), time + 30);
  EXPECT_EQ(&time, &(time += ITime(2, 0, 0)));
  EXPECT_EQ(ITime(0, 30, 0), time);
  EXPECT_EQ(&time, &(time -= ITime(1, 0, 0)));
  EXPECT_EQ(ITime(23, 30, 0), time);
}

TEST(TimeArithmetic, OfEverySumIsTheSumWithinADay)
{
  for (long left = 0; left < 86400; left += 997)
    for (long right = 0; right < 86400; right += 991) {
      if ((ITime(left) + ITime(right)).asSeconds() != (left + right) % 86400)
        FAIL() << left << " + " << right;
      if ((ITime(left) - ITime(right)).asSeconds() != (left - right + 86400) % 86400)
        FAIL() << left << " - " << right;
    }
}

// ---------------------------------------------------------------------------------------------------------------------
// Texts

std::string directly(const char* format, int hour, int minute, int second)
{
  std::tm fields = {};
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  char text[500];
  return std::string(text, std::strftime(text, sizeof text, format, &fields));
}

TEST(TimeText, IsThatOfTheCLibrary)
{
  for (const char* format : {"%X", "%T", "%H:%M", "%I %p", "%l%P", "%r", "%R", "%k|%S", "%n%t%%", "at %OH"})
    for (const long second : {0L, 1L, 3599L, 43199L, 43200L, 46800L, 86399L}) {
      const ITime time(second);
      EXPECT_TEXT(time.asString(format), directly(format, static_cast<int>(time.hours()),
                                                  static_cast<int>(time.minutes()), static_cast<int>(time.seconds())));
    }
}

TEST(TimeText, OfNoFormatIsTheLocales)
{
  EXPECT_TEXT(ITime(13, 45, 59).asString(), directly("%X", 13, 45, 59));
  EXPECT_TEXT(ITime(13, 45, 59).asString(nullptr), directly("%X", 13, 45, 59));
}

TEST(TimeText, MayBeEmpty)
{
  EXPECT_TEXT(ITime(1).asString(""), "");
  ASSERT_NE(nullptr, std::setlocale(LC_TIME, "de_DE.UTF-8"));
  EXPECT_TEXT(ITime(1).asString("%p"), "");
  std::setlocale(LC_TIME, std::getenv("QUELMCL_TEST_LOCALE"));
}

TEST(TimeText, MayBeMuchLongerThanItsFormat)
{
  EXPECT_TEXT(ITime(1, 2, 3).asString("%020000H"), std::string(19998, '0') + "01");
  std::string format, expected;
  for (int i = 0; i < 3000; ++i) {
    format += "%T";
    expected += "01:02:03";
  }
  EXPECT_TEXT(ITime(1, 2, 3).asString(format.c_str()), expected);
}

TEST(TimeText, OfADateIsTheLastDayOf1899)
{
  EXPECT_TEXT(ITime(1, 2, 3).asString("%Y-%m-%d %j %u"), "1899-12-31 365 7");
}

TEST(TimeText, NoZoneMovesTheTime)
{
  for (const char* name : {"UTC0", "IST-1GMT0,M10.5.0,M3.5.0/1", "CET-1CEST,M3.5.0,M10.5.0/3", "XYZ11:59:59",
                           "Europe/Dublin", "Europe/Amsterdam", "America/New_York", "Asia/Manila", "Pacific/Apia"}) {
    const datetests::Zone zone(name);
    for (long second = 0; second < 86400; second += 1799) {
      const ITime time(second);
      EXPECT_TEXT(time.asString("%H:%M:%S"),
                  directly("%H:%M:%S", static_cast<int>(time.hours()), static_cast<int>(time.minutes()),
                           static_cast<int>(time.seconds())))
        << name;
    }
  }
}

TEST(TimeStream, WritesTheLocalesTime)
{
  std::ostringstream stream;
  stream << ITime(13, 45, 59);
  EXPECT_EQ(directly("%X", 13, 45, 59), stream.str());
}

}  // namespace
