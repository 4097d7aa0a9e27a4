#pragma once

#include <array>
#include <string_view>

#include "TessaryDomain/capture/CaptureTemporaryScope.h"
#include "TessaryDomain/capture/WordSet.h"

/// What is never a document, as its path alone tells. The user has no say in it, but for temporary documents.
namespace tessary::CaptureRules {

/// Folded names of files that hold secrets, or all that was said.
// clang-format off
inline constexpr WordSet credentialFiles(std::to_array<std::string_view>({
    "auth.json",
    "credentials.json", "credentials.yaml", "credentials.yml",
    "tokens.json",
    "secrets.json", "secrets.yaml", "secrets.yml",
    "id_rsa", "id_ed25519",
    "cookie", "cookies.sqlite",
    ".npmrc", ".pypirc", ".netrc", ".git-credentials", ".dockercfg",
    "history.jsonl",
    "client_secret.json",
}));
// clang-format on

/// Folded suffixes of keys and certificates.
inline constexpr WordSet keySuffixes(std::to_array<std::string_view>({".pem", ".key", ".p8", ".p12", ".pfx",
                                                                      ".keystore", ".kdbx", ".mobileprovision"}));

/// Folded suffixes of what compilers make.
inline constexpr WordSet systemBinarySuffixes(std::to_array<std::string_view>(
    {".dylib", ".so", ".a", ".o", ".pyc", ".pyo", ".class", ".swiftmodule", ".swiftdoc"}));

/// Folded suffixes of files in which programs are configured, and so secrets are kept. A name without a suffix is one.
inline constexpr WordSet configSuffixes(std::to_array<std::string_view>(
    {"", ".json", ".jsonc", ".yaml", ".yml", ".toml", ".ini", ".cfg", ".conf", ".txt", ".properties"}));

/// True if the file of this path must never become a document: it holds secrets, is a binary, is an agent's own, or
/// lies in a temporary folder and is no `temporaryDocument`, or none is wanted (`temporaryDocuments` false). Paths are
/// of any bytes. Most are answered without an allocation.
[[nodiscard]] bool excludedArtifact(std::string_view path, const CaptureTemporaryScope& scope, bool temporaryDocuments);

}  // namespace tessary::CaptureRules
