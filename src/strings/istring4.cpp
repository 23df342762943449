// istring4.cpp - IString, concatenation and bit operations. (Digit 4 is always these: docs/architecture.md)
// Tests: tests/strings/concatenation_test.cpp
#include <quelmcl/istring.hpp>

#include "kernels/bytes.hpp"

#include <cstring>
#include <functional>

// ---- joining ----

IString IString::operator+(const IString& aString) const
{
  return IString(pBuffer, length(), aString.pBuffer, aString.length(), ' ');
}

IString IString::operator+(const char* pString) const
{
  return IString(pBuffer, length(), pString, lengthOf(pString), ' ');
}

IString operator+(const char* pString, const IString& aString)
{
  const std::size_t length = pString == nullptr ? 0 : std::strlen(pString);
  return IString(pString, length, static_cast<const char*>(aString), aString.length(), ' ');
}

IString& IString::operator+=(const IString& aString)
{
  return appendBytes(aString.pBuffer, aString.length());
}

IString& IString::operator+=(const char* pString)
{
  return appendBytes(pString, lengthOf(pString));
}

IString& IString::appendBytes(const char* text, unsigned textLength)
{
  if (textLength == 0)
    return *this;
  return adopt(buffer()->newBuffer(pBuffer, length(), text, textLength, nullptr, 0, ' '));
}

// ---- bits ----

bool IString::pointsIntoText(const char* p) const noexcept
{
  const std::less<const char*> before;
  return !before(p, pBuffer) && before(p, pBuffer + length());
}

IString& IString::applyBitOp(const char* pArg, unsigned argLen, BitOperator op)
{
  if (argLen == 0 || length() == 0)
    return *this;
  // The argument may be a part of this very text: a copy of the text keeps what it points at alive and unchanged.
  const IString argumentsOwner = pointsIntoText(pArg) ? *this : IString();
  prepareToChange();
  switch (op) {
  case bitAnd:
    quelmcl::detail::andBytes(pBuffer, length(), pArg, argLen);
    break;
  case bitOr:
    quelmcl::detail::orBytes(pBuffer, length(), pArg, argLen);
    break;
  case bitExclusiveOr:
    quelmcl::detail::exclusiveOrBytes(pBuffer, length(), pArg, argLen);
    break;
  }
  return *this;
}

IString IString::operator&(const IString& aString) const
{
  return IString(*this) &= aString;
}

IString IString::operator&(const char* pString) const
{
  return IString(*this) &= pString;
}

IString IString::operator|(const IString& aString) const
{
  return IString(*this) |= aString;
}

IString IString::operator|(const char* pString) const
{
  return IString(*this) |= pString;
}

IString IString::operator^(const IString& aString) const
{
  return IString(*this) ^= aString;
}

IString IString::operator^(const char* pString) const
{
  return IString(*this) ^= pString;
}

IString& IString::operator&=(const IString& aString)
{
  return applyBitOp(aString.pBuffer, aString.length(), bitAnd);
}

IString& IString::operator&=(const char* pString)
{
  return applyBitOp(pString, lengthOf(pString), bitAnd);
}

IString& IString::operator|=(const IString& aString)
{
  return applyBitOp(aString.pBuffer, aString.length(), bitOr);
}

IString& IString::operator|=(const char* pString)
{
  return applyBitOp(pString, lengthOf(pString), bitOr);
}

IString& IString::operator^=(const IString& aString)
{
  return applyBitOp(aString.pBuffer, aString.length(), bitExclusiveOr);
}

IString& IString::operator^=(const char* pString)
{
  return applyBitOp(pString, lengthOf(pString), bitExclusiveOr);
}

IString operator&(const char* pString, const IString& aString)
{
  return IString(pString) &= aString;
}

IString operator|(const char* pString, const IString& aString)
{
  return IString(pString) |= aString;
}

IString operator^(const char* pString, const IString& aString)
{
  return IString(pString) ^= aString;
}

IString IString::operator~() const
{
  IString result(nullptr, length(), ' ');
  quelmcl::detail::complementBytes(pBuffer, length(), result.pBuffer);
  return result;
}
