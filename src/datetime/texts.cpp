// texts.cpp - dates and times to text and back through the C library.
// Tests: tests/datetime/date_texts_test.cpp, time_test.cpp, reading_test.cpp
#include <quelmcl/ibase.hpp>
#include <quelmcl/imsgtext.hpp>

#include "datetime/texts.hpp"
#include "exceptions/throwing.hpp"

#include <cstring>
#include <string>
#include <vector>

namespace quelmcl::detail {

namespace {

/// Takes over what the local zone is when its clocks show this record.
void tellZone(std::tm& fields)
{
  std::tm local = fields;
  local.tm_isdst = -1;  // whichever of standard and summer time is in effect
  local.tm_wday = -1;   // filled in by success alone: -1 as the result is a moment like any other
  std::mktime(&local);
  if (local.tm_wday < 0)
    return;
  fields.tm_isdst = local.tm_isdst;
  fields.tm_gmtoff = local.tm_gmtoff;
  fields.tm_zone = local.tm_zone;
}

}  // namespace

std::tm normalised(const std::tm& fields)
{
  // mktime alone would move the time where "standard time" is not what the zone keeps then, or where its clocks skip
  // this hour or even this day.  Test: DateText.NoZoneMovesTheDay
  std::tm result = fields;
  timegm(&result);
  tellZone(result);
  return result;
}

IString formatted(const char* format, const std::tm& fields)
{
  // Without the byte in front, nothing to write would look like no room to write it in.
  const std::string marked = std::string(1, '.') + format;
  std::vector<char> output(marked.size() + 100);
  for (;;) {
    const std::size_t length = std::strftime(output.data(), output.size(), marked.c_str(), &fields);
    if (length != 0)
      return IString(output.data() + 1, length - 1);
    output.resize(IBuffer::checkMultiplication(checkedLength(output.size()), 2));
  }
}

std::tm localTime()
{
  const std::time_t now = std::time(nullptr);
  std::tm fields = {};
  localtime_r(&now, &fields);
  return fields;
}

bool readWhole(const IString& text, const char* format, std::tm& fields)
{
  if (format == nullptr)
    return false;
  const char* const begin = text;
  std::tm read = fields;
  if (strptime(begin, format, &read) != begin + text.length())
    return false;
  fields = read;
  return true;
}

void throwUnreadable(unsigned long messageId, const IString& text, const char* format,
                     const IExceptionLocation& location)
{
  const IMessageText message = IBase::messageText(messageId, text, format == nullptr ? "" : format);
  throwLogged(IInvalidParameter(message, messageId, IException::recoverable), location);
}

}  // namespace quelmcl::detail
