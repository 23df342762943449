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

TEST_P(DigitKernels, KnowEveryDigitAtEveryPlace)
{
  for (const std::size_t length : {1u, 15u, 16u, 17u, 33u, 64u})
    for (std::size_t place = 0; place < length; ++place)
      for (int byte = 0; byte < 256; ++byte) {
        std::string text(length, '1');
        text[place] = static_cast<char>(byte);
        const bool isBinary = byte == '0' || byte == '1', isDecimal = byte >= '0' && byte <= '9';
        const bool isHexadecimal = isDecimal || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
        ASSERT_EQ(loops().areBinary(text.data(), length), isBinary) << byte << " at " << place << " of " << length;
        ASSERT_EQ(loops().areDecimal(text.data(), length), isDecimal) << byte << " at " << place << " of " << length;
        ASSERT_EQ(loops().areHexadecimal(text.data(), length), isHexadecimal)
          << byte << " at " << place << " of " << length;
      }
}

TEST_P(DigitKernels, TakeNoTextForDigits)
{
  EXPECT_TRUE(loops().areBinary("", 0));
  EXPECT_TRUE(loops().areDecimal("", 0));
  EXPECT_TRUE(loops().areHexadecimal("", 0));
}

}  // namespace
