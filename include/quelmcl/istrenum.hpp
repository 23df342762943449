/// @file istrenum.hpp
/// Enumerations that strings and buffers share.
#ifndef QUELMCL_ISTRENUM_HPP
#define QUELMCL_ISTRENUM_HPP

#include <quelmcl/idefs.hpp>

/// Holds the enumerations; no objects are made of it.
class QUELMCL_API IStringEnum {
public:
  /// What the byte at a position is: a character of its own, or the k-th byte of a character of several bytes.
  enum CharType : int {
    sbcs = 0,
    mbcs1 = 1,  ///< the first byte of a multi-byte character
    mbcs2 = 2,
    mbcs3 = 3,
    mbcs4 = 4,
    mbcs5 = 5,
    mbcs6 = 6,
    mbcs7 = 7,
    mbcs8 = 8,
    mbcs9 = 9,
    mbcs10 = 10,
    mbcs11 = 11,
    mbcs12 = 12,
    mbcs13 = 13,
    mbcs14 = 14,
    mbcs15 = 15,
    mbcs16 = 16
  };

  /// Which ends of a text to strip.
  enum StripMode : int { leading = 0, trailing = 1, both = 2 };
};

#endif
