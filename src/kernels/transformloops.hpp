// transformloops.hpp - the loops of transformsteps.hpp over an including file's own registers. It defines, in the
// unnamed namespace: Register, `lanes` (words in one), load, store, everywhere, add, subtract, wrap (x, or x - m where x is
// at least m), product (below twice the prime) and blockProduct. No include guard: one inclusion for each file. Its functions are
// inline only because tools take it for an ordinary header.

using quelmcl::detail::blockWords;
using quelmcl::detail::Factor;
using quelmcl::detail::Prime;
using quelmcl::detail::primes;
using quelmcl::detail::Roots;

struct WideFactor {
  Register value, companion;
  explicit WideFactor(const Factor& factor) : value(everywhere(factor.value)), companion(everywhere(factor.companion))
  {
  }
};

inline Register times(Register x, const WideFactor& factor, Register p)
{
  return product(x, factor.value, factor.companion, p);
}

inline void reduce(const std::uint32_t* words, std::size_t count, std::uint32_t* residues, std::size_t length,
                   const Prime& prime) noexcept
{
  const Register p = everywhere(prime.p);
  const WideFactor one(prime.one);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes)
    store(residues + i, times(load(words + i), one, p));
  for (; i < count; ++i)
    residues[i] = words[i] % prime.p;
  std::memset(residues + count, 0, (length - count) * sizeof *residues);
}

// Each block of polynomials modulo X^2m - z^2 becomes two, modulo X^m - z and X^m + z.
inline void split(std::uint32_t* low, std::size_t words, const WideFactor& z, Register p, Register twoP)
{
  std::uint32_t* const high = low + words;
  for (std::size_t i = 0; i < words; i += lanes) {
    const Register a = wrap(load(low + i), twoP);
    const Register b = times(load(high + i), z, p);
    store(low + i, add(a, b));
    store(high + i, add(a, subtract(twoP, b)));
  }
}

inline void splitAll(std::uint32_t* residues, const Roots& roots)
{
  const Register p = everywhere(roots.prime->p), twoP = everywhere(2 * roots.prime->p);
  std::size_t half = roots.blocks / 2 * blockWords;
  for (std::size_t count = 1; count < roots.blocks; count *= 2, half /= 2)
    for (std::size_t i = 0; i < count; ++i)
      split(residues + 2 * i * half, half, WideFactor(roots.splits[i]), p, twoP);
}

// The way back, but for a factor of two: the reciprocal of z is -1 times the root at the mirrored place of the table.
inline void join(std::uint32_t* low, std::size_t words, const WideFactor& minusReciprocal, Register p, Register twoP)
{
  std::uint32_t* const high = low + words;
  for (std::size_t i = 0; i < words; i += lanes) {
    const Register a = load(low + i), b = load(high + i);
    store(low + i, wrap(add(a, b), twoP));
    store(high + i, times(add(b, subtract(twoP, a)), minusReciprocal, p));
  }
}

inline void joinAll(std::uint32_t* residues, const Roots& roots)
{
  const Register p = everywhere(roots.prime->p), twoP = everywhere(2 * roots.prime->p);
  std::size_t half = blockWords;
  const WideFactor minusOne(roots.prime->minusOne);
  for (std::size_t count = roots.blocks / 2; count > 0; count /= 2, half *= 2) {
    join(residues, half, minusOne, p, twoP);
    for (std::size_t first = 1; first < count; first *= 2)
      for (std::size_t i = first; i < 2 * first; ++i)
        join(residues + 2 * i * half, half, WideFactor(roots.splits[3 * first - 1 - i]), p, twoP);
  }
}

/// Multiplies the blocks by 1, f, f^2, ... and leaves numbers below twice the prime.
inline void twist(std::uint32_t* residues, std::size_t words, const Factor& factor, const Prime& prime)
{
  const Register p = everywhere(prime.p);
  Factor power = prime.one;
  for (std::size_t i = 0; i < words; i += blockWords) {
    const WideFactor wide(power);
    for (std::size_t k = 0; k < blockWords; k += lanes)
      store(residues + i + k, times(load(residues + i + k), wide, p));
    power.value = prime.times(power.value, factor);
    power.companion = power.value * prime.inverse;
  }
}

// X^3m - 1 is the product of X^m - 1, X^m - w and X^m - w^2, where w is a third root of unity. Going over from X to t X,
// where t^m is w or w^2, makes X^m - 1 of the other two as well.
inline void splitInThree(std::uint32_t* residues, const Roots& roots)
{
  const Register p = everywhere(roots.prime->p), twoP = everywhere(2 * roots.prime->p);
  const WideFactor third(roots.prime->third), thirdSquared(roots.prime->thirdSquared);
  const std::size_t words = roots.blocks * blockWords;
  for (std::size_t i = 0; i < words; i += lanes) {
    const Register a = load(residues + i), b = load(residues + words + i), c = load(residues + 2 * words + i);
    const Register bPart = add(times(b, third, p), times(c, thirdSquared, p));
    const Register cPart = add(times(b, thirdSquared, p), times(c, third, p));
    store(residues + i, wrap(add(a, wrap(add(b, c), twoP)), twoP));
    store(residues + words + i, wrap(add(a, wrap(bPart, twoP)), twoP));
    store(residues + 2 * words + i, wrap(add(a, wrap(cPart, twoP)), twoP));
  }
  twist(residues + words, words, roots.factors->twist, *roots.prime);
  twist(residues + 2 * words, words, roots.factors->twistSquared, *roots.prime);
}

inline void joinThree(std::uint32_t* residues, const Roots& roots)
{
  const Register p = everywhere(roots.prime->p), twoP = everywhere(2 * roots.prime->p);
  const WideFactor third(roots.prime->third), thirdSquared(roots.prime->thirdSquared);
  const std::size_t words = roots.blocks * blockWords;
  twist(residues + words, words, roots.factors->twistBack, *roots.prime);
  twist(residues + 2 * words, words, roots.factors->twistBackSquared, *roots.prime);
  for (std::size_t i = 0; i < words; i += lanes) {
    const Register a = load(residues + i), b = load(residues + words + i), c = load(residues + 2 * words + i);
    const Register bPart = add(times(b, thirdSquared, p), times(c, third, p));
    const Register cPart = add(times(b, third, p), times(c, thirdSquared, p));
    store(residues + i, wrap(add(a, wrap(add(b, c), twoP)), twoP));
    store(residues + words + i, wrap(add(a, wrap(bPart, twoP)), twoP));
    store(residues + 2 * words + i, wrap(add(a, wrap(cPart, twoP)), twoP));
  }
}

inline std::size_t lengthOf(const Roots& roots)
{
  return roots.blocks * blockWords * (roots.hasThreeParts ? 3 : 1);
}

inline void forward(std::uint32_t* residues, const Roots& roots) noexcept
{
  if (roots.hasThreeParts)
    splitInThree(residues, roots);
  const std::size_t part = roots.blocks * blockWords;
  for (std::size_t start = 0; start < lengthOf(roots); start += part)
    splitAll(residues + start, roots);
}

inline void back(std::uint32_t* residues, const Roots& roots) noexcept
{
  const std::size_t length = lengthOf(roots), part = roots.blocks * blockWords;
  for (std::size_t start = 0; start < length; start += part)
    joinAll(residues + start, roots);
  if (roots.hasThreeParts)
    joinThree(residues, roots);
  const Register p = everywhere(roots.prime->p);
  const WideFactor scale(roots.hasThreeParts ? roots.factors->scaleOfThree : roots.factors->scale);
  for (std::size_t i = 0; i < length; i += lanes)
    store(residues + i, wrap(times(load(residues + i), scale, p), p));
}

/// The points of a part are at t * c, where block 2b has c = z(b) and block 2b + 1 has c = -z(b).
inline void multiplyPart(std::uint32_t* a, const std::uint32_t* b, const Factor& t, const Roots& roots)
{
  const Prime& prime = *roots.prime;
  if (roots.blocks == 1)
    return blockProduct(a, b, t, prime);
  for (std::size_t i = 0; i < roots.blocks / 2; ++i) {
    const std::uint32_t plus = prime.times(t.value, roots.splits[i]), minus = plus == 0 ? 0 : prime.p - plus;
    blockProduct(a, b, Factor{plus, plus * prime.inverse}, prime);
    blockProduct(a + blockWords, b + blockWords, Factor{minus, minus * prime.inverse}, prime);
    a += 2 * blockWords;
    b += 2 * blockWords;
  }
}

inline void multiply(std::uint32_t* a, const std::uint32_t* b, const Roots& roots) noexcept
{
  const std::size_t part = roots.blocks * blockWords;
  multiplyPart(a, b, roots.prime->one, roots);
  if (!roots.hasThreeParts)
    return;
  multiplyPart(a + part, b + part, roots.factors->twist, roots);
  multiplyPart(a + 2 * part, b + 2 * part, roots.factors->twistSquared, roots);
}

// Garner's method: each digit is what is still missing, times the reciprocal of the primes already done.
inline void combine(const std::uint32_t* first, std::uint32_t* second, std::uint32_t* third,
                    std::size_t length) noexcept
{
  const Register p1 = everywhere(primes[1].p), twoP1 = everywhere(2 * primes[1].p);
  const Register p2 = everywhere(primes[2].p), twoP2 = everywhere(2 * primes[2].p);
  constexpr std::uint32_t byP1Alone = primes[2].reciprocal(primes[1].p % primes[2].p);
  constexpr Factor p0Away = primes[1].factor(primes[1].reciprocal(primes[0].p % primes[1].p));
  constexpr Factor p1Away = primes[2].factor(byP1Alone);
  constexpr Factor bothAway =
    primes[2].factor(primes[2].times(byP1Alone, primes[2].reciprocal(primes[0].p % primes[2].p)));
  const WideFactor byP0(p0Away), byP1(p1Away), byP0P1(bothAway);
  for (std::size_t i = 0; i < length; i += lanes) {
    const Register d0 = load(first + i);
    const Register d1 = wrap(times(add(load(second + i), subtract(twoP1, d0)), byP0, p1), p1);
    const Register rest = times(add(load(third + i), subtract(twoP2, d0)), byP0P1, p2);
    const Register d2 = add(rest, subtract(twoP2, times(d1, byP1, p2)));
    store(second + i, d1);
    store(third + i, wrap(wrap(d2, twoP2), p2));
  }
}
