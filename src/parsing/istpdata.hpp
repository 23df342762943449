// istpdata.hpp - IStringParserData: the state of one parse, shared by the handles of its chain.
// Tests: tests/parsing/parser_test.cpp
#ifndef QUELMCL_SRC_PARSING_ISTPDATA_HPP
#define QUELMCL_SRC_PARSING_ISTPDATA_HPP

#include <quelmcl/istring.hpp>

#include <memory>

namespace quelmcl::detail {
class PartOfText;
}

/// Positions count from 1. The place behind the text, one more than its length, stands for all that is not there.
class IStringParserData : public IVBase {
public:
  explicit IStringParserData(const IString& text);
  ~IStringParserData() override;

  void addRef() noexcept { ++refs; }
  void removeRef() noexcept;

  void processToken(IString& token);
  void processSkip();
  void processSkips(unsigned long count);
  void processPattern(const IString& pattern);
  void processPattern(const char* pattern);
  void processPattern(char pattern);
  void processTest(const IStringTest& test);
  void setPosition(unsigned long position);
  void changePosition(unsigned long distance);
  void changePosition(int delta);
  void moveBack(unsigned long distance);

private:
  void skipWord(quelmcl::detail::PartOfText& words);
  void reparseLastToken();
  void reparseLastToken(quelmcl::detail::PartOfText& words);
  void reparseTokens(unsigned long startPos, unsigned long stopPos);
  void shareOut(const IString& text, unsigned long from, unsigned long behind);
  void reparseMatch();
  void saveToken(IString* token);
  void clearSavedTokens() noexcept;
  void matched(unsigned long position, unsigned long length);
  unsigned searchStart() const noexcept;
  unsigned long behindText() const noexcept { return parseText.length() + 1ul; }

  IString parseText;
  unsigned long currentPosition;  // where the next token starts
  unsigned long patternPosition;  // where the last pattern begins, or the position last set
  unsigned long patternLength;    // of the last match of a literal; 0 behind positions, tests and failed searches
  unsigned long tokenCount;
  unsigned long tokenArraySize;
  IString* lastToken;                      // assigned last, and holds all the rest as yet; null when there is none
  int lastSkip;                            // the last element was a skip, of which the word is yet to be passed
  std::unique_ptr<IString*[]> usedTokens;  // those since the last pattern; null entries are skips
  unsigned long refs;
};

#endif
