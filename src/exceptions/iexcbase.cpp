// iexcbase.cpp - the exception family: texts, locations, the report of a logged exception and the hook that receives
// it.
// Tests: tests/exceptions/exception_*_test.cpp, report_test.cpp, report_without_storage_test.cpp, trace_function_test.cpp,
// new_handler_test.cpp
#include <quelmcl/iexcbase.hpp>

#include "exceptions/quietstorage.hpp"
#include "exceptions/startup.hpp"
#include "exceptions/throwing.hpp"
#include "foundation/errnoguard.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <exception>
#include <memory>
#include <utility>

using quelmcl::detail::copyText;
using quelmcl::detail::joinTexts;
using quelmcl::detail::NewHandlerPause;
using quelmcl::detail::releaseText;

QUELMCL_KEEP_START_UP

const char quelmcl::detail::libraryGroup[] = "Quelm Class Library";

const char* IException::baseLibrary = quelmcl::detail::libraryGroup;
const char* IException::CLibrary = "Standard C Library";
const char* IException::operatingSystem = "Operating System";
const char* IException::presentationSystem = "Presentation System";
const char* IException::other = "Other Error Group";

const char* IExceptionLocation::functionName() const noexcept
{
  return pClFunction == nullptr ? "Unknown" : pClFunction;
}

// ---- one level of text ----

IExcText::IExcText(const char* text, const IExcText* next)
  : pszClMsg(nullptr), msgtxtClNext(const_cast<IExcText*>(next))
{
  const NewHandlerPause pause;
  pszClMsg = copyText(text);
}

IExcText::IExcText(const IExcText& source) : pszClMsg(nullptr), msgtxtClNext(nullptr)
{
  const NewHandlerPause pause;
  copyOrTakeOver(const_cast<IExcText&>(source));
}

IExcText::~IExcText()
{
  releaseText(pszClMsg);
  for (IExcText* level = msgtxtClNext; level != nullptr;)  // a loop, since the stack of texts has no limit and ours has
    delete std::exchange(level, std::exchange(level->msgtxtClNext, nullptr));
}

void IExcText::appendText(const char* text)
{
  if (text == nullptr)
    return;
  const NewHandlerPause pause;
  char* const joined = joinTexts(pszClMsg == nullptr ? "" : pszClMsg, text);
  if (joined == nullptr)
    return;
  releaseText(pszClMsg);
  pszClMsg = joined;
}

// Copies `source` and all older levels into this level, which is still empty. At the first text or level without
// storage the rest of the source changes hands instead; each text then still has one owner.
void IExcText::copyOrTakeOver(IExcText& source)
{
  IExcText* from = &source;
  for (IExcText* to = this;; to = to->msgtxtClNext, from = from->msgtxtClNext) {
    to->pszClMsg = copyText(from->pszClMsg);
    if (to->pszClMsg == nullptr && from->pszClMsg != nullptr) {
      to->pszClMsg = std::exchange(from->pszClMsg, nullptr);
      to->msgtxtClNext = std::exchange(from->msgtxtClNext, nullptr);
      return;
    }
    if (from->msgtxtClNext == nullptr)
      return;
    to->msgtxtClNext = new (std::nothrow) IExcText(nullptr);
    if (to->msgtxtClNext == nullptr) {
      to->msgtxtClNext = std::exchange(from->msgtxtClNext, nullptr);
      return;
    }
  }
}

// ---- the exception ----

IException::IException(const char* exceptionText, unsigned long errorId, Severity severity)
  : exsevCl(severity),
    ulClErrorId(errorId),
    exlocClArray(),
    ulexlocClCount(0),
    ulClTxtLvlCount(0),
    msgtxtClTop(nullptr),
    fErrorGroup(quelmcl::detail::libraryGroup)
{
  setText(exceptionText);
}

IException::IException(const IException& source)
  : exsevCl(source.exsevCl),
    ulClErrorId(source.ulClErrorId),
    exlocClArray(),
    ulexlocClCount(source.ulexlocClCount),
    ulClTxtLvlCount(source.ulClTxtLvlCount),
    msgtxtClTop(nullptr),
    fErrorGroup(source.fErrorGroup)
{
  std::copy_n(source.exlocClArray, ulexlocClCount, exlocClArray);
  if (source.msgtxtClTop == nullptr)
    return;
  const NewHandlerPause pause;
  msgtxtClTop = new (std::nothrow) IExcText(*source.msgtxtClTop);
  if (msgtxtClTop == nullptr)  // not even a level to copy into: all texts change hands, as in IExcText::copyOrTakeOver
    msgtxtClTop = std::exchange(const_cast<IException&>(source).msgtxtClTop, nullptr);
}

IException::~IException()
{
  delete msgtxtClTop;
}

int IException::isRecoverable() const
{
  return exsevCl != unrecoverable;
}

IException& IException::addLocation(const IExceptionLocation& location)
{
  constexpr unsigned long places = std::extent_v<decltype(exlocClArray)>;
  // Deliberate: the last place is written over, so that the latest location is always there.
  // Test: ExceptionLocations.TheFifthPlaceHoldsTheLatest
  if (ulexlocClCount == places)
    ulexlocClCount = places - 1;
  exlocClArray[ulexlocClCount++] = location;
  return *this;
}

const char* IException::name() const
{
  return "IException";
}

IException& IException::logExceptionData()
{
  IExceptStaticPtr::traceFunction()->logData(*this);
  return *this;
}

void IException::terminate()
{
  std::terminate();
}

IException& IException::setText(const char* text)
{
  if (text == nullptr)
    return *this;
  const NewHandlerPause pause;
  IExcText* const level = new (std::nothrow) IExcText(text, msgtxtClTop);
  if (level != nullptr) {
    msgtxtClTop = level;
    ++ulClTxtLvlCount;
  }
  return *this;
}

IException& IException::appendText(const char* text)
{
  if (msgtxtClTop == nullptr)
    return setText(text);
  msgtxtClTop->appendText(text);
  return *this;
}

const char* IException::text(unsigned long indexFromTop) const
{
  if (indexFromTop >= ulClTxtLvlCount)
    return nullptr;
  const IExcText* level = msgtxtClTop;
  for (unsigned long i = 0; i < indexFromTop && level != nullptr; ++i)
    level = level->next();
  return level == nullptr ? nullptr : level->text();  // levels that a copy has taken over are counted, but gone
}

IException& IException::setErrorId(unsigned long errorId) noexcept
{
  ulClErrorId = errorId;
  return *this;
}

IException& IException::setSeverity(Severity severity) noexcept
{
  exsevCl = severity;
  return *this;
}

IException& IException::setErrorCodeGroup(const char* errorGroup) noexcept
{
  fErrorGroup = errorGroup;
  return *this;
}

const IExceptionLocation* IException::locationAtIndex(unsigned long index) const noexcept
{
  return index < ulexlocClCount ? &exlocClArray[index] : nullptr;
}

IException::TraceFn* IException::setTraceFunction(TraceFn& traceFunction)
{
  TraceFn* const previous = IExceptStaticPtr::traceFunction();
  __atomic_store_n(&IExceptStaticPtr::registry.pUserTraceFn, &traceFunction, __ATOMIC_RELEASE);
  return previous;
}

void IException::assertParameter(const char* exceptionText, IExceptionLocation location)
{
  IAssertionFailure failure(exceptionText, 0, unrecoverable);
  failure.setErrorCodeGroup("Other Error Group");
  quelmcl::detail::throwLogged(failure, location);
}

// ---- the hook ----

IExceptStaticPtr IExceptStaticPtr::registry = {};

IException::TraceFn* IExceptStaticPtr::traceFunction()
{
  if (IException::TraceFn* const users = __atomic_load_n(&registry.pUserTraceFn, __ATOMIC_ACQUIRE))
    return users;
  if (IException::TraceFn* const ours = __atomic_load_n(&registry.pTraceFn, __ATOMIC_ACQUIRE))
    return ours;
  static IExceptTraceFn fallback;  // made at the first need, so that no order of static construction can come before it
  __atomic_store_n(&registry.pTraceFn, &fallback, __ATOMIC_RELEASE);
  return &fallback;
}

void IException::TraceFn::write(const char* buffer)
{
  std::fprintf(stderr, "%s\n", buffer);
}

void IException::TraceFn::exceptionLogged() {}

// ---- the report ----

namespace {

/// The lines of a report. There are two sets of them.
struct ReportFormats {
  const char* header;
  const char* headerWithoutLocation;
  const char* errorId;
  const char* noErrorId;
  const char* group;
  const char* noGroup;
  const char* textsFollow;
  const char* text;
  const char* noTexts;
};

// Deliberate: the sets differ in more than the newlines (a period, "Id" and "ID", blanks before the group).
// Tests: Report.ShowsEveryLineOfAFullException, Report.GoesToStandardErrorWithoutStorage
const ReportFormats lineFormats = {
  "%s exception thrown.\n   function: %s\n   file: %s\n   line: %d",
  "\n%s exception thrown.\n   Location information is unavailable.",
  "   Error Id is %d",
  "   Error Id is unavailable.",
  "   Error Code group is %s",
  "    Error Code group is unavailable.",
  "   Exception text is:",
  "      %s",
  "   Exception text is unavailable.",
};
const ReportFormats streamFormats = {
  "%s exception thrown.\n   function: %s\n   file: %s\n   line: %d.\n",
  "\n%s exception thrown.\n   Location information is unavailable.\n",
  "   Error ID is %d\n",
  "   Error ID is unavailable.\n",
  " Error Code group is %s\n",
  "   Error Code group is unavailable.\n",
  "   Exception text is:\n",
  "      %s\n",
  "   Exception text is unavailable.\n",
};

const char* printable(const char* text)
{
  return text == nullptr ? "(null)" : text;
}

const IExceptionLocation* newestLocation(const IException& exception)
{
  return exception.locationAtIndex(exception.locationCount() - 1);
}

/// The texts of a stack, oldest first. A high stack is walked once, where there is storage to note its texts.
class TextsOldestFirst {
public:
  TextsOldestFirst(const IExcText* newest, unsigned long count)
    : top(newest), levels(count), noted(count < worthNoting ? nullptr : new (std::nothrow) const char*[count])
  {
    const IExcText* level = top;
    for (unsigned long i = noted == nullptr ? 0 : levels; i > 0; level = older(level))
      noted[--i] = textOf(level);
  }
  const char* operator[](unsigned long i) const
  {
    if (noted != nullptr)
      return printable(noted[i]);
    const IExcText* level = top;
    for (unsigned long fromTop = levels - 1 - i; fromTop > 0; --fromTop)
      level = older(level);
    return printable(textOf(level));
  }

private:
  enum : unsigned long { worthNoting = 16 };

  // Levels that a copy of the exception has taken over are counted, but gone.
  static const IExcText* older(const IExcText* level) { return level == nullptr ? nullptr : level->next(); }
  static const char* textOf(const IExcText* level) { return level == nullptr ? nullptr : level->text(); }

  const IExcText* top;
  unsigned long levels;
  std::unique_ptr<const char*[]> noted;
};

/// Passes lines to the hook in effect, formatted into a buffer that is long enough for all of them.
class HookSink {
public:
  HookSink(char* text, std::size_t size) : buffer(text), bufferSize(size) {}
  template <class... Values>
  void line(const char* format, Values... values) const
  {
    std::snprintf(buffer, bufferSize, format, values...);
    IExceptStaticPtr::traceFunction()->write(buffer);
  }

private:
  char* buffer;
  std::size_t bufferSize;
};

/// Writes lines straight to standard error.
struct StandardErrorSink {
  template <class... Values>
  void line(const char* format, Values... values) const
  {
    std::fprintf(stderr, format, values...);
  }
};

template <class Sink>
void writeReport(const IException& exception, const TextsOldestFirst& texts, const ReportFormats& formats,
                 const Sink& sink)
{
  if (const IExceptionLocation* const newest = newestLocation(exception))
    sink.line(formats.header, exception.name(), newest->functionName(), printable(newest->fileName()),
              static_cast<int>(newest->lineNumber()));
  else
    sink.line(formats.headerWithoutLocation, exception.name());

  if (exception.errorId() != 0)
    sink.line(formats.errorId, static_cast<int>(exception.errorId()));
  else
    sink.line("%s", formats.noErrorId);

  if (exception.errorCodeGroup() != nullptr)
    sink.line(formats.group, exception.errorCodeGroup());
  else
    sink.line("%s", formats.noGroup);

  if (exception.textCount() == 0) {
    sink.line("%s", formats.noTexts);
    return;
  }
  sink.line("%s", formats.textsFollow);
  for (unsigned long i = 0; i < exception.textCount(); ++i)
    sink.line(formats.text, texts[i]);
}

/// The size of a buffer that holds every line of the report, at least the usual 200 characters and a NUL.
std::size_t longestLine(const IException& exception, const TextsOldestFirst& texts)
{
  std::size_t longest = 200;
  const auto fits = [&longest](const char* format, std::size_t valueLengths) {
    longest = std::max(longest, std::strlen(format) + valueLengths);
  };
  constexpr std::size_t digits = 11;  // of an int, with its sign
  fits(lineFormats.headerWithoutLocation, std::strlen(exception.name()));
  if (const IExceptionLocation* const newest = newestLocation(exception))
    fits(lineFormats.header, std::strlen(exception.name()) + std::strlen(newest->functionName()) +
                               std::strlen(printable(newest->fileName())) + digits);
  fits(lineFormats.group, std::strlen(printable(exception.errorCodeGroup())));
  for (unsigned long i = 0; i < exception.textCount(); ++i)
    fits(lineFormats.text, std::strlen(texts[i]));
  return longest + 1;
}

}  // namespace

void IException::TraceFn::logData(IException& exception)
{
  const NewHandlerPause pause;
  const quelmcl::detail::ErrnoGuard keepErrno;
  const TextsOldestFirst texts(exception.msgtxtClTop, exception.textCount());
  const std::size_t size = longestLine(exception, texts);
  const quelmcl::detail::QuietText buffer(quelmcl::detail::obtainText(size));
  if (buffer.get() == nullptr) {
    writeReport(exception, texts, streamFormats, StandardErrorSink());
    return;
  }
  writeReport(exception, texts, lineFormats, HookSink(buffer.get(), size));
  exceptionLogged();
}

// ---- the classes that differ in their name alone ----

#define QUELMCL_DEFINE_EXCEPTION_CLASS(Class, Base)                                             \
  Class::Class(const char* exceptionText, unsigned long errorId, IException::Severity severity) \
    : Base(exceptionText, errorId, severity)                                                    \
  {                                                                                             \
  }                                                                                             \
  Class::Class(const Class&) = default;                                                         \
  Class::~Class() = default;                                                                    \
  const char* Class::name() const                                                               \
  {                                                                                             \
    return #Class;                                                                              \
  }

QUELMCL_DEFINE_EXCEPTION_CLASS(IAccessError, IException)
QUELMCL_DEFINE_EXCEPTION_CLASS(IAssertionFailure, IException)
QUELMCL_DEFINE_EXCEPTION_CLASS(IDeviceError, IException)
QUELMCL_DEFINE_EXCEPTION_CLASS(IInvalidParameter, IException)
QUELMCL_DEFINE_EXCEPTION_CLASS(IInvalidRequest, IException)
QUELMCL_DEFINE_EXCEPTION_CLASS(IResourceExhausted, IException)
QUELMCL_DEFINE_EXCEPTION_CLASS(IOutOfMemory, IResourceExhausted)
QUELMCL_DEFINE_EXCEPTION_CLASS(IOutOfSystemResource, IResourceExhausted)
QUELMCL_DEFINE_EXCEPTION_CLASS(IOutOfWindowResource, IResourceExhausted)
