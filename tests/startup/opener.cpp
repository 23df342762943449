// opener.cpp - a program that knows the library by its file name only: opens it, exhausts the heap, closes it, exhausts the heap.
// usage: opener LIBRARY...
#include "exhaustion.hpp"

#include <cstdio>
#include <cxxabi.h>
#include <dlfcn.h>
#include <new>
#include <typeinfo>

namespace {

/// Exhausts the heap and prints what is thrown.
void tellWhatIsThrown(const char* moment)
{
  try {
    askForTooMuch();
  } catch (...) {
    std::printf("%s: %s\n", moment, abi::__cxa_current_exception_type()->name());
  }
  std::fflush(stdout);
}

/// Built before any library is opened, and so gone after the libraries' own static objects.
struct Last {
  ~Last() { tellWhatIsThrown("at the very end"); }
};

Last last;

}  // namespace

int main(int argc, char** argv)
{
  tellWhatIsThrown("before");
  for (int i = 1; i < argc; ++i) {
    const std::new_handler before = std::get_new_handler();
    void* const library = dlopen(argv[i], RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
      std::fprintf(stderr, "opener: %s\n", dlerror());
      return 1;
    }
    const std::new_handler opened = std::get_new_handler();
    std::printf("opening installs %s handler\n", opened == nullptr ? "no" : opened == before ? "the same" : "a new");
    tellWhatIsThrown("open");
    dlclose(library);
    std::printf("closing leaves %s\n", std::get_new_handler() == opened ? "it" : "another");
    tellWhatIsThrown("closed");
    if (before != nullptr) {
      std::set_new_handler(before);
      tellWhatIsThrown("the one before");
    }
  }
}
