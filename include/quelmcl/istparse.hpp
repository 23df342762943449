/// @file istparse.hpp
/// IStringParser, which splits a string by a template: a chain of variables, and of what stands between them.
///
///     IString key, value, rest;
///     IString line("key=value; rest");
///     line >> key >> "=" >> value >> ';' >> rest;    // "key", "value", " rest"
///     IString("20240115") >> year >> 4 >> month >> 2 >> day;
///     line >> IStringParser::SkipWords(2) >> third;
///
/// **Elements.** What follows `>>` or `<<` in the chain is one of these:
///
/// | element | meaning |
/// |---|---|
/// | a variable: a non-const IString | receives a piece of the text |
/// | `IStringParser::skipWord`, `SkipWords(n)` | takes one word, n words, and drops them |
/// | a text or a character | the next place where it stands ends the piece before it, and the next begins behind it |
/// | an IStringTest, or a function such as `isdigit` | the next character that passes ends the piece, and begins the next |
/// | `<< n` | the piece ends before position n, where the next begins |
/// | `>> n` | the same for the position n bytes behind (before, if negative) where the last pattern began |
/// | `IStringParser::reset` | back to position 1 |
///
/// Texts, characters, tests and positions are the *patterns*. The variables and skips between two patterns share the
/// text between them: each takes one word, the white space in front of it dropped and one white-space character behind
/// it consumed, but the last variable takes all that is left, white space included. A pattern that is not found stands
/// behind the end of the text: the variables before it share the rest, those behind it become empty. White space is the
/// same six characters that separate words in IString.
///
/// A variable is assigned when its element is reached, and has its final value when the element after it has been; it
/// must live until the end of the chain. The parser works on a copy of the string, so variables may be the string
/// itself or patterns of the same chain.
///
/// **Types.** A const IString and a temporary are patterns. `int`, `long` and `long long` move forwards or backwards,
/// `unsigned`, `unsigned long` and `unsigned long long` forwards. A `char` is a pattern behind `>>` but a number behind
/// `<<`: `<< '3'` is position 51. Streams are not concerned: `cin >> s` and `cout << s` are what they were.
///
/// **Positions** are bytes from 1 on, also for an I0String. Out of range is not an error: 0 is 1, and what lies behind
/// the end is the place behind the last byte.
///
/// **Failures.** None of its own. Without storage IOutOfMemory; variables reached before hold then what they had got.
///
/// **Cost.** Linear in the text for each element. In the multi-byte kind texts are split between characters only.
#ifndef QUELMCL_ISTPARSE_HPP
#define QUELMCL_ISTPARSE_HPP

#include <quelmcl/ibase.hpp>

class IString;
class IStringParserData;
class IStringTest;

/// The parser that a chain works on. The first `>>` or `<<` behind a string makes it, the others return it, and it ends
/// with the full expression; there is nothing else to do with it.
class QUELMCL_API IStringParser : public IBase {
public:
  /// What a chain can do without a variable or a pattern.
  enum Command {
    reset = 0,    ///< go back to position 1
    skipWord = 1  ///< take one word and drop it
  };

  /// As many words to take and drop; words that are not there cost nothing.
  class QUELMCL_API SkipWords {
  public:
    /// That many.
    SkipWords(unsigned long numWords) noexcept : fNumSkip(numWords) {}
    /// How many.
    unsigned long numberOfWords() const noexcept { return fNumSkip; }

  private:
    unsigned long fNumSkip;
  };

  ~IStringParser();
  IStringParser& operator=(const IStringParser&) = delete;

  /// @name Elements
  /// Each does what the table above says and returns this parser for the next.
  /// @{
  IStringParser& operator>>(IString& token);
  IStringParser& operator>>(const IString& pattern);
  IStringParser& operator>>(const char* pattern);
  IStringParser& operator>>(char pattern);
  IStringParser& operator>>(const IStringTest& test);
  IStringParser& operator>>(int distance);
  IStringParser& operator>>(long distance);
  IStringParser& operator>>(long long distance);
  IStringParser& operator>>(unsigned distance);
  IStringParser& operator>>(unsigned long distance);
  IStringParser& operator>>(unsigned long long distance);
  IStringParser& operator<<(unsigned long position);
  IStringParser& operator>>(Command command);
  IStringParser& operator>>(const SkipWords& skip);
  /// @}

protected:
  /// A parser of a copy of the text, nothing of it taken yet.
  explicit IStringParser(const IString& text);
  /// Another handle on the same parse.
  IStringParser(const IStringParser& other) noexcept;

private:
  template <class Element>
  static IStringParser begin(const IString& text, Element& element);

  friend QUELMCL_API IStringParser operator>>(const IString& text, IString& token);
  friend QUELMCL_API IStringParser operator>>(const IString& text, const IString& pattern);
  friend QUELMCL_API IStringParser operator>>(const IString& text, const char* pattern);
  friend QUELMCL_API IStringParser operator>>(const IString& text, char pattern);
  friend QUELMCL_API IStringParser operator>>(const IString& text, const IStringTest& test);
  friend QUELMCL_API IStringParser operator>>(const IString& text, int distance);
  friend QUELMCL_API IStringParser operator>>(const IString& text, long distance);
  friend QUELMCL_API IStringParser operator>>(const IString& text, long long distance);
  friend QUELMCL_API IStringParser operator>>(const IString& text, unsigned distance);
  friend QUELMCL_API IStringParser operator>>(const IString& text, unsigned long distance);
  friend QUELMCL_API IStringParser operator>>(const IString& text, unsigned long long distance);
  friend QUELMCL_API IStringParser operator<<(const IString& text, unsigned long position);
  friend QUELMCL_API IStringParser operator>>(const IString& text, Command command);
  friend QUELMCL_API IStringParser operator>>(const IString& text, const SkipWords& skip);

  IStringParserData* fData;
};

/// @name The beginning of a chain
/// A parser of a copy of the text that has done the first element.
/// @{
QUELMCL_API IStringParser operator>>(const IString& text, IString& token);
QUELMCL_API IStringParser operator>>(const IString& text, const IString& pattern);
QUELMCL_API IStringParser operator>>(const IString& text, const char* pattern);
QUELMCL_API IStringParser operator>>(const IString& text, char pattern);
QUELMCL_API IStringParser operator>>(const IString& text, const IStringTest& test);
QUELMCL_API IStringParser operator>>(const IString& text, int distance);
QUELMCL_API IStringParser operator>>(const IString& text, long distance);
QUELMCL_API IStringParser operator>>(const IString& text, long long distance);
QUELMCL_API IStringParser operator>>(const IString& text, unsigned distance);
QUELMCL_API IStringParser operator>>(const IString& text, unsigned long distance);
QUELMCL_API IStringParser operator>>(const IString& text, unsigned long long distance);
QUELMCL_API IStringParser operator<<(const IString& text, unsigned long position);
QUELMCL_API IStringParser operator>>(const IString& text, IStringParser::Command command);
QUELMCL_API IStringParser operator>>(const IString& text, const IStringParser::SkipWords& skip);
/// @}

#endif
