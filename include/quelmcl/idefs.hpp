/// @file idefs.hpp
/// The few macros of the library, each with its reason. Every public header includes this one first.
#ifndef QUELMCL_IDEFS_HPP
#define QUELMCL_IDEFS_HPP

/// The version of these headers, for the preprocessor. IBase::version() answers that of the library which the program
/// has met at run time: the same major number, and the same minor number or a later one. This is the one place where
/// the version is stated; the build reads it here.
#define QUELMCL_VERSION_MAJOR 310
#define QUELMCL_VERSION_MINOR 2

/// Both as one number that grows with every version, for comparisons: `#if QUELMCL_VERSION >= 310003`.
#define QUELMCL_VERSION (QUELMCL_VERSION_MAJOR * 1000 + QUELMCL_VERSION_MINOR)

/// Marks what the shared library offers to others: everything else in it stays hidden. Exported classes carry their
/// type information with them, so that they can be thrown, caught and derived from across library borders. The same
/// header serves the static library, where the mark does no harm.
#define QUELMCL_API __attribute__((visibility("default")))

/// Marks a member of an exported class that is for the library's own files alone.
#define QUELMCL_LOCAL __attribute__((visibility("hidden")))

/// Marks functions whose result is all that they give. A static editing form that is called through an object by
/// mistake (`text.strip(set)`) changes nothing; a compiler that sees the dropped result says so.
#define QUELMCL_NODISCARD __attribute__((warn_unused_result))

/// Some classes have a fixed table of virtual operations without room for a virtual destructor. These two silence the
/// one warning that follows from it, around such a class only.
#define QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN \
  _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Wnon-virtual-dtor\"")
#define QUELMCL_NO_VIRTUAL_DESTRUCTOR_END _Pragma("GCC diagnostic pop")

#endif
