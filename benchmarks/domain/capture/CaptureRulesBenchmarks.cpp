// The rules about paths against the same rules in Python, timed by the machine's own python3 in the same run, and the
// reading of event times. Nothing is timed against answers that differ.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "TessaryDomain/capture/ArtifactAdmission.h"
#include "TessaryDomain/capture/ArtifactType.h"
#include "TessaryDomain/capture/EventTimes.h"
#include "TessaryDomain/capture/ExcludedArtifact.h"
#include "TessaryDomain/capture/PythonISOTimestamp.h"
#include "TessaryDomain/capture/PythonPath.h"

#include "PythonScript.h"

namespace tessary {
namespace {

using Texts = std::vector<std::string>;

// What a home folder of someone who works with agents holds, by and large.
constexpr auto folders = std::to_array<std::string_view>({
    "/home/someone/projects/tessary/",
    "/home/someone/projects/tessary/documents/plans/",
    "/home/someone/projects/tessary/Sources/Domain/capture/",
    "/home/someone/projects/web-shop/node_modules/@types/react/",
    "/home/someone/projects/web-shop/.worktrees/checkout-fix/src/components/",
    "/home/someone/Documents/Reports 2026/",
    "/home/someone/Documents/회의록/",
    "/home/someone/Downloads/",
    "/home/someone/.claude/plans/",
    "/home/someone/.claude/projects/-home-someone-projects-tessary/",
    "/home/someone/.codex/memories/",
    "/home/someone/.codex/sessions/2026/01/02/",
    "/home/someone/.hermes/skills/research/",
    "/home/someone/.hermes/profiles/office/sessions/",
    "/home/someone/.config/opencode/",
    "/tmp/agent-7f3a/",
    "/tmp/logs/",
    "/var/folders/zz/T/build/",
    "/srv/data/2026/01/",
    "notes/",
});
constexpr auto stems = std::to_array<std::string_view>({
    "README",      "Makefile",      "plan",      "2026-01-02-first-plan", "index",       "secrets",
    "api_key",     "prod-token",    "id_rsa",    "rollout-2026-01-02",    "main",        "CaptureRules",
    "tokenizer",   "report.final",  "화면 설계", "screenshot 1",          "budget",      "requirements",
    ".env",        "package-lock",  "state",     "component.test",        "archive.tar", "a",
    "credentials", "Meeting Notes",
});
constexpr auto suffixes = std::to_array<std::string_view>({
    ".md",   ".MD",   ".html", ".txt", ".json", ".jsonl", ".png",  ".JPG", ".pdf", ".ts",  ".py",    ".cpp",
    ".yaml", ".toml", "",      ".pem", ".pyc",  ".mp4",   ".docx", ".csv", ".gz",  ".log", ".local",
});
constexpr std::size_t pathCount = 10'000;

// Every folder with every suffix, and the stems in turn.
Texts makePaths() {
  Texts paths;
  for (std::size_t index = 0; index < pathCount; ++index) {
    std::string path(folders[index % folders.size()]);
    path.append(stems[index * 7 % stems.size()]).append(suffixes[index * 11 % suffixes.size()]);
    paths.push_back(std::move(path));
  }
  return paths;
}

ResolvedCapturePolicy makePolicy() {
  ResolvedCapturePolicy policy;
  policy.enabled = true;
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    policy.types[category] = category != ArtifactCategory::videos;
  policy.extensions = {"md",   "markdown", "html", "htm", "png",  "jpg",  "jpeg", "gif", "webp",
                       "heic", "heif",     "csv",  "pdf", "docx", "xlsx", "pptx", "py",  "ts"};
  policy.includeUnlistedExtensions = true;
  policy.resumeSince = 1767225600.0;
  policy.typeResumeSince = {{ArtifactCategory::code, 1767225700.0}, {ArtifactCategory::images, 1767225650.0}};
  policy.extensionResumeSince = {{"py", 1767225900.0}, {"csv", 1767225500.0}};
  policy.unlistedResumeSince = 1767225800.0;
  return policy;
}

const CaptureTemporaryScope scope{.temporaryDirectory = std::nullopt,
                                  .resolvedTemporaryDirectory = std::nullopt,
                                  .dataFolderParent = "/home/someone/.local/share/tessary"};

struct Judgement {
  bool excluded = false;
  CaptureRules::ArtifactType type{};
  bool allowed = false;
};

Judgement judge(const std::string& path, double modifiedAt, const ResolvedCapturePolicy& policy) {
  Judgement judgement;
  judgement.excluded = CaptureRules::excludedArtifact(path, scope, /*temporaryDocuments=*/true);
  if (judgement.excluded) return judgement;
  judgement.type = CaptureRules::artifactType(path, /*isPlan=*/false);
  std::string_view extension = PythonPath::suffixOf(PythonPath::nameOf(path));
  if (!extension.empty()) extension.remove_prefix(1);
  judgement.allowed = CaptureRules::artifactAllowed(judgement.type.category, modifiedAt, extension, policy);
  return judgement;
}

double modifiedAt(std::size_t index) {
  return 1767225600.0 + static_cast<double>(index % 500);
}

std::string answer(const Judgement& judgement) {
  if (judgement.excluded) return "excluded";
  return std::string(id(judgement.type.category)) + " " + std::string(judgement.type.kind) +
         (judgement.allowed ? " allowed" : " refused");
}

void pathRules(benchmark::State& state) {
  const Texts paths = makePaths();
  const ResolvedCapturePolicy policy = makePolicy();
  for (auto _ : state) {
    for (std::size_t index = 0; index < paths.size(); ++index)
      benchmark::DoNotOptimize(judge(paths[index], modifiedAt(index), policy));
  }
  const double items = static_cast<double>(state.iterations()) * static_cast<double>(paths.size());
  state.counters["per_path"] = benchmark::Counter(items, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(pathRules)->Name("PathRules/Tessary")->Unit(benchmark::kMicrosecond);

void pathRulesInPython(benchmark::State& state) {
  const Texts paths = makePaths();
  const ResolvedCapturePolicy policy = makePolicy();
  const auto [nanoseconds, answers] = askPython(TESSARY_CAPTURE_RULES_PEER, "", paths);
  Texts ours;
  for (std::size_t index = 0; index < paths.size(); ++index)
    ours.push_back(answer(judge(paths[index], modifiedAt(index), policy)));
  if (nanoseconds <= 0 || answers != ours) {
    for (auto _ : state) {
    }
    state.SkipWithError("python3 is missing, or its answers differ");
    return;
  }
  for (auto _ : state)
    state.SetIterationTime(nanoseconds * static_cast<double>(paths.size()) * 1e-9);
  state.counters["per_path"] = nanoseconds * 1e-9;
}
BENCHMARK(pathRulesInPython)->Name("PathRules/CPython")->Unit(benchmark::kMicrosecond)->UseManualTime()->Iterations(1);

constexpr auto times =
    std::to_array<std::string_view>({"2026-01-02T03:04:05Z", "2026-01-02T03:04:05.678Z",
                                     "2026-01-02T03:04:05.678901+09:00", "2025-12-31T00:00:00+00:00"});
// Any character stands between date and time, and what is outside ASCII is never remembered.
constexpr auto timesNotRemembered =
    std::to_array<std::string_view>({"2026-01-02·03:04:05Z", "2026-01-02·03:04:05.678Z",
                                     "2026-01-02·03:04:05.678901+09:00", "2025-12-31·00:00:00+00:00"});

void readTimes(benchmark::State& state, const std::array<std::string_view, 4>& texts) {
  for (auto _ : state) {
    for (const std::string_view text : texts)
      benchmark::DoNotOptimize(CaptureRules::eventSeconds(text));
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(texts.size()) * state.iterations());
}

void readTimesRemembered(benchmark::State& state) {
  readTimes(state, times);
}
BENCHMARK(readTimesRemembered)->Name("EventSeconds/remembered")->Threads(1)->Threads(4)->UseRealTime();

void readTimesAnew(benchmark::State& state) {
  readTimes(state, timesNotRemembered);
}
BENCHMARK(readTimesAnew)->Name("EventSeconds/worked out")->Threads(1)->Threads(4)->UseRealTime();

// The floor: the reading alone, without the conversion and without the memory.
void readMicroseconds(benchmark::State& state) {
  for (auto _ : state) {
    for (const std::string_view text : times)
      benchmark::DoNotOptimize(PythonISOTimestamp::microseconds(text));
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(times.size()) * state.iterations());
}
BENCHMARK(readMicroseconds)->Name("EventSeconds/floor: microseconds alone")->Threads(1)->Threads(4)->UseRealTime();

}  // namespace
}  // namespace tessary
