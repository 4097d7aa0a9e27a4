#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include <unicode/locid.h>
#include <unicode/utypes.h>

#include "TessaryLocalization/Locale.h"

namespace tessary {

/// Formatters of one kind, each made when it is first asked for and kept as long as the process: making one takes ICU
/// some 10 to 600 µs, using it about one. May be used from any thread.
///
/// Nothing is ever thrown away. Locales come from the settings of a host and not from outside text, so there are few.
/// The caches of this module are not destroyed at exit either: another thread may still be writing a number.
template <typename Key, typename Formatter>
class FormatterCache {
 public:
  /// The formatter of `key`, which `make` gives at the first call: a `std::unique_ptr`, which may be empty where ICU
  /// cannot make one. Nobody changes the formatter, and it stays where it is.
  template <typename Make>
  const Formatter* formatter(const Key& key, const Make& make) {
    const std::lock_guard guard(lock_);
    auto place = formatters_.find(key);
    if (place == formatters_.end()) place = formatters_.emplace(key, make()).first;
    return place->second.get();
  }

 private:
  std::mutex lock_;
  std::map<Key, std::unique_ptr<const Formatter>> formatters_;
};

/// How often a new number formatter is used before it is shared. ICU makes its faster form when it is used for the
/// third time; done while only one thread has it, every later use only reads.
inline constexpr int usesBeforeSharing = 3;

/// What `make(icu::Locale, UErrorCode&)` makes for the locale; where ICU refuses, as it does a numbering system that
/// does not exist, for the locale without its keywords, and at last for that of no language. An empty pointer where
/// even that fails.
template <typename Make>
auto madeForLocale(const Locale& locale, const Make& make) {
  const icu::Locale whole(locale.identifier().c_str());
  for (const icu::Locale& candidate : {whole, icu::Locale(whole.getBaseName()), icu::Locale::getRoot()}) {
    UErrorCode status = U_ZERO_ERROR;
    auto made = make(candidate, status);
    if (U_SUCCESS(status) && made) return made;
  }
  return decltype(make(whole, std::declval<UErrorCode&>()))();
}

}  // namespace tessary
