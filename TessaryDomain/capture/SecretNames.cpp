#include "TessaryDomain/capture/SecretNames.h"

#include <algorithm>
#include <array>

namespace tessary::SecretNames {

namespace {

constexpr std::string_view separators = "-_.";

/// What secrets?|credentials?|tokens?|auth|api[-_]?key|service[-_]account stands for.
constexpr auto secretWords = std::to_array<std::string_view>({
    "secret", "secrets",                   //
    "credential", "credentials",           //
    "token", "tokens",                     //
    "auth",                                //
    "apikey", "api-key", "api_key",        //
    "service-account", "service_account",  //
});

constexpr auto environments =
    std::to_array<std::string_view>({"dev", "development", "prod", "production", "staging", "stage", "test", "testing",
                                     "local", "qa", "ci", "preview", "sandbox"});

constexpr auto sshKeyKinds = std::to_array<std::string_view>({"rsa", "ed25519", "ecdsa", "dsa"});

/// (?:[^\n]*[-_.])? before the word, to the end of the text. No word holds a U+000A, so that it is looked for in all.
bool endsInSecretWord(std::string_view text) {
  const auto isAtEnd = [text](std::string_view word) {
    if (!text.ends_with(word)) return false;
    const std::string_view before = text.substr(0, text.size() - word.size());
    return before.empty() || separators.contains(before.back());
  };
  return std::ranges::any_of(secretWords, isAtEnd) && !text.contains('\n');
}

}  // namespace

bool isCredentialName(std::string_view stem) noexcept {
  if (endsInSecretWord(stem)) return true;
  // No environment holds a separator: if one is named, it is what stands behind the last.
  const std::size_t separator = stem.find_last_of(separators);
  return separator != std::string_view::npos &&
         std::ranges::find(environments, stem.substr(separator + 1)) != environments.end() &&
         endsInSecretWord(stem.substr(0, separator));
}

bool isSSHKeyName(std::string_view name) noexcept {
  if (!name.starts_with("id_")) return false;
  const std::string_view key = name.substr(3);
  // No kind begins another, so that at most one fits.
  const auto* const kind =
      std::ranges::find_if(sshKeyKinds, [key](std::string_view word) { return key.starts_with(word); });
  if (kind == sshKeyKinds.end()) return false;
  const std::string_view behind = key.substr(kind->size());
  return behind.empty() || (separators.contains(behind.front()) && !behind.contains('\n'));
}

}  // namespace tessary::SecretNames
