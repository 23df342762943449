// pieces.hpp - the pieces that texts are put together from: bytes, or a run of one character where there is no pointer.
#ifndef QUELMCL_SRC_BUFFERS_PIECES_HPP
#define QUELMCL_SRC_BUFFERS_PIECES_HPP

#include <quelmcl/ibuffer.hpp>

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

/// A new buffer of the kind that `model` allocates, its text still to be filled in, or the null buffer for no text.
inline IBuffer* unfilled(const IBuffer& model, unsigned length)
{
  return length == 0 ? model.null()->addRef() : model.allocate(length);
}

/// The same with a copy of the `length` bytes at `bytes`: newBuffer() for what most buffers are made of, one piece.
inline IBuffer* newBufferOf(const IBuffer& model, const void* bytes, unsigned length)
{
  IBuffer* const made = unfilled(model, length);
  if (length > 0)
    std::memcpy(made->contents(), bytes, length);
  return made;
}

}  // namespace quelmcl::detail

#endif
