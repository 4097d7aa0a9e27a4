#include "TessaryDomain/documents/DocumentRecord.h"

#include <algorithm>

#include "TessaryDomain/documents/PathExtension.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary {

namespace {

bool isVideoExtension(std::string_view extension) {
  return std::ranges::binary_search(fileExtensions(ArtifactCategory::videos), std::string_view(lowercased(extension)));
}

bool isTextKind(std::string_view kind) {
  return kind == "markdown" || kind == "html" || kind == "candidate" || kind == "text";
}

/// An older version stored "other" for what it could not tell apart. A text that names no category is not undecided: a
/// newer version chose it, so the extension has no say, and the kind answers for it.
bool isUndecided(const std::optional<std::string>& category) {
  return !category || *category == rawValue(ArtifactCategory::other);
}

ArtifactCategory categoryOfKind(std::string_view kind) {
  if (kind == "image") return ArtifactCategory::images;
  if (kind == "video") return ArtifactCategory::videos;
  if (kind == "pdf") return ArtifactCategory::pdfs;
  if (kind == "text") return ArtifactCategory::code;
  if (kind == "file") return ArtifactCategory::other;
  return ArtifactCategory::documents;
}

}  // namespace

/// The extension of the file at its origin, or else of the stored copy.
std::string_view DocumentRecord::effectiveExtension() const {
  if (sourcePath) return pathExtension(*sourcePath);
  return revisions.empty() ? std::string_view() : pathExtension(revisions.back().snapshotPath);
}

/// The record's own category, or else the latest revision's.
const std::optional<std::string>& DocumentRecord::storedCategory() const {
  return artifactCategory || revisions.empty() ? artifactCategory : revisions.back().artifactCategory;
}

/// The category of a file that is text by its extension, but was recorded before there were categories of text.
std::optional<ArtifactCategory> DocumentRecord::legacyTextCategory() const {
  if (kind != "file" || !isUndecided(storedCategory())) return std::nullopt;
  const std::optional<ArtifactCategory> byExtension = safeTextCategoryForExtension(effectiveExtension());
  const bool isPlan = byExtension == ArtifactCategory::documents && !revisions.empty() &&
                      revisions.back().originEvent.starts_with("plan-file:");
  return isPlan ? ArtifactCategory::plans : byExtension;
}

ArtifactCategory DocumentRecord::category() const {
  if (const std::optional<ArtifactCategory> legacy = legacyTextCategory()) return *legacy;
  const std::optional<std::string>& stored = storedCategory();
  if (kind == "file" && isUndecided(stored) && isVideoExtension(effectiveExtension())) return ArtifactCategory::videos;
  if (stored) {
    if (const auto named = fromRawValue<ArtifactCategory>(*stored)) return *named;
  }
  return categoryOfKind(kind);
}

bool DocumentRecord::isNewDocument() const {
  return !isUpdated() && (revisions.empty() || revisions.front().isPreexistingFile != true);
}

bool DocumentRecord::supportsTextContent() const {
  return isTextKind(kind) || legacyTextCategory();
}

AgentSourceProfile DocumentRecord::sourceProfile() const {
  const auto profileOf = [](const auto& holder, std::string_view agent) {
    return AgentSourceProfile{
        .source = std::string(agent),
        .sourceProfileID = holder.sourceProfileID,
        .sourceProfileLabel = holder.sourceProfileLabel,
        .sourceKind = holder.sourceKind,
        .profileIdentityOrigin = holder.profileIdentityOrigin,
        .profileIdentityVerified = holder.profileIdentityVerified,
    };
  };
  const DocumentRevision* latest = latestRevision();
  if (latest == nullptr) return profileOf(*this, source);
  // The record's own source is not asked: it may be that of an earlier revision.
  return profileOf(*latest, latest->source ? std::string_view(*latest->source) : "unknown");
}

std::string_view DocumentRecord::symbol() const {
  return kind == "candidate" ? "text.bubble" : tessary::symbol(category());
}

std::string DocumentRecord::categoryTitle() const {
  if (const auto format = quickLookTitleForExtension(effectiveExtension())) return std::string(*format);
  return tessary::title(category());
}

}  // namespace tessary
