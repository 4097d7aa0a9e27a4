#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

/// Where the terminal of an agent session is to be found, as far as the capture service could tell.
struct AgentTerminalLocation {
  /// The terminal application.
  std::string appBundleIdentifier;
  std::optional<std::string> tty{};
  /// When the process began: a process with another beginning under the same `processID` is another one.
  std::optional<std::string> processStart{};
  std::optional<std::string> processStartIdentity{};
  std::optional<std::string> terminalSessionID{};
  std::optional<std::int32_t> processID{};

  bool operator==(const AgentTerminalLocation&) const = default;
};

template <>
struct JSONForm<AgentTerminalLocation> {
  static constexpr std::tuple fields{
      required("appBundleIdentifier", &AgentTerminalLocation::appBundleIdentifier),
      optional("tty", &AgentTerminalLocation::tty),
      optional("processStart", &AgentTerminalLocation::processStart),
      optional("processStartIdentity", &AgentTerminalLocation::processStartIdentity),
      optional("terminalSessionID", &AgentTerminalLocation::terminalSessionID),
      optional("processID", &AgentTerminalLocation::processID),
  };
};

}  // namespace tessary
