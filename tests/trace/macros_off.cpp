// macros_off.cpp - trace macros as a release without traces compiles them. check_vanished.sh looks at the object file.
#define QUELMCL_TRACE_OFF
#include <quelmcl/itrace.hpp>

#include "macros_off.hpp"

int sumTracedToNowhere(int a, int b)
{
  QUELMCL_TRACE_FUNCTION();
  QUELMCL_TRACE_SCOPE("adding");
  if (a != 0)
    QUELMCL_TRACE_WRITE("a is something");
  else
    QUELMCL_TRACE_WRITE("a is nothing");
  QUELMCL_TRACE_WRITE(IString(a = 1000));
  return a + b;
}
