#pragma once

#include <cstdlib>

namespace tessary::testing {

/// Aborts where a property of a fuzz target is broken.
inline void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace tessary::testing
