#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TessaryLocalization/LocalizationCatalog.h"

namespace tessary {

/// The catalogs of the product, one for each language that has one, and the way from a key to a text.
class LocalizationCatalogs {
 public:
  /// No catalog at all: every key stands for itself.
  LocalizationCatalogs() = default;

  /// Catalogs by their codes. A code that occurs twice keeps the first.
  explicit LocalizationCatalogs(std::vector<std::pair<std::string, LocalizationCatalog>> byCode);

  // Points into itself, which a move survives.
  LocalizationCatalogs(LocalizationCatalogs&&) = default;
  LocalizationCatalogs& operator=(LocalizationCatalogs&&) = default;
  ~LocalizationCatalogs() = default;

  /// The catalogs `<code>.json` in `folder`, for each supported code that has one. The error is a text that names the
  /// file which cannot be read, or is no catalog.
  [[nodiscard]] static std::expected<LocalizationCatalogs, std::string> load(const std::string& folder);

  /// The catalogs of this process, loaded at the first call. A catalog that cannot be read ends the process.
  [[nodiscard]] static const LocalizationCatalogs& shared();

  /// The codes of the catalogs, in ascending order.
  [[nodiscard]] std::vector<std::string> languages() const;

  /// The catalog of exactly this language; null where there is none.
  [[nodiscard]] const LocalizationCatalog* find(std::string_view language) const;

  /// The catalog of English, which stands in for what others lack; null where there is none.
  [[nodiscard]] const LocalizationCatalog* fallback() const { return fallback_; }

  /// The message of `key` in `language` with its placeholders as they are: the plural form for `count` where there is
  /// one, else the message, else the English message, else the key. The view lives as long as the catalogs and the
  /// key.
  [[nodiscard]] std::string_view message(std::string_view key, std::optional<std::int64_t> count,
                                         std::string_view language) const;

 private:
  std::vector<std::pair<std::string, LocalizationCatalog>> byCode_;
  const LocalizationCatalog* fallback_ = nullptr;
};

}  // namespace tessary
