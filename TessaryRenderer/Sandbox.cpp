#include "TessaryRenderer/Sandbox.h"

#include <sys/prctl.h>

#include "TessaryRenderer/Landlock.h"
#include "TessaryRenderer/SystemCallFilter.h"

namespace tessary::Sandbox {

Outcome enter() {
  // Both means ask for the promise that no program with more rights will ever be started.
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return {};
  // The filter comes last, since it lets no further restriction pass.
  const bool hasNoFiles = Landlock::forbidFiles();
  return {.hasNoFiles = hasNoFiles, .hasFilter = SystemCallFilter::install()};
}

}  // namespace tessary::Sandbox
