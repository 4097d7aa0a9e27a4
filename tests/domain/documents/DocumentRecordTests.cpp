#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/DocumentRecord.h"
#include "support/SelectedLanguage.h"

namespace tessary {

// Found by GoogleTest, so that a failing row shows the category.
static void PrintTo(ArtifactCategory category, std::ostream* stream) {
  *stream << rawValue(category);
}

namespace {

using enum ArtifactCategory;
using Text = std::optional<std::string>;

DocumentRevision revision() {
  return {.id = "r",
          .contentHash = "h",
          .snapshotPath = "/library/snapshots/copy",
          .capturedAt = "2026-01-01T00:00:00Z",
          .originEvent = "hook"};
}

DocumentRecord record(std::string_view kind) {
  return {.id = "d",
          .title = "t",
          .project = "p",
          .source = "claude",
          .kind = std::string(kind),
          .createdAt = "2026-01-01T00:00:00Z",
          .updatedAt = "2026-01-01T00:00:00Z",
          .revisions = {}};
}

DocumentRecord withRevision(DocumentRecord given, DocumentRevision latest) {
  given.revisions.push_back(std::move(latest));
  return given;
}

struct CategoryRow {
  std::string_view kind;
  Text path;
  Text stored;
  ArtifactCategory category;
};

DocumentRecord recordOf(const CategoryRow& row) {
  DocumentRecord made = record(row.kind);
  made.sourcePath = row.path;
  made.artifactCategory = row.stored;
  return made;
}

std::string described(const CategoryRow& row) {
  return std::string(row.kind) + ", " + row.path.value_or("no path") + ", " + row.stored.value_or("no category");
}

const std::vector<CategoryRow> categoryRows = {
    // By the kind alone.
    {"image", {}, {}, images},
    {"video", {}, {}, videos},
    {"pdf", {}, {}, pdfs},
    {"text", {}, {}, code},
    {"file", {}, {}, other},
    {"markdown", {}, {}, documents},
    {"html", {}, {}, documents},
    {"candidate", {}, {}, documents},
    {"", {}, {}, documents},
    {"Image", {}, {}, documents},
    {"of a later version", {}, {}, documents},
    // A stored category comes before the kind.
    {"markdown", {}, "code", code},
    {"markdown", {}, "plans", plans},
    {"image", {}, "pdfs", pdfs},
    {"file", {}, "images", images},
    {"image", {}, "other", other},
    {"text", {}, "documents", documents},
    // One that names none counts as none.
    {"image", {}, "Images", images},
    {"image", {}, "", images},
    {"text", {}, "pictures", code},
    {"pdf", {}, " pdfs", pdfs},
    // Videos by their extension, where nothing better is stored.
    {"file", "/a/b.MOV", {}, videos},
    {"file", "/a/b.MOV", "images", images},
    {"file", "/a/b.mov", "other", videos},
    {"file", "/a/b.mov", "Other", other},
    {"file", "/a/b.mov", "no category", other},
    {"file", "/a/b.mov", "", other},
    {"image", "/a/b.mov", {}, images},
    {"markdown", "/a/b.mov", {}, documents},
    {"file", "/a/b.avi", {}, videos},
    {"file", "/a/b.m4v", {}, videos},
    {"file", "/a/b.mkv", {}, videos},
    {"file", "/a/b.mp4", {}, videos},
    {"file", "/a/b.mpeg", {}, videos},
    {"file", "/a/b.mpg", {}, videos},
    {"file", "/a/b.webm", {}, videos},
    {"file", "/a/b.wmv", {}, other},
    {"file", "/a/b.mov ", {}, other},
    // The Kelvin sign is a capital k.
    {"file", "/a/b.M\u212AV", {}, videos},
    // Text by its extension, where nothing better is stored.
    {"file", "/a/b.md", {}, documents},
    {"file", "/a/b.MarkDown", {}, documents},
    {"file", "/a/b.html", "other", documents},
    {"file", "/a/b.md", "other", documents},
    {"file", "/a/b.md", "images", images},
    {"file", "/a/b.md", "no category", other},
    {"file", "/a/b.md", "", other},
    {"file", "/a/b.swift", {}, code},
    {"file", "/a/b.TXT", "other", code},
    {"image", "/a/b.md", "other", other},
    {"video", "/a/b.md", {}, videos},
    // Other extensions say nothing.
    {"file", "/a/b.png", {}, other},
    {"file", "/a/b.pdf", {}, other},
    {"file", "/a/b.xlsx", {}, other},
    // What an extension is.
    {"file", "/a/.md", {}, documents},
    {"file", "/a/.mov", {}, videos},
    {"file", "/a/b.md/", {}, documents},
    {"file", "/a.md/b", {}, other},
    {"file", "/a/b.mov.", {}, other},
    {"file", "/a/b.md.mov", {}, videos},
    {"file", "/a/mov", {}, other},
    {"file", "", {}, other},
    {"file", "/", {}, other},
    {"file", "md", {}, other},
    {"file", ".md", {}, documents},
};

TEST(DocumentRecord, ItsCategoryIsTheStoredOneUnlessItsKindAndExtensionKnowBetter) {
  for (const CategoryRow& row : categoryRows)
    EXPECT_EQ(recordOf(row).category(), row.category) << described(row);
}

TEST(DocumentRecord, TheLatestRevisionTellsTheCategoryOfARecordThatHasNone) {
  for (const CategoryRow& row : categoryRows) {
    DocumentRecord made = recordOf(row);
    DocumentRevision earlier = revision();
    earlier.artifactCategory = "plans";
    DocumentRevision latest = revision();
    latest.artifactCategory = made.artifactCategory;
    made.artifactCategory.reset();
    made.revisions = {earlier, latest};
    EXPECT_EQ(made.category(), row.category) << described(row);
  }
}

TEST(DocumentRecord, ARecordsOwnCategoryHidesThatOfItsRevisions) {
  DocumentRevision latest = revision();
  latest.artifactCategory = "pdfs";
  DocumentRecord made = withRevision(record("markdown"), latest);
  EXPECT_EQ(made.category(), pdfs);
  made.artifactCategory = "images";
  EXPECT_EQ(made.category(), images);
  // Also one that names none: then the kind decides.
  for (const char* unnamed : {"no category", ""}) {
    made.artifactCategory = unnamed;
    EXPECT_EQ(made.category(), documents) << unnamed;
  }
}

TEST(DocumentRecord, WithoutAPathTheExtensionIsThatOfTheLatestCopy) {
  for (const CategoryRow& row : categoryRows) {
    if (!row.path) continue;
    DocumentRecord made = recordOf(row);
    DocumentRevision earlier = revision();
    earlier.snapshotPath = "/library/snapshots/copy.md";
    DocumentRevision latest = revision();
    latest.snapshotPath = *made.sourcePath;
    made.sourcePath.reset();
    made.revisions = {earlier, latest};
    EXPECT_EQ(made.category(), row.category) << described(row);
  }
  // A path hides the copy's, also an empty one.
  DocumentRevision latest = revision();
  latest.snapshotPath = "/library/snapshots/copy.md";
  DocumentRecord made = withRevision(record("file"), latest);
  EXPECT_EQ(made.category(), documents);
  made.sourcePath = "";
  EXPECT_EQ(made.category(), other);
  made.sourcePath = "/a/b.mov";
  EXPECT_EQ(made.category(), videos);
}

TEST(DocumentRecord, AMarkdownFileFromAPlanEventIsAPlan) {
  struct Row {
    std::string_view path;
    std::string_view event;
    Text stored;
    ArtifactCategory category;
  };
  const std::vector<Row> rows = {
      {"/a/b.md", "plan-file:", {}, plans},
      {"/a/b.md", "plan-file:write", {}, plans},
      {"/a/b.htm", "plan-file:anything", "other", plans},
      {"/a/b.md", "plan-file", {}, documents},
      {"/a/b.md", "Plan-file:write", {}, documents},
      {"/a/b.md", " plan-file:write", {}, documents},
      {"/a/b.md", "output:plan-file:", {}, documents},
      {"/a/b.swift", "plan-file:write", {}, code},
      {"/a/b.mov", "plan-file:write", {}, videos},
      {"/a/b", "plan-file:write", {}, other},
      {"/a/b.md", "plan-file:write", "documents", documents},
      {"/a/b.md", "plan-file:write", "images", images},
  };
  for (const Row& row : rows) {
    DocumentRevision latest = revision();
    latest.originEvent = row.event;
    DocumentRecord made = withRevision(record("file"), latest);
    made.sourcePath = std::string(row.path);
    made.artifactCategory = row.stored;
    EXPECT_EQ(made.category(), row.category) << row.path << " " << row.event;
    if (row.category != plans) continue;
    // Only the latest event counts, and only of files.
    made.kind = "markdown";
    EXPECT_NE(made.category(), plans) << row.path << " " << row.event;
    made.kind = "file";
    made.revisions.push_back(revision());
    EXPECT_EQ(made.category(), documents) << row.path << " " << row.event;
  }
}

TEST(DocumentRecord, TextIsReadByKindAndOfOldFilesByExtension) {
  for (const char* kind : {"markdown", "html", "candidate", "text"})
    EXPECT_TRUE(record(kind).supportsTextContent()) << kind;
  for (const char* kind : {"file", "image", "video", "pdf", "", "Markdown", "HTML", "text ", "of a later version"})
    EXPECT_FALSE(record(kind).supportsTextContent()) << kind;
  struct Row {
    std::string_view kind;
    Text path;
    Text stored;
    bool isText;
  };
  const std::vector<Row> rows = {
      {"file", "/a/b.md", {}, true},        {"file", "/a/b.py", {}, true},
      {"file", "/a/b.Html", "other", true}, {"file", "/a/b.md", "documents", false},
      {"file", "/a/b.md", "plans", false},  {"file", "/a/b.md", "no category", false},
      {"file", "/a/b.docx", {}, false},     {"file", "/a/b.mov", {}, false},
      {"image", "/a/b.md", {}, false},      {"markdown", "/a/b.png", "images", true},
      {"candidate", {}, "other", true},     {"file", "/a/b.py", "code", false},
      {"image", "/a/b.py", "code", false},
  };
  for (const Row& row : rows) {
    const DocumentRecord made = recordOf({row.kind, row.path, row.stored, other});
    EXPECT_EQ(made.supportsTextContent(), row.isText) << row.kind << " " << row.path.value_or("no path");
  }
}

TEST(DocumentRecord, OnlyTheLastRevisionIsTheLatest) {
  DocumentRecord made = record("markdown");
  EXPECT_EQ(made.latestRevision(), nullptr);
  made.revisions = {revision(), revision()};
  made.revisions[0].capturedAt = "2027-01-01T00:00:00Z";
  EXPECT_EQ(made.latestRevision(), &made.revisions[1]);
}

TEST(DocumentRecord, IsUpdatedFromTheSecondRevisionOn) {
  DocumentRecord made = record("markdown");
  EXPECT_FALSE(made.isUpdated());
  made.revisions = {revision()};
  EXPECT_FALSE(made.isUpdated());
  made.revisions = {revision(), revision()};
  EXPECT_TRUE(made.isUpdated());
}

TEST(DocumentRecord, IsNewUnlessItWasUpdatedOrWasThereBefore) {
  DocumentRecord made = record("markdown");
  EXPECT_TRUE(made.isNewDocument());
  made.revisions = {revision()};
  EXPECT_TRUE(made.isNewDocument());
  made.revisions[0].isPreexistingFile = false;
  EXPECT_TRUE(made.isNewDocument());
  made.revisions[0].isIgnoredPreexistingFile = true;
  EXPECT_TRUE(made.isNewDocument());
  made.revisions[0].isPreexistingFile = true;
  EXPECT_FALSE(made.isNewDocument());
  made.revisions = {revision(), revision()};
  EXPECT_FALSE(made.isNewDocument());
}

AgentSourceProfile profile() {
  return {.source = "codex",
          .sourceProfileID = "id",
          .sourceProfileLabel = "label",
          .sourceKind = "cli",
          .profileIdentityOrigin = "config",
          .profileIdentityVerified = true};
}

void giveProfile(auto& holder) {
  holder.source = profile().source;
  holder.sourceProfileID = profile().sourceProfileID;
  holder.sourceProfileLabel = profile().sourceProfileLabel;
  holder.sourceKind = profile().sourceKind;
  holder.profileIdentityOrigin = profile().profileIdentityOrigin;
  holder.profileIdentityVerified = profile().profileIdentityVerified;
}

TEST(DocumentRecord, ItsProfileIsItsOwnOnlyWithoutRevisions) {
  DocumentRecord made = record("markdown");
  giveProfile(made);
  EXPECT_EQ(made.sourceProfile(), profile());
  // Every part that the latest revision leaves out is absent, and its source is never the record's.
  made.revisions = {revision()};
  EXPECT_EQ(made.sourceProfile(), AgentSourceProfile{.source = "unknown"});
  made.revisions[0].source = "";
  EXPECT_EQ(made.sourceProfile(), AgentSourceProfile{.source = ""});
}

TEST(DocumentRecord, ItsProfileIsThatOfTheLatestRevision) {
  DocumentRecord made = record("markdown");
  made.revisions = {revision(), revision()};
  giveProfile(made.revisions[1]);
  EXPECT_EQ(made.sourceProfile(), profile());
  std::swap(made.revisions[0], made.revisions[1]);
  EXPECT_EQ(made.sourceProfile(), AgentSourceProfile{.source = "unknown"});
  // Each part comes over by itself, and false is not absent.
  made.revisions[1].profileIdentityVerified = false;
  made.revisions[1].sourceKind = "manual";
  EXPECT_EQ(made.sourceProfile(),
            (AgentSourceProfile{.source = "unknown", .sourceKind = "manual", .profileIdentityVerified = false}));
}

TEST(DocumentRecord, ItsProfileIsShownAndGroupedAsTheProfileIs) {
  const testing::SelectedLanguage korean("ko");
  DocumentRecord made = record("markdown");
  EXPECT_EQ(made.sourceProfileDisplayName(), "Claude · 출처 미확인 · 계정 미확인");
  EXPECT_EQ(made.sourceProfileGroupingKey(), "6:claude:legacy");
  made.revisions = {revision()};
  EXPECT_EQ(made.sourceProfileDisplayName(), "에이전트 미확인 · 출처 미확인 · 계정 미확인");
  EXPECT_EQ(made.sourceProfileGroupingKey(), "7:unknown:legacy");
  giveProfile(made.revisions[0]);
  EXPECT_EQ(made.sourceProfileDisplayName(), "Codex · CLI · label");
  EXPECT_EQ(made.sourceProfileGroupingKey(), "5:codex:profile:2:id");
}

TEST(DocumentRecord, ItsSymbolIsThatOfItsCategoryOrOfACandidate) {
  struct Row {
    std::string_view stored;
    std::string_view symbol;
  };
  for (const Row& row : std::initializer_list<Row>{{"documents", "doc.text"},
                                                   {"plans", "list.bullet.clipboard"},
                                                   {"images", "photo"},
                                                   {"videos", "video"},
                                                   {"pdfs", "doc.richtext"},
                                                   {"code", "chevron.left.forwardslash.chevron.right"},
                                                   {"other", "doc"}}) {
    EXPECT_EQ(recordOf({"image", {}, std::string(row.stored), other}).symbol(), row.symbol) << row.stored;
    EXPECT_EQ(recordOf({"candidate", {}, std::string(row.stored), other}).symbol(), "text.bubble") << row.stored;
  }
  EXPECT_EQ(record("Candidate").symbol(), "doc.text");
}

TEST(DocumentRecord, ItsCategoryIsShownByItsFormatOrItsTitle) {
  struct Row {
    std::string_view kind;
    Text path;
    Text stored;
    std::string_view title;
  };
  const testing::SelectedLanguage korean("ko");
  for (const Row& row : std::initializer_list<Row>{{"file", "/a/b.XLSX", {}, "Excel"},
                                                   {"file", "/a/b.key", "other", "Keynote"},
                                                   {"image", "/a/b.csv", "images", "CSV"},
                                                   {"file", "/a/b.png", {}, "기타 파일"},
                                                   {"image", "/a/b.png", {}, "이미지"},
                                                   {"markdown", {}, {}, "문서"},
                                                   {"markdown", {}, "plans", "플랜"},
                                                   {"file", "/a/b.mov", {}, "동영상"},
                                                   {"pdf", {}, {}, "PDF"},
                                                   {"text", {}, {}, "코드·텍스트"}}) {
    EXPECT_EQ(recordOf({row.kind, row.path, row.stored, other}).categoryTitle(), row.title) << row.title;
  }
  DocumentRevision latest = revision();
  latest.snapshotPath = "/library/snapshots/copy.docx";
  EXPECT_EQ(withRevision(record("file"), latest).categoryTitle(), "Word");
}

}  // namespace
}  // namespace tessary
