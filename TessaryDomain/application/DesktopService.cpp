#include "TessaryDomain/application/DesktopService.h"

#include "TessaryLocalization/L10n.h"

namespace tessary {
namespace {

std::string_view notificationKey(std::string_view authorization) {
  if (authorization == "authorized" || authorization == "provisional" || authorization == "ephemeral") return "허용됨";
  if (authorization == "denied") return "허용 안 됨";
  if (authorization == "notDetermined") return "아직 요청하지 않음";
  return "현재 실행 환경에서 사용할 수 없음";
}

}  // namespace

std::string DesktopServiceStatus::notificationLabel() const {
  return L10n::text(notificationKey(notificationAuthorization));
}

}  // namespace tessary
