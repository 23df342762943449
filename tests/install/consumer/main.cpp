// A program of somebody else: a text, the library's version, an error with its message from the catalog, and an exhausted heap.
#include <quelmcl/quelmcl.hpp>

#include <cstddef>
#include <iostream>
#include <new>

int main()
{
  IString s("hello");
  s.upperCase();
  std::cout << s << ' ' << s.length() << '\n';

  const IBase::Version version = IBase::version();
  std::cout << "version " << version.major << '.' << version.minor << '\n';

  try {
    const IString c("abc");
    std::cout << c[4] << '\n';
  } catch (const IInvalidRequest& e) {
    std::cout << e.errorId() << ": " << e.text(0) << '\n';
  }

  try {
    volatile std::size_t tooMuch = static_cast<std::size_t>(-1) / 2 + 1;
    ::operator delete(::operator new(tooMuch));
  } catch (const IOutOfMemory& e) {
    std::cout << e.errorId() << ": " << e.text(0) << '\n';
  }
}
