// forwardsearch.hpp - one search after the other through the same text, for either kind of buffer.
// Tests: tests/buffers/multibyte_search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_FORWARDSEARCH_HPP
#define QUELMCL_SRC_BUFFERS_FORWARDSEARCH_HPP

#include <quelmcl/idbcsb.hpp>

#include "buffers/charactersearch.hpp"

#include <optional>
#include <typeinfo>

namespace quelmcl::detail {

/// For loops over all occurrences of something: the searches of the buffer, from starts that do not decrease. A
/// multi-byte text is then passed over once, while each search of the buffer itself would have to find its start from
/// the front.
class ForwardSearch {
public:
  explicit ForwardSearch(const IBuffer& searched) : text(searched)
  {
    if (typeid(searched) == typeid(IDBCSBuffer))  // a class derived from it may search in its own way
      byCharacters.emplace(searched);
  }

  unsigned indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos)
  {
    return byCharacters ? byCharacters->indexOf(pSearchString, searchLen, startPos)
                        : text.indexOf(pSearchString, searchLen, startPos);
  }
  unsigned indexOf(const IStringTest& test, unsigned startPos)
  {
    return byCharacters ? byCharacters->indexOfAnyOf(test, startPos) : text.indexOf(test, startPos);
  }
  unsigned indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos)
  {
    return byCharacters ? byCharacters->indexOfAnyOf(pValidChars, numValidChars, startPos)
                        : text.indexOfAnyOf(pValidChars, numValidChars, startPos);
  }
  unsigned indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos)
  {
    return byCharacters ? byCharacters->indexOfAnyBut(pValidChars, numValidChars, startPos)
                        : text.indexOfAnyBut(pValidChars, numValidChars, startPos);
  }

private:
  const IBuffer& text;
  std::optional<CharacterSearch> byCharacters;
};

}  // namespace quelmcl::detail

#endif
