#include <array>
#include <concepts>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/DocumentRecord.h"
#include "support/RecordSweep.h"

namespace tessary {
namespace {

using testing::goldenText;
using testing::sweepRecord;
using enum testing::SweepRule;
using enum JSONExpectation;
using Kind = JSONDecodingError::Kind;

DocumentRevisionProvenance provenance() {
  return {.certainty = "exact",
          .agent = "claude",
          .profile = "work",
          .session = "session-9",
          .agentId = "agent-7",
          .toolUseId = "toolu_01",
          .model = "opus",
          .cwd = "/Users/someone/Projects/tea",
          .gitBranch = "feature/cups",
          .op = "write",
          .timestamp = "2026-03-04T05:06:07.089Z",
          .via = "hook",
          .agentVersion = "2.1.0",
          .entrypoint = "sdk",
          .contested = true,
          .evidence = "transcript",
          .host = "editor",
          .agentName = "Planner",
          .userEdit = false,
          .provider = "cloud",
          .local = true};
}

DocumentRevision revision() {
  return {.id = "revision-1",
          .contentHash = "9f86d081884c7d65",
          .snapshotPath = "/library/snapshots/9f/86d0.md",
          .capturedAt = "2026-03-04T05:06:08Z",
          .originEvent = "plan-file:write",
          .source = "claude",
          .model = "opus",
          .sourceSession = "session-9",
          .reviewEligible = false,
          .artifactCategory = "plans",
          .byteSize = 4096,
          .sourceProfileID = "work",
          .sourceProfileLabel = "Work",
          .sourceKind = "cli",
          .profileIdentityOrigin = "config",
          .profileIdentityVerified = true,
          .isSubagentResponse = false,
          .parentSessionID = "session-8",
          .mainProjectRoot = "/Users/someone/Projects/main",
          .isSubagent = true,
          .isPreviewHelper = false,
          .previewHelperPolicyVersion = 3,
          .sourceCreatedAt = "2026-03-01T00:00:00Z",
          .sourceModifiedAt = "2026-03-02T00:00:00Z",
          .sourceMetadataChanges = {"title", "location"},
          .isInternalArtifact = true,
          .internalArtifactPolicyVersion = 4,
          .isIgnoredMachineData = false,
          .isPreexistingFile = true,
          .isIgnoredPreexistingFile = false,
          .storageKind = DocumentStorageKind::sourceReference,
          .storagePolicyVersion = 5,
          .provenance = DocumentRevisionProvenance{.agent = "claude", .local = false}};
}

DocumentRecord record() {
  const DocumentRevision first{.id = "r1",
                               .contentHash = "h1",
                               .snapshotPath = "/s/1",
                               .capturedAt = "2026-03-04T05:06:07Z",
                               .originEvent = "hook"};
  const DocumentRevision second{.id = "r2",
                                .contentHash = "h2",
                                .snapshotPath = "/s/2",
                                .capturedAt = "2026-03-05T05:06:07Z",
                                .originEvent = "scan",
                                .reviewEligible = false,
                                .sourceMetadataChanges = {"title"}};
  return {.id = "document-1",
          .title = "Tea shop \"plan\"",
          .project = "tea",
          .source = "claude",
          .sourcePath = "/Users/someone/Projects/tea/계획.md",
          .sourceSession = "session-9",
          .kind = "markdown",
          .createdAt = "2026-03-04T05:06:07Z",
          .updatedAt = "2026-03-05T05:06:07Z",
          .revisions = {first, second},
          .projectRoot = "/Users/someone/Projects/tea",
          .model = "opus",
          .lastCapturedHash = "h2",
          .artifactCategory = "documents",
          .byteSize = 9'007'199'254'740'993,
          .sourceProfileID = "work",
          .sourceProfileLabel = "Work",
          .sourceKind = "cowork",
          .profileIdentityOrigin = "config",
          .profileIdentityVerified = false,
          .isSubagentResponse = true,
          .parentSessionID = "session-8",
          .mainProjectRoot = "/Users/someone/Projects/main",
          .isSubagent = false,
          .sourcePathIsCurrent = true};
}

CaptureLibrary library() {
  const DocumentRevision only{.id = "r",
                              .contentHash = "h",
                              .snapshotPath = "/s",
                              .capturedAt = "2026-01-04T00:00:00Z",
                              .originEvent = "e",
                              .provenance = DocumentRevisionProvenance{}};
  return {.version = 7,
          .documents = {{.id = "d1",
                         .title = "t",
                         .project = "p",
                         .source = "s",
                         .kind = "file",
                         .createdAt = "2026-01-01T00:00:00Z",
                         .updatedAt = "2026-01-02T00:00:00Z",
                         .revisions = {}},
                        {.id = "d2",
                         .title = "u",
                         .project = "q",
                         .source = "web",
                         .kind = "html",
                         .createdAt = "2026-01-03T00:00:00Z",
                         .updatedAt = "2026-01-04T00:00:00Z",
                         .revisions = {only}}}};
}

TEST(DocumentRevisionProvenanceRecord, HoldsToItsTable) {
  sweepRecord(goldenText("documents/DocumentRevisionProvenance.json"), provenance(),
              {{"certainty", optional, text},    {"agent", optional, text},      {"profile", optional, text},
               {"session", optional, text},      {"agentId", optional, text},    {"toolUseId", optional, text},
               {"model", optional, text},        {"cwd", optional, text},        {"gitBranch", optional, text},
               {"op", optional, text},           {"timestamp", optional, text},  {"via", optional, text},
               {"agentVersion", optional, text}, {"entrypoint", optional, text}, {"contested", optional, boolean},
               {"evidence", optional, text},     {"host", optional, text},       {"agentName", optional, text},
               {"userEdit", optional, boolean},  {"provider", optional, text},   {"local", optional, boolean}});
}

TEST(DocumentRevisionRecord, HoldsToItsTable) {
  sweepRecord(goldenText("documents/DocumentRevision.json"), revision(),
              {{"id", required, text},
               {"contentHash", required, text},
               {"snapshotPath", required, text},
               {"capturedAt", required, text},
               {"originEvent", required, text},
               {"source", optional, text},
               {"model", optional, text},
               {"sourceSession", optional, text},
               {"reviewEligible", defaulted, boolean, {.otherwise = "true"}},
               {"artifactCategory", optional, text},
               {"byteSize", optional, integer},
               {"sourceProfileID", optional, text},
               {"sourceProfileLabel", optional, text},
               {"sourceKind", optional, text},
               {"profileIdentityOrigin", optional, text},
               {"profileIdentityVerified", optional, boolean},
               {"isSubagentResponse", optional, boolean},
               {"parentSessionID", optional, text},
               {"mainProjectRoot", optional, text},
               {"isSubagent", optional, boolean},
               {"isPreviewHelper", optional, boolean},
               {"previewHelperPolicyVersion", optional, integer},
               {"isInternalArtifact", optional, boolean},
               {"internalArtifactPolicyVersion", optional, integer},
               {"isIgnoredMachineData", optional, boolean},
               {"sourceCreatedAt", optional, text},
               {"sourceModifiedAt", optional, text},
               {"sourceMetadataChanges", defaulted, list, {.otherwise = "[]", .element = text}},
               {"isPreexistingFile", optional, boolean},
               {"isIgnoredPreexistingFile", optional, boolean},
               {"storageKind", optional, text, {.words = testing::SweepRow::Words::closed}},
               {"storagePolicyVersion", optional, integer},
               {"provenance", optional, object}});
}

TEST(DocumentRecordRecord, HoldsToItsTable) {
  sweepRecord(goldenText("documents/DocumentRecord.json"), record(),
              {{"id", required, text},
               {"title", required, text},
               {"project", required, text},
               {"source", required, text},
               {"sourcePath", optional, text},
               {"sourcePathIsCurrent", optional, boolean},
               {"sourceSession", optional, text},
               {"kind", required, text},
               {"createdAt", required, text},
               {"updatedAt", required, text},
               {"revisions", required, list, {.element = object}},
               {"projectRoot", optional, text},
               {"model", optional, text},
               {"lastCapturedHash", optional, text},
               {"artifactCategory", optional, text},
               {"byteSize", optional, integer},
               {"sourceProfileID", optional, text},
               {"sourceProfileLabel", optional, text},
               {"sourceKind", optional, text},
               {"profileIdentityOrigin", optional, text},
               {"profileIdentityVerified", optional, boolean},
               {"isSubagentResponse", optional, boolean},
               {"parentSessionID", optional, text},
               {"mainProjectRoot", optional, text},
               {"isSubagent", optional, boolean}});
}

TEST(CaptureLibraryRecord, HoldsToItsTable) {
  // Nothing in these files is a date to the coder, so its choice changes nothing.
  for (const JSONDateForm form : testing::everyDateForm) {
    sweepRecord(goldenText("documents/CaptureLibrary.json"), library(),
                {{"version", required, integer}, {"documents", required, list, {.element = object}}},
                {.coder = {.dates = form}});
  }
}

TEST(DocumentStorageKindRecord, EachCaseHasItsRawValue) {
  EXPECT_EQ(
      allCases<DocumentStorageKind>(),
      (std::array{DocumentStorageKind::snapshot, DocumentStorageKind::sourceReference, DocumentStorageKind::released}));
  EXPECT_EQ(rawValue(DocumentStorageKind::snapshot), "snapshot");
  EXPECT_EQ(rawValue(DocumentStorageKind::sourceReference), "sourceReference");
  EXPECT_EQ(rawValue(DocumentStorageKind::released), "released");
}

TEST(CaptureLibraryRecord, OneBadRecordFailsTheWholeFileAndIsNamed) {
  struct Row {
    std::string_view piece;
    /// The mark "^" shows the position of the error and is not part of the text.
    std::string_view by;
    Kind kind;
    JSONPath path;
    std::optional<JSONExpectation> expected;
  };
  const std::size_t zero = 0;
  const std::size_t one = 1;
  const std::vector<Row> rows = {
      {R"({"id":"d2",)", "^{", Kind::missingKey, {"documents", one, "id"}, std::nullopt},
      {R"("title":"t")", R"("title":^null)", Kind::nullValue, {"documents", zero, "title"}, text},
      {R"("revisions":[])", R"("revisions":^{})", Kind::wrongType, {"documents", zero, "revisions"}, list},
      {R"("revisions":[])",
       R"("revisions":[],"sourcePathIsCurrent":^"yes")",
       Kind::wrongType,
       {"documents", zero, "sourcePathIsCurrent"},
       boolean},
      {R"({"id":"r",)", "^{", Kind::missingKey, {"documents", one, "revisions", zero, "id"}, std::nullopt},
      {R"("reviewEligible":true)",
       R"("reviewEligible":^1)",
       Kind::wrongType,
       {"documents", one, "revisions", zero, "reviewEligible"},
       boolean},
      {R"("sourceMetadataChanges":[])",
       R"("sourceMetadataChanges":["a",^null])",
       Kind::nullValue,
       {"documents", one, "revisions", zero, "sourceMetadataChanges", one},
       text},
      {R"("provenance":{})",
       R"("provenance":{"local":^"no"})",
       Kind::wrongType,
       {"documents", one, "revisions", zero, "provenance", "local"},
       boolean},
      {R"("provenance":{})",
       R"("storageKind":^"Snapshot")",
       Kind::unknownRawValue,
       {"documents", one, "revisions", zero, "storageKind"},
       text},
      {R"("provenance":{})",
       R"("byteSize":^1.0)",
       Kind::wrongType,
       {"documents", one, "revisions", zero, "byteSize"},
       integer},
      {R"("provenance":{})",
       R"("byteSize":^9223372036854775808)",
       Kind::outOfRange,
       {"documents", one, "revisions", zero, "byteSize"},
       integer},
  };
  for (const Row& row : rows) {
    std::string damaged = goldenText("documents/CaptureLibrary.json");
    damaged.replace(damaged.find(row.piece), row.piece.size(), row.by);
    const std::size_t position = damaged.find('^');
    damaged.erase(position, 1);
    const auto read = readJSON<CaptureLibrary>(damaged);
    ASSERT_FALSE(read) << damaged;
    EXPECT_EQ(read.error(), (JSONDecodingError{row.kind, row.path, row.expected, "", position, std::nullopt}))
        << damaged;
  }
}

TEST(CaptureLibraryRecord, KeepsTheOrderOfDocumentsAndOfRevisions) {
  // Neither identities nor times sort them, and repeated identities stay.
  CaptureLibrary given{.version = -1, .documents = {record(), library().documents[1], record()}};
  given.documents[0].revisions.push_back(given.documents[0].revisions[0]);
  EXPECT_EQ(readJSON<CaptureLibrary>(writeJSON(given).value()), given);
}

TEST(DocumentRevisionRecord, AnOptionalBooleanKeepsThreeStates) {
  const std::string start =
      R"({"id":"r","contentHash":"h","snapshotPath":"/s","capturedAt":"c","originEvent":"e","reviewEligible":true,)";
  for (const auto& [members, value] : std::vector<std::pair<std::string, std::optional<bool>>>{
           {R"("sourceMetadataChanges":[],"isPreexistingFile":true})", true},
           {R"("sourceMetadataChanges":[],"isPreexistingFile":false})", false},
           {R"("sourceMetadataChanges":[]})", std::nullopt}}) {
    const auto read = readJSON<DocumentRevision>(start + members);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->isPreexistingFile, value);
    EXPECT_EQ(writeJSON(*read), start + members);
  }
}

TEST(DocumentRevisionRecord, AsksForReviewUnlessItSaysOtherwise) {
  const auto read = readJSON<DocumentRevision>(
      R"({"id":"r","contentHash":"h","snapshotPath":"/s","capturedAt":"c","originEvent":"e"})");
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->reviewEligible);
  EXPECT_TRUE(read->sourceMetadataChanges.empty());
  EXPECT_EQ(writeJSON(*read), R"({"id":"r","contentHash":"h","snapshotPath":"/s","capturedAt":"c","originEvent":"e",)"
                              R"("reviewEligible":true,"sourceMetadataChanges":[]})");
}

TEST(DocumentRecordRecord, ACategoryThatNobodyKnowsSurvives) {
  DocumentRecord strange = record();
  strange.artifactCategory = "Dokumente";
  strange.revisions[1].artifactCategory = "";
  EXPECT_EQ(readJSON<DocumentRecord>(writeJSON(strange).value()), strange);
}

TEST(DocumentRecordRecord, SessionTitlesNeverReachTheFileAndDoCountInTheValue) {
  const std::hash<DocumentRecord> hash;
  DocumentRecord titled = record();
  titled.sessionTitles["session-9"] = "Tea";
  EXPECT_FALSE(titled == record());
  EXPECT_NE(hash(titled), hash(record()));
  EXPECT_EQ(writeJSON(titled), writeJSON(record()));
  EXPECT_EQ(writeJSON(titled), goldenText("documents/DocumentRecord.json"));

  std::string text = goldenText("documents/DocumentRecord.json");
  text.insert(1, R"("sessionTitles":{"session-9":"Tea"},)");
  const auto read = readJSON<DocumentRecord>(text);
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->sessionTitles.empty());
}

/// Every value that differs from `golden` in one key, which is missing or has another value.
template <class T>
std::vector<T> valuesThatDifferInOneKey(const T& value) {
  std::vector<T> others;
  const auto differ = [&](const auto& field) {
    T other = value;
    auto& member = other.*field.member;
    using Member = std::remove_cvref_t<decltype(member)>;
    if constexpr (std::same_as<Member, bool>) {
      member = !member;
    } else {
      member = Member();
    }
    others.push_back(other);
    if constexpr (json::isOptional<Member>) {
      member.emplace();
      if (!(other == value)) others.push_back(other);
    }
  };
  std::apply([&](const auto&... field) { (differ(field), ...); }, JSONForm<T>::fields);
  return others;
}

template <class T>
void expectEveryFieldToCount(const T& value) {
  const std::hash<T> hash;
  EXPECT_EQ(hash(value), hash(T(value)));
  std::unordered_set<T> distinct{value};
  std::unordered_set<std::size_t> hashes{hash(value)};
  std::size_t count = 1;
  for (const T& other : valuesThatDifferInOneKey(value)) {
    EXPECT_FALSE(other == value);
    distinct.insert(other);
    hashes.insert(hash(other));
    ++count;
  }
  EXPECT_EQ(distinct.size(), count);
  EXPECT_EQ(hashes.size(), count);
}

TEST(DocumentRecordRecord, EqualityAndHashCountEveryField) {
  expectEveryFieldToCount(record());
  expectEveryFieldToCount(revision());
  expectEveryFieldToCount(provenance());
}

}  // namespace
}  // namespace tessary
