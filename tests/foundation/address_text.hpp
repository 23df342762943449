/// @file address_text.hpp
/// What the debug texts are expected to show of an address.
#ifndef QUELMCL_TESTS_FOUNDATION_ADDRESS_TEXT_HPP
#define QUELMCL_TESTS_FOUNDATION_ADDRESS_TEXT_HPP

#include <cstdint>
#include <cstdio>
#include <string>

/// The bytes of an address, two upper-case digits each, without leading zero bytes. At 32 bits the way there goes through a
/// signed word, which ends at 7FFFFFFF.
inline std::string addressText(const void* object)
{
  std::uintptr_t address = reinterpret_cast<std::uintptr_t>(object);
  if (sizeof address == 4 && address > 0x7FFFFFFFu)
    address = 0x7FFFFFFFu;

  std::string digits;
  do {
    char byte[3];
    std::snprintf(byte, sizeof byte, "%02X", static_cast<unsigned>(address & 0xFFu));
    digits.insert(0, byte);
    address >>= 8;
  } while (address != 0);
  return digits;
}

#endif
