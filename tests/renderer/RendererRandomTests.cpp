// Random requests and random assets: whatever they are, the process ends in one of its three ways.

#include <csignal>
#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONSyntax.h"

#include "RendererProcess.h"

namespace tessary::testing {
namespace {

constexpr unsigned seed = 20'240'229;
constexpr int runs = 80;

using Random = std::mt19937;

std::size_t below(Random& random, std::size_t count) {
  return random() % count;
}

/// Pieces of the list in random order and number, with a few bytes changed now and then.
std::string scramble(Random& random, std::initializer_list<std::string_view> pieces, std::size_t most) {
  std::string text;
  for (std::size_t left = below(random, most); left > 0; --left)
    text += *(pieces.begin() + below(random, pieces.size()));
  if (below(random, 4) == 0 && !text.empty()) text[below(random, text.size())] = static_cast<char>(random());
  return text;
}

std::string randomRequest(Random& random) {
  if (below(random, 3) == 0) return R"({"operation":"render","text":"some *text*"})";
  return scramble(
      random,
      {"{",    "}",         "[",         "]",  ",",    ":", "\"operation\"",    "\"render\"", "\"text\"", "1", "-0.5e9",
       "null", "\"\\ud83d", "\\u0000\"", "\"", "\xFF", " ", "{\"a\":[1,2,{}]}", "true",       "é"},
      12);
}

std::string randomScript(Random& random) {
  const std::string body = scramble(random,
                                    {"let v = {a: 1};",
                                     "v = [v, v];",
                                     "v = {v};",
                                     "v.a = new Array(1e6);",
                                     "v.n = NaN;",
                                     "throw v;",
                                     "v = new Proxy({}, {get() { return 1; }});",
                                     "Object.defineProperty(v, 'g', {enumerable: true, get() { throw 1; }});",
                                     "v = 'x'.repeat(1e6);",
                                     "v.s = '\\ud800';",
                                     "v.f = () => {};",
                                     "for (let i = 0; i < 1e4; ++i) v = {v};",
                                     "JSON = null;",
                                     "Object.keys = null;",
                                     "v = request;",
                                     "delete globalThis.TessaryOfflineRenderer;",
                                     "v.d = new Date;",
                                     "v.c = v;",
                                     "(function f() { f(); })();",
                                     "v = WebAssembly;",
                                     "v = globalThis;",
                                     "Array.prototype.push = () => { throw 1; };",
                                     "v = Array.from({length: 1e5}, (_, i) => ({['k' + i]: i}));"},
                                    8);
  const std::string script =
      "var TessaryOfflineRenderer = {render(request, token) { var v = {};" + body + "return v; }};";
  return below(random, 6) == 0 ? scramble(random, {script, "var ", "}", "(", "`", "TessaryOfflineRenderer", "\xC3"}, 5)
                               : script;
}

bool isFailure(const ProcessEnd& end) {
  for (const std::string_view message : {wrongArguments, requestTooLarge, requestNotObject, sourceTooLarge,
                                         assetsUnavailable, unsafeDocument, resultTooLarge, generic}) {
    if (end == failedWith(message)) return true;
  }
  return false;
}

bool isSuccess(const ProcessEnd& end) {
  constexpr std::size_t resultLimit = 6'291'456;
  return end.status == 0 && end.errors.empty() && end.output.size() <= resultLimit &&
         walkJSON(end.output) == JSONKind::object;
}

TEST(RandomRuns, EndInOneOfTheThreeWays) {
  Random random(seed);
  int successes = 0;
  int failures = 0;
  for (int run = 0; run < runs; ++run) {
    const std::string request = randomRequest(random);
    const std::string script = randomScript(random);
    const ProcessEnd end = runScript(script, request);
    const bool ranOut = end == ProcessEnd{.status = -1, .signal = SIGALRM, .output = "", .errors = ""};
    successes += isSuccess(end) ? 1 : 0;
    failures += isFailure(end) ? 1 : 0;
    EXPECT_TRUE(isSuccess(end) || isFailure(end) || ranOut)
        << "seed " << seed << ", run " << run << ": " << ::testing::PrintToString(end) << "\n"
        << request << "\n"
        << script;
  }
  // A draw in which nothing succeeds, or nothing fails, would try nothing.
  EXPECT_GT(successes, 3);
  EXPECT_GT(failures, 20);
}

}  // namespace
}  // namespace tessary::testing
