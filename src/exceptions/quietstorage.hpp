// quietstorage.hpp - storage for exceptions and messages: it is asked for without ever throwing, since it is asked
// for while something else has already failed.
#ifndef QUELMCL_SRC_EXCEPTIONS_QUIETSTORAGE_HPP
#define QUELMCL_SRC_EXCEPTIONS_QUIETSTORAGE_HPP

#include <cstring>
#include <new>

namespace quelmcl::detail {

/// Suspends the process's new-handler and puts it back on every path. A handler that reports exhausted storage by an
/// exception of this library would otherwise be entered again by the very work of reporting it.
///
/// Two threads may pause it at once: the second one finds none, and must not take away at its end what the first one
/// has put back meanwhile.
class NewHandlerPause {
public:
  NewHandlerPause() noexcept : suspended(std::set_new_handler(nullptr)) {}
  ~NewHandlerPause()
  {
    if (suspended != nullptr)
      std::set_new_handler(suspended);
  }
  NewHandlerPause(const NewHandlerPause&) = delete;
  NewHandlerPause& operator=(const NewHandlerPause&) = delete;

private:
  std::new_handler suspended;
};

/// Room for `count` characters, or null. Given back with releaseText.
inline char* obtainText(std::size_t count) noexcept
{
  return new (std::nothrow) char[count];
}

inline void releaseText(const char* text) noexcept
{
  delete[] text;
}

/// The three texts as one. Unlike everything else here it throws what the new-handler throws, where there is no
/// storage.
inline char* joinTextsOrThrow(const char* first, const char* second, const char* third)
{
  const std::size_t firstLength = std::strlen(first);
  const std::size_t secondLength = std::strlen(second);
  const std::size_t thirdSize = std::strlen(third) + 1;
  char* const joined = new char[firstLength + secondLength + thirdSize];
  std::memcpy(joined, first, firstLength);
  std::memcpy(joined + firstLength, second, secondLength);
  std::memcpy(joined + firstLength + secondLength, third, thirdSize);
  return joined;
}

/// `first` and then `second` as one new text; null when there is no storage.
inline char* joinTexts(const char* first, const char* second) noexcept
{
  const std::size_t firstLength = std::strlen(first);
  const std::size_t secondSize = std::strlen(second) + 1;
  char* const joined = obtainText(firstLength + secondSize);
  if (joined != nullptr) {
    std::memcpy(joined, first, firstLength);
    std::memcpy(joined + firstLength, second, secondSize);
  }
  return joined;
}

/// A copy of `text`; null for null and when there is no storage.
inline char* copyText(const char* text) noexcept
{
  return text == nullptr ? nullptr : joinTexts("", text);
}

/// Owns a text for the length of a block.
class QuietText {
public:
  explicit QuietText(char* owned) noexcept : text(owned) {}
  ~QuietText() { releaseText(text); }
  QuietText(const QuietText&) = delete;
  QuietText& operator=(const QuietText&) = delete;
  char* get() const noexcept { return text; }

private:
  char* text;
};

}  // namespace quelmcl::detail

#endif
