#include <gtest/gtest.h>

#include "TessaryDomain/agents/AgentActivitySummary.h"
#include "support/RecordSweep.h"

namespace tessary {
namespace {

using testing::goldenText;
using testing::sweepRecord;
using enum testing::SweepRule;
using enum JSONExpectation;

AgentSourceProfile profile() {
  return {.source = "claude",
          .sourceProfileID = "work",
          .sourceProfileLabel = "회사 계정",
          .sourceKind = "cli",
          .profileIdentityOrigin = "config",
          .profileIdentityVerified = true};
}

AgentTerminalLocation location() {
  return {.appBundleIdentifier = "com.example.terminal",
          .tty = "/dev/ttys004",
          .processStart = "Mon Feb  2 10:00:00 2026",
          .processStartIdentity = "1770026400.25",
          .terminalSessionID = "w0t1p0:ABCD",
          .processID = 4711};
}

AgentSessionObservation observation() {
  AgentTerminalLocation terminal;
  terminal.appBundleIdentifier = "com.example.terminal";
  terminal.processID = 12;
  return {.id = "session-1",
          .source = "codex",
          .projectRoot = "/Users/someone/Projects/tea shop",
          .cwd = "/Users/someone/Projects/tea shop/server",
          .state = "running",
          .isSubagent = true,
          .model = "gpt-5",
          .parentID = "session-0",
          .observedAt = "2026-02-03T04:05:06Z",
          .liveness = "alive",
          .terminalLocation = terminal,
          .sourceProfileID = "home",
          .sourceProfileLabel = "Home",
          .sourceKind = "desktop",
          .profileIdentityOrigin = "login",
          .profileIdentityVerified = false,
          .evidence = "process",
          .endEvidence = "exit",
          .livenessObservedAt = "2026-02-03T04:05:07Z",
          .probeComplete = true,
          .failureKind = "timeout",
          .processID = -1,
          .processStart = "2026-02-03T04:00:00Z"};
}

AgentActivitySummary summary() {
  AgentSessionObservation session;
  session.id = "s";
  session.source = "hermes";
  session.projectRoot = "/p";
  session.cwd = "/c";
  session.state = "idle";
  session.observedAt = "2026-02-03T04:05:06Z";
  AgentSourceProfile hermes;
  hermes.source = "hermes";
  return {.runningSessionCount = 1,
          .openSessionCount = 2,
          .idleSessionCount = 3,
          .unknownSessionCount = 4,
          .endedSessionCount = 5,
          .childSessionCount = 6,
          .unverifiedSessionCount = 7,
          .sessions = {session},
          .observedSources = {"hermes", "amp"},
          .updatedAt = "2026-02-03T04:05:08Z",
          .lastObservedAtBySource = {{{"amp", "2026-02-01T00:00:00Z"}, {"hermes", "2026-02-03T04:05:06Z"}}},
          .available = false,
          .detectedProcessCount = 8,
          .profiles = {hermes},
          .countsComplete = true};
}

TEST(AgentSourceProfileRecord, HoldsToItsTable) {
  sweepRecord(goldenText("agents/AgentSourceProfile.json"), profile(),
              {{"source", required, text},
               {"sourceProfileID", optional, text},
               {"sourceProfileLabel", optional, text},
               {"sourceKind", optional, text},
               {"profileIdentityOrigin", optional, text},
               {"profileIdentityVerified", optional, boolean}});
}

TEST(AgentTerminalLocationRecord, HoldsToItsTable) {
  sweepRecord(goldenText("agents/AgentTerminalLocation.json"), location(),
              {{"appBundleIdentifier", required, text},
               {"tty", optional, text},
               {"processStart", optional, text},
               {"processStartIdentity", optional, text},
               {"terminalSessionID", optional, text},
               {"processID", optional, integer, {.bits = 32}}});
}

TEST(AgentSessionObservationRecord, HoldsToItsTable) {
  sweepRecord(goldenText("agents/AgentSessionObservation.json"), observation(),
              {{"id", required, text},
               {"source", required, text},
               {"projectRoot", required, text},
               {"cwd", required, text},
               {"state", required, text},
               {"isSubagent", required, boolean},
               {"model", optional, text},
               {"parentID", optional, text},
               {"observedAt", required, text},
               {"liveness", optional, text},
               {"terminalLocation", optional, object},
               {"sourceProfileID", optional, text},
               {"sourceProfileLabel", optional, text},
               {"sourceKind", optional, text},
               {"profileIdentityOrigin", optional, text},
               {"profileIdentityVerified", optional, boolean},
               {"evidence", optional, text},
               {"endEvidence", optional, text},
               {"livenessObservedAt", optional, text},
               {"probeComplete", required, boolean},
               {"failureKind", optional, text},
               {"processID", optional, integer, {.bits = 32}},
               {"processStart", optional, text}});
}

TEST(AgentActivitySummaryRecord, HoldsToItsTable) {
  sweepRecord(goldenText("agents/AgentActivitySummary.json"), summary(),
              {{"runningSessionCount", required, integer},
               {"openSessionCount", required, integer},
               {"idleSessionCount", required, integer},
               {"unknownSessionCount", required, integer},
               {"endedSessionCount", required, integer},
               {"childSessionCount", required, integer},
               {"unverifiedSessionCount", required, integer},
               {"sessions", required, list, {.element = object}},
               {"observedSources", required, list, {.element = text}},
               {"updatedAt", optional, text},
               {"lastObservedAtBySource", optional, object},
               {"available", optional, boolean},
               {"detectedProcessCount", required, integer},
               {"profiles", required, list, {.element = object}},
               {"countsComplete", optional, boolean}});
}

/// The golden summary with one piece replaced, and the position of the mark "^" in `by`, which is not part of the text.
std::pair<std::string, std::size_t> damaged(std::string_view piece, std::string_view by) {
  std::string text = goldenText("agents/AgentActivitySummary.json");
  text.replace(text.find(piece), piece.size(), by);
  const std::size_t position = text.find('^');
  return {text.erase(position, 1), position};
}

TEST(AgentActivitySummaryRecord, OneBadSessionOrProfileFailsTheWhole) {
  using Kind = JSONDecodingError::Kind;
  struct Row {
    std::string_view piece;
    std::string_view by;
    Kind kind;
    JSONPath path;
    std::optional<JSONExpectation> expected;
  };
  const std::vector<Row> rows = {
      {R"({"id":"s",)", "^{", Kind::missingKey, {"sessions", std::size_t{0}, "id"}, std::nullopt},
      {R"("id":"s")", R"("id":^5)", Kind::wrongType, {"sessions", std::size_t{0}, "id"}, text},
      {R"("probeComplete":false)",
       R"("probeComplete":^null)",
       Kind::nullValue,
       {"sessions", std::size_t{0}, "probeComplete"},
       boolean},
      {R"("probeComplete":false)",
       R"("probeComplete":false,"terminalLocation":{"appBundleIdentifier":"","processID":^2147483648})",
       Kind::outOfRange,
       {"sessions", std::size_t{0}, "terminalLocation", "processID"},
       integer},
      {R"("amp"])", R"(^null])", Kind::nullValue, {"observedSources", std::size_t{1}}, text},
      {R"("amp":"2026-02-01T00:00:00Z")", R"("amp":^null)", Kind::nullValue, {"lastObservedAtBySource", "amp"}, text},
      {R"({"source":"hermes"})", "^{}", Kind::missingKey, {"profiles", std::size_t{0}, "source"}, std::nullopt},
  };
  for (const Row& row : rows) {
    const auto [text, position] = damaged(row.piece, row.by);
    const auto read = readJSON<AgentActivitySummary>(text);
    ASSERT_FALSE(read) << text;
    EXPECT_EQ(read.error(), (JSONDecodingError{row.kind, row.path, row.expected, "", position, std::nullopt})) << text;
  }
}

TEST(AgentActivitySummaryRecord, AnEmptyMapIsNotAnAbsentOne) {
  AgentActivitySummary empty = summary();
  empty.lastObservedAtBySource.emplace();
  AgentActivitySummary absent = summary();
  absent.lastObservedAtBySource.reset();
  EXPECT_FALSE(empty == absent);
  EXPECT_EQ(readJSON<AgentActivitySummary>(writeJSON(empty).value()), empty);
  EXPECT_EQ(readJSON<AgentActivitySummary>(writeJSON(absent).value()), absent);
}

}  // namespace
}  // namespace tessary
