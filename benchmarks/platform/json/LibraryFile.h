#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary::benchmarks {

// A library file as the product keeps it: records of documents with their revisions.

enum class StorageKind { snapshot, sourceReference, released };

struct Provenance {
  std::optional<std::string> certainty, agent, profile, session, agentId, toolUseId, model, cwd, gitBranch, op,
      timestamp, via, agentVersion, entrypoint;
  std::optional<bool> contested;
  std::optional<std::string> evidence, host, agentName;
  std::optional<bool> userEdit;
  std::optional<std::string> provider;
  std::optional<bool> local;
  bool operator==(const Provenance&) const = default;
};

struct Revision {
  std::string id, contentHash, snapshotPath, capturedAt, originEvent;
  std::optional<std::string> source, model, sourceSession;
  bool reviewEligible = true;
  std::optional<std::string> artifactCategory;
  std::optional<std::int64_t> byteSize;
  std::optional<std::string> sourceProfileID, sourceProfileLabel, sourceKind, profileIdentityOrigin;
  std::optional<bool> profileIdentityVerified, isSubagentResponse;
  std::optional<std::string> parentSessionID, mainProjectRoot;
  std::optional<bool> isSubagent, isPreviewHelper;
  std::optional<std::int64_t> previewHelperPolicyVersion;
  std::optional<bool> isInternalArtifact;
  std::optional<std::int64_t> internalArtifactPolicyVersion;
  std::optional<bool> isIgnoredMachineData;
  std::optional<std::string> sourceCreatedAt, sourceModifiedAt;
  std::vector<std::string> sourceMetadataChanges;
  std::optional<bool> isPreexistingFile, isIgnoredPreexistingFile;
  std::optional<StorageKind> storageKind;
  std::optional<std::int64_t> storagePolicyVersion;
  std::optional<Provenance> provenance;
  bool operator==(const Revision&) const = default;
};

struct Record {
  std::string id, title, project, source;
  std::optional<std::string> sourcePath;
  std::optional<bool> sourcePathIsCurrent;
  std::optional<std::string> sourceSession;
  std::string kind, createdAt, updatedAt;
  std::vector<Revision> revisions;
  std::optional<std::string> projectRoot, model, lastCapturedHash, artifactCategory;
  std::optional<std::int64_t> byteSize;
  std::optional<std::string> sourceProfileID, sourceProfileLabel, sourceKind, profileIdentityOrigin;
  std::optional<bool> profileIdentityVerified, isSubagentResponse;
  std::optional<std::string> parentSessionID, mainProjectRoot;
  std::optional<bool> isSubagent;
  bool operator==(const Record&) const = default;
};

struct Library {
  std::int64_t version = 0;
  std::vector<Record> documents;
  bool operator==(const Library&) const = default;
};

/// A library of about 20 MB of JSON, the same on every run.
inline Library makeLibrary() {
  std::mt19937 random(20260214);
  const auto below = [&](std::uint32_t bound) { return static_cast<std::uint32_t>(random() % bound); };
  const auto hex = [&](int count) {
    std::string text;
    while (count-- > 0)
      text += "0123456789abcdef"[below(16)];
    return text;
  };
  const auto time = [&] {
    const auto two = [](std::uint32_t number) { return std::to_string(100 + number).substr(1); };
    return "2026-" + two(1 + below(12)) + "-" + two(1 + below(28)) + "T" + two(below(24)) + ":" + two(below(60)) + ":" +
           two(below(60)) + "." + std::to_string(1000 + below(1000)).substr(1) + "Z";
  };
  static constexpr const char* titles[] = {"Migration plan for the capture engine",
                                           "검색 색인 설계 메모와 다음 단계",
                                           "Weekly report \"42\"",
                                           "src/parser.cpp",
                                           "Résumé du projet",
                                           "Notes on C:\\paths and\ttabs"};
  static constexpr const char* agents[] = {"claude", "codex", "gemini", "hermes", "windsurf"};
  Library library{1, {}};
  for (int document = 0; document < 5'500; ++document) {
    Record record;
    record.id = hex(32);
    record.title = titles[below(6)];
    record.project = "project-" + std::to_string(below(50));
    record.source = agents[below(5)];
    record.projectRoot = "/Users/someone/Developer/" + record.project;
    record.sourcePath = *record.projectRoot + "/docs/" + hex(8) + ".md";
    record.sourcePathIsCurrent = true;
    record.sourceSession = hex(36);
    record.kind = "markdown";
    record.createdAt = time();
    record.updatedAt = time();
    record.lastCapturedHash = hex(64);
    record.artifactCategory = "documents";
    record.byteSize = below(200'000);
    record.isSubagent = false;
    for (std::uint32_t count = 1 + below(5); count > 0; --count) {
      Revision revision;
      revision.id = hex(32);
      revision.contentHash = hex(64);
      revision.snapshotPath = "/Users/someone/Library/Application Support/Tessary/snapshots/" + hex(2) + "/" + hex(62);
      revision.capturedAt = time();
      revision.originEvent = "PostToolUse:Write";
      revision.source = record.source;
      revision.model = "model-4-5-large";
      revision.sourceSession = record.sourceSession;
      revision.artifactCategory = "documents";
      revision.byteSize = below(200'000);
      revision.sourceKind = "cli";
      revision.isSubagent = false;
      revision.isPreviewHelper = false;
      revision.previewHelperPolicyVersion = 3;
      revision.sourceCreatedAt = time();
      revision.sourceModifiedAt = time();
      if (below(4) == 0) revision.sourceMetadataChanges = {"title", "path"};
      revision.storageKind = StorageKind::snapshot;
      revision.storagePolicyVersion = 2;
      if (below(2) == 0) {
        Provenance provenance;
        provenance.certainty = "exact";
        provenance.agent = record.source;
        provenance.session = record.sourceSession;
        provenance.toolUseId = "toolu_" + hex(24);
        provenance.model = revision.model;
        provenance.cwd = record.projectRoot;
        provenance.gitBranch = "main";
        provenance.op = "write";
        provenance.timestamp = time();
        provenance.via = "hook";
        provenance.contested = false;
        revision.provenance = provenance;
      }
      record.revisions.push_back(std::move(revision));
    }
    library.documents.push_back(std::move(record));
  }
  return library;
}

}  // namespace tessary::benchmarks

namespace tessary {

template <>
struct RawValues<benchmarks::StorageKind> {
  static constexpr auto table = std::to_array<RawValueRow<benchmarks::StorageKind>>({
      {benchmarks::StorageKind::snapshot, "snapshot"},
      {benchmarks::StorageKind::sourceReference, "sourceReference"},
      {benchmarks::StorageKind::released, "released"},
  });
};

template <>
struct JSONForm<benchmarks::Provenance> {
  using Provenance = benchmarks::Provenance;
  static constexpr std::tuple fields{
      optional("certainty", &Provenance::certainty),
      optional("agent", &Provenance::agent),
      optional("profile", &Provenance::profile),
      optional("session", &Provenance::session),
      optional("agentId", &Provenance::agentId),
      optional("toolUseId", &Provenance::toolUseId),
      optional("model", &Provenance::model),
      optional("cwd", &Provenance::cwd),
      optional("gitBranch", &Provenance::gitBranch),
      optional("op", &Provenance::op),
      optional("timestamp", &Provenance::timestamp),
      optional("via", &Provenance::via),
      optional("agentVersion", &Provenance::agentVersion),
      optional("entrypoint", &Provenance::entrypoint),
      optional("contested", &Provenance::contested),
      optional("evidence", &Provenance::evidence),
      optional("host", &Provenance::host),
      optional("agentName", &Provenance::agentName),
      optional("userEdit", &Provenance::userEdit),
      optional("provider", &Provenance::provider),
      optional("local", &Provenance::local),
  };
};

template <>
struct JSONForm<benchmarks::Revision> {
  using Revision = benchmarks::Revision;
  static constexpr std::tuple fields{
      required("id", &Revision::id),
      required("contentHash", &Revision::contentHash),
      required("snapshotPath", &Revision::snapshotPath),
      required("capturedAt", &Revision::capturedAt),
      required("originEvent", &Revision::originEvent),
      optional("source", &Revision::source),
      optional("model", &Revision::model),
      optional("sourceSession", &Revision::sourceSession),
      defaulted("reviewEligible", &Revision::reviewEligible, true),
      optional("artifactCategory", &Revision::artifactCategory),
      optional("byteSize", &Revision::byteSize),
      optional("sourceProfileID", &Revision::sourceProfileID),
      optional("sourceProfileLabel", &Revision::sourceProfileLabel),
      optional("sourceKind", &Revision::sourceKind),
      optional("profileIdentityOrigin", &Revision::profileIdentityOrigin),
      optional("profileIdentityVerified", &Revision::profileIdentityVerified),
      optional("isSubagentResponse", &Revision::isSubagentResponse),
      optional("parentSessionID", &Revision::parentSessionID),
      optional("mainProjectRoot", &Revision::mainProjectRoot),
      optional("isSubagent", &Revision::isSubagent),
      optional("isPreviewHelper", &Revision::isPreviewHelper),
      optional("previewHelperPolicyVersion", &Revision::previewHelperPolicyVersion),
      optional("isInternalArtifact", &Revision::isInternalArtifact),
      optional("internalArtifactPolicyVersion", &Revision::internalArtifactPolicyVersion),
      optional("isIgnoredMachineData", &Revision::isIgnoredMachineData),
      optional("sourceCreatedAt", &Revision::sourceCreatedAt),
      optional("sourceModifiedAt", &Revision::sourceModifiedAt),
      defaulted("sourceMetadataChanges", &Revision::sourceMetadataChanges),
      optional("isPreexistingFile", &Revision::isPreexistingFile),
      optional("isIgnoredPreexistingFile", &Revision::isIgnoredPreexistingFile),
      optional("storageKind", &Revision::storageKind),
      optional("storagePolicyVersion", &Revision::storagePolicyVersion),
      optional("provenance", &Revision::provenance),
  };
};

template <>
struct JSONForm<benchmarks::Record> {
  using Record = benchmarks::Record;
  static constexpr std::tuple fields{
      required("id", &Record::id),
      required("title", &Record::title),
      required("project", &Record::project),
      required("source", &Record::source),
      optional("sourcePath", &Record::sourcePath),
      optional("sourcePathIsCurrent", &Record::sourcePathIsCurrent),
      optional("sourceSession", &Record::sourceSession),
      required("kind", &Record::kind),
      required("createdAt", &Record::createdAt),
      required("updatedAt", &Record::updatedAt),
      required("revisions", &Record::revisions),
      optional("projectRoot", &Record::projectRoot),
      optional("model", &Record::model),
      optional("lastCapturedHash", &Record::lastCapturedHash),
      optional("artifactCategory", &Record::artifactCategory),
      optional("byteSize", &Record::byteSize),
      optional("sourceProfileID", &Record::sourceProfileID),
      optional("sourceProfileLabel", &Record::sourceProfileLabel),
      optional("sourceKind", &Record::sourceKind),
      optional("profileIdentityOrigin", &Record::profileIdentityOrigin),
      optional("profileIdentityVerified", &Record::profileIdentityVerified),
      optional("isSubagentResponse", &Record::isSubagentResponse),
      optional("parentSessionID", &Record::parentSessionID),
      optional("mainProjectRoot", &Record::mainProjectRoot),
      optional("isSubagent", &Record::isSubagent),
  };
};

template <>
struct JSONForm<benchmarks::Library> {
  using Library = benchmarks::Library;
  static constexpr std::tuple fields{
      required("version", &Library::version),
      required("documents", &Library::documents),
  };
};

}  // namespace tessary
