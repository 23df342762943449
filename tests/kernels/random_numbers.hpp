// random_numbers.hpp - numbers of any length with what makes arithmetic fail: runs of zeros and of ones.
#ifndef QUELMCL_TESTS_KERNELS_RANDOM_NUMBERS_HPP
#define QUELMCL_TESTS_KERNELS_RANDOM_NUMBERS_HPP

#include "kernels/limbs.hpp"
#include "support/random_texts.hpp"

#include <cstddef>
#include <vector>

namespace kerneltests {

using Number = std::vector<quelmcl::detail::Limb>;

class RandomNumbers : public quelmcl_test::RandomTexts {
public:
  Number number(std::size_t length)
  {
    const unsigned kind = below(4);  // 0: any bits; otherwise limbs that are mostly all zeros or all ones
    Number result(length);
    for (quelmcl::detail::Limb& limb : result)
      limb = kind == 0 || onceIn(6) ? anyLimb() : static_cast<quelmcl::detail::Limb>(onceIn(kind) ? -1 : 0);
    return result;
  }

private:
  quelmcl::detail::Limb anyLimb()
  {
    quelmcl::detail::Limb limb = 0;
    for (unsigned i = 0; i < quelmcl::detail::limbBytes; ++i)
      limb = static_cast<quelmcl::detail::Limb>(limb << 8 | below(256));
    return limb;
  }
};

}  // namespace kerneltests

#endif
