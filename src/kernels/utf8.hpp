// utf8.hpp - where characters of UTF-8 begin and end.
// Tests: tests/buffers/utf8_agreement_test.cpp
#ifndef QUELMCL_SRC_KERNELS_UTF8_HPP
#define QUELMCL_SRC_KERNELS_UTF8_HPP

#include <cstddef>

namespace quelmcl::detail {

/// Whether a byte continues a character that an earlier one began.
constexpr bool isUtf8Continuation(char byte) noexcept
{
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many bytes a character has that begins with this one, by that byte alone; 1 for bytes that begin none of
/// several. As in the C library up to 6, although Unicode ends at 4.
constexpr unsigned utf8AnnouncedLength(char lead) noexcept
{
  const unsigned char byte = static_cast<unsigned char>(lead);
  if (byte < 0xC2 || byte > 0xFD)
    return 1;
  return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : byte < 0xF8 ? 4 : byte < 0xFC ? 5 : 6;
}

/// The length of the character at `p`, of which `available` (at least one) bytes may be looked at: 1 for a byte that
/// begins no sound and complete character. Sound is what the C library takes for it: the shortest form, no
/// surrogates, and as far as six bytes go.
inline unsigned utf8Length(const char* p, std::size_t available) noexcept
{
  const unsigned announced = utf8AnnouncedLength(p[0]);
  if (announced > available)
    return 1;
  if (announced <= 2)  // nearly all there are; none of them is longer than need be or a surrogate
    return announced == 2 && isUtf8Continuation(p[1]) ? 2 : 1;
  const unsigned char lead = static_cast<unsigned char>(p[0]);
  if (announced == 3 && lead != 0xE0 && lead != 0xED)  // nor is any of these
    return isUtf8Continuation(p[1]) && isUtf8Continuation(p[2]) ? 3 : 1;
  for (unsigned i = 1; i < announced; ++i)
    if (!isUtf8Continuation(p[i]))
      return 1;
  // Longer than need be: the bits that the second byte must have at least, when the first has none of its own.
  const unsigned char second = static_cast<unsigned char>(p[1]);
  const bool isOverlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90) ||
                          (lead == 0xF8 && second < 0x88) || (lead == 0xFC && second < 0x84);
  const bool isSurrogate = lead == 0xED && second >= 0xA0;
  return isOverlong || isSurrogate ? 1 : announced;
}

}  // namespace quelmcl::detail

#endif
