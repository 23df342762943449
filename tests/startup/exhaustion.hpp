/// @file exhaustion.hpp
/// Taking all the storage that a process may have, for real: its address space is limited and then filled.
#ifndef QUELMCL_TESTS_STARTUP_EXHAUSTION_HPP
#define QUELMCL_TESTS_STARTUP_EXHAUSTION_HPP

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <sys/resource.h>
#include <unistd.h>

/// For the length of a block, the address space of this process ends a few bytes beyond what it uses already.
class LimitedAddressSpace {
public:
  explicit LimitedAddressSpace(rlim_t more)
  {
    unsigned long pages = 0;
    std::FILE* const statistics = std::fopen("/proc/self/statm", "r");
    if (statistics == nullptr || std::fscanf(statistics, "%lu", &pages) != 1 || getrlimit(RLIMIT_AS, &before) != 0)
      std::abort();
    std::fclose(statistics);
    const rlimit narrow = {pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + more, before.rlim_max};
    if (setrlimit(RLIMIT_AS, &narrow) != 0)
      std::abort();
  }
  ~LimitedAddressSpace() { setrlimit(RLIMIT_AS, &before); }
  LimitedAddressSpace(const LimitedAddressSpace&) = delete;
  LimitedAddressSpace& operator=(const LimitedAddressSpace&) = delete;

private:
  rlimit before;
};

/// Owns every block that the heap has left, the smallest ones included.
class WholeHeap {
public:
  WholeHeap() : limit(4u << 20), last(nullptr)
  {
    for (std::size_t size = 1u << 20; size > 2048; size /= 2)
      takeAllOf(size);
    for (std::size_t size = 2048; size >= sizeof(Block); size -= 4)  // the heap keeps lists of small blocks by size
      takeAllOf(size);
  }
  ~WholeHeap()
  {
    while (last != nullptr) {
      Block* const before = last->before;
      std::free(last);
      last = before;
    }
  }
  WholeHeap(const WholeHeap&) = delete;
  WholeHeap& operator=(const WholeHeap&) = delete;

private:
  struct Block {
    Block* before;
  };

  void takeAllOf(std::size_t size)
  {
    while (void* const storage = std::malloc(size)) {
      Block* const block = static_cast<Block*>(storage);
      block->before = last;
      last = block;
    }
  }

  const LimitedAddressSpace limit;
  Block* last;
};

/// Asks for more than there is, while there are some bytes left for those who report it. What `new` throws leaves this
/// function.
inline void askForTooMuch()
{
  const LimitedAddressSpace limit(32u << 20);
  ::operator delete(::operator new(64u << 20));
}

#endif
