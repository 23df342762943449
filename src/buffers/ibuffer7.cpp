// ibuffer7.cpp - IBuffer, editing: each operation returns the buffer that a string is to hold afterwards. (Digit 7 is
// always editing: docs/architecture.md)
// Tests: tests/buffers/editing_test.cpp
#include <quelmcl/ibuffer.hpp>

#include "buffers/bytesearch.hpp"
#include "buffers/editing.hpp"
#include "buffers/kinds.hpp"
#include "buffers/occurrences.hpp"
#include "buffers/pieces.hpp"
#include "kernels/bytes.hpp"
#include "kernels/shortbytes.hpp"

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>

using quelmcl::detail::copyBytes;
using quelmcl::detail::editable;
using quelmcl::detail::newBufferOf;
using quelmcl::detail::stripEnds;
using quelmcl::detail::unfilled;

namespace {

/// The letters of one case, as a list and as a set.
struct Letters {
  constexpr explicit Letters(const char* all) : list(all), set(all, count) {}

  /// The position of the first of them in a text, or 0. Where our own kinds look for them, they are bytes.
  unsigned firstIn(const IBuffer& buffer) const
  {
    return quelmcl::detail::isOwnKind(buffer)
             ? quelmcl::detail::firstByte(buffer.contents(), buffer.length(), 1, set, true)
             : buffer.indexOfAnyOf(list, count, 1);
  }

private:
  enum : unsigned { count = 26 };
  const char* list;
  quelmcl::detail::ByteSet set;
};

constexpr Letters upperLetters("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
constexpr Letters lowerLetters("abcdefghijklmnopqrstuvwxyz");

/// A text that an operation reads while it writes to `edited`: the text itself, or a copy when the two overlap.
class StableText {
public:
  StableText(const char* text, unsigned length, const IBuffer& edited) : stable(text)
  {
    const std::less<const char*> before;
    const char* const end = edited.contents() + edited.length();
    if (length == 0 || !before(text, end) || !before(edited.contents(), text + length))
      return;
    copy.reset(new char[length]);
    std::memcpy(copy.get(), text, length);
    stable = copy.get();
  }
  const char* get() const noexcept { return stable; }

private:
  const char* stable;
  std::unique_ptr<char[]> copy;
};

}  // namespace

// ---- fitting into a length ----

IBuffer* IBuffer::center(unsigned newLength, char padCharacter)
{
  if (newLength == len)
    return addRef();

  if (newLength < len) {
    const unsigned cutLeft = (len - newLength) >> 1;  // an odd surplus loses its extra byte on the right
    return newBufferOf(*this, contents() + cutLeft, newLength);
  }

  const unsigned pad = newLength - len;
  const unsigned padLeft = pad >> 1;  // an odd pad puts its extra byte on the right
  return newBuffer(nullptr, padLeft, contents(), len, nullptr, pad - padLeft, padCharacter);
}

IBuffer* IBuffer::leftJustify(unsigned newLength, char padCharacter)
{
  if (newLength == len)
    return addRef();
  const unsigned kept = std::min(len, newLength);
  return newBuffer(contents(), kept, nullptr, newLength - kept, nullptr, 0, padCharacter);
}

IBuffer* IBuffer::rightJustify(unsigned newLength, char padCharacter)
{
  if (newLength == len)
    return addRef();
  const unsigned kept = std::min(len, newLength);
  return newBuffer(nullptr, newLength - kept, contents() + (len - kept), kept, nullptr, 0, padCharacter);
}

// ---- putting in, over, out ----

IBuffer* IBuffer::insert(const char* pInsert, unsigned insertLen, unsigned index, char padCharacter)
{
  if (index > len)
    return newBuffer(contents(), len, nullptr, index - len, pInsert, insertLen, padCharacter);
  if (insertLen == 0)
    return addRef();
  return newBuffer(contents(), index, pInsert, insertLen, contents() + index, len - index, padCharacter);
}

IBuffer* IBuffer::overlayWith(const char* pOverlay, unsigned overlayLen, unsigned index, char padCharacter)
{
  if (overlayLen == 0 && index <= len)
    return addRef();
  const unsigned before = std::max(index, 1u) - 1;
  if (before > len)
    return newBuffer(contents(), len, nullptr, before - len, pOverlay, overlayLen, padCharacter);
  const unsigned covered = std::min(overlayLen, len - before);
  const unsigned behind = before + covered;
  return newBuffer(contents(), before, pOverlay, overlayLen, contents() + behind, len - behind, padCharacter);
}

IBuffer* IBuffer::remove(unsigned startPos, unsigned numChars)
{
  if (startPos > len || len == 0)
    return addRef();
  const unsigned before = std::max(startPos, 1u) - 1;
  const unsigned behind = before + std::min(numChars, len - before);
  return newBuffer(contents(), before, contents() + behind, len - behind, nullptr, 0, 0);
}

IBuffer* IBuffer::copy(unsigned numCopies)
{
  if (len == 0 || numCopies == 1)
    return addRef();
  if (numCopies == 0)
    return null()->addRef();
  IBuffer* const result = unfilled(*this, checkAddition(len, checkMultiplication(numCopies - 1, len)));
  std::memcpy(result->contents(), contents(), len);
  quelmcl::detail::repeatBytes(result->contents(), len, result->length());
  return result;
}

// ---- every character ----

IBuffer* IBuffer::lowerCase()
{
  const unsigned first = upperLetters.firstIn(*this);
  if (first == 0)
    return addRef();
  IBuffer* const result = editable(this);
  quelmcl::detail::lowerAscii(result->contents() + (first - 1), len - (first - 1));
  return result;
}

IBuffer* IBuffer::upperCase()
{
  const unsigned first = lowerLetters.firstIn(*this);
  if (first == 0)
    return addRef();
  IBuffer* const result = editable(this);
  quelmcl::detail::upperAscii(result->contents() + (first - 1), len - (first - 1));
  return result;
}

IBuffer* IBuffer::reverse()
{
  if (len < 2)
    return addRef();
  IBuffer* const result = editable(this);
  quelmcl::detail::reverseBytes(result->contents(), len);
  return result;
}

IBuffer* IBuffer::translate(const char* pInputChars, unsigned inputLen, const char* pOutputChars, unsigned outputLen,
                            char padCharacter)
{
  const unsigned first = indexOfAnyOf(pInputChars, inputLen, 1);
  if (first == 0)
    return addRef();
  const quelmcl::detail::ByteMap map(pInputChars, inputLen, pOutputChars, outputLen, padCharacter);
  IBuffer* const result = editable(this);
  map.apply(result->contents() + (first - 1), len - (first - 1));
  return result;
}

// ---- both ends ----

IBuffer* IBuffer::strip(const char* pChars, unsigned count, IStringEnum::StripMode mode)
{
  return stripEnds(
    this, mode, [&] { return indexOfAnyBut(pChars, count, 1); }, [&] { return lastIndexOfAnyBut(pChars, count, len); });
}

IBuffer* IBuffer::strip(const IStringTest& aTest, IStringEnum::StripMode mode)
{
  return stripEnds(
    this, mode, [&] { return indexOfAnyBut(aTest, 1); }, [&] { return lastIndexOfAnyBut(aTest, len); });
}

// ---- change ----

namespace {

unsigned changedLength(unsigned length, unsigned count, unsigned patternLen, unsigned replacementLen)
{
  if (replacementLen <= patternLen)
    return length - count * (patternLen - replacementLen);
  return IBuffer::checkAddition(length, IBuffer::checkMultiplication(count, replacementLen - patternLen));
}

}  // namespace

// A pass over the occurrences where the length stays; otherwise one to count them, and one to build the result, which
// searches once more only where there are very many.
IBuffer* IBuffer::change(const char* pPattern, unsigned patternLen, const char* pReplacement, unsigned replacementLen,
                         unsigned startPos, unsigned numChanges)
{
  const StableText pattern(pPattern, patternLen, *this);
  const StableText replacement(pReplacement, replacementLen, *this);
  quelmcl::detail::Occurrences counting(*this, pattern.get(), patternLen, startPos, numChanges);
  const unsigned first = counting.next();
  if (first == 0)
    return addRef();

  if (patternLen == replacementLen) {
    IBuffer* const result = editable(this);
    for (unsigned pos = first; pos != 0;) {
      char* const place = result->contents() + (pos - 1);
      pos = counting.next();  // before anything is written here: the search may look at the pattern once more
      copyBytes(place, replacement.get(), replacementLen);
    }
    return result;
  }

  quelmcl::detail::CountedOccurrences places(counting, first);
  IBuffer* const result = unfilled(*this, changedLength(len, places.count(), patternLen, replacementLen));
  char* end = result->contents();
  unsigned done = 0;
  for (unsigned i = 0; i < places.count(); ++i) {
    const unsigned before = places[i] - 1;
    end = copyBytes(end, contents() + done, before - done);
    end = copyBytes(end, replacement.get(), replacementLen);
    done = before + patternLen;
  }
  copyBytes(end, contents() + done, len - done);
  return result;
}
