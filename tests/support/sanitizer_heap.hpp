/// @file sanitizer_heap.hpp
/// Defines QUELMCL_HEAP_OF_A_SANITIZER where the heap is a sanitizer's: it cannot be replaced, and when it finds no storage it ends the
/// program rather than call the new-handler. Tests of what a program's own heap does are compiled only where it is not defined.
#ifndef QUELMCL_TESTS_SUPPORT_SANITIZER_HEAP_HPP
#define QUELMCL_TESTS_SUPPORT_SANITIZER_HEAP_HPP

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#  define QUELMCL_HEAP_OF_A_SANITIZER
#elif defined(__has_feature)
#  if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#    define QUELMCL_HEAP_OF_A_SANITIZER
#  endif
#endif

#endif
