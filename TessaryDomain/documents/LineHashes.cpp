#include "TessaryDomain/documents/LineHashes.h"

// Finding a window of lines by its combination
//
// A combination is one chain of eight steps per line, each of which waits for the multiplication before it, and a
// window that begins a line further down is another chain from the start: a moved note of 400 lines in 50,000 takes
// 159 million steps of four cycles.
//
// Two things make that cheap. The chains of neighbouring windows do not wait for each other, and the low sixteen bits
// of a chain follow from the low sixteen bits of its state alone. So windows are looked at in blocks of 64 that begin
// one after another, each with a state of sixteen bits, eight states to a vector of the processor: one instruction
// takes a byte into eight windows, one more multiplies them. What is left are the windows whose low bits are those
// that are sought, one in 65,536 of those that do not match. Their chains are run at full length, eight at a time, and
// these decide. So the answer is that of the plain loop, collisions included; and where somebody chose the anchor so
// that all low bits agree, the steps are no more than those of the loop and, up to whole blocks, an eighth.
//
// Blocks go outwards from the place near which the window is sought, one downwards and one upwards at a time, as lines
// that moved have mostly not moved far. When both have been looked at, every window nearer than a block's length times
// their number has been, and one that was found cannot be outdone.

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <system_error>
#include <vector>

#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

constexpr std::size_t hashBytes = sizeof(std::uint64_t);

std::uint64_t hashOf(std::string_view bytes) {
  std::uint64_t state = FNV1a<std::uint64_t>::offsetBasis;
  for (const char byte : bytes)
    state = (state ^ static_cast<unsigned char>(byte)) * FNV1a<std::uint64_t>::prime;
  return state;
}

bool endsWithBlank(std::string_view line) {
  if (!line.ends_with(' ') && !line.ends_with('\t')) return false;
  return previousCharacterStart(line, line.size()) == line.size() - 1;
}

/// Takes the hash of a line into a state.
std::uint64_t withHash(std::uint64_t state, std::uint64_t hash) {
  for (std::size_t byte = 0; byte < hashBytes; ++byte)
    state = (state ^ (hash >> (8 * byte) & 0xFF)) * FNV1a<std::uint64_t>::prime;
  return state;
}

/// The windows of a list of hashes.
class WindowSearch {
 public:
  static constexpr std::size_t blockLength = 64;

  WindowSearch(std::span<const std::uint64_t> hashes, std::size_t span, std::uint64_t combination)
      : hashes_(hashes), span_(span), combination_(combination), stride_(hashes.size() + blockLength) {
    bytes_.resize(hashBytes * stride_);
    for (std::size_t byte = 0; byte < hashBytes; ++byte) {
      for (std::size_t line = 0; line < hashes.size(); ++line)
        bytes_[byte * stride_ + line] = static_cast<Low>(hashes[line] >> (8 * byte) & 0xFF);
    }
  }

  /// The first and the last match among the windows that begin at `begin` up to `end`, at most `blockLength` of them.
  [[nodiscard]] std::optional<std::size_t> first(std::size_t begin, std::size_t end) const {
    const std::uint64_t found = matches(begin, end);
    if (found == 0) return std::nullopt;
    return begin + static_cast<std::size_t>(std::countr_zero(found));
  }
  [[nodiscard]] std::optional<std::size_t> last(std::size_t begin, std::size_t end) const {
    const std::uint64_t found = matches(begin, end);
    if (found == 0) return std::nullopt;
    return begin + static_cast<std::size_t>(std::bit_width(found)) - 1;
  }

 private:
  /// Bit 0 is the window at `begin`.
  [[nodiscard]] std::uint64_t matches(std::size_t begin, std::size_t end) const {
    if (begin == end) return 0;
    const std::uint64_t inside = ~std::uint64_t{0} >> (blockLength - (end - begin));
    return confirmed(begin, candidates(begin) & inside);
  }

  using Low = std::uint16_t;
  static constexpr std::size_t lanes = 8;
  using Lanes = Low __attribute__((vector_size(lanes * sizeof(Low))));
  static constexpr std::size_t vectors = blockLength / lanes;

  /// The windows of a block whose combinations have the low bits that are sought. Windows that reach beyond the last
  /// hash read the zeros behind it, and mean nothing.
  [[nodiscard]] std::uint64_t candidates(std::size_t begin) const {
    std::array<Lanes, vectors> states{};
    for (Lanes& state : states)
      state += FNV1a<Low>::offsetBasis;
    for (std::size_t line = begin; line < begin + span_; ++line) {
      for (std::size_t byte = 0; byte < hashBytes; ++byte) {
        const Low* row = bytes_.data() + byte * stride_ + line;
        for (std::size_t index = 0; index < vectors; ++index) {
          Lanes taken;
          std::memcpy(&taken, row + index * lanes, sizeof taken);
          states[index] = (states[index] ^ taken) * FNV1a<Low>::prime;
        }
      }
    }
    std::uint64_t found = 0;
    for (std::size_t window = 0; window < blockLength; ++window) {
      const bool agrees = states[window / lanes][window % lanes] == static_cast<Low>(combination_);
      found |= std::uint64_t{agrees} << window;
    }
    return found;
  }

  /// The candidates that match in all bits.
  [[nodiscard]] std::uint64_t confirmed(std::size_t begin, std::uint64_t candidates) const {
    std::uint64_t found = 0;
    while (candidates != 0) {
      std::array<std::size_t, lanes> windows{};
      std::size_t count = 0;
      for (; count < lanes && candidates != 0; ++count, candidates &= candidates - 1)
        windows[count] = static_cast<std::size_t>(std::countr_zero(candidates));
      const std::array<std::uint64_t, lanes> combinations = combinationsAt(begin, windows);
      for (std::size_t index = 0; index < count; ++index)
        found |= std::uint64_t{combinations[index] == combination_} << windows[index];
    }
    return found;
  }

  [[nodiscard]] std::array<std::uint64_t, lanes> combinationsAt(std::size_t begin,
                                                                const std::array<std::size_t, lanes>& windows) const {
    std::array<std::uint64_t, lanes> states{};
    states.fill(FNV1a<std::uint64_t>::offsetBasis);
    for (std::size_t line = begin; line < begin + span_; ++line) {
      for (std::size_t byte = 0; byte < hashBytes; ++byte) {
        for (std::size_t index = 0; index < lanes; ++index) {
          const std::uint64_t taken = hashes_[line + windows[index]] >> (8 * byte) & 0xFF;
          states[index] = (states[index] ^ taken) * FNV1a<std::uint64_t>::prime;
        }
      }
    }
    return states;
  }

  std::span<const std::uint64_t> hashes_;
  std::size_t span_;
  std::uint64_t combination_;
  std::size_t stride_;
  /// For each byte of a hash a row of that byte of all hashes, widened to what a state holds.
  std::vector<Low> bytes_;
};

}  // namespace

std::uint64_t lineHash(std::string_view line) {
  while (endsWithBlank(line))
    line.remove_suffix(1);
  return isWellFormedUTF8(line) ? hashOf(line) : hashOf(repairedUTF8(line));
}

std::uint64_t combined(std::span<const std::uint64_t> lineHashes) {
  std::uint64_t state = FNV1a<std::uint64_t>::offsetBasis;
  for (const std::uint64_t hash : lineHashes)
    state = withHash(state, hash);
  return state;
}

std::optional<std::uint64_t> anchorValue(std::string_view anchor) {
  const bool isNegative = anchor.starts_with('-');
  if (isNegative || anchor.starts_with('+')) anchor.remove_prefix(1);
  std::uint64_t value = 0;
  const char* end = anchor.data() + anchor.size();
  const auto [stop, error] = std::from_chars(anchor.data(), end, value, 16);
  if (error != std::errc() || stop != end) return std::nullopt;
  if (isNegative && value != 0) return std::nullopt;
  return value;
}

std::optional<std::size_t> nearestWindow(std::span<const std::uint64_t> lineHashes, std::size_t span,
                                         std::uint64_t combination, std::size_t position) {
  const std::size_t windows = lineHashes.size() - span + 1;
  const WindowSearch search(lineHashes, span, combination);
  // The windows from `low` up to `high` have been looked at.
  std::size_t low = position;
  std::size_t high = position;
  while (low > 0 || high < windows) {
    const std::size_t nextLow = low - std::min(low, WindowSearch::blockLength);
    const std::size_t nextHigh = std::min(high + WindowSearch::blockLength, windows);
    const std::optional<std::size_t> lower = search.last(nextLow, low);
    const std::optional<std::size_t> upper = search.first(high, nextHigh);
    if (lower && (!upper || position - *lower <= *upper - position)) return lower;
    if (upper) return upper;
    low = nextLow;
    high = nextHigh;
  }
  return std::nullopt;
}

}  // namespace tessary
