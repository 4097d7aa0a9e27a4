#pragma once

#include <array>
#include <string_view>

namespace tessary {

/// The name of a highlighter for an extension that has another name than its language.
struct CodeLanguageRow {
  std::string_view extension;
  std::string_view language;
};

/// All of them, one line a language, in lower case and without dot. An extension that has no row serves as the name of
/// its language: "go", "json", "swift".
// clang-format off
inline constexpr auto codeLanguages = std::to_array<CodeLanguageRow>({
    {"py", "python"}, {"pyw", "python"},
    {"js", "javascript"}, {"mjs", "javascript"}, {"cjs", "javascript"}, {"jsx", "javascript"},
    {"ts", "typescript"}, {"tsx", "typescript"},
    {"kt", "kotlin"}, {"kts", "kotlin"},
    {"ino", "arduino"},
    {"pde", "processing"},
    {"sh", "bash"}, {"bash", "bash"}, {"zsh", "bash"},
    {"rb", "ruby"},
    {"rs", "rust"},
    {"yml", "yaml"},
    {"h", "c"},
    {"hpp", "cpp"}, {"cc", "cpp"}, {"cxx", "cpp"},
    {"cs", "csharp"},
    {"fs", "fsharp"}, {"fsx", "fsharp"},
    {"ex", "elixir"}, {"exs", "elixir"},
    {"erl", "erlang"}, {"hrl", "erlang"},
    {"hs", "haskell"}, {"lhs", "haskell"},
    {"jl", "julia"},
    {"pl", "perl"}, {"pm", "perl"},
    {"clj", "clojure"}, {"cljs", "clojure"}, {"cljc", "clojure"},
    {"r", "r"},
    {"ps1", "powershell"}, {"psm1", "powershell"},
    {"bat", "dos"}, {"cmd", "dos"},
    {"vb", "vbnet"},
    {"vbs", "vbscript"},
    {"asm", "x86asm"}, {"s", "x86asm"},
    {"f", "fortran"}, {"f90", "fortran"}, {"f95", "fortran"},
    {"tex", "latex"},
    {"sql", "sql"},
    {"jsonc", "json"},
    {"vue", "xml"}, {"svelte", "xml"}, {"svg", "xml"}, {"xml", "xml"},
    {"nix", "nix"},
    {"sc", "scala"},
    {"scm", "scheme"},
    {"lisp", "lisp"},
    {"ml", "ocaml"}, {"mli", "ocaml"},
    {"pp", "pascal"}, {"pas", "pascal"},
    {"proto", "protobuf"},
    {"tf", "hcl"},
    {"conf", "ini"}, {"toml", "ini"},
    {"properties", "properties"},
    {"mdx", "mdx"},
});
// clang-format on

}  // namespace tessary
