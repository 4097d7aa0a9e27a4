#pragma once

#include <optional>
#include <string>
#include <tuple>

#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/json/JSONRecordHash.h"

namespace tessary {

/// Where the content of a revision came from, in as much detail as the capture service could learn. Everything may be
/// absent, and texts are kept as the service wrote them.
struct DocumentRevisionProvenance {
  /// How sure the attribution is.
  std::optional<std::string> certainty{};
  std::optional<std::string> agent{};
  std::optional<std::string> profile{};
  std::optional<std::string> session{};
  /// The agent's own identifier.
  std::optional<std::string> agentId{};
  /// The tool call that wrote the content.
  std::optional<std::string> toolUseId{};
  std::optional<std::string> model{};
  /// The agent's working directory.
  std::optional<std::string> cwd{};
  std::optional<std::string> gitBranch{};
  /// What was done.
  std::optional<std::string> op{};
  /// ISO 8601.
  std::optional<std::string> timestamp{};
  /// The channel of the report.
  std::optional<std::string> via{};
  std::optional<std::string> agentVersion{};
  std::optional<std::string> entrypoint{};
  /// The attribution is disputed.
  std::optional<bool> contested{};
  /// What the attribution rests on.
  std::optional<std::string> evidence{};
  /// The application in which the agent ran.
  std::optional<std::string> host{};
  /// The agent's name as it is shown.
  std::optional<std::string> agentName{};
  /// The user made the edit.
  std::optional<bool> userEdit{};
  /// Who provides the model.
  std::optional<std::string> provider{};
  /// The model runs on the user's own machine.
  std::optional<bool> local{};

  bool operator==(const DocumentRevisionProvenance&) const = default;
};

template <>
struct JSONForm<DocumentRevisionProvenance> {
  static constexpr std::tuple fields{
      optional("certainty", &DocumentRevisionProvenance::certainty),
      optional("agent", &DocumentRevisionProvenance::agent),
      optional("profile", &DocumentRevisionProvenance::profile),
      optional("session", &DocumentRevisionProvenance::session),
      optional("agentId", &DocumentRevisionProvenance::agentId),
      optional("toolUseId", &DocumentRevisionProvenance::toolUseId),
      optional("model", &DocumentRevisionProvenance::model),
      optional("cwd", &DocumentRevisionProvenance::cwd),
      optional("gitBranch", &DocumentRevisionProvenance::gitBranch),
      optional("op", &DocumentRevisionProvenance::op),
      optional("timestamp", &DocumentRevisionProvenance::timestamp),
      optional("via", &DocumentRevisionProvenance::via),
      optional("agentVersion", &DocumentRevisionProvenance::agentVersion),
      optional("entrypoint", &DocumentRevisionProvenance::entrypoint),
      optional("contested", &DocumentRevisionProvenance::contested),
      optional("evidence", &DocumentRevisionProvenance::evidence),
      optional("host", &DocumentRevisionProvenance::host),
      optional("agentName", &DocumentRevisionProvenance::agentName),
      optional("userEdit", &DocumentRevisionProvenance::userEdit),
      optional("provider", &DocumentRevisionProvenance::provider),
      optional("local", &DocumentRevisionProvenance::local),
  };
};

}  // namespace tessary

template <>
struct std::hash<tessary::DocumentRevisionProvenance> : tessary::JSONRecordHash<tessary::DocumentRevisionProvenance> {};
