#include "TessaryRenderer/FailureExit.h"

#include <array>
#include <cstring>
#include <unistd.h>

#include "TessaryRenderer/ByteChannels.h"

namespace tessary::FailureExit {

namespace {

constexpr std::string_view opening = R"({"error":")";
constexpr std::string_view closing = R"("})";

/// No text needs an escape, so that the object needs no serialiser; tests/renderer holds every one against this.
constexpr std::size_t longestMessage = 128;

}  // namespace

void write(RendererFailure failure) noexcept {
  std::array<char, opening.size() + longestMessage + closing.size()> object;
  if (failure.message.size() > longestMessage) return;
  std::size_t length = 0;
  for (const std::string_view piece : {opening, failure.message, closing}) {
    std::memcpy(object.data() + length, piece.data(), piece.size());
    length += piece.size();
  }
  (void)ByteChannels::writeWhole(STDOUT_FILENO, std::string_view(object.data(), length));
}

}  // namespace tessary::FailureExit
