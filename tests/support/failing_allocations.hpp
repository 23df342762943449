/// @file failing_allocations.hpp
/// Lets a test count heap blocks and make allocations fail, inside of the library as well.
///
///     AllocationWatch watch;
///     {
///       FailingAllocations scope(2);           // the second allocation and all later ones find no storage
///       const IException failure("no room");
///       ...                                    // no EXPECT_... in here: a failing one allocates
///     }
///     EXPECT_EQ(watch.liveBlocks(), 0);        // nothing leaked
///
/// A test program that has failing_allocations.cpp among its sources replaces the global operators new and delete for
/// itself and for every shared library it loads. They forward to malloc and free, so address and leak sanitizers still see
/// every block. What takes storage from malloc itself (the C library, C++ exceptions being thrown) is neither counted nor
/// made to fail.
#ifndef QUELMCL_TESTS_SUPPORT_FAILING_ALLOCATIONS_HPP
#define QUELMCL_TESTS_SUPPORT_FAILING_ALLOCATIONS_HPP

#include <cstddef>

namespace quelmcl_test {

/// What happened on the heap since this object was built, by all threads together.
class AllocationWatch {
public:
  AllocationWatch() noexcept;

  /// How many blocks were handed out.
  unsigned long allocations() const noexcept;
  /// How many more blocks were handed out than released; negative when older blocks were released meanwhile.
  long liveBlocks() const noexcept;

private:
  unsigned long handedOutBefore;
  unsigned long releasedBefore;
};

/// While it lives, the allocations of the thread that built it fail from the `nth` one on (counting from 1), or only that
/// one.
///
/// A failing `new` does what the language asks of it: it calls the new-handler in force and tries again, which counts as the
/// next allocation, or throws std::bad_alloc when there is no handler; `new (std::nothrow)` does the same and gives null
/// where the other throws. So with `andAllLater`, a handler has to throw or to uninstall itself, or the loop never ends.
/// Scopes nest: the innermost one alone counts and decides.
class FailingAllocations {
public:
  enum Extent { andAllLater, andNoOther };
  /// As `nth`: nothing fails, allocations are only counted.
  static const unsigned long never = 0;

  explicit FailingAllocations(unsigned long nth, Extent extent = andAllLater) noexcept;
  ~FailingAllocations();
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;

  /// How many allocations were asked for within the scope, failed ones included.
  unsigned long attempts() const noexcept { return attempted; }
  /// How many of them failed. A test that wants a failure checks that there was one.
  unsigned long failures() const noexcept { return failed; }

  /// For the operators: counts one allocation of this thread and says whether it is to fail.
  static bool nextFails() noexcept;

private:
  const unsigned long firstToFail;
  const Extent extent;
  unsigned long attempted;
  unsigned long failed;
  FailingAllocations* const outer;
};

}  // namespace quelmcl_test

#endif
