// The file of the report.

#include <array>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureShadowReport.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "support/JSONErrors.h"

namespace tessary {
namespace {

using Report = CaptureShadowReport;
using Category = Report::Category;

std::string errorOf(std::string_view json) {
  const auto read = readJSON<Report>(json);
  return read ? "no error" : text(read.error());
}

Report everything() {
  Report report;
  report.version = 2;
  report.stages["policy"] = {.mode = "swift",
                             .counts = {1, 2, 3, 4, 5},
                             .streak = Report::Streak{"s", 6, 7, "d"},
                             .updatedAt = "u",
                             .replies = Report::Replies{8, 9, 10},
                             .rejected = 11,
                             .deferred = 12,
                             .skippedReasons = Report::Reasons{{"z", 13}, {"a", 14}},
                             .racedReasons = Report::Reasons{}};
  report.stages["merge"] = {.mode = "python"};
  report.stages["folders"] = {.mode = "", .counts = {}, .streak = Report::Streak{.since = "s", .observations = -1}};
  report.samples = {{"policy", "id", Category::fieldMismatch, {"title", "path"}, "t"},
                    {"merge", "", Category::skipped, {}, ""}};
  return report;
}

// Written by hand.
constexpr std::string_view everythingText =
    R"({"version":2,"stages":{)"
    R"("folders":{"mode":"","counts":{"agree":0,"decisionMismatch":0,"fieldMismatch":0,"raced":0,"skipped":0},)"
    R"("streak":{"since":"s","observations":-1}},)"
    R"("merge":{"mode":"python","counts":{"agree":0,"decisionMismatch":0,"fieldMismatch":0,"raced":0,"skipped":0}},)"
    R"("policy":{"mode":"swift","counts":{"agree":1,"decisionMismatch":2,"fieldMismatch":3,"raced":4,"skipped":5},)"
    R"("streak":{"since":"s","observations":6,"days":7,"lastAgreeDay":"d"},"updatedAt":"u",)"
    R"("replies":{"busy":8,"invalid":9,"failed":10},"rejected":11,"deferred":12,)"
    R"("skippedReasons":{"a":14,"z":13},"racedReasons":{}}},)"
    R"("samples":[{"stage":"policy","documentID":"id","category":"fieldMismatch","fields":["title","path"],"at":"t"},)"
    R"({"stage":"merge","documentID":"","category":"skipped","fields":[],"at":""}]})";

TEST(CaptureShadowReportForm, IsWrittenInTheOrderOfItsFields) {
  EXPECT_EQ(writeJSON(everything()), everythingText);
  EXPECT_EQ(writeJSON(Report()), R"({"version":1,"stages":{},"samples":[]})");
}

TEST(CaptureShadowReportForm, WhatIsWrittenReadsAsTheSame) {
  EXPECT_EQ(readJSON<Report>(everythingText), everything());
  EXPECT_EQ(readJSON<Report>(R"({"samples":[],"stages":{},"version":1,"more":{}})"), Report());
}

/// `everythingText` with one piece replaced.
std::string replaced(std::string_view piece, std::string_view by) {
  std::string text(everythingText);
  return text.replace(text.find(piece), piece.size(), by);
}

TEST(CaptureShadowReportForm, EveryRequiredKeyMustBeThere) {
  struct Row {
    std::string_view member;
    std::string_view path;
  };
  constexpr auto rows = std::to_array<Row>({
      {R"("version":2,)", ".version"},
      {R"("mode":"python",)", ".stages.merge.mode"},
      {R"("agree":1,)", ".stages.policy.counts.agree"},
      {R"("decisionMismatch":2,)", ".stages.policy.counts.decisionMismatch"},
      {R"("fieldMismatch":3,)", ".stages.policy.counts.fieldMismatch"},
      {R"("raced":4,)", ".stages.policy.counts.raced"},
      {R"(,"skipped":5)", ".stages.policy.counts.skipped"},
      {R"(,"observations":-1)", ".stages.folders.streak.observations"},
      {R"("since":"s",)", ".stages.folders.streak.since"},
      {R"("busy":8,)", ".stages.policy.replies.busy"},
      {R"("invalid":9,)", ".stages.policy.replies.invalid"},
      {R"(,"failed":10)", ".stages.policy.replies.failed"},
      {R"("stage":"policy",)", ".samples[0].stage"},
      {R"("documentID":"id",)", ".samples[0].documentID"},
      {R"("category":"fieldMismatch",)", ".samples[0].category"},
      {R"("fields":["title","path"],)", ".samples[0].fields"},
      {R"(,"at":"t")", ".samples[0].at"},
  });
  for (const Row& row : rows) {
    const auto read = readJSON<Report>(replaced(row.member, ""));
    ASSERT_FALSE(read) << row.member;
    EXPECT_TRUE(text(read.error()).starts_with("missingKey at " + std::string(row.path) + ", byte "))
        << row.member << ": " << text(read.error());
  }
  EXPECT_EQ(errorOf(R"({"version":1,"samples":[]})"), "missingKey at .stages, byte 0");
  EXPECT_EQ(errorOf(R"({"version":1,"stages":{}})"), "missingKey at .samples, byte 0");
  EXPECT_EQ(errorOf(R"({"version":1,"stages":{"a":{"mode":""}},"samples":[]})"),
            "missingKey at .stages.a.counts, byte 27");
}

TEST(CaptureShadowReportForm, OptionalKeysMayBeMissingOrNull) {
  constexpr auto members = std::to_array<std::string_view>({
      R"("streak":{"since":"s","observations":6,"days":7,"lastAgreeDay":"d"},)",
      R"(,"days":7)",
      R"(,"lastAgreeDay":"d")",
      R"("updatedAt":"u",)",
      R"("replies":{"busy":8,"invalid":9,"failed":10},)",
      R"("rejected":11,)",
      R"("deferred":12,)",
      R"("skippedReasons":{"a":14,"z":13},)",
      R"(,"racedReasons":{})",
  });
  for (const std::string_view member : members) {
    const std::string without = replaced(member, "");
    const auto read = readJSON<Report>(without);
    ASSERT_TRUE(read) << member << ": " << text(read.error());
    EXPECT_EQ(writeJSON(*read), without);
    std::string null(member.substr(0, member.find(':') + 1));
    null += "null";
    if (member.ends_with(',')) null += ",";
    EXPECT_EQ(readJSON<Report>(replaced(member, null)), *read) << member;
  }
}

TEST(CaptureShadowReportForm, AWrongTypeFailsTheReading) {
  struct Row {
    std::string_view piece;
    std::string_view by;
    std::string_view error;
  };
  constexpr auto rows = std::to_array<Row>({
      {R"("version":2)", R"("version":"2")", "wrongType at .version, integer expected"},
      {R"("version":2)", R"("version":2.0)", "wrongType at .version, integer expected"},
      {R"("version":2)", R"("version":null)", "nullValue at .version, integer expected"},
      {R"("mode":"python")", R"("mode":1)", "wrongType at .stages.merge.mode, text expected"},
      {R"("agree":1)", R"("agree":true)", "wrongType at .stages.policy.counts.agree, integer expected"},
      {R"("agree":1)", R"("agree":9223372036854775808)", "outOfRange at .stages.policy.counts.agree, integer expected"},
      {R"("days":7)", R"("days":"7")", "wrongType at .stages.policy.streak.days, integer expected"},
      {R"("updatedAt":"u")", R"("updatedAt":0)", "wrongType at .stages.policy.updatedAt, text expected"},
      {R"("z":13)", R"("z":null)", "nullValue at .stages.policy.skippedReasons.z, integer expected"},
      {R"("racedReasons":{})", R"("racedReasons":[])", "wrongType at .stages.policy.racedReasons, object expected"},
      {R"("fieldMismatch","fields")", R"("other","fields")", "unknownRawValue at .samples[0].category, text expected"},
      {R"("fieldMismatch","fields")", R"("FieldMismatch","fields")",
       "unknownRawValue at .samples[0].category, text expected"},
      {R"("title","path")", R"("title",null)", "nullValue at .samples[0].fields[1], text expected"},
      {R"("at":"t")", R"("at":1.5)", "wrongType at .samples[0].at, text expected"},
  });
  for (const Row& row : rows) {
    const std::string error = errorOf(replaced(row.piece, row.by));
    EXPECT_TRUE(error.starts_with(std::string(row.error) + ", byte ")) << row.by << ": " << error;
  }
}

TEST(CaptureShadowReportForm, EveryCategoryIsReadByItsRawValue) {
  for (const Category category : allCases<Category>()) {
    const std::string name(rawValue(category));
    const auto read = readJSON<Report>(replaced(R"("fieldMismatch","fields")", "\"" + name + "\",\"fields\""));
    ASSERT_TRUE(read) << name;
    EXPECT_EQ(read->samples[0].category, category);
  }
}

TEST(CaptureShadowReportForm, MoreSamplesThanAreKeptAreReadAndMakeRoomLater) {
  Report report;
  for (int index = 0; index < 30; ++index)
    report.samples.push_back({"merge", std::to_string(index), Category::raced, {}, ""});
  const auto read = readJSON<Report>(writeJSON(report).value_or(""));
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, report);
  Report next = *read;
  next.record("merge", "swift", {}, Date(), TimeZone::utc());
  ASSERT_EQ(next.samples.size(), Report::sampleLimit);
  EXPECT_EQ(next.samples.front().documentID, "10");
}

}  // namespace
}  // namespace tessary
