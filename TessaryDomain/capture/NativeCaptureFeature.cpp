#include "TessaryDomain/capture/NativeCaptureFeature.h"

#include <cstddef>

namespace tessary::NativeCaptureFeature {
namespace {

Modes everywhere(Mode mode) {
  Modes modes;
  for (const Stage stage : allCases<Stage>())
    modes[stage] = mode;
  return modes;
}

Mode modeOf(Stage stage, const Modes& modes) {
  const auto found = modes.find(stage);
  return found == modes.end() ? Mode::python : found->second;
}

/// Takes one "stage=mode" into `modes`; false if it is none. A second "=" is part of the mode, which has none.
bool readEntry(std::string_view entry, Modes& modes) {
  const std::size_t sign = entry.find('=');
  if (sign == std::string_view::npos) return false;
  const std::optional<Stage> stage = fromRawValue<Stage>(entry.substr(0, sign));
  const std::optional<Mode> mode = fromRawValue<Mode>(entry.substr(sign + 1));
  if (!stage || !mode) return false;
  modes[*stage] = *mode;
  return true;
}

}  // namespace

Modes app() {
  return everywhere(Mode::swiftOnly);
}

Modes modes(const std::map<std::string, std::string>& environment) {
  Modes modes = everywhere(Mode::python);
  const auto value = environment.find(std::string(environmentKey));
  if (value == environment.end()) return modes;
  if (const std::optional<Modes> chosen = parse(value->second)) {
    for (const auto& [stage, mode] : *chosen)
      modes[stage] = mode;
  }
  return modes;
}

std::optional<Modes> parse(std::string_view text) {
  Modes modes;
  if (text.empty()) return modes;
  for (;;) {
    const std::size_t comma = text.find(',');
    if (!readEntry(text.substr(0, comma), modes)) return std::nullopt;
    if (comma == std::string_view::npos) return modes;
    text.remove_prefix(comma + 1);
  }
}

Mode recordMode(Stage stage, const Modes& modes) {
  for (const Stage common : {Stage::merge, Stage::policy}) {
    if (modeOf(common, modes) == Mode::python) return Mode::python;
  }
  return modeOf(stage, modes);
}

Mode folders(const Modes& modes) {
  return recordMode(Stage::folders, modes);
}

}  // namespace tessary::NativeCaptureFeature
