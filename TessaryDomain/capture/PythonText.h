#pragma once

namespace tessary::PythonText {

/// Python's `str.isspace` for one scalar.
[[nodiscard]] bool isSpace(char32_t scalar) noexcept;

}  // namespace tessary::PythonText
