// characterset.cpp - the character set of the locale in force, and walking over its characters.
// Tests: tests/buffers/multibyte_rules_test.cpp
#include "buffers/characterset.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <langinfo.h>
#include <new>

namespace quelmcl::detail {

#ifdef QUELMCL_COUNT_CHARACTER_DECISIONS
unsigned long characterDecisions = 0;
#endif

namespace {

constexpr std::size_t incomplete = static_cast<std::size_t>(-2);

/// What the C library makes of at most `available` bytes. A state of its own each time: nothing is carried from text
/// to text.
std::size_t askLibrary(const char* p, std::size_t available)
{
  std::mbstate_t state = {};
  return std::mbrlen(p, available, &state);
}

/// Asked at the beginning of every operation, and so short that a call would cost more.
inline bool isNamed(const char* codeset, const char* name)
{
  while (*name != '\0' && *codeset == *name)
    ++codeset, ++name;
  return *codeset == *name;
}

}  // namespace

/// Filled once a character set, never changed and never freed: the list is as long as the sets that a process has
/// ever used.
struct CharacterSet::OneByteCharacters {
  char codeset[32];
  const OneByteCharacters* next;
  bool isOne[256];
  bool hasAllAscii;

  static const OneByteCharacters* of(const char* codeset)
  {
    static const OneByteCharacters* all = nullptr;
    const OneByteCharacters* const known = __atomic_load_n(&all, __ATOMIC_ACQUIRE);
    for (const OneByteCharacters* set = known; set != nullptr; set = set->next)
      if (std::strcmp(set->codeset, codeset) == 0)
        return set;

    const std::size_t nameLength = std::strlen(codeset);
    OneByteCharacters* const made = nameLength < sizeof made->codeset ? new (std::nothrow) OneByteCharacters : nullptr;
    if (made == nullptr)
      return nullptr;
    std::memcpy(made->codeset, codeset, nameLength + 1);
    for (unsigned byte = 0; byte < 256; ++byte) {
      const char alone = static_cast<char>(byte);
      made->isOne[byte] = byte == 0 || askLibrary(&alone, 1) == 1;
    }
    made->hasAllAscii = std::all_of(made->isOne, made->isOne + 0x80, [](bool one) { return one; });
    // When two threads are here at once, both sets are listed; they are equal.
    made->next = known;
    while (!__atomic_compare_exchange_n(&all, &made->next, made, false, __ATOMIC_RELEASE, __ATOMIC_RELAXED)) {
    }
    return made;
  }
};

CharacterSet CharacterSet::current()
{
  const char* const codeset = nl_langinfo(CODESET);
  if (isNamed(codeset, "UTF-8"))
    return CharacterSet(utf8, nullptr, true);
  if (MB_CUR_MAX == 1)
    return ofBytes();
  const OneByteCharacters* const known = OneByteCharacters::of(codeset);
  return CharacterSet(other, known, known != nullptr && known->hasAllAscii);
}

bool CharacterSet::isAlwaysOneByte(char byte) const
{
  return oneByteCharacters == nullptr ? byte == '\0' : oneByteCharacters->isOne[static_cast<unsigned char>(byte)];
}

unsigned CharacterSet::askedLength(const char* p, std::size_t available)
{
  const std::size_t answer = askLibrary(p, available);
  return answer >= 1 && answer <= lookAhead ? static_cast<unsigned>(answer) : 1;
}

bool CharacterSet::beginsLongCharacter(char byte) const
{
  return kind != singleByte && byte != '\0' && askLibrary(&byte, 1) == incomplete;
}

unsigned CharacterSet::count(const char* text, unsigned textLength) const
{
  if (kind == singleByte)
    return textLength;
  if (kind == utf8)
    return textLength - static_cast<unsigned>(vectors().utf8Continuations(text, textLength, textLength));
  unsigned characters = 0;
  for (unsigned offset = 0; offset < textLength; ++characters)
    offset += length(text + offset);
  return characters;
}

// Only continuation bytes can stand inside of a character, so the nearest other byte before `offset` begins one; and
// it holds the byte at `offset` exactly if it is long enough.
Character CharacterWalk::holdingInUtf8(std::size_t offset) const
{
  constexpr std::size_t longest = 6;
  std::size_t lead = offset;
  const std::size_t earliest = offset - floor >= longest ? offset - (longest - 1) : floor;
  while (lead > earliest && isUtf8Continuation(text[lead]))
    --lead;
  const unsigned length = set.length(text + lead);
  return lead + length > offset ? Character{lead, length} : Character{offset, 1};
}

Character CharacterWalk::walkedTo(std::size_t offset)
{
  if (offset < current.offset)
    current = {floor, 0};
  while (current.end() <= offset) {
    const std::size_t next = current.end() + set.wholeAsciiAt(text + current.end(), offset - current.end());
    current = {next, set.length(text + next)};
  }
  return current;
}

}  // namespace quelmcl::detail
