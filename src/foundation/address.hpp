// address.hpp - how debug texts show where an object lies.
// Tests: tests/foundation/base_objects_test.cpp
#ifndef QUELMCL_SRC_FOUNDATION_ADDRESS_HPP
#define QUELMCL_SRC_FOUNDATION_ADDRESS_HPP

#include <quelmcl/istring.hpp>

#include <cstddef>
#include <cstdint>

namespace quelmcl::detail {

/// The address in hexadecimal digits, two a byte. At 32 bits it goes through IString::d2c, which takes anything above
/// 2147483647 as that number.
inline IString hexAddress(const void* object)
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

/// The address in decimal digits.
inline IString decimalAddress(const void* object)
{
  return IString(static_cast<unsigned long>(reinterpret_cast<std::uintptr_t>(object)));
}

}  // namespace quelmcl::detail

#endif
