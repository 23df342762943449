// justify - lays out lines of text by what a reader sees: wraps, centres, right-aligns and reverses whole characters.
// Tests: tests/examples/justify_test.sh
//
// Strings count bytes, and a reader counts columns. Both are known here: the locale of the environment says where a
// character ends, and from there it is one step to the columns it takes up. What text there is between the blanks is
// passed on byte for byte, sound or broken.
#include <quelmcl/quelmcl.hpp>

#include <cerrno>
#include <clocale>
#include <cstring>
#include <cwchar>
#include <exception>
#include <fstream>
#include <iostream>
#include <vector>

namespace {

const char helpText[] =
  "Usage: justify [--help] [--width N] [--wrap|--left|--right|--center|--reverse]\n"
  "               [FILE...]\n"
  "\n"
  "Lays out the lines of the files (- or none: of standard input).\n"
  "\n"
  "  --width N  how many columns there are, 2 to 10000 (default: 72)\n"
  "  --wrap     break lines at blanks, and wider words anywhere; white space in a\n"
  "             row becomes one blank (this is the default)\n"
  "  --left     take away the white space around each line\n"
  "  --right    the same, then move each line to the right edge\n"
  "  --center   the same, then move each line to the middle\n"
  "  --reverse  turn the order of the characters in each line around\n"
  "  --help     print this text and nothing else\n"
  "\n"
  "Of several layouts the last counts. Only --wrap breaks a line that is too wide.\n"
  "--right and --center make blanks of tabs. Carriage returns at the end of a line\n"
  "are left out. What a character is, the locale of the environment says: Chinese,\n"
  "Japanese and Korean ones take two columns, combining marks none, and every\n"
  "broken byte is a character of one column.\n"
  "\n"
  "Exit status: 0 if all went well; 1 if an input could not be read or the output\n"
  "could not be written; 2 for wrong options.\n";

enum ExitStatus { allWell = 0, troubleWithFiles = 1, wrongUsage = 2 };

// ---- columns ----

struct Character {
  unsigned length, columns;
};

/// The character that begins at `text`, which is part of a string. One of no known width, such as a control character,
/// is given one column; so is a broken byte, of which a terminal shows that there was something.
Character characterAt(const char* text)
{
  const unsigned length = IDBCSBuffer::charLength(text);
  std::mbstate_t atItsBeginning = std::mbstate_t();
  wchar_t code = 0;
  const bool isSound = std::mbrtowc(&code, text, length, &atItsBeginning) <= length;
  const int columns = isSound ? wcwidth(code) : -1;
  return {length, columns < 0 ? 1 : static_cast<unsigned>(columns)};
}

/// How many columns the text takes up. Stepping by characters costs the same in every character set; asking
/// charType() for each byte would, in some of them, walk from the beginning of the text every time.
unsigned columnsOf(const IString& text)
{
  const char* const bytes = text;
  unsigned columns = 0;
  for (unsigned offset = 0; offset < text.length();) {
    const Character character = characterAt(bytes + offset);
    offset += character.length;
    columns += character.columns;
  }
  return columns;
}

/// How many bytes the text must have to be `width` columns wide: a blank is one byte and one column, so the missing
/// columns are missing bytes. A text that has no columns, or too many, keeps its length.
unsigned lengthFor(unsigned width, const IString& text)
{
  const unsigned columns = columnsOf(text);
  return columns == 0 || columns >= width ? text.length() : text.length() + (width - columns);
}

// ---- layouts ----

void writeLine(const IString& text)
{
  std::cout.write(text, static_cast<std::streamsize>(text.length())) << '\n';  // operator<< would stop at a NUL byte
}

/// How many bytes from `offset` on make one line of output: to the last blank that comes early enough, or, where there
/// is none, as many characters as fit. There is always room for one.
unsigned fittingLength(const IString& text, unsigned offset, unsigned width)
{
  const char* const bytes = text;
  unsigned columns = 0, end = offset, blank = offset;
  while (end < text.length()) {
    const Character character = characterAt(bytes + end);
    if (bytes[end] == ' ')
      blank = end;  // it may be just beyond the edge
    columns += character.columns;
    if (columns > width)
      return (blank > offset ? blank : end) - offset;
    end += character.length;
  }
  return end - offset;
}

void wrap(IString line, unsigned width)
{
  line.space();  // one blank between words, and none around them
  const char* const bytes = line;
  unsigned offset = 0;
  do {
    const unsigned length = fittingLength(line, offset, width);
    writeLine(IString(bytes + offset, length));  // cut between characters: subString() would look for that once more
    offset += length;
    offset += bytes[offset] == ' ';  // this blank has become the end of the line
  } while (offset < line.length());
}

void alignLeft(IString line, unsigned)
{
  writeLine(line.strip());
}

void alignRight(IString line, unsigned width)
{
  line.strip().change("\t", " ");
  writeLine(line.rightJustify(lengthFor(width, line)));
}

void center(IString line, unsigned width)
{
  line.strip().change("\t", " ");
  writeLine(line.center(lengthFor(width, line)).stripTrailing());
}

void reverse(IString line, unsigned)
{
  writeLine(line.reverse());  // characters stay whole; a combining mark comes to stand before its letter
}

struct Layout {
  const char* option;
  void (*write)(IString line, unsigned width);
};

const Layout layouts[] = {
  {"--wrap", wrap}, {"--left", alignLeft}, {"--right", alignRight}, {"--center", center}, {"--reverse", reverse},
};

// ---- files ----

/// Throws what the C library says of the failure it reported last.
[[noreturn]] void throwAccessError()
{
  const int errorNumber = errno;
  throw IAccessError(std::strerror(errorNumber), static_cast<unsigned long>(errorNumber), IException::recoverable);
}

void layOut(const IString& path, const Layout& layout, unsigned width)
{
  std::ifstream file;
  if (path != "-") {
    file.open(path);
    if (!file)
      throwAccessError();
  }
  std::istream& input = path == "-" ? std::cin : file;
  while (input.peek() != std::istream::traits_type::eof())
    layout.write(IString::lineFrom(input).stripTrailing('\r'), width);
  if (input.bad())
    throwAccessError();
}

// ---- the program ----

struct Options {
  bool helpWanted = false;
  unsigned width = 72;
  const Layout* layout = layouts;
  std::vector<IString> files;
};

/// The text behind --width, which is null behind the last argument: the empty text, and no number.
unsigned widthFrom(const IString& text)
{
  const unsigned long width = text.asUnsigned();
  if (!text.isDigits() || width < 2 || width > 10000)  // 2: every character has room
    throw IInvalidParameter("--width is followed by a number from 2 to 10000");
  return static_cast<unsigned>(width);
}

const Layout& layoutFrom(const IString& option)
{
  for (const Layout& layout : layouts)
    if (option == layout.option)
      return layout;
  throw IInvalidParameter("there is no option " + option + "; --help tells which there are");
}

Options optionsFrom(int argumentCount, char* arguments[])
{
  Options options;
  for (int i = 1; i < argumentCount; ++i) {
    const IString argument = arguments[i];
    if (argument == "--help")
      options.helpWanted = true;
    else if (argument == "--width")
      options.width = widthFrom(arguments[++i]);
    else if (argument.isLike("-?*"))
      options.layout = &layoutFrom(argument);
    else
      options.files.push_back(argument);
  }
  if (options.files.empty())
    options.files.push_back("-");
  return options;
}

/// A failure in one sentence: first what was attempted, then why it failed.
void tell(const IException& failure)
{
  IString sentence = "justify";
  for (unsigned long i = 0; i < failure.textCount(); ++i)
    sentence += ": " + IString(failure.text(i));
  std::cerr << sentence << '\n';
}

ExitStatus run(const Options& options)
{
  if (options.helpWanted) {
    std::cout << helpText;
    return allWell;
  }

  ExitStatus status = allWell;
  for (const IString& file : options.files) {
    try {
      layOut(file, *options.layout, options.width);
    } catch (IException& failure) {  // the other files are read all the same
      tell(failure.setText(file));
      status = troubleWithFiles;
    }
  }
  return status;
}

}  // namespace

int main(int argc, char* argv[])
{
  // Before the first string: one that is made earlier takes every byte for a character, whatever comes later.
  if (std::setlocale(LC_ALL, "") == nullptr)
    std::cerr << "justify: there is no locale as the environment names it; every byte is taken for a character\n";

  std::ios::sync_with_stdio(false);
  try {
    const Options options = optionsFrom(argc, argv);
    const ExitStatus status = run(options);
    if (!std::cout.flush())
      throw IAccessError("the text could not be written");
    return status;
  } catch (const IInvalidParameter& failure) {
    tell(failure);
    return wrongUsage;
  } catch (const IException& failure) {
    tell(failure);
  } catch (const std::exception& failure) {
    std::cerr << "justify: " << failure.what() << '\n';
  }
  return troubleWithFiles;
}
