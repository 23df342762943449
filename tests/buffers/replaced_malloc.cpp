// A program with a malloc of its own sees every block: the library keeps none for itself then.
#include <quelmcl/istring.hpp>

#include <cstddef>
#include <cstdio>

extern "C" void* __libc_malloc(std::size_t size);

static unsigned asked = 0;

extern "C" void* malloc(std::size_t size) noexcept
{
  ++asked;
  return __libc_malloc(size);
}

int main()
{
  constexpr unsigned texts = 100;
  const IString first("what is made once is made before");
  asked = 0;
  for (unsigned made = 0; made < texts; ++made)
    IString("a text with a block of its own");
  if (asked == texts)
    return 0;
  std::fprintf(stderr, "%u texts took %u blocks\n", texts, asked);
  return 1;
}
