// placed_text.hpp - texts at every alignment, between bytes that nobody may write to.
#ifndef QUELMCL_TESTS_KERNELS_PLACED_TEXT_HPP
#define QUELMCL_TESTS_KERNELS_PLACED_TEXT_HPP

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>

namespace kerneltests {

constexpr std::size_t alignments = 16;
constexpr std::size_t longest = 70;  // a few machine words and vector registers, and something over

/// A text that begins `alignment` bytes behind an aligned place. The block ends with it but for a few guard bytes.
class PlacedText {
public:
  PlacedText(const std::string& text, std::size_t alignment)
    : before(alignment + guards), count(text.size()), block(new char[before + count + guards])
  {
    std::memset(block.get(), guard, before + count + guards);
    std::memcpy(data(), text.data(), count);
  }

  char* data() { return block.get() + before; }
  std::size_t size() const { return count; }
  std::string text() const { return std::string(block.get() + before, count); }

  /// Whether nothing around the text was written to.
  bool isIntactAround() const
  {
    const std::string untouched(before, guard);
    return std::string(block.get(), before) == untouched &&
           std::string(block.get() + before + count, guards) == std::string(guards, guard);
  }

private:
  static constexpr std::size_t guards = 16;
  static constexpr char guard = 'G';  // a letter, so that case mapping would show

  const std::size_t before;
  const std::size_t count;
  const std::unique_ptr<char[]> block;
};

/// A text of that length in which neighbours differ.
inline std::string variedText(std::size_t length)
{
  std::string text;
  for (std::size_t i = 0; i < length; ++i)
    text += static_cast<char>(i * 37 + 11);
  return text;
}

}  // namespace kerneltests

#endif
