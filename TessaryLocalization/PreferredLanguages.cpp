#include "TessaryLocalization/PreferredLanguages.h"

#include <algorithm>
#include <string_view>

#include "TessaryPlatform/paths/Paths.h"

namespace tessary {
namespace {

bool isUntranslated(std::string_view locale) {
  return locale == "C" || locale == "POSIX";
}

/// As POSIX ranks the variables of a locale.
std::string_view localeInEffect(const LanguageVariables& variables) {
  for (const std::string* value : {&variables.all, &variables.messages, &variables.lang})
    if (!value->empty()) return *value;
  return "C";
}

}  // namespace

std::vector<std::string> preferredLanguages(const LanguageVariables& variables) {
  const std::string_view locale = localeInEffect(variables);
  if (isUntranslated(locale)) return {};
  const std::string_view list = variables.language.empty() ? locale : std::string_view(variables.language);
  std::vector<std::string> languages;
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t end = std::min(list.find(':', start), list.size());
    const std::string_view entry = list.substr(start, end - start);
    start = end + 1;
    if (isUntranslated(entry)) break;
    const std::string_view language = entry.substr(0, entry.find_first_of(".@"));
    if (!language.empty() && !isUntranslated(language)) languages.emplace_back(language);
  }
  return languages;
}

std::vector<std::string> systemPreferredLanguages() {
  const auto value = [](const char* name) { return Paths::environmentValue(name).value_or(""); };
  return preferredLanguages(
      {.language = value("LANGUAGE"), .all = value("LC_ALL"), .messages = value("LC_MESSAGES"), .lang = value("LANG")});
}

}  // namespace tessary
