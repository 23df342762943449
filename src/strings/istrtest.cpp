// istrtest.cpp - IStringTest, a predicate over characters.
// Tests: tests/strings/character_test_test.cpp
#include <quelmcl/istrtest.hpp>

IStringTest::IStringTest(int (*cFn)(int)) : type(c)
{
  data.cFn = cFn;
}

IStringTest::IStringTest(FnType kind, void* userData) : type(kind)
{
  data.user = userData;
}

IStringTest::~IStringTest() = default;

int IStringTest::test(int character) const
{
  return type == c ? data.cFn(character) : 0;
}
