// kinds.hpp - the names of the kinds of buffer, by whose addresses the kinds are told apart.
#ifndef QUELMCL_SRC_BUFFERS_KINDS_HPP
#define QUELMCL_SRC_BUFFERS_KINDS_HPP

#include <quelmcl/ibuffer.hpp>

namespace quelmcl::detail {

extern const char singleByteKind[];
extern const char multiByteKind[];

/// The same pointer, not equal text: a kind is known by the address of its name.
inline bool areOfOneKind(const IBuffer& one, const IBuffer& other)
{
  return one.className() == other.className();
}

}  // namespace quelmcl::detail

#endif
