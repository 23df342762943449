// globals.cpp - a program whose strings, dates and templates stand at namespace scope: built before the library's own objects or behind
// them, and gone after them; used by functions that run at the end of the process as well; and in a process that has forked.
#include <quelmcl/quelmcl.hpp>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// What everything that is global is made of.
struct Globals {
  explicit Globals(const char* givenName) : name(givenName), empty(), date(IDate::March, 1, 2024), time(13, 14, 15) {}
  ~Globals() { tell("ends"); }
  Globals(const Globals&) = delete;
  Globals& operator=(const Globals&) = delete;

  void tell(const char* moment)
  {
    IString copy = name;
    copy += " ";
    copy += moment;
    copy.upperCase();
    IString first;
    IString rest;
    copy >> first >> rest;
    unsigned long refused = 0;
    try {
      const IString constant = name;
      static_cast<void>(constant[99]);
    } catch (const IInvalidRequest& failure) {
      refused = failure.errorId();
    }
    std::printf("%s|%s|%s|%s|%u|%lu\n", static_cast<char*>(first), static_cast<char*>(rest),
                static_cast<char*>(date.asString("%Y-%m-%d")), static_cast<char*>(time.asString("%H:%M:%S")),
                empty.length(), refused);
    std::fflush(stdout);
  }

  IString name;
  IString empty;
  IDate date;
  ITime time;
};

/// The priority that the library itself has: which of the two comes first is decided by the order in which they are linked.
__attribute__((init_priority(101))) Globals early("early");
Globals usual("usual");

void atTheEnd()
{
  usual.tell("atexit");
}

/// Registered before any static object of this program is complete, so that it runs after they are gone.
struct Registration {
  Registration()
  {
    std::atexit([] { Globals("registered").tell("last"); });
  }
};
__attribute__((init_priority(101))) Registration registration;

/// A child uses and ends strings that its parent has made, and makes others; the parent's stay as they are.
void forkAndGoOn()
{
  IString shared = usual.name;
  const pid_t child = fork();
  if (child == 0) {
    shared += " of the child";
    usual.name.reverse();
    usual.tell("child");
    std::_Exit(shared == "usual of the child" && usual.name == "lausu" ? 7 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  std::printf("child %d\n", WIFEXITED(status) ? WEXITSTATUS(status) : -1);
  usual.tell("parent");
}

}  // namespace

int main()
{
  std::atexit(atTheEnd);
  forkAndGoOn();
  early.tell("main");
}
