// processor_test.cpp - kernels: which form of the loops is in use, by what the processor has and the environment allows.
#include "kernels/processor.hpp"

#include "forms.hpp"
#include "kernels/digits.hpp"
#include "kernels/transformsteps.hpp"
#include "kernels/vectors.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>

using kerneltests::instructionsOfThisMachine;
using quelmcl::detail::availableInstructions;
using quelmcl::detail::chooseInstructions;
using quelmcl::detail::digitForms;
using quelmcl::detail::Instructions;
using quelmcl::detail::instructions;
using quelmcl::detail::nameOf;
using quelmcl::detail::transformForms;
using quelmcl::detail::vectorForms;

namespace {

constexpr Instructions allSets[] = {Instructions::portable, Instructions::sse2, Instructions::ssse3,
                                    Instructions::avx2};

/// Leaves the environment, and what is in use, as they were.
class Processor : public testing::Test {
protected:
  Processor()
  {
    if (const char* const set = std::getenv(variable))
      before = set;
  }
  ~Processor() override
  {
    allow(before.empty() ? nullptr : before.c_str());
    chooseInstructions();
  }

  static void allow(const char* set)
  {
    if (set == nullptr)
      unsetenv(variable);
    else
      setenv(variable, set, 1);
  }

private:
  static constexpr char variable[] = "QUELMCL_VECTORS";
  std::string before;
};

TEST_F(Processor, UsesTheWidestSetUnlessTheEnvironmentNamesOne)
{
  allow(nullptr);
  EXPECT_EQ(chooseInstructions(), availableInstructions());
  allow("abacus");
  EXPECT_EQ(chooseInstructions(), availableInstructions());
  allow("");
  EXPECT_EQ(chooseInstructions(), availableInstructions());
}

TEST_F(Processor, UsesNoMoreThanTheEnvironmentAllows)
{
  for (const Instructions set : allSets) {
    allow(nameOf(set));
    EXPECT_EQ(chooseInstructions(), std::min(set, availableInstructions())) << nameOf(set);
    EXPECT_EQ(instructions(), std::min(set, availableInstructions())) << nameOf(set);
  }
}

TEST_F(Processor, ChoosesTheFormsOfAllLoopsAtOnce)
{
  for (const Instructions set : instructionsOfThisMachine()) {
    allow(nameOf(set));
    chooseInstructions();
    EXPECT_EQ(&vectorForms.inUse(), &vectorForms.of(set)) << nameOf(set);
    EXPECT_EQ(&quelmcl::detail::vectors(), &vectorForms.of(set)) << nameOf(set);
    EXPECT_EQ(&quelmcl::detail::digitLoops(), &digitForms.of(set)) << nameOf(set);
    EXPECT_EQ(&transformForms.inUse(), &transformForms.of(set)) << nameOf(set);
  }
}

TEST_F(Processor, RunsNoFormThatNeedsMoreThanTheSetHas)
{
  for (const Instructions set : allSets) {
    EXPECT_LE(vectorForms.of(set).needed, set) << nameOf(set);
    EXPECT_LE(digitForms.of(set).needed, set) << nameOf(set);
    EXPECT_LE(transformForms.of(set).needed, set) << nameOf(set);
  }
}

// The widest forms there are: a row that was left at a narrower one would go unnoticed, since all give the same results.
TEST_F(Processor, HasAFormForEachSetThatMakesADifference)
{
  EXPECT_EQ(vectorForms.of(Instructions::ssse3).needed, Instructions::ssse3);
  EXPECT_EQ(vectorForms.of(Instructions::avx2).needed, Instructions::avx2);
  EXPECT_EQ(digitForms.of(Instructions::sse2).needed, Instructions::sse2);
  EXPECT_EQ(digitForms.of(Instructions::avx2).needed, Instructions::sse2);
  EXPECT_EQ(transformForms.of(Instructions::ssse3).needed, Instructions::sse2);
  EXPECT_EQ(transformForms.of(Instructions::avx2).needed, Instructions::avx2);
}

}  // namespace
