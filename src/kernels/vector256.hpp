// vector256.hpp - thirty-two bytes at a time, as the loops of vectorloops.inc use them. Included where those are.
struct Vector256 {
  using Bytes = __m256i;
  static constexpr std::size_t size = 32;
  static constexpr std::uint32_t fullMask = 0xFFFFFFFFu;

  QUELMCL_INLINE static Bytes load(const char* p) noexcept
  {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
  }
  QUELMCL_INLINE static void store(char* p, Bytes bytes) noexcept
  {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), bytes);
  }
  QUELMCL_INLINE static Bytes all(char byte) noexcept { return _mm256_set1_epi8(byte); }
  /// The same sixteen bytes as often as they fit.
  QUELMCL_INLINE static Bytes repeat(const unsigned char* sixteen) noexcept
  {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(sixteen)));
  }
  QUELMCL_INLINE static Bytes bitAnd(Bytes a, Bytes b) noexcept { return _mm256_and_si256(a, b); }
  QUELMCL_INLINE static Bytes bitOr(Bytes a, Bytes b) noexcept { return _mm256_or_si256(a, b); }
  QUELMCL_INLINE static Bytes bitExclusiveOr(Bytes a, Bytes b) noexcept { return _mm256_xor_si256(a, b); }
  /// The bits of the first that the second has not.
  QUELMCL_INLINE static Bytes bitAndNot(Bytes a, Bytes b) noexcept { return _mm256_andnot_si256(b, a); }
  QUELMCL_INLINE static Bytes add(Bytes a, Bytes b) noexcept { return _mm256_add_epi8(a, b); }
  QUELMCL_INLINE static Bytes subtract(Bytes a, Bytes b) noexcept { return _mm256_sub_epi8(a, b); }
  /// All bits of a byte where the claim holds, none where not. Bytes are signed.
  QUELMCL_INLINE static Bytes equal(Bytes a, Bytes b) noexcept { return _mm256_cmpeq_epi8(a, b); }
  QUELMCL_INLINE static Bytes greater(Bytes a, Bytes b) noexcept { return _mm256_cmpgt_epi8(a, b); }
  /// The highest bit of each byte.
  QUELMCL_INLINE static std::uint32_t mask(Bytes bytes) noexcept
  {
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
  }
  /// The sum of all bytes, as unsigned numbers.
  QUELMCL_INLINE static std::uint32_t sum(Bytes bytes) noexcept
  {
    const Bytes quarters = _mm256_sad_epu8(bytes, _mm256_setzero_si256());
    const __m128i halves = _mm_add_epi32(_mm256_castsi256_si128(quarters), _mm256_extracti128_si256(quarters, 1));
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4));
  }
  /// For each byte the entry of a table of sixteen that its lower half names; 0 when its highest bit is set.
  QUELMCL_INLINE static Bytes lookUp(Bytes table, Bytes bytes) noexcept { return _mm256_shuffle_epi8(table, bytes); }
  QUELMCL_INLINE static Bytes upperHalves(Bytes bytes) noexcept
  {
    return bitAnd(_mm256_srli_epi16(bytes, 4), all(0x0F));
  }
  QUELMCL_INLINE static Bytes reversed(Bytes bytes) noexcept
  {
    const __m256i backwards =
      _mm256_broadcastsi128_si256(_mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
    const __m256i halves = _mm256_shuffle_epi8(bytes, backwards);
    return _mm256_permute2x128_si256(halves, halves, 1);
  }
};
