#include "TessaryRenderer/ByteChannels.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "TessaryRenderer/RendererLimits.h"

namespace tessary::ByteChannels {

namespace {

/// Waits until `descriptor` is ready for `events`, or in a state in which the next call says what is wrong with it.
void waitFor(int descriptor, short events) {
  pollfd waited{.fd = descriptor, .events = events, .revents = 0};
  while (::poll(&waited, 1, -1) < 0 && errno == EINTR) {
  }
}

/// One read; absent where the descriptor cannot be read, 0 at the end of input.
std::optional<std::size_t> readSome(int descriptor, char* into, std::size_t capacity) {
  while (true) {
    const ssize_t count = ::read(descriptor, into, capacity);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno == EAGAIN || errno == EWOULDBLOCK) {
      waitFor(descriptor, POLLIN);
    } else if (errno != EINTR) {
      return std::nullopt;
    }
  }
}

/// A descriptor that is closed when its block is left.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      // Without O_NONBLOCK, a pipe put in the file's place after its size was asked for would hold up the opening.
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (isOpen()) ::close(descriptor_);
  }

  [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace

std::expected<std::string, RendererFailure> readRequest(int descriptor, std::size_t limit) {
  std::string request;
  std::array<char, RendererLimits::readBytes> chunk;
  while (true) {
    const auto count = readSome(descriptor, chunk.data(), chunk.size());
    if (!count) return std::unexpected(RendererFailures::other);
    if (*count == 0) return request;
    if (*count > limit - request.size()) return std::unexpected(RendererFailures::requestTooLarge);
    request.append(chunk.data(), *count);
  }
}

std::expected<std::string, RendererFailure> readAsset(const std::string& path, std::size_t smallest,
                                                      std::size_t largest) {
  struct stat status{};
  if (::stat(path.c_str(), &status) != 0) return std::unexpected(RendererFailures::other);
  if (!S_ISREG(status.st_mode)) return std::unexpected(RendererFailures::assetsUnavailable);
  const auto size = static_cast<std::uint64_t>(status.st_size);
  if (size < smallest || size > largest) return std::unexpected(RendererFailures::assetsUnavailable);

  const OpenFile file(path);
  if (!file.isOpen()) return std::unexpected(RendererFailures::other);
  // One byte more than the size said shows a file that has grown; then it is read on, up to the limit.
  std::string text(size + 1, '\0');
  std::size_t filled = 0;
  while (true) {
    const auto count = readSome(file.descriptor(), text.data() + filled, text.size() - filled);
    if (!count) return std::unexpected(RendererFailures::other);
    if (*count == 0) break;
    filled += *count;
    if (filled > largest) return std::unexpected(RendererFailures::assetsUnavailable);
    if (filled == text.size()) text.resize(largest + 1);
  }
  text.resize(filled);
  if (text.size() < smallest) return std::unexpected(RendererFailures::assetsUnavailable);
  return text;
}

bool writeWhole(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
      waitFor(descriptor, POLLOUT);
    } else if (count == 0 || errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace tessary::ByteChannels
