// building.cpp - benchmarks: texts that grow piece by piece, and texts that are read from streams. Each byte has to be
// written once; whoever does not know the length beforehand copies it about once more.
#include "frame.hpp"

#include <quelmcl/istrbld.hpp>

#include <istream>
#include <streambuf>

namespace {

using bench::Workload;

// ---- appending ----

Workload pieces("build_pieces_of_8", bench::randomBytes, {{64, 1.5}, {1024, 1.5}, {65536, 1.5}, {8000000, 1.5}});
Workload characters("build_characters", bench::randomBytes, {{64, 1.5}, {1024, 1.5}, {65536, 1.5}});

template <class Text>
void appendPieces(Text& text, const std::string& data)
{
  for (std::size_t offset = 0; offset < data.size(); offset += 8)
    text.append(data.data() + offset, 8u);
}

template <class Text>
void appendCharacters(Text& text, const std::string& data)
{
  for (const char character : data)
    text += character;
}

template <void (*build)(IStringBuilder&, const std::string&), void (*buildPeer)(std::string&, const std::string&)>
bool buildContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [&data] {
      IStringBuilder builder;
      build(builder, data);
      return builder.handOver();
    };
  });
  return workload.contender("std::string", [](const std::string& data) {
    return [&data] {
      std::string text;
      buildPeer(text, data);
      return text;
    };
  });
}

// ---- reading ----

/// Lines of small letters, none to twice `length` of them, one word in five of each.
std::string linesOf(std::size_t size, unsigned length)
{
  std::mt19937 random(static_cast<unsigned>(size));
  std::string text(size, '\n');
  std::size_t left = length;
  for (char& byte : text) {
    if (left-- == 0) {
      left = random() % (2 * length);
      continue;
    }
    byte = random() % 6 == 0 ? ' ' : static_cast<char>('a' + random() % 26);
  }
  text.back() = '\n';
  return text;
}

template <unsigned length>
std::string linesAbout(std::size_t size)
{
  return linesOf(size, length);
}

Workload shortLines("read_lines_of_40", linesAbout<40>, {{1024, 1.5}, {65536, 1.5}, {16777216, 1.5}},
                    bench::Limit::scan);
Workload longLines("read_lines_of_1000", linesAbout<1000>, {{65536, 1.5}, {16777216, 1.5}}, bench::Limit::scan);
Workload words("read_words", linesAbout<40>, {{1024, 1.5}, {65536, 1.5}}, bench::Limit::scan);

/// Input from memory that can begin again at no cost.
class Replay : private std::streambuf, public std::istream {
public:
  explicit Replay(std::string bytes) : std::istream(static_cast<std::streambuf*>(this)), data(std::move(bytes)) {}
  Replay(const Replay& other) : Replay(other.data) {}

  Replay& again()
  {
    setg(data.data(), data.data(), data.data() + data.size());
    clear();
    return *this;
  }

private:
  std::string data;
};

std::string counted(std::size_t texts, std::size_t bytes)
{
  return std::to_string(texts) + " texts, " + std::to_string(bytes) + " bytes";
}

/// All texts of the input, read one after the other by `next`, which tells whether there was one.
template <class Text, bool (*next)(std::istream&, Text&)>
auto reading(const std::string& data)
{
  return [input = Replay(data)]() mutable {
    std::istream& stream = input.again();
    std::size_t texts = 0;
    std::size_t bytes = 0;
    for (Text text; next(stream, text);) {
      ++texts;
      bytes += text.size();
    }
    return counted(texts, bytes);
  };
}

bool nextLine(std::istream& stream, IString& line)
{
  line = IString::lineFrom(stream);
  return !stream.fail();
}

bool nextStandardLine(std::istream& stream, std::string& line)
{
  return !std::getline(stream, line).fail();
}

template <class Text>
bool nextWord(std::istream& stream, Text& word)
{
  return !(stream >> word).fail();
}

bool lineContenders(Workload& workload)
{
  workload.contender("quelmcl", reading<IString, nextLine>);
  return workload.contender("std::getline", reading<std::string, nextStandardLine>);
}

const bool all[] = {
  buildContenders<appendPieces<IStringBuilder>, appendPieces<std::string>>(pieces),
  buildContenders<appendCharacters<IStringBuilder>, appendCharacters<std::string>>(characters),
  lineContenders(shortLines),
  lineContenders(longLines),
  words.contender("quelmcl", reading<IString, nextWord<IString>>),
  words.contender("std::string", reading<std::string, nextWord<std::string>>),
};

}  // namespace
