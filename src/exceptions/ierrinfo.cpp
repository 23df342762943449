// ierrinfo.cpp - IBaseErrorInfo: error information as an exception; its four kinds.
// Tests: tests/exceptions/error_information_test.cpp, error_kinds_test.cpp
#include <quelmcl/ibase.hpp>
#include <quelmcl/ierrinfo.hpp>
#include <quelmcl/imsgtext.hpp>

#include "exceptions/quietstorage.hpp"
#include "exceptions/throwing.hpp"
#include "foundation/errnoguard.hpp"

#include <cerrno>
#include <cstring>

using quelmcl::detail::joinTextsOrThrow;
using quelmcl::detail::releaseText;

namespace {

enum Message : unsigned long { presentationSystemError = 185, operatingSystemError = 186 };

/// "function:text", or the text alone without a function. Throws IOutOfMemory where there is no storage.
char* textOfFailure(const char* function, const char* text)
{
  const char* const known = text == nullptr ? "" : text;  // a message that could not even be stored
  return function == nullptr ? joinTextsOrThrow("", "", known) : joinTextsOrThrow(function, ":", known);
}

}  // namespace

IBaseErrorInfo::~IBaseErrorInfo() = default;

void IBaseErrorInfo::throwError(const IExceptionLocation& location, ExceptionType name, IException::Severity severity,
                                const char* errorGroup)
{
  quelmcl::detail::throwSelected(name, {text(), errorId(), severity, location, errorGroup});
}

// ---- the operating system ----

ISystemErrorInfo::ISystemErrorInfo(unsigned long systemErrorId, const char* systemFunctionName)
  : bClError(1),
    ulClErrorId(systemErrorId),
    pClErrorText(textOfFailure(systemFunctionName, IBase::messageText(operatingSystemError)))
{
}

ISystemErrorInfo::~ISystemErrorInfo()
{
  releaseText(pClErrorText);
}

ISystemErrorInfo::operator const char*() const
{
  return text();
}

const char* ISystemErrorInfo::text() const
{
  return pClErrorText;
}

unsigned long ISystemErrorInfo::errorId() const
{
  return ulClErrorId;
}

int ISystemErrorInfo::isAvailable() const
{
  return bClError != 0;
}

void ISystemErrorInfo::throwSystemError(unsigned long ulSystemErrorId, const char* pFunctionName,
                                        const IExceptionLocation& location, ExceptionType name,
                                        IException::Severity severity)
{
  ISystemErrorInfo(ulSystemErrorId, pFunctionName).throwError(location, name, severity, IException::operatingSystem);
}

// ---- the C library ----

ICLibErrorInfo::ICLibErrorInfo(const char* pCLibFunctionName)
  : bClError(0), ulClErrno(static_cast<unsigned>(errno)), pClErrorText(nullptr)
{
  const quelmcl::detail::ErrnoGuard keepErrno;
  const char* const text = std::strerror(static_cast<int>(ulClErrno));
  bClError = *text != '\0';
  pClErrorText = textOfFailure(pCLibFunctionName, bClError ? text : "No Error text is available");
}

ICLibErrorInfo::~ICLibErrorInfo()
{
  releaseText(pClErrorText);
}

ICLibErrorInfo::operator const char*() const
{
  return text();
}

const char* ICLibErrorInfo::text() const
{
  return pClErrorText;
}

unsigned long ICLibErrorInfo::errorId() const
{
  return ulClErrno;
}

int ICLibErrorInfo::isAvailable() const
{
  return bClError;
}

void ICLibErrorInfo::throwCLibError(const char* pFunctionName, const IExceptionLocation& location, ExceptionType name,
                                    IException::Severity severity)
{
  ICLibErrorInfo(pFunctionName).throwError(location, name, severity, IException::CLibrary);
}

// ---- the X library ----

// Deliberate: other words than those for the C library.  Test: XLibErrorInfo.HasAFixedText
IXLibErrorInfo::IXLibErrorInfo(const char* XLibFunctionName)
  : bClInfoAvail(0), ulClErrorCode(0), pClErrorText(textOfFailure(XLibFunctionName, "No error text is available."))
{
}

IXLibErrorInfo::~IXLibErrorInfo()
{
  releaseText(pClErrorText);
}

IXLibErrorInfo::operator const char*() const
{
  return text();
}

const char* IXLibErrorInfo::text() const
{
  return pClErrorText;
}

unsigned long IXLibErrorInfo::errorId() const
{
  return ulClErrorCode;
}

int IXLibErrorInfo::isAvailable() const
{
  return bClInfoAvail;
}

// Deliberate: the library's own group, not that of the presentation system.
// Test: ThrowXLibError.BelongsToTheLibrarysGroup
void IXLibErrorInfo::throwXLibError(const char* functionName, const IExceptionLocation& location, ExceptionType name,
                                    IException::Severity severity)
{
  IXLibErrorInfo(functionName).throwError(location, name, severity, IException::baseLibrary);
}

// ---- the presentation system ----

IGUIErrorInfo::IGUIErrorInfo(const char* GUIFunctionName)
  : pClFuncNameText(textOfFailure(GUIFunctionName, IBase::messageText(presentationSystemError)))
{
}

IGUIErrorInfo::~IGUIErrorInfo()
{
  releaseText(pClFuncNameText);
}

IGUIErrorInfo::operator const char*() const
{
  return pClFuncNameText;
}

const char* IGUIErrorInfo::text() const
{
  return pClFuncNameText;
}

unsigned long IGUIErrorInfo::errorId() const
{
  return 0;
}

int IGUIErrorInfo::isAvailable() const
{
  return 0;
}

void IGUIErrorInfo::throwGUIError(const char* pFunctionName, const IExceptionLocation& location, ExceptionType name,
                                  IException::Severity severity)
{
  IGUIErrorInfo(pFunctionName).throwError(location, name, severity, IException::presentationSystem);
}
