#include "TessaryLocalization/LocalizationCatalogs.h"

#include <algorithm>

#include "TessaryLocalization/AppLanguage.h"
#include "TessaryLocalization/LocalizationBundle.h"
#include "TessaryLocalization/PluralCategory.h"
#include "TessaryPlatform/paths/Paths.h"

namespace tessary {
namespace {

/// "messages.{0}개" for a text under a key; empty for the value on top.
std::string describe(const JSONPath& path) {
  std::string text;
  for (const JSONPathStep& step : path) {
    if (!text.empty()) text += '.';
    text += std::holds_alternative<std::string>(step) ? std::get<std::string>(step)
                                                      : std::to_string(std::get<std::size_t>(step));
  }
  return text;
}

std::string unreadable(const std::string& path, std::string_view reason) {
  return "could not read catalog " + path + ": " + std::string(reason);
}

std::string undecodable(const std::string& path, const JSONDecodingError& error) {
  if (error.kind == JSONDecodingError::Kind::malformed)
    return unreadable(path, "no JSON at byte " + std::to_string(error.position));
  return unreadable(path,
                    "no catalog at byte " + std::to_string(error.position) + ", key \"" + describe(error.path) + "\"");
}

}  // namespace

LocalizationCatalogs::LocalizationCatalogs(std::vector<std::pair<std::string, LocalizationCatalog>> byCode)
    : byCode_(std::move(byCode)) {
  std::ranges::stable_sort(byCode_, {}, [](const auto& entry) -> const std::string& { return entry.first; });
  const auto repeated =
      std::ranges::unique(byCode_, {}, [](const auto& entry) -> const std::string& { return entry.first; });
  byCode_.erase(repeated.begin(), repeated.end());
  fallback_ = find(AppLanguage::fallbackCode);
}

std::expected<LocalizationCatalogs, std::string> LocalizationCatalogs::load(const std::string& folder) {
  std::vector<std::pair<std::string, LocalizationCatalog>> byCode;
  for (const std::string_view code : AppLanguage::supportedCodes) {
    const std::string path = Paths::appending(folder, std::string(code) + ".json");
    const std::expected<std::string, LocalizationBundle::FileError> bytes = LocalizationBundle::readFile(path);
    if (!bytes && bytes.error().isMissing) continue;
    if (!bytes) return std::unexpected(unreadable(path, bytes.error().reason));
    std::expected<LocalizationCatalog, JSONDecodingError> catalog = readJSON<LocalizationCatalog>(*bytes);
    if (!catalog) return std::unexpected(undecodable(path, catalog.error()));
    byCode.emplace_back(code, *std::move(catalog));
  }
  return LocalizationCatalogs(std::move(byCode));
}

const LocalizationCatalogs& LocalizationCatalogs::shared() {
  static const LocalizationCatalogs catalogs = [] {
    std::expected<LocalizationCatalogs, std::string> loaded = load(LocalizationBundle::sharedResources());
    if (!loaded) LocalizationBundle::fail(loaded.error());
    return *std::move(loaded);
  }();
  return catalogs;
}

std::vector<std::string> LocalizationCatalogs::languages() const {
  std::vector<std::string> codes;
  for (const auto& [code, catalog] : byCode_)
    codes.push_back(code);
  return codes;
}

const LocalizationCatalog* LocalizationCatalogs::find(std::string_view language) const {
  for (const auto& [code, catalog] : byCode_)
    if (code == language) return &catalog;
  return nullptr;
}

std::string_view LocalizationCatalogs::message(std::string_view key, std::optional<std::int64_t> count,
                                               std::string_view language) const {
  const LocalizationCatalog* catalog = find(language);
  if (catalog == nullptr) catalog = fallback_;
  if (catalog == nullptr) return key;

  // The form for the count, else the form for all that has none of its own.
  if (count) {
    if (const auto forms = catalog->plurals.find(key); forms != catalog->plurals.end()) {
      auto form = forms->second.find(rawValue(cardinal(*count, language)));
      if (form == forms->second.end()) form = forms->second.find(rawValue(PluralCategory::other));
      if (form != forms->second.end()) return form->second;
    }
  }

  // The plain message, else the English one, else the key, which is readable Korean.
  for (const LocalizationCatalog* source : {catalog, fallback_})
    if (source != nullptr)
      if (const auto message = source->messages.find(key); message != source->messages.end()) return message->second;
  return key;
}

}  // namespace tessary
