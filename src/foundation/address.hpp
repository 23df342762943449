// address.hpp - how debug texts show where an object lies.
#ifndef QUELMCL_SRC_FOUNDATION_ADDRESS_HPP
#define QUELMCL_SRC_FOUNDATION_ADDRESS_HPP

#include <quelmcl/istring.hpp>

#include <cstdint>

namespace quelmcl::detail {

/// The address in hexadecimal digits, two a byte. At 32 bits it goes through IString::d2c, which takes anything above
/// 2147483647 as that number.
IString hexAddress(const void* object);

/// The address in decimal digits.
inline IString decimalAddress(const void* object)
{
  return IString(static_cast<unsigned long>(reinterpret_cast<std::uintptr_t>(object)));
}

}  // namespace quelmcl::detail

#endif
