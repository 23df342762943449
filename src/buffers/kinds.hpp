// kinds.hpp - the kinds of buffer, and how they are told apart.
#ifndef QUELMCL_SRC_BUFFERS_KINDS_HPP
#define QUELMCL_SRC_BUFFERS_KINDS_HPP

#include <quelmcl/idbcsb.hpp>

#include <typeinfo>

namespace quelmcl::detail {

extern const char singleByteKind[];
extern const char multiByteKind[];

/// The same pointer, not equal text: a kind is known by the address of its name.
inline bool areOfOneKind(const IBuffer& one, const IBuffer& other)
{
  return one.className() == other.className();
}

// Of the library's own kinds it is known what their virtual operations do. A class derived from them may answer in a way of its
// own, and is asked.

inline bool isOwnSingleByte(const IBuffer& buffer)
{
  return typeid(buffer) == typeid(IBuffer);
}

inline bool isOwnMultiByte(const IBuffer& buffer)
{
  return typeid(buffer) == typeid(IDBCSBuffer);
}

inline bool isOwnKind(const IBuffer& buffer)
{
  return isOwnSingleByte(buffer) || isOwnMultiByte(buffer);
}

}  // namespace quelmcl::detail

#endif
