// iplatfrm.cpp - IPlatform: every answer is no here.
// Tests: tests/foundation/platform_test.cpp
#include <quelmcl/iplatfrm.hpp>

#include "exceptions/startup.hpp"

QUELMCL_KEEP_START_UP

int IPlatform::fgWin32 = 0;
int IPlatform::fgWinNT = 0;
int IPlatform::fgNTNewShell = 0;
int IPlatform::fgWin32S = 0;
int IPlatform::fgWin95 = 0;

bool IPlatform::isWin32() noexcept
{
  return false;
}

bool IPlatform::isWinNT() noexcept
{
  return false;
}

bool IPlatform::isNTNewShell() noexcept
{
  return false;
}

bool IPlatform::isWin32S() noexcept
{
  return false;
}

bool IPlatform::isWin95() noexcept
{
  return false;
}
