#pragma once

/// The renderer process: one request on standard input, one script, one JSON object on standard output.
///
///     TessaryRenderer --assets <folder with renderer.js>
///
/// Exit status 0: standard output holds the object that the script's `render` returned, of at most
/// `RendererLimits::resultBytes` bytes, without a newline. Status 1: it holds an object with the one key `error`, one
/// of the texts of `RendererFailures`, or nothing if it cannot be written. Death by SIGALRM: `RendererLimits::seconds`
/// ran out. Nothing is ever written to standard error.
namespace tessary::RendererMain {

/// What a run has come to, for whoever measures it.
enum class Stage {
  /// The request and the asset are read, checked and decoded.
  read,
  /// The script context exists, and the sandbox is closed.
  context,
  /// The asset has run.
  evaluation,
  /// The request has become a value of the script's world.
  parse,
  /// `render` has returned.
  render,
  /// The result stands as JSON text.
  conversion,
  /// The text is written.
  output,
};

/// Runs the process from start to end, and leaves it: does not return.
/// - `observe`: called at the end of each stage of a successful run; null for none.
[[noreturn]] void main(int argumentCount, const char* const* arguments, void (*observe)(Stage) = nullptr);

}  // namespace tessary::RendererMain
