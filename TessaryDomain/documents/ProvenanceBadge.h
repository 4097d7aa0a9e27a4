#pragma once

#include <optional>
#include <string>

#include "TessaryDomain/agents/ModelVendor.h"
#include "TessaryDomain/documents/DocumentRevisionProvenance.h"

namespace tessary {

/// Who made the model that wrote a revision: `ModelVendor::of` its model and provider.
[[nodiscard]] std::optional<ModelVendor> modelVendor(const DocumentRevisionProvenance& provenance);

/// The application of someone else in which the agent ran, as `host` names it, without white space at its ends: there
/// the user chose a model, and it is worth a badge. Letter case makes no difference. Absent where `host` is absent or
/// white space, where it is the agent itself (its `agent`, its `agentName`, or another agent of the same vendor:
/// "claude" in "claude-desktop-chat"), and where it is a terminal, in which agents of the command line run anyway.
[[nodiscard]] std::optional<std::string> hostApp(const DocumentRevisionProvenance& provenance);

/// True where the model ran on the user's own machine: where the provenance says so, or its model and provider do by
/// `ModelVendor::isLocal`. A provenance that denies it does not decide: agents that know nothing of local models write
/// false.
[[nodiscard]] bool runsLocally(const DocumentRevisionProvenance& provenance);

/// The badge to show for the model of a revision. That it ran locally comes before its vendor. Absent where no vendor
/// is known, and where the badge would be no news: for the agent's own model outside any `hostApp`.
[[nodiscard]] std::optional<ModelBadge> modelBadge(const DocumentRevisionProvenance& provenance);

}  // namespace tessary
