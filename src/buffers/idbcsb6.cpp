// idbcsb6.cpp - IDBCSBuffer, searching: each search once through the characters of the text. (Digit 6 is always
// searching: docs/architecture.md)
// Tests: tests/buffers/multibyte_search_test.cpp
#include <quelmcl/idbcsb.hpp>

#include "buffers/charactersearch.hpp"

using quelmcl::detail::CharacterSearch;

unsigned IDBCSBuffer::startSearch(unsigned startPos, unsigned searchLen) const
{
  return CharacterSearch(*this).startSearch(startPos, searchLen);
}

unsigned IDBCSBuffer::startBackwardsSearch(unsigned startPos, unsigned searchLen) const
{
  return CharacterSearch(*this).startBackwardsSearch(startPos, searchLen);
}

unsigned IDBCSBuffer::indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const
{
  return CharacterSearch(*this).indexOf(pSearchString, searchLen, startPos);
}

unsigned IDBCSBuffer::indexOf(const IStringTest& test, unsigned startPos) const
{
  return indexOfAnyOf(test, startPos);
}

unsigned IDBCSBuffer::lastIndexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const
{
  return CharacterSearch(*this).lastIndexOf(pSearchString, searchLen, startPos);
}

unsigned IDBCSBuffer::lastIndexOf(const IStringTest& test, unsigned startPos) const
{
  return lastIndexOfAnyOf(test, startPos);
}

unsigned IDBCSBuffer::indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  return CharacterSearch(*this).indexOfAnyBut(pValidChars, numValidChars, startPos);
}

unsigned IDBCSBuffer::indexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  return CharacterSearch(*this).indexOfAnyBut(test, startPos);
}

unsigned IDBCSBuffer::indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  return CharacterSearch(*this).indexOfAnyOf(pValidChars, numValidChars, startPos);
}

unsigned IDBCSBuffer::indexOfAnyOf(const IStringTest& test, unsigned startPos) const
{
  return CharacterSearch(*this).indexOfAnyOf(test, startPos);
}

unsigned IDBCSBuffer::lastIndexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  return CharacterSearch(*this).lastIndexOfAnyBut(pValidChars, numValidChars, startPos);
}

unsigned IDBCSBuffer::lastIndexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  return CharacterSearch(*this).lastIndexOfAnyBut(test, startPos);
}

unsigned IDBCSBuffer::lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  return CharacterSearch(*this).lastIndexOfAnyOf(pValidChars, numValidChars, startPos);
}

unsigned IDBCSBuffer::lastIndexOfAnyOf(const IStringTest& test, unsigned startPos) const
{
  return CharacterSearch(*this).lastIndexOfAnyOf(test, startPos);
}
