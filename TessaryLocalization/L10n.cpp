#include "TessaryLocalization/L10n.h"

#include "TessaryLocalization/LocalizationBundle.h"
#include "TessaryLocalization/LocalizationCatalogs.h"
#include "TessaryLocalization/LocalizationRuntime.h"
#include "TessaryLocalization/MessageText.h"
#include "TessaryLocalization/StoredSentences.h"
#include "TessaryPlatform/paths/Paths.h"

namespace tessary::L10n {
namespace {

std::string filled(std::string_view key, const auto& arguments, std::optional<std::int64_t> count,
                   std::optional<std::string_view> language) {
  const std::string selected = language ? std::string() : LocalizationRuntime::shared().language();
  const std::string_view message = LocalizationCatalogs::shared().message(key, count, language.value_or(selected));
  const std::span all(arguments);
  return filledMessage(message, [&](std::size_t index) {
    return index < all.size() ? std::optional<std::string_view>(all[index]) : std::nullopt;
  });
}

}  // namespace

std::string text(std::string_view key, std::span<const std::string> arguments, std::optional<std::int64_t> count,
                 std::optional<std::string_view> language) {
  return filled(key, arguments, count, language);
}

std::string text(std::string_view key, std::initializer_list<std::string_view> arguments,
                 std::optional<std::int64_t> count, std::optional<std::string_view> language) {
  return filled(key, arguments, count, language);
}

std::string display(std::string_view text, std::optional<std::string_view> language) {
  const StoredSentences& sentences = StoredSentences::shared();
  return sentences.display(text, language ? std::string(*language) : LocalizationRuntime::shared().language());
}

std::vector<std::string> availableCatalogLanguages() {
  return LocalizationCatalogs::shared().languages();
}

const LocalizationCatalog* catalog(std::string_view language) {
  return LocalizationCatalogs::shared().find(language);
}

std::vector<std::string> resourceFiles(std::string_view folder) {
  return LocalizationBundle::jsonFiles(Paths::appending(LocalizationBundle::sharedResources(), folder));
}

}  // namespace tessary::L10n
