// iexcept.cpp - the free throw functions, and the choice of the class to throw.
// Tests: tests/exceptions/throw_functions_test.cpp
#include <quelmcl/ibase.hpp>
#include <quelmcl/iexcept.hpp>
#include <quelmcl/imsgtext.hpp>

#include "exceptions/throwing.hpp"

namespace {

enum Message : unsigned long { checkFailed = 1 };

template <class Exception>
[[noreturn]] void throwAs(const quelmcl::detail::Failure& failure)
{
  Exception exception(failure.text, failure.errorId, failure.severity);
  exception.setErrorCodeGroup(failure.errorGroup);
  quelmcl::detail::throwLogged(exception, failure.location);
}

template <class Exception>
[[noreturn]] void throwFailedCheck(const char* expression, const IExceptionLocation& location)
{
  const IMessageText text = IBase::messageText(checkFailed, expression);
  throwAs<Exception>({text, checkFailed, IException::recoverable, location, IException::other});
}

}  // namespace

namespace quelmcl::detail {

void throwSelected(IBaseErrorInfo::ExceptionType type, const Failure& failure)
{
  switch (type) {
  case IBaseErrorInfo::accessError:
    throwAs<IAccessError>(failure);
  case IBaseErrorInfo::deviceError:
    throwAs<IDeviceError>(failure);
  case IBaseErrorInfo::invalidParameter:
    throwAs<IInvalidParameter>(failure);
  case IBaseErrorInfo::invalidRequest:
    throwAs<IInvalidRequest>(failure);
  case IBaseErrorInfo::outOfSystemResource:
    throwAs<IOutOfSystemResource>(failure);
  case IBaseErrorInfo::outOfWindowResource:
    throwAs<IOutOfWindowResource>(failure);
  case IBaseErrorInfo::outOfMemory:
    throwAs<IOutOfMemory>(failure);
  case IBaseErrorInfo::resourceExhausted:
    throwAs<IResourceExhausted>(failure);
  }
}

void throwInvalidRequest(unsigned long messageId, const IExceptionLocation& location)
{
  const IMessageText text = IBase::messageText(messageId);
  throwLogged(IInvalidRequest(text, messageId, IException::recoverable), location);
}

}  // namespace quelmcl::detail

void IExcept__assertParameter(const char* pAssertExpression, const IExceptionLocation& location)
{
  throwFailedCheck<IInvalidParameter>(pAssertExpression, location);
}

void IExcept__assertState(const char* pAssertExpression, const IExceptionLocation& location)
{
  throwFailedCheck<IInvalidRequest>(pAssertExpression, location);
}

void IExcept__throwLibraryError(unsigned long ulMessageId, const IExceptionLocation& location,
                                IBaseErrorInfo::ExceptionType name, IException::Severity severity, const char* pText)
{
  const IMessageText text = IBase::messageText(ulMessageId, pText);
  quelmcl::detail::throwSelected(name, {text, ulMessageId, severity, location, quelmcl::detail::libraryGroup});
}

void IExcept__throwError(unsigned long messageId, const IExceptionLocation& location, const char* /*messageFile*/,
                         const char* errorGroup, IBaseErrorInfo::ExceptionType name, IException::Severity severity,
                         const char* substitutionText)
{
  // Deliberate: the substitution text names the catalog.  Test: ThrowError.ReadsTheCatalogNamedByTheSubstitutionText
  const IMessageText text(messageId, substitutionText);
  quelmcl::detail::throwSelected(name, {text, messageId, severity, location, errorGroup});
}
