// ierrinfo.cpp - IBaseErrorInfo: error information as an exception.
// Tests: tests/exceptions/error_information_test.cpp
#include <quelmcl/ierrinfo.hpp>

#include "exceptions/throwing.hpp"

IBaseErrorInfo::~IBaseErrorInfo() = default;

void IBaseErrorInfo::throwError(const IExceptionLocation& location, ExceptionType name, IException::Severity severity,
                                const char* errorGroup)
{
  quelmcl::detail::throwSelected(name, {text(), errorId(), severity, location, errorGroup});
}
