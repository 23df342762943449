// itrace.cpp - ITrace and ITraceSetup: settings from the environment, and lines that need no heap unless they are long.
// Tests: tests/trace/*_test.cpp
//
// Nothing in here builds a string: tracing may be the first thing that a program does, and the first string fixes the
// kind of buffer for good. Nothing in here throws: a trace is written while exceptions are reported.
#include <quelmcl/itrace.hpp>

#include "buffers/characterset.hpp"
#include "exceptions/quietstorage.hpp"
#include "exceptions/startup.hpp"
#include "foundation/errnoguard.hpp"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

QUELMCL_KEEP_START_UP

using quelmcl::detail::ErrnoGuard;
using quelmcl::detail::NewHandlerPause;

int ITrace::iClState = ITrace::settingsUnread;
ITrace::Destination ITrace::iClTraceLocation = ITrace::standardOutput;
unsigned ITrace::uClIndent[255] = {};
unsigned long ITrace::ulClProcessId = 0;
int ITrace::fCheckStack = 0;
int ITrace::fCheckMemory = 0;

namespace {

unsigned long linesWritten = 0;

template <class Value>
Value relaxed(const Value& shared)
{
  return __atomic_load_n(&shared, __ATOMIC_RELAXED);
}

char upperCase(char c)
{
  return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// ---- the environment ----

/// The value of a setting without the blanks around it. A name that is set hides the other one, even if it is empty.
class Setting {
public:
  Setting(const char* nameWithBlank, const char* nameWithUnderscore) noexcept : first(nullptr), last(nullptr)
  {
    const char* value = secure_getenv(nameWithBlank);
    if (value == nullptr)
      value = secure_getenv(nameWithUnderscore);
    if (value == nullptr)
      return;
    first = value + std::strspn(value, " ");
    last = first + std::strlen(first);
    while (last != first && last[-1] == ' ')
      --last;
  }

  bool isSet() const { return first != nullptr; }
  std::size_t length() const { return static_cast<std::size_t>(last - first); }
  const char* begin() const { return first; }

  /// Whether the value is that word, in whatever case.
  bool is(const char* upperCaseWord) const
  {
    return length() == std::strlen(upperCaseWord) &&
           std::equal(first, last, upperCaseWord, [](char ours, char wanted) { return upperCase(ours) == wanted; });
  }

private:
  const char* first;
  const char* last;
};

ITrace::Destination destinationNamed(const Setting& name)
{
  if (name.is("STDERR") || name.is("ERR"))
    return ITrace::standardError;
  if (name.is("STDOUT") || name.is("OUT"))
    return ITrace::standardOutput;
  if (name.is("FILE"))
    return ITrace::file;
  return ITrace::queue;
}

// ---- the destinations ----

void writeToStream(const char* text, std::FILE* stream)
{
  std::fputs(text, stream);
  std::fflush(stream);
}

/// Copies a name in upper case, a character of several bytes as it is. `to` has room for it and a NUL.
void copyInUpperCase(const char* from, std::size_t length, char* to)
{
  const NewHandlerPause pause;  // what is known of a character set is stored when it is first met
  const quelmcl::detail::CharacterSet characters = quelmcl::detail::CharacterSet::current();
  for (std::size_t i = 0; i < length;) {
    const std::size_t next = i + characters.lengthWithin(from + i, length - i);
    if (next == i + 1)
      to[i] = upperCase(from[i]);
    else
      std::copy(from + i, from + next, to + i);
    i = next;
  }
  to[length] = '\0';
}

// Deliberate: the name is used in upper case, and it is asked for at every line.
// Test: TraceFile.HasTheNameInUpperCase
void appendToFile(const char* text)
{
  const Setting name("KOLTA TRACEFILE", "KOLTA_TRACEFILE");
  char path[PATH_MAX];  // no longer name can be opened
  if (!name.isSet() || name.length() >= sizeof path)
    return;
  copyInUpperCase(name.begin(), name.length(), path);
  if (std::FILE* const stream = std::fopen(path, "a")) {
    std::fputs(text, stream);
    std::fclose(stream);
  }
}

// ---- lines ----

/// Room for a line: on the stack, or on the heap when it is longer. It is quiet: without storage there is none.
class LineBuffer {
public:
  explicit LineBuffer(std::size_t size) noexcept
    : distant(size <= sizeof near ? nullptr : obtainQuietly(size)), place(size <= sizeof near ? near : distant.get())
  {
  }
  char* get() noexcept { return place; }

private:
  static char* obtainQuietly(std::size_t size) noexcept
  {
    const NewHandlerPause pause;
    return quelmcl::detail::obtainText(size);
  }

  char near[1000];
  quelmcl::detail::QuietText distant;
  char* place;
};

/// What every line of one text begins with: prefix, indentation, marker.
class Lead {
public:
  Lead(const char* prefixText, unsigned indentation, const char* markerText) noexcept
    : prefix(prefixText),
      prefixLength(std::strlen(prefixText)),
      blanks(indentation),
      marker(markerText),
      markerLength(std::strlen(markerText))
  {
  }
  std::size_t length() const noexcept { return prefixLength + blanks + markerLength; }
  char* writeTo(char* end) const noexcept
  {
    end = std::copy_n(prefix, prefixLength, end);
    end = std::fill_n(end, blanks, ' ');
    return std::copy_n(marker, markerLength, end);
  }

private:
  const char* prefix;
  std::size_t prefixLength;
  std::size_t blanks;
  const char* marker;
  std::size_t markerLength;
};

}  // namespace

/// What a line shows: a text, and what stands behind it.
struct ITrace::Text {
  const char* bytes;
  std::size_t length;
  const char* suffix;

  /// The size of the whole line, with a lead for each line feed in the text and a NUL; 0 when no storage can be that
  /// large.
  std::size_t sizeWith(const Lead& lead) const noexcept
  {
    const std::size_t leads = 1 + static_cast<std::size_t>(std::count(bytes, bytes + length, '\n'));
    const std::size_t ends = std::strlen(suffix) + 2;
    std::size_t size = 0;
    if (__builtin_mul_overflow(lead.length(), leads, &size) || __builtin_add_overflow(size, length, &size) ||
        __builtin_add_overflow(size, ends, &size))
      return 0;
    return size;
  }

  void writeTo(char* end, const Lead& lead) const noexcept
  {
    end = lead.writeTo(end);
    for (const char* from = bytes; from != bytes + length; ++from) {
      *end++ = *from;
      if (*from == '\n')
        end = lead.writeTo(end);
    }
    end = std::copy_n(suffix, std::strlen(suffix), end);
    *end++ = '\n';
    *end = '\0';
  }
};

// ---- settings ----

void ITraceSetup::initialize() noexcept
{
  int state = ITrace::lineNumberWritten | ITrace::prefixWritten;

  const Setting trace("KOLTA TRACE", "KOLTA_TRACE");
  if (trace.is("ON"))
    state |= ITrace::traceEnabled;
  else if (trace.is("NOPREFIX"))
    state = ITrace::lineNumberWritten | ITrace::traceEnabled;

  const Setting destination("KOLTA TRACETO", "KOLTA_TRACETO");
  if (destination.length() > 2) {  // naming a destination switches tracing on by itself
    state |= ITrace::traceEnabled;
    ITrace::setDestination(destinationNamed(destination));
  }

  const Setting checkStack("KOLTA CHECKSTACK", "KOLTA_CHECKSTACK");
  if (checkStack.is("ON") || checkStack.is("TRUE"))
    __atomic_store_n(&ITrace::fCheckStack, 1, __ATOMIC_RELAXED);

  __atomic_store_n(&ITrace::iClState, state, __ATOMIC_RELAXED);
}

bool ITrace::isOnAfterReading() noexcept
{
  if (isSet(settingsUnread))
    ITraceSetup::initialize();
  return isSet(traceEnabled);
}

// ---- entry, exit, text ----

void ITrace::enter(const char* name, long line) noexcept
{
  if (name == nullptr)
    return;
  pszClTraceName = const_cast<char*>(name);
  char number[24] = "";
  if (isSet(lineNumberWritten) && line >= 1)
    std::snprintf(number, sizeof number, "(%ld)", line);
  writeLine({name, std::strlen(name), number}, "+");
}

void ITrace::leave() noexcept
{
  if (isSet(traceEnabled))
    writeLine({pszClTraceName, std::strlen(pszClTraceName), ""}, "-");
}

void ITrace::writeText(const char* text) noexcept
{
  const char* const shown = text == nullptr ? "" : text;
  writeLine({shown, std::strlen(shown), ""}, ">");
}

void ITrace::writeText(const IString& text) noexcept
{
  writeLine({text, text.length(), ""}, ">");
}

// ---- one line ----

unsigned long ITrace::threadId() noexcept
{
  __atomic_store_n(&ulClProcessId, static_cast<unsigned long>(getpid()), __ATOMIC_RELAXED);
  return 1;
}

unsigned long ITrace::remainingStack() noexcept
{
  return 0;
}

void ITrace::writeFormattedString(const IString& strString, char* pszMarker) noexcept
{
  writeLine({strString, strString.length(), ""}, pszMarker == nullptr ? "" : pszMarker);
}

/// The number of the line, the process, the thread, and if wanted the remaining stack.
void ITrace::writePrefixTo(char* prefix, std::size_t size, unsigned long thread) noexcept
{
  const int length =
    std::snprintf(prefix, size, "%08lu %06lu:%02lu ", relaxed(linesWritten), relaxed(ulClProcessId), thread);
  if (relaxed(fCheckStack) != 0)
    std::snprintf(prefix + length, size - static_cast<std::size_t>(length), "%07lu  ", remainingStack());
}

void ITrace::writeLine(const Text& text, const char* marker) noexcept
{
  const unsigned long thread = threadId();
  unsigned& indentation = uClIndent[thread];
  if (*marker == '-' && relaxed(indentation) > 1)
    __atomic_fetch_sub(&indentation, 2, __ATOMIC_RELAXED);

  char prefix[128] = "";
  if (isSet(prefixWritten))
    writePrefixTo(prefix, sizeof prefix, thread);
  const Lead lead(prefix, relaxed(indentation), marker);
  const std::size_t size = text.sizeWith(lead);
  LineBuffer line(size);
  if (size != 0 && line.get() != nullptr) {
    text.writeTo(line.get(), lead);
    writeString(line.get());
  }

  __atomic_fetch_add(&linesWritten, 1, __ATOMIC_RELAXED);  // lines that could not be written count as well
  if (*marker == '+')
    __atomic_fetch_add(&indentation, 2, __ATOMIC_RELAXED);
}

void ITrace::writeString(char* pszString) noexcept
{
  const ErrnoGuard keepErrno;
  switch (traceDestination()) {
  case queue:
  case standardOutput:
    writeToStream(pszString, stdout);
    break;
  case standardError:
    writeToStream(pszString, stderr);
    break;
  case file:
    appendToFile(pszString);
    break;
  }
}
