#include "TessaryDomain/agents/AgentSessionObservation.h"

#include <algorithm>
#include <array>

#include "TessaryLocalization/L10n.h"
#include "TessaryPlatform/paths/Paths.h"

namespace tessary {

namespace {

struct StateRow {
  std::string_view state;
  std::string_view titleKey;
};

constexpr auto states = std::to_array<StateRow>({
    {"running", "실행 중"},
    {"idle", "대기 중"},
    {"open", "열림"},
    {"waiting", "입력 대기 중"},
    {"failed", "오류"},
    {"ended", "종료됨"},
});

/// Also the title of "unknown".
constexpr std::string_view unknownStateKey = "상태 미확인";

}  // namespace

std::string_view AgentSessionObservation::projectName() const {
  return Paths::lastComponent(projectRoot);
}

std::string AgentSessionObservation::stateLabel() const {
  const auto row = std::ranges::find(states, state, &StateRow::state);
  return L10n::text(row == states.end() ? unknownStateKey : row->titleKey);
}

}  // namespace tessary
