// bytes.hpp - work on every byte of a text: case, translation, bits, filling.
// Tests: tests/kernels/bytes_test.cpp
#ifndef QUELMCL_SRC_KERNELS_BYTES_HPP
#define QUELMCL_SRC_KERNELS_BYTES_HPP

#include <cstddef>

namespace quelmcl::detail {

constexpr bool isAsciiUpper(char byte) noexcept
{
  return byte >= 'A' && byte <= 'Z';
}

constexpr bool isAsciiLower(char byte) noexcept
{
  return byte >= 'a' && byte <= 'z';
}

constexpr char lowerAsciiByte(char byte) noexcept
{
  return isAsciiUpper(byte) ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

constexpr char upperAsciiByte(char byte) noexcept
{
  return isAsciiLower(byte) ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

/// Makes the letters A to Z small. Other bytes stay, whatever the locale.
void lowerAscii(char* text, std::size_t length) noexcept;

/// Makes the letters a to z capital. Other bytes stay, whatever the locale.
void upperAscii(char* text, std::size_t length) noexcept;

void reverseBytes(char* text, std::size_t length) noexcept;

/// Turns every bit of `from` over into `to`. The two may be the same.
void complementBytes(const char* from, std::size_t length, char* to) noexcept;

/// What a translation makes of each byte.
class ByteMap {
public:
  /// Members of the input list become the byte at the same place of the output list, or `pad` where that list is
  /// shorter; the first place of a byte that is listed twice counts. All other bytes stay.
  ByteMap(const char* input, std::size_t inputLength, const char* output, std::size_t outputLength, char pad) noexcept;
  void apply(char* text, std::size_t length) const noexcept;

private:
  char map[256];
};

/// Combines every byte with one of the `keyLength` (at least one) bytes of the key, repeated as often as needed.
void andBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept;
void orBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept;
void exclusiveOrBytes(char* text, std::size_t length, const char* key, std::size_t keyLength) noexcept;

/// Fills `text` with repetitions of its first `unitLength` bytes (at least one), in as many copies as it takes to
/// double.
void repeatBytes(char* text, std::size_t unitLength, std::size_t length) noexcept;

}  // namespace quelmcl::detail

#endif
