// The run of the process, step by step, on the real executable: what each step refuses, at its limits, and which of
// several failures is told.

#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RendererProcess.h"

namespace tessary::testing {
namespace {

constexpr std::size_t requestLimit = 4'194'304;
constexpr std::size_t sourceLimit = 524'288;
constexpr std::size_t assetLimit = 4'194'304;
constexpr std::size_t resultLimit = 6'291'456;

constexpr std::string_view renderNothing = "var TessaryOfflineRenderer = {render() { return {}; }};";

/// `{"pad":"xxx..."}` of exactly this many bytes.
std::string requestOfBytes(std::size_t bytes) {
  const std::string opening = R"({"pad":")";
  const std::string closing = R"("})";
  return opening + std::string(bytes - opening.size() - closing.size(), 'x') + closing;
}

std::string renderRequest(const std::string& source) {
  return R"({"operation":"render","text":")" + source + "\"}";
}

std::string padded(std::string script, std::size_t bytes) {
  script.append(bytes - script.size(), '\n');
  return script;
}

TEST(CommandLine, MustBeTheOptionAndOnePath) {
  const TemporaryFolder folder;
  folder.write("renderer.js", renderNothing);
  const std::string path = folder.path();
  const std::vector<std::vector<std::string>> refused = {{},
                                                         {"--assets"},
                                                         {path},
                                                         {"--assets", path, ""},
                                                         {"--assets", path, path},
                                                         {"--Assets", path},
                                                         {"", path},
                                                         {"-assets", path},
                                                         {"--assets=", path},
                                                         {"--assets ", path},
                                                         {path, "--assets"}};
  for (const auto& arguments : refused) {
    ProcessStart start = rendererStart(folder.path());
    start.arguments = arguments;
    EXPECT_EQ(runProcess(start), failedWith(wrongArguments)) << ::testing::PrintToString(arguments);
  }
  EXPECT_EQ(runProcess(rendererStart(folder.path())), succeededWith("{}"));
}

TEST(CommandLine, OutranksWhateverStandsOnStandardInput) {
  for (const std::string& input : {std::string(requestLimit + 1, ' '), std::string("["), std::string()}) {
    ProcessStart start = rendererStart("/nowhere", input);
    start.arguments = {"--asset", "/nowhere"};
    EXPECT_EQ(runProcess(start), failedWith(wrongArguments));
  }
}

TEST(CommandLine, LeavesStandardInputUnreadWhenWrong) {
  const TemporaryFolder folder;
  folder.write("input", "{}");
  // Parent and child share the file's position, so that it tells what was read.
  const int file = ::open((folder.path() / "input").c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_GE(file, 0);
  ProcessStart start = rendererStart("/nowhere");
  start.beforeStart = [file] { ::dup2(file, STDIN_FILENO); };
  EXPECT_EQ(runProcess(start), failedWith(generic));
  EXPECT_EQ(::lseek(file, 0, SEEK_CUR), 2) << "a right command line has it read";
  ::lseek(file, 0, SEEK_SET);
  start.arguments = {"--asset", "/nowhere"};
  EXPECT_EQ(runProcess(start), failedWith(wrongArguments));
  EXPECT_EQ(::lseek(file, 0, SEEK_CUR), 0);
  ::close(file);
}

TEST(Request, PassesUpToItsLimitAndFailsAboveItHoweverItIsCut) {
  const TemporaryFolder folder;
  folder.write("renderer.js", renderNothing);
  for (const std::size_t chunk : {std::size_t{1'000'003}, std::size_t{65'536}, std::size_t{4'097}}) {
    for (const std::size_t bytes : {requestLimit - 1, requestLimit, requestLimit + 1}) {
      ProcessStart start = rendererStart(folder.path(), requestOfBytes(bytes));
      start.chunkBytes = chunk;
      EXPECT_EQ(runProcess(start), bytes <= requestLimit ? succeededWith("{}") : failedWith(requestTooLarge))
          << bytes << " in pieces of " << chunk;
    }
  }
}

TEST(Request, AboveItsLimitIsToldBeforeItIsParsed) {
  EXPECT_EQ(runScript(renderNothing, std::string(requestLimit + 1, '[')), failedWith(requestTooLarge));
  EXPECT_EQ(runScript(renderNothing, std::string(requestLimit, '[')), failedWith(generic));
}

TEST(Request, IsNotReadToItsEndAboveItsLimit) {
  // An endless input, of which the process must have had enough.
  const TemporaryFolder folder;
  ProcessStart start = rendererStart(folder.path());
  start.beforeStart = [] {
    const int zeros = ::open("/dev/zero", O_RDONLY);
    ::dup2(zeros, STDIN_FILENO);
  };
  EXPECT_EQ(runProcess(start), failedWith(requestTooLarge));
}

TEST(Request, MayComeByteByByte) {
  const TemporaryFolder folder;
  folder.write("renderer.js", echo);
  ProcessStart start = rendererStart(folder.path(), R"({"a":"é😀"})");
  start.chunkBytes = 1;
  EXPECT_EQ(runProcess(start), succeededWith(R"({"request":{"a":"é😀"}})"));
}

TEST(Request, ThatIsEmptyIsNoJSON) {
  EXPECT_EQ(runScript(renderNothing, ""), failedWith(generic));
  EXPECT_EQ(runScript(renderNothing, " \n"), failedWith(generic));
}

TEST(Request, MustHaveAnObjectOnTop) {
  EXPECT_EQ(runScript(renderNothing, "[]"), failedWith(requestNotObject));
  EXPECT_EQ(runScript(renderNothing, R"([{"operation":"render"}])"), failedWith(requestNotObject));
  for (const char* scalar : {"1", "\"a\"", "null", "true", "-0.5e3"})
    EXPECT_EQ(runScript(renderNothing, scalar), failedWith(generic)) << scalar;
}

TEST(Request, IsJudgedBeforeTheAssetsAre) {
  EXPECT_EQ(runProcess(rendererStart("/nowhere", "[]")), failedWith(requestNotObject));
  EXPECT_EQ(runProcess(rendererStart("/nowhere", renderRequest(std::string(sourceLimit + 1, 'a')))),
            failedWith(sourceTooLarge));
  EXPECT_EQ(runProcess(rendererStart("/nowhere", "{}")), failedWith(generic));
  // An empty script tells its own failure only to a request that is in order.
  EXPECT_EQ(runScript("", "[]"), failedWith(requestNotObject));
  EXPECT_EQ(runScript("", "{}"), failedWith(assetsUnavailable));
}

TEST(Source, PassesUpToItsLimitInBytes) {
  for (const std::size_t bytes : {sourceLimit - 1, sourceLimit, sourceLimit + 1}) {
    const ProcessEnd expected = bytes <= sourceLimit ? succeededWith("{}") : failedWith(sourceTooLarge);
    EXPECT_EQ(runScript(renderNothing, renderRequest(std::string(bytes, 'a'))), expected) << bytes;
  }
  std::string twoByteCharacters;
  for (int count = 0; count < 262'144; ++count)
    twoByteCharacters += "é";
  EXPECT_EQ(runScript(renderNothing, renderRequest(twoByteCharacters)), succeededWith("{}"));
  EXPECT_EQ(runScript(renderNothing, renderRequest(twoByteCharacters + "é")), failedWith(sourceTooLarge));
}

TEST(Source, IsAskedForOnlyWhenRendering) {
  EXPECT_EQ(runScript(echo, "{}"), succeededWith(R"({"request":{}})"));
  EXPECT_EQ(runScript(echo, R"({"operation":"highlight","text":5})"),
            succeededWith(R"({"request":{"operation":"highlight","text":5}})"));
  EXPECT_EQ(runScript(echo, R"({"operation":["render"]})"), succeededWith(R"({"request":{"operation":["render"]}})"));
  EXPECT_EQ(runScript(echo, R"({"operation":"render"})"), failedWith(sourceTooLarge));
  EXPECT_EQ(runScript(echo, R"({"operation":"render","text":5})"), failedWith(sourceTooLarge));
  EXPECT_EQ(runScript(echo, R"({"operation":"render","text":null})"), failedWith(sourceTooLarge));
}

TEST(Asset, ThatIsMissingOrUnreadableIsTheGeneralFailure) {
  const TemporaryFolder folder;
  EXPECT_EQ(runProcess(rendererStart(folder.path())), failedWith(generic));
  EXPECT_EQ(runProcess(rendererStart(folder.path() / "nothing")), failedWith(generic));
  folder.write("file", "");
  EXPECT_EQ(runProcess(rendererStart(folder.path() / "file")), failedWith(generic));
  std::filesystem::create_symlink("nothing", folder.path() / "renderer.js");
  EXPECT_EQ(runProcess(rendererStart(folder.path())), failedWith(generic));
  EXPECT_EQ(runProcess(rendererStart(std::string(5000, 'a'))), failedWith(generic));
}

TEST(Asset, MustBeAFileOfOneByteUpToItsLimit) {
  EXPECT_EQ(runScript(""), failedWith(assetsUnavailable));
  EXPECT_EQ(runScript(";"), failedWith(unsafeDocument)) << "one byte is enough to be run";
  for (const std::size_t bytes : {assetLimit - 1, assetLimit, assetLimit + 1}) {
    const ProcessEnd expected = bytes <= assetLimit ? succeededWith("{}") : failedWith(assetsUnavailable);
    EXPECT_EQ(runScript(padded(std::string(renderNothing), bytes)), expected) << bytes;
  }
}

TEST(Asset, WithoutASizeIsUnavailable) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "renderer.js");
  EXPECT_EQ(runProcess(rendererStart(folder.path())), failedWith(assetsUnavailable));

  const TemporaryFolder other;
  ASSERT_EQ(::mkfifo((other.path() / "renderer.js").c_str(), 0600), 0);
  EXPECT_EQ(runProcess(rendererStart(other.path())), failedWith(assetsUnavailable));
}

TEST(Asset, MustBeUTF8) {
  const std::string script(renderNothing);
  for (const char* bytes : {"\xFF", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"})
    EXPECT_EQ(runScript(script + "//" + bytes), failedWith(assetsUnavailable));
  EXPECT_EQ(runScript("\xEF\xBB\xBF" + script + "// \xF0\x9F\x98\x80"), succeededWith("{}"));
}

TEST(Asset, FolderMayEndInASlashOrBeRelativeOrHoldAnyByte) {
  const TemporaryFolder folder;
  const std::filesystem::path odd = folder.path() / "a b%#?\xFF\n";
  std::filesystem::create_directory(odd);
  folder.write("renderer.js", renderNothing);
  std::filesystem::copy_file(folder.path() / "renderer.js", odd / "renderer.js");
  EXPECT_EQ(runProcess(rendererStart(folder.path().string() + "/")), succeededWith("{}"));
  EXPECT_EQ(runProcess(rendererStart(odd)), succeededWith("{}"));
  for (const char* relative : {".", "./", ""}) {
    ProcessStart start = rendererStart(relative);
    start.arguments = {"--assets", relative};
    start.beforeStart = [&] { (void)!::chdir(folder.path().c_str()); };
    EXPECT_EQ(runProcess(start), succeededWith("{}")) << relative;
  }
}

TEST(Asset, IsRunWithItsLocationAsSource) {
  const TemporaryFolder folder;
  folder.write("renderer.js",
               "var place = new Error().stack; var TessaryOfflineRenderer = {render() { return {place}; }};");
  const ProcessEnd end = runProcess(rendererStart(folder.path()));
  EXPECT_THAT(end.output, ::testing::HasSubstr("file://" + folder.path().string() + "/renderer.js:1:"));
}

TEST(Result, PassesUpToItsLimit) {
  for (const std::size_t bytes : {resultLimit - 1, resultLimit, resultLimit + 1}) {
    // {"a":"..."} has eight bytes beside the text.
    const std::string body = "return {a: 'x'.repeat(" + std::to_string(bytes - 8) + ")};";
    const ProcessEnd end = runRender(body);
    if (bytes > resultLimit) {
      EXPECT_EQ(end, failedWith(resultTooLarge));
    } else {
      EXPECT_EQ(end, succeededWith("{\"a\":\"" + std::string(bytes - 8, 'x') + "\"}")) << bytes;
    }
  }
}

TEST(Result, IsMeasuredInBytesOfItsSerialisedForm) {
  // {"a":"..."} has eight bytes beside the text; a euro sign is three bytes, a line feed two.
  const auto body = [](std::size_t plain, const char* more) {
    return "return {a: 'x'.repeat(" + std::to_string(plain) + ") + " + more + "};";
  };
  EXPECT_EQ(runRender(body(resultLimit - 8 - 3000, "'\u20ac'.repeat(1000)")).status, 0);
  EXPECT_EQ(runRender(body(resultLimit - 8 - 2999, "'\u20ac'.repeat(1000)")), failedWith(resultTooLarge));
  EXPECT_EQ(runRender(body(resultLimit - 8 - 2, "'\\n'")).status, 0);
  EXPECT_EQ(runRender(body(resultLimit - 8 - 1, "'\\n'")), failedWith(resultTooLarge));
}

}  // namespace
}  // namespace tessary::testing
