#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/documents/DocumentFeedback.h"

/// The fingerprint of the lines that a note covers, and how a note finds them again in a later revision.
///
/// A fingerprint is FNV-1a at 64 bits over the hashes of the lines, and the hash of a line is FNV-1a over its bytes
/// without trailing blanks. So it changes with any line of the span, by more than blanks at a line's end, and with
/// nothing around the span. Line endings have no part in it.
///
/// Text that is not well-formed UTF-8 counts as if it had U+FFFD in the place of every maximal ill-formed subpart.
namespace tessary::DocumentFeedbackAnchor {

/// The most lines of a text in which a note is searched for.
inline constexpr std::size_t maximumLines = 50'000;

/// The lines of `text`, as slices of it: what stands before, between and behind its line feeds, empty lines included,
/// so there is one more line than line feeds. A carriage return directly before a line feed is part of the line's end;
/// any other stays in its line. An empty text is one empty line.
[[nodiscard]] std::vector<std::string_view> lines(std::string_view text);

/// The fingerprint of `lines`, as 16 lowercase hexadecimal digits.
[[nodiscard]] std::string fingerprint(std::span<const std::string_view> lines);

/// The fingerprint of the lines `startLine` to `endLine` of `text`, counted from 1 and both included; absent where the
/// text has no such lines or there are none between them.
[[nodiscard]] std::optional<std::string> fingerprint(std::string_view text, std::int64_t startLine,
                                                     std::int64_t endLine);

/// The note as it stands in the revision `toRevision`, whose text is `text`.
///
/// Where its lines are found it has this revision, their place, and is not stale. They are found in their old place or
/// else where they stand nearest to it; of two places equally near, in the upper one. Where they are not found the note
/// is stale and otherwise as it was, so that a later revision that holds them again finds it. They are not found
/// either in a text of more than `maximumLines` lines, and where the note's lines or its anchor make no sense.
///
/// An anchor is read by its value: hexadecimal digits in either case, with leading zeros, a leading "+", and a leading
/// "-" for zero alone. A note may cover any number of lines; the time is at most that of hashing the note's span at
/// every line of the text.
[[nodiscard]] DocumentFeedbackNote relocate(const DocumentFeedbackNote& note, std::string_view toRevision,
                                            std::string_view text);

}  // namespace tessary::DocumentFeedbackAnchor
