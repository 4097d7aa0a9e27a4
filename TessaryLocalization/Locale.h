#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tessary {

/// What the environment of a POSIX process says about language and region. Each is absent where the variable is not
/// set; an empty one counts as not set.
struct LocaleVariables {
  std::optional<std::string> all = {};       ///< LC_ALL
  std::optional<std::string> messages = {};  ///< LC_MESSAGES
  std::optional<std::string> time = {};      ///< LC_TIME
  std::optional<std::string> language = {};  ///< LANG

  bool operator==(const LocaleVariables&) const = default;
};

/// A reader's language together with the conventions of a region: what numbers and dates are written by.
///
/// The value is an identifier in ICU's form, "zh_Hant_HK" or "ar_EG@calendar=islamic;numbers=latn": a language, a
/// script, a region, variants, and keywords for single conventions (calendar, numbering system, hour cycle). Any part
/// may be missing. Its authority is CLDR as the linked ICU holds it, and a locale for which CLDR has no data is as good
/// as any other: ICU falls back to that of its language, and for a language that it does not know to the default of the
/// process.
class Locale {
 public:
  /// The longest text that is read as a locale, in bytes.
  static constexpr std::size_t maximumTextBytes = 150;

  /// The locale of no language and no region.
  Locale() = default;

  /// The locale that `text` names, as a BCP 47 tag ("zh-Hant-HK", "ar-EG-u-nu-latn"), as an identifier of ICU
  /// ("ar_EG@numbers=latn") or in the form of POSIX ("de_DE.UTF-8", "sr_RS@latin"). Equal locales written differently
  /// become equal, names that CLDR has replaced ("iw") are brought up to date, and the character set of the POSIX form
  /// is dropped.
  ///
  /// "C" and "POSIX" are English of no region: they say nothing of their user, so each language that is put in their
  /// place keeps its own conventions. A text that cannot be read gives the locale of no language.
  explicit Locale(std::string_view text);

  /// The locale of a process with these variables, as POSIX ranks them: LC_ALL before the variable of a category before
  /// LANG. The language is that of messages. The region and all other conventions are those of time where LC_TIME names
  /// a region, so that LANG=en_US with LC_TIME=de_DE is an English reader in Germany. "C" where nothing is set.
  [[nodiscard]] static Locale fromVariables(const LocaleVariables& variables);

  /// `fromVariables` with the environment of this process, read anew at each call.
  [[nodiscard]] static Locale system();

  /// The identifier in ICU's form; empty for the locale of no language.
  [[nodiscard]] const std::string& identifier() const { return identifier_; }

  /// The code of the language, as "zh"; empty where there is none.
  [[nodiscard]] std::string language() const;

  /// The code of the script, as "Hant"; empty where none is named.
  [[nodiscard]] std::string script() const;

  /// The code of the region whose conventions hold, as "HK"; empty where none is named. A keyword that puts another
  /// region in force ("en-US-u-rg-dezzzz") wins over the region of the language.
  [[nodiscard]] std::string region() const;

  /// This locale in another language. Language and script become those of `languageTag` (BCP 47, "zh-Hant-HK"). The
  /// region is that of this locale, both as the region of the language and as the region in force, and variants and
  /// keywords stay. Only where this locale has no region does that of the tag stand: there is none to keep.
  [[nodiscard]] Locale withLanguage(std::string_view languageTag) const;

  bool operator==(const Locale&) const = default;

 private:
  std::string identifier_;
};

}  // namespace tessary

template <>
struct std::hash<tessary::Locale> {
  std::size_t operator()(const tessary::Locale& locale) const noexcept {
    return std::hash<std::string>{}(locale.identifier());
  }
};
