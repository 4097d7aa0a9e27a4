#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/AgentFolders.h"
#include "TessaryDomain/capture/HermesRuntimePaths.h"
#include "TessaryDomain/capture/PythonPath.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

using namespace CaptureRules;
using Parts = std::vector<std::string>;

bool isAllowed(std::string_view path) {
  return hiddenFoldersAllowed(PythonPath(path).tail(), /*prefix=*/false);
}

bool leadsToAllowed(std::string_view path) {
  return hiddenFoldersAllowed(PythonPath(path).tail(), /*prefix=*/true);
}

TEST(HiddenContentFolders, AreFiveInTheirOrder) {
  std::string text;
  for (const HiddenContentFolder& folder : hiddenContentFolders) {
    for (const std::string_view name : folder.components())
      text.append(name).push_back('/');
    text.push_back('\n');
  }
  EXPECT_EQ(text, ".claude/plans/\n.claude/handoff/\n.codex/plans/\n.omc/plans/\n.github/\n");
}

TEST(HiddenFolders, AreAllowedWhereDocumentsLie) {
  for (const std::string path : {".claude/plans/a.md", ".claude/handoff/a.md", ".codex/plans/a.md", ".omc/plans/a.md",
                                 ".github/workflows/a.yml", "a/b/.github/c", ".github/.claude/plans/x", "a/b.md", "",
                                 ".claude/plans", ".github", ".github/.github/.omc/plans"}) {
    EXPECT_TRUE(isAllowed(path)) << path;
    EXPECT_TRUE(leadsToAllowed(path)) << path;
  }
}

TEST(HiddenFolders, AreRefusedElsewhere) {
  for (const std::string path :
       {".github/x/.y", ".claude/x/a.md", ".claude/Plans/a.md", ".codex/handoff/a", ".git/a", ".claude/plans/.a.md",
        "a/.b/c", ".claude/plansx", ".gitHub", ".omc/x", ".", "..", "a/../b"}) {
    const bool isEmpty = PythonPath(path).tail().empty();
    EXPECT_EQ(isAllowed(path), isEmpty) << path;
    EXPECT_EQ(leadsToAllowed(path), isEmpty) << path;
  }
}

TEST(HiddenFolders, AreAllowedOnTheWayToDocumentsOnlyWithPrefix) {
  for (const std::string path : {".claude", ".codex", ".omc", "a/.claude", ".github/.omc", ".claude/plans/.codex"}) {
    EXPECT_FALSE(isAllowed(path)) << path;
    EXPECT_TRUE(leadsToAllowed(path)) << path;
  }
  EXPECT_FALSE(leadsToAllowed(".claude/x")) << "the way has been left";
  EXPECT_FALSE(leadsToAllowed(".claude/.codex"));
}

bool isRuntime(std::string_view path) {
  return isHermesRuntimeRelativePath(PythonPath(path).tail());
}

TEST(HermesRuntime, IsFourteenFolders) {
  for (const std::string name :
       {"cache", "web_cache", "image_cache", "logs", "sessions", "runtime", "state", "state-snapshots", "telemetry",
        "browser-profile", "pending_messages", "locks", "mcp-tokens", ".curator_backups"}) {
    EXPECT_TRUE(isRuntime(name)) << name;
    EXPECT_TRUE(isRuntime(name + "/a/b.md")) << name;
    EXPECT_FALSE(isRuntime("a/" + name)) << name;
    EXPECT_FALSE(isRuntime(name + "x")) << name;
  }
  EXPECT_FALSE(isRuntime("Cache/a"));
  EXPECT_FALSE(isRuntime("plans/a.md"));
  EXPECT_FALSE(isRuntime(""));
}

TEST(HermesRuntime, IsFiveEntriesAmongTheSkills) {
  for (const std::string name : {".archive", ".curator_backups", ".curator_state.json", ".locks", ".hub.json"}) {
    EXPECT_TRUE(isRuntime("skills/" + name)) << name;
    EXPECT_TRUE(isRuntime("skills/" + name + "/a")) << name;
    EXPECT_FALSE(isRuntime("skills/a/" + name)) << name;
    EXPECT_EQ(isRuntime(name), name == ".curator_backups") << name;
  }
  EXPECT_FALSE(isRuntime("skills"));
  EXPECT_FALSE(isRuntime("skills/cache"));
}

TEST(HermesRuntime, TreatsAProfileAsAHome) {
  EXPECT_TRUE(isRuntime("profiles/p/cache"));
  EXPECT_TRUE(isRuntime("profiles/p/skills/.locks"));
  EXPECT_FALSE(isRuntime("profiles/cache")) << "two components are no profile with something in it";
  EXPECT_FALSE(isRuntime("profiles/cache/a"));
  EXPECT_FALSE(isRuntime("profiles/p/profiles/q/cache")) << "no profile lies in another";
}

TEST(HermesRuntime, IsFoundBehindEveryFolderOfTheAgent) {
  EXPECT_TRUE(hermesRuntimeArtifact("/home/u/.hermes/cache/a.md", std::nullopt));
  EXPECT_TRUE(hermesRuntimeArtifact(".hermes/profiles/p/cache/a.md", std::nullopt));
  EXPECT_TRUE(hermesRuntimeArtifact("/a/.hermes/x/.hermes/logs/b", std::nullopt));
  EXPECT_TRUE(hermesRuntimeArtifact("/a/.hermes//./logs", std::nullopt));
  EXPECT_FALSE(hermesRuntimeArtifact(".hermes/profiles/cache", std::nullopt));
  EXPECT_FALSE(hermesRuntimeArtifact("/home/u/.hermes", std::nullopt));
  EXPECT_FALSE(hermesRuntimeArtifact("/home/u/.hermesx/cache/a", std::nullopt));
  EXPECT_FALSE(hermesRuntimeArtifact("/home/u/.Hermes/cache/a", std::nullopt));
  EXPECT_FALSE(hermesRuntimeArtifact("/home/u/.hermes/plans/a.md", std::nullopt));
}

TEST(HermesRuntime, IsFoundBehindTheHomeThatIsGiven) {
  EXPECT_TRUE(hermesRuntimeArtifact("/srv/h/cache/a", "/srv/h/"));
  EXPECT_TRUE(hermesRuntimeArtifact(PythonPath("/srv/h/cache/a"), "/srv/./h"));
  EXPECT_FALSE(hermesRuntimeArtifact("/srv/h/cache/a", "/srv"));
  EXPECT_FALSE(hermesRuntimeArtifact("/srv/h/cache/a", "//srv/h"));
  EXPECT_FALSE(hermesRuntimeArtifact("/srv/h", "/srv/h"));
  EXPECT_FALSE(hermesRuntimeArtifact("/srv/h/cache/a", std::nullopt));
  EXPECT_TRUE(hermesRuntimeArtifact("cache/a", "")) << "the empty path leads to every relative one";
}

TEST(CodexMemory, IsADirectoryWithANumberOrWithout) {
  for (const std::string name : {"memories", "memories_v2", "memories_v0", "memories_v123456789012345678901234"})
    EXPECT_TRUE(codexMemoryDirectory(name)) << name;
  for (const std::string name : {"", "memorie", "memories_", "memories_v", "memories_v2a", "memories_vx", "Memories",
                                 "memories_V2", "memories2", "memories_v-1", "memories_v\u0661", "xmemories"})
    EXPECT_FALSE(codexMemoryDirectory(name)) << name;
  EXPECT_FALSE(codexMemoryDirectory(std::string_view("memories\0", 9)));
}

TEST(CodexMemory, LiesDirectlyBelowTheFolderOfTheAgent) {
  for (const std::string path : {"/u/.codex/memories/a.md", ".codex/memories", "/.codex/memories_v2/x/y",
                                 "/a/.codex/.codex/memories", "/u/.codex//./memories/a"}) {
    EXPECT_TRUE(codexMemoryArtifact(path)) << path;
    EXPECT_TRUE(codexMemoryArtifact(PythonPath(path).parts())) << path;
  }
  for (const std::string path : {"/u/.codex/x/memories", "/u/.codex", "/u/codex/memories", "/u/.Codex/memories",
                                 "/u/.codex/memoriesx", "memories/.codex", "/u/.codexx/memories", ""}) {
    EXPECT_FALSE(codexMemoryArtifact(path)) << path;
    EXPECT_FALSE(codexMemoryArtifact(PythonPath(path).parts())) << path;
  }
}

// The tests that read a text against those that read its components.

TEST(AgentFolders, AreFoundInATextAsInItsComponents) {
  std::mt19937 random(20260318);
  const Parts units = {"/",      "/",        "/",      ".hermes",   ".codex", "cache", "memories", "memories_v2",
                       "skills", "profiles", ".locks", "/.hermes/", "x",      ".",     "..",       "\xFF"};
  for (int round = 0; round < 20000; ++round) {
    const std::string text = randomText(units, random() % 10, random);
    const PythonPath path(text);
    ASSERT_EQ(hermesRuntimeArtifact(text, std::nullopt), hermesRuntimeArtifact(path, std::nullopt)) << text;
    ASSERT_EQ(codexMemoryArtifact(text), codexMemoryArtifact(path.parts())) << text;
  }
}

/// The walk as it is told: an index, and for each folder the rest of the list cut to its length.
bool slowlyAllowed(const Parts& parts, bool prefix) {
  const std::vector<Parts> folders = {
      {".claude", "plans"}, {".claude", "handoff"}, {".codex", "plans"}, {".omc", "plans"}, {".github"}};
  std::size_t index = 0;
  while (index < parts.size()) {
    if (!parts[index].starts_with(".")) {
      ++index;
      continue;
    }
    std::optional<std::size_t> next;
    for (const Parts& folder : folders) {
      Parts cut;
      for (std::size_t place = index; place < parts.size() && cut.size() < folder.size(); ++place)
        cut.push_back(parts[place]);
      const bool isWhole = cut == folder;
      bool leadsThere = prefix && parts.size() - index < folder.size();
      for (std::size_t place = 0; leadsThere && place < cut.size(); ++place)
        leadsThere = cut[place] == folder[place];
      if (!next && (isWhole || leadsThere)) next = index + cut.size();
    }
    if (!next) return false;
    index = *next;
  }
  return true;
}

TEST(HiddenFolders, AreJudgedAsByTheWalk) {
  const Parts names = {".claude", "plans", "handoff", ".codex", ".omc", ".github", "x", ".y"};
  forEveryText({"0", "1", "2", "3", "4", "5", "6", "7"}, 5, [&](const std::string& digits) {
    Parts parts;
    for (const char digit : digits)
      parts.push_back(names[static_cast<std::size_t>(digit - '0')]);
    for (const bool prefix : {false, true})
      ASSERT_EQ(hiddenFoldersAllowed(parts, prefix), slowlyAllowed(parts, prefix)) << digits << prefix;
  });
}

}  // namespace
}  // namespace tessary
