// A program of somebody else: a text, the library's version, and an error with its message from the catalog.
#include <quelmcl/quelmcl.hpp>

#include <iostream>

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
}
