/// @file steps.hpp
/// Counts the steps of the library: every piece of straight code that it enters, and every byte that it has the C library go over
/// (memchr, memcmp, memcpy, memmove, memrchr, memset, strlen). The same steps are counted whatever else the machine does.
///
///     const unsigned long long before = quelmcl_test::steps();
///     text.indexOf("x");
///     const unsigned long long taken = quelmcl_test::steps() - before;
///
/// For test programs that are linked with quelmcl_counting, which is the library with a call in each such piece.
#ifndef QUELMCL_TESTS_SUPPORT_STEPS_HPP
#define QUELMCL_TESTS_SUPPORT_STEPS_HPP

namespace quelmcl_test {

/// How many there were since the program began, of all threads together.
unsigned long long steps() noexcept;

}  // namespace quelmcl_test

#endif
