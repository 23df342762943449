// catalog_files.cpp - message catalogs as data.
// Tests: tests/messages/catalog_files_test.cpp
#include "catalog_files.hpp"

#include <clocale>
#include <cwchar>
#include <nl_types.h>
#include <stdexcept>

namespace catalogs {

namespace {

std::string faultOf(const std::string& translated, const std::string& english)
{
  if (translated == english)
    return "is not translated";
  if (variablesIn(translated) != variablesIn(english))
    return "has other variables than the English one";
  if (blanksBefore(translated) != blanksBefore(english))
    return "begins with other blanks than the English one";
  if (translated.find_first_of("\r\n") != std::string::npos)
    return "has a line end";
  return isUtf8(translated) ? "" : "is not UTF-8";
}

}  // namespace

std::set<int> numbersIn(std::istream& source)
{
  std::set<int> numbers;
  for (std::string line; std::getline(source, line);) {
    const std::size_t digits = line.find_first_not_of("0123456789");
    if (digits != 0 && digits != std::string::npos && line[digits] == ' ')
      numbers.insert(std::stoi(line));
  }
  return numbers;
}

std::set<char> variablesIn(const std::string& message)
{
  std::set<char> variables;
  for (std::size_t i = 0; i + 1 < message.size(); ++i)
    if (message[i] == '%') {
      ++i;
      if (message[i] >= '1' && message[i] <= '9')
        variables.insert(message[i]);
    }
  return variables;
}

std::string blanksBefore(const std::string& message)
{
  return message.substr(0, message.find_first_not_of(' '));
}

bool isUtf8(const std::string& bytes)
{
  const std::string before = std::setlocale(LC_CTYPE, nullptr);
  if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr)
    throw std::runtime_error("the locale C.UTF-8 is missing");
  std::mbstate_t state{};
  const char* p = bytes.c_str();
  const bool isSound = std::mbsrtowcs(nullptr, &p, 0, &state) != static_cast<std::size_t>(-1);
  std::setlocale(LC_CTYPE, before.c_str());
  return isSound;
}

Messages messagesOf(const std::string& catalogPath, const std::set<int>& numbers)
{
  const nl_catd catalog = catopen(catalogPath.c_str(), 0);
  if (catalog == reinterpret_cast<nl_catd>(-1))
    throw std::runtime_error("no catalog: " + catalogPath);
  Messages messages;
  for (const int number : numbers)
    if (const char* const text = catgets(catalog, 1, number, nullptr))
      messages[number] = text;
  catclose(catalog);
  return messages;
}

std::vector<std::string> faultsOf(const Messages& translation, const Messages& english)
{
  std::vector<std::string> faults;
  for (const auto& [number, text] : english)
    if (translation.count(number) == 0)
      faults.push_back(std::to_string(number) + " is missing");
  for (const auto& [number, text] : translation) {
    const auto original = english.find(number);
    const std::string fault = original == english.end() ? "is no message in English" : faultOf(text, original->second);
    if (!fault.empty())
      faults.push_back(std::to_string(number) + " " + fault);
  }
  return faults;
}

}  // namespace catalogs
