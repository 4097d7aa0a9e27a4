#include "TessaryDomain/agents/AgentSourceProfile.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "TessaryLocalization/L10n.h"
#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {

namespace {

constexpr std::string_view separator = " · ";

struct ProviderRow {
  enum class Title : std::uint8_t {
    /// A proper name, the same in every language.
    name,
    /// A key of the catalog.
    key,
    /// The product whose chat it is; the catalog has the word for "chat".
    chat,
  };

  std::string_view source;
  std::string_view text;
  Title title = Title::name;
};

using Title = ProviderRow::Title;

constexpr auto providers = std::to_array<ProviderRow>({
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
    {"claude-desktop-chat", "Claude", Title::chat},
    {"gemini-chat", "Gemini", Title::chat},
    {"chatgpt-chat", "ChatGPT chat", Title::key},
    {"perplexity-chat", "Perplexity 채팅", Title::key},
    {"web", "웹", Title::key},
    {"services", "서비스 메뉴", Title::key},
    {"agent-conversation", "에이전트 대화", Title::key},
});

/// A count of bytes, ":", and the bytes.
void appendCounted(std::string& key, std::string_view text) {
  key += std::to_string(text.size());
  key += ':';
  key += text;
}

}  // namespace

std::string AgentSourceProfile::key(std::string_view source, std::optional<std::string_view> profileID) {
  std::string key;
  appendCounted(key, source);
  if (!profileID) return key += ":legacy";
  key += ":profile:";
  appendCounted(key, *profileID);
  return key;
}

std::string AgentSourceProfile::providerTitle(std::string_view source) {
  const auto row = std::ranges::find(providers, source, &ProviderRow::source);
  if (row == providers.end()) return std::string(source);
  switch (row->title) {
    case Title::name:
      return std::string(row->text);
    case Title::key:
      return L10n::text(row->text);
    case Title::chat:
      break;
  }
  return L10n::text("{0} 채팅", {row->text});
}

bool AgentSourceProfile::hasVerifiedAccountName() const {
  return profileIdentityVerified == true && sourceProfileLabel && !trimmed(*sourceProfileLabel, isWhiteSpace).empty();
}

std::string AgentSourceProfile::kindTitle() const {
  if (sourceKind == "cli") return "CLI";
  if (sourceKind == "cowork") return "Cowork";
  if (sourceKind == "desktop") return L10n::text("데스크톱");
  if (sourceKind == "manual") return L10n::text("직접 가져오기");
  return L10n::text("출처 미확인");
}

std::string AgentSourceProfile::accountTitle() const {
  return hasVerifiedAccountName() ? *sourceProfileLabel : L10n::text("계정 미확인");
}

std::string AgentSourceProfile::displayName() const {
  std::string name = source == "unknown" ? L10n::text("에이전트 미확인") : providerTitle(source);
  name += separator;
  name += kindTitle();
  name += separator;
  name += accountTitle();
  return name;
}

}  // namespace tessary
