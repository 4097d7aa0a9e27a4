#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "TessaryDomain/agents/AgentTerminalLocation.h"
#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

/// One agent session as the capture service last saw it. Texts are kept as the service wrote them: a state or liveness
/// that this version doesn't know survives being written back.
struct AgentSessionObservation {
  std::string id;
  /// The agent: a source as in `AgentSourceProfile`.
  std::string source;
  std::string projectRoot;
  std::string cwd;
  /// "running", "idle", "ended", "unknown" or another word; `stateLabel` shows it.
  std::string state;
  bool isSubagent = false;
  std::optional<std::string> model{};
  /// The session that started this one.
  std::optional<std::string> parentID{};
  /// ISO 8601.
  std::string observedAt;
  /// "unknown" where the service could not find out whether the session still lives.
  std::optional<std::string> liveness{};
  std::optional<AgentTerminalLocation> terminalLocation{};
  // The profile, as in `AgentSourceProfile`.
  std::optional<std::string> sourceProfileID{};
  std::optional<std::string> sourceProfileLabel{};
  std::optional<std::string> sourceKind{};
  std::optional<std::string> profileIdentityOrigin{};
  std::optional<bool> profileIdentityVerified{};
  /// What the observation rests on.
  std::optional<std::string> evidence{};
  /// What the end of the session was told by.
  std::optional<std::string> endEvidence{};
  std::optional<std::string> livenessObservedAt{};
  bool probeComplete = false;
  std::optional<std::string> failureKind{};
  std::optional<std::int32_t> processID{};
  std::optional<std::string> processStart{};

  bool operator==(const AgentSessionObservation&) const = default;

  /// True where nobody knows whether the session still lives: `liveness` is "unknown". An absent liveness is no doubt.
  [[nodiscard]] bool connectionUnverified() const { return liveness == "unknown"; }

  /// The last component of `projectRoot`: "/" for the root folder, empty for an empty path.
  [[nodiscard]] std::string_view projectName() const;

  /// The state in a word or two of the language in use, for a badge. Besides the four states "running", "idle", "ended"
  /// and "unknown" it has words for "open" (there, but not known to work), "waiting" (for the user's answer) and
  /// "failed"; words are compared exactly, and every other one is shown as the unknown state.
  [[nodiscard]] std::string stateLabel() const;
};

template <>
struct JSONForm<AgentSessionObservation> {
  static constexpr std::tuple fields{
      required("id", &AgentSessionObservation::id),
      required("source", &AgentSessionObservation::source),
      required("projectRoot", &AgentSessionObservation::projectRoot),
      required("cwd", &AgentSessionObservation::cwd),
      required("state", &AgentSessionObservation::state),
      required("isSubagent", &AgentSessionObservation::isSubagent),
      optional("model", &AgentSessionObservation::model),
      optional("parentID", &AgentSessionObservation::parentID),
      required("observedAt", &AgentSessionObservation::observedAt),
      optional("liveness", &AgentSessionObservation::liveness),
      optional("terminalLocation", &AgentSessionObservation::terminalLocation),
      optional("sourceProfileID", &AgentSessionObservation::sourceProfileID),
      optional("sourceProfileLabel", &AgentSessionObservation::sourceProfileLabel),
      optional("sourceKind", &AgentSessionObservation::sourceKind),
      optional("profileIdentityOrigin", &AgentSessionObservation::profileIdentityOrigin),
      optional("profileIdentityVerified", &AgentSessionObservation::profileIdentityVerified),
      optional("evidence", &AgentSessionObservation::evidence),
      optional("endEvidence", &AgentSessionObservation::endEvidence),
      optional("livenessObservedAt", &AgentSessionObservation::livenessObservedAt),
      required("probeComplete", &AgentSessionObservation::probeComplete),
      optional("failureKind", &AgentSessionObservation::failureKind),
      optional("processID", &AgentSessionObservation::processID),
      optional("processStart", &AgentSessionObservation::processStart),
  };
};

}  // namespace tessary
