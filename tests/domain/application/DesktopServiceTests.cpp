#include <map>
#include <string>

#include <gtest/gtest.h>

#include "TessaryDomain/application/AppUninstall.h"
#include "TessaryDomain/application/DesktopService.h"
#include "TessaryLocalization/L10n.h"

namespace tessary {
namespace {

TEST(DesktopServiceStatus, NamesTheStateOfTheNotificationPermission) {
  const std::map<std::string, std::string> keys = {
      {"authorized", "허용됨"},
      {"provisional", "허용됨"},
      {"ephemeral", "허용됨"},
      {"denied", "허용 안 됨"},
      {"notDetermined", "아직 요청하지 않음"},
      {"", "현재 실행 환경에서 사용할 수 없음"},
      {"Authorized", "현재 실행 환경에서 사용할 수 없음"},
      {"denied ", "현재 실행 환경에서 사용할 수 없음"},
      {"\xff", "현재 실행 환경에서 사용할 수 없음"},
  };
  for (const auto& [authorization, key] : keys) {
    DesktopServiceStatus status;
    status.notificationAuthorization = authorization;
    EXPECT_EQ(status.notificationLabel(), L10n::text(key)) << authorization;
  }
}

TEST(DesktopNotification, NamesTheFieldsOfItsUserData) {
  EXPECT_EQ(DesktopNotification::documentIDKey, "documentID");
  EXPECT_EQ(DesktopNotification::revisionIDKey, "revisionID");
}

TEST(AppUninstall, HasItsStepsInTheOrderOfExecution) {
  std::string names;
  for (const auto step : allCases<AppUninstallStepResult::Step>())
    names.append(rawValue(step)).append(" ");
  EXPECT_EQ(names, "agentHooks loginItem dataDirectory supportItems applicationBundle ");
}

TEST(AppUninstall, IdentifiesAResultByItsStep) {
  const AppUninstallStepResult result{.step = AppUninstallStepResult::Step::loginItem,
                                      .outcome = AppUninstallStepResult::Outcome::failed,
                                      .detail = "busy"};
  EXPECT_EQ(result.id(), AppUninstallStepResult::Step::loginItem);
}

}  // namespace
}  // namespace tessary
