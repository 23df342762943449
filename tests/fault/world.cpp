// world.cpp - the objects that the operations of the table work on, and what can be told of them.
#include "world.hpp"

#include <cctype>
#include <cstring>
#include <sstream>

namespace faulttests {

namespace {

const char catalogOfTheRun[] = "quelmcl.cat";

int isVowelLetter(int letter)
{
  return letter > 0 && std::strchr("aeiou", letter) != nullptr;
}

// Letters of two and three bytes among the others: three characters for the multi-byte kind, seven for the other.
const char wordsText[] = "  alpha, b\xC3\xA9ta gamma \xE2\x82\xAC 5\tdelta alpha  ";

std::string countedDigits(std::size_t count)
{
  std::string digits;
  while (digits.size() < count)
    digits += static_cast<char>('1' + digits.size() * 7 % 9);
  return digits;
}

// Long enough for the ways to convert numbers that need working storage.
const std::string thousandsOfDigits = countedDigits(9000);
const std::string thousandsOfBytes(3500, '\x5A');

IBuffer* bufferBehind(const IString& text)
{
  return IBuffer::fromContents(static_cast<const char*>(text));
}

}  // namespace

void FixedStorage::rewind()
{
  setg(toRead.data(), toRead.data(), toRead.data() + toRead.size());
  setp(output, output + sizeof output);
}

World::World(Sharing sharing)
  : words(wordsText, sharing),
    bytes(std::string("\0\x12\x34\xFF\x80zyx\x01\x7F", 10), sharing),
    digits(countedDigits(60), sharing),
    manyDigits(thousandsOfDigits, sharing),
    hexDigits("0123456789abcdefABCDEF", sharing),
    binaryDigits("101100111000101", sharing),
    manyBytes(thousandsOfBytes, sharing),
    zeroBased(wordsText, sharing),
    argument("alpha"),
    longArgument(std::string(300, 'x').c_str()),
    set("aeiou,"),
    pattern("*alpha*g?mma*"),
    dateText("2024-02-29"),
    timeText("23:59:58"),
    first(argument),
    second("second"),
    names{"delta", "alpha", "charlie", "bravo", "echo", "alpha"},
    otherNames{"one", "two", "three"},
    date(IDate::February, 29, 2024),
    time(23, 59, 58),
    failure("oldest", 31, IException::recoverable),
    message(4, catalogOfTheRun),
    isVowel(isVowelLetter),
    storage("first-word of a line\nthe second line, which is the longer one of the two lines\n"),
    stream(&storage),
    brokenClaim(nullptr)
{
  failure.setText("middle").setText("newest").addLocation(IExceptionLocation("file", "function", 7));
  names.add(argument);
  IBase::setMessageFile(catalogOfTheRun);
}

World::~World()
{
  IBase::setMessageFile(catalogOfTheRun);
}

IBuffer* World::bufferOf(const IString& text)
{
  return bufferBehind(text);
}

std::vector<const IString*> World::strings() const
{
  std::vector<const IString*> all = {&first,        &second,  &third,    &result,   &argument,       &set,
                                     &longArgument, &pattern, &dateText, &timeText, &zeroBased.text, &zeroBased.sharer};
  for (const auto* const both : {&words, &bytes, &digits, &manyDigits, &hexDigits, &binaryDigits, &manyBytes}) {
    all.push_back(&both->text);
    all.push_back(&both->sharer);
  }
  for (const ILinkedSequence<IString>* const sequence : {&names, &otherNames})
    for (const IString& name : *sequence)
      all.push_back(&name);
  return all;
}

std::string World::description() const
{
  std::ostringstream told;
  const std::vector<const IString*> all = strings();
  for (const IString* const text : all) {
    std::size_t sharedWith = 0;
    while (bufferBehind(*all[sharedWith]) != bufferBehind(*text))
      ++sharedWith;
    told << std::string(static_cast<const char*>(*text), text->length() + 1);
    if (text->length() != 0)  // the null buffer is everybody's
      told << " as " << sharedWith << ", " << bufferBehind(*text)->useCount() << " references";
    told << '\n';
  }
  told << names.size() << ' ' << otherNames.size() << ' ' << names.isConsistent() << otherNames.isConsistent() << '\n'
       << date.julianDate() << ' ' << time.asSeconds() << ' ' << IBase::messageFile() << '\n'
       << failure.errorId() << ' ' << failure.locationCount() << ' ' << failure.textCount() << '\n';
  for (const char* const text : {failure.text(0), failure.text(1), failure.text(2), message.text()})
    told << (text == nullptr ? "(none)" : text) << '\n';
  return told.str();
}

testing::AssertionResult World::countsAreRight() const
{
  const std::vector<const IString*> all = strings();
  for (const IString* const text : all) {
    unsigned holders = 0;
    for (const IString* const other : all)
      holders += bufferBehind(*other) == bufferBehind(*text);
    if (text->length() != 0 && bufferBehind(*text)->useCount() != holders)
      return testing::AssertionFailure() << holders << " strings hold \"" << static_cast<const char*>(*text)
                                         << "\", whose buffer counts " << bufferBehind(*text)->useCount();
  }
  return testing::AssertionSuccess();
}

}  // namespace faulttests
