#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

#include "TessaryRenderer/RendererFailure.h"

/// Reading and writing whole, over descriptors as a caller may have left them: interrupted calls are repeated, a
/// descriptor that does not block is waited for, and short reads and writes are gone on with.
namespace tessary::ByteChannels {

/// Everything up to the end of input, read in pieces of `RendererLimits::readBytes`. Fails with `requestTooLarge` at
/// the piece that would bring the whole above `limit` bytes, however the pieces fall, and reads no further; fails with
/// `other` where the descriptor cannot be read.
[[nodiscard]] std::expected<std::string, RendererFailure> readRequest(int descriptor, std::size_t limit);

/// Reads the file at `path`. A file that cannot be asked for its size or cannot be read is `other`. One that has no
/// size (whatever is not a regular file), is smaller than `smallest` or larger than `largest` bytes, also if it only
/// grew while being read, is `assetsUnavailable`. Nothing but a regular file is ever opened.
[[nodiscard]] std::expected<std::string, RendererFailure> readAsset(const std::string& path, std::size_t smallest,
                                                                    std::size_t largest);

/// Writes all of `bytes`; false where the descriptor takes no more.
[[nodiscard]] bool writeWhole(int descriptor, std::string_view bytes);

}  // namespace tessary::ByteChannels
