#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/AgentFolders.h"
#include "TessaryDomain/capture/ArtifactCategory.h"
#include "TessaryDomain/capture/ExcludedArtifact.h"
#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryDomain/capture/SecretNames.h"
#include "TessaryPlatform/text/RegularExpression.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

using namespace CaptureRules;
using testing::UnorderedElementsAre;

const CaptureTemporaryScope scope = {
    .temporaryDirectory = "/var/folders/zz/T/", .resolvedTemporaryDirectory = {}, .dataFolderParent = "/home/u/.local"};

bool isExcluded(std::string_view path) {
  return excludedArtifact(path, scope, /*temporaryDocuments=*/false);
}

/// A file of that name in a folder of no special meaning.
bool isNameExcluded(std::string_view name) {
  return isExcluded("/home/u/desk/" + std::string(name));
}

TEST(ExcludedArtifact, HasNineteenFilesOfCredentials) {
  EXPECT_THAT(credentialFiles.sorted(),
              UnorderedElementsAre("auth.json", "credentials.json", "credentials.yaml", "credentials.yml",
                                   "tokens.json", "secrets.json", "secrets.yaml", "secrets.yml", "id_rsa", "id_ed25519",
                                   "cookie", "cookies.sqlite", ".npmrc", ".pypirc", ".netrc", ".git-credentials",
                                   ".dockercfg", "history.jsonl", "client_secret.json"));
  for (const std::string_view name : credentialFiles)
    EXPECT_TRUE(isNameExcluded(name)) << name;
  EXPECT_TRUE(isNameExcluded("Cookies.SQLite"));
  EXPECT_TRUE(isNameExcluded("coo\u212Aie")) << "the Kelvin sign folds to k";
  EXPECT_FALSE(isNameExcluded("cookies"));
}

TEST(ExcludedArtifact, HasEightSuffixesOfKeysAndNineOfBinaries) {
  EXPECT_THAT(keySuffixes.sorted(),
              UnorderedElementsAre(".pem", ".key", ".p8", ".p12", ".pfx", ".keystore", ".kdbx", ".mobileprovision"));
  EXPECT_THAT(systemBinarySuffixes.sorted(),
              UnorderedElementsAre(".dylib", ".so", ".a", ".o", ".pyc", ".pyo", ".class", ".swiftmodule", ".swiftdoc"));
  for (const std::string_view suffix : keySuffixes)
    EXPECT_TRUE(isNameExcluded("a.b" + std::string(suffix))) << suffix;
  for (const std::string_view suffix : systemBinarySuffixes)
    EXPECT_TRUE(isNameExcluded("A" + std::string(suffix))) << suffix;
  EXPECT_TRUE(isNameExcluded("Server.KEY"));
  EXPECT_FALSE(isNameExcluded(".pem")) << "a name, not a suffix";
  EXPECT_FALSE(isNameExcluded("lib.so.1"));
}

TEST(ExcludedArtifact, HasElevenSuffixesOfConfiguration) {
  EXPECT_THAT(configSuffixes.sorted(), UnorderedElementsAre("", ".json", ".jsonc", ".yaml", ".yml", ".toml", ".ini",
                                                            ".cfg", ".conf", ".txt", ".properties"));
  for (const std::string_view suffix : configSuffixes)
    EXPECT_TRUE(isNameExcluded("my-token-prod" + std::string(suffix))) << suffix;
  EXPECT_FALSE(isNameExcluded("my-token.prod")) << "that is a suffix, and none of configuration";
  EXPECT_FALSE(isNameExcluded("my-token.py"));
  EXPECT_FALSE(isNameExcluded("token.")) << "a lone dot is a suffix";
}

TEST(ExcludedArtifact, IsAFileOfEnvironmentVariables) {
  EXPECT_TRUE(isNameExcluded(".ENV"));
  EXPECT_TRUE(isNameExcluded(".env.local"));
  EXPECT_TRUE(isNameExcluded(".env.md")) << "before the suffix is looked at";
  EXPECT_FALSE(isNameExcluded("my.env"));
  EXPECT_FALSE(isNameExcluded(".envrc"));
  EXPECT_FALSE(isNameExcluded("env"));
}

TEST(ExcludedArtifact, IsASecretByItsNameUnlessItIsADocument) {
  EXPECT_TRUE(isNameExcluded("secrets.json"));
  EXPECT_FALSE(isNameExcluded("secrets.md"));
  EXPECT_FALSE(isNameExcluded("secrets.HTML"));
  EXPECT_FALSE(isNameExcluded("secrets.png"));
  EXPECT_FALSE(isNameExcluded("secrets.pdf"));
  EXPECT_TRUE(isNameExcluded("secrets.txt"));
  EXPECT_TRUE(isNameExcluded("prod-token.yaml"));
  EXPECT_TRUE(isNameExcluded("api_key"));
  EXPECT_TRUE(isNameExcluded("API-KEY.Staging.TOML"));
  EXPECT_TRUE(isNameExcluded("\u017Fecret.json")) << "the long s folds to s";
  EXPECT_FALSE(isNameExcluded("tokenizer.json"));
  EXPECT_FALSE(isNameExcluded("secrets.mp4")) << "no suffix of configuration";
  EXPECT_FALSE(isNameExcluded("secret\n.json"));
}

TEST(ExcludedArtifact, IsAKeyOfSSHUnlessItIsADocument) {
  EXPECT_TRUE(isNameExcluded("id_rsa.pub"));
  EXPECT_TRUE(isNameExcluded("ID_ED25519-work"));
  EXPECT_TRUE(isNameExcluded("id_dsa.mp4")) << "videos and code go on";
  EXPECT_FALSE(isNameExcluded("id_rsa.md"));
  EXPECT_FALSE(isNameExcluded("id_rsakey"));
}

TEST(ExcludedArtifact, IsARecordOfASession) {
  EXPECT_TRUE(isNameExcluded("rollout-2026.jsonl"));
  EXPECT_TRUE(isNameExcluded("Rollout.JSONL"));
  EXPECT_FALSE(isNameExcluded("rollout.md"));
  EXPECT_FALSE(isNameExcluded("rollout-2026.json"));
  EXPECT_FALSE(isNameExcluded("my-rollout.jsonl"));
  EXPECT_TRUE(isNameExcluded(".DS_Store"));
  EXPECT_FALSE(isNameExcluded("x.ds_store"));
}

TEST(ExcludedArtifact, IsWhatAgentsKeepForThemselves) {
  EXPECT_TRUE(isExcluded("/home/u/.hermes/cache/a.md"));
  EXPECT_FALSE(isExcluded("/home/u/.hermes/plans/a.md"));
  EXPECT_TRUE(isExcluded("/home/u/.codex/memories/a.md"));
  EXPECT_TRUE(isExcluded("/home/u/.codex/memories_v2/a.md"));
  EXPECT_FALSE(isExcluded("/home/u/.codex/plans/a.md"));
}

TEST(ExcludedArtifact, IsATemporaryFileUnlessDocumentsAreWanted) {
  struct Row {
    const char* path;
    bool unwanted;
    bool wanted;
  };
  for (const Row& row : {
           Row{"/tmp/a/b.md", true, false},
           Row{"/tmp/logs/b.txt", true, true},
           Row{"/tmp/a/.cache/b.md", true, true},
           Row{"/var/folders/x/a.md", true, true},
           Row{"/var/folders/zz/T/a.md", true, true},
           Row{"/tmp/a/b.py", true, true},
           Row{"/tmp/a/b.txt", true, false},
           Row{"/tmp/a/secret.txt", true, true},  // what passes goes on to the other tests
           Row{"/tmp/.hermes/cache/b.md", true, true},
           Row{"/tmp", true, true},
           Row{"/home/u/b.md", false, false},
       }) {
    EXPECT_EQ(excludedArtifact(row.path, scope, false), row.unwanted) << row.path;
    EXPECT_EQ(excludedArtifact(row.path, scope, true), row.wanted) << row.path;
  }
  CaptureTemporaryScope withData = scope;
  withData.dataFolderParent = "/tmp/app";
  EXPECT_FALSE(excludedArtifact("/tmp/app/x.md", withData, false));
  EXPECT_TRUE(excludedArtifact("/tmp/other.md", withData, false));
}

TEST(ExcludedArtifact, TakesPathsOfAnyBytes) {
  EXPECT_FALSE(isExcluded(""));
  EXPECT_FALSE(isExcluded("/"));
  EXPECT_FALSE(isExcluded("\xFF\xFE/\xC3"));
  EXPECT_FALSE(isExcluded(std::string_view("/a/.env\0", 8)));
  EXPECT_TRUE(isExcluded(std::string_view("/a\0b/.env", 9)));
  EXPECT_FALSE(isNameExcluded("secret\xFF.json"));
  EXPECT_FALSE(isNameExcluded(std::string_view("a.pem\0", 6)));
  EXPECT_TRUE(isNameExcluded("\xFF-secret.json"));
}

// The whole rule, told step by step with paths taken apart and expressions run.

bool slowlyExcluded(const std::string& path, const CaptureTemporaryScope& in, bool temporaryDocuments) {
  static const RegularExpression credential = PythonText::expression(SecretNames::credentialNamePattern);
  static const RegularExpression key = PythonText::expression(SecretNames::sshKeyNamePattern);
  const PythonPath parsed(path);
  if (hermesRuntimeArtifact(parsed, std::nullopt)) return true;
  if (codexMemoryArtifact(parsed.parts())) return true;
  if (temporaryLocation(parsed.string(), in)) {
    if (!temporaryDocuments) return true;
    if (!temporaryDocument(parsed.string())) return true;
  }
  const std::string name = PythonText::casefold(parsed.name());
  const std::string suffix = PythonText::casefold(parsed.suffix());
  if (PythonText::isMember(name, credentialFiles)) return true;
  if (name == ".env" || name.starts_with(".env.")) return true;
  if (name.starts_with("rollout") && suffix == ".jsonl") return true;
  if (name == ".ds_store") return true;
  if (PythonText::isMember(suffix, keySuffixes)) return true;
  if (PythonText::isMember(suffix, systemBinarySuffixes)) return true;
  const std::string extension = toUTF8(toScalars(suffix).substr(suffix.empty() ? 0 : 1));
  const ArtifactCategory category = categoryForExtension(extension);
  if (isASCII(extension) && (category == ArtifactCategory::documents || category == ArtifactCategory::images ||
                             category == ArtifactCategory::pdfs))
    return false;
  if (key.find(name).match) return true;
  if (!PythonText::isMember(suffix, configSuffixes)) return false;
  const std::string stem(PythonText::prefix(name, scalarCount(name) - scalarCount(suffix)));
  return credential.find(stem).match.has_value();
}

TEST(ExcludedArtifact, IsThatOfTheSlowRuleForRandomPaths) {
  std::mt19937 random(20260323);
  const std::vector<std::string> folders = {
      "/",       "//",        "/tmp/", "/tmp/app/", "/home/u/", "/home/u/.hermes/", "cache/", "logs/",
      ".codex/", "memories/", "../",   "./",        "var/",     "/var/folders/",    "x/",     ".y/"};
  const std::vector<std::string> names = {
      "secret", "Tokens", "api",         "key", "-",      "_",      ".",    ".",  "id_rsa",  ".env",   "rollout",
      "prod",   "auth",   "credentials", "x",   "\u017F", "\u212A", "\xFF", "\n", "history", "cookie", "requirements"};
  const std::vector<std::string> suffixes = {"",         ".",    ".json",     ".JSONL", ".md",  ".txt",
                                             ".pem",     ".so",  ".yaml",     ".png",   ".mp4", ".py",
                                             ".p\uFB00", ".pdf", ".ke\u0443", ".\uFB06"};
  CaptureTemporaryScope in = scope;
  in.dataFolderParent = "/tmp/app";
  int excluded = 0;
  for (int round = 0; round < 40000; ++round) {
    const std::string path = randomText(folders, random() % 4, random) + randomText(names, random() % 4, random) +
                             suffixes[random() % suffixes.size()] + (random() % 10 == 0 ? "/" : "");
    for (const bool documents : {false, true}) {
      const bool expected = slowlyExcluded(path, in, documents);
      excluded += expected ? 1 : 0;
      ASSERT_EQ(excludedArtifact(path, in, documents), expected)
          << "round " << round << ": " << testing::PrintToString(path) << documents;
    }
  }
  EXPECT_GT(excluded, 10000);
  EXPECT_LT(excluded, 70000);
}

}  // namespace
}  // namespace tessary
