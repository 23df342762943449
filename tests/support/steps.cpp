// steps.cpp - what the compiler calls in every piece of straight code of quelmcl_counting, and what the linker puts in place of the C
// library's functions on memory.
#include "support/steps.hpp"

#include <cstddef>

namespace {

unsigned long long taken = 0;

}  // namespace

unsigned long long quelmcl_test::steps() noexcept
{
  return taken;
}

extern "C" {

void __sanitizer_cov_trace_pc();
void __sanitizer_cov_trace_pc()
{
  ++taken;
}

// Only as many bytes as were looked at count, so that a search that ends early is a short one.
#define QUELMCL_COUNTED(result, name, parameters, arguments, count) \
  result __real_##name parameters;                                  \
  result __wrap_##name parameters;                                  \
  result __wrap_##name parameters                                   \
  {                                                                 \
    result const answer = __real_##name arguments;                  \
    taken += (count);                                               \
    return answer;                                                  \
  }

QUELMCL_COUNTED(void*, memcpy, (void* to, const void* from, std::size_t size), (to, from, size), size)
QUELMCL_COUNTED(void*, memmove, (void* to, const void* from, std::size_t size), (to, from, size), size)
QUELMCL_COUNTED(void*, memset, (void* to, int byte, std::size_t size), (to, byte, size), size)
QUELMCL_COUNTED(std::size_t, strlen, (const char* text), (text), answer)
QUELMCL_COUNTED(void*, memchr, (const void* text, int byte, std::size_t size), (text, byte, size),
                answer == nullptr
                  ? size
                  : static_cast<std::size_t>(static_cast<const char*>(answer) - static_cast<const char*>(text)))
QUELMCL_COUNTED(void*, memrchr, (const void* text, int byte, std::size_t size), (text, byte, size),
                answer == nullptr
                  ? size
                  : size - static_cast<std::size_t>(static_cast<const char*>(answer) - static_cast<const char*>(text)))

// Does not tell how far it looked: the common part is gone over once more.
int __real_memcmp(const void* one, const void* other, std::size_t size);
int __wrap_memcmp(const void* one, const void* other, std::size_t size);
int __wrap_memcmp(const void* one, const void* other, std::size_t size)
{
  std::size_t common = 0;
  while (common < size && static_cast<const char*>(one)[common] == static_cast<const char*>(other)[common])
    ++common;
  taken += common;
  return __real_memcmp(one, other, size);
}

}  // extern "C"
