#pragma once

#include <string_view>

namespace tessary {

/// Why a run ends without a result: the text that the caller gets to read, and nothing else. Neither a script's
/// exception nor a system error is ever passed on, since both could carry a piece of the document.
struct RendererFailure {
  std::string_view message;

  bool operator==(const RendererFailure&) const = default;
};

/// The eight texts. Hosts compare them, so they never change.
namespace RendererFailures {

/// The command line is not the program, "--assets", one path.
inline constexpr RendererFailure wrongArguments{"Expected --assets followed by the renderer asset directory."};
/// Standard input holds more than `RendererLimits::requestBytes`.
inline constexpr RendererFailure requestTooLarge{"Renderer request exceeds input limit."};
/// The request is JSON, but a list.
inline constexpr RendererFailure requestNotObject{"Renderer request must be a JSON object."};
/// `operation` is "render" and `text` is too long, absent, or not a text: one text for all three.
inline constexpr RendererFailure sourceTooLarge{"Source exceeds renderer input limit."};
/// The size of `renderer.js` is unknown, 0 or too big; it is not UTF-8; or there is no script context.
inline constexpr RendererFailure assetsUnavailable{"Renderer assets are unavailable."};
/// The script threw, lacks its global, or gave no usable result.
inline constexpr RendererFailure unsafeDocument{"This document could not be rendered safely."};
/// The serialised result is longer than `RendererLimits::resultBytes`.
inline constexpr RendererFailure resultTooLarge{"Rendered document exceeds output limit."};
/// Everything else: unreadable input, invalid JSON, missing asset, failed read, serialisation or write.
inline constexpr RendererFailure other{"Invalid renderer input or assets."};

}  // namespace RendererFailures

}  // namespace tessary
