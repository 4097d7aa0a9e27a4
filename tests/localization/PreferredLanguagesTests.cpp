#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryLocalization/PreferredLanguages.h"

namespace tessary {
namespace {

struct Row {
  LanguageVariables variables;
  std::vector<std::string> languages;
};

TEST(PreferredLanguages, AreReadAsGettextReadsThem) {
  const std::vector<Row> rows{
      // Nothing set is "C".
      {{}, {}},
      {{.language = "de"}, {}},
      // LC_ALL over LC_MESSAGES over LANG; an empty variable is not set.
      {{.lang = "de_DE.UTF-8"}, {"de_DE"}},
      {{.messages = "fr_FR", .lang = "de_DE"}, {"fr_FR"}},
      {{.all = "ko_KR", .messages = "fr_FR", .lang = "de_DE"}, {"ko_KR"}},
      {{.all = "", .messages = "", .lang = "de_DE"}, {"de_DE"}},
      // Character set and modifier go.
      {{.lang = "de_DE.UTF-8@euro"}, {"de_DE"}},
      {{.lang = "de_DE@euro"}, {"de_DE"}},
      {{.lang = "zh_TW.Big5"}, {"zh_TW"}},
      {{.lang = "C.UTF-8"}, {}},
      {{.lang = ".UTF-8"}, {}},
      // LANGUAGE takes the place of the locale.
      {{.language = "ja:ko", .lang = "de_DE.UTF-8"}, {"ja", "ko"}},
      {{.language = "pt_BR:de_DE.UTF-8@euro:en", .lang = "en_US"}, {"pt_BR", "de_DE", "en"}},
      {{.language = "ja", .lang = "C.UTF-8"}, {"ja"}},
      {{.language = "", .lang = "de"}, {"de"}},
      {{.language = ":::ja::ko:", .lang = "de"}, {"ja", "ko"}},
      {{.language = ":", .lang = "de"}, {}},
      // "C" and "POSIX" ask for no translation.
      {{.language = "ja", .lang = "C"}, {}},
      {{.language = "ja", .lang = "POSIX"}, {}},
      {{.language = "ja", .all = "C", .lang = "de"}, {}},
      {{.language = "ja", .messages = "POSIX", .lang = "de"}, {}},
      {{.language = "ja", .all = "de", .lang = "C"}, {"ja"}},
      {{.language = "ja:C:ko", .lang = "de"}, {"ja"}},
      {{.language = "POSIX", .lang = "de"}, {}},
      // The character set of "C" is dropped, and what is left is no language; the list goes on.
      {{.language = "C.UTF-8:ko", .lang = "de"}, {"ko"}},
  };
  for (std::size_t row = 0; row < rows.size(); ++row)
    EXPECT_EQ(preferredLanguages(rows[row].variables), rows[row].languages) << "row " << row;
}

TEST(PreferredLanguages, OfTheProcessComeFromItsEnvironment) {
  ::setenv("LANGUAGE", "vi:th", 1);
  ::setenv("LC_ALL", "de_DE.UTF-8", 1);
  EXPECT_EQ(systemPreferredLanguages(), (std::vector<std::string>{"vi", "th"}));
  ::unsetenv("LANGUAGE");
  EXPECT_EQ(systemPreferredLanguages(), (std::vector<std::string>{"de_DE"}));
  ::setenv("LC_ALL", "C", 1);
  EXPECT_EQ(systemPreferredLanguages(), std::vector<std::string>{});
}

}  // namespace
}  // namespace tessary
