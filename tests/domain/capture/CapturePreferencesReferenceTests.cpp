// A slow reference that infers what a file leaves open step by step, over its raw keys, and every combination of the
// keys that take part in an inference held against it.

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CapturePreferences.h"
#include "TessaryPlatform/json/JSONRecord.h"

#include "ReadPreferences.h"

namespace tessary {
namespace {

using enum ArtifactCategory;
using Texts = std::vector<std::string>;

const Texts videoList{"avi", "m4v", "mkv", "mov", "mp4", "mpeg", "mpg", "webm"};

/// The keys that take part in an inference, as they stand in a file; absent where the file does not hold them.
struct File {
  std::optional<std::map<std::string, bool>> types;
  std::optional<Texts> extensions;
  std::optional<bool> includeExtensionless;
  std::optional<bool> includeUnlistedExtensions;
  std::optional<std::map<std::string, std::string>> typeResumeSince;
  std::optional<std::map<std::string, std::string>> extensionResumeSince;
  std::optional<std::string> unlistedResumeSince;
};

struct Outcome {
  std::map<std::string, bool> types;
  Texts extensions;
  bool includeExtensionless = false;
  bool includeUnlistedExtensions = false;
  std::map<std::string, std::string> typeResumeSince;
  std::map<std::string, std::string> extensionResumeSince;

  bool operator==(const Outcome&) const = default;
};

/// For the texts that occur below.
std::optional<std::string> normalForm(std::string text) {
  for (char& byte : text)
    byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
  if (!text.empty() && text[0] == '.') text = text.substr(1);
  if (text.empty() || text.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789") != std::string::npos)
    return std::nullopt;
  return text;
}

Texts normalForms(const Texts& texts) {
  Texts normal;
  for (const std::string& text : texts) {
    if (const auto form = normalForm(text)) normal.push_back(*form);
  }
  std::ranges::sort(normal);
  normal.erase(std::ranges::unique(normal).begin(), normal.end());
  return normal;
}

bool has(const auto& map, const std::string& key) {
  return map.count(key) == 1;
}

bool holdsCategory(const Texts& extensions, ArtifactCategory category) {
  return std::ranges::any_of(extensions, [&](const auto& text) { return categoryForExtension(text) == category; });
}

Outcome reference(const File& file) {
  Outcome outcome;
  const auto T = file.types.value_or(std::map<std::string, bool>());
  const auto& X = file.extensions;
  const Texts N = normalForms(X.value_or(Texts()));

  const bool videosMissing = !has(T, "videos");
  bool isOther = false;
  if (has(T, "other")) {
    isOther = T.at("other");
  } else if (holdsCategory(N, other) || (videosMissing && holdsCategory(N, videos))) {
    isOther = true;
  }

  bool legacyVideos = false;
  if (videosMissing && isOther) {
    if (file.includeUnlistedExtensions) {
      legacyVideos = *file.includeUnlistedExtensions;
    } else if (!X && !T.empty() && has(T, "other")) {
      legacyVideos = T.at("other");
    }
  }

  for (const std::string id : {"documents", "plans", "images"})
    outcome.types[id] = has(T, id) ? T.at(id) : true;
  outcome.types["pdfs"] = has(T, "pdfs") ? T.at("pdfs") : holdsCategory(N, pdfs);
  outcome.types["code"] = has(T, "code") ? T.at("code") : holdsCategory(N, code);
  outcome.types["videos"] = has(T, "videos") ? T.at("videos") : isOther && (holdsCategory(N, videos) || legacyVideos);
  outcome.types["other"] = isOther;

  Texts list;
  if (X) {
    list = *X;
  } else {
    list = {"md", "markdown", "html", "htm", "png", "jpg", "jpeg", "gif", "webp", "heic", "heif"};
    for (const ArtifactCategory category : {documents, plans, images, videos, pdfs, code, other}) {
      const std::string name(id(category));
      if (!has(T, name) || !T.at(name)) continue;
      for (const std::string_view extension : fileExtensions(category))
        list.emplace_back(extension);
    }
  }
  if (legacyVideos) list.insert(list.end(), videoList.begin(), videoList.end());
  outcome.extensions = normalForms(list);

  if (file.includeExtensionless) {
    outcome.includeExtensionless = *file.includeExtensionless;
  } else if (X || T.empty()) {
    outcome.includeExtensionless = false;
  } else if (has(T, "other") && T.at("other")) {
    outcome.includeExtensionless = true;
  } else if (has(T, "code")) {
    outcome.includeExtensionless = T.at("code");
  }

  if (file.includeUnlistedExtensions) {
    outcome.includeUnlistedExtensions = *file.includeUnlistedExtensions;
  } else if (X || T.empty()) {
    outcome.includeUnlistedExtensions = false;
  } else if (has(T, "other")) {
    outcome.includeUnlistedExtensions = T.at("other");
  }

  if (file.typeResumeSince) outcome.typeResumeSince = *file.typeResumeSince;
  if (videosMissing && has(outcome.typeResumeSince, "other")) {
    const std::string existing = has(outcome.typeResumeSince, "videos") ? outcome.typeResumeSince.at("videos") : "";
    const std::string candidate = outcome.typeResumeSince.at("other");
    outcome.typeResumeSince["videos"] = candidate > existing ? candidate : existing;
  }

  if (file.extensionResumeSince) {
    for (const auto& [key, value] : *file.extensionResumeSince) {
      const auto form = normalForm(key);
      if (!form) continue;
      const bool isGreater = !has(outcome.extensionResumeSince, *form) || outcome.extensionResumeSince[*form] < value;
      if (isGreater) outcome.extensionResumeSince[*form] = value;
    }
  }
  if (legacyVideos && file.unlistedResumeSince) {
    for (const std::string& extension : videoList) {
      if (std::ranges::find(N, extension) != N.end()) continue;
      std::string& slot = outcome.extensionResumeSince[extension];
      if (slot < *file.unlistedResumeSince) slot = *file.unlistedResumeSince;
    }
  }
  return outcome;
}

Outcome outcome(const CapturePreferences& value) {
  Outcome outcome;
  for (const auto& [category, isOn] : value.types)
    outcome.types[std::string(id(category))] = isOn;
  outcome.extensions = {value.extensions.values().begin(), value.extensions.values().end()};
  outcome.includeExtensionless = value.includeExtensionless;
  outcome.includeUnlistedExtensions = value.includeUnlistedExtensions;
  outcome.typeResumeSince = {value.typeResumeSince.begin(), value.typeResumeSince.end()};
  outcome.extensionResumeSince = {value.extensionResumeSince.begin(), value.extensionResumeSince.end()};
  return outcome;
}

std::string json(const std::string& text) {
  return "\"" + text + "\"";
}
std::string json(bool value) {
  return value ? "true" : "false";
}
std::string json(const Texts& texts) {
  std::string list;
  for (const std::string& text : texts)
    list += (list.empty() ? "" : ",") + json(text);
  return "[" + list + "]";
}
std::string json(const auto& map) {
  std::string object;
  for (const auto& [key, value] : map)
    object += (object.empty() ? "" : ",") + json(key) + ":" + json(value);
  return "{" + object + "}";
}

/// The file's text; a key that it does not hold is left out, or null.
std::string text(const File& file, bool withNulls) {
  std::string text;
  const auto add = [&](const char* key, const auto& value) {
    if (!value && !withNulls) return;
    text += (text.empty() ? "" : ",") + json(std::string(key)) + ":" + (value ? json(*value) : "null");
  };
  add("types", file.types);
  add("extensions", file.extensions);
  add("includeExtensionless", file.includeExtensionless);
  add("includeUnlistedExtensions", file.includeUnlistedExtensions);
  add("typeResumeSince", file.typeResumeSince);
  add("extensionResumeSince", file.extensionResumeSince);
  add("unlistedResumeSince", file.unlistedResumeSince);
  return "{" + text + "}";
}

void holdAgainstReference(const File& file, bool withNulls) {
  const std::string given = text(file, withNulls);
  const CapturePreferences read = preferences(given);
  ASSERT_EQ(outcome(read), reference(file)) << given;
  const std::string written = writeJSON(read).value_or("an error");
  const CapturePreferences again = preferences(written);
  ASSERT_EQ(again, read) << given;
  ASSERT_EQ(writeJSON(again).value_or("an error"), written) << given;

  CapturePreferences::Choices choices;
  if (file.types) choices.types.emplace(file.types->begin(), file.types->end());
  choices.extensions = file.extensions;
  choices.includeExtensionless = file.includeExtensionless;
  choices.includeUnlistedExtensions = file.includeUnlistedExtensions;
  if (file.typeResumeSince) choices.typeResumeSince.emplace(file.typeResumeSince->begin(), file.typeResumeSince->end());
  if (file.extensionResumeSince)
    choices.extensionResumeSince.emplace(file.extensionResumeSince->begin(), file.extensionResumeSince->end());
  choices.unlistedResumeSince = file.unlistedResumeSince;
  ASSERT_EQ(CapturePreferences(choices), read) << given;
}

constexpr auto eitherOrAbsent = std::to_array<std::optional<bool>>({std::nullopt, false, true});

/// Calls `use` with every set of raw types over the keys that inferences ask for.
void forEachTypes(auto use) {
  use(std::optional<std::map<std::string, bool>>());
  for (const auto& isOther : eitherOrAbsent) {
    for (const auto& isVideos : eitherOrAbsent) {
      for (const auto& isCode : eitherOrAbsent) {
        std::map<std::string, bool> types;
        if (isOther) types["other"] = *isOther;
        if (isVideos) types["videos"] = *isVideos;
        if (isCode) types["code"] = *isCode;
        use(std::optional(types));
      }
    }
  }
}

/// Now and then a further key, which may make the raw types not empty, or list extensions.
void addOtherTypes(File& file, int count) {
  constexpr auto extras = std::to_array<std::string_view>({"", "", "documents", "pdfs", "music"});
  const std::string_view extra = extras.at(static_cast<std::size_t>(count) % extras.size());
  if (file.types && !extra.empty()) (*file.types)[std::string(extra)] = true;
}

const std::vector<std::optional<Texts>>& lists() {
  static const std::vector<std::optional<Texts>> lists{
      std::nullopt,
      Texts{},
      Texts{"md"},
      Texts{"docx"},
      Texts{".MP4"},
      Texts{"py", "pdf"},
      Texts{"mp4", "DOCX", "webm"},
      Texts{"bad ext", ""},
      videoList,
  };
  return lists;
}

TEST(CapturePreferencesReference, EveryCombinationOfKeysIsWhatTheRulesSayStepByStep) {
  int count = 0;
  forEachTypes([&](const auto& types) {
    for (const auto& extensions : lists()) {
      for (const auto& isUnlisted : eitherOrAbsent) {
        for (const auto& isExtensionless : eitherOrAbsent) {
          File file{.types = types,
                    .extensions = extensions,
                    .includeExtensionless = isExtensionless,
                    .includeUnlistedExtensions = isUnlisted,
                    .typeResumeSince = std::nullopt,
                    .extensionResumeSince = std::nullopt,
                    .unlistedResumeSince = std::nullopt};
          addOtherTypes(file, ++count);
          holdAgainstReference(file, /*withNulls=*/count % 2 == 0);
          if (testing::Test::HasFatalFailure()) return;
        }
      }
    }
  });
  EXPECT_EQ(count, (1 + 27) * 9 * 9);
}

TEST(CapturePreferencesReference, EveryCombinationOfKeysMovesTheTimesAsTheRulesSay) {
  using Times = std::map<std::string, std::string>;
  const std::vector<std::optional<Times>> typeTimes{std::nullopt, Times{{"other", "2026-02"}},
                                                    Times{{"other", "2026-02"}, {"videos", "2026-03"}, {"music", "m"}}};
  const std::vector<std::optional<Times>> extensionTimes{
      std::nullopt, Times{{"MP4", "2026-04"}, {"mp4", "2026-01"}, {"a b", "2026-09"}},
      Times{{".mov", "2026-01"}, {"MOV", "2026-04"}, {"md", "2026-01"}}};
  int count = 0;
  forEachTypes([&](const auto& types) {
    for (const auto& extensions : lists()) {
      for (const auto& isUnlisted : eitherOrAbsent) {
        for (std::size_t row = 0; row < 6; ++row) {
          File file{.types = types,
                    .extensions = extensions,
                    .includeExtensionless = std::nullopt,
                    .includeUnlistedExtensions = isUnlisted,
                    .typeResumeSince = typeTimes[row % 3],
                    .extensionResumeSince = extensionTimes[(row + row / 3) % 3],
                    .unlistedResumeSince = std::nullopt};
          if (row != 1) file.unlistedResumeSince = "2026-02";
          addOtherTypes(file, ++count);
          holdAgainstReference(file, /*withNulls=*/count % 2 == 0);
          if (testing::Test::HasFatalFailure()) return;
        }
      }
    }
  });
  EXPECT_EQ(count, (1 + 27) * 9 * 3 * 6);
}

}  // namespace
}  // namespace tessary
