#pragma once

#include <string>
#include <vector>

namespace tessary {

/// The variables of the environment that say in which languages a user reads messages. One that is empty counts as not
/// set.
struct LanguageVariables {
  std::string language = {};  ///< LANGUAGE
  std::string all = {};       ///< LC_ALL
  std::string messages = {};  ///< LC_MESSAGES
  std::string lang = {};      ///< LANG

  bool operator==(const LanguageVariables&) const = default;
};

/// The user's languages, the preferred one first, each as "de" or "de_DE", as GNU gettext reads them:
///
/// - The locale in effect is LC_ALL, else LC_MESSAGES, else LANG, else "C".
/// - Where that is "C" or "POSIX", the user asks for no translation: the list is empty, whatever LANGUAGE says.
/// - Otherwise LANGUAGE, a list separated by ":", takes the place of the locale; its empty entries do not count, and an
///   entry "C" or "POSIX" ends it.
/// - Character set and modifier are dropped: "de_DE.UTF-8@euro" is "de_DE". What names no language then ("C.UTF-8") is
///   left out.
///
/// Whether the C library has the locale that is named plays no part, and neither do aliases as "german" of its alias
/// file: catalogs here come with the product.
[[nodiscard]] std::vector<std::string> preferredLanguages(const LanguageVariables& variables);

/// The same with the environment of this process, read anew at each call. No other thread may change the environment
/// meanwhile.
[[nodiscard]] std::vector<std::string> systemPreferredLanguages();

}  // namespace tessary
