// Any bytes as the snapshot of running agents.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "TessaryDomain/agents/AgentActivitySummary.h"
#include "support/RecordRoundTrip.h"

using tessary::AgentActivitySummary;
using tessary::AgentSourceProfile;
using tessary::testing::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto summary =
      tessary::testing::requireRoundTrip<AgentActivitySummary>({reinterpret_cast<const char*>(data), size});
  if (!summary) return 0;
  for (const tessary::AgentSessionObservation& session : summary->sessions) {
    require(session.projectRoot.find(session.projectName()) != std::string::npos);
    require(!session.stateLabel().empty());
  }
  for (const AgentSourceProfile& profile : summary->profiles) {
    require(profile.displayName().ends_with(profile.accountTitle()));
    require(profile.hasVerifiedAccountName() ==
            (profile.accountTitle() == profile.sourceProfileLabel && profile.profileIdentityVerified == true));
    // Two profiles have one identity only where source and profile are the same.
    for (const AgentSourceProfile& other : summary->profiles) {
      const bool isSame = profile.source == other.source && profile.sourceProfileID == other.sourceProfileID;
      require((profile.id() == other.id()) == isSame);
      if (profile == other) require(std::hash<AgentSourceProfile>()(profile) == std::hash<AgentSourceProfile>()(other));
    }
  }
  return 0;
}
