// allocations.cpp - counts what a piece of work takes from the heap. Loaded in front of a benchmark program for one round
// that is not timed (LD_PRELOAD), so that nothing of it stands in the way of the rounds that are.
//
// Whoever allocates goes through these four functions in the end: operator new, the C library, every peer.
#include "allocations.hpp"

#include <cstddef>
#include <cstdint>
#include <malloc.h>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

bool isCounting = false;
bench::Allocations counted;
std::ptrdiff_t inUse;  // below 0 when blocks from before were given back

void* taken(void* block)
{
  if (!isCounting || block == nullptr)
    return block;
  ++counted.blocks;
  inUse += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
  if (inUse > 0 && static_cast<std::size_t>(inUse) > counted.peakBytes)
    counted.peakBytes = static_cast<std::size_t>(inUse);
  return block;
}

void givenBack(void* block)
{
  if (isCounting && block != nullptr)
    inUse -= static_cast<std::ptrdiff_t>(malloc_usable_size(block));
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) void benchStartCounting()
{
  counted = bench::Allocations();
  inUse = 0;
  isCounting = true;
}

__attribute__((visibility("default"))) bench::Allocations benchStopCounting()
{
  isCounting = false;
  return counted;
}

__attribute__((visibility("default"))) void* malloc(std::size_t size) noexcept
{
  return taken(__libc_malloc(size));
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) noexcept
{
  return taken(__libc_calloc(count, size));
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) noexcept
{
  givenBack(block);
  return taken(__libc_realloc(block, size));
}

__attribute__((visibility("default"))) void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
  return taken(__libc_memalign(alignment, size));
}

__attribute__((visibility("default"))) void free(void* block) noexcept
{
  givenBack(block);
  __libc_free(block);
}
}
