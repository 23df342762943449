// convolution.cpp - products of very long numbers by number-theoretic transforms.
// Tests: tests/kernels/convolution_test.cpp
#include "kernels/convolution.hpp"

#include "kernels/transformsteps.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quelmcl::detail {

static_assert(std::endian::native == std::endian::little, "limbs are read as 32-bit words");

constinit const Forms<TransformSteps> transformForms(portableSteps, sse2Steps, sse2Steps, avx2Steps);

std::size_t spectrumLength(std::size_t words) noexcept
{
  const std::size_t whole = std::bit_ceil(std::max(words, blockWords));
  const std::size_t threeQuarters = whole / 4 * 3;
  return threeQuarters >= words && threeQuarters % blockWords == 0 ? threeQuarters : whole;
}

namespace {

constexpr PartFactors partFactors(const Prime& prime, unsigned blocksLog)
{
  const std::uint32_t blocks = 1u << blocksLog, scale = prime.reciprocal(blocks);
  const std::uint32_t twist = prime.rootOfOrder(3 * blocks), twistBack = prime.reciprocal(twist);
  PartFactors factors{};
  // Only parts of less than a quarter of the most blocks are asked for the root of an order that there still is.
  factors.split = blocksLog + 2 <= mostBlocksLog ? prime.factor(prime.rootOfOrder(4 * blocks)) : prime.one;
  factors.twist = prime.factor(twist);
  factors.twistSquared = prime.factor(prime.times(twist, twist));
  factors.twistBack = prime.factor(twistBack);
  factors.twistBackSquared = prime.factor(prime.times(twistBack, twistBack));
  // The products of points lack a factor of 2^32, and each step of the way back has doubled or trebled the numbers.
  factors.scale = prime.factor(prime.times(prime.one.value, scale));
  factors.scaleOfThree = prime.factor(prime.times(prime.times(prime.one.value, scale), prime.reciprocal(3)));
  return factors;
}

struct FactorTable {
  PartFactors entries[primeCount][mostBlocksLog + 1];
};

constexpr FactorTable makeFactorTable()
{
  FactorTable table{};
  for (unsigned i = 0; i < primeCount; ++i)
    for (unsigned log = 0; log <= mostBlocksLog; ++log)
      table.entries[i][log] = partFactors(primes[i], log);
  return table;
}

constexpr FactorTable factorTable = makeFactorTable();

}  // namespace

// The block that comes b-th among its like is split at X = z(b) and X = -z(b), and z(2b) is the square root of z(b),
// z(2b + 1) that of -z(b). As powers of one root, the exponents of z(b) are those of z(1), z(2), z(4), ... at the bits of
// b, added up; z(1) is the square root of -1, and each of the others the square root of the one before. So one table
// serves transforms of all lengths.
Transformer::Transformer(std::size_t longest) : Transformer(longest, transformForms.inUse()) {}

Transformer::Transformer(std::size_t longest, const TransformSteps& chosen)
  : steps(&chosen),
    splitCount(std::max(std::bit_floor(std::min(longest, longestSpectrum) / blockWords) / 2, std::size_t{1})),
    splits(std::make_unique<Factor[]>(primeCount * splitCount))
{
  for (unsigned i = 0; i < primeCount; ++i) {
    const Prime& prime = primes[i];
    Factor* const table = splits.get() + i * splitCount;
    table[0] = prime.one;
    unsigned log = 0;
    for (std::size_t known = 1; known < splitCount; known *= 2, ++log) {
      const Factor& next = factorTable.entries[i][log].split;
      for (std::size_t b = 0; b < known; ++b) {
        const std::uint32_t value = prime.times(table[b].value, next);
        table[known + b] = {value, value * prime.inverse};
      }
    }
  }
}

Roots Transformer::rootsFor(unsigned primeNumber, std::size_t length) const noexcept
{
  const bool hasThreeParts = length / blockWords % 3 == 0;
  const std::size_t blocks = length / blockWords / (hasThreeParts ? 3 : 1);
  return {&primes[primeNumber], splits.get() + primeNumber * splitCount,
          &factorTable.entries[primeNumber][std::countr_zero(blocks)], blocks, hasThreeParts};
}

Spectrum::Spectrum(const Transformer& transformer, const Limb* number, std::size_t limbs, std::size_t length)
  : owner(&transformer), words(length), storage(new std::uint32_t[primeCount * length])
{
  // The third residue's place holds the words until they are no longer needed.
  std::uint32_t* const given = residues(primeCount - 1);
  const std::size_t count = limbs * (limbBytes / sizeof *given);
  if (count > 0)
    std::memcpy(given, number, count * sizeof *given);
  for (unsigned i = 0; i < primeCount; ++i) {
    owner->stepsInUse().reduce(given, count, residues(i), words, primes[i]);
    owner->stepsInUse().forward(residues(i), owner->rootsFor(i, words));
  }
}

void Spectrum::multiplyBy(const Spectrum& other) noexcept
{
  for (unsigned i = 0; i < primeCount; ++i)
    owner->stepsInUse().multiply(residues(i), other.residues(i), owner->rootsFor(i, words));
}

void Spectrum::toNumber(Limb* number) noexcept
{
  for (unsigned i = 0; i < primeCount; ++i)
    owner->stepsInUse().back(residues(i), owner->rootsFor(i, words));
  owner->stepsInUse().combine(residues(0), residues(1), residues(2), words);
  propagateCarries();
  std::memcpy(number, residues(0), words * sizeof *residues(0));
}

// The coefficients, of less than 90 bits and 32 apart, become words. The carry out of the highest one is added at the
// bottom, where 2^(32 length) counts as 1; adding it cannot carry all the way up again unless the number is 0.
void Spectrum::propagateCarries() noexcept
{
  constexpr std::uint64_t p0 = primes[0].p, p0p1 = p0 * primes[1].p;
  constexpr std::uint64_t low = p0p1 & 0xFFFFFFFF, high = p0p1 >> 32;
  std::uint32_t* const d0 = residues(0);
  const std::uint32_t* const d1 = residues(1);
  const std::uint32_t* const d2 = residues(2);
  std::uint64_t carry = 0;
  for (std::size_t i = 0; i < words; ++i) {
    const std::uint64_t bottom = d2[i] * low;
    const std::uint64_t sum = d0[i] + p0 * d1[i] + (carry & 0xFFFFFFFF) + (bottom & 0xFFFFFFFF);
    d0[i] = static_cast<std::uint32_t>(sum);
    carry = (carry >> 32) + (sum >> 32) + (bottom >> 32) + d2[i] * high;
  }
  for (std::size_t i = 0; carry != 0; i = i + 1 < words ? i + 1 : 0) {
    const std::uint64_t sum = d0[i] + (carry & 0xFFFFFFFF);
    d0[i] = static_cast<std::uint32_t>(sum);
    carry = (carry >> 32) + (sum >> 32);
  }
}

}  // namespace quelmcl::detail
