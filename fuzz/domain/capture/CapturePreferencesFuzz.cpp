// Preferences from any bytes: what is read is canonical, is written, and reads as the same value, also after every
// operation that changes it. And the policy of any JSON, which never fails.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/CapturePreferences.h"
#include "TessaryDomain/capture/ResolvedCapturePolicy.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/json/JSONValue.h"
#include "support/Require.h"

namespace {

using namespace tessary;

using tessary::testing::require;

void requireCanonical(const CapturePreferences& preferences) {
  require(preferences.types.size() == allCases<ArtifactCategory>().size());
  for (const std::string& extension : preferences.extensions.values())
    require(CapturePreferences::normalizedExtension(extension) == extension);
  for (const auto& [extension, time] : preferences.extensionResumeSince)
    require(CapturePreferences::normalizedExtension(extension) == extension);
  const auto written = writeJSON(preferences);
  require(written.has_value());
  const auto again = readJSON<CapturePreferences>(*written);
  require(again == preferences);
  require(writeJSON(*again) == *written);
}

void change(CapturePreferences& preferences, std::string_view text) {
  preferences.setExtension(text, true);
  const bool isExtension = CapturePreferences::normalizedExtension(text).has_value();
  require(preferences.isExtensionEnabled(text) == isExtension);
  requireCanonical(preferences);
  preferences.setExtension(text, false);
  require(!preferences.isExtensionEnabled(text));
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    preferences.setCategory(category, true);
    const auto isListed = [&](std::string_view each) { return preferences.isExtensionEnabled(each); };
    require(category == ArtifactCategory::other || std::ranges::any_of(fileExtensions(category), isListed));
  }
  requireCanonical(preferences);
  preferences.applyCollectionDefaults(std::string("2026"));
  for (const std::string_view extension : CapturePreferences::officeExtensions)
    preferences.setExtension(extension, true);
  const CapturePreferences before = preferences;
  preferences.applyCollectionDefaults(std::string("2027"));
  require(preferences == before);
  requireCanonical(preferences);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto json = JSONValue::parse(text)) {
    const ResolvedCapturePolicy policy = ResolvedCapturePolicy::fromJSON(*json);
    require(policy.types.size() <= allCases<ArtifactCategory>().size());
    require(json->object() != nullptr || policy == ResolvedCapturePolicy());
  }
  auto preferences = readJSON<CapturePreferences>(text);
  if (!preferences) {
    // What the text lacks or breaks is told; what JSON lacks is told first.
    require((preferences.error().kind == JSONDecodingError::Kind::malformed) == !JSONValue::parse(text).has_value());
    preferences = CapturePreferences();
  }
  requireCanonical(*preferences);
  change(*preferences, text.substr(0, 64));
  return 0;
}
