// texts.hpp - dates and times to text and back through the C library: what IDate and ITime have in common.
#ifndef QUELMCL_SRC_DATETIME_TEXTS_HPP
#define QUELMCL_SRC_DATETIME_TEXTS_HPP

#include <quelmcl/iexcbase.hpp>
#include <quelmcl/istring.hpp>

#include <ctime>

namespace quelmcl::detail {

/// The record with its fields in their ranges and with day of the week, day of the year and time zone filled in. The
/// zone moves nothing.
std::tm normalised(const std::tm& fields);

/// What strftime makes of the format, however long; also nothing.
IString formatted(const char* format, const std::tm& fields);

/// The local time now.
std::tm localTime();

/// Whether strptime reads the text to its end. The fields that it names are in `fields` then, the others as they were.
bool readWhole(const IString& text, const char* format, std::tm& fields);

/// Throws IInvalidParameter with the message of that number, which shows the text and the format.
[[noreturn]] void throwUnreadable(unsigned long messageId, const IString& text, const char* format,
                                  const IExceptionLocation& location);

}  // namespace quelmcl::detail

#endif
