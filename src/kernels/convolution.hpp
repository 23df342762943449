// convolution.hpp - products of very long numbers by number-theoretic transforms.
// Tests: tests/kernels/convolution_test.cpp
//
// A number is taken for a polynomial whose coefficients are its 32-bit words. Polynomials are multiplied point by point
// after a discrete Fourier transform, here over the integers modulo three primes below 2^30, so that every step is exact;
// the coefficients of the product, of less than 90 bits, are put together from their three residues. Literature: Knuth,
// The Art of Computer Programming, volume 2, 4.3.3 and 4.3.2 (residues); Brent and Zimmermann, Modern Computer Arithmetic,
// 2.3; P. Montgomery, Modular multiplication without trial division (1985); D. Harvey, Faster arithmetic for
// number-theoretic transforms (2014), for the butterflies that reduce late.
#ifndef QUELMCL_SRC_KERNELS_CONVOLUTION_HPP
#define QUELMCL_SRC_KERNELS_CONVOLUTION_HPP

#include "kernels/limbs.hpp"
#include "kernels/transformsteps.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace quelmcl::detail {

/// The shorter factor of a product may have this many words: with more, a coefficient would outgrow the three primes.
constexpr std::size_t longestFactorInWords = std::size_t{1} << 25;
/// The longest transform, in words.
constexpr std::size_t longestSpectrum = std::size_t{3} << 25;

/// The shortest length of a transform of at least that many words: eight times a power of two, or three times that.
std::size_t spectrumLength(std::size_t words) noexcept;

/// The tables that transforms of up to a certain length share: 3 bytes a word of it.
class Transformer {
public:
  explicit Transformer(std::size_t longest);
  /// With certain loops, for tests.
  Transformer(std::size_t longest, const TransformSteps& chosen);

private:
  friend class Spectrum;
  const TransformSteps& stepsInUse() const noexcept { return *steps; }
  Roots rootsFor(unsigned primeNumber, std::size_t length) const noexcept;

  const TransformSteps* steps;
  std::size_t splitCount;
  std::unique_ptr<Factor[]> splits;
};

/// The transform of a number. Takes 12 bytes a word of its length.
class Spectrum {
public:
  /// Of a number of at most `length` words. The length is one that spectrumLength() gives, and the transformer, which
  /// must live as long as this, is for one not shorter.
  Spectrum(const Transformer& transformer, const Limb* number, std::size_t limbs, std::size_t length);

  std::size_t length() const noexcept { return words; }
  /// Becomes the transform of the product of the two numbers, modulo 2^(32 length) - 1. May be multiplied once.
  void multiplyBy(const Spectrum& other) noexcept;
  /// Writes the product: `length` words. Leaves nothing usable here. A multiple of the modulus is written as 0 or as the
  /// modulus.
  void toNumber(Limb* number) noexcept;

private:
  std::uint32_t* residues(unsigned prime) noexcept { return storage.get() + prime * words; }
  const std::uint32_t* residues(unsigned prime) const noexcept { return storage.get() + prime * words; }
  void propagateCarries() noexcept;

  const Transformer* owner;
  std::size_t words;
  std::unique_ptr<std::uint32_t[]> storage;
};

}  // namespace quelmcl::detail

#endif
