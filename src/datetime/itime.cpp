// itime.cpp - ITime, a time of day.
// Tests: tests/datetime/time_test.cpp, reading_test.cpp
#include <quelmcl/istring.hpp>
#include <quelmcl/itime.hpp>

#include "datetime/texts.hpp"

#include <ostream>

namespace {

enum Message : unsigned long { noTime = 1102 };

constexpr long secondsInDay = 86400;

}  // namespace

ITime::ITime(const ICnrTime& cnrTime) : ITime(cnrTime.hours, cnrTime.minutes, cnrTime.seconds) {}

ITime ITime::now()
{
  const std::tm now = quelmcl::detail::localTime();
  return ITime((now.tm_hour * 60L + now.tm_min) * 60 + now.tm_sec);
}

void ITime::initialize(long seconds)
{
  if (seconds >= 0) {
    ticks = seconds % secondsInDay;
    return;
  }
  const unsigned long before = 0ul - static_cast<unsigned long>(seconds);  // also for the most negative number
  // Deliberate: whole days before midnight are 24:00:00.  Test: TimeFromSeconds.WholeNegativeDaysAreTwentyFourHours
  ticks = secondsInDay - static_cast<long>(before % secondsInDay);
}

ICnrTime ITime::asICnrTime() const
{
  return {static_cast<unsigned char>(hours()), static_cast<unsigned char>(minutes()),
          static_cast<unsigned char>(seconds()), 0};
}

IString ITime::asString(const char* fmt) const
{
  std::tm fields = {};
  fields.tm_hour = static_cast<int>(hours());
  fields.tm_min = static_cast<int>(minutes());
  fields.tm_sec = static_cast<int>(seconds());
  return quelmcl::detail::formatted(fmt == nullptr ? "%X" : fmt, quelmcl::detail::normalised(fields));
}

std::ostream& operator<<(std::ostream& aStream, const ITime& aTime)
{
  return aStream << aTime.asString("%X");
}

bool ITime::tryParse(const IString& text, const char* format, ITime& result)
{
  const int noHour = -1;  // stays where the text names none
  std::tm fields = {};
  fields.tm_hour = noHour;
  if (!quelmcl::detail::readWhole(text, format, fields) || fields.tm_hour < 0 || fields.tm_sec > 59)
    return false;
  result = ITime((fields.tm_hour * 60L + fields.tm_min) * 60 + fields.tm_sec);
  return true;
}

ITime ITime::parse(const IString& text, const char* format)
{
  ITime result(0L);
  if (!tryParse(text, format, result))
    quelmcl::detail::throwUnreadable(noTime, text, format, IExceptionLocation("itime", nullptr, __LINE__));
  return result;
}
