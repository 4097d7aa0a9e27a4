// Sizes that no user has: whatever takes more than linear time, but for a logarithm, does not end in time.

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CapturePreferences.h"
#include "TessaryDomain/capture/ResolvedCapturePolicy.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/json/JSONValue.h"

namespace tessary {
namespace {

constexpr int count = 100'000;

/// Of nine characters, all different, in no order.
std::string extension(int index) {
  return "x" + std::to_string(10'000'000 + (index * 7919LL) % count);
}

std::string joined(const std::string& head, const std::string& tail, const auto& each) {
  std::string text = head;
  for (int index = 0; index < count; ++index)
    text += (index > 0 ? "," : "") + each(index);
  return text + tail;
}

TEST(CapturePreferencesHostile, AHundredThousandExtensionsAreReadWrittenAndReadAgain) {
  const auto read = readJSON<CapturePreferences>(
      joined(R"({"extensions":[)", "]}", [](int index) { return "\"." + extension(index) + " \""; }));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->extensions.values().size(), count);
  EXPECT_TRUE(read->types.at(ArtifactCategory::other));
  const auto written = writeJSON(*read);
  ASSERT_TRUE(written);
  EXPECT_EQ(readJSON<CapturePreferences>(*written), *read);
}

TEST(CapturePreferencesHostile, AHundredThousandExtensionsAreSetAndTakenAwayOneByOne) {
  CapturePreferences value;
  const CapturePreferences before = value;
  for (int index = 0; index < count; ++index)
    value.setExtension(extension(index), true);
  EXPECT_EQ(value.extensions.values().size(), count + before.extensions.values().size());
  for (int index = 0; index < count; ++index)
    EXPECT_TRUE(value.isExtensionEnabled(extension(index)));
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    value.setCategory(category, true);
  value.applyCollectionDefaults("2026");
  for (int index = 0; index < count; ++index)
    value.setExtension(extension(index), false);
  EXPECT_LT(value.extensions.values().size(), 300);
}

TEST(CapturePreferencesHostile, AHundredThousandKeysOfEveryMapAreRead) {
  const auto switches = [](int index) { return "\"" + extension(index) + "\":true"; };
  const auto times = [](int index) { return "\"" + extension(index) + "\":\"2026\""; };
  const auto repeated = [](int index) { return std::string(index % 2 == 0 ? "\"other\"" : "\"MP4\"") + ":\"2026\""; };
  std::string json =
      joined(R"({"types":{)", "},", switches) + joined(R"("typeResumeSince":{)", "},", repeated) +
      joined(R"("extensionResumeSince":{)", "},", times) + joined(R"("agentStores":{)", "},", switches) +
      joined(R"("outputs":{)", "},", switches) + joined(R"("outputResumeSince":{)", "},", times) +
      joined(R"("excludedDocumentIDs":[)", "]}", [](int index) { return "\"" + extension(index) + "\""; });
  const auto read = readJSON<CapturePreferences>(json);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->types.size(), 7);
  EXPECT_EQ(read->typeResumeSince, (CapturePreferences::Times{{"MP4", "2026"}, {"other", "2026"}, {"videos", "2026"}}));
  EXPECT_EQ(read->extensionResumeSince.size(), count);
  EXPECT_EQ(read->excludedDocumentIDs.size(), count);
  const auto written = writeJSON(*read);
  ASSERT_TRUE(written);
  EXPECT_EQ(readJSON<CapturePreferences>(*written), *read);
}

TEST(CapturePreferencesHostile, AnExtensionOfAMegabyteIsNone) {
  const std::string blanks(1 << 20, ' ');
  const std::string letters(1 << 20, 'A');
  const std::string dots(1 << 20, '.');
  EXPECT_EQ(CapturePreferences::normalizedExtension(letters), std::nullopt);
  EXPECT_EQ(CapturePreferences::normalizedExtension(dots + "md"), std::nullopt);
  EXPECT_EQ(CapturePreferences::normalizedExtension(blanks + "md" + blanks), "md");
  EXPECT_EQ(CapturePreferences::normalizedExtension(blanks), std::nullopt);
}

TEST(CapturePreferencesHostile, APolicyOfAHundredThousandKeysIsResolved) {
  const auto times = [](int index) { return "\"" + extension(index) + "\":1"; };
  const auto json =
      JSONValue::parse(joined(R"({"types":{)", "},", times) + joined(R"("typeResumeSince":{)", "},", times) +
                       joined(R"("extensionResumeSince":{)", "},", times) + joined(R"("outputs":{)", "},", times) +
                       joined(R"("outputResumeSince":{)", "},", times) + joined("", ",", times) +
                       joined(R"("extensions":[)", "]}", [](int index) { return "\"" + extension(index) + "\""; }));
  ASSERT_TRUE(json);
  const ResolvedCapturePolicy policy = ResolvedCapturePolicy::fromJSON(*json);
  EXPECT_TRUE(policy.types.empty() && policy.typeResumeSince.empty());
  EXPECT_EQ(policy.extensions.size(), count);
  EXPECT_EQ(policy.extensionResumeSince.size(), count);
  EXPECT_EQ(policy.outputs.size(), count);
  EXPECT_EQ(policy.outputResumeSince.size(), count);
}

}  // namespace
}  // namespace tessary
