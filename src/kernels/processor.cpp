// processor.cpp - which instructions the processor has, and how many of them may be used.
// Tests: tests/kernels/processor_test.cpp
#include "kernels/processor.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace quelmcl::detail {

int chosenInstructions = -1;

namespace {

constexpr const char* names[instructionSets] = {"portable", "sse2", "ssse3", "avx2"};

/// The set that the environment names; the widest where it names none.
Instructions allowedInstructions() noexcept
{
  const char* const named = secure_getenv("QUELMCL_VECTORS");
  std::size_t set = 0;
  while (set + 1 < instructionSets && (named == nullptr || std::strcmp(names[set], named) != 0))
    ++set;
  return static_cast<Instructions>(set);
}

}  // namespace

const char* nameOf(Instructions set) noexcept
{
  return names[static_cast<std::size_t>(set)];
}

Instructions availableInstructions() noexcept
{
  __builtin_cpu_init();  // the first string may be older than what asks the processor when a program starts
  if (!__builtin_cpu_supports("sse2"))
    return Instructions::portable;
  if (!__builtin_cpu_supports("ssse3"))
    return Instructions::sse2;
  return __builtin_cpu_supports("avx2") ? Instructions::avx2 : Instructions::ssse3;
}

Instructions chooseInstructions() noexcept
{
  const Instructions chosen = std::min(availableInstructions(), allowedInstructions());
  __atomic_store_n(&chosenInstructions, static_cast<int>(chosen), __ATOMIC_RELAXED);
  return chosen;
}

}  // namespace quelmcl::detail
