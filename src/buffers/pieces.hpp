// pieces.hpp - the pieces that texts are put together from: bytes, or a run of one character where there is no pointer.
#ifndef QUELMCL_SRC_BUFFERS_PIECES_HPP
#define QUELMCL_SRC_BUFFERS_PIECES_HPP

#include <cstring>

namespace quelmcl::detail {

/// The longest text that a buffer can hold.
inline constexpr unsigned longestText = 4294967274u;

/// Writes a piece and returns the place behind it.
inline char* writePiece(char* place, const void* piece, unsigned length, char padCharacter) noexcept
{
  if (length == 0)
    return place;
  if (piece == nullptr)
    std::memset(place, padCharacter, length);
  else
    std::memcpy(place, piece, length);
  return place + length;
}

}  // namespace quelmcl::detail

#endif
