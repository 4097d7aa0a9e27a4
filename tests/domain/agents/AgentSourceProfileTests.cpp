#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/agents/AgentSourceProfile.h"
#include "support/SelectedLanguage.h"

namespace tessary {
namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

/// Proper names, which no language changes.
const Rows names = {
    {"claude", "Claude"},
    {"codex", "Codex"},
    {"gemini", "Gemini"},
    {"hermes", "Hermes"},
    {"copilot", "Copilot"},
    {"cursor", "Cursor"},
    {"windsurf", "Windsurf"},
    {"opencode", "OpenCode"},
    {"zcode", "ZCode"},
    {"antigravity", "Antigravity"},
    {"trae", "Trae"},
    {"mimocode", "MiMoCode"},
    {"droid", "Droid"},
    {"devin", "Devin"},
    {"qoder", "Qoder"},
    {"qoderwork", "QoderWork"},
    {"qwenwork", "QwenWork"},
    {"grok-build", "Grok Build"},
    {"kimi-code", "Kimi Code"},
    {"kimi", "Kimi"},
    {"deepseek", "DeepSeek Harness"},
    {"dsh", "DeepSeek Harness"},
    {"mistral-vibe", "Mistral Vibe"},
    {"codebuddy", "CodeBuddy"},
    {"workbuddy", "WorkBuddy"},
    {"kiro", "Kiro"},
    {"amp", "Amp"},
    {"pi", "Pi Agent"},
    {"oh-my-pi", "Oh My Pi"},
    {"gajae-code", "Gajae Code"},
    {"manus", "Manus"},
};

const Rows koreanTitles = {
    {"chatgpt-chat", "ChatGPT chat"}, {"perplexity-chat", "Perplexity 채팅"},  {"web", "웹"},
    {"services", "서비스 메뉴"},      {"agent-conversation", "에이전트 대화"}, {"claude-desktop-chat", "Claude 채팅"},
    {"gemini-chat", "Gemini 채팅"},
};

const Rows englishTitles = {
    {"chatgpt-chat", "ChatGPT chat"},
    {"perplexity-chat", "Perplexity chat"},
    {"web", "Web"},
    {"services", "Services menu"},
    {"agent-conversation", "Agent conversation"},
    {"claude-desktop-chat", "Claude chat"},
    {"gemini-chat", "Gemini chat"},
};

void expectTitles(const Rows& rows) {
  for (const auto& [source, title] : rows)
    EXPECT_EQ(AgentSourceProfile::providerTitle(source), title) << source;
}

TEST(AgentSourceProfile, ItsKeyTellsWhereEachTextEnds) {
  EXPECT_EQ(AgentSourceProfile::key("unknown", std::nullopt), "7:unknown:legacy");
  EXPECT_EQ(AgentSourceProfile::key("claude", "work"), "6:claude:profile:4:work");
  EXPECT_EQ(AgentSourceProfile::key("a:b", std::nullopt), "3:a:b:legacy");
  EXPECT_EQ(AgentSourceProfile::key("a", "b"), "1:a:profile:1:b");
  EXPECT_EQ(AgentSourceProfile::key("", ""), "0::profile:0:");
  EXPECT_EQ(AgentSourceProfile::key("", std::nullopt), "0::legacy");
  EXPECT_EQ(AgentSourceProfile::key("클로드", "é"), "9:클로드:profile:2:é");
}

TEST(AgentSourceProfile, DifferentPairsHaveDifferentKeys) {
  // Every pair of texts that could be mistaken for pieces of a key.
  const std::vector<std::string> texts = {"",
                                          ":",
                                          "a",
                                          "a:b",
                                          "b",
                                          "1:a",
                                          "legacy",
                                          "a:legacy",
                                          "profile:",
                                          "profile:1:a",
                                          "1:a:profile:1:b",
                                          "1:a:legacy",
                                          "0:",
                                          "0::legacy"};
  std::map<std::string, std::pair<std::string, std::optional<std::string>>> pairs;
  std::size_t count = 0;
  for (const std::string& source : texts) {
    pairs[AgentSourceProfile::key(source, std::nullopt)] = {source, std::nullopt};
    ++count;
    for (const std::string& profile : texts) {
      pairs[AgentSourceProfile::key(source, profile)] = {source, profile};
      ++count;
    }
  }
  EXPECT_EQ(pairs.size(), count);
}

TEST(AgentSourceProfile, IsIdentifiedByItsKey) {
  EXPECT_EQ((AgentSourceProfile{.source = "claude", .sourceProfileID = "work"}).id(), "6:claude:profile:4:work");
  EXPECT_EQ((AgentSourceProfile{.source = "claude", .sourceProfileLabel = "work"}).id(), "6:claude:legacy");
}

TEST(AgentSourceProfile, EachProviderHasATitle) {
  for (const char* code : {"ko", "en", "ja"}) {
    const testing::SelectedLanguage language(code);
    expectTitles(names);
  }
  const testing::SelectedLanguage korean("ko");
  expectTitles(koreanTitles);
}

TEST(AgentSourceProfile, TitlesThatAreNoNamesAreInTheLanguageInUse) {
  const testing::SelectedLanguage english("en");
  expectTitles(englishTitles);
}

TEST(AgentSourceProfile, ASourceThatIsNotKnownIsItsOwnTitle) {
  const testing::SelectedLanguage korean("ko");
  expectTitles({{"Claude", "Claude"},
                {"CODEX", "CODEX"},
                {"claude ", "claude "},
                {"", ""},
                {"unknown", "unknown"},
                {"{0}", "{0}"},
                {"계정 미확인", "계정 미확인"}});
}

TEST(AgentSourceProfile, AnAccountNameCountsOnlyWhereItIsVerifiedAndMoreThanBlanks) {
  const testing::SelectedLanguage korean("ko");
  struct Row {
    std::optional<bool> isVerified;
    std::optional<std::string> label;
    bool hasName;
  };
  const std::vector<Row> rows = {
      {true, "Work", true},
      {true, "  Work\n", true},
      {true, "\u200B", true},  // A space of no width is no white space.
      {true, "\x1F", true},    // Nor is a separator, which only Python takes for one.
      {true, std::string(1, '\0'), true},
      {true, " \t\r\n\u00A0\u2028\u3000", false},
      {true, "", false},
      {true, std::nullopt, false},
      {false, "Work", false},
      {std::nullopt, "Work", false},
      {std::nullopt, std::nullopt, false},
  };
  for (const Row& row : rows) {
    const AgentSourceProfile profile{
        .source = "claude", .sourceProfileLabel = row.label, .profileIdentityVerified = row.isVerified};
    EXPECT_EQ(profile.hasVerifiedAccountName(), row.hasName) << row.label.value_or("absent");
    EXPECT_EQ(profile.accountTitle(), row.hasName ? *row.label : "계정 미확인") << row.label.value_or("absent");
  }
}

TEST(AgentSourceProfile, EachKindHasATitle) {
  const auto titleOf = [](std::optional<std::string> kind) {
    return AgentSourceProfile{.source = "claude", .sourceKind = std::move(kind)}.kindTitle();
  };
  {
    const testing::SelectedLanguage korean("ko");
    EXPECT_EQ(titleOf("cli"), "CLI");
    EXPECT_EQ(titleOf("cowork"), "Cowork");
    EXPECT_EQ(titleOf("desktop"), "데스크톱");
    EXPECT_EQ(titleOf("manual"), "직접 가져오기");
    for (const char* kind : {"", "CLI", "web", "unknown"})
      EXPECT_EQ(titleOf(kind), "출처 미확인") << kind;
    EXPECT_EQ(titleOf(std::nullopt), "출처 미확인");
  }
  const testing::SelectedLanguage english("en");
  EXPECT_EQ(titleOf("cli"), "CLI");
  EXPECT_EQ(titleOf("desktop"), "Desktop");
  EXPECT_EQ(titleOf(std::nullopt), "Unknown source");
}

TEST(AgentSourceProfile, ItsDisplayNameJoinsProviderKindAndAccount) {
  const testing::SelectedLanguage korean("ko");
  const AgentSourceProfile full{.source = "claude",
                                .sourceProfileID = "id",
                                .sourceProfileLabel = " Work ",
                                .sourceKind = "cli",
                                .profileIdentityVerified = true};
  EXPECT_EQ(full.displayName(), "Claude · CLI ·  Work ");
  EXPECT_EQ(AgentSourceProfile{.source = "unknown"}.displayName(), "에이전트 미확인 · 출처 미확인 · 계정 미확인");
  EXPECT_EQ(AgentSourceProfile{.source = "Unknown"}.displayName(), "Unknown · 출처 미확인 · 계정 미확인");
  EXPECT_EQ((AgentSourceProfile{.source = "web", .sourceKind = "manual"}).displayName(),
            "웹 · 직접 가져오기 · 계정 미확인");
}

TEST(AgentSourceProfile, EqualityAndHashCountEveryField) {
  const AgentSourceProfile profile{.source = "s",
                                   .sourceProfileID = "a",
                                   .sourceProfileLabel = "b",
                                   .sourceKind = "c",
                                   .profileIdentityOrigin = "d",
                                   .profileIdentityVerified = true};
  const std::hash<AgentSourceProfile> hash;
  std::vector<AgentSourceProfile> others(7, profile);
  others[0].source = "t";
  others[1].sourceProfileID.reset();
  others[2].sourceProfileLabel = "";
  others[3].sourceKind = "d";
  others[4].profileIdentityOrigin.reset();
  others[5].profileIdentityVerified = false;
  others[6].profileIdentityVerified.reset();
  for (const AgentSourceProfile& other : others) {
    EXPECT_FALSE(other == profile);
    EXPECT_NE(hash(other), hash(profile));
  }
  EXPECT_EQ(hash(AgentSourceProfile(profile)), hash(profile));
}

}  // namespace
}  // namespace tessary
