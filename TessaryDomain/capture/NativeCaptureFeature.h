#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryPlatform/values/RawValue.h"

/// Which stage of capture runs in which engine. Capture moves from an engine in Python to the native one stage by
/// stage: while a stage moves, both engines run and `CaptureShadowReport` keeps how they compared.
namespace tessary::NativeCaptureFeature {

/// The stages: the two that all records go through, then one for each agent or place that records come from.
enum class Stage : std::uint8_t { merge, policy, claude, codex, hermes, gemini, folders };

/// Which engines run a stage.
enum class Mode : std::uint8_t {
  /// The Python engine alone.
  python,
  /// Both engines: Python decides, the native one is compared with it.
  swift,
  /// The native engine alone.
  swiftOnly,
};

/// A stage that is missing runs in `Mode::python`.
using Modes = std::map<Stage, Mode>;

/// The environment variable with the user's choice, as `parse` reads it.
inline constexpr std::string_view environmentKey = "TESSARY_NATIVE_CAPTURE";

/// What the application itself uses: every stage in the native engine alone.
[[nodiscard]] Modes app();

/// The mode of every stage by the environment; `python` where it says nothing. A value that `parse` refuses says
/// nothing at all: a typing mistake never turns the native engine on.
[[nodiscard]] Modes modes(const std::map<std::string, std::string>& environment);

/// The modes in a text such as "merge=swift,policy=swift,folders=swiftOnly": raw values, exact, without blanks. The
/// last entry for a stage counts. Empty for an empty text; absent where any entry, an empty one too, is wrong.
[[nodiscard]] std::optional<Modes> parse(std::string_view text);

/// The mode in which the records of a stage are handled. Natively only where the stages `merge` and `policy`, through
/// which all records go, are not in Python.
[[nodiscard]] Mode recordMode(Stage stage, const Modes& modes);

/// `recordMode` of the stage `folders`.
[[nodiscard]] Mode folders(const Modes& modes);

}  // namespace tessary::NativeCaptureFeature

template <>
struct tessary::RawValues<tessary::NativeCaptureFeature::Stage> {
  using Stage = NativeCaptureFeature::Stage;
  static constexpr auto table = std::to_array<RawValueRow<Stage>>({
      {Stage::merge, "merge"},
      {Stage::policy, "policy"},
      {Stage::claude, "claude"},
      {Stage::codex, "codex"},
      {Stage::hermes, "hermes"},
      {Stage::gemini, "gemini"},
      {Stage::folders, "folders"},
  });
};

template <>
struct tessary::RawValues<tessary::NativeCaptureFeature::Mode> {
  using Mode = NativeCaptureFeature::Mode;
  static constexpr auto table = std::to_array<RawValueRow<Mode>>({
      {Mode::python, "python"},
      {Mode::swift, "swift"},
      {Mode::swiftOnly, "swiftOnly"},
  });
};
