#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/json/JSONRecordHash.h"

namespace tessary {

/// The variant of an agent that a document came from: which agent, under which account, in which form of the product.
/// Shown as the source line of a document, "Claude · CLI · Work".
struct AgentSourceProfile {
  /// The agent's identifier: "claude", "codex"; "unknown" where nobody knows.
  std::string source;
  std::optional<std::string> sourceProfileID{};
  /// The name of the account, as its owner wrote it.
  std::optional<std::string> sourceProfileLabel{};
  /// "cli", "cowork", "desktop", "manual" or another word.
  std::optional<std::string> sourceKind{};
  /// How the identity was learnt.
  std::optional<std::string> profileIdentityOrigin{};
  /// Whether the identity was verified; absent is a third state.
  std::optional<bool> profileIdentityVerified{};

  bool operator==(const AgentSourceProfile&) const = default;

  /// A text that is different for different pairs, as the byte counts in it show where each text ends:
  /// "6:claude:profile:4:work", and "6:claude:legacy" without a profile.
  [[nodiscard]] static std::string key(std::string_view source, std::optional<std::string_view> profileID);

  /// The name of an agent's product, or what else made a document ("web", "services"), in the language in use where it
  /// is no proper name. Sources are compared exactly; one that is not known is its own title.
  [[nodiscard]] static std::string providerTitle(std::string_view source);

  /// The `key` of this profile.
  [[nodiscard]] std::string id() const { return key(source, sourceProfileID); }

  /// True where the identity is verified and the account's name is more than white space.
  [[nodiscard]] bool hasVerifiedAccountName() const;

  /// The form of the product, in the language in use: "CLI", "Cowork", words for a desktop application and a manual
  /// import, and one that says that it is not known.
  [[nodiscard]] std::string kindTitle() const;

  /// The account's name as its owner wrote it, blanks and all, where `hasVerifiedAccountName`; else a text that says
  /// that the account is not verified.
  [[nodiscard]] std::string accountTitle() const;

  /// The source line: the product's title (a text of its own for "unknown"), `kindTitle` and `accountTitle`, with " · "
  /// between them.
  [[nodiscard]] std::string displayName() const;
};

template <>
struct JSONForm<AgentSourceProfile> {
  static constexpr std::tuple fields{
      required("source", &AgentSourceProfile::source),
      optional("sourceProfileID", &AgentSourceProfile::sourceProfileID),
      optional("sourceProfileLabel", &AgentSourceProfile::sourceProfileLabel),
      optional("sourceKind", &AgentSourceProfile::sourceKind),
      optional("profileIdentityOrigin", &AgentSourceProfile::profileIdentityOrigin),
      optional("profileIdentityVerified", &AgentSourceProfile::profileIdentityVerified),
  };
};

}  // namespace tessary

template <>
struct std::hash<tessary::AgentSourceProfile> : tessary::JSONRecordHash<tessary::AgentSourceProfile> {};
