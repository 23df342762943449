// errnoguard.hpp - leaves errno as it was, whatever the C library does to it in between.
#ifndef QUELMCL_SRC_FOUNDATION_ERRNOGUARD_HPP
#define QUELMCL_SRC_FOUNDATION_ERRNOGUARD_HPP

#include <cerrno>

namespace quelmcl::detail {

/// Callers ask errno about their own last call; our work on their behalf must not change the answer.
class ErrnoGuard {
public:
  ErrnoGuard() noexcept : saved(errno) {}
  ~ErrnoGuard() { errno = saved; }
  ErrnoGuard(const ErrnoGuard&) = delete;
  ErrnoGuard& operator=(const ErrnoGuard&) = delete;

private:
  int saved;
};

}  // namespace quelmcl::detail

#endif
