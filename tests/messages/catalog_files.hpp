/// @file catalog_files.hpp
/// Message catalogs as data: which messages a source has, what a compiled catalog says, and whether two say the same things.
#ifndef QUELMCL_TESTS_MESSAGES_CATALOG_FILES_HPP
#define QUELMCL_TESTS_MESSAGES_CATALOG_FILES_HPP

#include <istream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace catalogs {

using Messages = std::map<int, std::string>;

/// The numbers of the messages that a source has: lines that begin with digits and a blank.
std::set<int> numbersIn(std::istream& source);

/// The variables of a message, as the library understands them: `%1` to `%9`, and none in the second half of `%%`.
std::set<char> variablesIn(const std::string& message);

/// The blanks at the front, which belong to messages that are printed right behind something else.
std::string blanksBefore(const std::string& message);

/// Whether these bytes are characters of UTF-8.
bool isUtf8(const std::string& bytes);

/// The messages of a compiled catalog that the numbers name. Those that it does not have are left out.
Messages messagesOf(const std::string& catalogPath, const std::set<int>& numbers);

/// What makes a translation unfit to stand for the English messages, a line each: messages that are missing, too many or
/// not translated, other variables, other blanks at the front, line ends, bytes that are not UTF-8.
std::vector<std::string> faultsOf(const Messages& translation, const Messages& english);

}  // namespace catalogs

#endif
