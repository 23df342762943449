/// @file iexcept.hpp
/// Functions that build an exception, add the throw location, log it and throw it, so that a call site is one line;
/// and macros that fill in file, function and line.
///
///     if (count == 0)
///       IExcept__assertParameter("count > 0", IExceptionLocation(__FILE__, __func__, __LINE__));
///
///     QUELMCL_ASSERT_PARAMETER(count > 0);  // the same
#ifndef QUELMCL_IEXCEPT_HPP
#define QUELMCL_IEXCEPT_HPP

#include <quelmcl/ierrinfo.hpp>

/// Throws IInvalidParameter: catalog message 1 showing `pAssertExpression`, error id 1, recoverable, group "Other
/// Error Group".
[[noreturn]] QUELMCL_API void IExcept__assertParameter(const char* pAssertExpression,
                                                       const IExceptionLocation& location);

/// Throws IInvalidRequest: catalog message 1 showing `pAssertExpression`, error id 1, recoverable, group "Other Error
/// Group".
[[noreturn]] QUELMCL_API void IExcept__assertState(const char* pAssertExpression, const IExceptionLocation& location);

/// Throws the class that `name` selects with message `ulMessageId` of the library's catalog, in which `pText` (may be
/// null) is variable %1. The message number is the error id; the group is "Quelm Class Library". A `name` outside of
/// the enumeration throws nothing: the function returns.
QUELMCL_API void IExcept__throwLibraryError(unsigned long ulMessageId, const IExceptionLocation& location,
                                            IBaseErrorInfo::ExceptionType name = IBaseErrorInfo::accessError,
                                            IException::Severity severity = IException::recoverable,
                                            const char* pText = nullptr);

/// Throws the class that `name` selects with a message of another catalog and the group `errorGroup` (not copied).
/// Deliberate: the catalog is the file named by `substitutionText`, and `messageFile` is not looked at. A `name`
/// outside of the enumeration throws nothing: the function returns.
QUELMCL_API void IExcept__throwError(unsigned long messageId, const IExceptionLocation& location,
                                     const char* messageFile, const char* errorGroup,
                                     IBaseErrorInfo::ExceptionType name = IBaseErrorInfo::accessError,
                                     IException::Severity severity = IException::recoverable,
                                     const char* substitutionText = nullptr);

namespace quelmcl {

/// Adds the location to a copy of `exception`, logs it and throws it, as the class that the argument has here.
template <class Exception>
[[noreturn]] void throwAt(const IExceptionLocation& location, Exception exception)
{
  exception.addLocation(location);
  exception.logExceptionData();
  throw exception;
}

}  // namespace quelmcl

/// The place where it is written, as an IExceptionLocation: file as the compiler was given it, function without class
/// and parameters, line.
#define QUELMCL_LOCATION() IExceptionLocation(__FILE__, __func__, __LINE__)

// The throw functions with the location filled in. The checks evaluate their condition once, in every build, and are
// expressions of type void.

/// Throws IInvalidParameter (1) unless the condition, a claim about an argument, holds.
#define QUELMCL_ASSERT_PARAMETER(condition) \
  ((condition) ? static_cast<void>(0) : IExcept__assertParameter(#condition, QUELMCL_LOCATION()))
/// Throws IInvalidRequest (1) unless the condition, a claim about the state of an object, holds.
#define QUELMCL_ASSERT_STATE(condition) \
  ((condition) ? static_cast<void>(0) : IExcept__assertState(#condition, QUELMCL_LOCATION()))
/// Throws IAssertionFailure unless the condition, a claim about the program itself, holds.
#define QUELMCL_ASSERT(condition) \
  ((condition) ? static_cast<void>(0) : IException::assertParameter(#condition, QUELMCL_LOCATION()))

/// Logs and throws an exception built on the spot: `QUELMCL_THROW(IDeviceError("tape torn", 31))`.
#define QUELMCL_THROW(...) ::quelmcl::throwAt(QUELMCL_LOCATION(), __VA_ARGS__)
/// In a handler that has caught `exception` by reference: adds this place to it and throws it on.
#define QUELMCL_RETHROW(exception)               \
  do {                                           \
    (exception).addLocation(QUELMCL_LOCATION()); \
    throw;                                       \
  } while (false)

/// IExcept__throwLibraryError: a message of the library's catalog, with `text` (may be null) as its variable %1.
#define QUELMCL_THROW_LIBRARY_ERROR(messageId, type, severity, text) \
  IExcept__throwLibraryError(messageId, QUELMCL_LOCATION(), type, severity, text)
/// IExcept__throwError: a message of the catalog `catalog`, and an error group (not copied).
#define QUELMCL_THROW_ERROR(messageId, catalog, errorGroup, type, severity) \
  IExcept__throwError(messageId, QUELMCL_LOCATION(), nullptr, errorGroup, type, severity, catalog)

/// ICLibErrorInfo::throwCLibError: errno after a failed call of `function`, a text, may be null.
#define QUELMCL_THROW_CLIB_ERROR(function, type, severity) \
  ICLibErrorInfo::throwCLibError(function, QUELMCL_LOCATION(), type, severity)
/// ISystemErrorInfo::throwSystemError: the number of an error of the operating system.
#define QUELMCL_THROW_SYSTEM_ERROR(errorId, function, type, severity) \
  ISystemErrorInfo::throwSystemError(errorId, function, QUELMCL_LOCATION(), type, severity)
/// IGUIErrorInfo::throwGUIError: an error of the presentation system.
#define QUELMCL_THROW_GUI_ERROR(function, type, severity) \
  IGUIErrorInfo::throwGUIError(function, QUELMCL_LOCATION(), type, severity)
/// IXLibErrorInfo::throwXLibError: an error of the X library.
#define QUELMCL_THROW_XLIB_ERROR(function, type, severity) \
  IXLibErrorInfo::throwXLibError(function, QUELMCL_LOCATION(), type, severity)

#endif
