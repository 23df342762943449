// must_not_compile.cpp - expressions that must be errors, because they would compile into something nobody meant; and at the end
// expressions that must warn. check_must_not_compile.sh compiles this file and reads its lines.
//
// CASE=0 is the positive control: everything but the doubtful lines, and it compiles without a warning. CASE=n adds the one line
// of case n, so nothing else can be what the compiler refuses. CASE=-1 adds all of them at once; the runner then looks for an
// error on every single one of these lines and on no other, which is quicker than one compilation each.
#include <quelmcl/quelmcl.hpp>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>

#ifndef CASE
#  define CASE 0
#endif
#define FORBID(number) (CASE == (number) || CASE == -1)
#define MUST_WARN(number) (CASE == (number) || CASE == -2)

void takesTruth(bool);
void takesNumber(int);
void takesWritable(IString&);
void takesString(const IString&);
void takesStandard(const std::string&);

// A case is one line: the runner looks for its diagnostic there.
// clang-format off

// What the cases use; every case stands in braces, so that none sees the names of another.
void forbidden(IString s, IString t, const IString c, char* b, const char* p, int n);
void forbidden(IString s, IString t, const IString c, char* b, const char* p, int n)
{
  static_cast<void>(s), static_cast<void>(t), static_cast<void>(c);
  static_cast<void>(b), static_cast<void>(p), static_cast<void>(n);

  // A condition would test a pointer that is never null.
#if FORBID(101)
  if (s) std::abort();
#endif
#if FORBID(102)
  static_cast<void>(!s);
#endif
#if FORBID(103)
  static_cast<void>(s && t);
#endif
#if FORBID(104)
  while (s) std::abort();
#endif
#if FORBID(105)
  n = s ? 1 : 0;
#endif
#if FORBID(106)
  { bool truth = s; static_cast<void>(truth); }
#endif
#if FORBID(107)
  takesTruth(s);
#endif
#if FORBID(108)
  if (c) std::abort();
#endif
#if FORBID(109)
  static_cast<void>(s || t);
#endif
#if FORBID(110)
  { bool truth(c); static_cast<void>(truth); }
#endif
#if FORBID(111)
  for (; s;) std::abort();
#endif

  // There are three pointer conversions; say (char*)s.
#if FORBID(201)
  { void* q = s; static_cast<void>(q); }
#endif
#if FORBID(202)
  { const void* q = s; static_cast<void>(q); }
#endif
#if FORBID(203)
  static_cast<void>((void*)s);
#endif
#if FORBID(204)
  std::memcpy(b, s, 1);
#endif
#if FORBID(205)
  std::free(s);
#endif
#if FORBID(206)
  { IString x(s, 2); }
#endif
#if FORBID(207)
  { const void* q = c; static_cast<void>(q); }
#endif
#if FORBID(208)
  { const std::size_t length = 2; IString x(s, length); }
#endif

  // Pointer arithmetic by accident.
#if FORBID(301)
  static_cast<void>(*s);
#endif
#if FORBID(302)
  s++;
#endif
#if FORBID(303)
  static_cast<void>(s - t);
#endif
#if FORBID(304)
  static_cast<void>(0 [s]);
#endif
#if FORBID(305)
  delete s;
#endif
#if FORBID(306)
  static_cast<void>(s[1.0]);
#endif
#if FORBID(307)
  static_cast<void>(s[t]);
#endif
#if FORBID(308)
  static_cast<void>(s - 1);
#endif
#if FORBID(309)
  ++s;
#endif
#if FORBID(310)
  static_cast<void>(*c);
#endif

  // Neither a pointer nor character number 5; say IString(5).
#if FORBID(401)
  static_cast<void>(s + 5);
#endif
#if FORBID(402)
  static_cast<void>(5 + s);
#endif
#if FORBID(403)
  static_cast<void>(s + n);
#endif
#if FORBID(404)
  static_cast<void>(s + 1u);
#endif
#if FORBID(405)
  static_cast<void>(s + true);
#endif
#if FORBID(406)
  static_cast<void>(s + 0);
#endif
#if FORBID(407)
  static_cast<void>(s + NULL);
#endif
#if FORBID(408)
  static_cast<void>(0 + s);
#endif
#if FORBID(409)
  static_cast<void>(n + c);
#endif
#if FORBID(410)
  static_cast<void>(c + 1.5);
#endif
#if FORBID(411)
  static_cast<void>(s + 1L);
#endif
#if FORBID(412)
  static_cast<void>(s + sizeof n);
#endif

  // No such conversion.
#if FORBID(501)
  takesNumber(s);
#endif
#if FORBID(502)
  static_cast<void>((long)s);
#endif
#if FORBID(503)
  static_cast<void>(reinterpret_cast<char*>(s));
#endif

  // No meaning.
#if FORBID(601)
  { IString x(L"abc"); }
#endif
#if FORBID(602)
  { IString x('a', 3); }
#endif
#if FORBID(603)
  { IString x((void*)p); }
#endif

  // Strings and the standard library's turn into one another only where they are told to, and no loop writes.
#if FORBID(801)
  { std::string str = s; }
#endif
#if FORBID(802)
  { IString x = std::string("x"); }
#endif
#if FORBID(803)
  takesString(std::string("x"));
#endif
#if FORBID(804)
  takesStandard(s);
#endif
#if FORBID(805)
  *s.begin() = 'x';
#endif
#if FORBID(806)
  for (char& byte : s) byte = 'x';
#endif
#if FORBID(807)
  static_cast<void>(s == std::wstring());
#endif
#if FORBID(808)
  s += std::wstring();
#endif
#if FORBID(809)
  static_cast<void>(5 == std::string("5"));
#endif

  // Say IString::lineFrom, cout << s, a named string, a string that is not constant.
#if FORBID(701)
  std::getline(std::cin, s);
#endif
#if FORBID(702)
  s << "x";
#endif
#if FORBID(703)
  takesWritable("x");
#endif
#if FORBID(704)
  c += "x";
#endif
#if FORBID(705)
  c[1] = 'x';
#endif
}

// These compile, into something that is probably a mistake, and the compiler must say so by the warning named.
void doubtful(IString s, IString t);
void doubtful(IString s, IString t)
{
  static_cast<void>(s), static_cast<void>(t);

  // The static form is called, which leaves the string alone.
#if MUST_WARN(901)  // -Wunused-result
  s.strip(t);
#endif
#if MUST_WARN(902)  // -Wunused-result
  s.change("a", "b", "c");
#endif
#if MUST_WARN(903)  // -Wunused-result
  s.stripLeading(t);
#endif
#if MUST_WARN(904)  // -Wunused-result
  s.stripTrailing(t);
#endif
#if MUST_WARN(905)  // -Wunused-result
  IString::upperCase(s);
#endif

  // A null pointer in name only: the text is "0". Only g++ knows that NULL is not just any number.
#if MUST_WARN(906)  // -Wconversion-null g++
  { IString x(NULL); }
#endif
}
// clang-format on
