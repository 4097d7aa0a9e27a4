#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "TessaryDomain/agents/ModelVendor.h"
#include "TessaryDomain/capture/WordSet.h"

/// What `ModelVendor` knows of names in the wild: one row a name, written to be read and changed by hand. All texts are
/// lower case. Where rows are prefixes their order counts, since the first that fits decides.
namespace tessary::ModelNames {

/// A name, or the beginning of one, and the vendor that it tells.
struct VendorRow {
  std::string_view text;
  ModelVendor::Case vendor;
};

/// Who publishes a model: the part of a path in front of the first "/".
inline constexpr auto slugs = std::to_array<VendorRow>({
    {"anthropic", ModelVendor::anthropic},
    {"openai", ModelVendor::openai},
    {"google", ModelVendor::google},
    {"meta-llama", ModelVendor::meta},
    {"mistralai", ModelVendor::mistral},
    {"qwen", ModelVendor::qwen},
    {"deepseek", ModelVendor::deepseek},
    {"deepseek-ai", ModelVendor::deepseek},
    {"x-ai", ModelVendor::xai},
    {"moonshotai", ModelVendor::moonshot},
    {"z-ai", ModelVendor::zhipu},
    {"nvidia", ModelVendor::nvidia},
    {"stepfun", ModelVendor::stepfun},
    {"amazon", ModelVendor::amazon},
    {"microsoft", ModelVendor::microsoft},
});

/// Where a cloud runs a model: the dotted part that its names may have in front of the vendor.
inline constexpr WordSet regions(std::to_array<std::string_view>({"us", "eu", "apac", "global"}));

/// The dotted part in a cloud's name of a model that tells the vendor.
inline constexpr auto bedrock = std::to_array<VendorRow>({
    {"anthropic", ModelVendor::anthropic},
    {"meta", ModelVendor::meta},
    {"amazon", ModelVendor::amazon},
    {"mistral", ModelVendor::mistral},
    {"deepseek", ModelVendor::deepseek},
    {"qwen", ModelVendor::qwen},
});

/// Models that are named after one of a vendor, and are not of that vendor.
inline constexpr auto borrowedPrefixes = std::to_array<std::string_view>({"gpt-j", "gpt-neox", "gpt4all"});

/// What the names of models begin with.
inline constexpr auto modelPrefixes = std::to_array<VendorRow>({
    {"claude", ModelVendor::anthropic},  {"gpt", ModelVendor::openai},        {"codex", ModelVendor::openai},
    {"chatgpt", ModelVendor::openai},    {"gemini", ModelVendor::google},     {"gemma", ModelVendor::google},
    {"llama", ModelVendor::meta},        {"codellama", ModelVendor::meta},    {"mistral", ModelVendor::mistral},
    {"mixtral", ModelVendor::mistral},   {"codestral", ModelVendor::mistral}, {"devstral", ModelVendor::mistral},
    {"magistral", ModelVendor::mistral}, {"ministral", ModelVendor::mistral}, {"qwen", ModelVendor::qwen},
    {"qwq", ModelVendor::qwen},          {"deepseek", ModelVendor::deepseek}, {"grok", ModelVendor::xai},
    {"kimi", ModelVendor::moonshot},     {"moonshot", ModelVendor::moonshot}, {"glm", ModelVendor::zhipu},
    {"minimax", ModelVendor::minimax},   {"nemotron", ModelVendor::nvidia},   {"mimo", ModelVendor::xiaomi},
});

/// Too short to say anything by themselves: they count in front of a digit alone.
inline constexpr auto shortPrefixes = std::to_array<VendorRow>({
    {"o", ModelVendor::openai},
    {"phi", ModelVendor::microsoft},
    {"step", ModelVendor::stepfun},
});

/// What the names of providers begin with, of those whose models are of one vendor.
inline constexpr auto providerPrefixes = std::to_array<VendorRow>({
    {"anthropic", ModelVendor::anthropic},
    {"claude", ModelVendor::anthropic},
    {"openai", ModelVendor::openai},
    {"chatgpt", ModelVendor::openai},
    {"google", ModelVendor::google},
    {"gemini", ModelVendor::google},
    {"vertex", ModelVendor::google},
    {"mistral", ModelVendor::mistral},
    {"deepseek", ModelVendor::deepseek},
    {"xai", ModelVendor::xai},
    {"grok", ModelVendor::xai},
    {"alibaba", ModelVendor::qwen},
    {"dashscope", ModelVendor::qwen},
    {"qwen", ModelVendor::qwen},
    {"kimi", ModelVendor::moonshot},
    {"moonshot", ModelVendor::moonshot},
});

/// The agents that are made by a vendor of models, by their identifiers.
inline constexpr auto ownAgents = std::to_array<VendorRow>({
    {"claude", ModelVendor::anthropic},
    {"claude-desktop-chat", ModelVendor::anthropic},
    {"codex", ModelVendor::openai},
    {"chatgpt-chat", ModelVendor::openai},
    {"gemini", ModelVendor::google},
    {"antigravity", ModelVendor::google},
    {"gemini-chat", ModelVendor::google},
    {"qwen", ModelVendor::qwen},
    {"kimi", ModelVendor::moonshot},
    {"kimi-code", ModelVendor::moonshot},
    {"dsh", ModelVendor::deepseek},
    {"mistral-vibe", ModelVendor::mistral},
    {"grok-build", ModelVendor::xai},
    {"mimocode", ModelVendor::xiaomi},
});

/// What a vendor's models of one line begin with, and the word for that line.
struct FamilyRow {
  ModelVendor::Case vendor;
  std::string_view prefix;
  std::string_view word;
};

/// Models that go by another word than their vendor's `title`.
inline constexpr auto families = std::to_array<FamilyRow>({
    {ModelVendor::openai, "gpt", "GPT"},
    {ModelVendor::openai, "codex", "Codex"},
    {ModelVendor::openai, "chatgpt", "ChatGPT"},
    {ModelVendor::google, "gemini", "Gemini"},
    {ModelVendor::google, "gemma", "Gemma"},
    {ModelVendor::meta, "codellama", "Code Llama"},
    {ModelVendor::mistral, "mixtral", "Mixtral"},
    {ModelVendor::mistral, "codestral", "Codestral"},
    {ModelVendor::mistral, "devstral", "Devstral"},
    {ModelVendor::mistral, "magistral", "Magistral"},
    {ModelVendor::mistral, "ministral", "Ministral"},
    {ModelVendor::mistral, "pixtral", "Pixtral"},
    {ModelVendor::qwen, "qwq", "QwQ"},
    {ModelVendor::moonshot, "moonshot", "Moonshot"},
    {ModelVendor::stepfun, "step", "Step"},
    {ModelVendor::amazon, "nova", "Nova"},
    {ModelVendor::amazon, "titan", "Titan"},
});

/// Programs that run models on the machine on which they are started.
inline constexpr WordSet localProviders(
    std::to_array<std::string_view>({"ollama", "lmstudio", "lm-studio", "llamacpp", "llama.cpp", "llama-cpp", "vllm",
                                     "mlx", "mlx-lm", "localai", "jan", "koboldcpp", "llamafile"}));

/// The ports on which those programs listen unless they are told otherwise.
inline constexpr auto localPorts = std::to_array<std::uint16_t>({11434, 1234, 8080, 8000, 1337, 5001});

/// Names by which a program in a container reaches the machine that it runs on.
inline constexpr WordSet containerHosts(std::to_array<std::string_view>({"host.docker.internal",
                                                                         "host.containers.internal"}));

}  // namespace tessary::ModelNames
