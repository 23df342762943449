// copies.cpp - a program that is linked with the library and opens another copy of it on top.
// usage: copies COPY
#include <quelmcl/quelmcl.hpp>

#include "exhaustion.hpp"

#include <cstdio>
#include <dlfcn.h>

namespace {

void useTheLibrary(const char* moment)
{
  const ITrace trace(moment);
  try {
    askForTooMuch();
  } catch (const IOutOfMemory& failure) {
    ITrace::write(IString("caught ") + failure.text() + " recoverable: " + IString(failure.isRecoverable()));
  }
  try {
    const IString text("abc");
    ITrace::write(IString(text[7]));
  } catch (const IException& failure) {
    ITrace::write(IString("caught ") + failure.name());
  }
}

}  // namespace

int main(int, char** argv)
{
  useTheLibrary("one");
  void* const copy = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (copy == nullptr) {
    std::fprintf(stderr, "copies: %s\n", dlerror());
    return 1;
  }
  useTheLibrary("two");
  dlclose(copy);
  useTheLibrary("one of two is closed");
}
