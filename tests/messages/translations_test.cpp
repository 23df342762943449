// translations_test.cpp - each language that the library ships says what the English catalog says. A new one is tried without
// a change here.
#include "catalog_files.hpp"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <sstream>

namespace {

using namespace catalogs;

std::vector<std::string> translations()
{
  std::istringstream names(QUELMCL_TEST_TRANSLATIONS);
  std::vector<std::string> languages;
  for (std::string name; names >> name;)
    languages.push_back(name);
  return languages;
}

/// The messages of a source, as its compiled catalog has them.
Messages messagesOfSource(const std::string& sourceName, const std::string& language)
{
  std::ifstream source(QUELMCL_TEST_MESSAGES "/" + sourceName);
  return messagesOf(QUELMCL_TEST_CATALOG_DIR "/" + language + "/LC_MESSAGES/quelmcl.cat", numbersIn(source));
}

std::string testNameOf(const testing::TestParamInfo<std::string>& language)
{
  std::string name = language.param;
  for (char& byte : name)
    if (!std::isalnum(static_cast<unsigned char>(byte)))
      byte = '_';
  return name;
}

class Translation : public testing::TestWithParam<std::string> {};

TEST_P(Translation, SaysWhatTheEnglishCatalogSays)
{
  const Messages english = messagesOfSource("quelmcl.msg", "C");
  ASSERT_FALSE(english.empty());
  const Messages translated = messagesOfSource("quelmcl." + GetParam() + ".msg", GetParam());
  for (const std::string& fault : faultsOf(translated, english))
    ADD_FAILURE() << "messages/quelmcl." << GetParam() << ".msg: message " << fault;
}

INSTANTIATE_TEST_SUITE_P(Language, Translation, testing::ValuesIn(translations()), testNameOf);

TEST(Translations, AreAtLeastThosePromised)
{
  const std::vector<std::string> languages = translations();
  const std::set<std::string> shipped(languages.begin(), languages.end());
  for (const char* const language : {"de", "es", "fr", "ja"})
    EXPECT_EQ(shipped.count(language), 1u) << language;
}

}  // namespace
