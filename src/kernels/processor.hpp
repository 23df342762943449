// processor.hpp - which instructions the processor has, and by that which form of the loops over bytes and numbers is in use.
// Tests: tests/kernels/processor_test.cpp
#ifndef QUELMCL_SRC_KERNELS_PROCESSOR_HPP
#define QUELMCL_SRC_KERNELS_PROCESSOR_HPP

#include <cstddef>

namespace quelmcl::detail {

/// The sets of instructions that there are forms for, each with those before it.
enum class Instructions { portable, sse2, ssse3, avx2 };
inline constexpr std::size_t instructionSets = 4;

/// The name of a set, as the environment variable has it: in small letters.
const char* nameOf(Instructions set) noexcept;

/// The widest set of this processor.
Instructions availableInstructions() noexcept;

/// The widest set that may be used: what this processor has, but no more than the environment variable QUELMCL_VECTORS
/// names, for tests and measurements. Asks both anew; what is in use from then on is the answer.
Instructions chooseInstructions() noexcept;

extern int chosenInstructions;  // below 0 until somebody has asked

/// The set in use. It is chosen once a process.
inline Instructions instructions() noexcept
{
  const int chosen = __atomic_load_n(&chosenInstructions, __ATOMIC_RELAXED);
  return chosen >= 0 ? static_cast<Instructions>(chosen) : chooseInstructions();
}

/// The forms of some loops, for each set of instructions the widest one that it can run. All forms give the same results.
template <class Loops>
class Forms {
public:
  constexpr Forms(const Loops& portable, const Loops& sse2, const Loops& ssse3, const Loops& avx2) noexcept
    : forms{&portable, &sse2, &ssse3, &avx2}
  {
  }
  const Loops& of(Instructions set) const noexcept { return *forms[static_cast<std::size_t>(set)]; }
  const Loops& inUse() const noexcept { return of(instructions()); }

private:
  const Loops* forms[instructionSets];
};

}  // namespace quelmcl::detail

#endif
