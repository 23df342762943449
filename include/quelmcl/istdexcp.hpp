/// @file istdexcp.hpp
/// A bridge for programs whose handlers catch std::exception, from which IException is not derived.
///
///     auto text = quelmcl::withStandardErrors([&] { return report.word(9).asDebugInfo(); });   // throws Error
///
///     try {
///       work();
///     } catch (...) {
///       quelmcl::rethrowAsStandard();             // an Error for an IException, anything else as it is
///     }
///
///     std::set_terminate(quelmcl::reportAndAbort);   // the last words of a program, for either family
///
/// It is no part of quelmcl.hpp, because it needs some of the standard library's larger headers.
#ifndef QUELMCL_ISTDEXCP_HPP
#define QUELMCL_ISTDEXCP_HPP

#include <quelmcl/iexcbase.hpp>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

namespace quelmcl {

/// What an exception of the library looks like to those who catch std::exception: what() is its newest text, or the
/// name of its class when it has none. A plain value that keeps copies of all it tells; copying it does not throw.
class Error : public std::runtime_error {
public:
  /// Throws std::bad_alloc or IOutOfMemory when there is no storage for the texts.
  explicit Error(const IException& failure)
    : std::runtime_error(failure.text() != nullptr ? failure.text() : failure.name()),
      nameText(failure.name()),
      groupText(failure.errorCodeGroup() != nullptr ? failure.errorCodeGroup() : ""),
      errorNumber(failure.errorId()),
      recoverable(failure.isRecoverable() != 0)
  {
  }

  /// The name of the exception's class, such as "IInvalidRequest".
  const char* name() const noexcept { return nameText.what(); }
  /// The error id; 0 when there is none.
  unsigned long errorId() const noexcept { return errorNumber; }
  /// The group that the error id belongs to; empty when there is none.
  const char* errorGroup() const noexcept { return groupText.what(); }
  /// Whether the program can be expected to go on.
  bool isRecoverable() const noexcept { return recoverable; }

private:
  // Exceptions must be copied without a failure, in any thread: of the standard library's texts, theirs can.
  std::runtime_error nameText;
  std::runtime_error groupText;
  unsigned long errorNumber;
  bool recoverable;
};

/// Throws an Error for the library's exception that is being handled, with the exception itself nested in it
/// (std::rethrow_if_nested gives it back, locations and older texts included); any other exception is thrown on. To be
/// called in a handler.
[[noreturn]] inline void rethrowAsStandard()
{
  try {
    throw;
  } catch (const IException& failure) {
    std::throw_with_nested(Error(failure));
  }
}

/// Calls `function` and returns its result; an exception of the library leaves as an Error.
template <class Function>
auto withStandardErrors(Function&& function) -> decltype(std::forward<Function>(function)())
{
  try {
    return std::forward<Function>(function)();
  } catch (const IException&) {
    rethrowAsStandard();
  }
}

/// For std::set_terminate: writes one line to standard error that tells the exception which ends the program, of
/// either family, and aborts. Allocates nothing.
[[noreturn]] inline void reportAndAbort() noexcept
{
  try {
    if (std::current_exception() != nullptr)
      throw;
    std::fputs("terminated without an exception\n", stderr);
  } catch (const IException& failure) {
    std::fprintf(stderr, "terminated by %s %lu: %s\n", failure.name(), failure.errorId(),
                 failure.text() != nullptr ? failure.text() : "");
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "terminated by an exception: %s\n", failure.what());
  } catch (...) {
    std::fputs("terminated by an exception of an unknown class\n", stderr);
  }
  std::abort();
}

}  // namespace quelmcl

#endif
