// throwing.hpp - the one way in which the library throws: add the location, log, throw by value.
#ifndef QUELMCL_SRC_EXCEPTIONS_THROWING_HPP
#define QUELMCL_SRC_EXCEPTIONS_THROWING_HPP

#include <quelmcl/ierrinfo.hpp>

namespace quelmcl::detail {

/// The group of the library's own failures. Unlike IException::baseLibrary no program can change it.
extern const char libraryGroup[];

template <class Exception>
[[noreturn]] void throwLogged(Exception exception, const IExceptionLocation& location)
{
  exception.addLocation(location);
  exception.logExceptionData();
  throw exception;
}

/// All that is known of a failure before its class is chosen.
struct Failure {
  const char* text;
  unsigned long errorId;
  IException::Severity severity;
  const IExceptionLocation& location;
  const char* errorGroup;
};

/// Logs and throws an exception of the class that `type` selects. Returns when it selects none.
void throwSelected(IBaseErrorInfo::ExceptionType type, const Failure& failure);

/// Throws IInvalidRequest, recoverable, with message `messageId` of the catalog and that number as its id.
[[noreturn]] void throwInvalidRequest(unsigned long messageId, const IExceptionLocation& location);

}  // namespace quelmcl::detail

#endif
