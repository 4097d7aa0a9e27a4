#include "TessaryDomain/capture/NormalExtension.h"

#include <algorithm>

#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary {
namespace {

bool isSmallLetterOrDigit(char unit) {
  return isASCIILowercase(unit) || isASCIIDigit(unit);
}

bool isInside(char unit) {
  return isSmallLetterOrDigit(unit) || unit == '_' || unit == '-';
}

}  // namespace

std::optional<std::string> normalExtension(std::string_view trimmed) {
  std::string extension = lowercased(trimmed);
  if (extension.starts_with('.')) extension.erase(0, 1);
  if (extension.empty() || extension.size() > longestNormalExtension) return std::nullopt;
  if (!isSmallLetterOrDigit(extension.front()) || !std::ranges::all_of(extension, isInside)) return std::nullopt;
  return extension;
}

}  // namespace tessary
