/// @file outcome.hpp
/// What comes of asking for a text of a length: the text, an exhausted heap, or a length that no text can have.
#ifndef QUELMCL_TESTS_LIMITS_OUTCOME_HPP
#define QUELMCL_TESTS_LIMITS_OUTCOME_HPP

#include <quelmcl/quelmcl.hpp>

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace limittests {

/// The most bytes that a text can have.
constexpr unsigned longest = 4294967274u;

/// The error id of what the action throws, as the class that belongs to it; 0 when it throws nothing.
template <class Action>
unsigned long errorIdOf(Action action)
{
  try {
    action();
  } catch (const IOutOfMemory& failure) {
    return failure.errorId();
  } catch (const IInvalidRequest& failure) {
    return failure.errorId();
  }
  return 0;
}

enum Id : unsigned long { none = 0, outOfMemory = 4, tooLong = 1010 };

/// How many megabytes the machine could give to a process now.
inline unsigned long availableMegabytes()
{
  std::ifstream file("/proc/meminfo");
  for (std::string line; std::getline(file, line);)
    if (line.compare(0, 13, "MemAvailable:") == 0)
      return std::stoul(line.substr(13)) / 1024;
  return 0;
}

/// Leaves the test out on a machine that would have to swap.
#define QUELMCL_NEEDS_MEGABYTES(number)              \
  if (::limittests::availableMegabytes() < (number)) \
  GTEST_SKIP() << "needs " << (number) << " MB, and there are " << ::limittests::availableMegabytes()

}  // namespace limittests

#endif
