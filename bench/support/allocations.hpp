// allocations.hpp - what the counting library tells the frame. See allocations.cpp.
#ifndef QUELMCL_BENCH_ALLOCATIONS_HPP
#define QUELMCL_BENCH_ALLOCATIONS_HPP

#include <cstddef>

namespace bench {

struct Allocations {
  unsigned long blocks = 0;   ///< how often a block was taken from the heap, or changed its size
  std::size_t peakBytes = 0;  ///< the most that was held at one time, without what was held before
};

}  // namespace bench

extern "C" {
using BenchStartCounting = void();
using BenchStopCounting = bench::Allocations();
}

#endif
