// transformsteps_portable.cpp - the loops of transforms for any processor, one word at a time.
// Tests: tests/kernels/convolution_test.cpp
#include "kernels/transformsteps.hpp"

#include <cstring>

namespace {

using Register = std::uint32_t;
constexpr std::size_t lanes = 1;

Register load(const std::uint32_t* from)
{
  return *from;
}

void store(std::uint32_t* to, Register x)
{
  *to = x;
}

Register everywhere(std::uint32_t x)
{
  return x;
}

Register add(Register a, Register b)
{
  return a + b;
}

Register subtract(Register a, Register b)
{
  return a - b;
}

Register wrap(Register x, Register m)
{
  return x >= m ? x - m : x;
}

Register high(Register a, Register b)
{
  return static_cast<Register>(std::uint64_t{a} * b >> 32);
}

Register product(Register x, Register value, Register companion, Register p)
{
  return high(x, value) + p - high(x * companion, p);
}

void blockProduct(std::uint32_t* a, const std::uint32_t* b, const quelmcl::detail::Factor& y,
                  const quelmcl::detail::Prime& prime)
{
  constexpr std::size_t size = quelmcl::detail::blockWords;
  std::uint32_t left[size], right[2 * size];  // the second factor, times y and then as it is
  for (std::size_t i = 0; i < size; ++i) {
    left[i] = wrap(wrap(a[i], 2 * prime.p), prime.p);
    right[size + i] = wrap(wrap(b[i], 2 * prime.p), prime.p);
    right[i] = wrap(product(b[i], y.value, y.companion, prime.p), prime.p);
  }
  for (std::size_t k = 0; k < size; ++k) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < size; ++i)
      sum += std::uint64_t{left[i]} * right[size + k - i];
    const Register back = high(static_cast<std::uint32_t>(sum) * prime.inverse, prime.p);
    a[k] = wrap(static_cast<Register>(sum >> 32) + prime.p - back, 2 * prime.p);
  }
}

#include "kernels/transformloops.hpp"

const quelmcl::detail::TransformSteps steps = {"portable", {3000, 6000}, reduce, forward, multiply, back, combine};

}  // namespace

const quelmcl::detail::TransformSteps* quelmcl::detail::portableSteps() noexcept
{
  return &steps;
}
