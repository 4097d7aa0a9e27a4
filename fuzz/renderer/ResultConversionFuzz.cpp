// Any bytes as UTF-16 units in the keys and texts of a result, and any JSON as its shape: what is written must be JSON
// with an object on top, and, where no two keys fall together, say the same as the value.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "TessaryPlatform/json/JSONSyntax.h"
#include "TessaryPlatform/text/UTF8.h"
#include "TessaryRenderer/RendererFailure.h"
#include "TessaryRenderer/ResultConversion.h"
#include "TessaryRenderer/ScriptContext.h"
#include "support/Require.h"

namespace {

using tessary::testing::require;

/// `make` builds a result from units; `same` compares it, read back, with the original.
constexpr std::u16string_view shapeScript =
    uR"(
  const wellFormed = text => text.toWellFormed();
  const clean = v => {
    if (typeof v === 'string') return wellFormed(v);
    if (v === null || typeof v !== 'object') return v;
    if (Array.isArray(v)) return v.map(clean);
    return Object.fromEntries(Object.keys(v).map(k => [wellFormed(k), clean(v[k])]));
  };
  const ordered = v => {
    if (v === null || typeof v !== 'object') return JSON.stringify(v);
    if (Array.isArray(v)) return '[' + v.map(ordered).join() + ']';
    return '{' + Object.keys(v).sort().map(k => JSON.stringify(k) + ':' + ordered(v[k])).join() + '}';
  };
  var shape = {
    make(units) {
      try { return {json: JSON.parse(units), units}; } catch {}
      const pieces = units.split('\n');
      const result = {};
      for (let i = 0; i < pieces.length; ++i) result[pieces[i]] = i % 3 ? [pieces[i], {[pieces[i]]: i}] : pieces[i];
      return result;
    },
    same(result, text) { return ordered(clean(result)) === ordered(JSON.parse(text)) ? 'yes' : 'no'; },
  };)";

struct World {
  tessary::ScriptContext context;
  tessary::ResultConversion conversion;
  JSValueRef shape;

  World() : context(*tessary::ScriptContext::make()), conversion(context) {
    context.evaluate(shapeScript);
    shape = context.global("shape");
    JSValueProtect(context.handle(), shape);
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static World& world = *new World;
  // The first byte says whether the rest is UTF-8 or raw units.
  std::u16string units;
  if (size > 0 && data[0] % 2 == 0) {
    units.resize((size - 1) / 2);
    std::memcpy(units.data(), data + 1, units.size() * 2);
  } else if (size > 0) {
    units = tessary::toUTF16({reinterpret_cast<const char*>(data) + 1, size - 1});
  }
  const JSValueRef result = world.context.invoke(world.shape, "make", {world.context.makeText(units)});
  require(result != nullptr);
  const auto text = world.conversion.convert(result);
  if (!text) {
    // Two keys became one, or the fuzzer nested deeper than a result may.
    require(text == std::unexpected(tessary::RendererFailures::other));
    return 0;
  }
  require(tessary::walkJSON(*text) == tessary::JSONKind::object);
  const JSValueRef answer =
      world.context.invoke(world.shape, "same", {result, world.context.makeText(tessary::toUTF16(*text))});
  require(answer != nullptr);
  require(tessary::EngineText(JSValueToStringCopy(world.context.handle(), answer, nullptr)).units() == u"yes");
  return 0;
}
