#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/agents/AgentSessionObservation.h"
#include "support/SelectedLanguage.h"

namespace tessary {
namespace {

AgentSessionObservation inState(std::string_view state) {
  AgentSessionObservation observation;
  observation.state = state;
  return observation;
}

TEST(AgentSessionObservation, ItsConnectionIsUnverifiedOnlyWhereItsLivenessIsUnknown) {
  AgentSessionObservation observation;
  EXPECT_FALSE(observation.connectionUnverified());
  for (const char* liveness : {"", "alive", "Unknown", "unknown ", "dead"}) {
    observation.liveness = liveness;
    EXPECT_FALSE(observation.connectionUnverified()) << liveness;
  }
  observation.liveness = "unknown";
  EXPECT_TRUE(observation.connectionUnverified());
}

TEST(AgentSessionObservation, ItsProjectIsNamedByTheLastComponentOfItsRoot) {
  AgentSessionObservation observation;
  for (const auto& [root, name] : std::vector<std::pair<std::string, std::string_view>>{{"/Users/someone/tea", "tea"},
                                                                                        {"/Users/someone/tea/", "tea"},
                                                                                        {"/a/찻집.d", "찻집.d"},
                                                                                        {"tea", "tea"},
                                                                                        {"/", "/"},
                                                                                        {"", ""}}) {
    observation.projectRoot = root;
    EXPECT_EQ(observation.projectName(), name) << root;
  }
}

TEST(AgentSessionObservation, EachStateHasALabel) {
  const testing::SelectedLanguage korean("ko");
  for (const auto& [state, label] :
       std::vector<std::pair<std::string_view, std::string_view>>{{"running", "실행 중"},
                                                                  {"idle", "대기 중"},
                                                                  {"open", "열림"},
                                                                  {"waiting", "입력 대기 중"},
                                                                  {"failed", "오류"},
                                                                  {"ended", "종료됨"},
                                                                  {"unknown", "상태 미확인"},
                                                                  {"", "상태 미확인"},
                                                                  {"Running", "상태 미확인"},
                                                                  {"of a later version", "상태 미확인"}}) {
    EXPECT_EQ(inState(state).stateLabel(), label) << state;
  }
}

TEST(AgentSessionObservation, ItsLabelIsInTheLanguageInUse) {
  const testing::SelectedLanguage english("en");
  EXPECT_EQ(inState("running").stateLabel(), "Running");
  EXPECT_EQ(inState("no such state").stateLabel(), "Unknown state");
}

}  // namespace
}  // namespace tessary
