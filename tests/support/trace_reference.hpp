/// @file trace_reference.hpp
/// What trace operations write, said as simply as it can be.
#ifndef QUELMCL_TESTS_SUPPORT_TRACE_REFERENCE_HPP
#define QUELMCL_TESTS_SUPPORT_TRACE_REFERENCE_HPP

#include <cstdio>
#include <string>

namespace reference {

/// The settings of the trace, and all that was written so far.
struct Trace {
  bool isOn = true;
  bool hasNumbers = true;
  bool hasPrefix = false;
  bool hasStackColumn = false;
  unsigned indentation = 0;
  unsigned long lines = 0;  ///< written until now, with those of other traces of this process
  unsigned long process = 0;
  std::string output;

  /// One line, whatever the settings say about being on.
  void line(const std::string& text, const std::string& marker)
  {
    if (marker[0] == '-' && indentation > 1)
      indentation -= 2;
    std::string lead = std::string(indentation, ' ') + marker;
    if (hasPrefix) {
      char prefix[100];
      std::snprintf(prefix, sizeof prefix, "%08lu %06lu:01 ", lines, process);
      lead = prefix + std::string(hasStackColumn ? "0000000  " : "") + lead;
    }
    std::string whole = lead;
    for (const char byte : text) {
      whole += byte;
      if (byte == '\n')
        whole += lead;
    }
    whole += '\n';
    output += whole.c_str();  // the line ends at its first NUL
    ++lines;
    if (marker[0] == '+')
      indentation += 2;
  }
  void write(const std::string& text)
  {
    if (isOn)
      line(text, ">");
  }
  /// Whether there will be a line for leaving, too.
  bool enter(const std::string& name, long number)
  {
    if (isOn)
      line(name + (hasNumbers && number >= 1 ? "(" + std::to_string(number) + ")" : ""), "+");
    return isOn;
  }
  void leave(const std::string& name)
  {
    if (isOn)
      line(name, "-");
  }
};

}  // namespace reference

#endif
