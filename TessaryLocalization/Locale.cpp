#include "TessaryLocalization/Locale.h"

#include <algorithm>
#include <array>
#include <utility>

#include <unicode/localebuilder.h>
#include <unicode/locid.h>
#include <unicode/stringpiece.h>

#include "TessaryPlatform/paths/Paths.h"
#include "TessaryPlatform/text/ASCII.h"

namespace tessary {
namespace {

/// English without a region, in which every convention is the language's own.
constexpr std::string_view neutralIdentifier = "en";

/// The modifiers of POSIX locales that name a script. The others ("@euro", "@valencia") change nothing that is written
/// here, or are variants.
struct ScriptModifier {
  std::string_view modifier;
  std::string_view script;
};
constexpr auto scriptModifiers = std::to_array<ScriptModifier>({
    {"cyrillic", "Cyrl"},
    {"devanagari", "Deva"},
    {"iqtelif", "Latn"},
    {"latin", "Latn"},
});

bool isIdentifierByte(char byte) {
  return isASCIIAlphanumeric(byte) || std::string_view("-_@=;./+").contains(byte);
}

bool isReadable(std::string_view text) {
  if (text.size() > Locale::maximumTextBytes) return false;
  for (const char byte : text)
    if (!isIdentifierByte(byte)) return false;
  return true;
}

/// The identifier of "language_REGION.charset@modifier": the character set is dropped and the modifier becomes a script
/// or goes too. A text with keywords, which have a "=", has no modifier.
std::string withoutPOSIXParts(std::string_view text) {
  const std::size_t at = text.find('@');
  if (at != std::string_view::npos && text.find('=', at) != std::string_view::npos) return std::string(text);
  std::string_view name = text.substr(0, text.find_first_of(".@"));
  if (name == "C" || name == "POSIX") return std::string(neutralIdentifier);
  const std::string_view modifier = at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
  for (const auto& row : scriptModifiers) {
    if (row.modifier != modifier) continue;
    const std::size_t languageEnd = std::min(name.find('_'), name.size());
    return std::string(name.substr(0, languageEnd)) + '_' + std::string(row.script) +
           std::string(name.substr(languageEnd));
  }
  return std::string(name);
}

/// The one identifier of a locale, by way of the strict form of a tag. Whatever ICU cannot place stands behind the
/// tag's "x", and says nothing. Empty where nothing is left.
std::string canonical(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  std::string tag = icu::Locale::createCanonical(name.c_str()).toLanguageTag<std::string>(status);
  if (tag.starts_with("x-")) return {};
  tag.resize(std::min(tag.find("-x-"), tag.size()));
  const icu::Locale locale = icu::Locale::forLanguageTag(tag, status);
  return U_SUCCESS(status) ? locale.getName() : "";
}

icu::Locale toICU(const std::string& identifier) {
  return icu::Locale(identifier.c_str());
}

icu::StringPiece toPiece(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}

bool isAll(std::string_view text, char first, char last) {
  return std::ranges::all_of(text, [&](char byte) { return byte >= first && byte <= last; });
}

/// The region of a "rg" keyword, whose value is a region and a subdivision, "uszzzz", "gbsct" or "419zzzz". Empty where
/// there is none.
std::string overridingRegion(const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const auto value = locale.getUnicodeKeywordValue<std::string>("rg", status);
  if (U_FAILURE(status)) return {};
  if (value.size() > 3 && isAll(std::string_view(value).substr(0, 3), '0', '9')) return value.substr(0, 3);
  if (value.size() < 3 || !isAll(std::string_view(value).substr(0, 2), 'a', 'z')) return {};
  return {static_cast<char>(value[0] - 'a' + 'A'), static_cast<char>(value[1] - 'a' + 'A')};
}

/// As POSIX has it: the first variable that is set and not empty.
std::string_view rankedValue(const LocaleVariables& variables, const std::optional<std::string>& category) {
  for (const auto* value : {&variables.all, &category, &variables.language})
    if (*value && !(*value)->empty()) return **value;
  return "C";
}

}  // namespace

Locale::Locale(std::string_view text) {
  if (!isReadable(text)) return;
  std::string identifier = canonical(withoutPOSIXParts(text));
  // What ICU reads differently when it is written back was no locale, but bytes that look like one.
  if (canonical(identifier) == identifier) identifier_ = std::move(identifier);
}

Locale Locale::fromVariables(const LocaleVariables& variables) {
  const Locale ofMessages(rankedValue(variables, variables.messages));
  const Locale ofTime(rankedValue(variables, variables.time));
  if (ofTime.region().empty()) return ofMessages;
  const std::string script = ofMessages.script();
  return ofTime.withLanguage(script.empty() ? ofMessages.language() : ofMessages.language() + '-' + script);
}

Locale Locale::system() {
  return fromVariables({.all = Paths::environmentValue("LC_ALL"),
                        .messages = Paths::environmentValue("LC_MESSAGES"),
                        .time = Paths::environmentValue("LC_TIME"),
                        .language = Paths::environmentValue("LANG")});
}

std::string Locale::language() const {
  return toICU(identifier_).getLanguage();
}

std::string Locale::script() const {
  return toICU(identifier_).getScript();
}

std::string Locale::region() const {
  const icu::Locale locale = toICU(identifier_);
  std::string overriding = overridingRegion(locale);
  return overriding.empty() ? locale.getCountry() : overriding;
}

Locale Locale::withLanguage(std::string_view languageTag) const {
  const icu::Locale tongue = toICU(Locale(languageTag).identifier_);
  const std::string region = this->region();
  UErrorCode status = U_ZERO_ERROR;
  // Where both regions are one, the keyword has nothing left to say.
  const icu::Locale built = icu::LocaleBuilder()
                                .setLocale(toICU(identifier_))
                                .setUnicodeLocaleKeyword("rg", "")
                                .setLanguage(tongue.getLanguage())
                                .setScript(tongue.getScript())
                                .setRegion(region.empty() ? icu::StringPiece(tongue.getCountry()) : toPiece(region))
                                .build(status);
  Locale result;
  // Keywords that cannot be built anew, as a bare attribute, are given up before the region is.
  std::string plain = tongue.getLanguage();
  for (const std::string& part : {std::string(tongue.getScript()), region.empty() ? tongue.getCountry() : region})
    if (!part.empty()) plain += '_' + part;
  result.identifier_ = canonical(U_SUCCESS(status) ? built.getName() : plain);
  return result;
}

}  // namespace tessary
