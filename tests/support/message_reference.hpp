/// @file message_reference.hpp
/// What becomes of a message of a catalog: its variables replaced, its line end left out.
#ifndef QUELMCL_TESTS_SUPPORT_MESSAGE_REFERENCE_HPP
#define QUELMCL_TESTS_SUPPORT_MESSAGE_REFERENCE_HPP

#include <string>
#include <vector>

namespace reference {

/// The message, with these texts for %1, %2 and so on.
inline std::string filledIn(const std::string& message, const std::vector<std::string>& inserts)
{
  std::string result;
  for (std::size_t i = 0; i < message.size(); ++i) {
    const bool isLast = i + 1 == message.size();
    if (message[i] != '%' || isLast) {
      result += message[i];
      continue;
    }
    const char next = message[++i];
    if (next >= '1' && next <= '9' && static_cast<std::size_t>(next - '0') <= inserts.size())
      result += inserts[static_cast<std::size_t>(next - '1')];
    else
      result += {'%', next};
  }
  if (result.size() >= 2 && result.substr(result.size() - 2) == "\r\n")
    result.resize(result.size() - 2);
  return result;
}

}  // namespace reference

#endif
