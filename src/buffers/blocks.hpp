// blocks.hpp - the memory of buffers. Small blocks that come back are kept for the same thread's next buffers, since for
// short texts the heap costs more than all the rest.
#ifndef QUELMCL_SRC_BUFFERS_BLOCKS_HPP
#define QUELMCL_SRC_BUFFERS_BLOCKS_HPP

#include <cstddef>

namespace quelmcl::detail {

/// A block of `size` bytes or a few more. Throws what the global operator new throws.
void* takeBlock(std::size_t size);

/// Takes a block of takeBlock() back, in any thread. A null pointer is ignored.
void giveBlock(void* block) noexcept;

}  // namespace quelmcl::detail

#endif
