#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

/// Hashes a text, so that a map of texts can be asked with a view of one. It does not say `noexcept`: the library then
/// keeps each hash beside its key and need not work it out again while it walks a bucket.
struct CatalogTextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

/// A map from text to `T` in no particular order, to be asked with any kind of text.
template <class T>
using CatalogMap = std::unordered_map<std::string, T, CatalogTextHash, std::equal_to<>>;

/// The messages of one language: a file `<code>.json`, in which every key is required.
///
/// A message's key is its Korean text. A text may hold placeholders, "{0}", "{1}" and so on, in any order.
struct LocalizationCatalog {
  /// By the name of a plural category. The order of the names is that of their bytes.
  using PluralForms = std::map<std::string, std::string, std::less<>>;

  /// The code of the language, as "zh-Hans".
  std::string language;
  /// The translation of each key.
  CatalogMap<std::string> messages;
  /// The forms of those keys that count something.
  CatalogMap<PluralForms> plurals;
  /// The keys of sentences that may be stored, and that have to be known again in every language. Those of the English
  /// catalog count; the other catalogs' are not looked at.
  std::vector<std::string> externalKeys;

  bool operator==(const LocalizationCatalog&) const = default;
};

template <>
struct JSONForm<LocalizationCatalog> {
  static constexpr std::tuple fields{
      required("language", &LocalizationCatalog::language),
      required("messages", &LocalizationCatalog::messages),
      required("plurals", &LocalizationCatalog::plurals),
      required("externalKeys", &LocalizationCatalog::externalKeys),
  };
};

}  // namespace tessary
