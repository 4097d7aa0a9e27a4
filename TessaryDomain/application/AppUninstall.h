#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// What an uninstall is going to remove. Paths are absolute; what is absent or empty is not there or stays.
struct AppUninstallPlan {
  /// The folder of the library and the settings.
  std::optional<std::string> dataDirectory;
  /// Caches, preferences and other files that the system keeps for the product.
  std::vector<std::string> supportItems;
  /// The application itself.
  std::optional<std::string> applicationBundle;

  bool operator==(const AppUninstallPlan&) const = default;
};

/// What became of one step of an uninstall.
struct AppUninstallStepResult {
  /// The steps in the order in which they are carried out: what would call into the product goes first, the product
  /// itself last.
  enum class Step : std::uint8_t { agentHooks, loginItem, dataDirectory, supportItems, applicationBundle };
  /// Carried out, left out on purpose, or tried in vain.
  enum class Outcome : std::uint8_t { done, skipped, failed };

  Step step{};
  Outcome outcome{};
  /// What a reader of the report should know beside the outcome, such as the reason of a failure.
  std::optional<std::string> detail;

  /// A report has one result for each step.
  [[nodiscard]] Step id() const { return step; }

  bool operator==(const AppUninstallStepResult&) const = default;
};

template <>
struct RawValues<AppUninstallStepResult::Step> {
  using enum AppUninstallStepResult::Step;
  static constexpr auto table = std::to_array<RawValueRow<AppUninstallStepResult::Step>>({
      {agentHooks, "agentHooks"},
      {loginItem, "loginItem"},
      {dataDirectory, "dataDirectory"},
      {supportItems, "supportItems"},
      {applicationBundle, "applicationBundle"},
  });
};

}  // namespace tessary
