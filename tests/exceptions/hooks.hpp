/// @file hooks.hpp
/// Hooks that see the reports of logged exceptions, and a way to install one for the length of a block.
#ifndef QUELMCL_TESTS_EXCEPTIONS_HOOKS_HPP
#define QUELMCL_TESTS_EXCEPTIONS_HOOKS_HPP

#include <quelmcl/iexcbase.hpp>

#include <new>
#include <string>
#include <vector>

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN

/// Keeps the lines of all reports.
class RecordingHook : public IException::TraceFn {
public:
  RecordingHook() : reports(0), linesAtLastReport(0) {}

  void write(const char* buffer) override { lines.push_back(buffer); }

  std::vector<std::string> lines;
  int reports;                    ///< how often exceptionLogged was called
  std::size_t linesAtLastReport;  ///< how many lines had been written when it was called last

protected:
  void exceptionLogged() override
  {
    ++reports;
    linesAtLastReport = lines.size();
  }
};

/// Keeps nothing and allocates nothing, for tests in which allocations fail.
class CountingHook : public IException::TraceFn {
public:
  CountingHook() : lineCount(0), reports(0) {}

  void write(const char*) override { ++lineCount; }

  int lineCount;
  int reports;

protected:
  void exceptionLogged() override { ++reports; }
};

QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

/// The hook in effect for the length of a block. A hook cannot be removed, so the earlier one is installed again at the end.
class InstalledHook {
public:
  explicit InstalledHook(IException::TraceFn& hook) : previous(IException::setTraceFunction(hook)) {}
  ~InstalledHook() { IException::setTraceFunction(*previous); }
  InstalledHook(const InstalledHook&) = delete;
  InstalledHook& operator=(const InstalledHook&) = delete;

private:
  IException::TraceFn* const previous;
};

/// The lines of a report of `exception`.
inline std::vector<std::string> reportOf(IException& exception)
{
  RecordingHook hook;
  InstalledHook installed(hook);
  exception.logExceptionData();
  return hook.lines;
}

/// A new-handler that counts its calls and gives up, in force for the length of a block.
class CountingNewHandler {
public:
  CountingNewHandler() : previous(std::set_new_handler(countAndGiveUp)) { callCount() = 0; }
  ~CountingNewHandler() { std::set_new_handler(previous); }
  CountingNewHandler(const CountingNewHandler&) = delete;
  CountingNewHandler& operator=(const CountingNewHandler&) = delete;

  int calls() const { return callCount(); }
  bool isInForce() const { return std::get_new_handler() == countAndGiveUp; }

private:
  static int& callCount()
  {
    static int count = 0;
    return count;
  }
  static void countAndGiveUp()
  {
    ++callCount();
    throw std::bad_alloc();
  }

  const std::new_handler previous;
};

#endif
