#include "TessaryRenderer/RendererMain.h"

#include <csignal>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

#include "TessaryPlatform/addresses/PercentEncoding.h"
#include "TessaryPlatform/text/UTF8.h"
#include "TessaryRenderer/ByteChannels.h"
#include "TessaryRenderer/CrashExit.h"
#include "TessaryRenderer/EngineOptions.h"
#include "TessaryRenderer/FailureExit.h"
#include "TessaryRenderer/Inheritance.h"
#include "TessaryRenderer/RenderToken.h"
#include "TessaryRenderer/RendererFailure.h"
#include "TessaryRenderer/RendererLimits.h"
#include "TessaryRenderer/RequestDoor.h"
#include "TessaryRenderer/ResultConversion.h"
#include "TessaryRenderer/Sandbox.h"
#include "TessaryRenderer/ScriptContext.h"

namespace tessary::RendererMain {

namespace {

constexpr std::u16string_view prelude =
    u"var console = Object.freeze({log:function(){},warn:function(){},error:function(){}});";

using Observer = void (*)(Stage);

void reach(Stage stage, Observer observe) {
  if (observe != nullptr) observe(stage);
}

/// The text of UTF-8 bytes in the engine's form; absent where they are not UTF-8.
std::optional<std::u16string> decode(std::string_view bytes) {
  if (!isWellFormedUTF8(bytes)) return std::nullopt;
  return toUTF16(bytes);
}

/// Where the script lies in a folder.
std::string scriptPath(std::string_view folder) {
  std::string path(folder);
  if (!path.empty() && !path.ends_with('/')) path.push_back('/');
  return path + "renderer.js";
}

/// `path` as the engine gets to see it: as a file URL, with everything escaped that a URL could read as something else.
/// A relative path stays relative.
std::u16string fileURL(std::string_view path) {
  constexpr PercentEncoding::ASCIISet kept = PercentEncoding::unreserved | PercentEncoding::ASCIISet("/");
  return toUTF16((path.starts_with('/') ? "file://" : "file:") + PercentEncoding::encoded(path, kept));
}

/// Everything between the arguments and the text of the result, in the order that decides which failure is told when
/// there are several.
/// - `context`: the place for the script context, which outlives this.
std::expected<std::string, RendererFailure> renderedResult(int argumentCount, const char* const* arguments,
                                                           Observer observe, std::optional<ScriptContext>& context) {
  // The command line; standard input is left unread if it is wrong.
  if (argumentCount != 3 || std::string_view(arguments[1]) != "--assets")
    return std::unexpected(RendererFailures::wrongArguments);

  // The request, its form, and the size of its source.
  const auto request = ByteChannels::readRequest(STDIN_FILENO, RendererLimits::requestBytes);
  if (!request) return std::unexpected(request.error());
  if (const auto check = checkRequest(*request); !check) return std::unexpected(check.error());

  // The asset: its place, its size, its text.
  const std::string path = scriptPath(arguments[2]);
  const auto asset =
      ByteChannels::readAsset(path, RendererLimits::smallestAssetBytes, RendererLimits::largestAssetBytes);
  if (!asset) return std::unexpected(asset.error());
  const auto script = decode(*asset);
  if (!script) return std::unexpected(RendererFailures::assetsUnavailable);
  reach(Stage::read, observe);

  // The context. What it cannot load any more once the sandbox is closed, and what a script could replace, it takes
  // now.
  context = ScriptContext::make();
  if (!context) return std::unexpected(RendererFailures::assetsUnavailable);
  context->loadLazyParts();
  const ResultConversion conversion(*context);
  (void)Sandbox::enter();
  reach(Stage::context, observe);

  // The prelude and the asset, and one look for what either may have thrown.
  context->evaluate(prelude);
  context->evaluate(*script, fileURL(path));
  if (context->hasException()) return std::unexpected(RendererFailures::unsafeDocument);
  reach(Stage::evaluation, observe);

  // The two globals. An asset may have taken either away.
  const JSValueRef renderer = context->global("TessaryOfflineRenderer");
  if (JSValueIsUndefined(context->handle(), renderer)) return std::unexpected(RendererFailures::unsafeDocument);
  const JSValueRef json = context->global("JSON");

  // The request once more, as a value of the script's own world.
  const auto requestText = decode(*request);
  if (!requestText) return std::unexpected(RendererFailures::unsafeDocument);
  const JSValueRef value = context->invoke(json, "parse", {context->makeText(*requestText)});
  if (value == nullptr || context->hasException()) return std::unexpected(RendererFailures::unsafeDocument);
  reach(Stage::parse, observe);

  // The token and the call.
  const auto token = makeRenderToken();
  if (!token) return std::unexpected(RendererFailures::other);
  const JSValueRef result = context->invoke(renderer, "render", {value, context->makeText(toUTF16(*token))});
  if (result == nullptr || context->hasException()) return std::unexpected(RendererFailures::unsafeDocument);
  reach(Stage::render, observe);

  // The result as JSON, within its limit.
  auto text = conversion.convert(result);
  if (text) reach(Stage::conversion, observe);
  return text;
}

[[noreturn]] void fail(RendererFailure failure) {
  CrashExit::claimOutput();
  FailureExit::write(failure);
  // Not exit: nothing that the engine or a library registered for the end may run, print, or take time.
  ::_exit(FailureExit::status);
}

}  // namespace

void main(int argumentCount, const char* const* arguments, Observer observe) {
  // Priority, the alarm's action and the alarm come before everything else.
  (void)::setpriority(PRIO_PROCESS, 0, RendererLimits::niceness);
  (void)std::signal(SIGALRM, SIG_DFL);
  (void)::alarm(RendererLimits::seconds);

  Inheritance::shed();
  CrashExit::install();
  EngineOptions::replaceEnvironment();

  // Never destroyed: taking the context down would cost more time than many a document, and the end of the process
  // frees it all the same.
  std::optional<ScriptContext> context;
  const auto result = renderedResult(argumentCount, arguments, observe, context);
  if (!result) fail(result.error());

  CrashExit::claimOutput();
  if (!ByteChannels::writeWhole(STDOUT_FILENO, *result)) fail(RendererFailures::other);
  // Closing first gives the reader its end of input while the kernel still takes this process apart. A file system may
  // tell only now that it has no room.
  if (::close(STDOUT_FILENO) != 0) fail(RendererFailures::other);
  reach(Stage::output, observe);
  (void)::alarm(0);
  ::_exit(0);
}

}  // namespace tessary::RendererMain
