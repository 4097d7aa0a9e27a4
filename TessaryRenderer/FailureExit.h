#pragma once

#include <string>
#include <string_view>

#include "TessaryRenderer/RendererFailure.h"

namespace tessary::FailureExit {

/// The exit status of a run without a result.
inline constexpr int status = 1;

/// Writes the object with the one key `error` to standard output; what cannot be written is let go. Allocates nothing,
/// so that a signal handler may call it.
void write(RendererFailure failure) noexcept;

}  // namespace tessary::FailureExit
