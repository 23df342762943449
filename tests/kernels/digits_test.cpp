// digits_test.cpp - kernels: bytes to hexadecimal and binary digits and back, by each form of the loops.
#include "kernels/digits.hpp"

#include "forms.hpp"
#include "placed_text.hpp"
#include "support/radix_reference.hpp"
#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using kerneltests::formsOnThisMachine;
using kerneltests::nameOfForm;
using quelmcl::detail::DigitLoops;
using quelmcl_test::RandomTexts;

namespace {

class DigitKernels : public testing::TestWithParam<const DigitLoops*> {
protected:
  const DigitLoops& loops() const { return *GetParam(); }

  /// What a loop writes, into a block of exactly that size.
  template <class From, class To>
  static std::string written(void (*loop)(const From*, std::size_t, To*) noexcept, const std::string& text,
                             std::size_t size)
  {
    const std::unique_ptr<From[]> exact(new From[text.size()]);
    std::copy(text.begin(), text.end(), reinterpret_cast<char*>(exact.get()));
    const std::unique_ptr<To[]> result(new To[size]);
    loop(exact.get(), text.size(), result.get());
    return std::string(reinterpret_cast<const char*>(result.get()), size);
  }

  static std::string randomBytes(RandomTexts& random, std::size_t length)
  {
    std::string bytes;
    while (bytes.size() < length)
      bytes += static_cast<char>(random.below(256));
    return bytes;
  }
};

INSTANTIATE_TEST_SUITE_P(Forms, DigitKernels, testing::ValuesIn(formsOnThisMachine(quelmcl::detail::digitForms)),
                         nameOfForm<DigitLoops>);

TEST_P(DigitKernels, WriteEveryByte)
{
  std::string all;
  for (int byte = 0; byte < 256; ++byte)
    all += static_cast<char>(byte);
  EXPECT_EQ(written(loops().bytesToHexadecimal, all, 512), reference::c2x(all));
  EXPECT_EQ(written(loops().bytesToBinary, all, 2048), reference::c2b(all));
}

TEST_P(DigitKernels, WriteAndReadBytesOfAnyLength)
{
  RandomTexts random;
  for (std::size_t length = 0; length < 150; ++length) {
    const std::string bytes = randomBytes(random, length);
    const std::string hexadecimal = reference::c2x(bytes), binary = reference::c2b(bytes);
    EXPECT_EQ(written(loops().bytesToHexadecimal, bytes, 2 * length), hexadecimal);
    EXPECT_EQ(written(loops().bytesToBinary, bytes, 8 * length), binary);
    EXPECT_EQ(written(loops().hexadecimalToBytes, hexadecimal, length), bytes);
    EXPECT_EQ(written(loops().binaryToBytes, binary, length), bytes);
  }
}

TEST_P(DigitKernels, ReadHexadecimalDigitsOfEitherCase)
{
  EXPECT_EQ(written(loops().hexadecimalToBytes, std::string("0123456789abcdefABCDEFaAfF00990f"), 16),
            reference::x2c("0123456789abcdefABCDEFaAfF00990f"));
  EXPECT_EQ(written(loops().hexadecimalToBytes, std::string("abcdefABCDEF0123"), 8),
            reference::x2c("abcdefABCDEF0123"));
}

TEST(DigitSets, HaveTheDigitsAndNothingElse)
{
  for (int code = 0; code < 256; ++code) {
    const char byte = static_cast<char>(code);
    const bool isDecimal = code >= '0' && code <= '9';
    const bool isLetter = (code >= 'a' && code <= 'f') || (code >= 'A' && code <= 'F');
    EXPECT_EQ(quelmcl::detail::binaryDigits.has(byte), code == '0' || code == '1') << code;
    EXPECT_EQ(quelmcl::detail::decimalDigits.has(byte), isDecimal) << code;
    EXPECT_EQ(quelmcl::detail::hexadecimalDigits.has(byte), isDecimal || isLetter) << code;
  }
}

}  // namespace
