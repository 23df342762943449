// istrbld.cpp - IStringBuilder: growth, the ends of a text, handing over.
// Tests: tests/strings/builder_test.cpp
//
// The block is a buffer as strings have it. While it belongs to a builder its record says how long its text could be at
// most; only handing over makes that the length of the text.
#include <quelmcl/istrbld.hpp>

#include "buffers/pieces.hpp"
#include "foundation/address.hpp"
#include "strings/numbertext.hpp"

#include <algorithm>
#include <ostream>

using quelmcl::detail::longestText;
using quelmcl::detail::NumberText;
using quelmcl::detail::writePiece;

namespace {

/// For a text of `newLength` bytes that has outgrown `capacity`: twice as much, so that all copies together are about
/// as long as the text.
unsigned grownCapacity(unsigned capacity, unsigned newLength)
{
  constexpr unsigned smallest = 47;  // with its record, what the heap of 32 bits gives in one of its steps
  const unsigned doubled = capacity > longestText / 2 ? longestText : capacity * 2;
  return std::max({newLength, doubled, smallest});
}

}  // namespace

IStringBuilder::IStringBuilder(const IString& start) noexcept
  : textBegin(start), textEnd(textBegin + start.length()), blockEnd(textEnd)
{
  buffer()->addRef();
}

// ---- growth ----

/// A new block of the kind of the present one, with the first `kept` bytes of the text in it.
IBuffer* IStringBuilder::blockBeginningWith(unsigned kept, unsigned newCapacity) const
{
  const IBuffer* const like = textBegin == nullptr ? IBuffer::defaultBuffer() : buffer();
  IBuffer* const block = like->allocate(newCapacity);
  writePiece(block->contents(), text(), kept, ' ');
  return block;
}

/// Goes on in a new block, whose text ends at `newEnd`, and lets the former one go.
void IStringBuilder::hold(IBuffer* block, char* newEnd) noexcept
{
  IBuffer* const former = textBegin == nullptr ? nullptr : buffer();
  textBegin = block->contents();
  blockEnd = textBegin + block->length() + 1;
  endAt(newEnd);
  if (former != nullptr)
    former->removeRef();
}

IStringBuilder& IStringBuilder::appendPieces(const void* p1, unsigned len1, const void* p2, unsigned len2,
                                             const void* p3, unsigned len3, char padCharacter)
{
  const auto writePieces = [=](char* place) noexcept {
    place = writePiece(place, p1, len1, padCharacter);
    place = writePiece(place, p2, len2, padCharacter);
    return writePiece(place, p3, len3, padCharacter);
  };
  const unsigned added = IBuffer::checkAddition(IBuffer::checkAddition(len1, len2), len3);
  if (added == 0)
    return *this;
  if (added < room())
    return endAt(writePieces(textEnd));

  const unsigned newLength = IBuffer::checkAddition(length(), added);
  IBuffer* const block = blockBeginningWith(length(), grownCapacity(capacity(), newLength));
  hold(block, writePieces(block->contents() + length()));  // the pieces may lie in the former block
  return *this;
}

IStringBuilder& IStringBuilder::reserve(unsigned newCapacity)
{
  if (newCapacity <= capacity())
    return *this;
  IBuffer* const block = blockBeginningWith(length(), newCapacity);
  hold(block, block->contents() + length());
  return *this;
}

// ---- numbers ----

IStringBuilder& IStringBuilder::append(long number)
{
  const NumberText digits(number);
  return append(digits.bytes(), digits.length());
}

IStringBuilder& IStringBuilder::append(unsigned long number)
{
  const NumberText digits(number);
  return append(digits.bytes(), digits.length());
}

IStringBuilder& IStringBuilder::append(long long number)
{
  const NumberText digits(number);
  return append(digits.bytes(), digits.length());
}

IStringBuilder& IStringBuilder::append(unsigned long long number)
{
  const NumberText digits(number);
  return append(digits.bytes(), digits.length());
}

IStringBuilder& IStringBuilder::append(double number)
{
  const NumberText digits(number);
  return append(digits.bytes(), digits.length());
}

// ---- shorter texts ----

IStringBuilder& IStringBuilder::truncate(unsigned newLength)
{
  if (newLength >= length())
    return *this;
  if (newLength == 0)
    return clear();
  if (ownsText())
    return endAt(textBegin + newLength);
  IBuffer* const block = blockBeginningWith(newLength, newLength);
  hold(block, block->contents() + newLength);
  return *this;
}

IStringBuilder& IStringBuilder::clear() noexcept
{
  if (ownsText())
    return endAt(textBegin);
  if (textBegin != nullptr)
    *this = IStringBuilder(IString(buffer()->null()->addRef()));  // remembers the kind
  return *this;
}

// ---- the text as a string ----

IString IStringBuilder::handOver()
{
  if (textBegin == nullptr)
    return IString();
  if (length() == 0)
    return IString(buffer()->null()->addRef());

  IBuffer* const handedOver = buffer();
  if (ownsText())
    handedOver->len = length();
  forget();
  return IString(handedOver);
}

IString IStringBuilder::asString() const
{
  if (textBegin == nullptr)
    return IString();
  if (!ownsText())
    return IString(buffer()->addRef());
  return IString(quelmcl::detail::newBufferOf(*buffer(), textBegin, length()));
}

IString IStringBuilder::asDebugInfo() const
{
  return "IStringBuilder(@" + quelmcl::detail::decimalAddress(this) + ",length=" + IString(length()) +
         ",capacity=" + IString(capacity()) + ")";
}

std::ostream& operator<<(std::ostream& aStream, const IStringBuilder& builder)
{
  return aStream << builder.text();
}
