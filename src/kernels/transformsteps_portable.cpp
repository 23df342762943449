// transformsteps_portable.cpp - the loops of transforms for any processor, one word at a time.
// Tests: tests/kernels/convolution_test.cpp
#include "kernels/transformsteps.hpp"

#include <cstring>

namespace {

using Register = std::uint32_t;
constexpr std::size_t lanes = 1;

inline Register load(const std::uint32_t* from)
{
  return *from;
}

inline void store(std::uint32_t* to, Register x)
{
  *to = x;
}

inline Register everywhere(std::uint32_t x)
{
  return x;
}

inline Register add(Register a, Register b)
{
  return a + b;
}

inline Register subtract(Register a, Register b)
{
  return a - b;
}

inline Register wrap(Register x, Register m)
{
  return x >= m ? x - m : x;
}

using Products = std::uint64_t;

inline Products products(Register x, Register factor)
{
  return std::uint64_t{x} * factor;
}

inline Products add(Products a, Products b)
{
  return a + b;
}

using LowProducts = Register;

inline LowProducts lowProducts(Register x, Register factor)
{
  return x * factor;
}

inline LowProducts lowProducts(Products x, Register factor)
{
  return static_cast<Register>(x) * factor;
}

inline Register reduced(Products x, LowProducts companions, Register p)
{
  return static_cast<Register>(x >> 32) + p - static_cast<Register>(products(companions, p) >> 32);
}

#include "kernels/transformloops.inc"

}  // namespace

constinit const TransformSteps quelmcl::detail::portableSteps = {
  Instructions::portable, {3000, 6000}, reduce, forward, multiply, back, combine};
