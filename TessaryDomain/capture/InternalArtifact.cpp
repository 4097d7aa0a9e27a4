#include "TessaryDomain/capture/InternalArtifact.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <span>
#include <string>

#include "TessaryDomain/capture/CodeMapEntries.h"
#include "TessaryDomain/capture/FoldedPhrases.h"
#include "TessaryDomain/capture/Headings.h"
#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryDomain/capture/StructuralText.h"

// Each of the three kinds of paper is recognised by a conjunction, so that its conditions may be asked in any order:
// the path first, which nearly nothing passes, then what is found by one search for bytes, and what needs the structure
// of the text last.

namespace tessary::CaptureRules {

namespace {

/// Folded headings of which a paper has one or more.
using HeadingGroup = std::span<const std::string_view>;

constexpr auto taskHeadings = std::to_array<std::string_view>({"active request", "active task", "current task"});
constexpr auto agentHeadings = std::to_array<std::string_view>(
    {"running agents", "delegation / review", "agents / delegation", "agents", "delegation"});
constexpr auto nextHeadings = std::to_array<std::string_view>({"next actions", "next steps", "suggested next steps"});
constexpr auto memoryHeadings = std::to_array<std::string_view>({"memory"});

constexpr auto summaryGroups = std::to_array<HeadingGroup>({taskHeadings, agentHeadings, nextHeadings});
constexpr auto summaryGroupsWithMemory =
    std::to_array<HeadingGroup>({taskHeadings, agentHeadings, nextHeadings, memoryHeadings});

/// Folded phrases with which an agent reminds itself.
constexpr auto summaryPhrases = std::to_array<std::string_view>(
    {"already told user", "do not redo", "do not reset", "do not edit memory",
     "final needs exactly one memory citation", "no implementation/test/install completed"});
constexpr FoldedPhrases summaryReminders(summaryPhrases);
constexpr std::size_t leastSummaryPhrases = 2;
/// The phrase that stands for the heading of the memory.
constexpr std::size_t memoryCitationIndex = 4;

constexpr std::string_view contractName = "capture_contract.md";
constexpr auto contractHeadings = std::to_array<std::array<std::string_view, 1>>(
    {{"capture contract"}, {"project scope"}, {"documents and versions"}, {"integrations and failures"}});
constexpr auto contractGroups =
    std::to_array<HeadingGroup>({contractHeadings[0], contractHeadings[1], contractHeadings[2], contractHeadings[3]});

constexpr std::string_view codeMapName = "code_map.md";
constexpr std::string_view codeMapTool = "generate-code-map.py";
constexpr std::string_view codeMapWarning = "생성 파일입니다. 직접 고치지 말고";
constexpr auto foldedCodeMapWarnings = std::to_array<std::string_view>({"generated file. do not edit"});
constexpr FoldedPhrases foldedCodeMapWarning(foldedCodeMapWarnings);
constexpr std::string_view codeMapHeadingEnd = "code map";
constexpr std::size_t leastCodeMapEntries = 5;

using PythonText::contains;

/// Calls `accept` with the folded text of each heading of a structural text until it answers true; that answer, or
/// false.
template <typename Accept>
bool anyHeading(std::string_view structure, const Accept& accept) {
  std::string storage;
  for (auto match = Headings::find(structure); match; match = Headings::find(structure, match->whole.end)) {
    if (accept(PythonText::casefold(PythonText::strip(match->text.in(structure)), storage))) return true;
  }
  return false;
}

/// True if a structural text has a heading of every group.
template <std::size_t count>
bool hasHeadings(std::string_view structure, const std::array<HeadingGroup, count>& groups) {
  std::bitset<count> found;
  return anyHeading(structure, [&](std::string_view heading) {
    for (std::size_t index = 0; index < count; ++index) {
      if (std::ranges::find(groups[index], heading) != groups[index].end()) found.set(index);
    }
    return found.all();
  });
}

bool hasMarker(std::string_view content) {
  constexpr std::string_view byteOrderMark = "\uFEFF";
  constexpr std::string_view blanks = " \t\r\n";
  for (;;) {
    if (content.starts_with(byteOrderMark)) {
      content.remove_prefix(byteOrderMark.size());
    } else if (!content.empty() && blanks.contains(content.front())) {
      content.remove_prefix(1);
    } else {
      return content.starts_with(internalArtifactMarker);
    }
  }
}

/// The summary that an agent writes for its memory: what it does, with whom, what comes next, and its reminders.
bool isMemorySummary(std::string_view content) {
  const auto phrases = foundPhrases(content, summaryReminders);
  if (phrases.count() < leastSummaryPhrases) return false;
  const std::string structure = structuralText(content);
  return phrases[memoryCitationIndex] ? hasHeadings(structure, summaryGroups)
                                      : hasHeadings(structure, summaryGroupsWithMemory);
}

/// The product's own description of what it captures.
bool isCaptureContract(std::string_view content) {
  return contains(content, "reviewEligible") && contains(content, "originEvent") &&
         hasHeadings(structuralText(content), contractGroups);
}

/// The map of the product's own sources, made by a tool.
bool isCodeMap(std::string_view content) {
  if (!contains(content, codeMapTool)) return false;
  if (!contains(content, codeMapWarning) && foundPhrases(content, foldedCodeMapWarning).none()) return false;
  const std::string structure = structuralText(content);
  return CodeMapEntries::count(structure, leastCodeMapEntries) == leastCodeMapEntries &&
         anyHeading(structure, [](std::string_view heading) { return heading.ends_with(codeMapHeadingEnd); });
}

/// The rule for content with this path. Both names that there is one for have a Markdown suffix, so that the suffix
/// needs no test of its own.
bool isInternalFile(std::string_view sourcePath, std::string_view content) {
  std::string storage;
  const std::string_view name = PythonText::casefold(PythonPath::nameOf(sourcePath), storage);
  if (name != contractName && name != codeMapName) return false;
  if (PythonText::casefold(PythonPath(sourcePath).parent().name()) != "docs") return false;
  if (content.contains('\0')) return false;
  return name == contractName ? isCaptureContract(content) : isCodeMap(content);
}

}  // namespace

bool internalArtifact(std::optional<std::string_view> content, std::optional<std::string_view> sourcePath,
                      std::optional<std::string_view> agent, std::optional<std::string_view> kind) {
  // 1. What is not there or too long is no internal paper, nor is what holds U+0000; that is looked for where all else
  // would make it one.
  if (!content || content->size() > internalArtifactByteLimit) return false;
  // 2. The marker wins, whatever the path and the agent are.
  if (hasMarker(*content)) return !content->contains('\0');
  // 3.-8. A file is judged by its name, an answer by who gave it.
  if (sourcePath) return isInternalFile(*sourcePath, *content);
  return agent == "codex" && kind == "candidate" && !content->contains('\0') && isMemorySummary(*content);
}

}  // namespace tessary::CaptureRules
