/// @file istartup.hpp
/// KOLTA_Init, which connects the library's diagnostics before any code of the program runs.
///
/// From the moment that the library is loaded, or that a program with the static library in it starts,
/// - exceptions are reported through the trace (itrace.hpp), so to nowhere until the environment switches it on;
/// - an exhausted heap throws IOutOfMemory, with error id 4, out of every `new` of the process, not std::bad_alloc.
///
/// A program replaces the first with IException::setTraceFunction and the second with std::set_new_handler. Neither is
/// undone when the library is unloaded.
#ifndef QUELMCL_ISTARTUP_HPP
#define QUELMCL_ISTARTUP_HPP

#include <quelmcl/iexcbase.hpp>

namespace quelmcl {
namespace detail {
class StartUp;
}
}  // namespace quelmcl

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
/// The hook that writes the reports of exceptions to the trace. There is one object of this class in a process, made by
/// the library.
class QUELMCL_API KOLTA_Init : public IException::TraceFn {
public:
  /// Writes one line of a report to the trace.
  void write(const char* buffer) override;
  // The table of virtual operations goes on with logData and exceptionLogged, and ends with the destructor.

  /// At the end of the process the object becomes a plain IExceptTraceFn; hook and new-handler stay installed.
  virtual ~KOLTA_Init();

  /// The new-handler of the library. Logs and throws IOutOfMemory: message 4 of the catalog, error id 4, unrecoverable,
  /// location "ibase" line 147. The text is left away where there is no storage for it. A program that had a
  /// handler of its own in force gives the heap back to the library with `std::set_new_handler(KOLTA_Init::newHandler)`.
  [[noreturn]] static void newHandler();

private:
  friend class quelmcl::detail::StartUp;
  KOLTA_Init();
  KOLTA_Init(const KOLTA_Init&) = delete;
  KOLTA_Init& operator=(const KOLTA_Init&) = delete;
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

#endif
