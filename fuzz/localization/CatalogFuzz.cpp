// Catalog files of any bytes. One that is read writes back to itself, and whatever messages, forms and external keys it
// holds, its tables are made and every key comes back from its own text.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TessaryLocalization/LocalizationCatalogs.h"
#include "TessaryLocalization/StoredSentences.h"
#include "support/Require.h"

namespace {

using namespace tessary;

using tessary::testing::require;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto catalog = readJSON<LocalizationCatalog>(text);
  if (!catalog) return 0;
  require(readJSON<LocalizationCatalog>(writeJSON(*catalog).value()) == catalog);

  std::vector<std::pair<std::string, LocalizationCatalog>> byCode;
  byCode.emplace_back("en", *catalog);
  byCode.emplace_back("ru", *catalog);
  const LocalizationCatalogs catalogs(std::move(byCode));
  const StoredSentences sentences(catalogs);
  for (const auto& [key, message] : catalog->messages) {
    require(catalogs.message(key, {}, "ru") == message);
    require(sentences.recognized(key)->key == key);
    require(sentences.recognized(message).has_value());
    for (const std::int64_t count : {0, 1, 3, 11})
      static_cast<void>(sentences.display(catalogs.message(key, count, "ru"), "en"));
  }
  for (const std::string& key : catalog->externalKeys)
    static_cast<void>(sentences.display(key, "ru"));
  return 0;
}
