#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/application/FeedbackLink.h"
#include "support/TemporaryFolder.h"

namespace tessary {
namespace {

/// A folder that stands for the file system of a machine.
class Machine : public testing::TemporaryFolder {
 public:
  [[nodiscard]] FeedbackEnvironment environment() const { return FeedbackEnvironment::current({"1.4", "140"}, path()); }
};

TEST(FeedbackEnvironment, TellsTheDistributionTheKernelAndTheFirmwaresProductName) {
  const Machine machine;
  machine.write("etc/os-release",
                "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\nNAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n");
  machine.write("proc/sys/kernel/osrelease", "6.1.0-18-amd64\n");
  machine.write("sys/class/dmi/id/product_name", "20XW004AMX \n");
  const FeedbackEnvironment environment = machine.environment();
  EXPECT_EQ(environment.appVersion, "1.4");
  EXPECT_EQ(environment.build, "140");
#if defined(__x86_64__)
  EXPECT_EQ(environment.architecture, "x86_64");
#endif
  EXPECT_EQ(environment.macOS, "Debian GNU/Linux 12 (6.1.0-18-amd64)");
  EXPECT_EQ(environment.model, "20XW004AMX");
}

TEST(FeedbackEnvironment, SaysWhatItCanOfAMachineThatTellsNothing) {
  const Machine machine;
  EXPECT_EQ(machine.environment().macOS, "Linux");
  EXPECT_EQ(machine.environment().model, "unknown");
}

TEST(FeedbackEnvironment, ReadsTheDistributionsFileAsAShellWould) {
  const Machine machine;
  machine.write("etc/os-release", "# NAME=no\nNAME=Arch\nNAME='A \"b\" \\c'\nVERSION_ID=\nVERSION_IDX=9\n");
  EXPECT_EQ(machine.environment().macOS, "A \"b\" \\c");
  machine.write("etc/os-release", "NAME=\"A \\\"b\\\" \\$c\"\nVERSION_ID=7");
  EXPECT_EQ(machine.environment().macOS, "A \"b\" $c 7");
  machine.write("etc/os-release", "NAME=\"\nVERSION_ID='");
  EXPECT_EQ(machine.environment().macOS, "\" '");
}

TEST(FeedbackEnvironment, FindsTheFileOfTheDistributionInEitherPlace) {
  const Machine machine;
  machine.write("usr/lib/os-release", "NAME=Fedora\nVERSION_ID=40\n");
  EXPECT_EQ(machine.environment().macOS, "Fedora 40");
}

TEST(FeedbackEnvironment, FallsBackToTheDeviceTreesModel) {
  const Machine machine;
  machine.write("proc/device-tree/model", std::string_view("Raspberry Pi 5\0", 15));
  EXPECT_EQ(machine.environment().model, "Raspberry Pi 5");
}

TEST(FeedbackEnvironment, KeepsEachPartToOneLineOfBoundedLength) {
  const Machine machine;
  machine.write("sys/class/dmi/id/product_name",
                "a\nb\x01\xc2\x85"
                "c\x7f");
  EXPECT_EQ(machine.environment().model, "abc");
  for (const std::size_t count : {127U, 128U}) {
    machine.write("sys/class/dmi/id/product_name", std::string(count, 'x'));
    EXPECT_EQ(machine.environment().model.size(), count);
  }
  machine.write("sys/class/dmi/id/product_name", std::string(129, 'x'));
  EXPECT_EQ(machine.environment().model.size(), 128);
  machine.write("sys/class/dmi/id/product_name",
                "a\xff"
                "b");
  EXPECT_EQ(machine.environment().model, "a\ufffdb");
}

TEST(FeedbackEnvironment, ReadsTheFirst65536BytesOfAFile) {
  const Machine machine;
  const std::string line = "\nNAME=A";
  for (const std::size_t size : {65'535U, 65'536U}) {
    machine.write("etc/os-release", std::string(size - line.size(), '#') + line);
    EXPECT_EQ(machine.environment().macOS, "A") << size;
  }
  machine.write("etc/os-release", std::string(65'537 - line.size(), '#') + line);
  EXPECT_EQ(machine.environment().macOS, "Linux");
}

TEST(FeedbackEnvironment, WritesOneLineOfDiagnostics) {
  const FeedbackEnvironment environment{"1.4", "140", "x86_64", "Debian GNU/Linux 12 (6.1)", "ThinkPad"};
  EXPECT_EQ(environment.diagnosticsLine(), "Tessary 1.4 (140) · x86_64 · Debian GNU/Linux 12 (6.1) · ThinkPad");
}

std::string urlText(FeedbackKind kind, const FeedbackEnvironment& environment) {
  const auto url = FeedbackLink::url(kind, environment);
  return url ? url->text() : "absent";
}

TEST(FeedbackLink, FillsInVersionSystemAndModelForABug) {
  EXPECT_EQ(urlText(FeedbackKind::bug, {"1.4", "140", "x86_64", "Debian 12 (6.1)", "ThinkPad X1"}),
            std::string(FeedbackLink::repository) +
                "/issues/new?template=bug_report.yml&app-version=1.4%20140&macos-version=Debian%2012%20%286.1%29"
                "&mac-model=ThinkPad%20X1");
}

TEST(FeedbackLink, SendsTheVersionAloneWithAWish) {
  EXPECT_EQ(urlText(FeedbackKind::feature, {"1.4", "140", "x86_64", "Debian 12", "ThinkPad X1"}),
            std::string(FeedbackLink::repository) + "/issues/new?template=feature_request.yml&app-version=1.4%20140");
}

TEST(FeedbackLink, LetsNoTextLeaveItsField) {
  EXPECT_EQ(urlText(FeedbackKind::bug, {"+&=#", "", "", "a\xff\n가", "%?/:@!$'()*,;[]\\-._~"}),
            std::string(FeedbackLink::repository) +
                "/issues/new?template=bug_report.yml&app-version=%2B%26%3D%23%20&macos-version=a%EF%BF%BD%0A%EA%B0%80"
                "&mac-model=%25%3F%2F%3A%40%21%24%27%28%29%2A%2C%3B%5B%5D%5C-._~");
}

}  // namespace
}  // namespace tessary
