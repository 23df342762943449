/// @file failing_malloc.hpp
/// Lets a test count the heap blocks of a whole program and make any request for one fail, whoever asks: operator new, the C library
/// (streams, catalogs, time zones), the run-time system of the language that stores an exception to be thrown.
///
///     MallocWatch watch;
///     {
///       FailingMalloc scope(2);         // the second request and all later ones find no storage
///       ...                             // no EXPECT_... in here: a failing one allocates
///     }
///     EXPECT_EQ(watch.liveBlocks(), 0);
///
/// A test program that has failing_malloc.cpp among its sources replaces malloc and its relatives for itself and for every shared
/// library it loads. Sanitizers replace them as well, and theirs have to stay: `isPossible` is false then, nothing fails and nothing
/// is counted.
#ifndef QUELMCL_TESTS_SUPPORT_FAILING_MALLOC_HPP
#define QUELMCL_TESTS_SUPPORT_FAILING_MALLOC_HPP

#include "support/failing_allocations.hpp"

namespace quelmcl_test {

/// What happened on the heap since this object was built, by all threads together.
class MallocWatch {
public:
  MallocWatch() noexcept;
  /// How many more blocks were handed out than released; negative when older blocks were released meanwhile.
  long liveBlocks() const noexcept;

private:
  long liveBefore;
};

/// While it lives, the requests of the thread that built it fail from the `nth` one on (counting from 1), or only that one, or none if
/// `nth` is FailingAllocations::never. A request
/// that fails gives null, and ENOMEM in errno; so operator new calls the new-handler in force. What makes a block larger is a
/// request, too. Scopes do not nest.
class FailingMalloc {
public:
  /// Whether this program can make requests fail.
  static const bool isPossible;

  explicit FailingMalloc(unsigned long nth,
                         FailingAllocations::Extent extent = FailingAllocations::andAllLater) noexcept;
  ~FailingMalloc();
  FailingMalloc(const FailingMalloc&) = delete;
  FailingMalloc& operator=(const FailingMalloc&) = delete;

  /// How many requests were made within the scope, failed ones included.
  unsigned long attempts() const noexcept { return attempted; }
  /// How many requests failed within the scope.
  unsigned long failures() const noexcept { return failed; }

  /// For the functions that replace malloc: counts one request of this thread and says whether it is to fail.
  static bool nextFails() noexcept;

private:
  const unsigned long firstToFail;
  const FailingAllocations::Extent extent;
  unsigned long attempted;
  unsigned long failed;
};

}  // namespace quelmcl_test

#endif
