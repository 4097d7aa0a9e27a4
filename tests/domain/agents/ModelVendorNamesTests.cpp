#include <array>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/agents/ModelVendor.h"

namespace tessary {
namespace {

constexpr std::optional<ModelVendor::Case> none;

struct NameRow {
  std::string_view name;
  std::optional<ModelVendor::Case> vendor;
};

std::string shown(std::optional<ModelVendor> vendor) {
  return vendor ? std::string(rawValue<ModelVendor::Case>(*vendor)) : "none";
}

std::string shownCase(std::optional<ModelVendor::Case> vendor) {
  return vendor ? std::string(rawValue(*vendor)) : "none";
}

using enum ModelVendor::Case;

constexpr auto names = std::to_array<NameRow>({
    // A path tells the publisher in front.
    {"anthropic/claude-3.5-sonnet", anthropic},
    {"openai/gpt-oss-120b", openai},
    {"google/gemini-2.5-pro-preview-05-06", google},
    {"google/gemma-3-27b-it:free", google},
    {"meta-llama/llama-3.3-70b-instruct", meta},
    {"meta-llama/Meta-Llama-3.1-405B-Instruct-Turbo", meta},
    {"mistralai/Mixtral-8x7B-Instruct-v0.1", mistral},
    {"mistralai/pixtral-12b", mistral},
    {"qwen/qwen3-coder:free", qwen},
    {"Qwen/Qwen2.5-Coder-32B-Instruct", qwen},
    {"deepseek/deepseek-r1:free", deepseek},
    {"deepseek-ai/DeepSeek-R1-Distill-Llama-70B", deepseek},
    {"x-ai/grok-code-fast-1", xai},
    {"moonshotai/kimi-k2-0905", moonshot},
    {"z-ai/glm-4.5-air", zhipu},
    {"nvidia/llama-3.1-nemotron-ultra-253b-v1", nvidia},
    {"stepfun/step3", stepfun},
    {"amazon/nova-pro-v1", amazon},
    {"microsoft/phi-4-reasoning-plus", microsoft},
    {"microsoft/wizardlm-2-8x22b", microsoft},
    {"google/claude-3", google},
    // Also in front of a cloud's name and of one that is only borrowed.
    {"google/anthropic.claude-v2", google},
    {"openai/gpt-j-6b", openai},
    {"/anthropic//command/", anthropic},
    // Other paths leave it to the last part.
    {"openrouter/anthropic/claude-sonnet-4.5", anthropic},
    {"openrouter/amazon/nova-pro-v1", none},
    {"models/gemini-1.5-pro-002", google},
    {"publishers/google/models/gemini-2.0-flash-001", google},
    {"accounts/fireworks/models/llama-v3p1-405b-instruct", meta},
    {"fireworks_ai/accounts/fireworks/models/qwen3-235b-a22b", qwen},
    {"@cf/meta/llama-3.1-8b-instruct", meta},
    {"@cf/mistral/mistral-7b-instruct-v0.1", mistral},
    {"groq/llama-3.3-70b-versatile", meta},
    {"thudm/glm-4-32b", zhipu},
    {"MiniMaxAI/MiniMax-M2", minimax},
    {"XiaomiMiMo/MiMo-7B-RL", xiaomi},
    {"stepfun-ai/step3", stepfun},
    {"meta/llama-3", meta},
    {"mlx-community/Qwen2.5-Coder-7B-Instruct-4bit", qwen},
    {"bartowski/gemma-2-9b-it-GGUF", google},
    {"TheBloke/CodeLlama-34B-Instruct-GGUF", meta},
    {"unsloth/Phi-4-mini-instruct", microsoft},
    {"hf.co/unsloth/DeepSeek-R1-GGUF:Q4_K_M", deepseek},
    {"huihui_ai/qwq-abliterated:32b", qwen},
    {"nousresearch/hermes-3-llama-3.1-405b", none},
    {"cognitivecomputations/dolphin-mixtral-8x22b", none},
    {"cohere/command-r-plus-08-2024", none},
    {"perplexity/sonar-pro", none},
    {"EleutherAI/gpt-j-6b", none},
    {"gpt4all/llama-3", meta},
    // A publisher without a model is none.
    {"anthropic/", none},
    {"//google//", none},
    {"openai", none},
    // A cloud's names have the vendor in front, perhaps behind a region.
    {"anthropic.claude-v2", anthropic},
    {"anthropic.claude-v2:1", anthropic},
    {"us.anthropic.claude-sonnet-4", anthropic},
    {"us.anthropic.claude-sonnet-4-20250514-v1:0", anthropic},
    {"eu.anthropic.claude-3-7-sonnet-20250219-v1:0", anthropic},
    {"apac.anthropic.claude-3-haiku-20240307-v1:0", anthropic},
    {"global.anthropic.claude-sonnet-4-5-20250929-v1:0", anthropic},
    {"us.meta.llama3-3-70b-instruct-v1:0", meta},
    {"meta.llama3-8b-instruct-v1:0", meta},
    {"amazon.nova-micro-v1:0", amazon},
    {"us.amazon.nova-premier-v1:0", amazon},
    {"amazon.titan-text-express-v1", amazon},
    {"mistral.mixtral-8x7b-instruct-v0:1", mistral},
    {"mistral.7b", mistral},
    {"us.deepseek.r1-v1:0", deepseek},
    {"deepseek.v3-v1:0", deepseek},
    {"qwen.qwen3-coder-480b-a35b-v1:0", qwen},
    {"bedrock/us.anthropic.claude-opus-4-1", anthropic},
    {"amazon.a.b.c.d", amazon},
    {"us..amazon..nova", amazon},
    {".amazon.nova", amazon},
    {"openai.gpt-oss-120b-1:0", none},
    {"cohere.command-r-v1:0", none},
    {"jp.anthropic.claude-sonnet-4-5", none},
    {"us-gov.anthropic.claude-3-5-sonnet-20240620-v1:0", none},
    {"arn:aws:bedrock:us-east-1::foundation-model/anthropic.claude-v2", none},
    // A region counts only in front of a vendor and a model.
    {"us.anthropic", none},
    {"us.anthropic.", none},
    {"us.claude-3.5", none},
    {"us.us.anthropic.claude", none},
    {"amazon", none},
    {"amazon..", none},
    // The first letters of a name.
    {"claude-sonnet-4", anthropic},
    {"claude-3-5-sonnet-20241022", anthropic},
    {"claude-3-5-sonnet-v2@20241022", anthropic},
    {"Claude Opus 4.1", anthropic},
    {"  claude-opus-4-1\r\n", anthropic},
    {"\u00A0claude-instant-1.2\u2029", anthropic},
    {"\u200Bclaude", none},
    {"\u001Fclaude", none},
    {"claude-sonnet-4-5[1m]", anthropic},
    {"opus[1m]", none},
    {"sonnet", none},
    {"default", none},
    {"gpt-4o", openai},
    {"gpt-4.1-mini-2025-04-14", openai},
    {"gpt-3.5-turbo-0125", openai},
    {"gpt-5-codex", openai},
    {"gpt-oss:20b", openai},
    {"chatgpt-4o-latest", openai},
    {"codex-mini-latest", openai},
    {"ft:gpt-4o-mini-2024-07-18:acme::9X", none},
    {"text-davinci-003", none},
    {"gemini-2.5-flash-lite-preview-06-17", google},
    {"gemini-exp-1206", google},
    {"gemma3:27b", google},
    {"text-bison@002", none},
    {"llama3.1:8b-instruct-q4_K_M", meta},
    {"llama-4-maverick-17b-128e-instruct-fp8", meta},
    {"codellama:13b-python", meta},
    {"Meta-Llama-3-8B", none},
    {"tinyllama:1.1b", none},
    {"ollama", none},
    {"mistral-large-latest", mistral},
    {"ministral-8b-2410", mistral},
    {"codestral-2501", mistral},
    {"devstral-small-2507", mistral},
    {"magistral-medium-2506", mistral},
    {"mixtral:8x7b", mistral},
    {"open-mixtral-8x22b", none},
    {"qwen2.5-coder:7b", qwen},
    {"qwen3-coder-plus", qwen},
    {"qwq-32b-preview", qwen},
    {"qvq-72b-preview", none},
    {"deepseek-reasoner", deepseek},
    {"deepseek-coder-v2:16b", deepseek},
    {"grok-4-0709", xai},
    {"groq-compound", none},
    {"kimi-k2-turbo-preview", moonshot},
    {"\u212Aimi-k2", moonshot},
    {"moonshot-v1-128k", moonshot},
    {"glm-4.6", zhipu},
    {"chatglm3-6b", none},
    {"MiniMax-M2", minimax},
    {"abab6.5s-chat", none},
    {"nemotron-mini:4b", nvidia},
    {"mimo-v2-flash", xiaomi},
    {"command-r", none},
    {"starcoder2:3b", none},
    // Names that are only borrowed, and how far that goes.
    {"gpt4all-13b", none},
    {"gpt-j-6b", none},
    {"gpt-neox-20b", none},
    {"gpt-neo-2.7b", openai},
    {"gpt-jet", none},
    // Short prefixes need an ASCII digit, with at most one hyphen in front.
    {"o1", openai},
    {"o3-mini", openai},
    {"o4-mini-deep-research", openai},
    {"o-3", openai},
    {"o--3", none},
    {"o-mini", none},
    {"o", none},
    {"o-", none},
    {"o\u0663", none},
    {"omni-moderation-latest", none},
    {"phi3:medium", microsoft},
    {"phi-3.5-mini-instruct", microsoft},
    {"phi4-reasoning", microsoft},
    {"phi-mini", none},
    {"phind-codellama:34b", none},
    {"step-2-16k", stepfun},
    {"step-1v-8k", stepfun},
    {"stepfun", none},
    // Names without a name.
    {"", none},
    {" \n", none},
    {"/", none},
    {":claude", none},
    {"[claude]", none},
    {"claude:", anthropic},
    // Nothing behind the first mark of a variant counts, neither a path nor another mark.
    {"any[1m]/claude", none},
    {"any:7b/claude", none},
    {"any:7b/claude:beta", none},
    {"openai[1m]/any", none},
    {".", none},
    {"\xFF\xFE", none},
});

TEST(ModelVendorNames, EachNameInTheWildHasItsVendorOrNone) {
  for (const NameRow& row : names)
    EXPECT_EQ(shown(ModelVendor::named(row.name)), shownCase(row.vendor)) << row.name;
}

TEST(ModelVendorNames, EverySlugTellsTheVendorOfAnyModelBehindIt) {
  constexpr auto slugs = std::to_array<NameRow>({
      {"anthropic", anthropic},
      {"openai", openai},
      {"google", google},
      {"meta-llama", meta},
      {"mistralai", mistral},
      {"qwen", qwen},
      {"deepseek", deepseek},
      {"deepseek-ai", deepseek},
      {"x-ai", xai},
      {"moonshotai", moonshot},
      {"z-ai", zhipu},
      {"nvidia", nvidia},
      {"stepfun", stepfun},
      {"amazon", amazon},
      {"microsoft", microsoft},
  });
  for (const NameRow& row : slugs) {
    EXPECT_EQ(shown(ModelVendor::named(std::string(row.name) + "/any")), shownCase(row.vendor)) << row.name;
    EXPECT_EQ(shown(ModelVendor::named(std::string(row.name) + "x/any")), "none") << row.name;
  }
}

TEST(ModelVendorNames, EveryCloudVendorIsReadWithAndWithoutEachRegion) {
  constexpr auto vendors = std::to_array<NameRow>({{"anthropic", anthropic},
                                                   {"meta", meta},
                                                   {"amazon", amazon},
                                                   {"mistral", mistral},
                                                   {"deepseek", deepseek},
                                                   {"qwen", qwen}});
  for (const NameRow& row : vendors) {
    for (const std::string_view region : {"", "us.", "eu.", "apac.", "global."}) {
      const std::string name = std::string(region) + std::string(row.name) + ".any";
      EXPECT_EQ(shown(ModelVendor::named(name)), shownCase(row.vendor)) << name;
    }
    EXPECT_EQ(shown(ModelVendor::named("ca." + std::string(row.name) + ".any")), "none") << row.name;
  }
}

TEST(ModelVendorNames, EveryModelPrefixTellsTheVendorWhateverFollows) {
  constexpr auto prefixes = std::to_array<NameRow>({
      {"claude", anthropic},  {"gpt", openai},        {"codex", openai},      {"chatgpt", openai},
      {"gemini", google},     {"gemma", google},      {"llama", meta},        {"codellama", meta},
      {"mistral", mistral},   {"mixtral", mistral},   {"codestral", mistral}, {"devstral", mistral},
      {"magistral", mistral}, {"ministral", mistral}, {"qwen", qwen},         {"qwq", qwen},
      {"deepseek", deepseek}, {"grok", xai},          {"kimi", moonshot},     {"moonshot", moonshot},
      {"glm", zhipu},         {"minimax", minimax},   {"nemotron", nvidia},   {"mimo", xiaomi},
  });
  for (const NameRow& row : prefixes) {
    EXPECT_EQ(shown(ModelVendor::named(row.name)), shownCase(row.vendor)) << row.name;
    EXPECT_EQ(shown(ModelVendor::named(std::string(row.name) + "zzz")), shownCase(row.vendor)) << row.name;
    EXPECT_EQ(shown(ModelVendor::named("z" + std::string(row.name))), "none") << row.name;
  }
}

TEST(ModelVendorNames, EveryProviderPrefixTellsTheVendor) {
  constexpr auto providers = std::to_array<NameRow>({
      {"anthropic", anthropic},
      {"claude", anthropic},
      {"openai", openai},
      {"chatgpt", openai},
      {"google", google},
      {"gemini", google},
      {"vertex", google},
      {"mistral", mistral},
      {"deepseek", deepseek},
      {"xai", xai},
      {"grok", xai},
      {"alibaba", qwen},
      {"dashscope", qwen},
      {"qwen", qwen},
      {"kimi", moonshot},
      {"moonshot", moonshot},
      {"zai", zhipu},
      {" ZAI\n", zhipu},
      {"zai-org", none},
      {"Google-Vertex", google},
      {"openai-compatible", openai},
      {"openrouter", none},
      {"ollama", none},
      {"amazon-bedrock", none},
      {"azure-openai", none},
      {"meta", none},
      {"", none},
      {"  Anthropic ", anthropic},
  });
  for (const NameRow& row : providers)
    EXPECT_EQ(shown(ModelVendor::provided(row.name)), shownCase(row.vendor)) << row.name;
}

TEST(ModelVendorNames, EveryAgentOfAVendorIsKnownByItsExactIdentifier) {
  constexpr auto agents = std::to_array<NameRow>({
      {"claude", anthropic},
      {"claude-desktop-chat", anthropic},
      {"codex", openai},
      {"chatgpt-chat", openai},
      {"gemini", google},
      {"antigravity", google},
      {"gemini-chat", google},
      {"qwen", qwen},
      {"kimi", moonshot},
      {"kimi-code", moonshot},
      {"dsh", deepseek},
      {"mistral-vibe", mistral},
      {"grok-build", xai},
      {"mimocode", xiaomi},
      {"Claude", none},
      {" claude", none},
      {"claude-code", none},
      {"deepseek", none},
      {"qwenwork", none},
      {"cursor", none},
      {"", none},
  });
  for (const NameRow& row : agents)
    EXPECT_EQ(shown(ModelVendor::own(row.name)), shownCase(row.vendor)) << row.name;
}

TEST(ModelVendorNames, AModelComesBeforeItsProvider) {
  EXPECT_EQ(ModelVendor::of("claude-sonnet-4", "google-vertex"), anthropic);
  EXPECT_EQ(ModelVendor::of("text-bison", "google-vertex"), google);
  EXPECT_EQ(ModelVendor::of("", "xai"), xai);
  EXPECT_EQ(ModelVendor::of(std::nullopt, "xai"), xai);
  EXPECT_EQ(ModelVendor::of("grok-4", std::nullopt), xai);
  EXPECT_EQ(ModelVendor::of("gpt-j-6b", "openai"), openai);
  EXPECT_EQ(ModelVendor::of("any", std::nullopt), std::nullopt);
  EXPECT_EQ(ModelVendor::of("any", "openrouter"), std::nullopt);
  EXPECT_EQ(ModelVendor::of(std::nullopt, std::nullopt), std::nullopt);
}

TEST(ModelVendorNames, ALongPathIsReadInLinearTime) {
  const std::string path(1'000'000, '/');
  EXPECT_EQ(ModelVendor::named(path + "claude"), anthropic);
  EXPECT_EQ(ModelVendor::named("us" + std::string(1'000'000, '.') + "amazon.nova"), amazon);
}

}  // namespace
}  // namespace tessary
