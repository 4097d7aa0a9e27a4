// What a crash beside or within the telling of an end does to it.

#include <csignal>
#include <string>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "TessaryRenderer/CrashExit.h"
#include "TessaryRenderer/FailureExit.h"

namespace tessary {
namespace {

/// Becomes a process with a crash exit, whose standard output is the standard error that a death test reads.
void begin() {
  ::dup2(STDERR_FILENO, STDOUT_FILENO);
  CrashExit::install();
}

void tellResult() {
  (void)!::write(STDOUT_FILENO, "{}", 2);
}

/// Crashes in another thread, and waits long enough for that to be dealt with.
void crashBeside() {
  std::thread([] { ::raise(SIGABRT); }).detach();
  ::usleep(100'000);
}

TEST(CrashExitDeathTest, TellsTheGeneralFailureOnce) {
  EXPECT_EXIT(
      {
        begin();
        ::raise(SIGABRT);
      },
      ::testing::ExitedWithCode(FailureExit::status), R"(^\{"error":"Invalid renderer input or assets\."\}$)");
}

TEST(CrashExitDeathTest, IsNotTakenByAThreadBesideOneThatIsTellingItsResult) {
  EXPECT_EXIT(
      {
        begin();
        CrashExit::claimOutput();
        crashBeside();
        tellResult();
        ::_exit(0);
      },
      ::testing::ExitedWithCode(0), R"(^\{\}$)");
}

TEST(CrashExitDeathTest, AddsNothingWithinTheTellingOfAResult) {
  EXPECT_EXIT(
      {
        begin();
        CrashExit::claimOutput();
        tellResult();
        ::raise(SIGABRT);
      },
      ::testing::ExitedWithCode(FailureExit::status), R"(^\{\}$)");
}

TEST(CrashExitDeathTest, KeepsTheOutputThatItHasTaken) {
  // A full pipe holds the crash up in its writing, until this thread has come to its own telling and must not return.
  EXPECT_EXIT(
      {
        begin();
        int ends[2];
        if (::pipe(ends) != 0) ::_exit(100);
        ::dup2(ends[1], STDOUT_FILENO);
        const std::string full(65'536, ' ');
        if (::write(ends[1], full.data(), full.size()) != 65'536) ::_exit(101);
        crashBeside();
        std::thread([&] {
          ::usleep(100'000);
          std::string read(full.size(), '\0');
          (void)!::read(ends[0], read.data(), read.size());
        }).detach();
        CrashExit::claimOutput();
        ::_exit(0);
      },
      ::testing::ExitedWithCode(FailureExit::status), "^$");
}

}  // namespace
}  // namespace tessary
