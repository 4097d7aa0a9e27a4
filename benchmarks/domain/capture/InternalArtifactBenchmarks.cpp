// What it costs to judge a content of 500 KiB, against one pass of `PythonText::splitlines` over the same content,
// which is the floor. Each kind of paper is timed where the judgement fails last, which is the worst that content can
// do.

#include <cstddef>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "TessaryDomain/capture/InternalArtifact.h"
#include "TessaryDomain/capture/PythonText.h"

namespace tessary {
namespace {

constexpr std::size_t contentBytes = std::size_t{500} << 10;

std::string repeated(std::string_view unit) {
  std::string text;
  while (text.size() < contentBytes)
    text += unit;
  return text;
}

std::string english() {
  return repeated(
      "The quick brown fox jumps over the lazy dog, and then it goes away for a while, as foxes do when nobody looks.\n"
      "\n"
      "- An item of a List, with `code` in it, which does not end before the line does.\n"
      "- Another.\n"
      "\n"
      "## Heading of a section\n"
      "\n"
      "```cpp\n"
      "int main() { return 0; }\n"
      "```\n");
}

std::string korean() {
  return repeated(
      "이 문서는 길고 또 길며, 한 문장이 끝나면 다음 문장이 이어집니다. 여우는 아무도 보지 않을 때 사라집니다.\n"
      "\n"
      "- 목록의 항목 하나, `code` 하나.\n"
      "- 다른 항목.\n"
      "\n"
      "## 구역의 제목\n"
      "\n"
      "```cpp\n"
      "int main() { return 0; }\n"
      "```\n");
}

/// Prose with letters that have to be folded by more than a bit, as often as German has them and more.
std::string german() {
  return repeated(
      "Der schnelle Fuchs läuft über die Straße, dann in den Wald und später wieder nach Hause, wenn niemand "
      "hinsieht.\n"
      "\n"
      "- Ein Punkt einer Liste, mit `code` darin, der nicht vor dem Ende der Zeile aufhört.\n"
      "- Größer als der andere.\n"
      "\n"
      "## Überschrift eines Abschnitts\n"
      "\n"
      "```cpp\n"
      "int main() { return 0; }\n"
      "```\n");
}

/// Every condition but the last: a heading that would end it all is missing.
const std::string_view codeMapStart = "generate-code-map.py. Generated file. Do not edit.\n- `Tests/a`\n- `Tests/a`\n";
const std::string_view codeMapEnd = "\n- `Tests/a`\n- `Tests/a`\n- `Tests/a`\n";
const std::string_view contractStart = "# Capture contract\n# Project scope\n# Documents and versions\n";
const std::string_view contractEnd = "\nreviewEligible originEvent\n";
const std::string_view summaryStart = "# Active task\n# Agents\n# Memory\n";
const std::string_view summaryEnd = "\nNo implementation/test/install completed. Do not edit memory.\n";

struct Kind {
  std::string_view start;
  std::string_view end;
  std::optional<std::string_view> path;
};

bool isInternal(const std::string& content, const Kind& kind) {
  return CaptureRules::internalArtifact(content, kind.path, "codex", "candidate");
}

void splitlines(benchmark::State& state, const std::string& text) {
  for (auto _ : state)
    benchmark::DoNotOptimize(PythonText::splitlines(text));
}

void judge(benchmark::State& state, const std::string& text, const Kind& kind) {
  const std::string content = std::string(kind.start) + text + std::string(kind.end);
  if (isInternal(content, kind)) std::abort();
  for (auto _ : state)
    benchmark::DoNotOptimize(isInternal(content, kind));
}

void registerAll(const char* language, const std::string& text) {
  const std::string suffix = std::string("/") + language;
  const auto add = [&](const char* name, const Kind& kind) {
    benchmark::RegisterBenchmark((name + suffix).c_str(),
                                 [text, kind](benchmark::State& state) { judge(state, text, kind); });
  };
  benchmark::RegisterBenchmark(("floor: splitlines" + suffix).c_str(),
                               [text](benchmark::State& state) { splitlines(state, text); });
  add("a file of another name", {.start = {}, .end = {}, .path = "/home/u/desk/docs/notes.md"});
  add("an answer", {.start = {}, .end = {}, .path = {}});
  add("worst answer", {.start = summaryStart, .end = summaryEnd, .path = {}});
  add("worst contract", {.start = contractStart, .end = contractEnd, .path = "docs/CAPTURE_CONTRACT.md"});
  add("worst code map", {.start = codeMapStart, .end = codeMapEnd, .path = "docs/CODE_MAP.md"});
}

const bool isRegistered = [] {
  registerAll("English", english());
  registerAll("Korean", korean());
  registerAll("German", german());
  registerAll("one line", repeated("and so on, "));
  registerAll("empty lines", repeated("\n"));
  registerAll("headings", repeated("# a heading\n"));
  registerAll("fences", repeated("```\n"));
  registerAll("starts of phrases", repeated("Do not re"));
  registerAll("marks", repeated("- `"));
  return true;
}();

}  // namespace
}  // namespace tessary
