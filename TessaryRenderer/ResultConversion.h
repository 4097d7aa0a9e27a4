#pragma once

#include <expected>
#include <string>
#include <vector>

#include "TessaryRenderer/RendererFailure.h"
#include "TessaryRenderer/ScriptContext.h"

namespace tessary {

/// Reads what a script returned and writes it as JSON: compact, UTF-8, keys sorted by scalar value at every level.
///
/// What counts as what:
///
/// - An object is its own enumerable members with text keys. A member that is undefined, a function or a symbol is left
///   out. `toJSON` is a member like any other, and is not called.
/// - A list (as `Array.isArray` tells it, so also a Proxy of one) is its elements from 0 to its `length`; undefined, a
///   function or a symbol is null there, and so is a hole, unless the prototype has something in its place.
/// - Numbers have the ECMAScript form. A lone surrogate in a text or a key is written as U+FFFD.
///
/// The result itself must be an object, and neither a list nor a function: `unsafeDocument` otherwise.
///
/// What JSON cannot express is `other`, the failed serialisation: not-a-number and the infinities, BigInt; objects
/// whose content is not in their members (dates, typed arrays and their buffers, collections, promises, weak
/// references, regular expressions, boxed primitives); an object inside itself; nesting below
/// `RendererLimits::resultDepth`; two keys that become one when their lone surrogates are replaced.
///
/// Whatever throws while it is read (a getter, a Proxy) is `unsafeDocument`; more than `RendererLimits::resultBytes` is
/// `resultTooLarge`. Where several of these are true the result is judged as if it were read whole first, then
/// serialised, then measured: an exception anywhere outranks a failed serialisation anywhere, which outranks the size.
/// So the reading goes on behind the first thing that is wrong, with three exceptions, which keep it finite: it does
/// not go into what lies too deep or inside itself, into a list with more elements than the limit has room for, or a
/// second time into an object that it has met since something was wrong.
///
/// Memory: at most some twice the limit for the text, whatever the script built, besides the sorted keys of the objects
/// that are open; the values themselves stay in the engine.
class ResultConversion {
 public:
  /// Takes hold of the engine's own functions that the reading needs. Call before any script runs, which could replace
  /// them; then nothing it does to its globals or prototypes bends the reading.
  explicit ResultConversion(const ScriptContext& context);

  /// The JSON text of `result`.
  [[nodiscard]] std::expected<std::string, RendererFailure> convert(JSValueRef result) const;

 private:
  class Reader;

  JSContextRef context_;
  HeldValue keys_;
  HeldValue isArray_;
  /// `Object.prototype`.
  HeldValue plainPrototype_;
  /// The prototypes of objects whose content is not in their members.
  std::vector<HeldValue> opaquePrototypes_;
};

}  // namespace tessary
