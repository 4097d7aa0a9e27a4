#include "LibraryFile.h"

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace tessary::benchmarks {

namespace {

constexpr int revisionCount = 5;

constexpr auto titles = std::to_array<std::string_view>(
    {"Migration plan for the capture engine", "검색 색인 설계 메모와 다음 단계", "Weekly report \"42\"",
     "src/parser.cpp", "Résumé du projet", "Notes on C:\\paths and\ttabs"});
constexpr auto agents = std::to_array<std::string_view>({"claude", "codex", "gemini", "hermes", "windsurf"});

struct Sort {
  std::string_view kind;
  std::string_view extension;
  std::string_view category;
};
/// A record without a category is one of an older version.
constexpr auto sorts = std::to_array<Sort>({{"markdown", "md", "documents"},
                                            {"markdown", "md", "plans"},
                                            {"html", "html", "documents"},
                                            {"text", "swift", "code"},
                                            {"image", "png", "images"},
                                            {"file", "md", ""},
                                            {"file", "MOV", ""},
                                            {"file", "zip", "other"}});

/// Numbers, hashes and times.
class Source {
 public:
  std::uint32_t below(std::uint32_t bound) { return static_cast<std::uint32_t>(random_() % bound); }

  const auto& pick(const auto& table) { return table[below(static_cast<std::uint32_t>(table.size()))]; }

  std::string hex(int count) {
    std::string text;
    while (count-- > 0)
      text += "0123456789abcdef"[below(16)];
    return text;
  }

  std::string time() {
    const auto two = [](std::uint32_t number) { return std::to_string(100 + number).substr(1); };
    return "2026-" + two(1 + below(12)) + "-" + two(1 + below(28)) + "T" + two(below(24)) + ":" + two(below(60)) + ":" +
           two(below(60)) + "." + std::to_string(1000 + below(1000)).substr(1) + "Z";
  }

 private:
  std::mt19937 random_{20260214};
};

class Generator : Source {
 public:
  DocumentRecord record() {
    const Sort& sort = pick(sorts);
    DocumentRecord record{.id = hex(32),
                          .title = std::string(pick(titles)),
                          .project = "project-" + std::to_string(below(50)),
                          .source = std::string(pick(agents)),
                          .sourceSession = hex(36),
                          .kind = std::string(sort.kind),
                          .createdAt = time(),
                          .updatedAt = time(),
                          .revisions = {},
                          .lastCapturedHash = hex(64),
                          .byteSize = below(200'000),
                          .isSubagent = false,
                          .sourcePathIsCurrent = true};
    record.projectRoot = "/Users/someone/Developer/" + record.project;
    record.sourcePath = *record.projectRoot + "/docs/" + hex(8) + "." + std::string(sort.extension);
    if (!sort.category.empty()) record.artifactCategory = sort.category;
    for (int index = 0; index < revisionCount; ++index)
      record.revisions.push_back(revision(record));
    return record;
  }

 private:
  DocumentRevision revision(const DocumentRecord& record) {
    DocumentRevision revision{
        .id = hex(32),
        .contentHash = hex(64),
        .snapshotPath = "/Users/someone/Library/Application Support/Tessary/snapshots/" + hex(2) + "/" + hex(62),
        .capturedAt = time(),
        .originEvent = "PostToolUse:Write",
        .source = record.source,
        .model = "model-4-5-large",
        .sourceSession = record.sourceSession,
        .artifactCategory = record.artifactCategory,
        .byteSize = below(200'000),
        .sourceKind = "cli",
        .isSubagent = false,
        .isPreviewHelper = false,
        .previewHelperPolicyVersion = 3,
        .sourceCreatedAt = time(),
        .sourceModifiedAt = time(),
        .storageKind = DocumentStorageKind::snapshot,
        .storagePolicyVersion = 2};
    if (below(3) == 0) {
      revision.sourceProfileID = "work";
      revision.sourceProfileLabel = "Work";
      revision.profileIdentityOrigin = "config";
      revision.profileIdentityVerified = true;
    }
    if (below(4) == 0) revision.sourceMetadataChanges = {"title", "path"};
    if (below(2) == 0) {
      revision.provenance = DocumentRevisionProvenance{.certainty = "exact",
                                                       .agent = record.source,
                                                       .session = record.sourceSession,
                                                       .toolUseId = "toolu_" + hex(24),
                                                       .model = revision.model,
                                                       .cwd = record.projectRoot,
                                                       .gitBranch = "main",
                                                       .op = "write",
                                                       .timestamp = time(),
                                                       .via = "hook",
                                                       .contested = false};
    }
    return revision;
  }
};

}  // namespace

CaptureLibrary makeLibrary(std::size_t documentCount) {
  Generator generator;
  CaptureLibrary library{.version = 1, .documents = {}};
  library.documents.reserve(documentCount);
  while (library.documents.size() < documentCount)
    library.documents.push_back(generator.record());
  return library;
}

}  // namespace tessary::benchmarks
