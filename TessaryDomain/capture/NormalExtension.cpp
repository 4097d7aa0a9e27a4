#include "TessaryDomain/capture/NormalExtension.h"

#include <algorithm>

#include "TessaryPlatform/text/Casing.h"

namespace tessary {
namespace {

bool isLetterOrDigit(char unit) {
  return (unit >= 'a' && unit <= 'z') || (unit >= '0' && unit <= '9');
}

bool isInside(char unit) {
  return isLetterOrDigit(unit) || unit == '_' || unit == '-';
}

}  // namespace

std::optional<std::string> normalExtension(std::string_view trimmed) {
  std::string extension = lowercased(trimmed);
  if (extension.starts_with('.')) extension.erase(0, 1);
  if (extension.empty() || extension.size() > longestNormalExtension) return std::nullopt;
  if (!isLetterOrDigit(extension.front()) || !std::ranges::all_of(extension, isInside)) return std::nullopt;
  return extension;
}

}  // namespace tessary
