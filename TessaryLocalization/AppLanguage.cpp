#include "TessaryLocalization/AppLanguage.h"

#include <algorithm>
#include <vector>

#include "TessaryLocalization/L10n.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary {
namespace {

bool isSupported(std::string_view code) {
  return std::ranges::find(AppLanguage::supportedCodes, code) != AppLanguage::supportedCodes.end();
}

/// "zh_Hant-TW" as "zh", "hant", "tw".
std::vector<std::string> pieces(std::string_view preferredLanguage) {
  std::string text(preferredLanguage);
  std::ranges::replace(text, '_', '-');
  text = lowercased(text);
  std::vector<std::string> found;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('-', start), text.size());
    if (end > start) found.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return found;
}

/// Which Chinese. A script that is named wins over the region, and Hong Kong over the traditional script, which is
/// named in "zh-Hant-HK" too.
std::string_view chinese(const std::vector<std::string>& pieces) {
  const auto has = [&](std::string_view piece) { return std::ranges::find(pieces, piece) != pieces.end(); };
  if (has("hans")) return "zh-Hans";
  if (has("hk") || has("mo") || pieces.front() == "yue") return "zh-HK";
  if (has("hant") || has("tw")) return "zh-Hant";
  return "zh-Hans";
}

}  // namespace

std::string AppLanguage::nativeName() const {
  if (value_ == system) return L10n::text("시스템 언어");
  return std::string(rawValueRow(value_).nativeName);
}

std::string AppLanguage::resolve(std::string_view selection, std::span<const std::string> preferredLanguages) {
  if (!selection.empty()) return std::string(isSupported(selection) ? selection : fallbackCode);
  for (const std::string& preferred : preferredLanguages) {
    const std::vector<std::string> parts = pieces(preferred);
    if (parts.empty()) continue;
    const std::string& first = parts.front();
    if (first == "zh" || first == "yue") return std::string(chinese(parts));
    if (isSupported(first)) return first;
  }
  return std::string(fallbackCode);
}

Locale AppLanguage::locale(std::string_view language, const Locale& systemLocale) {
  // The product's code for the Chinese of Hong Kong leaves out the script, and "zh" is simplified without one.
  return systemLocale.withLanguage(language == rawValue(zhHK) ? "zh-Hant-HK" : language);
}

}  // namespace tessary
