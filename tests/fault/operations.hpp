/// @file operations.hpp
/// The tables of operations of which every allocation is made to fail. A new operation is a new line in one of them.
///
/// An operation leaves what it makes in `result` or another object of the world, or gives it up. Run on a world whose last run
/// failed, it has to give what it gives on a new one.
#ifndef QUELMCL_TESTS_FAULT_OPERATIONS_HPP
#define QUELMCL_TESTS_FAULT_OPERATIONS_HPP

#include "world.hpp"

#include <vector>

namespace faulttests {

/// What happens when storage runs out. What is thrown is IOutOfMemory with the library's new-handler, else std::bad_alloc.
enum Promise {
  strong,         ///< it is thrown, and every object is as it was
  basic,          ///< it is thrown, and the objects are sound; the header tells what may have changed
  quiet,          ///< nothing is thrown; texts may be missing
  strongButForC,  ///< as in strong, or all is done: what the C library had asked for can be done without
  strongOrQuiet,  ///< as in strong, or all is done: what had failed can be done without
  needsNone       ///< storage is never asked for
};

struct Operation {
  const char* name;
  Promise promise;
  void (*run)(World& world);
};

// One table for each family of classes.
extern const std::vector<Operation> stringOperations;
extern const std::vector<Operation> bufferOperations;
extern const std::vector<Operation> textOperations;       // words, number forms, templates, dates, times, streams
extern const std::vector<Operation> containerOperations;  // sequences
extern const std::vector<Operation> failureOperations;    // exceptions, messages, error information, traces

/// All of them.
std::vector<Operation> allOperations();

/// Calls `action`, which has to throw a `Failure` of that id. What else it throws passes through.
template <class Failure, class Action>
void requireFailure(World& world, unsigned long errorId, Action action)
{
  bool isThrown = false;
  try {
    action();
  } catch (const Failure& failure) {
    isThrown = true;
    REQUIRE_OF(world, failure.errorId() == errorId);
  }
  REQUIRE_OF(world, isThrown);
}

}  // namespace faulttests

#endif
