#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "TessaryPlatform/addresses/URL.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// How a document differs from its repository's last commit, as the capture service hands it to the interface. Nothing
/// in it has been checked: a link passes through `validatedGitHubURL` before it is opened.
struct GitDocumentComparison {
  /// Whether there is a comparison, and else why not.
  enum class Status : std::uint8_t {
    /// There is a comparison.
    available,
    /// The file is in no repository.
    noRepository,
    /// The repository has no commit with the file.
    noCommit,
    untracked,
    nonText,
    /// The file is too large to be compared.
    tooLarge,
    /// No comparison can be made.
    unavailable,
    /// The patch comes from an agent's session and not from Git.
    sessionPatch,
  };

  /// The host whose links are followed.
  static constexpr std::string_view gitHubHost = "github.com";

  Status status{};
  std::optional<std::string> repositoryRoot{};
  /// The file's path below `repositoryRoot`.
  std::optional<std::string> relativePath{};
  /// The commit that the file was compared with.
  std::optional<std::string> commit{};
  /// The content that the file had there.
  std::optional<std::string> baseline{};
  std::optional<std::string> githubFileURL{};
  std::optional<std::string> githubCommitURL{};
  /// The difference.
  std::optional<std::string> patch{};
  /// The agent and its session, for a patch of a session.
  std::optional<std::string> agent{};
  std::optional<std::string> session{};

  /// The address that `text` stands for, if it leads to GitHub and nowhere else: what `DocumentWebsiteURL::validated`
  /// accepts, over https, to `gitHubHost` itself and no host below it, and without a port, an empty one included.
  /// Scheme and host in any letter case. Absent otherwise.
  [[nodiscard]] static std::optional<URL> validatedGitHubURL(std::optional<std::string_view> text);

  bool operator==(const GitDocumentComparison&) const = default;
};

template <>
struct RawValues<GitDocumentComparison::Status> {
  using enum GitDocumentComparison::Status;
  static constexpr auto table = std::to_array<RawValueRow<GitDocumentComparison::Status>>({
      {available, "available"},
      {noRepository, "noRepository"},
      {noCommit, "noCommit"},
      {untracked, "untracked"},
      {nonText, "nonText"},
      {tooLarge, "tooLarge"},
      {unavailable, "unavailable"},
      {sessionPatch, "sessionPatch"},
  });
};

template <>
struct JSONForm<GitDocumentComparison> {
  static constexpr std::tuple fields{
      required("status", &GitDocumentComparison::status),
      optional("repositoryRoot", &GitDocumentComparison::repositoryRoot),
      optional("relativePath", &GitDocumentComparison::relativePath),
      optional("commit", &GitDocumentComparison::commit),
      optional("baseline", &GitDocumentComparison::baseline),
      optional("githubFileURL", &GitDocumentComparison::githubFileURL),
      optional("githubCommitURL", &GitDocumentComparison::githubCommitURL),
      optional("patch", &GitDocumentComparison::patch),
      optional("agent", &GitDocumentComparison::agent),
      optional("session", &GitDocumentComparison::session),
  };
};

}  // namespace tessary
