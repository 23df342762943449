// idbcsb7.cpp - IDBCSBuffer, editing: as the single-byte kind does it, and then no character is left split. (Digit 7
// is always editing: docs/architecture.md)
// Tests: tests/buffers/multibyte_editing_test.cpp
#include <quelmcl/idbcsb.hpp>

#include "buffers/charactersearch.hpp"
#include "buffers/editing.hpp"
#include "buffers/repair.hpp"
#include "buffers/translation.hpp"
#include "kernels/bytes.hpp"

#include <cstdint>
#include <limits>

using quelmcl::detail::Character;
using quelmcl::detail::CharacterSearch;
using quelmcl::detail::CharacterSet;
using quelmcl::detail::CharacterWalk;
using quelmcl::detail::Repair;

// ---- fitting into a length ----

IBuffer* IDBCSBuffer::center(unsigned newLength, char padCharacter)
{
  if (newLength >= len)
    return IBuffer::center(newLength, padCharacter);
  const unsigned cutLeft = (len - newLength) >> 1;
  CharacterWalk walk(CharacterSet::current(), contents());
  const unsigned kept = static_cast<unsigned>(walk.holding(cutLeft).offset);
  IBuffer* const result = newBuffer(contents() + kept, newLength, nullptr, 0, nullptr, 0, padCharacter);
  Repair(*this, result).cutAtEnd(kept + newLength, newLength, newLength, padCharacter);
  return result;
}

IBuffer* IDBCSBuffer::leftJustify(unsigned newLength, char padCharacter)
{
  IBuffer* const result = IBuffer::leftJustify(newLength, padCharacter);
  if (newLength < len)
    Repair(*this, result).cutAtEnd(newLength, newLength, newLength, padCharacter);
  return result;
}

IBuffer* IDBCSBuffer::rightJustify(unsigned newLength, char padCharacter)
{
  IBuffer* const result = IBuffer::rightJustify(newLength, padCharacter);
  if (newLength < len)
    Repair(*this, result).cutAtFront(len - newLength, 0, newLength, padCharacter);
  return result;
}

// ---- putting in, over, out ----

IBuffer* IDBCSBuffer::insert(const char* pInsert, unsigned insertLen, unsigned index, char padCharacter)
{
  if (insertLen == 0 || index >= len)
    return IBuffer::insert(pInsert, insertLen, index, padCharacter);
  CharacterWalk walk(CharacterSet::current(), contents());
  return IBuffer::insert(pInsert, insertLen, static_cast<unsigned>(walk.holding(index).offset), padCharacter);
}

// Deliberate: the two ends are filled differently.  Test: MultiByteEditing.AnOverlayFillsWithBlanksInFrontAndPadsBehind
IBuffer* IDBCSBuffer::overlayWith(const char* pOverlay, unsigned overlayLen, unsigned index, char padCharacter)
{
  IBuffer* const result = IBuffer::overlayWith(pOverlay, overlayLen, index, padCharacter);
  const unsigned before = std::max(index, 1u) - 1;
  if (overlayLen == 0 && index <= len)
    return result;
  Repair repair(*this, result);
  repair.cutAtEnd(before, before, before, ' ');
  if (before < len && overlayLen < len - before)
    repair.cutAtFront(before + overlayLen, before + overlayLen, len, padCharacter);
  return result;
}

IBuffer* IDBCSBuffer::remove(unsigned startPos, unsigned numChars)
{
  IBuffer* const result = IBuffer::remove(startPos, numChars);
  if (startPos > len || len == 0)
    return result;
  const unsigned before = std::max(startPos, 1u) - 1;
  Repair repair(*this, result);
  repair.cutAtEnd(before, before, before, ' ');
  if (numChars < len - before)
    repair.cutAtFront(before + numChars, before, len, ' ');
  return result;
}

// ---- every character ----

namespace {

/// Applies `change` to every character of one byte for which `claim` holds, in place for a sole owner. The change
/// must leave the bytes that characters are told by as they are.
template <class Claim, class Change>
IBuffer* editOneByteCharacters(IBuffer* buffer, Claim claim, Change change)
{
  IBuffer* result = nullptr;
  CharacterWalk walk(CharacterSet::current(), buffer->contents());
  for (Character at = walk.holding(0); at.offset < buffer->length(); at = walk.holding(at.end())) {
    if (at.length > 1 || !claim(buffer->contents()[at.offset]))
      continue;
    if (result == nullptr)
      result = quelmcl::detail::editable(buffer);
    change(result->contents() + at.offset, 1);
  }
  return result == nullptr ? buffer->addRef() : result;
}

/// Whether letters are found byte by byte: no byte of a longer character can be one.
bool lettersAreBytes()
{
  const CharacterSet set = CharacterSet::current();
  return set.isUtf8() || set.isSingleByte();
}

}  // namespace

IBuffer* IDBCSBuffer::lowerCase()
{
  if (lettersAreBytes())
    return IBuffer::lowerCase();
  return editOneByteCharacters(this, quelmcl::detail::isAsciiUpper, quelmcl::detail::lowerAscii);
}

IBuffer* IDBCSBuffer::upperCase()
{
  if (lettersAreBytes())
    return IBuffer::upperCase();
  return editOneByteCharacters(this, quelmcl::detail::isAsciiLower, quelmcl::detail::upperAscii);
}

IBuffer* IDBCSBuffer::reverse()
{
  if (len < 2)
    return addRef();
  IBuffer* const result = allocate(len);
  const CharacterSet set = CharacterSet::current();
  char* front = result->contents() + len;
  for (unsigned offset = 0; offset < len;) {
    const unsigned length = set.length(contents() + offset);
    front -= length;
    std::memcpy(front, contents() + offset, length);
    offset += length;
  }
  return result;
}

IBuffer* IDBCSBuffer::translate(const char* pInputChars, unsigned inputLen, const char* pOutputChars,
                                unsigned outputLen, char padCharacter)
{
  const CharacterSet set = CharacterSet::current();
  const quelmcl::detail::Translation table(set, pInputChars, inputLen, pOutputChars, outputLen, padCharacter);

  std::int64_t added = 0;
  CharacterWalk measuring(set, contents());
  for (Character at = measuring.holding(0); at.offset < len; at = measuring.holding(at.end()))
    if (const auto* const entry = table.entryFor(contents() + at.offset, at.length))
      added += entry->difference;
  if (added < 0 || added > std::numeric_limits<unsigned>::max())
    overflow();

  IBuffer* const result = newBuffer(contents(), len, nullptr, static_cast<unsigned>(added), nullptr, 0, ' ');
  char* end = result->contents();
  unsigned done = 0;
  const auto append = [&end](const char* bytes, std::size_t count) {
    std::memcpy(end, bytes, count);
    end += count;
  };
  CharacterWalk filling(set, contents());
  for (Character at = filling.holding(0); at.offset < len; at = filling.holding(at.end())) {
    const auto* const entry = table.entryFor(contents() + at.offset, at.length);
    if (entry == nullptr)
      continue;
    append(contents() + done, at.offset - done);
    append(entry->out, entry->outLen);
    done = static_cast<unsigned>(at.end());
  }
  // Deliberate: the rest ends with its first NUL; behind it stands what stood there in the text made longer by blanks.
  // Test: MultiByteEditing.ATranslationTakesTheRestOverUpToItsFirstNul
  if (len > 0)
    append(contents() + done, strnlen(contents() + done, len - done) + 1);
  return result;
}

// ---- both ends ----

namespace {

/// The position of the last byte of the character that begins at `pos`; 0 for 0.
unsigned lastByteOf(const IBuffer& buffer, unsigned pos)
{
  return pos == 0 ? 0 : pos + CharacterSet::current().length(buffer.contents() + (pos - 1)) - 1;
}

}  // namespace

IBuffer* IDBCSBuffer::strip(const char* pChars, unsigned count, IStringEnum::StripMode mode)
{
  return quelmcl::detail::stripEnds(
    this, mode, [&] { return indexOfAnyBut(pChars, count, 1); },
    [&] { return lastByteOf(*this, lastIndexOfAnyBut(pChars, count, len)); });
}

IBuffer* IDBCSBuffer::strip(const IStringTest& aTest, IStringEnum::StripMode mode)
{
  return quelmcl::detail::stripEnds(
    this, mode, [&] { return indexOfAnyBut(aTest, 1); },
    [&] { return lastByteOf(*this, lastIndexOfAnyBut(aTest, len)); });
}
