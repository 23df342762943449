// startup.hpp - keeps the start-up object in programs that are linked with the static library.
#ifndef QUELMCL_SRC_EXCEPTIONS_STARTUP_HPP
#define QUELMCL_SRC_EXCEPTIONS_STARTUP_HPP

namespace quelmcl::detail {

/// Stands beside the start-up object. A linker takes out of an archive only what is referred to, and nobody refers to
/// an object that does its work by being constructed: so the files that programs come in by refer to this.
extern const char startUpIsHere;

}  // namespace quelmcl::detail

/// In a source file: whoever links it gets the start-up object.
#define QUELMCL_KEEP_START_UP \
  __attribute__((used)) static const char* const keptStartUp = &quelmcl::detail::startUpIsHere;

#endif
