// ibase.cpp - IBase: version, texts of the root object. The message entry points stand in exceptions/imsgtext.cpp.
// Tests: tests/foundation/base_objects_test.cpp
#include <quelmcl/ibase.hpp>
#include <quelmcl/istring.hpp>

#include "foundation/address.hpp"

#include <ostream>

const IException::Severity IBase::unrecoverable;
const IException::Severity IBase::recoverable;

IString IBase::asString() const
{
  return "IBase object";
}

IString IBase::asDebugInfo() const
{
  return "IBase(@" + quelmcl::detail::hexAddress(this) + ")";
}

IBase::Version IBase::version() noexcept
{
  return {QUELMCL_VERSION_MAJOR, QUELMCL_VERSION_MINOR};
}

std::ostream& operator<<(std::ostream& stream, const IBase& object)
{
  return stream << object.asString();
}

namespace quelmcl::detail {

IString hexAddress(const void* object)
{
  const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(object);
  if constexpr (sizeof address == 4)
    return IString(static_cast<unsigned long>(address)).d2c().c2x();

  // d2c stops at 31 bits, so wider addresses take the same way without it: the bytes, most significant first, as
  // digits.
  unsigned char bytes[sizeof address];
  for (std::size_t i = 0; i < sizeof address; ++i)
    bytes[i] = static_cast<unsigned char>(address >> (8 * (sizeof address - 1 - i)));
  return IString(bytes, static_cast<unsigned>(sizeof address)).stripLeading('\0').c2x();
}

}  // namespace quelmcl::detail
