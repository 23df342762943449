/// @file child_process.hpp
/// Runs another program with an environment of its own, for what a process decides once or before its main function.
///
///     const ChildProcess child = runChild({QUELMCL_TRACE_PROBE, "write", "hello"}, {"KOLTA TRACE=noprefix"});
///     EXPECT_EQ(child.out, ">hello\n");
#ifndef QUELMCL_TESTS_SUPPORT_CHILD_PROCESS_HPP
#define QUELMCL_TESTS_SUPPORT_CHILD_PROCESS_HPP

#include <string>
#include <vector>

namespace quelmcl_test {

/// What a program that has ended leaves behind.
struct ChildProcess {
  std::string out;  ///< what it wrote to standard output
  std::string err;  ///< what it wrote to standard error
  long processId;   ///< its number while it ran
  int status;       ///< its exit status, or 1000 and more for a signal
};

/// Starts the program `words[0]` with the other words as its arguments and waits for its end. It inherits the
/// environment but the library's own settings, and gets `settings` ("NAME=VALUE") on top or instead. It runs in `folder`, if one is
/// named.
ChildProcess runChild(const std::vector<std::string>& words, const std::vector<std::string>& settings = {},
                      const std::string& folder = "");

}  // namespace quelmcl_test

#endif
