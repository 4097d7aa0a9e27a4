#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "TessaryLocalization/Locale.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// A choice of language: one of the languages of the product, or that of the system. The raw value is the code under
/// which settings hold the choice and under which catalogs are kept; that of `system` is empty.
///
/// The cases are those of `AppLanguage::Case`, which is the enumeration: `rawValue(AppLanguage::ko)`,
/// `fromRawValue<AppLanguage::Case>("zh-HK")`, `allCases<AppLanguage::Case>()`.
class AppLanguage {
 public:
  enum Case : std::uint8_t { system, ko, en, ja, es, de, fr, th, ru, mn, vi, zhHans, zhHant, zhHK };

  // Not explicit: a case is a choice of language.
  constexpr AppLanguage(Case value) : value_(value) {}
  constexpr operator Case() const { return value_; }

  /// The raw values of all cases but `system`, in the order of the cases.
  static const std::array<std::string_view, 13> supportedCodes;

  /// The language when there is nothing better to go by.
  static constexpr std::string_view fallbackCode = "en";

  /// The raw value.
  [[nodiscard]] constexpr std::string_view id() const;

  /// What the language calls itself. `system` has no name of its own: the answer is a message in the language now
  /// selected.
  [[nodiscard]] std::string nativeName() const;

  /// The code of the language to use: `selection` where it is a supported code, "en" where it is any other text. An
  /// empty selection follows the system: the first of `preferredLanguages` that the product speaks decides, "en" where
  /// there is none. A preferred language is written in any case, its parts separated by "-" or "_" ("zh_TW",
  /// "de-DE"). Chinese is told apart by script and region: "zh-Hant-HK" is "zh-HK", "yue" too, "zh" alone "zh-Hans".
  [[nodiscard]] static std::string resolve(std::string_view selection, std::span<const std::string> preferredLanguages);

  /// `systemLocale` in another language: only the language (for Chinese with its script) changes; the region and all
  /// other conventions of the user stay in force.
  [[nodiscard]] static Locale locale(std::string_view language, const Locale& systemLocale);

 private:
  Case value_;
};

/// The row of a language: what it calls itself stands beside its code.
struct AppLanguageRow {
  AppLanguage::Case value;
  std::string_view rawValue;
  /// Empty for `system`.
  std::string_view nativeName;
};

template <>
struct RawValues<AppLanguage::Case> {
  static constexpr auto table = std::to_array<AppLanguageRow>({
      {AppLanguage::system, "", ""},
      {AppLanguage::ko, "ko", "한국어"},
      {AppLanguage::en, "en", "English"},
      {AppLanguage::ja, "ja", "日本語"},
      {AppLanguage::es, "es", "Español"},
      {AppLanguage::de, "de", "Deutsch"},
      {AppLanguage::fr, "fr", "Français"},
      {AppLanguage::th, "th", "ไทย"},
      {AppLanguage::ru, "ru", "Русский"},
      {AppLanguage::mn, "mn", "Монгол"},
      {AppLanguage::vi, "vi", "Tiếng Việt"},
      {AppLanguage::zhHans, "zh-Hans", "简体中文"},
      {AppLanguage::zhHant, "zh-Hant", "繁體中文（台灣）"},
      {AppLanguage::zhHK, "zh-HK", "繁體中文（香港）"},
  });
};

constexpr std::string_view AppLanguage::id() const {
  return rawValue(value_);
}

inline constexpr std::array<std::string_view, 13> AppLanguage::supportedCodes = [] {
  std::array<std::string_view, 13> codes;
  const auto& table = RawValues<AppLanguage::Case>::table;
  static_assert(table.size() == codes.size() + 1);
  for (std::size_t index = 0; index < codes.size(); ++index)
    codes[index] = table[index + 1].rawValue;
  return codes;
}();

}  // namespace tessary
