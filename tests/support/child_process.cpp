// child_process.cpp - starting a program and collecting what it writes.
#include "support/child_process.hpp"

#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace quelmcl_test {

namespace {

/// A file without a name that collects output.
class Collector {
public:
  Collector() : file(std::tmpfile())
  {
    if (file == nullptr)
      std::abort();
  }
  ~Collector() { std::fclose(file); }
  Collector(const Collector&) = delete;
  Collector& operator=(const Collector&) = delete;

  int descriptor() const { return fileno(file); }
  std::string text() const
  {
    std::string collected;
    char piece[4096];
    std::rewind(file);
    while (const std::size_t count = std::fread(piece, 1, sizeof piece, file))
      collected.append(piece, count);
    return collected;
  }

private:
  std::FILE* file;
};

bool isSettingOfTheLibrary(const std::string& variable)
{
  return variable.compare(0, 6, "KOLTA ") == 0 || variable.compare(0, 6, "KOLTA_") == 0;
}

bool isReplaced(const std::string& variable, const std::vector<std::string>& settings)
{
  const std::string nameAndEquals = variable.substr(0, variable.find('=') + 1);
  for (const std::string& setting : settings)
    if (setting.compare(0, nameAndEquals.size(), nameAndEquals) == 0)
      return true;
  return false;
}

std::vector<std::string> environmentWith(const std::vector<std::string>& settings)
{
  std::vector<std::string> all;
  for (char** variable = environ; *variable != nullptr; ++variable)
    if (!isSettingOfTheLibrary(*variable) && !isReplaced(*variable, settings))
      all.push_back(*variable);
  all.insert(all.end(), settings.begin(), settings.end());
  return all;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
  std::vector<char*> pointers;
  for (std::string& text : texts)
    pointers.push_back(&text[0]);
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

ChildProcess runChild(const std::vector<std::string>& words, const std::vector<std::string>& settings,
                      const std::string& folder)
{
  std::vector<std::string> argumentTexts(words);
  std::vector<std::string> environmentTexts(environmentWith(settings));
  const std::vector<char*> arguments = pointersTo(argumentTexts);
  const std::vector<char*> environment = pointersTo(environmentTexts);
  const Collector out;
  const Collector err;

  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0)
    std::abort();
  if (child == 0) {
    if (dup2(out.descriptor(), 1) < 0 || dup2(err.descriptor(), 2) < 0 ||
        (!folder.empty() && chdir(folder.c_str()) != 0))
      _exit(126);
    execve(arguments[0], arguments.data(), environment.data());
    _exit(127);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child)
    std::abort();
  return {out.text(), err.text(), static_cast<long>(child),
          WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status)};
}

}  // namespace quelmcl_test
