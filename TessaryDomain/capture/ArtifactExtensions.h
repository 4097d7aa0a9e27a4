#pragma once

#include <array>
#include <string_view>

#include "TessaryDomain/capture/WordSet.h"

/// Which file name extensions make which kind of artifact: the product's own law, written to be read and changed by
/// hand. All are lower case and without their dot, and none stands in two of the tables.
namespace tessary {

inline constexpr WordSet markdownExtensions(std::to_array<std::string_view>({"md", "markdown", "mdown", "mkd", "mkdn",
                                                                             "mdwn", "mdtxt", "mdtext", "rmd", "qmd"}));

inline constexpr WordSet htmlExtensions(std::to_array<std::string_view>({"html", "htm", "xhtml"}));

/// Markdown and HTML together.
inline constexpr WordSet documentExtensions = markdownExtensions.joined(htmlExtensions);

// What follows stands in ascending order, in which it is also offered to the user.

inline constexpr auto imageExtensions = std::to_array<std::string_view>(
    {"avif", "bmp", "gif", "heic", "heif", "ico", "jpeg", "jpg", "png", "svg", "tif", "tiff", "webp"});

inline constexpr auto videoExtensions =
    std::to_array<std::string_view>({"avi", "m4v", "mkv", "mov", "mp4", "mpeg", "mpg", "webm"});

inline constexpr auto pdfExtensions = std::to_array<std::string_view>({"pdf"});

/// Source code, and other text that is shown as it stands. One row for each first letter.
// clang-format off
inline constexpr auto codeExtensions = std::to_array<std::string_view>({
    "adoc", "asm",
    "bash", "bat",
    "c", "cc", "cfg", "cjs", "clj", "cljc", "cljs", "cmd", "conf", "cpp", "cs", "css", "csv", "cxx",
    "dart",
    "erl", "ex", "exs",
    "f", "f90", "f95", "fish", "fs", "fsx",
    "go",
    "h", "hpp", "hrl", "hs",
    "ini", "ino",
    "java", "jl", "js", "json", "jsonc", "jsx",
    "kt", "kts",
    "lhs", "lisp", "log", "lua",
    "m", "mdx", "mjs", "ml", "mli", "mm",
    "nix",
    "pas", "pde", "php", "pl", "pm", "pp", "properties", "proto", "ps1", "psm1", "py", "pyw",
    "r", "rb", "rs", "rst",
    "s", "sass", "sc", "scm", "scss", "sh", "sql", "svelte", "swift",
    "tex", "text", "tf", "toml", "ts", "tsv", "tsx", "txt",
    "vb", "vbs", "vue",
    "xml",
    "yaml", "yml",
    "zsh",
});
// clang-format on
inline constexpr WordSet codeExtensionSet(codeExtensions);

/// Folded names without an extension that are text none the less.
inline constexpr WordSet codeFileNames(std::to_array<std::string_view>({"makefile", "dockerfile", "gemfile", "license",
                                                                        "readme"}));

}  // namespace tessary
