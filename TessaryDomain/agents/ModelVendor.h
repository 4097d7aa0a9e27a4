#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// Who made a model, found in the names that agents report for models and providers, of which there are dozens of
/// spellings: "claude-sonnet-4", "anthropic/claude-3.5", "us.anthropic.claude-v2", "qwen2.5-coder:7b".
///
/// The cases are those of `ModelVendor::Case`, which is the enumeration: `rawValue(ModelVendor::xai)`,
/// `fromRawValue<ModelVendor::Case>("xai")`, `allCases<ModelVendor::Case>()`.
///
/// All operations take any text, in time in proportion to its length. Unless they say otherwise, letter case and white
/// space at both ends make no difference.
class ModelVendor {
 public:
  enum Case : std::uint8_t {
    anthropic,
    openai,
    google,
    meta,
    mistral,
    qwen,
    deepseek,
    xai,
    moonshot,
    zhipu,
    minimax,
    nvidia,
    stepfun,
    microsoft,
    xiaomi,
    amazon,
  };

  // Not explicit: a case is a vendor.
  constexpr ModelVendor(Case value) : value_(value) {}
  constexpr operator Case() const { return value_; }

  /// The longest identifier of a provider, in scalars.
  static constexpr std::size_t maximumProviderIDScalars = 64;

  /// The vendor that the model names, or else the one that the provider names; absent where neither names one.
  [[nodiscard]] static std::optional<ModelVendor> of(std::optional<std::string_view> model,
                                                     std::optional<std::string_view> provider);

  /// The vendor of a model's name: by the publisher in front of a "/", by the vendor in a cloud's dotted name, by the
  /// first letters of the name itself. What follows a ":" or "[" is a variant and says nothing ("qwen2.5-coder:7b",
  /// "opus[1m]"). Absent for all other names, an empty one among them.
  [[nodiscard]] static std::optional<ModelVendor> named(std::string_view text);

  /// The vendor of a provider's name, by its first letters: "google-vertex", "zai". Absent for providers of models of
  /// many vendors.
  [[nodiscard]] static std::optional<ModelVendor> provided(std::string_view text);

  /// The vendor that makes the agent with this identifier, which is compared exactly.
  [[nodiscard]] static std::optional<ModelVendor> own(std::string_view source);

  /// The word for a badge: what users call the line of models that `model` belongs to, as the vendor writes it, without
  /// version and size ("gemma-3-27b" is "Gemma", "gpt-5.2" is "GPT"). Models of OpenAI that are called by a number have
  /// that number ("o3-mini" is "o3"). The vendor's `title` where the model is absent, or is called by that word, or by
  /// none that the vendor has lines of: the words of another vendor in the name of a fine-tune are not shown.
  [[nodiscard]] static std::string family(ModelVendor vendor, std::optional<std::string_view> model);

  /// The word by which users know the vendor's models where one has spread ("Claude"), else the vendor's own name. The
  /// same in all languages.
  [[nodiscard]] std::string_view title() const;

  /// True for a text of two parts with one ":" between them, of which the first begins with a lower-case ASCII letter
  /// or a digit: "qwen2.5-coder:7b". The text is taken exactly as it stands.
  [[nodiscard]] static bool isOllamaTag(std::string_view text);

  /// True for the address of a server on the machine itself, whatever its port: a loopback address, the unspecified
  /// address on which servers say that they listen, "localhost" and names below it, and the names that a container has
  /// for the machine around it. A scheme may be missing, as people write it ("localhost:11434"). Other machines are not
  /// near, however private their network: nobody knows whose they are.
  [[nodiscard]] static bool isNearby(std::string_view text);

  /// True where a model runs on the user's own machine. All that can be known may be given; an absent text and one of
  /// white space are the same. A badge that wrongly says "local" does more harm than one that is missing, so:
  ///
  /// 1. A tag that ends in "cloud" is not local, whoever starts it ("gpt-oss:120b-cloud").
  /// 2. A provider that is a program for local models decides: "ollama", "lm-studio".
  /// 3. An address decides: it is local if it `isNearby` and has the port of such a program, and not otherwise.
  /// 4. A provider that is none of those programs decides that the model is not local.
  /// 5. With nothing known but the model it is local if it `isOllamaTag`. Two forms that only services use are left
  ///    out: names with a "/" ("deepseek/deepseek-r1:free"), and tags that are empty or digits alone ("nova-pro-v1:0").
  [[nodiscard]] static bool isLocal(std::optional<std::string_view> provider, std::optional<std::string_view> baseURL,
                                    std::optional<std::string_view> model);

  /// The identifier of a provider as it stands, where it can be one: 1 to `maximumProviderIDScalars` ASCII letters,
  /// digits, ".", "_" and "-", of which the first is a letter or a digit. Absent for all else, so that no address,
  /// path, or sentence is ever kept in the place of an identifier.
  [[nodiscard]] static std::optional<std::string> providerID(std::optional<std::string_view> text);

 private:
  Case value_;
};

/// The row of a vendor: the word that users know beside its raw value.
struct ModelVendorRow {
  ModelVendor::Case value;
  std::string_view rawValue;
  std::string_view title;
};

template <>
struct RawValues<ModelVendor::Case> {
  static constexpr auto table = std::to_array<ModelVendorRow>({
      {ModelVendor::anthropic, "anthropic", "Claude"},
      {ModelVendor::openai, "openai", "OpenAI"},
      {ModelVendor::google, "google", "Google"},
      {ModelVendor::meta, "meta", "Llama"},
      {ModelVendor::mistral, "mistral", "Mistral"},
      {ModelVendor::qwen, "qwen", "Qwen"},
      {ModelVendor::deepseek, "deepseek", "DeepSeek"},
      {ModelVendor::xai, "xai", "Grok"},
      {ModelVendor::moonshot, "moonshot", "Kimi"},
      {ModelVendor::zhipu, "zhipu", "GLM"},
      {ModelVendor::minimax, "minimax", "MiniMax"},
      {ModelVendor::nvidia, "nvidia", "Nemotron"},
      {ModelVendor::stepfun, "stepfun", "StepFun"},
      {ModelVendor::microsoft, "microsoft", "Phi"},
      {ModelVendor::xiaomi, "xiaomi", "MiMo"},
      {ModelVendor::amazon, "amazon", "Amazon"},
  });
};

/// A badge that names the vendor of a model.
struct VendorBadge {
  ModelVendor vendor;
  /// The word to show.
  std::string family;

  bool operator==(const VendorBadge&) const = default;
};

/// A badge that says that a model ran on the user's own machine.
struct LocalBadge {
  /// The program that ran it, where it has a badge of its own: "ollama" or "lmstudio".
  std::optional<std::string> name;

  bool operator==(const LocalBadge&) const = default;
};

/// What the reader shows beside a document about the model that wrote it.
using ModelBadge = std::variant<VendorBadge, LocalBadge>;

}  // namespace tessary
