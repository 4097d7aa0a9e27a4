#include "TessaryDomain/capture/CapturePreferences.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TessaryDomain/capture/NormalExtension.h"
#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {
namespace {

/// The categories that are on where nothing is said of them.
constexpr bool isOnByDefault(ArtifactCategory category) {
  return category == ArtifactCategory::documents || category == ArtifactCategory::plans ||
         category == ArtifactCategory::images;
}

/// What `setCategory` lists. Of images only the usual ones; an icon or a vector drawing is seldom a document.
std::vector<std::string_view> offeredExtensions(ArtifactCategory category) {
  const std::span<const std::string_view> extensions = fileExtensions(category);
  std::vector<std::string_view> offered(extensions.begin(), extensions.end());
  if (category == ArtifactCategory::images) {
    std::erase_if(offered, [](std::string_view extension) {
      return std::ranges::find(CapturePreferences::defaultExtensions, extension) ==
             CapturePreferences::defaultExtensions.end();
    });
  }
  return offered;
}

/// Leaves nothing of a category that was off but its switch, so that turning it on brings back no old choices.
void clean(CapturePreferences& preferences, ArtifactCategory category) {
  preferences.extensions.eraseIf(
      [category](std::string_view extension) { return categoryForExtension(extension) == category; });
  if (category == ArtifactCategory::code) preferences.includeExtensionless = false;
  if (category == ArtifactCategory::other) {
    preferences.includeUnlistedExtensions = false;
    // Files without extension are code or other: where code is on, the switch is its choice. In the order that
    // `officeExtensions` has now, "csv" has always turned code on before the first file of `other`.
    if (!preferences[ArtifactCategory::code]) preferences.includeExtensionless = false;
  }
}

}  // namespace

std::optional<std::string> CapturePreferences::normalizedExtension(std::string_view text) {
  return normalExtension(trimmed(text, isWhiteSpace));
}

std::vector<std::string> CapturePreferences::normalizedExtensions(std::span<const std::string> texts) {
  const ExtensionList list(texts);
  return {list.values().begin(), list.values().end()};
}

bool CapturePreferences::operator[](ArtifactCategory category) const {
  const auto found = types.find(category);
  return found == types.end() ? isOnByDefault(category) : found->second;
}

bool CapturePreferences::operator[](CaptureOutput output) const {
  const auto found = outputs.find(rawValue(output));
  return found == outputs.end() ? output != CaptureOutput::downloadsInbox : found->second;
}

void CapturePreferences::set(ArtifactCategory category, bool isEnabled) {
  types[category] = isEnabled;
}

void CapturePreferences::set(CaptureOutput output, bool isEnabled) {
  outputs[std::string(rawValue(output))] = isEnabled;
}

bool CapturePreferences::isExtensionEnabled(std::string_view text) const {
  const std::optional<std::string> extension = normalizedExtension(text);
  if (!extension || !extensions.contains(*extension)) return false;
  const ArtifactCategory category = categoryForExtension(*extension);
  const bool canBePlan = category == ArtifactCategory::documents;
  return (*this)[category] || (canBePlan && (*this)[ArtifactCategory::plans]);
}

void CapturePreferences::setExtension(std::string_view text, bool isEnabled) {
  const std::optional<std::string> extension = normalizedExtension(text);
  if (!extension) return;
  if (!isEnabled) {
    extensions.erase(*extension);
    return;
  }
  extensions.insert(*extension);
  const ArtifactCategory category = categoryForExtension(*extension);
  set(category, true);
  if (category == ArtifactCategory::documents) set(ArtifactCategory::plans, true);
}

void CapturePreferences::setCategory(ArtifactCategory category, bool isEnabled) {
  set(category, isEnabled);
  if (!isEnabled) return;
  const auto isListed = [this](std::string_view extension) { return extensions.contains(extension); };
  if (std::ranges::any_of(fileExtensions(category), isListed)) return;
  extensions.insert(offeredExtensions(category));
}

void CapturePreferences::applyCollectionDefaults(std::optional<std::string> since) {
  if (collectionDefaultsVersion) return;
  collectionDefaultsVersion = currentCollectionDefaults;
  if (!includeSubagentArtifacts) {
    includeSubagentArtifacts = true;
    subagentArtifactsResumeSince = std::move(since);
  }
  for (const std::string_view extension : officeExtensions) {
    const ArtifactCategory category = categoryForExtension(extension);
    if (!(*this)[category]) clean(*this, category);
    setExtension(extension, /*isEnabled=*/true);
  }
}

}  // namespace tessary
