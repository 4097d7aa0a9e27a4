#pragma once

#include <string_view>
#include <vector>

#include "TessaryDomain/capture/AgentFolders.h"           // IWYU pragma: export
#include "TessaryDomain/capture/ArtifactAdmission.h"      // IWYU pragma: export
#include "TessaryDomain/capture/ArtifactType.h"           // IWYU pragma: export
#include "TessaryDomain/capture/CaptureTemporaryScope.h"  // IWYU pragma: export
#include "TessaryDomain/capture/ContentTitle.h"           // IWYU pragma: export
#include "TessaryDomain/capture/EventTimes.h"             // IWYU pragma: export
#include "TessaryDomain/capture/ExcludedArtifact.h"       // IWYU pragma: export
#include "TessaryDomain/capture/InternalArtifact.h"       // IWYU pragma: export
#include "TessaryDomain/capture/PythonHTMLTitle.h"

/// The one place that says what a file or an agent's answer is and whether the user's choices admit it. Who has a
/// candidate asks in this order: what must never become a document is removed (`excludedArtifact`,
/// `internalArtifact`); what remains gets its category and kind (`artifactType`); the user's choices are applied
/// (`artifactAllowed`, `assistantResponseAllowed`, `subagentArtifactAllowed`); and it gets its title (`contentTitle`).
///
/// All are functions of their arguments alone, but for the times that `eventSeconds` remembers. Names are compared as
/// `PythonText::casefold` folds them, and paths are taken apart as `PythonPath` does.
namespace tessary::CaptureRules {

/// What an HTML page draws in from outside: its images and style sheets, as `PythonHTMLTitle::resourceReferences`.
[[nodiscard]] inline std::vector<PythonHTMLTitle::ResourceReference> htmlResourceReferences(std::string_view html) {
  return PythonHTMLTitle::resourceReferences(html);
}

}  // namespace tessary::CaptureRules
