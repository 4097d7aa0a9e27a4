#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/ProvenanceBadge.h"

namespace tessary {
namespace {

using Provenance = DocumentRevisionProvenance;
using Text = std::optional<std::string>;

std::optional<ModelBadge> vendorBadge(ModelVendor vendor, std::string family) {
  return VendorBadge{.vendor = vendor, .family = std::move(family)};
}

std::optional<ModelBadge> localBadge(Text name) {
  return LocalBadge{.name = std::move(name)};
}

std::string described(const Provenance& given) {
  return given.agent.value_or("-") + ", " + given.model.value_or("-") + ", " + given.host.value_or("-") + ", " +
         given.provider.value_or("-");
}

struct BadgeRow {
  Provenance provenance;
  std::optional<ModelBadge> badge;
};

TEST(ProvenanceBadge, IsShownWhereTheModelIsNews) {
  const std::vector<BadgeRow> rows = {
      // The agent's own model is none.
      {{.agent = "claude", .model = "claude-sonnet-4"}, std::nullopt},
      {{.agent = "codex", .model = "gpt-5-codex"}, std::nullopt},
      {{.agent = "qwen", .provider = "dashscope"}, std::nullopt},
      {{.agent = "claude", .model = "us.anthropic.claude-v2", .provider = "amazon-bedrock"}, std::nullopt},
      // Another agent's is, and so is an agent's with the model of another.
      {{.agent = "cursor", .model = "claude-sonnet-4"}, vendorBadge(ModelVendor::anthropic, "Claude")},
      {{.agent = "claude", .model = "z-ai/glm-4.6"}, vendorBadge(ModelVendor::zhipu, "GLM")},
      {{.agent = "Claude", .model = "claude-sonnet-4"}, vendorBadge(ModelVendor::anthropic, "Claude")},
      {{.model = "gpt-5.2"}, vendorBadge(ModelVendor::openai, "GPT")},
      {{.agent = "", .model = "claude-sonnet-4"}, vendorBadge(ModelVendor::anthropic, "Claude")},
      {{.model = "claude-sonnet-4", .host = "claude"}, vendorBadge(ModelVendor::anthropic, "Claude")},
      {{.agent = "opencode", .model = "big-pickle", .provider = "xai"}, vendorBadge(ModelVendor::xai, "Grok")},
      {{.agent = "cursor", .model = "gpt4all-13b", .provider = "openai"}, vendorBadge(ModelVendor::openai, "OpenAI")},
      // In an application of someone else the model was chosen.
      {{.agent = "claude", .model = "claude-sonnet-4", .host = "Zed"}, vendorBadge(ModelVendor::anthropic, "Claude")},
      {{.agent = "claude", .model = "claude-sonnet-4", .host = "Terminal"}, std::nullopt},
      {{.agent = "claude", .model = "claude-sonnet-4", .host = " "}, std::nullopt},
      {{.agent = "claude", .model = "claude-sonnet-4", .host = "claude-desktop-chat"}, std::nullopt},
      // No vendor, no badge.
      {{.agent = "cursor", .model = "composer-1"}, std::nullopt},
      {{.agent = "cursor"}, std::nullopt},
      {{}, std::nullopt},
      // A model of the machine itself comes first.
      {{.agent = "claude", .model = "claude-sonnet-4", .local = true}, localBadge({})},
      {{.local = true}, localBadge({})},
      {{.agent = "qwen", .model = "qwen2.5-coder:7b"}, localBadge({})},
      {{.model = "qwen3", .provider = "Ollama"}, localBadge("ollama")},
      {{.model = "qwen3", .provider = "lmstudio"}, localBadge("lmstudio")},
      {{.model = "qwen3", .provider = "LM-Studio"}, localBadge("lmstudio")},
      {{.model = "qwen3", .provider = "vllm"}, localBadge({})},
      {{.model = "qwen3", .provider = "llama.cpp", .local = false}, localBadge({})},
      {{.model = "qwen3", .provider = "openrouter", .local = true}, localBadge({})},
      {{.model = "qwen3", .provider = "openrouter", .local = false}, vendorBadge(ModelVendor::qwen, "Qwen")},
      {{.model = "gpt-oss:120b-cloud", .provider = "ollama"}, vendorBadge(ModelVendor::openai, "GPT")},
  };
  for (const BadgeRow& row : rows) {
    EXPECT_TRUE(modelBadge(row.provenance) == row.badge) << described(row.provenance);
    EXPECT_EQ(runsLocally(row.provenance), row.badge && std::holds_alternative<LocalBadge>(*row.badge))
        << described(row.provenance);
  }
}

TEST(ProvenanceBadge, TheVendorIsKnownAlsoWhereNoBadgeIsShown) {
  EXPECT_EQ(modelVendor({.agent = "claude", .model = "claude-sonnet-4"}), ModelVendor::anthropic);
  EXPECT_EQ(modelVendor({.model = "qwen3", .provider = "ollama"}), ModelVendor::qwen);
  EXPECT_EQ(modelVendor({.provider = "zai"}), ModelVendor::zhipu);
  EXPECT_EQ(modelVendor({.model = "composer-1"}), std::nullopt);
  EXPECT_EQ(modelVendor({}), std::nullopt);
}

TEST(ProvenanceBadge, AHostIsAnApplicationOfSomeoneElse) {
  EXPECT_EQ(hostApp({.agent = "claude", .host = " Cursor \n"}), "Cursor");
  EXPECT_EQ(hostApp({.host = "vscode"}), "vscode");
  EXPECT_EQ(hostApp({.agent = "claude", .host = "chatgpt-chat"}), "chatgpt-chat");
  // Agents that no vendor makes have no vendor in common.
  EXPECT_EQ(hostApp({.agent = "hermes", .host = "cursor"}), "cursor");
  EXPECT_EQ(hostApp({.agent = "claude"}), std::nullopt);
  EXPECT_EQ(hostApp({.agent = "claude", .host = ""}), std::nullopt);
  EXPECT_EQ(hostApp({.agent = "cursor", .host = "Cursor"}), std::nullopt);
  EXPECT_EQ(hostApp({.agent = "claude", .host = "Claude Code", .agentName = "claude code "}), std::nullopt);
  EXPECT_EQ(hostApp({.agent = "kimi", .host = "KIMI-code"}), std::nullopt);
  for (const char* terminal : {"Terminal", "Apple_Terminal", "iTerm2", "iTerm.app", "ghostty", "WezTerm", "tmux",
                               "Windows Terminal", "cli", "xterm"})
    EXPECT_EQ(hostApp({.agent = "claude", .host = terminal}), std::nullopt) << terminal;
}

}  // namespace
}  // namespace tessary
