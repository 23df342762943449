/// @file captured_stderr.hpp
/// Collects what is written to file descriptor 2, by whatever means, for the length of a block.
///
///     CapturedStandardError output;
///     hook.write("line");
///     EXPECT_EQ(output.text(), "line\n");
#ifndef QUELMCL_TESTS_SUPPORT_CAPTURED_STDERR_HPP
#define QUELMCL_TESTS_SUPPORT_CAPTURED_STDERR_HPP

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace quelmcl_test {

class CapturedStandardError {
public:
  CapturedStandardError() : file(std::tmpfile()), original(dup(2))
  {
    // Nothing that follows would mean anything without the two.
    if (file == nullptr || original < 0 || dup2(fileno(file), 2) < 0)
      std::abort();
  }

  ~CapturedStandardError()
  {
    giveBack();
    std::fclose(file);
  }

  CapturedStandardError(const CapturedStandardError&) = delete;
  CapturedStandardError& operator=(const CapturedStandardError&) = delete;

  /// Ends the capture and returns what was written during it.
  std::string text()
  {
    giveBack();
    std::string written;
    char piece[4096];
    std::rewind(file);
    while (const std::size_t count = std::fread(piece, 1, sizeof piece, file))
      written.append(piece, count);
    return written;
  }

private:
  void giveBack()
  {
    if (original < 0)
      return;
    std::fflush(stderr);
    dup2(original, 2);
    close(original);
    original = -1;
  }

  std::FILE* const file;
  int original;
};

}  // namespace quelmcl_test

#endif
