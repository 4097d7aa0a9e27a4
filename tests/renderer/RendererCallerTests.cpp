// The promises of the process hold against the parent that starts it: whatever descriptors, signals, limits, timers and
// environment it leaves to its child.

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RendererProcess.h"

namespace tessary::testing {
namespace {

using ::testing::HasSubstr;

constexpr std::string_view renderNothing = "var TessaryOfflineRenderer = {render() { return {}; }};";

/// Runs a script with something done to the child before it starts.
ProcessEnd runAfter(const std::function<void()>& beforeStart, std::string_view script = renderNothing,
                    std::vector<std::string> environment = {}) {
  const TemporaryFolder folder;
  folder.write("renderer.js", script);
  ProcessStart start = rendererStart(folder.path());
  start.beforeStart = beforeStart;
  start.environment = std::move(environment);
  return runProcess(start);
}

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The end of a run that could tell its failure to nobody.
const ProcessEnd failedInSilence{.status = 1, .signal = 0, .output = "", .errors = ""};

TEST(StandardOutput, ThatIsClosedIsAFailureAndNoSignal) {
  EXPECT_EQ(runAfter([] { ::close(STDOUT_FILENO); }), failedInSilence);
}

TEST(StandardOutput, ThatCannotBeWrittenIsAFailure) {
  EXPECT_EQ(runAfter([] { ::dup2(::open("/dev/null", O_RDONLY), STDOUT_FILENO); }), failedInSilence);
  EXPECT_EQ(runAfter([] { ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO); }), failedInSilence);
}

TEST(StandardOutput, WithoutAReaderIsAFailureAndNoSignal) {
  EXPECT_EQ(runAfter([] {
              int ends[2];
              if (::pipe2(ends, O_CLOEXEC) != 0) return;
              ::dup2(ends[1], STDOUT_FILENO);
              ::close(ends[0]);
            }),
            failedInSilence);
}

TEST(StandardOutput, AboveTheFileSizeLimitIsAFailureAndNoSignal) {
  const TemporaryFolder folder;
  const std::string path = folder.path() / "output";
  EXPECT_EQ(runAfter(
                [&] {
                  ::dup2(::open(path.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
                  constexpr rlimit tenBytes{10, 10};
                  ::setrlimit(RLIMIT_FSIZE, &tenBytes);
                },
                "var TessaryOfflineRenderer = {render: () => ({a: 'x'.repeat(100)})};"),
            failedInSilence);
  EXPECT_EQ(contentsOf(path).size(), 10U) << "what fits is written, and its status says that it is no result";
}

TEST(StandardOutput, IsWrittenWholeToASlowReaderThroughAPipeThatDoesNotBlock) {
  const TemporaryFolder folder;
  folder.write("renderer.js", "var TessaryOfflineRenderer = {render: () => ({a: 'x'.repeat(1e6)})};");
  ProcessStart start = rendererStart(folder.path());
  start.beforeStart = [] { ::fcntl(STDOUT_FILENO, F_SETFL, O_NONBLOCK); };
  // The parent comes to read only when the pipe has long been full.
  start.meanwhile = [](int) { std::this_thread::sleep_for(std::chrono::milliseconds(300)); };
  EXPECT_EQ(runProcess(start), succeededWith("{\"a\":\"" + std::string(1'000'000, 'x') + "\"}"));
}

TEST(StandardInput, ThatCannotBeReadIsTheGeneralFailure) {
  EXPECT_EQ(runAfter([] { ::close(STDIN_FILENO); }), failedWith(generic));
  EXPECT_EQ(runAfter([] { ::dup2(::open("/", O_RDONLY), STDIN_FILENO); }), failedWith(generic));
  EXPECT_EQ(runAfter([] { ::dup2(::open("/dev/null", O_WRONLY), STDIN_FILENO); }), failedWith(generic));
}

TEST(StandardInput, ThatDoesNotBlockIsWaitedFor) {
  const TemporaryFolder folder;
  folder.write("renderer.js", renderNothing);
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  std::thread writer([&] {
    for (const char* piece : {"{\"a\":", "1}"}) {
      std::this_thread::sleep_for(std::chrono::milliseconds(150));
      (void)!::write(ends[1], piece, std::string_view(piece).size());
    }
    ::close(ends[1]);
  });
  ProcessStart start = rendererStart(folder.path());
  start.beforeStart = [&] {
    ::dup2(ends[0], STDIN_FILENO);
    ::fcntl(STDIN_FILENO, F_SETFL, O_NONBLOCK);
  };
  EXPECT_EQ(runProcess(start), succeededWith("{}"));
  writer.join();
  ::close(ends[0]);
}

TEST(StandardDescriptors, MayAllBeClosedAndNoFileTakesTheirPlace) {
  const TemporaryFolder folder;
  const std::string script = "var TessaryOfflineRenderer = {render: () => ({written: 'over the script'})};";
  folder.write("renderer.js", script);
  for (const std::vector<int>& closed : std::vector<std::vector<int>>{{0, 1, 2}, {1, 2}, {0, 1}, {1}}) {
    ProcessStart start = rendererStart(folder.path());
    start.beforeStart = [&] {
      for (const int descriptor : closed)
        ::close(descriptor);
    };
    EXPECT_EQ(runProcess(start), failedInSilence);
  }
  EXPECT_EQ(contentsOf(folder.path() / "renderer.js"), script);
  ProcessStart start = rendererStart(folder.path());
  start.beforeStart = [] { ::close(STDERR_FILENO); };
  EXPECT_EQ(runProcess(start), succeededWith(R"({"written":"over the script"})"));
}

TEST(StandardError, StaysEmptyWhateverTheEngineHasToSay) {
  const std::vector<std::string> talkative = {"JSC_dumpOptions=3", "JSC_noSuchOption=1",       "JSC_useJIT=perhaps",
                                              "JSC_logGC=2",       "JSC_reportCompileTimes=1", "G_MESSAGES_DEBUG=all"};
  EXPECT_EQ(runAfter({}, renderNothing, talkative), succeededWith("{}"));
}

TEST(Environment, HasNoEngineOptionsInIt) {
  const std::string script =
      "var TessaryOfflineRenderer = {render: () => ({wasm: typeof WebAssembly, length: (() => { let depth = 0;"
      "const f = () => { ++depth; f(); }; try { f(); } catch {} return depth > 5000; })()})};";
  const ProcessEnd expected = succeededWith(R"({"length":true,"wasm":"object"})");
  EXPECT_EQ(runAfter({}, script), expected);
  EXPECT_EQ(runAfter({}, script, {"JSC_useWebAssembly=0", "JSC_maxPerThreadStackUsage=131072", "JSC_useJIT=0"}),
            expected);
}

TEST(Environment, StillTellsTheTimeZoneAndNoLocale) {
  const std::string script =
      "var TessaryOfflineRenderer = {render: () => ({offset: new Date(0).getTimezoneOffset(),"
      " zone: new Intl.DateTimeFormat().resolvedOptions().timeZone, number: (1234.5).toLocaleString()})};";
  EXPECT_EQ(runAfter({}, script, {"TZ=Asia/Seoul", "LC_ALL=de_DE.UTF-8"}),
            succeededWith(R"({"number":"1,234.5","offset":-540,"zone":"Asia/Seoul"})"));
  EXPECT_EQ(runAfter({}, script, {"TZ=America/Sao_Paulo"}),
            succeededWith(R"({"number":"1,234.5","offset":180,"zone":"America/Sao_Paulo"})"));
}

TEST(Environment, MayHoldAnything) {
  std::vector<std::string> odd = {"",
                                  "=",
                                  "=x",
                                  "NOEQUALS",
                                  "TZ",
                                  "TZ=\xFF/../..",
                                  "LC_ALL=\xFF\xFE",
                                  "LANG=",
                                  "JSC_",
                                  "JSC_=1",
                                  "LC_=1",
                                  "LC_X=" + std::string(100'000, 'x')};
  EXPECT_EQ(runAfter({}, renderNothing, odd), succeededWith("{}"));
}

TEST(Timers, OfTheParentDoNotReachTheRun) {
  // Busy for longer than each of them.
  const std::string script =
      "const begin = Date.now(); while (Date.now() - begin < 1300); "
      "var TessaryOfflineRenderer = {render: () => ({})};";
  EXPECT_EQ(runAfter(
                [] {
                  constexpr itimerval soon{{0, 0}, {0, 500'000}};
                  ::setitimer(ITIMER_VIRTUAL, &soon, nullptr);
                  ::setitimer(ITIMER_PROF, &soon, nullptr);
                  ::alarm(1);
                },
                script),
            succeededWith("{}"));
}

void leavePending(int signal) {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, signal);
  sigprocmask(SIG_BLOCK, &set, nullptr);
  ::raise(signal);
}

TEST(Signals, LeftPendingByTheParentDoNotEndTheRun) {
  for (const int signal : {SIGALRM, SIGUSR1, SIGVTALRM, SIGPROF})
    EXPECT_EQ(runAfter([=] { leavePending(signal); }), succeededWith("{}")) << signal;
}

TEST(Signals, BlockedOrIgnoredByTheParentStillServeTheEngine) {
  // The engine stops its threads with SIGUSR1 to collect, and learns of WebAssembly's traps by SIGSEGV.
  EXPECT_EQ(runAfter(
                [] {
                  sigset_t all;
                  sigfillset(&all);
                  sigprocmask(SIG_SETMASK, &all, nullptr);
                  for (const int signal : {SIGUSR1, SIGSEGV, SIGBUS, SIGPIPE, SIGCHLD})
                    ::signal(signal, SIG_IGN);
                },
                "let keep = []; for (let i = 0; i < 1e6; ++i) keep[i % 100] = {i, a: [i]};"
                "var TessaryOfflineRenderer = {render: () => ({})};"),
            succeededWith("{}"));
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif
#else
constexpr bool isSanitized = false;
#endif

TEST(Limits, OfTheParentAreRaisedWhereTheyMayBe) {
  if (isSanitized) GTEST_SKIP() << "the sanitizer itself needs more addresses than this";
  EXPECT_EQ(runAfter([] {
              for (const __rlimit_resource resource : {RLIMIT_AS, RLIMIT_DATA}) {
                rlimit limit{};
                ::getrlimit(resource, &limit);
                limit.rlim_cur = 1 << 30;
                ::setrlimit(resource, &limit);
              }
            }),
            succeededWith("{}"));
}

TEST(Limits, ThatTheEngineCannotLiveWithEndInAFailureAndNoSignal) {
  if (isSanitized) GTEST_SKIP() << "the sanitizer itself needs more addresses than this";
  EXPECT_EQ(runAfter([] {
              constexpr rlimit oneGigabyte{1 << 30, 1 << 30};
              ::setrlimit(RLIMIT_AS, &oneGigabyte);
            }),
            failedWith(generic));
}

TEST(Limits, OfTheMainStackAreNotThoseOfTheEnginesThreads) {
  if (isSanitized) GTEST_SKIP() << "the sanitizer itself needs a larger stack than this";
  // Hot enough to be compiled, which other threads do.
  EXPECT_EQ(runAfter(
                [] {
                  constexpr rlimit smallestOfAThread{16'384, RLIM_INFINITY};
                  ::setrlimit(RLIMIT_STACK, &smallestOfAThread);
                },
                "let sum = 0; const f = i => ({v: i}).v; for (let i = 0; i < 1e6; ++i) sum += f(i);"
                "var TessaryOfflineRenderer = {render: () => ({sum})};"),
            succeededWith(R"({"sum":499999500000})"));
}

/// The value of a field of /proc/<process>/status.
std::string statusField(int process, const std::string& name) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name + ":\t")) return line.substr(name.size() + 2);
  }
  return "";
}

/// Calls `look` until it says yes, for as long as a run lasts.
bool eventually(const std::function<bool()>& look) {
  for (int attempt = 0; attempt < 760; ++attempt) {
    if (look()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return false;
}

/// A start of a run that stands still inside its asset, to be looked at there and then ended by SIGTERM. It is left its
/// own low priority and has no system call filter but its own.
ProcessStart standingStart(const TemporaryFolder& folder) {
  folder.write("renderer.js", "for (;;);");
  ProcessStart start = rendererStart(folder.path());
  start.lowersPriority = true;
  return start;
}

const ProcessEnd endedByTheTest{.status = -1, .signal = SIGTERM, .output = "", .errors = ""};

TEST(Process, GivesUpItsRightsBeforeTheAssetRuns) {
  const std::string filterOfThisTest = statusField(::getpid(), "Seccomp");
  if (filterOfThisTest.empty()) GTEST_SKIP() << "this kernel has no system call filters";
  const TemporaryFolder folder;
  ProcessStart start = standingStart(folder);
  start.meanwhile = [](int child) {
    EXPECT_TRUE(eventually([&] { return statusField(child, "Seccomp") == "2"; }));
    EXPECT_EQ(statusField(child, "NoNewPrivs"), "1");
    const std::filesystem::path threads = "/proc/" + std::to_string(child) + "/task";
    std::size_t count = 0;
    for (const auto& thread : std::filesystem::directory_iterator(threads)) {
      EXPECT_EQ(statusField(std::stoi(thread.path().filename()), "Seccomp"), "2") << thread;
      ++count;
    }
    EXPECT_GE(count, 1U);
    EXPECT_EQ(::getpriority(PRIO_PROCESS, static_cast<id_t>(child)), 15);
    struct stat owner{};
    EXPECT_EQ(::stat(("/proc/" + std::to_string(child) + "/environ").c_str(), &owner), 0);
    EXPECT_EQ(owner.st_uid, 0U) << "what cannot be dumped belongs to root";
    std::ifstream limits("/proc/" + std::to_string(child) + "/limits");
    const std::string text{std::istreambuf_iterator<char>(limits), std::istreambuf_iterator<char>()};
    EXPECT_THAT(text, ::testing::ContainsRegex("Max core file size +0 +0"));
    ::kill(child, SIGTERM);
  };
  EXPECT_EQ(runProcess(start), endedByTheTest);
}

TEST(Process, KeepsNoDescriptorOfItsParent) {
  const TemporaryFolder folder;
  folder.write("secret", "secret");
  ProcessStart start = standingStart(folder);
  const std::string secret = folder.path() / "secret";
  start.beforeStart = [&] { ::dup2(::open(secret.c_str(), O_RDONLY), 77); };
  start.meanwhile = [&](int child) {
    const std::filesystem::path descriptors = "/proc/" + std::to_string(child) + "/fd";
    // Once the engine runs, it has opened its own.
    EXPECT_TRUE(eventually([&] { return statusField(child, "NoNewPrivs") == "1"; }));
    for (const auto& descriptor : std::filesystem::directory_iterator(descriptors))
      EXPECT_NE(std::filesystem::read_symlink(descriptor.path()), secret);
    EXPECT_EQ(std::filesystem::read_symlink(descriptors / "2"), "/dev/null");
    ::kill(child, SIGTERM);
  };
  EXPECT_EQ(runProcess(start), endedByTheTest);
}

TEST(Process, HoldsThePlaceOfAClosedStandardOutputAgainstTheEnginesFiles) {
  const TemporaryFolder folder;
  ProcessStart start = standingStart(folder);
  start.beforeStart = [] { ::close(STDOUT_FILENO); };
  start.meanwhile = [&](int child) {
    EXPECT_TRUE(eventually([&] { return statusField(child, "NoNewPrivs") == "1"; }));
    EXPECT_EQ(std::filesystem::read_symlink("/proc/" + std::to_string(child) + "/fd/1"), "/");
    ::kill(child, SIGTERM);
  };
  EXPECT_EQ(runProcess(start), endedByTheTest);
}

TEST(Process, RunsForAnOrdinaryUser) {
  if (::geteuid() != 0) GTEST_SKIP() << "every other test runs as an ordinary user already";
  const TemporaryFolder folder;
  folder.write("renderer.js", renderNothing);
  std::filesystem::copy_file(rendererStart("").program, folder.path() / "renderer");
  std::filesystem::permissions(folder.path(), std::filesystem::perms{0755});
  ProcessStart start = rendererStart(folder.path());
  start.program = folder.path() / "renderer";
  start.beforeStart = [] {
    constexpr uid_t nobody = 65'534;
    (void)!::setgid(nobody);
    (void)!::setuid(nobody);
  };
  EXPECT_EQ(runProcess(start), succeededWith("{}"));
}

const ProcessEnd ranOutOfTime{.status = -1, .signal = SIGALRM, .output = "", .errors = ""};

TEST(Clock, EndsAScriptThatNeverReturnsWhateverTheParentDidToTheAlarm) {
  EXPECT_EQ(runAfter(
                [] {
                  ::signal(SIGALRM, SIG_IGN);
                  sigset_t all;
                  sigfillset(&all);
                  sigprocmask(SIG_SETMASK, &all, nullptr);
                },
                "var TessaryOfflineRenderer = {render() { for (;;); }};", {"JSC_SIGNAL_FOR_GC=14"}),
            ranOutOfTime);
}

TEST(Clock, EndsAnInputThatNeverEnds) {
  const TemporaryFolder folder;
  folder.write("renderer.js", renderNothing);
  ProcessStart start = rendererStart(folder.path(), "{}");
  start.withholdsEnd = true;
  EXPECT_EQ(runProcess(start), ranOutOfTime);
}

}  // namespace
}  // namespace tessary::testing
