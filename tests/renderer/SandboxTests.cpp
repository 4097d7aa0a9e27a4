// The sandbox, from a small process that closes it around itself and then tries.

#include <cerrno>
#include <linux/landlock.h>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

#include "RendererProcess.h"

namespace tessary::testing {
namespace {

using Answers = std::map<std::string, int>;

/// What the probe says for each attempt.
Answers probe(std::string_view means) {
  const TemporaryFolder folder;
  folder.write("file", "x");
  const ProcessEnd end = runProcess({.program = TESSARY_SANDBOX_PROBE,
                                     .arguments = {std::string(means), folder.path().string()},
                                     .input = "",
                                     .environment = {},
                                     .beforeStart = {},
                                     .meanwhile = {},
                                     // No filter but its own.
                                     .lowersPriority = true});
  EXPECT_EQ(end.status, 0) << end.output;
  Answers answers;
  std::istringstream lines(end.output);
  std::string name;
  for (int error = 0; lines >> name >> error;)
    answers[name] = error;
  return answers;
}

/// Asked of the kernel by other means than the code under test uses.
bool kernelHasLandlock() {
  return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) > 0;
}
bool kernelHasFilters() {
  return ::prctl(PR_GET_SECCOMP) == 0;
}

const std::vector<std::string> fileAttempts = {"read-file", "write-file", "create-file", "read-folder", "make-folder"};
const std::vector<std::string> otherAttempts = {
    "new-process", "local-socket", "internet-socket", "be-traced",   "read-memory", "signal-parent", "kill-parent",
    "memory-file", "pipe",         "stat-file",       "raise-limit", "unshare",     "dumpable"};
const std::vector<std::string> neededAttempts = {"own-thread", "map-memory", "signal-self", "wait-for-signal",
                                                 "script"};

TEST(SandboxProbe, CanDoEverythingOutsideTheSandbox) {
  // The control: an attempt that fails here as well would prove nothing below.
  for (const auto& [name, answer] : probe("none"))
    EXPECT_EQ(answer, 0) << name;
}

TEST(SandboxProbe, IsRefusedEveryCallThatAScriptDoesNotNeed) {
  if (!kernelHasFilters()) GTEST_SKIP() << "this kernel has no system call filters";
  for (const char* means : {"filter", "whole"}) {
    Answers answers = probe(means);
    EXPECT_EQ(answers["closed-calls"], 1);
    for (const auto& attempts : {fileAttempts, otherAttempts}) {
      for (const std::string& name : attempts)
        EXPECT_EQ(answers.at(name), EPERM) << means << ": " << name;
    }
    EXPECT_NE(answers.at("start-program"), 0) << means;
    EXPECT_EQ(answers.at("older-thread"), EPERM) << "threads from before are bound too";
    for (const std::string& name : neededAttempts)
      EXPECT_EQ(answers.at(name), 0) << means << ": " << name;
  }
}

TEST(SandboxProbe, IsRefusedEveryFileByLandlockAlone) {
  if (!kernelHasLandlock()) GTEST_SKIP() << "this kernel has no Landlock";
  Answers answers = probe("files");
  EXPECT_EQ(answers["closed-files"], 1);
  for (const std::string& name : fileAttempts)
    EXPECT_EQ(answers.at(name), EACCES) << name;
  EXPECT_EQ(answers.at("start-program"), EACCES);
  for (const std::string& name : neededAttempts)
    EXPECT_EQ(answers.at(name), 0) << name;
}

TEST(SandboxProbe, GoesOnWhereTheKernelHasNoLandlock) {
  if (kernelHasLandlock()) GTEST_SKIP() << "this kernel has Landlock";
  Answers answers = probe("whole");
  EXPECT_EQ(answers["closed-files"], 0);
  EXPECT_EQ(answers["closed-calls"], kernelHasFilters() ? 1 : 0);
  EXPECT_EQ(answers.at("script"), 0);
}

}  // namespace
}  // namespace tessary::testing
