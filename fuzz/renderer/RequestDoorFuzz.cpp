// Any bytes as a request. The script engine's own JSON.parse, which every request that passes is handed to, is the
// authority: it must read what the door lets through, and see in it what the door saw. It reads more than the door lets
// through (escaped lone surrogates, deeper nesting), so that the comparison goes one way for requests that fail.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "TessaryPlatform/text/UTF8.h"
#include "TessaryRenderer/RendererFailure.h"
#include "TessaryRenderer/RendererLimits.h"
#include "TessaryRenderer/RequestDoor.h"
#include "TessaryRenderer/ScriptContext.h"
#include "support/Require.h"

namespace {

using tessary::testing::require;

/// What the engine makes of a request: "!" for no JSON, "scalar", "list", "object", or for a render request "render"
/// with the length of its source in scalars and bytes' worth, or "render?" without a source.
constexpr std::u16string_view judgeScript =
    uR"(
  var judge = {see(text) {
    let value;
    try { value = JSON.parse(text); } catch { return '!'; }
    if (value === null || typeof value !== 'object') return 'scalar';
    if (Array.isArray(value)) return 'list';
    const own = name => Object.hasOwn(value, name) ? value[name] : undefined;
    if (own('operation') !== 'render') return 'object';
    const source = own('text');
    if (typeof source !== 'string') return 'render?';
    let bytes = 0;
    for (const scalar of source) {
      const code = scalar.codePointAt(0);
      bytes += code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    }
    return 'render' + bytes;
  }};)";

std::string judged(std::string_view request) {
  static tessary::ScriptContext& context = *new tessary::ScriptContext(*tessary::ScriptContext::make());
  static const JSValueRef judge = [] {
    context.evaluate(judgeScript);
    const JSValueRef value = context.global("judge");
    JSValueProtect(context.handle(), value);
    return value;
  }();
  const JSValueRef answer = context.invoke(judge, "see", {context.makeText(tessary::toUTF16(request))});
  require(answer != nullptr);
  return tessary::toUTF8(tessary::EngineText(JSValueToStringCopy(context.handle(), answer, nullptr)).units());
}

/// What the door must have said of a request that the engine judges so, if it let it in at all.
bool agrees(const std::expected<void, tessary::RendererFailure>& check, std::string_view judgement) {
  if (check == std::unexpected(tessary::RendererFailures::requestNotObject)) return judgement == "list";
  const bool isRender = judgement.starts_with("render");
  const bool hasSource = isRender && judgement != "render?" &&
                         std::strtoull(judgement.substr(6).data(), nullptr, 10) <= tessary::RendererLimits::sourceBytes;
  if (check == std::unexpected(tessary::RendererFailures::sourceTooLarge)) return isRender && !hasSource;
  return check.has_value() && (judgement == "object" || hasSource);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string request(reinterpret_cast<const char*>(data), size);
  const auto check = tessary::checkRequest(request);
  const std::string judgement = judged(request);
  if (check == std::unexpected(tessary::RendererFailures::other)) {
    // Bytes that are not UTF-8 reach the engine repaired, so that it may see more in them.
    require(judgement == "!" || judgement == "scalar" || !tessary::isWellFormedUTF8(request) ||
            request.find("\\u") != std::string::npos || request.size() > 1024);
  } else {
    require(tessary::isWellFormedUTF8(request));
    require(agrees(check, judgement));
  }
  // White space around a request says nothing.
  require(tessary::checkRequest(" \r\n\t" + request + " \r\n\t") == check || request.starts_with("\xEF\xBB\xBF"));
  return 0;
}
