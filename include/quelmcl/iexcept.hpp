/// @file iexcept.hpp
/// Functions that build an exception, add the throw location, log it and throw it, so that a call site is one line.
///
///     if (count == 0)
///       IExcept__assertParameter("count > 0", IExceptionLocation(__FILE__, __func__, __LINE__));
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

#endif
