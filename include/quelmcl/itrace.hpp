/// @file itrace.hpp
/// ITrace, lines that show which way a program takes, and ITraceSetup, which reads from the environment whether and
/// where they are written.
///
///     void load(const char* file)
///     {
///       QUELMCL_TRACE_FUNCTION();                          // a line on entry, a line on exit, deeper lines between them
///       QUELMCL_TRACE_WRITE(IString("reading ") + file);   // the text is built only while tracing is on
///     }
///
/// Started with `KOLTA_TRACE=on`, a program with this function writes
///
///     00000000 004711:01 +load(3)
///     00000001 004711:01   >reading settings
///     00000002 004711:01 -load
///
/// and without it nothing. docs/diagnostics.md tells the settings, the parts of a line and the destinations.
///
/// **Cost.** A statement costs one test of a flag while tracing is off; the very first one of a process reads the
/// environment instead. **Failures.** None: a line that cannot be written, for whatever reason, is left out. errno and
/// the program's new-handler stay as they were. **Threads.** Lines of several threads share one indentation and may
/// get the same number; short lines stay whole.
#ifndef QUELMCL_ITRACE_HPP
#define QUELMCL_ITRACE_HPP

#include <quelmcl/istring.hpp>
#include <quelmcl/ivbase.hpp>

#include <cstddef>

/// Writes an entry line when it is built and an exit line when it ends; what is traced between the two is indented.
/// The static operations write lines of text and change the settings.
class QUELMCL_API ITrace : public IVBase {
public:
  /// Where lines go.
  enum Destination : int {
    queue = 0,           ///< standard output: this platform has no queue for such lines
    standardError = 1,   ///< standard error
    standardOutput = 2,  ///< standard output; the setting at the beginning
    file = 3             ///< the end of the file that the environment names, its name in upper case
  };

  /// Writes the entry line "+NAME", or "+NAME(LINE)" when line numbers are on and `lLineNo` is at least 1. The name is
  /// not copied and must outlive the object. Nothing is written, now or at the end, for a null name or while tracing
  /// is off.
  explicit ITrace(const char* pszTraceName = nullptr, long lLineNo = 0) noexcept : pszClTraceName(nullptr)
  {
    if (isOn())
      enter(pszTraceName, lLineNo);
  }
  /// Writes the exit line "-NAME" when an entry line was written and tracing is still on. So tracing that is switched
  /// between the two leaves the indentation uneven.
  ~ITrace() override
  {
    if (pszClTraceName != nullptr)
      leave();
  }

  /// Writes the line ">TEXT". Line feeds in the text begin a new line with the same prefix and indentation; a NUL
  /// ends the text and leaves the line open. A null pointer is the empty text.
  static void write(const char* pszText) noexcept
  {
    if (isOn())
      writeText(pszText);
  }
  /// The same for a string. To build the string only while tracing is on, use QUELMCL_TRACE_WRITE.
  static void write(const IString& strString) noexcept
  {
    if (isOn())
      writeText(strString);
  }

  // Settings. Each call changes one of them for the whole process. The first trace operation of a process still reads
  // the environment and overrides what was set before it.

  /// Switches tracing on.
  static void enableTrace() noexcept { set(traceEnabled); }
  /// Switches tracing off.
  static void disableTrace() noexcept { clear(traceEnabled); }
  /// Whether tracing is switched on, as far as is known: this reads no environment.
  static bool isTraceEnabled() noexcept { return isSet(traceEnabled); }

  /// Adds line numbers to entry lines.
  static void enableWriteLineNumber() noexcept { set(lineNumberWritten); }
  /// Leaves line numbers away.
  static void disableWriteLineNumber() noexcept { clear(lineNumberWritten); }
  /// Whether entry lines have line numbers.
  static bool isWriteLineNumberEnabled() noexcept { return isSet(lineNumberWritten); }

  /// Begins every line with its number, the process and the thread.
  static void enableWritePrefix() noexcept { set(prefixWritten); }
  /// Begins every line with its indentation.
  static void disableWritePrefix() noexcept { clear(prefixWritten); }
  /// Whether lines begin with the prefix.
  static bool isWritePrefixEnabled() noexcept { return isSet(prefixWritten); }

  /// Sends lines to `queue`.
  static void writeToQueue() noexcept { setDestination(queue); }
  /// Sends lines to standard error.
  static void writeToStandardError() noexcept { setDestination(standardError); }
  /// Sends lines to standard output.
  static void writeToStandardOutput() noexcept { setDestination(standardOutput); }
  /// Sends lines to the file that the environment names: "KOLTA TRACEFILE", else "KOLTA_TRACEFILE", asked for every
  /// line, without blanks around it and in upper case. The file is opened and closed for every line; without a name, or
  /// when it cannot be opened, the line is left out.
  static void writeToFile() noexcept { setDestination(file); }
  /// Where lines go, as far as is known: this reads no environment.
  static Destination traceDestination() noexcept { return __atomic_load_n(&iClTraceLocation, __ATOMIC_RELAXED); }

protected:
  /// Notes the number of the process and returns that of the thread, which is 1 for all of them.
  static unsigned long threadId() noexcept;
  /// Returns 0: how much stack is left is not known here.
  static unsigned long remainingStack() noexcept;
  /// Writes text to the destination as it is.
  static void writeString(char* pszString) noexcept;
  /// Writes the text as one line after prefix, indentation and marker. A marker that begins with '-' takes two blanks of
  /// indentation away before the line, where there are two; one that begins with '+' adds two after it.
  static void writeFormattedString(const IString& strString, char* pszMarker) noexcept;

  static unsigned uClIndent[255];      ///< the indentation of each thread, in blanks
  static unsigned long ulClProcessId;  ///< the number of the process, as threadId() noted it last
  static int fCheckStack;              ///< whether the prefix has a column for the remaining stack
  static int fCheckMemory;             ///< has no effect

private:
  friend class ITraceSetup;

  struct Text;
  enum State : int { settingsUnread = 1, traceEnabled = 2, lineNumberWritten = 4, prefixWritten = 8 };

  ITrace(const ITrace&) = delete;
  ITrace& operator=(const ITrace&) = delete;

  static int state() noexcept { return __atomic_load_n(&iClState, __ATOMIC_RELAXED); }
  static bool isSet(State flag) noexcept { return (state() & flag) != 0; }
  static void set(State flag) noexcept { __atomic_fetch_or(&iClState, flag, __ATOMIC_RELAXED); }
  static void clear(State flag) noexcept { __atomic_fetch_and(&iClState, ~flag, __ATOMIC_RELAXED); }
  static void setDestination(Destination place) noexcept
  {
    __atomic_store_n(&iClTraceLocation, place, __ATOMIC_RELAXED);
  }

  /// Whether lines are written now. The one test that a statement costs while tracing is off.
  static bool isOn() noexcept { return (state() & (settingsUnread | traceEnabled)) != 0 && isOnAfterReading(); }
  static bool isOnAfterReading() noexcept;

  void enter(const char* name, long line) noexcept;
  void leave() noexcept;
  static void writeText(const char* text) noexcept;
  static void writeText(const IString& text) noexcept;
  static void writePrefixTo(char* prefix, std::size_t size, unsigned long thread) noexcept;
  static void writeLine(const Text& text, const char* marker) noexcept;

  static int iClState;
  static Destination iClTraceLocation;

  char* pszClTraceName;
};

/// Reads the settings of ITrace from the environment.
class QUELMCL_API ITraceSetup {
public:
  /// Reads "KOLTA TRACE", "KOLTA TRACETO" and "KOLTA CHECKSTACK", each under its name with an underscore if it is not
  /// set under the one with a blank, and replaces the settings by them. The first trace operation of a process does
  /// so by itself; a program that changes its own environment may do it again. Programs that run with another user's
  /// rights see none of the variables as set.
  static void initialize() noexcept;
  /// Whether lines are written now. Unlike ITrace::isTraceEnabled() this is a trace operation: it reads the
  /// environment if that was not done yet. Costs what a trace statement costs.
  static bool traceOn() noexcept { return ITrace::isOn(); }
};

/// Where these macros vanish: compiled with `-DQUELMCL_TRACE_OFF`, a source keeps its trace statements and the program
/// has none of them. Their arguments are then not even evaluated. Trace objects written out, without the macros, stay.
///
/// `QUELMCL_TRACE_FUNCTION();` traces the function it stands in, from here to its end: name and line on entry, name on
/// exit. `QUELMCL_TRACE_SCOPE(name);` does so for a block, under a name of its own. One of the two a line. `QUELMCL_TRACE_WRITE(text);` writes a
/// line of text, a `const char*` or anything that an IString is built from, and evaluates it only while tracing is on.
#ifdef QUELMCL_TRACE_OFF
#  define QUELMCL_TRACE_FUNCTION() static_cast<void>(0)
#  define QUELMCL_TRACE_SCOPE(name) static_cast<void>(0)
#  define QUELMCL_TRACE_WRITE(text) static_cast<void>(0)
#else
#  define QUELMCL_TRACE_FUNCTION() QUELMCL_TRACE_SCOPE(__func__)
#  define QUELMCL_TRACE_SCOPE(name) const ITrace QUELMCL_TRACE_JOIN(quelmclTraceOfLine, __LINE__)(name, __LINE__)
#  define QUELMCL_TRACE_WRITE(text) (ITraceSetup::traceOn() ? ITrace::write(text) : static_cast<void>(0))

#  define QUELMCL_TRACE_JOIN(first, second) QUELMCL_TRACE_JOIN_EXPANDED(first, second)
#  define QUELMCL_TRACE_JOIN_EXPANDED(first, second) first##second
#endif

#endif
