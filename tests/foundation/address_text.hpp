/// @file address_text.hpp
/// What the debug texts are expected to show of an address, and objects at addresses of the test's choice.
#ifndef QUELMCL_TESTS_FOUNDATION_ADDRESS_TEXT_HPP
#define QUELMCL_TESTS_FOUNDATION_ADDRESS_TEXT_HPP

#include <cstdint>
#include <cstdio>
#include <string>
#include <sys/mman.h>

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

/// A few bytes of storage at exactly that address, if nobody else has them.
class StorageAt {
public:
  explicit StorageAt(std::uint64_t wanted) : pages(nullptr), address(nullptr)
  {
    const std::uint64_t start = wanted & ~std::uint64_t(pageSize - 1);
    void* const startOfPages = reinterpret_cast<void*>(static_cast<std::uintptr_t>(start));
    void* const mapped = mmap(startOfPages, 2 * pageSize, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);  // a hint: nothing is thrown out
    if (mapped == MAP_FAILED)
      return;
    pages = mapped;
    if (mapped == startOfPages)
      address = reinterpret_cast<void*>(static_cast<std::uintptr_t>(wanted));
  }

  ~StorageAt()
  {
    if (pages != nullptr)
      munmap(pages, 2 * pageSize);
  }

  StorageAt(const StorageAt&) = delete;
  StorageAt& operator=(const StorageAt&) = delete;

  /// The address, or null when the system did not give it.
  void* place() const { return address; }

private:
  static const unsigned pageSize = 4096;

  void* pages;
  void* address;
};

#endif
