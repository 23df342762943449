// istparse.cpp - IStringParser: the operators that templates are written with.
// Tests: tests/parsing/parser_test.cpp
#include <quelmcl/istparse.hpp>

#include "parsing/istpdata.hpp"

#include <algorithm>
#include <limits>

// ---- the handle ----

IStringParser::IStringParser(const IString& text) : fData(new IStringParserData(text)) {}

IStringParser::IStringParser(const IStringParser& other) noexcept : IBase(other), fData(other.fData)
{
  fData->addRef();
}

IStringParser::~IStringParser()
{
  fData->removeRef();
}

// ---- elements ----

IStringParser& IStringParser::operator>>(IString& token)
{
  fData->processToken(token);
  return *this;
}

IStringParser& IStringParser::operator>>(const IString& pattern)
{
  fData->processPattern(pattern);
  return *this;
}

IStringParser& IStringParser::operator>>(const char* pattern)
{
  fData->processPattern(pattern);
  return *this;
}

IStringParser& IStringParser::operator>>(char pattern)
{
  fData->processPattern(pattern);
  return *this;
}

IStringParser& IStringParser::operator>>(const IStringTest& test)
{
  fData->processTest(test);
  return *this;
}

IStringParser& IStringParser::operator>>(int distance)
{
  fData->changePosition(distance);
  return *this;
}

IStringParser& IStringParser::operator>>(long distance)
{
  return *this >> static_cast<long long>(distance);
}

// Texts are so much shorter than the range of a long that a distance beyond it leaves them anyway.
IStringParser& IStringParser::operator>>(long long distance)
{
  constexpr long long lowest = std::numeric_limits<int>::min();
  if (distance >= 0)
    return *this >> static_cast<unsigned long long>(distance);
  if (distance >= lowest)
    return *this >> static_cast<int>(distance);
  fData->moveBack(static_cast<unsigned long>(-std::max(distance, -4294967295ll)));
  return *this;
}

IStringParser& IStringParser::operator>>(unsigned distance)
{
  return *this >> static_cast<unsigned long>(distance);
}

IStringParser& IStringParser::operator>>(unsigned long distance)
{
  fData->changePosition(distance);
  return *this;
}

IStringParser& IStringParser::operator>>(unsigned long long distance)
{
  return *this >>
         static_cast<unsigned long>(std::min<unsigned long long>(distance, std::numeric_limits<unsigned long>::max()));
}

IStringParser& IStringParser::operator<<(unsigned long position)
{
  fData->setPosition(position);
  return *this;
}

IStringParser& IStringParser::operator>>(Command command)
{
  if (command == reset)
    fData->setPosition(1);
  else if (command == skipWord)
    fData->processSkip();
  return *this;
}

IStringParser& IStringParser::operator>>(const SkipWords& skip)
{
  fData->processSkips(skip.numberOfWords());
  return *this;
}

// ---- the beginning of a chain ----

template <class Element>
IStringParser IStringParser::begin(const IString& text, Element& element)
{
  IStringParser parser(text);
  parser >> element;
  return parser;
}

IStringParser operator>>(const IString& text, IString& token)
{
  return IStringParser::begin(text, token);
}

IStringParser operator>>(const IString& text, const IString& pattern)
{
  return IStringParser::begin(text, pattern);
}

IStringParser operator>>(const IString& text, const char* pattern)
{
  return IStringParser::begin(text, pattern);
}

IStringParser operator>>(const IString& text, char pattern)
{
  return IStringParser::begin(text, pattern);
}

IStringParser operator>>(const IString& text, const IStringTest& test)
{
  return IStringParser::begin(text, test);
}

IStringParser operator>>(const IString& text, int distance)
{
  return IStringParser::begin(text, distance);
}

IStringParser operator>>(const IString& text, long distance)
{
  return IStringParser::begin(text, distance);
}

IStringParser operator>>(const IString& text, long long distance)
{
  return IStringParser::begin(text, distance);
}

IStringParser operator>>(const IString& text, unsigned distance)
{
  return IStringParser::begin(text, distance);
}

IStringParser operator>>(const IString& text, unsigned long distance)
{
  return IStringParser::begin(text, distance);
}

IStringParser operator>>(const IString& text, unsigned long long distance)
{
  return IStringParser::begin(text, distance);
}

IStringParser operator<<(const IString& text, unsigned long position)
{
  IStringParser parser(text);
  parser << position;
  return parser;
}

IStringParser operator>>(const IString& text, IStringParser::Command command)
{
  return IStringParser::begin(text, command);
}

IStringParser operator>>(const IString& text, const IStringParser::SkipWords& skip)
{
  return IStringParser::begin(text, skip);
}
