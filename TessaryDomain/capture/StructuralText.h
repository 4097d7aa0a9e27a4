#pragma once

#include <string>
#include <string_view>

namespace tessary {

/// The lines of a Markdown text (`PythonText::splitlines`) that stand in no fenced code, joined with U+000A: a heading
/// that is only shown in a fence must not pass for one of the text's own.
///
/// A fence opens with up to three spaces or tabs and a run of at least three "~" or "`", whatever stands behind it, and
/// closes with such a run of the same character, at least as long, with nothing but white space behind it. The lines of
/// both are dropped too. One that is never closed takes the rest of the text. Lines of quotes and lists are no special
/// ones. Linear time, any bytes.
[[nodiscard]] std::string structuralText(std::string_view text);

}  // namespace tessary
