/// @file agreement.hpp
/// How a fuzz target holds what the library answers against what the reference answers. A difference ends the process,
/// after the same input has been run once more and has told its operands on the way.
#ifndef QUELMCL_FUZZ_AGREEMENT_HPP
#define QUELMCL_FUZZ_AGREEMENT_HPP

#include <cstddef>
#include <cstdint>
#include <string>

class IBuffer;
class IString;

/// Every target defines it: one run, on these bytes. The result is 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);
/// Puts the locale of the environment's QUELMCL_TEST_LOCALE in force, once at the start.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace fuzz {

/// Keeps where the bytes of this run are, for telling about it.
void remember(const std::uint8_t* bytes, std::size_t count);

/// Whether the operands of this run are to be told.
bool isTelling();
void tell(const char* what, const std::string& value);
void inOperation(const char* name);
/// The bytes as they would be written in source code.
std::string quoted(const std::string& bytes);

[[noreturn]] void disagree(const std::string& given, const std::string& expected);

void agree(const std::string& given, const std::string& expected);
/// The length, every byte, and the NUL behind them.
void agree(const IString& given, const std::string& expected);
void agree(const IBuffer* given, const std::string& expected);
template <class Number>
void agreeOnNumber(Number given, Number expected)
{
  if (given != expected)
    disagree(std::to_string(given), std::to_string(expected));
}
inline void agree(int given, int expected)
{
  agreeOnNumber(given, expected);
}
inline void agree(unsigned given, unsigned expected)
{
  agreeOnNumber(given, expected);
}
inline void agree(long given, long expected)
{
  agreeOnNumber(given, expected);
}
inline void agree(unsigned long given, unsigned long expected)
{
  agreeOnNumber(given, expected);
}
/// A claim that has to hold.
void agree(bool holds, const char* claim);

}  // namespace fuzz

#endif
