#pragma once

#include <string_view>
#include <vector>

#include "TessaryLocalization/AppLanguage.h"
#include "TessaryLocalization/Locale.h"

namespace tessary::test {

/// The locales under which readers of the product's languages see numbers and dates: every language at home, and every
/// language with the region and the conventions of another.
inline std::vector<Locale> readersLocales() {
  std::vector<Locale> list;
  for (const char* system : {"en",
                             "ko_KR",
                             "de_DE",
                             "en_US",
                             "en_GB",
                             "zh-Hant-HK",
                             "zh-Hant-TW",
                             "th_TH",
                             "ar_EG",
                             "hi_IN",
                             "ru_RU",
                             "de_CH",
                             "es_MX",
                             "fr_CA",
                             "en-US-u-rg-dezzzz",
                             "en-US-u-hc-h23",
                             "ko-KR-u-nu-arab",
                             "ja-JP-u-ca-japanese-hc-h11",
                             "en-EG-u-ca-islamic-nu-deva",
                             "ar-SA",
                             "fa-IR"})
    for (const std::string_view language : AppLanguage::supportedCodes)
      list.push_back(AppLanguage::locale(language, Locale(system)));
  return list;
}

}  // namespace tessary::test
