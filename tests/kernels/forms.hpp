// forms.hpp - the forms of some loops that this machine can run, as the rows of a test.
#ifndef QUELMCL_TESTS_KERNELS_FORMS_HPP
#define QUELMCL_TESTS_KERNELS_FORMS_HPP

#include "kernels/processor.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kerneltests {

/// The sets of instructions that this machine has, from the narrowest to the widest.
inline std::vector<quelmcl::detail::Instructions> instructionsOfThisMachine()
{
  std::vector<quelmcl::detail::Instructions> sets;
  for (int set = 0; set <= static_cast<int>(quelmcl::detail::availableInstructions()); ++set)
    sets.push_back(static_cast<quelmcl::detail::Instructions>(set));
  return sets;
}

template <class Loops>
std::vector<const Loops*> formsOnThisMachine(const quelmcl::detail::Forms<Loops>& forms)
{
  std::vector<const Loops*> distinct;
  for (const quelmcl::detail::Instructions set : instructionsOfThisMachine())
    if (distinct.empty() || distinct.back() != &forms.of(set))
      distinct.push_back(&forms.of(set));
  return distinct;
}

template <class Loops>
std::string nameOfForm(const testing::TestParamInfo<const Loops*>& row)
{
  return quelmcl::detail::nameOf(row.param->needed);
}

}  // namespace kerneltests

#endif
