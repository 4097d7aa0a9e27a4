// What of a script's value becomes JSON, and how. The engine runs inside the test.

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/text/UTF8.h"
#include "TessaryRenderer/RendererFailure.h"
#include "TessaryRenderer/RendererLimits.h"
#include "TessaryRenderer/ResultConversion.h"
#include "TessaryRenderer/ScriptContext.h"

namespace tessary {
namespace {

using Converted = std::expected<std::string, RendererFailure>;

/// Converts what the expression gives, in a context in which `before` has run first.
Converted convert(std::string_view expression, std::string_view before = "") {
  auto context = ScriptContext::make();
  const ResultConversion conversion(*context);
  context->evaluate(toUTF16(before));
  context->evaluate(toUTF16("var result = (" + std::string(expression) + ");"));
  EXPECT_FALSE(context->hasException()) << expression;
  return conversion.convert(context->global("result"));
}

const Converted notSerialisable = std::unexpected(RendererFailures::other);
const Converted unsafe = std::unexpected(RendererFailures::unsafeDocument);
const Converted tooLarge = std::unexpected(RendererFailures::resultTooLarge);

TEST(Conversion, WritesCompactJSON) {
  EXPECT_EQ(convert("{}"), "{}");
  EXPECT_EQ(convert("{a: [], b: {}, c: [{}, [1, [2]]], d: true, e: false, f: null, g: ''}"),
            R"({"a":[],"b":{},"c":[{},[1,[2]]],"d":true,"e":false,"f":null,"g":""})");
}

TEST(Conversion, SortsKeysByScalarAtEveryLevel) {
  EXPECT_EQ(convert("{b: {z: 1, a: {'10': 1, '9': 2, '': 3}}, a: 2, B: 3}"),
            R"({"B":3,"a":2,"b":{"a":{"":3,"10":1,"9":2},"z":1}})");
  // By UTF-16 units U+1F600 would come before U+FF5E.
  EXPECT_EQ(convert("{'\\u{1F600}': 1, '\\uFF5E': 2, '\\uD7FF': 3, '\\uE000': 4, 'ab': 5, 'a': 6, '\\u{1F600}a': 7}"),
            "{\"a\":6,\"ab\":5,\"\uD7FF\":3,\"\uE000\":4,\"\uFF5E\":2,\"\U0001F600\":1,\"\U0001F600a\":7}");
}

TEST(Conversion, GivesNumbersTheECMAScriptForm) {
  EXPECT_EQ(
      convert("{v: [2000000, 1e21, 1e-7, 0.1, -0, 123456789012345680000, 9007199254740991, 9007199254740992, "
              "9007199254740994, -9007199254740994, 4294967296, 5e-324, -1.5, 1e20]}"),
      R"({"v":[2000000,1e+21,1e-7,0.1,0,123456789012345680000,9007199254740991,9007199254740992,9007199254740994,-9007199254740994,4294967296,5e-324,-1.5,100000000000000000000]})");
}

TEST(Conversion, EscapesWhatJSONRequires) {
  EXPECT_EQ(convert(R"({v: '"\\/\b\f\n\r\t\0\x1f\x7f\u2028é😀'})"),
            "{\"v\":\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0000\\u001f\x7F\u2028é😀\"}");
  EXPECT_EQ(convert(R"({'"\n': 1})"), R"({"\"\n":1})");
}

TEST(Conversion, WritesALoneSurrogateAsTheReplacementCharacter) {
  EXPECT_EQ(convert(R"({'k\ud800': '\ud800', v: 'a\udc00b\ud83d\ude00\ud83d'})"),
            "{\"k\uFFFD\":\"\uFFFD\",\"v\":\"a\uFFFDb\U0001F600\uFFFD\"}");
}

TEST(Conversion, FailsWhereTwoKeysWouldBecomeOne) {
  EXPECT_EQ(convert(R"({'\ud800': 1, '\ud801': 2})"), notSerialisable);
  EXPECT_EQ(convert(R"({'\ud800': 1, '\ufffd': 2})"), notSerialisable);
}

TEST(Conversion, LeavesOutWhatAnObjectCannotShowAndNullsItInAList) {
  EXPECT_EQ(convert("{a: undefined, b() {}, c: Symbol(), d: class {}, e: 1, toJSON() { return 5; }}"), R"({"e":1})");
  EXPECT_EQ(convert("{v: [undefined, function() {}, Symbol(), , () => 1, 7]}"),
            R"({"v":[null,null,null,null,null,7]})");
  EXPECT_EQ(convert("{a: new Proxy(function() {}, {}), v: [new Proxy(class {}, {})]}"), R"({"v":[null]})");
}

TEST(Conversion, TakesOwnEnumerableTextKeysAlone) {
  EXPECT_EQ(convert("Object.create({inherited: 1}, {own: {value: 2, enumerable: true}, hidden: {value: 3}})"),
            R"({"own":2})");
  EXPECT_EQ(convert("{[Symbol('s')]: 1, a: 2}"), R"({"a":2})");
  EXPECT_EQ(convert("{a: 1}", "Object.prototype.everywhere = 1;"), R"({"a":1})");
  EXPECT_EQ(convert("Object.assign(Object.create(null), {a: 1})"), R"({"a":1})");
  EXPECT_EQ(convert("new (class { x = 1; get y() { return 2; } })"), R"({"x":1})");
  EXPECT_EQ(convert("{v: Object.assign([1], {more: 2})}"), R"({"v":[1]})");
}

TEST(Conversion, ReadsGettersAndProxies) {
  EXPECT_EQ(convert("{get a() { return {get b() { return 1; }}; }}"), R"({"a":{"b":1}})");
  EXPECT_EQ(convert("new Proxy({a: 1}, {get: () => 2})"), R"({"a":2})");
  EXPECT_EQ(convert("{v: new Proxy([1, 2], {})}"), R"({"v":[1,2]})") << "a Proxy of a list is a list";
  EXPECT_EQ(convert("{v: new Proxy([1, 2], {get: (t, k) => k === 'length' ? '1.9' : t[k]})}"), R"({"v":[1]})");
  EXPECT_EQ(convert("{v: new Proxy([], {get: () => NaN})}"), R"({"v":[]})") << "not-a-number is no length";
}

TEST(Conversion, CallsWhatThrowsWhileBeingReadUnsafe) {
  EXPECT_EQ(convert("{get a() { throw 1; }}"), unsafe);
  EXPECT_EQ(convert("{a: [{get b() { throw undefined; }}]}"), unsafe);
  EXPECT_EQ(convert("{a: new Proxy({}, {ownKeys() { throw 1; }})}"), unsafe);
  EXPECT_EQ(convert("{a: new Proxy({b: 1}, {get() { throw 1; }})}"), unsafe);
  EXPECT_EQ(convert("{a: new Proxy({b: 1}, {getOwnPropertyDescriptor() { throw 1; }})}"), unsafe);
  EXPECT_EQ(convert("{a: new Proxy([], {get() { throw 1; }})}"), unsafe);
  EXPECT_EQ(convert("{a: [1, , 2]}", "Object.defineProperty(Array.prototype, 1, {get() { throw 1; }});"), unsafe);
  EXPECT_EQ(convert("(() => { const r = Proxy.revocable({}, {}); r.revoke(); return r.proxy; })()"), unsafe);
  EXPECT_EQ(convert("{get a() { return (function f() { return f(); })(); }}"), unsafe) << "a stack overflow is a throw";
  EXPECT_EQ(convert("{v: new Proxy([], {get: () => Symbol()})}"), unsafe) << "a symbol is no number";
}

TEST(Conversion, AsksNoPrototypeTrap) {
  EXPECT_EQ(convert("{a: new Proxy({b: 1}, {getPrototypeOf() { throw 1; }})}"), R"({"a":{"b":1}})");
  EXPECT_EQ(convert("{a: new Proxy([7], {getPrototypeOf: () => Object.prototype})}"), R"({"a":[7]})");
}

TEST(Conversion, IsNotBentByWhatAScriptDidToItsGlobals) {
  const std::string_view tampering = R"(
    JSON.stringify = Object.keys = Array.isArray = Object.getOwnPropertyNames = () => { throw 1; };
    Object.prototype.toJSON = Array.prototype.toJSON = String.prototype.toJSON = () => 'forged';
    Object.prototype.toString = Number.prototype.toString = String.prototype.toString = () => 'forged';
    Number.prototype.valueOf = () => 666;
    Array.prototype[Symbol.iterator] = Array.prototype.sort = Array.prototype.push = () => { throw 1; };
    Object.defineProperty(Object.prototype, 'length', {get() { throw 1; }, set() { throw 1; }});
    Object.defineProperty(Object.prototype, '0', {get() { return 'forged'; }, set() { throw 1; }});
    Object.defineProperty(Array.prototype, '0', {get() { return 'forged'; }, set() { throw 1; }});
    Object = Array = String = Number = JSON = Symbol = Proxy = null;
  )";
  EXPECT_EQ(convert("{b: [1, 'x'], a: {c: true}}", tampering), R"({"a":{"c":true},"b":[1,"x"]})");
}

TEST(Conversion, NeedsAnObjectOnTop) {
  for (const char* value : {"1", "'text'", "null", "undefined", "true", "Symbol()", "10n", "NaN", "[]", "[{}]",
                            "function() {}", "() => ({})", "class {}", "new Proxy([], {})"})
    EXPECT_EQ(convert(value), unsafe) << value;
}

TEST(Conversion, FailsToSerialiseWhatJSONCannotExpress) {
  for (const char* value : {"NaN",
                            "Infinity",
                            "-Infinity",
                            "10n",
                            "new Date(0)",
                            "new Date(NaN)",
                            "new Uint8Array(1)",
                            "new Float64Array",
                            "new BigUint64Array(1)",
                            "new ArrayBuffer(1)",
                            "new DataView(new ArrayBuffer(1))",
                            "new Map",
                            "new Set",
                            "new WeakMap",
                            "new WeakSet",
                            "new WeakRef({})",
                            "/a/",
                            "Promise.resolve()",
                            "new String('a')",
                            "new Number(1)",
                            "new Boolean(true)",
                            "Object(1n)",
                            "Object(Symbol())"}) {
    EXPECT_EQ(convert("{a: " + std::string(value) + "}"), notSerialisable) << value;
    EXPECT_EQ(convert("{a: [" + std::string(value) + "]}"), notSerialisable) << value;
  }
  EXPECT_EQ(convert("Promise.resolve({})"), notSerialisable) << "an asynchronous render has no result";
  EXPECT_EQ(convert("new Date(0)"), notSerialisable);
  EXPECT_EQ(convert("{a: Object.setPrototypeOf(new Date(0), null)}"), notSerialisable);
}

TEST(Conversion, FailsToSerialiseCyclesButNotSharing) {
  EXPECT_EQ(convert("(() => { const a = {}; a.a = a; return a; })()"), notSerialisable);
  EXPECT_EQ(convert("(() => { const a = []; a.push([a, a]); return {a}; })()"), notSerialisable);
  EXPECT_EQ(convert("(() => { const s = {x: 1}; return {a: s, b: [s, s]}; })()"),
            R"({"a":{"x":1},"b":[{"x":1},{"x":1}]})");
}

std::string nestedLists(std::size_t levels) {
  return "(() => { let v = 0; for (let i = 0; i < " + std::to_string(levels) + "; ++i) v = [v]; return v; })()";
}

TEST(Conversion, NestsUpToItsLimit) {
  constexpr std::size_t limit = RendererLimits::resultDepth;
  static_assert(limit == 512);
  for (const std::size_t levels : {limit - 1, limit, limit + 1, std::size_t{100'000}}) {
    // The object on top is the first level.
    const Converted converted = convert("{a: " + nestedLists(levels - 1) + "}");
    if (levels > limit) {
      EXPECT_EQ(converted, notSerialisable) << levels;
    } else {
      EXPECT_EQ(converted, "{\"a\":" + std::string(levels - 1, '[') + "0" + std::string(levels - 1, ']') + "}");
    }
  }
  EXPECT_EQ(convert("(() => { let v = {}; for (let i = 0; i < 1e5; ++i) v = {v}; return v; })()"), notSerialisable);
}

TEST(Conversion, AThrowOutranksAFailedSerialisationWhichOutranksTheSize) {
  const std::string large = "'x'.repeat(7e6)";
  const std::string throwing = "get z() { throw 1; }";
  EXPECT_EQ(convert("{a: " + large + "}"), tooLarge);
  EXPECT_EQ(convert("{a: " + large + ", b: NaN}"), notSerialisable);
  EXPECT_EQ(convert("{a: NaN, b: " + large + "}"), notSerialisable);
  EXPECT_EQ(convert("{a: " + large + ", " + throwing + "}"), unsafe);
  EXPECT_EQ(convert("{a: " + large + ", b: {c: [{" + throwing + "}]}}"), unsafe);
  EXPECT_EQ(convert("{a: NaN, " + throwing + "}"), unsafe);
  EXPECT_EQ(convert("{a: " + nestedLists(1000) + ", b: " + large + ", " + throwing + "}"), unsafe);
  EXPECT_EQ(convert("{a: new Array(4e9), b: NaN}"), notSerialisable);
}

TEST(Conversion, DoesNotReadAListThatCannotFit) {
  // 3,145,727 elements of one byte, their commas and brackets are 6,291,455 bytes.
  const auto list = [](const char* length) {
    return "{a: Object.defineProperty(Object.assign([], {length: " + std::string(length) +
           "}), 0, {get() { throw 1; }})}";
  };
  EXPECT_EQ(convert(list("3145726")), unsafe);
  EXPECT_EQ(convert(list("3145727")), unsafe);
  EXPECT_EQ(convert(list("3145728")), tooLarge);
  EXPECT_EQ(convert("{a: new Array(4294967295)}"), tooLarge);
  EXPECT_EQ(convert("{v: new Proxy([], {get: () => Infinity})}"), tooLarge);
}

TEST(Conversion, FillsItsLimitWithAListToTheByte) {
  // {"a":[0,...,0]} with n elements has 2n + 7 bytes.
  EXPECT_EQ(convert("{a: new Array(3145724).fill(0)}").value().size(), RendererLimits::resultBytes - 1);
  EXPECT_EQ(convert("{a: new Array(3145725).fill(0)}"), tooLarge);
  EXPECT_EQ(convert("{ab: new Array(3145724).fill(0)}").value().size(), RendererLimits::resultBytes);
}

TEST(Conversion, EndsOnSharingThatWouldUnfoldWithoutEnd) {
  EXPECT_EQ(convert("(() => { let v = {}; for (let i = 0; i < 100; ++i) v = {a: v, b: v}; return v; })()"), tooLarge);
  EXPECT_EQ(convert("(() => { let v = [NaN]; for (let i = 0; i < 100; ++i) v = [v, v]; return {v}; })()"),
            notSerialisable);
}

TEST(Conversion, HoldsWhatItReadsAgainstTheCollector) {
  // Getters that make what they return, and garbage enough between them for collections.
  EXPECT_EQ(convert(R"((() => {
      const waste = () => { for (let i = 0; i < 2e5; ++i) ({i, a: [i]}); };
      const fresh = depth => ({get ['k' + depth]() { waste(); return depth ? [fresh(depth - 1), 'x' + depth] : 'end'; }});
      return fresh(6);
    })())"),
            R"({"k6":[{"k5":[{"k4":[{"k3":[{"k2":[{"k1":[{"k0":"end"},"x1"]},"x2"]},"x3"]},"x4"]},"x5"]},"x6"]})");
}

/// A value from a seed, and the text that a slow reference in the script itself makes of it.
constexpr std::string_view randomValue = R"(
  const random = n => (seed = (seed * 1103515245 + 12345) % 2147483648, Math.floor(seed / 65536) % n);
  const text = () => Array.from({length: random(6)}, () =>
      String.fromCodePoint([97 + random(3), random(128), 0xE000 + random(4096), 0x1F600 + random(9), 0x7F0 + random(32)][random(5)])).join('');
  const leaf = () => [null, true, false, random(100), -random(1000) / 7, random(9) * 1e20, text(), text()][random(8)];
  const value = depth => {
    if (depth === 0 || random(4) === 0) return leaf();
    if (random(2)) return Array.from({length: random(5)}, () => value(depth - 1));
    return object(depth);
  };
  const object = depth => Object.fromEntries(Array.from({length: random(6)}, () => [text(), value(depth - 1)]));
  const compare = (a, b) => {
    const left = [...a], right = [...b];
    for (let i = 0; i < left.length && i < right.length; ++i)
      if (left[i] !== right[i]) return left[i].codePointAt(0) - right[i].codePointAt(0);
    return left.length - right.length;
  };
  const reference = v => {
    if (v === null || typeof v !== 'object') return JSON.stringify(v);
    if (Array.isArray(v)) return '[' + v.map(reference).join(',') + ']';
    return '{' + Object.keys(v).sort(compare).map(k => JSON.stringify(k) + ':' + reference(v[k])).join(',') + '}';
  };
)";

TEST(Conversion, AgreesWithAReferenceWrittenInTheScript) {
  for (int seed = 1; seed <= 60; ++seed) {
    auto context = ScriptContext::make();
    const ResultConversion conversion(*context);
    context->evaluate(toUTF16("let seed = " + std::to_string(seed * 7919) + ";" + std::string(randomValue)));
    context->evaluate(u"var result = object(5), expected = reference(result);");
    ASSERT_FALSE(context->hasException());
    const EngineText expected(JSValueToStringCopy(context->handle(), context->global("expected"), nullptr));
    EXPECT_EQ(conversion.convert(context->global("result")), toUTF8(expected.units())) << "seed " << seed;
  }
}

}  // namespace
}  // namespace tessary
