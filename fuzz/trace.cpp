// trace.cpp - fuzz target: the lines that trace operations write, beside tests/support/trace_reference.hpp. Standard output is a stream
// that keeps what is written.
#include "input.hpp"
#include "support/trace_reference.hpp"

#include <quelmcl/istring.hpp>
#include <quelmcl/itrace.hpp>

#include <cstdio>
#include <memory>
#include <unistd.h>
#include <utility>

namespace {

const std::vector<fuzz::Palette> palettes = {fuzz::bytesOf("ab\n"), fuzz::bytesOf("a%s\n \0\xE9"), {}};

std::string written;
unsigned long linesOfProcess = 0;

ssize_t keep(void*, const char* bytes, std::size_t count)
{
  written.append(bytes, count);
  return static_cast<ssize_t>(count);
}

std::FILE* keepingStream()
{
  cookie_io_functions_t functions = {};
  functions.write = keep;
  return fopencookie(nullptr, "w", functions);
}

/// What derived classes may use.
struct OpenTrace : ITrace {
  using ITrace::fCheckStack;
  using ITrace::uClIndent;
  using ITrace::writeFormattedString;
  using ITrace::writeString;
};

/// The library's trace and the reference's, told the same.
class Both {
public:
  explicit Both(fuzz::Input& operands) : input(operands)
  {
    static const bool isRead = ITraceSetup::traceOn();  // the environment, which would override all settings otherwise
    static_cast<void>(isRead);
    expected.lines = linesOfProcess;
    expected.process = static_cast<unsigned long>(getpid());
    expected.isOn = false;
    setOn(true);
    setNumbers(true);
    setPrefix(false);
    OpenTrace::fCheckStack = 0;
    OpenTrace::uClIndent[1] = expected.indentation = input.below(5);
    ITrace::writeToStandardOutput();
    written.clear();
  }
  void step()
  {
    switch (input.below(12)) {
    case 0: {
      const std::string text = input.text(12);
      ITrace::write(text.c_str());
      expected.write(text.c_str());
      break;
    }
    case 1: {
      const std::string text = input.text(12);
      ITrace::write(IString(text.data(), static_cast<unsigned>(text.size())));
      expected.write(text);
      break;
    }
    case 2:
    case 3:
      enter();
      break;
    case 4:
      leave();
      break;
    case 5:
      setOn(!expected.isOn);
      break;
    case 6:
      setNumbers(!expected.hasNumbers);
      break;
    case 7:
      setPrefix(!expected.hasPrefix);
      break;
    case 8:
      OpenTrace::fCheckStack = (expected.hasStackColumn = !expected.hasStackColumn) ? 1 : 0;
      break;
    case 9:
      markedLine();
      break;
    case 10:
      if (input.below(8) == 0)
        longLine();
      break;
    default:
      if (input.flag())
        ITrace::writeToQueue();
      else
        ITrace::writeToStandardOutput();
    }
  }

  void finish()
  {
    while (!entered.empty())
      leave();
    linesOfProcess = expected.lines;
    fuzz::agree(written, expected.output);
  }

private:
  struct Entry {
    std::unique_ptr<std::string> name;  // the trace keeps no copy
    std::unique_ptr<ITrace> trace;
    bool willLeave;
  };

  void enter()
  {
    Entry entry = {std::make_unique<std::string>(input.text(6).c_str()), nullptr, false};
    const long number = input.anyInt();
    entry.trace = std::make_unique<ITrace>(entry.name->c_str(), number);
    entry.willLeave = expected.enter(*entry.name, number);
    entered.push_back(std::move(entry));
  }
  void leave()
  {
    if (entered.empty())
      return;
    Entry last = std::move(entered.back());
    entered.pop_back();
    last.trace.reset();
    if (last.willLeave)
      expected.leave(*last.name);
  }
  void markedLine()
  {
    const char* const markers[] = {"", "+", "-", ">", "++x", "-%d"};
    const std::string text = input.text(12);
    std::string marker = markers[input.below(6)];
    OpenTrace::writeFormattedString(IString(text.data(), static_cast<unsigned>(text.size())), marker.data());
    expected.line(text, marker);
  }
  /// About as long as fits on the stack, and longer.
  void longLine()
  {
    const std::string text(980 + input.below(40), input.byte());
    ITrace::write(IString(text.data(), static_cast<unsigned>(text.size())));
    expected.write(text);
  }

  void setOn(bool isOn)
  {
    isOn ? ITrace::enableTrace() : ITrace::disableTrace();
    expected.isOn = isOn;
  }
  void setNumbers(bool hasNumbers)
  {
    hasNumbers ? ITrace::enableWriteLineNumber() : ITrace::disableWriteLineNumber();
    expected.hasNumbers = hasNumbers;
  }
  void setPrefix(bool hasPrefix)
  {
    hasPrefix ? ITrace::enableWritePrefix() : ITrace::disableWritePrefix();
    expected.hasPrefix = hasPrefix;
  }

  fuzz::Input& input;
  reference::Trace expected;
  std::vector<Entry> entered;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  constexpr int mostSteps = 6;
  static std::FILE* const keeping = keepingStream();
  fuzz::Input input(bytes, count, palettes);
  std::FILE* const before = std::exchange(stdout, keeping);
  {
    Both both(input);
    for (int step = 0; step < mostSteps && !input.isUsedUp(); ++step)
      both.step();
    both.finish();
  }
  stdout = before;
  return 0;
}
