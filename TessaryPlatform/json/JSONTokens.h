#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "TessaryPlatform/json/JSONSyntax.h"

namespace simdjson {
class implementation;
}

namespace tessary {

/// Where the tokens of a JSON text begin: each of `{}[],:` outside texts, the opening quote of each text, the first
/// byte of each run of other bytes. What the tokens are worth is for JSONCursor to say; an index may hold any nonsense,
/// but of a token that begins with a quote it is certain that the text is closed, and that only white space lies
/// between the closing quote and the next token.
///
/// The index is the first stage of simdjson, at several gigabytes a second on whatever vector unit the machine has. The
/// stages behind it are not used: On-Demand leaves alone what its caller skips, and the place of a fault is lost.
class JSONTokens {
 public:
  /// Reads the index of `text`, which must outlive it. Absent where the text is certainly no JSON: too long, not UTF-8
  /// in its texts, empty, with a raw control character in a text or an unclosed text.
  [[nodiscard]] static std::optional<JSONTokens> indexed(std::string_view text);

  [[nodiscard]] std::string_view text() const { return text_; }
  /// The first token's position. The positions ascend; behind the last stands the size of the text.
  [[nodiscard]] const std::uint32_t* begin() const { return positions_.get(); }
  [[nodiscard]] const std::uint32_t* end() const { return positions_.get() + count_; }

 private:
  JSONTokens(std::string_view text, std::unique_ptr<std::uint32_t[]> positions, std::size_t count)
      : text_(text), positions_(std::move(positions)), count_(count) {}

  [[nodiscard]] static std::optional<JSONTokens> indexedWithVectors(std::string_view text,
                                                                    const simdjson::implementation& implementation);
  [[nodiscard]] static std::optional<JSONTokens> indexedPlainly(std::string_view text);

  std::string_view text_;
  std::unique_ptr<std::uint32_t[]> positions_;
  std::size_t count_;
};

/// The same index made byte by byte, up to the first fault that shows in single bytes. It serves where a text has been
/// found wanting, to tell what is wrong first, and as the plain road that the fast one is held against.
struct JSONTokensUpToFault {
  /// As in JSONTokens; behind the last stands the size of the text, or the place where indexing ended.
  std::vector<std::uint32_t> positions;
  /// A raw control character or an unclosed text, and where.
  std::optional<JSONSyntaxError> fault;
};

/// Indexes `text`, of at most `maximumJSONByteCount` bytes, one byte at a time.
[[nodiscard]] JSONTokensUpToFault indexedUpToFault(std::string_view text);

/// Why `text` is not JSON; absent if it is. Takes linear time, at about a tenth of the speed of reading.
[[nodiscard]] std::optional<JSONSyntaxError> findJSONFault(std::string_view text);

}  // namespace tessary
