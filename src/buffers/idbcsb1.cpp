// idbcsb1.cpp - IDBCSBuffer, tests and character rules. (Digit 1 is always tests: docs/architecture.md)
// Tests: tests/buffers/multibyte_rules_test.cpp
#include <quelmcl/idbcsb.hpp>

#include "buffers/characterlist.hpp"
#include "buffers/characterset.hpp"

#include <cstdlib>
#include <cstring>

using quelmcl::detail::Character;
using quelmcl::detail::CharacterList;
using quelmcl::detail::CharacterSet;
using quelmcl::detail::CharacterWalk;

// ---- one character ----

unsigned IDBCSBuffer::charLength(const char* p)
{
  return CharacterSet::current().length(p);
}

unsigned IDBCSBuffer::charLength(unsigned pos) const
{
  return charLength(contents() + (pos - 1));
}

unsigned IDBCSBuffer::maxCharLength()
{
  return static_cast<unsigned>(MB_CUR_MAX);
}

int IDBCSBuffer::isSBC(const char* p)
{
  return charLength(p) == 1;
}

char* IDBCSBuffer::next(const char* p)
{
  return const_cast<char*>(p) + charLength(p);
}

const char* IDBCSBuffer::next(const char* p) const
{
  return p + charLength(p);
}

IStringEnum::CharType IDBCSBuffer::charType(unsigned pos) const
{
  if (pos == 0)
    return IStringEnum::sbcs;
  const Character at = CharacterWalk(CharacterSet::current(), contents()).holding(pos - 1);
  return at.length == 1 ? IStringEnum::sbcs : static_cast<IStringEnum::CharType>(pos - at.offset);
}

unsigned IDBCSBuffer::prevCharLength(unsigned pos) const
{
  if (pos == 1)
    return 1;
  const unsigned type = static_cast<unsigned>(charType(pos - 1));
  return type == 0 ? 1 : type;
}

int IDBCSBuffer::isCharValid(unsigned pos, const char* pValidChars, unsigned numValidChars) const
{
  const CharacterSet set = CharacterSet::current();
  const char* const p = contents() + (pos - 1);
  return CharacterList(set, pValidChars, numValidChars).has(p, set.length(p));
}

// ---- all characters ----

namespace {

/// Whether `claim` holds for every character of a text, given where it begins and its length.
template <class Claim>
bool isEvery(const IBuffer& buffer, Claim claim)
{
  const auto isOther = [&](const char* p, unsigned length) { return !claim(p, length); };
  return CharacterSet::current().firstWhere(buffer.contents(), 0, buffer.length(), isOther) == quelmcl::detail::nowhere;
}

}  // namespace

int IDBCSBuffer::isSBCS() const
{
  const CharacterSet set = CharacterSet::current();
  if (set.hasWholeAscii() && quelmcl::detail::vectors().asciiPrefix(contents(), len) == len)
    return true;
  return isEvery(*this, [](const char*, unsigned length) { return length == 1; });
}

int IDBCSBuffer::isMBCS() const
{
  return isEvery(*this, [](const char*, unsigned length) { return length > 1; });
}

int IDBCSBuffer::isDBCS() const
{
  return isMBCS();
}

int IDBCSBuffer::isValidMBCS() const
{
  return isEvery(*this,
                 [](const char* p, unsigned length) { return length > 1 && std::memchr(p, '\0', length) == nullptr; });
}

int IDBCSBuffer::isValidDBCS() const
{
  return isValidMBCS();
}

int IDBCSBuffer::includesMBCS() const
{
  return !isSBCS();
}

int IDBCSBuffer::includesDBCS() const
{
  return includesMBCS();
}

int IDBCSBuffer::includesSBCS() const
{
  return !isDBCS();
}
