#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "TessaryPlatform/time/SystemTimeZone.h"
#include "TessaryPlatform/time/TimeZone.h"

namespace tessary {
namespace {

/// Sets TZ for one test and puts it back.
class SystemTimeZone : public testing::Test {
 protected:
  SystemTimeZone() {
    if (const char* const value = std::getenv("TZ")) before_ = value;
  }
  ~SystemTimeZone() override { set(before_ ? before_->c_str() : nullptr); }

  static void set(const char* value) {
    if (value == nullptr)
      ::unsetenv("TZ");
    else
      ::setenv("TZ", value, /*overwrite=*/1);
  }

 private:
  std::optional<std::string> before_;
};

struct Row {
  const char* variable;
  const char* identifier;
};

TEST_F(SystemTimeZone, IsTheOneThatTheVariableNames) {
  for (const auto& [variable, identifier] : {
           Row{"Europe/Berlin", "Europe/Berlin"},
           {":Asia/Seoul", "Asia/Seoul"},
           {"/usr/share/zoneinfo/America/Argentina/Ushuaia", "America/Argentina/Ushuaia"},
           {":/usr/share/zoneinfo/posix/Asia/Seoul", "Asia/Seoul"},
           {"/usr/share/zoneinfo/right/UTC", "UTC"},
           {"Etc/GMT+5", "Etc/GMT+5"},
           {"UTC", "UTC"},
           {"", "UTC"},
           {":", "UTC"},
       }) {
    set(variable);
    EXPECT_EQ(systemTimeZoneIdentifier(), identifier) << variable;
    EXPECT_TRUE(TimeZone::named(systemTimeZoneIdentifier())) << variable;
  }
}

TEST_F(SystemTimeZone, IsSomeZoneWhereTheVariableHoldsARule) {
  for (const char* variable :
       {"JST-9", "CET-1CEST,M3.5.0,M10.5.0/3", "<-03>3", "EST5EDT", "/nowhere", "/usr/share/zoneinfo/"}) {
    set(variable);
    EXPECT_TRUE(TimeZone::named(systemTimeZoneIdentifier())) << variable << " " << systemTimeZoneIdentifier();
  }
}

TEST_F(SystemTimeZone, IsThatOfTheMachineWithoutTheVariable) {
  set(nullptr);
  std::error_code error;
  const std::string target = std::filesystem::read_symlink("/etc/localtime", error).string();
  const std::string folder = "/zoneinfo/";
  if (target.find(folder) == std::string::npos) GTEST_SKIP() << "/etc/localtime is no link into the database";
  EXPECT_EQ(systemTimeZoneIdentifier(), target.substr(target.find(folder) + folder.size()));
}

TEST_F(SystemTimeZone, FollowsTheVariableAtEachCall) {
  set("Asia/Seoul");
  EXPECT_EQ(systemTimeZoneIdentifier(), "Asia/Seoul");
  set("Europe/Berlin");
  EXPECT_EQ(systemTimeZoneIdentifier(), "Europe/Berlin");
}

}  // namespace
}  // namespace tessary
