#include "TessaryPlatform/json/JSONTokens.h"

#include <algorithm>
#include <new>
#include <utility>

#include <simdjson.h>

#include "TessaryPlatform/json/JSONCursor.h"
#include "TessaryPlatform/json/JSONMemory.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The byte behind the closing quote of the text that opens at `opening`, or what is wrong with that text.
std::expected<std::size_t, JSONSyntaxError> textEnd(std::string_view text, std::size_t opening) {
  using Reason = JSONSyntaxError::Reason;
  for (std::size_t position = opening + 1; position < text.size(); ++position) {
    const char byte = text[position];
    if (byte == '"') return position + 1;
    if (static_cast<unsigned char>(byte) < 0x20)
      return std::unexpected(JSONSyntaxError{Reason::controlCharacter, position});
    // Whatever follows a backslash closes no text; a control character there is told as a bad escape later.
    if (byte == '\\' && position + 1 < text.size()) ++position;
  }
  return std::unexpected(JSONSyntaxError{Reason::unclosedText, opening});
}

}  // namespace

std::optional<JSONTokens> JSONTokens::indexedWithVectors(std::string_view text,
                                                         const simdjson::implementation& implementation) {
  std::unique_ptr<simdjson::internal::dom_parser_implementation> indexer;
  // Stage 1 copies the last block of the text before it reads it, so the text needs no padding behind it. The depth is
  // that of a later stage and costs memory, so it is the least.
  if (implementation.create_dom_parser_implementation(text.size(), 1, indexer) != simdjson::SUCCESS) {
    throw std::bad_alloc();
  }
  // simdjson makes room for a token at every byte.
  json::adviseHugePages(indexer->structural_indexes.get(), text.size() * sizeof(std::uint32_t));
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  if (indexer->stage1(bytes, text.size(), simdjson::stage1_mode::regular) != simdjson::SUCCESS) return std::nullopt;
  return JSONTokens(text, std::move(indexer->structural_indexes), indexer->n_structural_indexes);
}

std::optional<JSONTokens> JSONTokens::indexedPlainly(std::string_view text) {
  if (!isWellFormedUTF8(text)) return std::nullopt;
  const JSONTokensUpToFault tokens = indexedUpToFault(text);
  if (tokens.fault) return std::nullopt;
  auto positions = std::make_unique_for_overwrite<std::uint32_t[]>(tokens.positions.size());
  std::ranges::copy(tokens.positions, positions.get());
  return JSONTokens(text, std::move(positions), tokens.positions.size() - 1);
}

std::optional<JSONTokens> JSONTokens::indexed(std::string_view text) {
  if (text.empty() || text.size() > maximumJSONByteCount) return std::nullopt;
  const simdjson::implementation& implementation = *simdjson::get_active_implementation();
  // simdjson's portable implementation reads behind the end of a text that breaks off within a sequence, and lets
  // ill-formed sequences behind a backslash pass; where there are no vectors the plain road is as good.
  return implementation.name() == "fallback" ? indexedPlainly(text) : indexedWithVectors(text, implementation);
}

JSONTokensUpToFault indexedUpToFault(std::string_view text) {
  JSONTokensUpToFault tokens;
  std::size_t position = 0;
  while (true) {
    while (position < text.size() && isJSONWhitespace(text[position]))
      ++position;
    tokens.positions.push_back(static_cast<std::uint32_t>(position));
    if (position == text.size()) return tokens;
    if (text[position] == '"') {
      const auto end = textEnd(text, position);
      if (!end) {
        tokens.fault = end.error();
        return tokens;
      }
      position = *end;
    } else if (isJSONPunctuation(text[position])) {
      ++position;
    } else {
      while (position < text.size() && !isJSONDelimiter(text[position]))
        ++position;
    }
  }
}

std::optional<JSONSyntaxError> findJSONFault(std::string_view text) {
  using Reason = JSONSyntaxError::Reason;
  if (text.size() > maximumJSONByteCount) return JSONSyntaxError{Reason::tooLong, maximumJSONByteCount};
  if (text.starts_with(byteOrderMark)) return JSONSyntaxError{Reason::byteOrderMark, 0};
  for (std::size_t position = 0; position < text.size();) {
    const DecodedScalar decoded = decodeScalar(text, position);
    if (!decoded.isWellFormed) return JSONSyntaxError{Reason::invalidUTF8, position};
    position += decoded.byteCount;
  }
  const JSONTokensUpToFault tokens = indexedUpToFault(text);
  JSONCursor cursor(text, tokens.positions.data(), tokens.positions.data() + tokens.positions.size() - 1);
  if (cursor.skipValue() && cursor.finish()) {
    // The index may have ended early, at a text behind the value on top.
    return tokens.fault.transform(
        [&](const auto&) { return JSONSyntaxError{Reason::trailingContent, cursor.position()}; });
  }
  // Where the walk came as far as the index and a text may stand there, it is the fault within that text that counts;
  // anywhere else the text is out of place whatever it holds.
  const Reason reason = cursor.fault().reason;
  const bool mayBeText = reason == Reason::expectedValue || reason == Reason::expectedKey;
  if (!cursor.isAtEnd() || !mayBeText || !tokens.fault) return cursor.fault();
  // A bad escape may stand before the control character that breaks the text.
  if (tokens.fault->reason != Reason::controlCharacter || cursor.checkEscapes(tokens.fault->position)) {
    return tokens.fault;
  }
  return cursor.fault();
}

}  // namespace tessary
