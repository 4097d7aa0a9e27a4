#pragma once

#include "TessaryDomain/documents/DocumentRecord.h"

namespace tessary::benchmarks {

/// A library of `documentCount` documents with five revisions each, the same on every run: hashes, paths and times as
/// long as they are in use, titles of several scripts, a third of the profiles with an account.
[[nodiscard]] CaptureLibrary makeLibrary(std::size_t documentCount);

}  // namespace tessary::benchmarks
