/// @file input.hpp
/// The operands of operations, made out of the bytes that a fuzzer gives.
///
///     fuzz::Input input(bytes, count, palettes);
///     const std::string text = input.text();
///     const std::string needle = input.near(text);
///     const unsigned start = input.position(text.size());
///
/// Each input has texts over one of the palettes, which its first byte chooses, so that its texts have much in common.
/// Where bytes are used up, zeros follow; so every sequence of bytes is an input, and a part of one is one, too.
#ifndef QUELMCL_FUZZ_INPUT_HPP
#define QUELMCL_FUZZ_INPUT_HPP

#include "agreement.hpp"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace fuzz {

/// What texts are made of, piece by piece: single bytes, or characters of several. An empty one stands for all bytes.
using Palette = std::vector<std::string>;

/// The palette of these bytes, NULs included.
template <std::size_t Size>
Palette bytesOf(const char (&literal)[Size])
{
  Palette pieces;
  for (std::size_t i = 0; i + 1 < Size; ++i)
    pieces.emplace_back(1, literal[i]);
  return pieces;
}

class Input {
public:
  Input(const std::uint8_t* bytes, std::size_t count, const std::vector<Palette>& palettes)
    : next(bytes), end(bytes + count), palette(palettes[octet() % palettes.size()])
  {
    remember(bytes, count);
  }

  bool isUsedUp() const { return next == end; }

  /// A number below `limit`, which is at most 256.
  unsigned below(unsigned limit) { return told("below", octet() % limit); }
  bool flag() { return told("flag", octet() % 2 != 0); }
  /// Any byte of the palette's texts.
  char byte() { return toldText("byte", piece()).front(); }

  /// Any number at all.
  std::uint32_t number()
  {
    std::uint32_t made = 0;
    for (int i = 0; i < 4; ++i)
      made = made << 8 | octet();
    return told("number", made);
  }
  /// A number of a size that is as likely as any other one, of either sign.
  int anyInt()
  {
    const unsigned width = octet();
    const std::uint32_t magnitude = number() >> (width % 32);
    return told("integer", static_cast<int>(width >= 128 ? 0 - magnitude : magnitude));
  }

  /// A text of at most that many pieces.
  std::string text(unsigned longest = 24)
  {
    std::string made;
    for (unsigned left = octet() % (longest + 1); left > 0 && next != end; --left)
      made += piece();
    return toldText("text", made);
  }

  /// A part of the text, such a part with a byte changed, or another text.
  std::string near(const std::string& other, unsigned longest = 6)
  {
    const unsigned way = octet() % 4;
    if (way == 0 || other.empty())
      return text(longest);
    const std::size_t first = octet() % other.size();
    std::string part = other.substr(first, octet() % (longest + 1));
    if (way == 1 && !part.empty())
      part[octet() % part.size()] = piece().front();
    return toldText("near", part);
  }

  /// A position: mostly from 0 to two behind the end, else a very large one.
  unsigned position(std::size_t length)
  {
    const unsigned value = octet();
    const unsigned large[] = {UINT_MAX, UINT_MAX - 1, 0x80000000u, 0x7FFFFFFFu, 0x10000u};
    return told("position", value >= 0xF0 ? large[value % 5] : value % static_cast<unsigned>(length + 3));
  }
  /// A length that a result may really get.
  unsigned length(std::size_t ofText) { return told("length", octet() % static_cast<unsigned>(2 * ofText + 4)); }
  /// A limit on how often something is done: a few times, or without limit.
  unsigned limit()
  {
    const unsigned value = octet();
    return told("limit", value < 0x60 ? UINT_MAX - value % 2 : value % 5);
  }
  /// The number of a word, or of words: mostly a small one, else one of the largest.
  unsigned long wordNumber()
  {
    const unsigned value = octet();
    return told("word number",
                value >= 0xE8 ? ULONG_MAX - value % 4 : (value >= 0xE0 ? UINT_MAX - value % 4 : value % 8));
  }

private:
  unsigned octet() { return next == end ? 0 : *next++; }

  std::string piece()
  {
    const unsigned value = octet();
    return palette.empty() ? std::string(1, static_cast<char>(value)) : palette[value % palette.size()];
  }

  template <class Value>
  static Value told(const char* what, Value value)
  {
    if (isTelling())
      tell(what, std::to_string(value));
    return value;
  }
  static const std::string& toldText(const char* what, const std::string& text)
  {
    if (isTelling())
      tell(what, quoted(text));
    return text;
  }
  static std::string&& toldText(const char* what, std::string&& text)
  {
    toldText(what, static_cast<const std::string&>(text));
    return std::move(text);
  }

  const std::uint8_t* next;
  const std::uint8_t* const end;
  const Palette& palette;
};

/// An operation of a target: draws nothing more, does it both ways and lets them agree.
template <class Operands>
struct Operation {
  const char* name;
  void (*run)(const Operands& operands);
};

/// Runs the operation that the input chooses, on the operands that the rest of it makes.
template <class Operands, std::size_t Count>
void runOne(const Operation<Operands> (&operations)[Count], Input& input)
{
  const Operation<Operands>& chosen = operations[input.below(Count)];
  inOperation(chosen.name);
  chosen.run(Operands(input));
}

}  // namespace fuzz

#endif
