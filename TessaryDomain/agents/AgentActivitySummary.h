#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "TessaryDomain/agents/AgentSessionObservation.h"
#include "TessaryDomain/agents/AgentSourceProfile.h"
#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

/// The agent sessions on the machine at one moment, as the capture service hands them to the application. The counts
/// are the service's own and need not agree with `sessions`.
struct AgentActivitySummary {
  std::int64_t runningSessionCount = 0;
  std::int64_t openSessionCount = 0;
  std::int64_t idleSessionCount = 0;
  std::int64_t unknownSessionCount = 0;
  std::int64_t endedSessionCount = 0;
  std::int64_t childSessionCount = 0;
  std::int64_t unverifiedSessionCount = 0;
  std::vector<AgentSessionObservation> sessions;
  std::vector<std::string> observedSources;
  /// ISO 8601, as the times below.
  std::optional<std::string> updatedAt{};
  std::optional<std::map<std::string, std::string>> lastObservedAtBySource{};
  /// Whether the service could look at all.
  std::optional<bool> available{};
  std::int64_t detectedProcessCount = 0;
  std::vector<AgentSourceProfile> profiles;
  /// Whether the counts are known to leave nothing out.
  std::optional<bool> countsComplete{};

  bool operator==(const AgentActivitySummary&) const = default;
};

template <>
struct JSONForm<AgentActivitySummary> {
  static constexpr std::tuple fields{
      required("runningSessionCount", &AgentActivitySummary::runningSessionCount),
      required("openSessionCount", &AgentActivitySummary::openSessionCount),
      required("idleSessionCount", &AgentActivitySummary::idleSessionCount),
      required("unknownSessionCount", &AgentActivitySummary::unknownSessionCount),
      required("endedSessionCount", &AgentActivitySummary::endedSessionCount),
      required("childSessionCount", &AgentActivitySummary::childSessionCount),
      required("unverifiedSessionCount", &AgentActivitySummary::unverifiedSessionCount),
      required("sessions", &AgentActivitySummary::sessions),
      required("observedSources", &AgentActivitySummary::observedSources),
      optional("updatedAt", &AgentActivitySummary::updatedAt),
      optional("lastObservedAtBySource", &AgentActivitySummary::lastObservedAtBySource),
      optional("available", &AgentActivitySummary::available),
      required("detectedProcessCount", &AgentActivitySummary::detectedProcessCount),
      required("profiles", &AgentActivitySummary::profiles),
      optional("countsComplete", &AgentActivitySummary::countsComplete),
  };
};

}  // namespace tessary
