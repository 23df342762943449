/// @file iplatfrm.hpp
/// IPlatform, questions about the operating system that programs ported from elsewhere ask.
#ifndef QUELMCL_IPLATFRM_HPP
#define QUELMCL_IPLATFRM_HPP

#include <quelmcl/ibase.hpp>

/// Answers which family of operating systems the program runs on. On this platform every answer is no.
class QUELMCL_API IPlatform : public IBase {
public:
  static bool isWin32() noexcept;       ///< always false
  static bool isWinNT() noexcept;       ///< always false
  static bool isNTNewShell() noexcept;  ///< always false
  static bool isWin32S() noexcept;      ///< always false
  static bool isWin95() noexcept;       ///< always false

private:
  static int fgWin32;
  static int fgWinNT;
  static int fgNTNewShell;
  static int fgWin32S;
  static int fgWin95;
};

#endif
