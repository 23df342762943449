// idbcsb7.cpp - IDBCSBuffer, editing: as the single-byte kind does it, and then no character is left split. (Digit 7
// is always editing: docs/architecture.md)
// Tests: tests/buffers/multibyte_editing_test.cpp
#include <quelmcl/idbcsb.hpp>

#include "buffers/editing.hpp"
#include "buffers/repair.hpp"
#include "buffers/translation.hpp"
#include "kernels/bytes.hpp"

#include <cstdint>
#include <limits>

using quelmcl::detail::asciiBlock;
using quelmcl::detail::ByteMap;
using quelmcl::detail::CharacterSet;
using quelmcl::detail::CharacterWalk;
using quelmcl::detail::newBufferOf;
using quelmcl::detail::nowhere;
using quelmcl::detail::Repair;
using quelmcl::detail::reverseAsciiBlocks;
using quelmcl::detail::Translation;
using quelmcl::detail::transTable;

// ---- fitting into a length ----

IBuffer* IDBCSBuffer::center(unsigned newLength, char padCharacter)
{
  if (newLength >= len)
    return IBuffer::center(newLength, padCharacter);
  const unsigned cutLeft = (len - newLength) >> 1;
  CharacterWalk walk(CharacterSet::current(), contents());
  const unsigned kept = static_cast<unsigned>(walk.holding(cutLeft).offset);
  IBuffer* const result = newBufferOf(*this, contents() + kept, newLength);
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
  const CharacterSet set = CharacterSet::current();
  const auto isWanted = [&](const char* p, unsigned length) { return length == 1 && claim(*p); };
  std::size_t found = set.firstWhere(buffer->contents(), 0, buffer->length(), isWanted);
  if (found == nowhere)
    return buffer->addRef();
  IBuffer* const result = quelmcl::detail::editable(buffer);
  for (; found != nowhere; found = set.firstWhere(result->contents(), found + 1, result->length(), isWanted))
    change(result->contents() + found, 1);
  return result;
}

}  // namespace

IBuffer* IDBCSBuffer::lowerCase()
{
  if (CharacterSet::current().isSelfSynchronizing())
    return IBuffer::lowerCase();
  return editOneByteCharacters(this, quelmcl::detail::isAsciiUpper, quelmcl::detail::lowerAscii);
}

IBuffer* IDBCSBuffer::upperCase()
{
  if (CharacterSet::current().isSelfSynchronizing())
    return IBuffer::upperCase();
  return editOneByteCharacters(this, quelmcl::detail::isAsciiLower, quelmcl::detail::upperAscii);
}

namespace {

/// Copies one character. Most have so few bytes that a call would cost more than the copy.
void copyCharacter(const char* from, unsigned length, char* to)
{
  to[0] = from[0];
  if (length > 1)
    to[1] = from[1];
  if (length > 2)
    to[2] = from[2];
  if (length > 3)
    std::memcpy(to + 3, from + 3, length - 3);
}

}  // namespace

IBuffer* IDBCSBuffer::reverse()
{
  if (len < 2)
    return addRef();
  IBuffer* const result = allocate(len);
  const CharacterSet set = CharacterSet::current();
  const char* const end = contents() + len;
  char* to = result->contents() + len;
  for (const char* from = contents(); from < end;) {
    const std::size_t blocks = set.hasWholeAscii() ? reverseAsciiBlocks(from, end, to) : 0;
    from += blocks;
    to -= blocks;
    for (const char* const stop = std::min(from + asciiBlock, end); from < stop;) {
      const unsigned length = set.length(from);
      to -= length;
      copyCharacter(from, length, to);
      from += length;
    }
  }
  return result;
}

IBuffer* IDBCSBuffer::translate(const char* pInputChars, unsigned inputLen, const char* pOutputChars,
                                unsigned outputLen, char padCharacter)
{
  const CharacterSet set = CharacterSet::current();
  const Translation table(set, pInputChars, inputLen, pOutputChars, outputLen, padCharacter);
  if (table.isOfBytes()) {
    IBuffer* const result = newBufferOf(*this, contents(), len);
    ByteMap(pInputChars, inputLen, pOutputChars, outputLen, padCharacter).apply(result->contents(), len);
    return result;
  }

  const auto forEachTranslated = [&](auto visit) {
    set.forEachWithHead(contents(), len, table.headBytes(), [&](const char* p, unsigned length) {
      if (const transTable* const entry = table.entryFor(p, length))
        visit(p, *entry);
    });
  };

  if (table.keepsLengths()) {
    IBuffer* const result = newBufferOf(*this, contents(), len);
    forEachTranslated([&](const char* p, const transTable& entry) {
      copyCharacter(entry.out, entry.outLen, result->contents() + (p - contents()));
    });
    return result;
  }

  std::int64_t added = 0;
  forEachTranslated([&](const char*, const transTable& entry) { added += entry.difference; });
  if (added < 0 || added > std::numeric_limits<unsigned>::max())
    overflow();

  IBuffer* const result = newBuffer(contents(), len, nullptr, static_cast<unsigned>(added), nullptr, 0, ' ');
  char* end = result->contents();
  const char* rest = contents();
  const auto append = [&end](const char* bytes, std::size_t count) {
    std::memcpy(end, bytes, count);
    end += count;
  };
  forEachTranslated([&](const char* p, const transTable& entry) {
    append(rest, static_cast<std::size_t>(p - rest));
    copyCharacter(entry.out, entry.outLen, end);
    end += entry.outLen;
    rest = p + entry.inLen;
  });
  // Deliberate: the rest ends with its first NUL; behind it stands what stood there in the text made longer by blanks.
  // Test: MultiByteEditing.ATranslationTakesTheRestOverUpToItsFirstNul
  if (len > 0)
    append(rest, strnlen(rest, static_cast<std::size_t>(contents() + len - rest)) + 1);
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
