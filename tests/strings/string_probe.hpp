// string_probe.hpp - what the string tests look at behind a string's face: its buffer, the sharing, the building blocks.
#ifndef QUELMCL_TESTS_STRINGS_STRING_PROBE_HPP
#define QUELMCL_TESTS_STRINGS_STRING_PROBE_HPP

#include <quelmcl/istring.hpp>

#include <cstddef>
#include <string>

namespace stringtests {

/// The bytes of a literal, NULs of its own included.
template <std::size_t Size>
std::string bytes(const char (&literal)[Size])
{
  return std::string(literal, Size - 1);
}

/// A string of exactly these bytes.
inline IString made(const std::string& text)
{
  return IString(text.data(), static_cast<unsigned>(text.size()));
}

/// All bytes of a string.
inline std::string bytesOf(const IString& text)
{
  return std::string(static_cast<const char*>(text), text.length());
}

/// What is left of a text that is handed over as a C text: the part before its first NUL.
inline std::string asCText(const std::string& text)
{
  return text.substr(0, text.find('\0'));
}

/// A string that opens the building blocks which IString keeps for its derived classes.
class Probe : public IString {
public:
  Probe() = default;
  Probe(const IString& source) : IString(source) {}
  Probe(const char* text) : IString(text) {}
  Probe& operator=(const Probe&) = default;
  Probe(const Probe&) = default;

  using IString::applyBitOp;
  using IString::buffer;
  using IString::data;
  using IString::defaultBuffer;
  using IString::findPhrase;
  using IString::indexOfWord;
  using IString::isAbbrevFor;
  using IString::isLike;
  using IString::lengthOf;
  using IString::nullBuf;
  using IString::occurrencesOf;
  using IString::setBuffer;
  using IString::setDefaultBuffer;

  template <class... Arguments>
  void initBuffer(Arguments... arguments)
  {
    IString::initBuffer(arguments...);
  }

  static IBuffer* bufferOf(const IString& text)
  {
    struct Opener : IString {
      using IString::buffer;
    };
    return (text.*&Opener::buffer)();
  }
};

/// The buffer that holds the text.
inline IBuffer* bufferOf(const IString& text)
{
  return Probe::bufferOf(text);
}

/// How many strings share the text.
inline unsigned useCountOf(const IString& text)
{
  return bufferOf(text)->useCount();
}

/// Whether two strings hold one and the same buffer.
inline bool shareText(const IString& one, const IString& other)
{
  return bufferOf(one) == bufferOf(other);
}

/// The error id of the library's exception that `action` throws; 0 when it throws none.
template <class Action>
unsigned long errorIdOf(Action action)
{
  try {
    action();
  } catch (const IInvalidRequest& failure) {
    return failure.errorId();
  }
  return 0;
}

constexpr unsigned largest = 4294967295u;
constexpr unsigned long pastEnd = 1011;
constexpr unsigned long tooLong = 1010;

}  // namespace stringtests

#endif
