// vector128.hpp - sixteen bytes at a time, as the loops of vectorloops.inc use them. Included where those are.
struct Vector128 {
  using Bytes = __m128i;
  static constexpr std::size_t size = 16;
  static constexpr std::uint32_t fullMask = 0xFFFFu;

  QUELMCL_INLINE static Bytes load(const char* p) noexcept
  {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  }
  QUELMCL_INLINE static void store(char* p, Bytes bytes) noexcept
  {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), bytes);
  }
  QUELMCL_INLINE static Bytes all(char byte) noexcept { return _mm_set1_epi8(byte); }
  /// The same sixteen bytes as often as they fit.
  QUELMCL_INLINE static Bytes repeat(const unsigned char* sixteen) noexcept
  {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(sixteen));
  }
  QUELMCL_INLINE static Bytes bitAnd(Bytes a, Bytes b) noexcept { return _mm_and_si128(a, b); }
  QUELMCL_INLINE static Bytes bitOr(Bytes a, Bytes b) noexcept { return _mm_or_si128(a, b); }
  QUELMCL_INLINE static Bytes bitExclusiveOr(Bytes a, Bytes b) noexcept { return _mm_xor_si128(a, b); }
  /// The bits of the first that the second has not.
  QUELMCL_INLINE static Bytes bitAndNot(Bytes a, Bytes b) noexcept { return _mm_andnot_si128(b, a); }
  QUELMCL_INLINE static Bytes add(Bytes a, Bytes b) noexcept { return _mm_add_epi8(a, b); }
  QUELMCL_INLINE static Bytes subtract(Bytes a, Bytes b) noexcept { return _mm_sub_epi8(a, b); }
  /// All bits of a byte where the claim holds, none where not. Bytes are signed.
  QUELMCL_INLINE static Bytes equal(Bytes a, Bytes b) noexcept { return _mm_cmpeq_epi8(a, b); }
  QUELMCL_INLINE static Bytes greater(Bytes a, Bytes b) noexcept { return _mm_cmpgt_epi8(a, b); }
  /// The highest bit of each byte.
  QUELMCL_INLINE static std::uint32_t mask(Bytes bytes) noexcept
  {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes));
  }
  /// The sum of all bytes, as unsigned numbers.
  QUELMCL_INLINE static std::uint32_t sum(Bytes bytes) noexcept
  {
    const Bytes halves = _mm_sad_epu8(bytes, _mm_setzero_si128());
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4));
  }
  /// For each byte the entry of a table of sixteen that its lower half names; 0 when its highest bit is set.
  QUELMCL_INLINE static Bytes lookUp(Bytes table, Bytes bytes) noexcept { return _mm_shuffle_epi8(table, bytes); }
  QUELMCL_INLINE static Bytes upperHalves(Bytes bytes) noexcept { return bitAnd(_mm_srli_epi16(bytes, 4), all(0x0F)); }
  /// Stores at `to` those of the eight lower bytes that the mask names, side by side, and something behind them: eight bytes
  /// in all. Returns where they end.
  QUELMCL_INLINE static char* gather(char* to, Bytes bytes, std::uint32_t mask) noexcept
  {
    const __m128i places = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(gatherings.places[mask]));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), _mm_shuffle_epi8(bytes, places));
    return to + gatherings.counts[mask];
  }
  QUELMCL_INLINE static Bytes upperEight(Bytes bytes) noexcept { return _mm_srli_si128(bytes, 8); }
  /// The bytes behind the first so many, and zeros behind those.
  template <int count>
  QUELMCL_INLINE static Bytes shiftedOut(Bytes bytes) noexcept
  {
    return _mm_srli_si128(bytes, count);
  }
  QUELMCL_INLINE static Bytes reversed(Bytes bytes) noexcept
  {
    return _mm_shuffle_epi8(bytes, _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
  }
};
