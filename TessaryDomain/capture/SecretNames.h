#pragma once

#include <string_view>

/// Names under which people keep secrets. Each is a regular expression, which is the authority, and is not run: the
/// test that stands for it takes linear time on names of any length, allocates nothing, and gives the same answer for
/// any bytes. Names are folded (`PythonText::casefold`) before they are asked about.
namespace tessary::SecretNames {

/// A word for a secret, alone or behind "-", "_" or ".", with the name of an environment behind it or not.
inline constexpr std::string_view credentialNamePattern =
    R"(\A(?:(?:[^\n]*[-_.])?(?:secrets?|credentials?|tokens?|auth|api[-_]?key|service[-_]account))"
    R"((?:[-_.](?:dev|development|prod|production|staging|stage|test|testing|local|qa|ci|preview|sandbox))?)\z)";

/// The name that a key of SSH is given when it is made, with something behind "-", "_" or "." or not.
inline constexpr std::string_view sshKeyNamePattern = R"(\A(?:id_(?:rsa|ed25519|ecdsa|dsa)(?:[-_.][^\n]*)?)\z)";

/// True if `credentialNamePattern` matches the name without its suffix.
[[nodiscard]] bool isCredentialName(std::string_view stem) noexcept;

/// True if `sshKeyNamePattern` matches the name.
[[nodiscard]] bool isSSHKeyName(std::string_view name) noexcept;

}  // namespace tessary::SecretNames
