/// @file istrtest.hpp
/// IStringTest, a question about one character that searches, counts and strips can ask instead of looking into a set.
///
///     text.indexOf(isdigit);                        // a function of <ctype.h> converts by itself
///     text.strip(IStringTest(ispunct));
///     struct Vowel : IStringTest {                  // a test of one's own
///       Vowel() : IStringTest(user, nullptr) {}
///       int test(int letter) const override { return letter > 0 && std::strchr("aeiou", letter) != nullptr; }
///     };
#ifndef QUELMCL_ISTRTEST_HPP
#define QUELMCL_ISTRTEST_HPP

#include <quelmcl/ivbase.hpp>

/// A predicate over single characters. Bytes 0x80 to 0xFF reach it as negative numbers. It holds a pointer to a
/// function or, in derived classes, whatever these put there; it owns nothing.
class QUELMCL_API IStringTest : public IVBase {
public:
  /// What kind of test is held. The base class calls a `c` function; the other kinds are for derived classes, which
  /// override `test`.
  enum FnType { user = 0, c = 1, cpp = 2, memFn = 3, cMemFn = 4 };

  /// The test that calls `cFn` and passes where it returns non-zero. Deliberately implicit: `text.indexOf(isdigit)`.
  IStringTest(int (*cFn)(int));
  ~IStringTest() override;

  /// Non-zero when the character passes. A test of any kind but `c` that does not override this passes nothing.
  virtual int test(int character) const;

protected:
  /// For derived tests: keeps both as given.
  IStringTest(FnType kind, void* userData);

  FnType type;  ///< which kind is held
  union {
    int (*cFn)(int);
    void* user;
  } data;  ///< the function, or what a derived class has put there
};

#endif
