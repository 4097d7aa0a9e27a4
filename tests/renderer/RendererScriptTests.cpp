// What a script can see, reach and break, on the real executable.

#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RendererProcess.h"

namespace tessary::testing {
namespace {

using ::testing::HasSubstr;

TEST(Script, ThatThrowsIsUnsafe) {
  EXPECT_EQ(runScript("throw new Error('secret text of the document');"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("this is no script"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("(function f() { f(); })()"), failedWith(unsafeDocument)) << "a stack overflow is an exception";
  // What was defined before does not count.
  EXPECT_EQ(runScript("var TessaryOfflineRenderer = {render() { return {}; }}; throw undefined;"),
            failedWith(unsafeDocument));
  EXPECT_EQ(runRender("throw 1;"), failedWith(unsafeDocument));
  EXPECT_EQ(runRender("return render;"), failedWith(unsafeDocument));
}

TEST(Script, MustDefineItsGlobal) {
  EXPECT_EQ(runScript("1"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("var TessaryOfflineRenderer;"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("var TessaryOfflineRenderer = null;"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("var TessaryOfflineRenderer = {};"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("var TessaryOfflineRenderer = {render: 5};"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("var TessaryOfflineRenderer = {render: {}};"), failedWith(unsafeDocument));
  EXPECT_EQ(runScript("Object.defineProperty(globalThis, 'TessaryOfflineRenderer', {get() { throw 1; }});"),
            failedWith(unsafeDocument));
  EXPECT_EQ(runScript("const TessaryOfflineRenderer = {render() { return {}; }};"), failedWith(unsafeDocument))
      << "a lexical binding is no member of the global object";
  EXPECT_EQ(runScript("globalThis.TessaryOfflineRenderer = {render() { return {}; }};"), succeededWith("{}"));
}

TEST(Script, IsCalledAsAMethodWithTwoArguments) {
  EXPECT_EQ(
      runScript("class R { render(...all) { return {self: this === TessaryOfflineRenderer, count: all.length}; } }"
                "var TessaryOfflineRenderer = new R;"),
      succeededWith(R"({"count":2,"self":true})"));
  EXPECT_EQ(runScript("var TessaryOfflineRenderer = Object.assign(() => 1, {render: () => ({a: 1})});"),
            succeededWith(R"({"a":1})"));
}

TEST(Script, RunsAsAClassicScript) {
  EXPECT_EQ(
      runScript("undeclared = 1; var TessaryOfflineRenderer = {render: () => ({"
                "top: this === globalThis, sloppy: (function() { return this === globalThis; })(), undeclared})};"),
      succeededWith(R"({"sloppy":true,"top":true,"undeclared":1})"));
  EXPECT_EQ(runScript("import 'x';"), failedWith(unsafeDocument));
}

TEST(Request, ReachesTheScriptAsAValueOfItsOwnWorld) {
  const std::string request =
      R"({"list":[1,{"a":null}],"big":12345678901234567890,"n":-0.5e1,"t":"\u0000\ud83d\ude00\u2028é"})";
  EXPECT_EQ(runRender("return {ok: request instanceof Object && Array.isArray(request.list)"
                      " && request.list instanceof Array && request.t === '\\0\\u{1F600}\\u2028\\u00e9'"
                      " && request.n === -5 && request.big === 12345678901234567890"
                      " && Object.getPrototypeOf(request) === Object.prototype};",
                      request),
            succeededWith(R"({"ok":true})"));
  EXPECT_EQ(runRender("return {own: Object.keys(request), plain: Object.getPrototypeOf(request) === Object.prototype};",
                      R"({"__proto__":{"a":1}})"),
            succeededWith(R"({"own":["__proto__"],"plain":true})"));
  EXPECT_EQ(runRender("return request;", R"({"a":1,"a":2})"), succeededWith(R"({"a":2})"));
}

TEST(Request, OfTheLargestSizeReachesTheScriptWhole) {
  const std::string text(4'194'304 - 8, 'x');
  EXPECT_EQ(runRender("return {length: request.a.length, same: request.a === 'x'.repeat(4194296)};",
                      R"({"a":")" + text + "\"}"),
            succeededWith(R"({"length":4194296,"same":true})"));
}

TEST(Request, GoesThroughTheParseThatTheScriptLeft) {
  EXPECT_EQ(runScript("JSON.parse = text => ({seen: text}); var TessaryOfflineRenderer = {render: r => r};",
                      R"( {"a" : "é"} )"),
            succeededWith("{\"seen\":\" {\\\"a\\\" : \\\"é\\\"} \"}"));
  EXPECT_EQ(runScript("var TessaryOfflineRenderer = {render: r => ({r: String(r)})}; JSON.parse = () => {};"),
            succeededWith(R"({"r":"undefined"})"))
      << "undefined is a value";
  EXPECT_EQ(runScript("JSON = {parse: () => 1}; var TessaryOfflineRenderer = {render: r => ({r})};"),
            succeededWith(R"({"r":1})"));
}

TEST(Request, CannotReachAScriptThatTookTheParserAway) {
  const std::string renders = "var TessaryOfflineRenderer = {render: () => ({})};";
  for (const char* tampering :
       {"delete globalThis.JSON;", "JSON = undefined;", "JSON = null;", "delete JSON.parse;", "JSON.parse = 5;",
        "JSON.parse = () => { throw 1; };", "Object.defineProperty(globalThis, 'JSON', {get() { throw 1; }});"})
    EXPECT_EQ(runScript(renders + tampering), failedWith(unsafeDocument)) << tampering;
}

TEST(Token, IsFreshAndTwoRandomUUIDsInUppercase) {
  std::set<std::string> tokens;
  for (int run = 0; run < 8; ++run) {
    const ProcessEnd end = runRender("return {token, type: typeof token, length: token.length};");
    EXPECT_THAT(end.output,
                ::testing::MatchesRegex("\\{\"length\":64,\"token\":\"[0-9A-F]{12}4[0-9A-F]{3}[89AB][0-9A-F]{15}"
                                        "[0-9A-F]{12}4[0-9A-F]{3}[89AB][0-9A-F]{15}\",\"type\":\"string\"\\}"));
    tokens.insert(end.output);
  }
  EXPECT_EQ(tokens.size(), 8U);
}

TEST(Console, DoesNothingAndIsFrozen) {
  EXPECT_EQ(runRender("console.log('document'); console.warn(); console.error(1);"
                      "const before = console.log; console.log = 5; delete console.warn; console.more = 1;"
                      "return {frozen: Object.isFrozen(console), same: console.log === before,"
                      " result: String(console.log('x')), keys: Object.keys(console)};"),
            succeededWith(R"({"frozen":true,"keys":["log","warn","error"],"result":"undefined","same":true})"));
  EXPECT_EQ(runRender("'use strict'; console.log = 5; return {};"), failedWith(unsafeDocument));
}

TEST(World, HoldsNothingOfTheHost) {
  EXPECT_EQ(runRender("return {found: ['process', 'require', 'module', 'window', 'document', 'fetch', 'XMLHttpRequest',"
                      " 'setTimeout', 'print', 'load', 'readFile', 'quit', 'exit', 'alert', 'imports', 'Deno', 'gc']"
                      ".filter(name => name in globalThis)};"),
            succeededWith(R"({"found":[]})"));
}

TEST(Result, IsNotBentByTampering) {
  EXPECT_EQ(runScript("JSON.stringify = Object.keys = Array.isArray = () => { throw 1; };"
                      "Object.prototype.toJSON = () => 'forged'; Object.prototype.inherited = 1;"
                      "Math.random = () => 0; Date.now = () => 0;"
                      "var TessaryOfflineRenderer = {render: () => ({b: [1], a: 'x', toJSON: () => 5})};"),
            succeededWith(R"({"a":"x","b":[1]})"));
}

TEST(Result, ThatHoldsALoneSurrogateIsValidUTF8) {
  EXPECT_EQ(runRender("return {html: 'a\\ud800b\\udfff', ['\\udbff']: '\\ud83d\\ude00'};"),
            succeededWith("{\"html\":\"a\uFFFDb\uFFFD\",\"\uFFFD\":\"\U0001F600\"}"));
}

TEST(Result, DecidesWhichFailureIsTold) {
  EXPECT_EQ(runRender("return 'text';"), failedWith(unsafeDocument));
  EXPECT_EQ(runRender("return 5;"), failedWith(unsafeDocument));
  EXPECT_EQ(runRender("return;"), failedWith(unsafeDocument));
  EXPECT_EQ(runRender("return null;"), failedWith(unsafeDocument));
  EXPECT_EQ(runRender("return [{}];"), failedWith(unsafeDocument));
  EXPECT_EQ(runRender("return {a: NaN};"), failedWith(generic));
  EXPECT_EQ(runRender("return {a: 1n};"), failedWith(generic));
  EXPECT_EQ(runRender("return Promise.resolve({});"), failedWith(generic));
  EXPECT_EQ(runRender("return {get a() { throw 1; }};"), failedWith(unsafeDocument));
  EXPECT_EQ(runRender("return {a: new Array(4e9)};"), failedWith(resultTooLarge));
  EXPECT_EQ(runRender("let v = []; for (let i = 0; i < 1e5; ++i) v = [v]; return {v};"), failedWith(generic));
  EXPECT_EQ(runRender("const r = {}; r.r = r; return r;"), failedWith(generic));
}

TEST(Sandbox, CannotBeToldFromItsAbsenceByAScript) {
  // Each of these works in the bare engine; under the sandbox they would fail if something had to be loaded for them.
  EXPECT_EQ(runRender(R"(
      const checks = {
        localTime: /GMT/.test(new Date(2024, 6, 1).toString()),
        dateTexts: new Intl.DateTimeFormat('ko', {timeZone: 'Asia/Seoul', dateStyle: 'full', timeStyle: 'full'})
            .format(0).includes('대한민국 표준시'),
        zones: Intl.supportedValuesOf('timeZone').length > 300,
        collation: ['z', 'ä', 'a'].sort(new Intl.Collator('de').compare).join('') === 'aäz',
        segments: [...new Intl.Segmenter('th', {granularity: 'word'}).segment('สวัสดีครับ')].length > 1,
        numbers: new Intl.NumberFormat('de', {style: 'currency', currency: 'EUR'}).format(1234.5).includes('1.234,50'),
        plurals: new Intl.PluralRules('ar').select(3) === 'few',
        random: Math.random() !== Math.random(),
        normalised: '\u1112\u1161\u11ab'.normalize() === '\ud55c',
        expressions: /\p{Script=Hangul}+(?<=한)/u.test('한'),
        memory: new Uint8Array(3e8).length === 3e8,
        wasm: new WebAssembly.Instance(new WebAssembly.Module(new Uint8Array([0, 97, 115, 109, 1, 0, 0, 0, 1, 5, 1, 96,
            0, 1, 127, 3, 2, 1, 0, 7, 5, 1, 1, 102, 0, 0, 10, 6, 1, 4, 0, 65, 42, 11]))).exports.f() === 42,
        wasmTrap: (() => { try { new WebAssembly.Instance(new WebAssembly.Module(new Uint8Array([0, 97, 115, 109, 1, 0,
            0, 0, 1, 5, 1, 96, 0, 1, 127, 3, 2, 1, 0, 5, 3, 1, 0, 1, 7, 5, 1, 1, 102, 0, 0, 10, 12, 1, 10, 0, 65, 255,
            255, 255, 15, 40, 2, 0, 11]))).exports.f(); } catch (e) { return e instanceof WebAssembly.RuntimeError; } })(),
        overflow: (() => { try { (function f() { f(); })(); } catch (e) { return e instanceof RangeError; } })(),
        compiled: (() => { let sum = 0; const f = i => ({v: i}).v; for (let i = 0; i < 3e6; ++i) sum += f(i); return sum > 0; })(),
        collected: (() => { let keep = []; for (let i = 0; i < 2e6; ++i) keep[i % 1000] = {i, a: [i]}; return keep.length === 1000; })(),
        generated: new Function('a', 'return a + 1')(1) === 2 && eval('1 + 1') === 2,
        waited: (() => { try { return Atomics.wait(new Int32Array(new SharedArrayBuffer(4)), 0, 0, 1); } catch (e) { return 'timed-out'; } })() === 'timed-out',
      };
      return {failed: Object.keys(checks).filter(name => checks[name] !== true), count: Object.keys(checks).length};)"),
            succeededWith(R"({"count":18,"failed":[]})"));
}

}  // namespace
}  // namespace tessary::testing
