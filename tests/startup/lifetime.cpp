// lifetime.cpp - a program whose static objects use the library before its main function and after it: strings, traces, exceptions,
// and an exhausted heap.
#include <quelmcl/quelmcl.hpp>

#include "exhaustion.hpp"

#include <cstdio>
#include <new>

namespace {

void useEverything(const char* moment)
{
  const ITrace trace(moment);
  ITrace::write(IString("strings work ") + moment);
  try {
    QUELMCL_ASSERT_PARAMETER(moment == nullptr);
  } catch (const IInvalidParameter& failure) {
    ITrace::write(IString("caught ") + failure.name());
  }
  try {
    askForTooMuch();
  } catch (const IOutOfMemory& failure) {
    ITrace::write(IString("caught ") + failure.name() + IString(failure.errorId()) + " from " +
                  failure.locationAtIndex(0)->fileName());
  }
}

/// Built before the main function and gone after it, like any object of a program's own.
struct StaticObject {
  StaticObject()
  {
    if (std::get_new_handler() == nullptr)
      std::puts("no new-handler");
    useEverything("before main");
  }
  ~StaticObject() { useEverything("after main"); }
};

StaticObject staticObject;

}  // namespace

int main()
{
  useEverything("in main");
}
