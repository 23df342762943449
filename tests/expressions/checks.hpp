// checks.hpp - the assertions of the expression tests. In a test program they are GoogleTest's; where only the compiler is asked,
// for many language versions in a row, they are stand-ins that compile the same expressions but cost no header.
#ifndef QUELMCL_TESTS_EXPRESSIONS_CHECKS_HPP
#define QUELMCL_TESTS_EXPRESSIONS_CHECKS_HPP

#ifndef QUELMCL_SYNTAX_ONLY
#  include <gtest/gtest.h>
#else
inline void takeTexts(const char*, const char*) {}
#  define TEST(suite, name) __attribute__((unused)) static void suite##_##name()
#  define EXPECT_TRUE(condition) static_cast<void>((condition) ? 1 : 0)
#  define EXPECT_FALSE(condition) static_cast<void>((condition) ? 1 : 0)
#  define EXPECT_EQ(left, right) static_cast<void>((left) == (right))
#  define EXPECT_STREQ(left, right) takeTexts(left, right)
#endif

// The exact type of an expression; the second pair of parentheses tells a reference from a value: IString& for `text += "x"`.
#define EXPECT_TYPE(Type, expression) \
  static_assert(std::is_same<decltype((expression)), Type>::value, "the type of " #expression)

#endif
