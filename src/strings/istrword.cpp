// istrword.cpp - IWordList: where all words of a text begin and end.
// Tests: tests/strings/word_list_test.cpp
#include <quelmcl/istrword.hpp>

#include "strings/words.hpp"

#include <cstring>

using quelmcl::detail::findsWordsByBytes;
using quelmcl::detail::forEachWordEdge;
using quelmcl::detail::measureWords;
using quelmcl::detail::WordReader;

IWordList::IWordList(const IString& text) : held(text)
{
  const IBuffer& buffer = *IBuffer::fromContents(static_cast<const char*>(held));
  const unsigned count = static_cast<unsigned>(measureWords(buffer).words);
  if (count == 0)
    return;
  places = IString(nullptr, IBuffer::checkMultiplication(count, bytesOfWord), '\0');

  char* to = places;  // of one owner so far
  const auto note = [&to](std::size_t place) {
    const unsigned offset = static_cast<unsigned>(place);
    std::memcpy(to, &offset, sizeof offset);
    to += sizeof offset;
  };
  if (findsWordsByBytes(buffer)) {
    forEachWordEdge(buffer.contents(), buffer.length(), note);
    return;
  }
  WordReader reader(buffer);
  for (auto word = reader.next(); word.pos != 0; word = reader.next()) {
    note(word.pos - 1);
    note(word.pos - 1 + word.len);
  }
}
