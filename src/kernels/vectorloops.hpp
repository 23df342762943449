// vectorloops.hpp - the loops of vectors.hpp over vectors of bytes. Every form includes this file once, behind what makes
// the compiler use its instructions; so all of it stays inside of that file, and nothing of it is called by others.
// Tests: tests/kernels/vectors_test.cpp

// A text shorter than a vector is looked at byte by byte. In a longer one the last vector overlaps the one before it.

QUELMCL_INLINE unsigned lowestBit(std::uint32_t mask) noexcept
{
  return static_cast<unsigned>(__builtin_ctz(mask));
}

QUELMCL_INLINE unsigned highestBit(std::uint32_t mask) noexcept
{
  return 31u - static_cast<unsigned>(__builtin_clz(mask));
}

template <class V>
QUELMCL_INLINE std::uint32_t pairsAt(const char* text, typename V::Bytes first, typename V::Bytes last,
                                     std::size_t distance) noexcept
{
  return V::mask(V::bitAnd(V::equal(V::load(text), first), V::equal(V::load(text + distance), last)));
}

template <class V>
std::size_t firstPairIn(const char* text, std::size_t places, std::size_t begin, char first, char last,
                        std::size_t distance) noexcept
{
  const typename V::Bytes firsts = V::all(first);
  const typename V::Bytes lasts = V::all(last);
  std::size_t at = begin;
  for (; at + V::size <= places; at += V::size)
    if (const std::uint32_t found = pairsAt<V>(text + at, firsts, lasts, distance))
      return at + lowestBit(found);
  if (at == places)
    return nowhere;
  const std::size_t back = places - V::size;
  const std::uint32_t found = pairsAt<V>(text + back, firsts, lasts, distance) >> (at - back);
  return found == 0 ? nowhere : at + lowestBit(found);
}

template <class V>
std::size_t lastPairIn(const char* text, std::size_t places, char first, char last, std::size_t distance) noexcept
{
  const typename V::Bytes firsts = V::all(first);
  const typename V::Bytes lasts = V::all(last);
  std::size_t left = places;
  for (; left >= V::size; left -= V::size)
    if (const std::uint32_t found = pairsAt<V>(text + left - V::size, firsts, lasts, distance))
      return left - V::size + highestBit(found);
  if (left == 0)
    return nowhere;
  const std::uint32_t found = pairsAt<V>(text, firsts, lasts, distance);
  return found == 0 ? nowhere : highestBit(found);
}

/// Looks bytes up in a set: the row by the lower half of each, the place in it by the upper.
template <class V>
class Membership {
public:
  QUELMCL_INLINE Membership(const ByteSet& set, bool isWanted) noexcept
    : lowRows(V::repeat(set.tables())),
      highRows(V::repeat(set.tables() + 16)),
      places(V::repeat(bits)),
      unwanted(isWanted ? 0 : V::fullMask)
  {
  }

  /// A bit for each byte at `text` that is as wanted.
  QUELMCL_INLINE std::uint32_t at(const char* text) const noexcept
  {
    const typename V::Bytes bytes = V::load(text);
    const typename V::Bytes row =  // a lookup by a byte above 0x7F gives 0
      V::bitOr(V::lookUp(lowRows, bytes), V::lookUp(highRows, V::bitExclusiveOr(bytes, V::all('\x80'))));
    const typename V::Bytes place = V::lookUp(places, V::upperHalves(bytes));
    return V::mask(V::equal(V::bitAnd(row, place), place)) ^ unwanted;
  }

private:
  static constexpr unsigned char bits[16] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
  typename V::Bytes lowRows;
  typename V::Bytes highRows;
  typename V::Bytes places;
  std::uint32_t unwanted;
};

template <class V>
std::size_t firstMemberIn(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept
{
  const Membership<V> membership(set, wanted);
  std::size_t at = 0;
  for (; at + V::size <= length; at += V::size)
    if (const std::uint32_t found = membership.at(text + at))
      return at + lowestBit(found);
  if (at == length)
    return nowhere;
  const std::uint32_t found = membership.at(text + length - V::size);
  return found == 0 ? nowhere : length - V::size + lowestBit(found);
}

template <class V>
std::size_t lastMemberIn(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept
{
  const Membership<V> membership(set, wanted);
  std::size_t left = length;
  for (; left >= V::size; left -= V::size)
    if (const std::uint32_t found = membership.at(text + left - V::size))
      return left - V::size + highestBit(found);
  if (left == 0)
    return nowhere;
  const std::uint32_t found = membership.at(text);
  return found == 0 ? nowhere : highestBit(found);
}

template <class V>
std::size_t asciiPrefixIn(const char* text, std::size_t length) noexcept
{
  std::size_t at = 0;
  for (; at + V::size <= length; at += V::size)
    if (const std::uint32_t others = V::mask(V::load(text + at)))
      return at + lowestBit(others);
  if (at == length)
    return length;
  const std::uint32_t others = V::mask(V::load(text + length - V::size));
  return others == 0 ? length : length - V::size + lowestBit(others);
}

template <class V>
std::uint64_t whiteSpaceIn(const char* text) noexcept
{
  std::uint64_t mask = 0;
  for (unsigned at = 0; at < 64; at += V::size) {
    const typename V::Bytes bytes = V::load(text + at);
    const typename V::Bytes controls =
      V::bitAnd(V::greater(bytes, V::all('\t' - 1)), V::greater(V::all('\r' + 1), bytes));
    mask |= std::uint64_t{V::mask(V::bitOr(controls, V::equal(bytes, V::all(' '))))} << at;
  }
  return mask;
}

/// Changes the case of the letters from `lowest` to `highest`. Bytes above 0x7F are negative, and so no letters.
template <class V>
QUELMCL_INLINE void changeCaseAt(char* text, char lowest, char highest) noexcept
{
  const typename V::Bytes bytes = V::load(text);
  const typename V::Bytes letters = V::bitAnd(V::greater(bytes, V::all(static_cast<char>(lowest - 1))),
                                              V::greater(V::all(static_cast<char>(highest + 1)), bytes));
  V::store(text, V::bitExclusiveOr(bytes, V::bitAnd(letters, V::all('a' - 'A'))));
}

// The last vector may meet letters that are changed already: they are none of those to change any more.
template <class V>
void changeCaseIn(char* text, std::size_t length, char lowest, char highest) noexcept
{
  std::size_t at = 0;
  for (; at + V::size <= length; at += V::size)
    changeCaseAt<V>(text + at, lowest, highest);
  if (at < length)
    changeCaseAt<V>(text + length - V::size, lowest, highest);
}

/// Exchanges vectors from both ends until less than one is left between them; the last two may overlap. Returns how many
/// bytes at each end are done.
template <class V>
std::size_t reverseIn(char* text, std::size_t length) noexcept
{
  std::size_t done = 0;
  for (; 2 * done + V::size <= length; done += V::size) {
    char* const front = text + done;
    char* const back = text + length - done - V::size;
    const typename V::Bytes bytes = V::load(front);
    V::store(front, V::reversed(V::load(back)));
    V::store(back, V::reversed(bytes));
  }
  return 2 * done < length ? done : length / 2;
}

/// Combines whole vectors and returns how many bytes are done.
template <class V, typename V::Bytes (*combine)(typename V::Bytes, typename V::Bytes) noexcept>
std::size_t combineIn(char* text, const char* other, std::size_t length) noexcept
{
  std::size_t at = 0;
  for (; at + V::size <= length; at += V::size)
    V::store(text + at, combine(V::load(text + at), V::load(other + at)));
  return at;
}

// ---- the form: the widest vectors that fit into the text ----

std::size_t firstPair(const char* text, std::size_t places, std::size_t begin, char first, char last,
                      std::size_t distance) noexcept
{
  if (places >= Wide::size)
    return firstPairIn<Wide>(text, places, begin, first, last, distance);
  if (places >= Narrow::size)
    return firstPairIn<Narrow>(text, places, begin, first, last, distance);
  return portableVectors.firstPair(text, places, begin, first, last, distance);
}

std::size_t lastPair(const char* text, std::size_t places, char first, char last, std::size_t distance) noexcept
{
  if (places >= Wide::size)
    return lastPairIn<Wide>(text, places, first, last, distance);
  if (places >= Narrow::size)
    return lastPairIn<Narrow>(text, places, first, last, distance);
  return portableVectors.lastPair(text, places, first, last, distance);
}

std::size_t firstMember(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept
{
  if (length >= Wide::size)
    return firstMemberIn<Wide>(text, length, set, wanted);
  if (length >= Narrow::size)
    return firstMemberIn<Narrow>(text, length, set, wanted);
  return portableVectors.firstMember(text, length, set, wanted);
}

std::size_t lastMember(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept
{
  if (length >= Wide::size)
    return lastMemberIn<Wide>(text, length, set, wanted);
  if (length >= Narrow::size)
    return lastMemberIn<Narrow>(text, length, set, wanted);
  return portableVectors.lastMember(text, length, set, wanted);
}

std::size_t asciiPrefixOf(const char* text, std::size_t length) noexcept
{
  if (length >= Wide::size)
    return asciiPrefixIn<Wide>(text, length);
  if (length >= Narrow::size)
    return asciiPrefixIn<Narrow>(text, length);
  return portableVectors.asciiPrefix(text, length);
}

std::uint64_t whiteSpace(const char* text) noexcept
{
  return whiteSpaceIn<Wide>(text);
}

void lower(char* text, std::size_t length) noexcept
{
  if (length >= Wide::size)
    return changeCaseIn<Wide>(text, length, 'A', 'Z');
  if (length >= Narrow::size)
    return changeCaseIn<Narrow>(text, length, 'A', 'Z');
  portableVectors.lower(text, length);
}

void upper(char* text, std::size_t length) noexcept
{
  if (length >= Wide::size)
    return changeCaseIn<Wide>(text, length, 'a', 'z');
  if (length >= Narrow::size)
    return changeCaseIn<Narrow>(text, length, 'a', 'z');
  portableVectors.upper(text, length);
}

void reverse(char* text, std::size_t length) noexcept
{
  const std::size_t wide = reverseIn<Wide>(text, length);
  const std::size_t narrow = reverseIn<Narrow>(text + wide, length - 2 * wide);
  portableVectors.reverse(text + wide + narrow, length - 2 * (wide + narrow));
}

void bitAnd(char* text, const char* other, std::size_t length) noexcept
{
  const std::size_t done = combineIn<Wide, Wide::bitAnd>(text, other, length);
  portableVectors.bitAnd(text + done, other + done, length - done);
}

void bitOr(char* text, const char* other, std::size_t length) noexcept
{
  const std::size_t done = combineIn<Wide, Wide::bitOr>(text, other, length);
  portableVectors.bitOr(text + done, other + done, length - done);
}

void bitExclusiveOr(char* text, const char* other, std::size_t length) noexcept
{
  const std::size_t done = combineIn<Wide, Wide::bitExclusiveOr>(text, other, length);
  portableVectors.bitExclusiveOr(text + done, other + done, length - done);
}
