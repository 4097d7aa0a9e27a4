#include "TessaryLocalization/LocalizationRuntime.h"

#include "TessaryLocalization/AppLanguage.h"
#include "TessaryLocalization/PreferredLanguages.h"

namespace tessary {

LocalizationRuntime& LocalizationRuntime::shared() {
  static LocalizationRuntime runtime(resolved("", systemPreferredLanguages(), Locale::system()));
  return runtime;
}

LocalizationRuntime::Snapshot LocalizationRuntime::resolved(std::string_view selection,
                                                            const std::vector<std::string>& preferredLanguages,
                                                            const Locale& systemLocale) {
  std::string language = AppLanguage::resolve(selection, preferredLanguages);
  Locale locale = AppLanguage::locale(language, systemLocale);
  return {.language = std::move(language), .locale = std::move(locale)};
}

}  // namespace tessary
