/// @file radix_reference.hpp
/// The six primitive conversions between number forms, digit by digit and without any regard to cost. Tests compare the
/// library with these.
///
///     EXPECT_TEXT(IString("256").d2c(), reference::d2c("256"));
///
/// Texts are std::strings, which may hold NULs.
#ifndef QUELMCL_TESTS_SUPPORT_RADIX_REFERENCE_HPP
#define QUELMCL_TESTS_SUPPORT_RADIX_REFERENCE_HPP

#include <string>

namespace reference {

std::string c2b(const std::string& bytes);
/// The first four bytes at once; for each other one the text gets room for three more digits, is multiplied by 256 and gets
/// the byte added. Zeros in front go in the end, unless there is nothing else.
std::string c2d(const std::string& bytes);
std::string c2x(const std::string& bytes);
/// Empty for what is not all digits.
std::string b2c(const std::string& digits);
/// The first ten digits at once, as 2147483647 when they are more; for each other one the bytes are multiplied by ten and get
/// the digit added. Zero bytes in front go in the end, but for one. Empty for what is not all digits.
std::string d2c(const std::string& digits);
/// Empty for what is not all digits.
std::string x2c(const std::string& digits);

}  // namespace reference

#endif
