// balance - adds up what a list of names and amounts comes to; a small program with traces and every kind of failure handled.
// Tests: tests/examples/balance_test.sh, which also keeps docs/diagnostics.md true
#include <quelmcl/quelmcl.hpp>

#include <cerrno>
#include <exception>
#include <fstream>
#include <iostream>

namespace {

int amountIn(const IString& line)
{
  QUELMCL_TRACE_FUNCTION();
  const IString amount = line.word(2);
  QUELMCL_TRACE_WRITE("the amount is '" + amount + "'");
  if (!amount.isDigits())
    QUELMCL_THROW(IInvalidRequest("an amount has digits only", 0, IException::recoverable));
  return amount.asInt();
}

int sumOf(const char* fileName)
{
  QUELMCL_TRACE_FUNCTION();
  errno = 0;
  std::ifstream lines(fileName);
  if (!lines)
    QUELMCL_THROW_CLIB_ERROR("open", IBaseErrorInfo::accessError, IException::recoverable);

  int sum = 0;
  for (IString line = IString::lineFrom(lines); lines; line = IString::lineFrom(lines)) {
    try {
      sum += amountIn(line);
    } catch (IException& failure) {
      failure.setText("in the line: " + line);
      QUELMCL_RETHROW(failure);
    }
  }
  if (lines.bad())
    QUELMCL_THROW_CLIB_ERROR("read", IBaseErrorInfo::accessError, IException::recoverable);
  return sum;
}

/// A text of an exception; its class where an exhausted heap had no storage for one.
const char* textOf(const IException& failure, unsigned long level)
{
  const char* const text = failure.text(level);
  return text == nullptr ? failure.name() : text;
}

const char helpText[] =
  "Usage: balance [--help] FILE\n"
  "\n"
  "Adds up the amounts in a file. A line is a name and an amount, which is a whole\n"
  "number of digits only.\n"
  "\n"
  "  --help  print this text and nothing else\n"
  "\n"
  "Exit status: 0 if all went well; 1 if the file could not be read, an amount was\n"
  "none, or the sum could not be written; 2 for wrong options.\n";

enum ExitStatus { allWell = 0, troubleWithFile = 1, wrongUsage = 2 };

int run(const char* fileName)
{
  const int sum = sumOf(fileName);
  errno = 0;
  if (!(std::cout << sum << std::endl))
    QUELMCL_THROW_CLIB_ERROR("write", IBaseErrorInfo::accessError, IException::recoverable);
  return allWell;
}

}  // namespace

int main(int argc, char** argv)
{
  try {
    const IString argument = argc == 2 ? argv[1] : "";
    if (argument == "--help") {
      std::cout << helpText;
      return allWell;
    }
    if (argument.length() > 0 && argument[1] != '-')
      return run(argument);
    std::cerr << "usage: balance FILE\n";
    return wrongUsage;
  } catch (const IException& failure) {  // the library's, an exhausted heap among them
    std::cerr << "balance: " << textOf(failure, 0) << '\n';
    for (unsigned long i = 1; i < failure.textCount(); ++i)
      std::cerr << "  because: " << textOf(failure, i) << '\n';
  } catch (const std::exception& failure) {  // the standard library's and everybody else's
    std::cerr << "balance: " << failure.what() << '\n';
  }
  return troubleWithFile;
}
