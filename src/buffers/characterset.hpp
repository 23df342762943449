// characterset.hpp - how the characters of the locale in force are told apart: the one rule that every operation on
// texts with characters of several bytes steps by.
// Tests: tests/buffers/multibyte_rules_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_CHARACTERSET_HPP
#define QUELMCL_SRC_BUFFERS_CHARACTERSET_HPP

#include "kernels/ascii.hpp"
#include "kernels/byteset.hpp"
#include "kernels/scan.hpp"
#include "kernels/utf8.hpp"
#include "kernels/vectors.hpp"

#include <cstddef>

namespace quelmcl::detail {

#ifdef QUELMCL_COUNT_CHARACTER_DECISIONS
extern unsigned long characterDecisions;  // for the test that the cost of operations is linear
inline void countDecision() noexcept
{
  ++characterDecisions;
}
#else
inline void countDecision() noexcept {}
#endif

/// The bytes that the characters of a list begin with.
class HeadBytes {
public:
  HeadBytes() noexcept = default;
  explicit HeadBytes(const ByteSet& asciiBytes) noexcept : bytes(asciiBytes) {}
  void add(char byte) noexcept
  {
    bytes.add(byte);
    hasContinuation = hasContinuation || isUtf8Continuation(byte);
  }
  bool has(char byte) const noexcept { return bytes.has(byte); }
  const ByteSet& set() const noexcept { return bytes; }
  bool haveUtf8Continuation() const noexcept { return hasContinuation; }

private:
  ByteSet bytes;
  bool hasContinuation = false;
};

/// The character set of the locale in force. Ask for it once an operation: programs may change their locale between
/// any two.
///
/// The rule: a NUL byte is a character of one byte; otherwise the C library says how many of the next 16 bytes the
/// character has; and a byte that begins no sound and complete character is one by itself.
class CharacterSet {
public:
  /// The character set of the locale in force in this thread. Cost: some nanoseconds.
  static CharacterSet current();
  /// The one in which every byte is a character.
  static CharacterSet ofBytes() noexcept { return CharacterSet(singleByte, nullptr, true); }

  /// Whether every byte is a character.
  bool isSingleByte() const noexcept { return kind == singleByte; }
  /// Whether a byte that begins a character can never be one that continues another.
  bool isUtf8() const noexcept { return kind == utf8; }
  /// Whether characters are told apart by the bytes around them, without a walk from the front. ASCII bytes are characters
  /// of their own there, wherever they stand.
  bool isSelfSynchronizing() const noexcept { return kind != other; }

  /// The length of the character at `p`. A NUL must follow sooner or later.
  unsigned length(const char* p) const { return isWholeAtStart(*p) ? 1 : lengthWithin(p, lookAhead); }

  /// The same, looking at no more than `available` bytes (at least one): a character that is cut off there is no
  /// character.
  unsigned lengthWithin(const char* p, std::size_t available) const
  {
    countDecision();
    if (kind == singleByte)
      return 1;
    if (kind == utf8)
      return utf8Length(p, available);
    return isAlwaysOneByte(*p) ? 1 : askedLength(p, available);
  }

  /// Whether a byte, standing alone, is the beginning of a character of several bytes.
  bool beginsLongCharacter(char byte) const;

  /// The offset of the first character in the `end` bytes of `text`, from `begin` on, where one begins, for which
  /// `claim` holds, given where it begins and its length; or nowhere.
  template <class Claim>
  std::size_t firstWhere(const char* text, std::size_t begin, std::size_t end, Claim claim) const
  {
    for (std::size_t offset = begin; offset < end;) {
      const unsigned lengthThere = length(text + offset);
      if (claim(text + offset, lengthThere))
        return offset;
      offset += lengthThere;
    }
    return nowhere;
  }

  /// The same for characters that begin with one of `heads`. Where no other byte can begin one of those, the rest is
  /// passed over byte by byte.
  template <class Claim>
  std::size_t firstWithHead(const char* text, std::size_t begin, std::size_t end, const HeadBytes& heads,
                            Claim claim) const
  {
    const auto isWanted = [&](const char* p, unsigned lengthThere) { return heads.has(*p) && claim(p, lengthThere); };
    if (!beginAnywhere(heads))
      return firstWhere(text, begin, end, isWanted);
    for (std::size_t offset = begin; offset < end; ++offset) {
      offset = nextHead(text, offset, end, heads);
      if (offset < end && claim(text + offset, length(text + offset)))
        return offset;
    }
    return nowhere;
  }

  /// Whether each of these bytes begins a character wherever it stands.
  bool beginAnywhere(const HeadBytes& heads) const noexcept
  {
    return kind == singleByte || (kind == utf8 && !heads.haveUtf8Continuation());
  }

  /// Whether it is seen at a glance that a byte is a character of its own, wherever it stands.
  bool isWholeAnywhere(char byte) const noexcept { return isSelfSynchronizing() && isAscii(byte); }

  /// Calls `visit` for every character of a text, with where it begins and its length.
  template <class Visit>
  void forEach(const char* text, std::size_t textLength, Visit visit) const
  {
    firstWhere(text, 0, textLength, [&](const char* p, unsigned lengthThere) {
      visit(p, lengthThere);
      return false;
    });
  }

  /// The same for characters that begin with one of `heads`.
  template <class Visit>
  void forEachWithHead(const char* text, std::size_t textLength, const HeadBytes& heads, Visit visit) const
  {
    firstWithHead(text, 0, textLength, heads, [&](const char* p, unsigned lengthThere) {
      visit(p, lengthThere);
      return false;
    });
  }

  /// How many characters a text has.
  unsigned count(const char* text, unsigned textLength) const;

  /// Whether an ASCII byte with which a character begins is all of it. In some sets such bytes continue others.
  bool hasWholeAscii() const noexcept { return asciiIsWhole; }

  /// How many of the `length` bytes at `p`, where a character begins, are seen at a glance to be characters of their
  /// own: the ASCII ones in front.
  std::size_t wholeAsciiAt(const char* p, std::size_t length) const noexcept
  {
    return asciiIsWhole ? asciiPrefix(p, length) : 0;
  }

private:
  enum Kind { singleByte, utf8, other };
  enum : std::size_t { lookAhead = 16 };

  /// For each byte, whether it is a character of its own whatever follows it.
  struct OneByteCharacters;

  CharacterSet(Kind kindOfSet, const OneByteCharacters* known, bool wholeAscii) noexcept
    : kind(kindOfSet), asciiIsWhole(wholeAscii), oneByteCharacters(known)
  {
  }

  /// The first of `heads` in the text from `begin` on, or the end. Most are near, and not worth a call.
  static std::size_t nextHead(const char* text, std::size_t begin, std::size_t end, const HeadBytes& heads) noexcept
  {
    constexpr std::size_t near = 16;
    const std::size_t nearEnd = end - begin < near ? end : begin + near;
    for (std::size_t offset = begin; offset < nearEnd; ++offset)
      if (heads.has(text[offset]))
        return offset;
    const std::size_t found = findMember(text + nearEnd, end - nearEnd, heads.set());
    return found == nowhere ? end : nearEnd + found;
  }

  /// Whether it is seen at a glance that a byte with which a character begins is all of it.
  bool isWholeAtStart(char byte) const noexcept { return asciiIsWhole && isAscii(byte); }
  bool isAlwaysOneByte(char byte) const;
  static unsigned askedLength(const char* p, std::size_t available);

  Kind kind;
  bool asciiIsWhole;                           // no ASCII byte begins a longer character
  const OneByteCharacters* oneByteCharacters;  // null when there was no storage for it
};

/// A character of a text: where it begins and how many bytes it has.
struct Character {
  std::size_t offset;
  unsigned length;
  std::size_t end() const noexcept { return offset + length; }
};

/// Finds the characters that hold the bytes of a text. In UTF-8 each is found by looking around; in other sets by
/// walking on from the character found last, so offsets that do not decrease cost one pass over the text together,
/// and one that does another.
class CharacterWalk {
public:
  /// `text` is followed by a NUL.
  CharacterWalk(const CharacterSet& charactersOf, const char* textToWalk) noexcept
    : set(charactersOf), text(textToWalk), floor(0), current{0, 0}
  {
  }

  /// The character that holds the byte at `offset`.
  Character holding(std::size_t offset)
  {
    if (set.isSingleByte() || set.isWholeAnywhere(text[offset]))
      return {offset, 1};
    if (offset < floor)
      standAt(0);
    if (!set.isUtf8())
      return walkedTo(offset);
    const bool endsPair =
      offset > floor && isUtf8Continuation(text[offset]) && utf8AnnouncedLength(text[offset - 1]) == 2;
    return endsPair ? Character{offset - 1, 2} : holdingInUtf8(offset);  // mostly one, and not worth a call
  }

  /// Whether a character begins at `offset`.
  bool isBoundary(std::size_t offset) { return holding(offset).offset == offset; }

  /// Notes that a character begins at `offset`. What stands before it may change from now on: it is not looked at
  /// again, unless an earlier offset is asked for.
  void standAt(std::size_t offset) noexcept
  {
    floor = offset;
    if (offset != current.end() && offset != current.offset)
      current = {offset, 0};
  }

  const CharacterSet& characters() const noexcept { return set; }

private:
  Character holdingInUtf8(std::size_t offset) const;
  Character walkedTo(std::size_t offset);

  CharacterSet set;
  const char* text;
  std::size_t floor;
  Character current;
};

}  // namespace quelmcl::detail

#endif
