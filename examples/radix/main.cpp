// radix - writes whole numbers of any length in another form: binary, decimal or hexadecimal digits, or plain bytes.
// Tests: tests/examples/radix_test.sh
//
// Strings convert by way of bytes, and so does this program: whatever a number comes in becomes bytes, and they become
// whatever it is to go out in.
#include <quelmcl/quelmcl.hpp>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <exception>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

const char helpText[] =
  "Usage: radix [--help] [--from FORM] [--to FORM] [NUMBER...]\n"
  "\n"
  "Converts whole numbers of any length. Without a NUMBER, the numbers are the\n"
  "lines of standard input.\n"
  "\n"
  "  --from FORM  what the numbers are written in (default: 10)\n"
  "  --to FORM    what they are to be written in (default: 16)\n"
  "  --help       print this text and nothing else\n"
  "\n"
  "The forms are\n"
  "\n"
  "  2, 10, 16  binary, decimal and hexadecimal digits, a line for each number,\n"
  "             without zeros in front; small letters may be read, too\n"
  "  bytes      the bytes of the number, the most significant one first; standard\n"
  "             input is one number then, and nothing is written behind a number\n"
  "\n"
  "Exit status: 0 if all went well; 1 if something was no number, or could not be\n"
  "read or written; 2 for wrong options.\n";

enum ExitStatus { allWell = 0, troubleWithNumbers = 1, wrongUsage = 2 };

// ---- forms ----

/// Decimal digits as bytes. The first ten digits of a string count for 2147483647 at most, so they had better be zeros.
IString bytesOfDecimal(const IString& digits)
{
  return IString::d2c("0000000000" + digits);
}

IString asItIs(const IString& bytes)
{
  return bytes;
}

struct Form {
  const char* name;
  const char* digitName;  ///< null for bytes
  const char* digits;
  IString (*toBytes)(const IString&);
  IString (*fromBytes)(const IString&);
};

const Form forms[] = {
  {"2", "binary", "01", &IString::b2c, &IString::c2b},
  {"10", "decimal", "0123456789", bytesOfDecimal, &IString::c2d},
  {"16", "hexadecimal", "0123456789ABCDEFabcdef", &IString::x2c, &IString::c2x},
  {"bytes", nullptr, nullptr, asItIs, asItIs},
};

bool isBytes(const Form& form)
{
  return form.digitName == nullptr;
}

// ---- numbers ----

/// A few bytes of a text that nobody wants to see the whole of.
IString shortened(const IString& text)
{
  const unsigned shown = 20;
  return text.length() <= 2 * shown ? text
                                    : text.subString(1, shown) + "..." + text.subString(text.length() - shown + 1);
}

IString shownCharacter(char character)
{
  const bool isPlain = std::isgraph(static_cast<unsigned char>(character)) != 0;
  return isPlain ? IString("'") + character + "'" : "byte 0x" + IString::c2x(character);
}

void checkDigits(const IString& number, const Form& form)
{
  if (number.length() == 0)
    throw IInvalidParameter("there are no digits");
  const unsigned wrong = number.indexOfAnyBut(form.digits);
  if (wrong > 0)
    throw IInvalidParameter(shortened(number) + ": " + shownCharacter(number[wrong]) + " at place " + IString(wrong) +
                            " is no " + form.digitName + " digit");
}

void convert(const IString& number, const Form& from, const Form& to)
{
  if (!isBytes(from))
    checkDigits(number, from);
  IString converted = to.fromBytes(from.toBytes(number));
  if (!isBytes(to)) {
    converted.stripLeading('0');
    converted += converted.length() == 0 ? "0\n" : "\n";
  }
  std::cout.write(converted, static_cast<std::streamsize>(converted.length()));
}

/// A failure in one sentence: first what was attempted, then why it failed.
void tell(const IException& failure)
{
  IString sentence = "radix";
  for (unsigned long i = 0; i < failure.textCount(); ++i)
    sentence += ": " + IString(failure.text(i));
  std::cerr << sentence << '\n';
}

// ---- the program ----

struct Options {
  bool helpWanted = false;
  const Form* from = &forms[1];
  const Form* to = &forms[2];
  std::vector<IString> numbers;
};

/// The form behind an option; its name is null behind the last argument: the empty text, and no form.
const Form& formFrom(const IString& option, const IString& name)
{
  for (const Form& form : forms)
    if (name == form.name)
      return form;
  throw IInvalidParameter(option + " is followed by 2, 10, 16 or bytes");
}

Options optionsFrom(int argumentCount, char* arguments[])
{
  Options options;
  for (int i = 1; i < argumentCount; ++i) {
    const IString argument = arguments[i];
    if (argument == "--help")
      options.helpWanted = true;
    else if (argument == "--from")
      options.from = &formFrom(argument, arguments[++i]);
    else if (argument == "--to")
      options.to = &formFrom(argument, arguments[++i]);
    else if (argument.isLike("-?*"))
      throw IInvalidParameter("there is no option " + argument + "; --help tells which there are");
    else
      options.numbers.push_back(argument);
  }
  return options;
}

ExitStatus convertArguments(const Options& options)
{
  ExitStatus status = allWell;
  for (const IString& number : options.numbers) {
    try {
      convert(number, *options.from, *options.to);
    } catch (const IInvalidParameter& failure) {  // the others are converted all the same
      tell(failure);
      status = troubleWithNumbers;
    }
  }
  return status;
}

ExitStatus convertLines(const Options& options)
{
  ExitStatus status = allWell;
  for (unsigned long lineNumber = 1; std::cin.peek() != std::istream::traits_type::eof(); ++lineNumber) {
    try {
      convert(IString::lineFrom(std::cin).strip(), *options.from, *options.to);
    } catch (IInvalidParameter& failure) {
      failure.setText("line " + IString(lineNumber));
      tell(failure);
      status = troubleWithNumbers;
    }
  }
  return status;
}

ExitStatus convertInput(const Options& options)
{
  ExitStatus status = allWell;
  if (isBytes(*options.from)) {
    const std::string all((std::istreambuf_iterator<char>(std::cin)), std::istreambuf_iterator<char>());
    convert(IString(all.data(), all.size()), *options.from, *options.to);
  } else
    status = convertLines(options);
  if (std::cin.bad())
    throw IAccessError("standard input could not be read");
  return status;
}

ExitStatus run(const Options& options)
{
  if (options.helpWanted) {
    std::cout << helpText;
    return allWell;
  }
  return options.numbers.empty() ? convertInput(options) : convertArguments(options);
}

}  // namespace

int main(int argc, char* argv[])
{
  std::ios::sync_with_stdio(false);
  try {
    const ExitStatus status = run(optionsFrom(argc, argv));
    if (!std::cout.flush())
      throw IAccessError("the numbers could not be written");
    return status;
  } catch (const IInvalidParameter& failure) {
    tell(failure);
    return wrongUsage;
  } catch (const IException& failure) {
    tell(failure);
  } catch (const std::exception& failure) {
    std::cerr << "radix: " << failure.what() << '\n';
  }
  return troubleWithNumbers;
}
