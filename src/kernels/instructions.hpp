// instructions.hpp - lets the compiler use more instructions in a part of a source than everywhere else. Everything it makes of
// that part must stay in that file, which a processor without them never enters: no function of the library or of the standard
// library may be made there.
#ifndef QUELMCL_SRC_KERNELS_INSTRUCTIONS_HPP
#define QUELMCL_SRC_KERNELS_INSTRUCTIONS_HPP

#define QUELMCL_PRAGMA(...) _Pragma(#__VA_ARGS__)

// What stands between the two may use a set of instructions, named as the compiler does, in quotation marks.
#ifdef __clang__
#  define QUELMCL_BEGIN_INSTRUCTIONS(set) \
    QUELMCL_PRAGMA(clang attribute push(__attribute__((target(set))), apply_to = function))
#  define QUELMCL_END_INSTRUCTIONS QUELMCL_PRAGMA(clang attribute pop)
#else
#  define QUELMCL_BEGIN_INSTRUCTIONS(set) QUELMCL_PRAGMA(GCC push_options) QUELMCL_PRAGMA(GCC target(set))
#  define QUELMCL_END_INSTRUCTIONS QUELMCL_PRAGMA(GCC pop_options)
#endif

#define QUELMCL_INLINE __attribute__((always_inline)) inline

#endif
