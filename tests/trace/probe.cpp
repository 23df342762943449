// probe.cpp - a program that does with the trace what its arguments say, one after another. Each test of a setting that is read
// once in a process starts it anew.
#include <quelmcl/quelmcl.hpp>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <sys/auxv.h>
#include <unistd.h>
#include <vector>

namespace {

/// What derived classes may use.
struct OpenTrace : ITrace {
  using ITrace::fCheckStack;
  using ITrace::remainingStack;
  using ITrace::threadId;
  using ITrace::uClIndent;
  using ITrace::ulClProcessId;
  using ITrace::writeFormattedString;
  using ITrace::writeString;
};

void printState()
{
  const char* const destinations[] = {"queue", "stderr", "stdout", "file"};
  std::fprintf(stderr, "%s numbers=%d prefix=%d to=%s stack=%d\n", ITrace::isTraceEnabled() ? "on" : "off",
               ITrace::isWriteLineNumberEnabled(), ITrace::isWritePrefixEnabled(),
               destinations[ITrace::traceDestination()], OpenTrace::fCheckStack);
}

struct Plain {
  const char* name;
  void (*run)();
};

const Plain plainCommands[] = {
  {"state", printState},
  {"read", [] { ITraceSetup::traceOn(); }},
  {"initialize", ITraceSetup::initialize},
  {"enable", ITrace::enableTrace},
  {"disable", ITrace::disableTrace},
  {"numbers-on", ITrace::enableWriteLineNumber},
  {"numbers-off", ITrace::disableWriteLineNumber},
  {"prefix-on", ITrace::enableWritePrefix},
  {"prefix-off", ITrace::disableWritePrefix},
  {"to-queue", ITrace::writeToQueue},
  {"to-stderr", ITrace::writeToStandardError},
  {"to-stdout", ITrace::writeToStandardOutput},
  {"to-file", ITrace::writeToFile},
  {"write-null", [] { ITrace::write(static_cast<const char*>(nullptr)); }},
  {"write-nul", [] { ITrace::write(IString("ab\0cd", 5)); }},
  {"empty-object", [] { const ITrace trace; }},
  {"end-at-once", [] { _exit(0); }},
  {"rights", [] { std::fputs(getauxval(AT_SECURE) != 0 ? "another's rights\n" : "own rights\n", stderr); }},
  {"print", [] { std::fputs("printed ", stdout); }},
  {"throw",
   [] {
     try {
       IException::assertParameter("count > 0", IExceptionLocation("file.cpp", "work", 7));
     } catch (const IAssertionFailure&) {
     }
   }},
};

bool runPlain(const std::string& command)
{
  for (const Plain& plain : plainCommands)
    if (command == plain.name) {
      plain.run();
      return true;
    }
  return false;
}

void setVariable(const char* assignment)
{
  const char* const equals = std::strchr(assignment, '=');
  setenv(std::string(assignment, equals).c_str(), equals + 1, 1);
}

/// Runs a command with an argument. The trace objects that `enter` builds end with `leave`.
bool runWithArgument(const std::string& command, char* argument, std::vector<std::unique_ptr<ITrace>>& entered)
{
  if (command == "write")
    ITrace::write(argument);
  else if (command == "string")
    ITrace::write(IString(argument));
  else if (command == "enter")
    entered.push_back(std::unique_ptr<ITrace>(new ITrace(argument)));
  else if (command == "enter-3")
    entered.push_back(std::unique_ptr<ITrace>(new ITrace(argument, 3)));
  else if (command == "enter-0")
    entered.push_back(std::unique_ptr<ITrace>(new ITrace(argument, 0)));
  else if (command == "enter-minus")
    entered.push_back(std::unique_ptr<ITrace>(new ITrace(argument, -1)));
  else if (command == "raw")
    OpenTrace::writeString(argument);
  else if (command == "indent")
    OpenTrace::uClIndent[1] = static_cast<unsigned>(std::atoi(argument));
  else if (command == "marker") {  // MARKER:TEXT
    char* const colon = std::strchr(argument, ':');
    *colon = '\0';
    OpenTrace::writeFormattedString(IString(colon + 1), argument);
  } else if (command == "set")
    setVariable(argument);
  else if (command == "long")
    ITrace::write(IString::copy(IString("x"), static_cast<unsigned>(std::atoi(argument))));
  else
    return false;
  return true;
}

}  // namespace

int main(int argc, char** argv)
{
  if (const char* const locale = std::getenv("QUELMCL_TEST_LOCALE"))
    std::setlocale(LC_ALL, locale);
  std::vector<std::unique_ptr<ITrace>> entered;
  for (int i = 1; i < argc; ++i) {
    const std::string command = argv[i];
    if (command == "leave")
      entered.pop_back();
    else if (!runPlain(command) && (i + 1 == argc || !runWithArgument(command, argv[++i], entered))) {
      std::fprintf(stderr, "probe: what is %s?\n", command.c_str());
      return 2;
    }
  }
  while (!entered.empty())
    entered.pop_back();
}
