// languages_test.cpp - the catalog of a program's language is found as catopen looks for it: by LANG, along NLSPATH.
#include <quelmcl/ibase.hpp>
#include <quelmcl/iexcbase.hpp>
#include <quelmcl/imsgtext.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

namespace {

/// Sets an environment variable, or takes it away, for the length of a block.
class Setting {
public:
  Setting(const char* variable, const char* value) : name(variable)
  {
    if (const char* const found = std::getenv(variable))
      previous = found;
    set(value);
  }
  ~Setting() { set(previous ? previous->c_str() : nullptr); }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

private:
  void set(const char* value) const
  {
    if (value == nullptr)
      unsetenv(name);
    else
      setenv(name, value, 1);
  }

  const char* name;
  std::optional<std::string> previous;
};

/// The language's own folder and no other: a language that has none finds nothing.
const char ownFolder[] = QUELMCL_TEST_CATALOG_DIR "/%l/LC_MESSAGES/%N";
/// What an installed library recommends.
const char ownFolderThenEnglish[] =
  QUELMCL_TEST_CATALOG_DIR "/%l/LC_MESSAGES/%N:" QUELMCL_TEST_CATALOG_DIR "/C/LC_MESSAGES/%N";

const char unavailable[] = "Unable to load text from message file.";
const char english[] = "The memory is exhausted: there is no room for what was to be stored.";
const char german[] = "Der Speicher ist erschöpft: Für das, was gespeichert werden sollte, ist kein Platz mehr.";
const char french[] = "La mémoire est épuisée\u00A0: il n'y a plus de place pour ce qui devait être enregistré.";
const char spanish[] = "Se ha agotado la memoria: no queda sitio para lo que se iba a guardar.";
const char japanese[] = "メモリが足りません。データを格納する領域を確保できませんでした。";

std::string exhaustedMemory()
{
  return IMessageText(4, "quelmcl.cat").text();
}

struct LanguageCase {
  const char* name;
  const char* lang;
  const char* text;
};

class CatalogLanguage : public testing::TestWithParam<LanguageCase> {};

TEST_P(CatalogLanguage, IsTheOneOfLang)
{
  const Setting path("NLSPATH", ownFolder);
  const Setting lang("LANG", GetParam().lang);
  EXPECT_EQ(exhaustedMemory(), GetParam().text);
}

const LanguageCase languages[] = {
  {"unset", nullptr, english},
  {"nothing", "", english},
  {"C", "C", english},
  {"C_in_UTF_8", "C.UTF-8", english},
  {"POSIX", "POSIX", english},
  {"English", "en_US.UTF-8", english},
  {"English_without_more", "en", english},
  {"German", "de_DE.UTF-8", german},
  {"German_of_Switzerland", "de_CH.UTF-8", german},
  {"German_with_a_modifier", "de_DE@euro", german},
  {"German_without_more", "de", german},
  {"French", "fr_FR.UTF-8", french},
  {"French_of_Canada", "fr_CA.UTF-8", french},
  {"Spanish", "es_ES.UTF-8", spanish},
  {"Spanish_of_Mexico", "es_MX.UTF-8", spanish},
  {"Japanese", "ja_JP.UTF-8", japanese},
  {"Japanese_in_another_set", "ja_JP.EUC-JP", japanese},  // in UTF-8 all the same: catgets converts nothing
};

INSTANTIATE_TEST_SUITE_P(Lang, CatalogLanguage, testing::ValuesIn(languages),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CatalogPath, EndsWithEnglishForLanguagesWithoutAFolder)
{
  const Setting lang("LANG", "xx_YY.UTF-8");
  const Setting path("NLSPATH", ownFolderThenEnglish);
  EXPECT_EQ(exhaustedMemory(), english);
}

// Each of them may get a translation one day, and then leaves the list that the build makes.
TEST(CatalogLanguage, IsEnglishForTheLanguagesNotYetTranslated)
{
  const Setting path("NLSPATH", ownFolder);
  std::istringstream untranslated(QUELMCL_TEST_UNTRANSLATED);
  int count = 0;
  for (std::string language; untranslated >> language; ++count) {
    const Setting lang("LANG", (language + "_XX.UTF-8").c_str());
    EXPECT_EQ(exhaustedMemory(), english) << language;
  }
  EXPECT_GE(count, 3) << "C, POSIX and English at least";
}

TEST(CatalogLanguage, IsSomeLanguageInTheCommonLocales)
{
  const Setting path("NLSPATH", ownFolder);
  for (const char* const locale :
       {"ar_EG.UTF-8", "cs_CZ.UTF-8", "da_DK.UTF-8", "el_GR.UTF-8", "fi_FI.UTF-8", "he_IL.UTF-8",
        "hi_IN",       "hu_HU.UTF-8", "it_IT.UTF-8", "ko_KR.UTF-8", "nb_NO.UTF-8", "nl_NL.UTF-8",
        "pl_PL.UTF-8", "pt_BR.UTF-8", "ro_RO.UTF-8", "ru_RU.UTF-8", "sv_SE.UTF-8", "tr_TR.UTF-8",
        "uk_UA.UTF-8", "vi_VN",       "zh_CN.UTF-8", "zh_TW.BIG5"}) {
    const Setting lang("LANG", locale);
    EXPECT_NE(exhaustedMemory(), unavailable) << locale;
  }
}

// catopen by itself gives up where the folder is missing: this is why there are so many folders.
TEST(CatalogPath, WithoutEnglishAtItsEndHasNothingForLanguagesWithoutAFolder)
{
  const Setting lang("LANG", "xx_YY.UTF-8");
  const Setting path("NLSPATH", ownFolder);
  EXPECT_EQ(exhaustedMemory(), unavailable);
}

TEST(CatalogLanguage, IsNotTheOneOfLcAll)
{
  const Setting path("NLSPATH", ownFolder);
  const Setting lang("LANG", "fr_FR.UTF-8");
  const Setting all("LC_ALL", "de_DE.UTF-8");
  const Setting messages("LC_MESSAGES", "es_ES.UTF-8");
  EXPECT_EQ(exhaustedMemory(), french);
}

TEST(CatalogLanguage, MayChangeFromMessageToMessage)
{
  const Setting path("NLSPATH", ownFolder);
  for (const LanguageCase& row : languages) {
    const Setting lang("LANG", row.lang);
    EXPECT_EQ(exhaustedMemory(), row.text) << row.name;
  }
}

TEST(CatalogLanguage, DoesNotCountForAPath)
{
  const Setting lang("LANG", "de_DE.UTF-8");
  EXPECT_STREQ(IMessageText(4, QUELMCL_TEST_CATALOG_DIR "/fr/LC_MESSAGES/quelmcl.cat").text(), french);
}

TEST(CatalogLanguage, IsTheOneOfExceptionTexts)
{
  const Setting path("NLSPATH", ownFolder);
  const Setting lang("LANG", "es_ES.UTF-8");
  const std::string previous = IBase::messageFile();
  IBase::setMessageFile("quelmcl.cat");
  try {
    const IString text("abc");
    ADD_FAILURE() << "there is a character " << text[4];
  } catch (const IInvalidRequest& failure) {
    EXPECT_STREQ(failure.text(0), "Se ha pedido un carácter en una posición fuera del texto.");
  }
  IBase::setMessageFile(previous.c_str());
}

// docs/catalogs.md shows one message in every language.
TEST(CatalogLanguage, IsAsTheDocumentsShow)
{
  const Setting path("NLSPATH", ownFolder);
  std::ifstream page(QUELMCL_TEST_MESSAGES "/../docs/catalogs.md");
  int rows = 0;
  for (std::string line; std::getline(page, line);) {
    const std::size_t column = line.find(" | ");
    if (line.compare(0, 3, "| `") != 0 || column == std::string::npos || line.compare(0, 8, "| `LANG`") == 0)
      continue;
    const Setting lang("LANG", line.substr(3, line.find('`', 3) - 3).c_str());
    EXPECT_EQ(line.substr(column + 3), IMessageText(1011, "quelmcl.cat").text() + std::string(" |"));
    ++rows;
  }
  EXPECT_EQ(rows, 5);
}

TEST(CatalogLanguage, HasTheVariablesFilledIn)
{
  const Setting path("NLSPATH", ownFolder);
  const Setting lang("LANG", "de_DE.UTF-8");
  EXPECT_STREQ(IMessageText(1101, "quelmcl.cat", "gestern", "%d.%m.%Y").text(),
               "„gestern“ ist kein Datum in der Form „%d.%m.%Y“.");
}

}  // namespace
