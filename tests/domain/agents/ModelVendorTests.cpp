#include <array>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/agents/ModelVendor.h"

namespace tessary {
namespace {

using enum ModelVendor::Case;
using Text = std::optional<std::string_view>;

struct TitleRow {
  ModelVendor::Case vendor;
  std::string_view rawValue;
  std::string_view title;
};

TEST(ModelVendor, HasItsCasesInOrderWithTheirRawTextsAndTitles) {
  constexpr auto rows = std::to_array<TitleRow>({
      {anthropic, "anthropic", "Claude"},
      {openai, "openai", "OpenAI"},
      {google, "google", "Google"},
      {meta, "meta", "Llama"},
      {mistral, "mistral", "Mistral"},
      {qwen, "qwen", "Qwen"},
      {deepseek, "deepseek", "DeepSeek"},
      {xai, "xai", "Grok"},
      {moonshot, "moonshot", "Kimi"},
      {zhipu, "zhipu", "GLM"},
      {minimax, "minimax", "MiniMax"},
      {nvidia, "nvidia", "Nemotron"},
      {stepfun, "stepfun", "StepFun"},
      {microsoft, "microsoft", "Phi"},
      {xiaomi, "xiaomi", "MiMo"},
      {amazon, "amazon", "Amazon"},
  });
  const auto cases = allCases<ModelVendor::Case>();
  ASSERT_EQ(cases.size(), rows.size());
  for (std::size_t index = 0; index < rows.size(); ++index) {
    EXPECT_EQ(cases[index], rows[index].vendor);
    EXPECT_EQ(rawValue(cases[index]), rows[index].rawValue);
    EXPECT_EQ(fromRawValue<ModelVendor::Case>(rows[index].rawValue), rows[index].vendor);
    EXPECT_EQ(ModelVendor(cases[index]).title(), rows[index].title);
  }
}

struct FamilyRow {
  ModelVendor::Case vendor;
  Text model;
  std::string_view family;
};

TEST(ModelVendor, TheFamilyIsTheWordByWhichUsersCallTheModel) {
  constexpr auto rows = std::to_array<FamilyRow>({
      // Where a vendor's models go by one word it is the title.
      {anthropic, "claude-sonnet-4", "Claude"},
      {anthropic, "opus", "Claude"},
      {qwen, "qwen2.5-coder:7b", "Qwen"},
      {xai, "grok-4", "Grok"},
      {zhipu, "z-ai/glm-4.6", "GLM"},
      {microsoft, "phi-4", "Phi"},
      // Others have a word of their own.
      {openai, "gpt-5.2", "GPT"},
      {openai, "openai/gpt-oss-120b", "GPT"},
      {openai, "codex-mini-latest", "Codex"},
      {openai, "gpt-5-codex", "GPT"},
      {openai, "ChatGPT-4o-latest", "ChatGPT"},
      {google, "models/gemini-2.5-pro", "Gemini"},
      {google, "gemma3:27b", "Gemma"},
      {meta, "codellama:13b", "Code Llama"},
      {meta, "llama-3", "Llama"},
      {mistral, "mistralai/Mixtral-8x7B", "Mixtral"},
      {mistral, "codestral-2501", "Codestral"},
      {mistral, "devstral-small", "Devstral"},
      {mistral, "magistral-medium", "Magistral"},
      {mistral, "ministral-8b", "Ministral"},
      {mistral, "pixtral-12b", "Pixtral"},
      {mistral, "mistral-large", "Mistral"},
      {qwen, "qwq:32b", "QwQ"},
      {moonshot, "moonshot-v1-8k", "Moonshot"},
      {moonshot, "kimi-k2", "Kimi"},
      {stepfun, "step-2-16k", "Step"},
      // Numbers for names.
      {openai, "o1", "o1"},
      {openai, "o3-mini", "o3"},
      {openai, "o-4-mini", "o4"},
      {openai, "openai/o3:high", "o3"},
      {openai, "o-mini", "OpenAI"},
      {meta, "o3", "Llama"},
      // What a cloud puts in front does not count.
      {amazon, "us.amazon.nova-pro-v1:0", "Nova"},
      {amazon, "amazon.titan-text-express-v1", "Titan"},
      {mistral, "mistral.mixtral-8x7b-instruct-v0:1", "Mixtral"},
      // Nor do the words of others.
      {nvidia, "nvidia/llama-3.1-nemotron-70b", "Nemotron"},
      {deepseek, "deepseek-ai/DeepSeek-R1-Distill-Qwen-32B", "DeepSeek"},
      {google, "claude-sonnet-4", "Google"},
      // Nor a word that is only borrowed.
      {openai, "gpt4all-13b", "OpenAI"},
      {openai, "EleutherAI/gpt-j-6b", "OpenAI"},
      {openai, "gpt-neox-20b", "OpenAI"},
      {openai, "gpt-neo-2.7b", "GPT"},
      // Nothing known but the vendor.
      {google, "text-bison", "Google"},
      {google, std::nullopt, "Google"},
      {amazon, "", "Amazon"},
      {openai, std::nullopt, "OpenAI"},
      {anthropic, std::nullopt, "Claude"},
  });
  for (const FamilyRow& row : rows)
    EXPECT_EQ(ModelVendor::family(row.vendor, row.model), row.family) << row.model.value_or("no model");
}

TEST(ModelVendor, AnOllamaTagIsTwoPartsWithASmallLetterOrDigitInFront) {
  for (const std::string_view text : {"qwen2.5-coder:7b", "a:", "0:0", "z:Z", "9b:x", "anthropic/claude:beta"})
    EXPECT_TRUE(ModelVendor::isOllamaTag(text)) << text;
  for (const std::string_view text : {"", ":", ":7b", "qwen", "a:b:c", "a::", "Qwen:7b", " qwen:7b", "-a:b", "\u00E9:b",
                                      "\u0663:b", "`:b", "{:b", "/:b", "a\uFF1Ab"})
    EXPECT_FALSE(ModelVendor::isOllamaTag(text)) << text;
}

TEST(ModelVendor, OnlyTheMachineItselfIsNearby) {
  for (const std::string_view text :
       {"http://localhost:11434", "localhost:11434", "localhost", " LOCALHOST \n", "http://localhost/v1",
        "https://localhost:8443/v1?x=1", "http://127.0.0.1:1234/v1", "127.0.0.1", "127.255.255.254:1", "0.0.0.0:11434",
        "http://[::1]:8080", "[::1]", "http://[0:0:0:0:0:0:0:1]:1", "http://[::]:8080", "ollama.localhost",
        "localhost.", "http://user@localhost:1", "http://host.docker.internal:11434", "host.containers.internal"})
    EXPECT_TRUE(ModelVendor::isNearby(text)) << text;
  for (const std::string_view text : {"",
                                      " ",
                                      "http://",
                                      "https://api.example.test",
                                      "http://192.168.1.5:11434",
                                      "10.0.0.1",
                                      "nas.local:11434",
                                      "128.0.0.1",
                                      "0.0.0.1",
                                      "127.1",
                                      "http://[::2]",
                                      "http://[fe80::1]",
                                      "[::1",
                                      "localhost.example.test",
                                      "notlocalhost",
                                      "http://localhost@example.test",
                                      "http://example.test/localhost",
                                      "local host",
                                      "http://localhost%00.example.test",
                                      "localhost:port",
                                      "\xFF"})
    EXPECT_FALSE(ModelVendor::isNearby(text)) << text;
}

struct LocalRow {
  Text provider;
  Text baseURL;
  Text model;
  bool isLocal;
};

TEST(ModelVendor, AModelIsLocalByItsRunnerItsAddressOrItsTag) {
  constexpr Text no;
  constexpr auto rows = std::to_array<LocalRow>({
      // By the runner, in any letter case, and by nothing that only begins like one.
      {"ollama", no, no, true},
      {" Ollama\n", no, "claude", true},
      {"LM-Studio", no, no, true},
      {"ollama", "https://example.test", no, true},
      {"ollama-remote", no, "qwen:7b", false},
      {"janus", no, no, false},
      // By the address, whatever provider it stands under.
      {"openai", "http://localhost:11434/v1", "gpt-oss", true},
      {no, "127.0.0.1:1234", no, true},
      {no, "localhost:1235", no, false},
      {no, "http://localhost", no, false},
      {no, "http://192.168.1.5:11434", no, false},
      {no, "https://example.test:11434", "qwen:7b", false},
      {no, "nonsense", "qwen:7b", false},
      {no, " ", "qwen:7b", true},
      // By the tag, where nothing else is known.
      {no, no, "qwen2.5-coder:7b", true},
      {"", "", " llama3.1:8b-instruct-q4_K_M ", true},
      {no, no, "llama3:latest", true},
      {"openrouter", no, "qwen2.5-coder:7b", false},
      {"anthropic", no, "qwen2.5-coder:7b", false},
      {no, no, "qwen2.5-coder", false},
      {no, no, "deepseek/deepseek-r1:free", false},
      {no, no, "anthropic.claude-v2:0", false},
      {no, no, "anthropic.claude-v2:12", false},
      {no, no, "qwen:", false},
      {no, no, "Qwen:7b", false},
      {no, no, no, false},
      // A cloud is none of it.
      {no, no, "gpt-oss:120b-cloud", false},
      {"ollama", no, "gpt-oss:120b-Cloud", false},
      {"ollama", "http://localhost:11434", "glm-4.6:cloud", false},
      {"ollama", no, "cloud", true},
  });
  for (const LocalRow& row : rows) {
    EXPECT_EQ(ModelVendor::isLocal(row.provider, row.baseURL, row.model), row.isLocal)
        << row.provider.value_or("-") << ' ' << row.baseURL.value_or("-") << ' ' << row.model.value_or("-");
  }
}

TEST(ModelVendor, KnowsEveryRunnerAndItsPort) {
  for (const std::string_view provider : {"ollama", "lmstudio", "lm-studio", "llamacpp", "llama.cpp", "llama-cpp",
                                          "vllm", "mlx", "mlx-lm", "localai", "jan", "koboldcpp", "llamafile"})
    EXPECT_TRUE(ModelVendor::isLocal(provider, std::nullopt, std::nullopt)) << provider;
  for (const int port : {11434, 1234, 8080, 8000, 1337, 5001}) {
    const auto isLocalAt = [](int number) {
      return ModelVendor::isLocal(std::nullopt, "http://localhost:" + std::to_string(number), std::nullopt);
    };
    EXPECT_TRUE(isLocalAt(port)) << port;
    EXPECT_FALSE(isLocalAt(port - 1)) << port;
    EXPECT_FALSE(isLocalAt(port + 1)) << port;
  }
}

TEST(ModelVendor, AnIdentifierOfAProviderIsKeptAsItStands) {
  for (const std::string_view text : {"openai", "OpenAI", "llama.cpp", "lm-studio", "lm_studio", "302ai", "a"})
    EXPECT_EQ(ModelVendor::providerID(text), text);
  for (const std::string_view text : {"", " openai", "LM Studio", "open/ai", "https://example.test", "a:b", "-a", ".a",
                                      "_a", "\u00E9", "a\u00E9", "a\n", "\xFF", "a@b"})
    EXPECT_EQ(ModelVendor::providerID(text), std::nullopt) << text;
  EXPECT_EQ(ModelVendor::providerID(std::string_view("a\0b", 3)), std::nullopt);
  EXPECT_EQ(ModelVendor::providerID(std::nullopt), std::nullopt);
}

TEST(ModelVendor, AnIdentifierOfAProviderHasAtMost64Scalars) {
  static_assert(ModelVendor::maximumProviderIDScalars == 64);
  for (const std::size_t length : {std::size_t{63}, std::size_t{64}})
    EXPECT_EQ(ModelVendor::providerID(std::string(length, 'a')), std::string(length, 'a'));
  EXPECT_EQ(ModelVendor::providerID(std::string(65, 'a')), std::nullopt);
}

}  // namespace
}  // namespace tessary
