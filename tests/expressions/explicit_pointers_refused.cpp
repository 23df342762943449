// explicit_pointers_refused.cpp - expressions that a program gives up which has asked for explicit pointer conversions.
// check_must_not_compile.sh compiles this file and reads its lines; how: must_not_compile.cpp.
#define QUELMCL_EXPLICIT_POINTERS
#include <quelmcl/quelmcl.hpp>

#include <cstdlib>
#include <cstring>
#include <string>

#ifndef CASE
#  define CASE 0
#endif
#define FORBID(number) (CASE == (number) || CASE == -1)
#define MUST_WARN(number) (CASE == (number) || CASE == -2)

// A case is one line: the runner looks for its diagnostic there.
// clang-format off

void forbidden(IString s, const IString c);
void forbidden(IString s, const IString c)
{
  static_cast<void>(s), static_cast<void>(c);

#if FORBID(101)
  { char* q = s; static_cast<void>(q); }
#endif
#if FORBID(102)
  { const char* q = c; static_cast<void>(q); }
#endif
#if FORBID(103)
  { unsigned char* q = s; static_cast<void>(q); }
#endif
#if FORBID(104)
  static_cast<void>(std::strlen(s));
#endif
#if FORBID(105)
  static_cast<void>(std::getenv(c));
#endif
#if FORBID(106)
  if (s) std::abort();
#endif
#if FORBID(107)
  static_cast<void>(!c);
#endif
#if FORBID(108)
  { void* q = s; static_cast<void>(q); }
#endif
#if FORBID(109)
  static_cast<void>(*s);
#endif
#if FORBID(110)
  { std::string str = s; }
#endif
#if FORBID(111)
  { IString x(s, 2); }
#endif
}

// Nothing is lost of what warns.
void doubtful(IString s, IString t);
void doubtful(IString s, IString t)
{
  static_cast<void>(s), static_cast<void>(t);
#if MUST_WARN(901)  // -Wunused-result
  s.strip(t);
#endif
}
// clang-format on
