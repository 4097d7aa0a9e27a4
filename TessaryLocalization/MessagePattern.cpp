#include "TessaryLocalization/MessagePattern.h"

#include <algorithm>
#include <utility>

#include <unicode/uchar.h>

#include "TessaryLocalization/AppLanguage.h"
#include "TessaryLocalization/MessageText.h"
#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

/// Fewer letters than these beside its placeholders make a wording too vague to be known by.
constexpr std::size_t leastLetters = 2;

const RegularExpression& placeholderExpression() {
  static const RegularExpression expression(R"(\{(\d+)\})");
  return expression;
}

const RegularExpression& quantityExpression() {
  static const RegularExpression expression(R"(\{(\d+)\}(?:개|명|일))");
  return expression;
}

/// The number of a match of either expression.
std::optional<std::size_t> number(const RegexMatch& match, std::string_view text) {
  return placeholderIndex(match.group(1)->in(text));
}

std::optional<std::size_t> countArgument(const std::string& key, const LocalizationCatalog& english) {
  if (const RegexFind quantity = quantityExpression().find(key); quantity.match) return number(*quantity.match, key);
  return english.plurals.contains(key) ? std::optional<std::size_t>(0) : std::nullopt;
}

/// The forms of `key` in ascending order of their bytes.
std::vector<std::string_view> sortedForms(const LocalizationCatalog& catalog, std::string_view key) {
  std::vector<std::string_view> forms;
  if (const auto found = catalog.plurals.find(key); found != catalog.plurals.end())
    for (const auto& [category, form] : found->second)
      forms.push_back(form);
  std::ranges::sort(forms);
  return forms;
}

/// Every wording of `key`, each once, in the order of the languages.
std::vector<std::string_view> wordings(std::string_view key, const LocalizationCatalogs& catalogs) {
  std::vector<std::string_view> found;
  const auto add = [&](std::string_view wording) {
    if (std::ranges::find(found, wording) == found.end()) found.push_back(wording);
  };
  for (const std::string_view code : AppLanguage::supportedCodes) {
    add(key);
    const LocalizationCatalog* const catalog = catalogs.find(code);
    if (catalog == nullptr) continue;
    if (const auto message = catalog->messages.find(key); message != catalog->messages.end()) add(message->second);
    for (const std::string_view form : sortedForms(*catalog, key))
      add(form);
  }
  return found;
}

/// The letters of a wording beside its placeholders. They are counted in the text that is left when those are gone.
std::size_t letterCount(std::string_view wording, const std::vector<RegexMatch>& placeholders) {
  std::string rest;
  std::size_t done = 0;
  for (const RegexMatch& placeholder : placeholders) {
    rest.append(wording, done, placeholder.range().start - done);
    done = placeholder.range().end;
  }
  rest.append(wording, done);
  std::size_t count = 0;
  for (const std::string_view character : CharacterView(rest))
    if (u_isalpha(static_cast<UChar32>(decodeScalar(character, 0).scalar)) != 0) ++count;
  return count;
}

MessagePattern pattern(std::string_view key, std::string_view wording, const std::vector<RegexMatch>& placeholders,
                       std::optional<std::size_t> countArgument) {
  std::vector<std::string> literals;
  std::vector<std::size_t> arguments;
  std::size_t done = 0;
  for (const RegexMatch& placeholder : placeholders) {
    const std::optional<std::size_t> argument = number(placeholder, wording);
    if (!argument) continue;
    literals.emplace_back(wording.substr(done, placeholder.range().start - done));
    arguments.push_back(*argument);
    done = placeholder.range().end;
  }
  literals.emplace_back(wording.substr(done));
  return {.key = std::string(key),
          .expression = SentenceExpression(std::move(literals)),
          .arguments = std::move(arguments),
          .countArgument = countArgument};
}

}  // namespace

std::vector<MessagePattern> messagePatterns(const LocalizationCatalogs& catalogs) {
  std::vector<MessagePattern> patterns;
  const LocalizationCatalog* const english = catalogs.fallback();
  if (english == nullptr) return patterns;
  for (const std::string& key : english->externalKeys) {
    const std::optional<std::size_t> count = countArgument(key, *english);
    for (const std::string_view wording : wordings(key, catalogs)) {
      const std::vector<RegexMatch> placeholders = placeholderExpression().findAll(wording).matches;
      if (placeholders.empty()) continue;
      if (!count && letterCount(wording, placeholders) < leastLetters) continue;
      patterns.push_back(pattern(key, wording, placeholders, count));
    }
  }
  std::ranges::stable_sort(patterns, std::ranges::greater(),
                           [](const MessagePattern& each) { return characterCount(each.key); });
  return patterns;
}

std::unordered_map<std::string_view, std::string_view> reverseMessages(const LocalizationCatalogs& catalogs) {
  std::unordered_map<std::string_view, std::string_view> keys;
  for (const std::string_view code : AppLanguage::supportedCodes) {
    const LocalizationCatalog* const catalog = catalogs.find(code);
    if (catalog == nullptr) continue;
    std::vector<std::pair<std::string_view, std::string_view>> messages(catalog->messages.begin(),
                                                                        catalog->messages.end());
    std::ranges::sort(messages);
    for (const auto& [key, message] : messages) {
      keys[message] = key;
      for (const std::string_view form : sortedForms(*catalog, key))
        keys[form] = key;
    }
  }
  return keys;
}

}  // namespace tessary
